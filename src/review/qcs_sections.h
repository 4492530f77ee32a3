// qcs_sections.h: the survey as pseudosections: which transients belong together, what a plot of them shows, which of
// its points is nearest to a click, and the reversal of polarity. Nothing is drawn here.
//
// A section holds consecutive transients of one component and, where the array makes it matter, of one transmitter or
// of one separation. Its plot has the receiver station along X and the data value along Y on the signed logarithmic
// scale, one profile a time window. The knee of that scale is ten times the noise floor, which the user sets for each
// section and plot type.
//
//   QCS_Allocate            after a read and after each change of the order of the transients
//   QCS_Section_Initialize  for each section, plot type or noise floor that is shown, and after a flip
//   QCS_Visit_Points, QCS_Visit_Joins, QCS_Section_Point   as often as needed, at any zoom
#pragma once

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/array.h"
#include "base/types.h"
#include "model/tmd_data.h"
#include "review/plot/plot_range.h"
#include "review/plot/plot_types.h"
#include "review/plot/read_out.h"

namespace quillan {

inline constexpr I4 MSection = MTrn;  // a section has at least one transient

// Graphics units of the section plot: the whole drawing area is 0 to fXCMU by 0 to fYCMU.
inline constexpr R4 fXCMU = 24.0f;
inline constexpr R4 fYCMU = 17.8f;

/// The noise floor of each plot type, in the unit of its values.
using NoiseFloors = Array1<R4, MPlotType>;

struct ValueRange {
  R4 fMin = fRangeMin0, fMax = fRangeMax0;
};

struct SectionRecord {
  I4 iTrnBeg = 0, iTrnEnd = 0;                    // first and last transient
  R4 fStnMin = fRangeMin0, fStnMax = fRangeMax0;  // dRxKvrStn of iTrnBeg and of iTrnEnd, not sorted
  Array1<ValueRange, MPlotType> hValue{};         // by plot type, in the unit of its values
  NoiseFloors fYPNoise = Filled<NoiseFloors>(1.0f);
};

/// A point of the plot.
struct SectionPoint {
  I4 iTrn;   // transient
  I4 iTwc;   // time window
  R4 fX;     // plot units
  R4 fY;     // plot units, the scaled value
  L4 bSkip;  // the window is skipped; bSkipTrn does not show in a section
};

/// A section ready to be drawn: every value scaled once, however often it is drawn and searched.
struct ScaledSection {
  struct Column {
    R4 fX;   // plot units
    I4 NTW;  // windows of the transient
  };

  I4 iSection = 0;  // 0: none is ready
  I4 iPlotType = 0;
  I4 iTrnBeg = 0;               // transient of the first column
  std::vector<Column> hColumn;  // one a transient
  std::vector<R4> fY;           // MTW a column: the scaled value, fDummy where there is none

  /// Whether window I of column J is left out as skipped.
  L4 Is_Hidden(std::size_t J, I4 I) const { return bHideSkipped && hTrn(iTrnBeg + static_cast<I4>(J)).bSkip(I); }
  R4 fY_at(std::size_t J, I4 I) const { return fY[J * MTW + static_cast<std::size_t>(I - 1)]; }
};

// Module state. QCS_Allocate fills hSection and NSection, QCS_Section_Initialize the rest; QCS_Initialize restores all.
extern Array1<SectionRecord, MSection> hSection;
inline I4 NSection = 0;
inline NoiseFloors fYPNoise = Filled<NoiseFloors>(1.0f);  // in force, at most 1 once a section is initialised
inline R4 fYPScale = 10.0f;                               // base of the scale of the plot: ten times the floor
inline ScaledSection hScaled;

/// No sections, noise floors of 1.
void QCS_Initialize();

/// Groups the transients of the store, in their order, and numbers them in iSection. A new section begins where the
/// component changes and, with a fixed, long-offset or central loop, the transmitter station (beyond 10000 spacings of
/// that of the section's first transient, in R8) or, with a moving loop, the separation dRxStn - dTxStn (the same in
/// R4). Noise floors of before are forgotten. Returns 0; 1 the store is empty, and there are no sections.
[[nodiscard]] I4 QCS_Allocate();

/// The ranges of a section from those of its transients. Returns 0; 1 its transients are not in the store, which is
/// reported.
[[nodiscard]] I4 QCS_Range_SectionJ(SectionRecord& hSectionJ);

/// The plot types that a component offers, by name.
std::vector<std::string> QCS_Plot_Types(I4 iRxCmp);

/// Whether section, plot type and the section's transients exist. Returns 0; 1 they do not, which is reported under
/// the name of the caller's routine.
[[nodiscard]] I4 QCS_Check_Section(std::string_view sRoutine, I4 iSection, I4 iPlotType);

/// Takes up what the noise floor's field holds: limited to 1.0E-12 to 1.0E9 it is in force for the plot type. Where it
/// differs from fYPNoise0, the value last put into the field, by more than 100 spacings, it is the user's: the section
/// keeps it, and true asks for QCS_Section_Initialize.
[[nodiscard]] L4 QCS_Take_Noise_Floor(I4 iSection, I4 iPlotType, R4 fField, R4 fYPNoise0);

/// The full range of a section's plot: makes the section's ranges again, puts its noise floor in force (never above 1),
/// and scales its values for all that follows. The range is never empty: one station is widened, and Y takes in 0 and
/// at least one unit. Nothing where there is no such section or plot type, or it has no station or no value; this is
/// reported, and no point is visible.
std::optional<PlotRange> QCS_Section_Initialize(I4 iSection, I4 iPlotType);

/// The full range of the section that is ready while skipped points are hidden: its values reach as far as those that
/// are shown; hFull, its full range with all of them, where there is none.
PlotRange QCS_Range_Shown(const PlotRange& hFull);

/// Where a point of the section that is ready lies, hidden or not; nothing where it is not in the range.
std::optional<SectionPoint> QCS_Point_in_Range(const PickedPoint& hPoint, const PlotRange& hRange);
/// The visible point NWindow windows and NSounding soundings (0, 1 or -1 each) on from a point: the next one there is
/// in that direction, of the same sounding or of the same window; the point itself where there is none. From a point
/// that is not in the range, the first visible one.
PickedPoint QCS_Step(const PickedPoint& hPoint, I4 NWindow, I4 NSounding, const PlotRange& hRange);

/// Visit(SectionPoint) for each visible point: transients in their order, windows of each from the first.
template <class Visit>
void QCS_Visit_Points(const PlotRange& hRange, Visit visit);
/// Visit(fX1, fY1, fX2, fY2) for each line that joins the values of one window at consecutive transients, window by
/// window, where it may cross the range. There are as many windows as the longest transient within the range has.
template <class Visit>
void QCS_Visit_Joins(const PlotRange& hRange, Visit visit);

/// The visible point nearest to a click, within fRGrMax of it, all in graphics units; the first of equally near ones.
PickedPoint QCS_Nearest_Point(const GrPoint& hClick, const PlotRange& hRange, const PlotMap& hMap, R4 fRGrMax);
/// The same in the plot that is on the screen, for a click within the drawing area.
PickedPoint QCS_Section_Point(const GrPoint& hClick, I4 iSection, I4 iPlotType, const PlotRange& hRange, R4 fRGrMax);

/// Reverses the polarity (fuVmag, fBmag and their ranges) of the transients of a section from station fXPlt1 to fXPlt2,
/// up to the first one beyond fXPlt2. Missing values stay missing; the section is to be initialised again.
void QCS_Flip_Stations(I4 iSection, R4 fXPlt1, R4 fXPlt2);
/// The same between two places of the plot on the screen, in graphics units.
void QCS_Section_FlipTrn(I4 iSection, R4 fXGr1, R4 fXGr2);
/// The same for every transient of the section.
void QCS_Section_FlipAll(I4 iSection);

template <class Visit>
void QCS_Visit_Points(const PlotRange& hRange, Visit visit) {
  for (std::size_t J = 0; J < hScaled.hColumn.size(); ++J) {
    const ScaledSection::Column& hColumn = hScaled.hColumn[J];
    if (!hRange.Has_X(hColumn.fX)) continue;
    const I4 j = hScaled.iTrnBeg + static_cast<I4>(J);
    for (I4 I = 1; I <= hColumn.NTW; ++I) {
      const R4 fY = hScaled.fY_at(J, I);
      if (Is_Present(fY) && hRange.Has_Y(fY) && !hScaled.Is_Hidden(J, I))
        visit(SectionPoint{j, I, hColumn.fX, fY, hTrn(j).bSkip(I)});
    }
  }
}

template <class Visit>
void QCS_Visit_Joins(const PlotRange& hRange, Visit visit) {
  I4 NTW = 0;
  for (const ScaledSection::Column& hColumn : hScaled.hColumn) {
    if (hRange.Has_X(hColumn.fX)) NTW = std::max(NTW, hColumn.NTW);
  }
  for (I4 I = 1; I <= NTW; ++I) {
    for (std::size_t J = 1; J < hScaled.hColumn.size(); ++J) {
      const R4 fX1 = hScaled.hColumn[J - 1].fX, fX2 = hScaled.hColumn[J].fX;
      if (fX2 < hRange.fXPmin) continue;
      if (fX1 > hRange.fXPmax) break;
      const R4 fY1 = hScaled.fY_at(J - 1, I), fY2 = hScaled.fY_at(J, I);
      if (!Is_Present(fY1) || !Is_Present(fY2)) continue;
      if (hScaled.Is_Hidden(J - 1, I) || hScaled.Is_Hidden(J, I)) continue;
      if (std::max(fY1, fY2) >= hRange.fYPmin && std::min(fY1, fY2) <= hRange.fYPmax) visit(fX1, fY1, fX2, fY2);
    }
  }
}

}  // namespace quillan
