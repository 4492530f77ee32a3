#include "review/plot/map_plot.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "base/text.h"
#include "foundations/str_write.h"
#include "toolkit/draw/plot_axes.h"

namespace quillan {
namespace {

constexpr R8 dLeastHalf = 0.1;         // length units
constexpr R8 dLeastOfCentre = 2.0E-5;  // of the middle's coordinate
constexpr R4 fMostNotes = 0.5f;        // of the plot's height
constexpr R8 dBarPart = 0.2;           // of the map's width
constexpr R4 fBlockMargin = 1.0f;      // character heights around a block
constexpr R4 fBarHeight = 2.0f;        // character heights: the bar and its text
constexpr R4 fArrowRoom = 3.0f;        // character heights, beside the bar
constexpr R4 fNumberGap = 0.5f;        // character heights between numbers of an axis and its label
constexpr R4 fNorthingPlace = 0.85f;   // of the way from the plot to the edge of the area

constexpr R4 fRowsBelow = 3.4f;  // character heights below the plot: numbers, label
constexpr R4 fLeastPlot = 0.5f;  // graphics units

struct Extent {
  R8 dLow = std::numeric_limits<R8>::max(), dHigh = std::numeric_limits<R8>::lowest();

  void Take(R8 d) {
    dLow = std::min(dLow, d);
    dHigh = std::max(dHigh, d);
  }
  R8 Centre() const { return 0.5 * (dLow + dHigh); }
  R8 Half() const { return std::max({dLeastHalf, dLeastOfCentre * Centre(), 0.5 * (dHigh - dLow)}); }
};

}  // namespace

MapRange Map_Range(std::span<const MapPoint> hPoint, R8 dYXPlot, R8 dWiden) {
  Extent hX, hY;
  for (const MapPoint& h : hPoint) {
    hX.Take(h.dX);
    hY.Take(h.dY);
  }
  if (hPoint.empty()) return {};
  const R8 dXW = dWiden * std::max(hY.Half() / dYXPlot, hX.Half());
  const R8 dYW = dWiden * std::max(dXW * dYXPlot, hY.Half());
  return {hX.Centre(), hY.Centre(), dYW / dYXPlot, dYW};  // one scale along both axes
}

namespace {

struct Corner {
  bool bRight, bTop;
};
constexpr std::array hNotesCorner{
    Corner{false, true },
    Corner{true,  true },
    Corner{false, false},
    Corner{true,  false}
};
constexpr std::array hScaleCorner{
    Corner{true,  false},
    Corner{false, false},
    Corner{true,  true },
    Corner{false, true }
};

BlockPlace Place_in(Corner hCorner, const MapBlock& h) {
  return {hCorner.bRight ? 1.0f - h.fWidth : 0.0f, hCorner.bTop ? 1.0f - h.fHeight : 0.0f};
}

/// A block where it stands, as parts of the plot.
struct PlacedBlock {
  BlockPlace hPlace;
  MapBlock hBlock;

  bool Holds(R4 fX, R4 fY) const {
    return fX >= hPlace.fX && fX <= hPlace.fX + hBlock.fWidth && fY >= hPlace.fY && fY <= hPlace.fY + hBlock.fHeight;
  }
  bool Touches(const PlacedBlock& h) const {
    return hPlace.fX < h.hPlace.fX + h.hBlock.fWidth && h.hPlace.fX < hPlace.fX + hBlock.fWidth &&
           hPlace.fY < h.hPlace.fY + h.hBlock.fHeight && h.hPlace.fY < hPlace.fY + hBlock.fHeight;
  }
};

bool Has_Points(const PlacedBlock& hBlock, const MapRange& r, std::span<const MapPoint> hPoint) {
  return std::ranges::any_of(hPoint, [&](const MapPoint& h) {
    return hBlock.Holds(static_cast<R4>(0.5 + 0.5 * (h.dX - r.dXC) / r.dXW),
                        static_cast<R4>(0.5 + 0.5 * (h.dY - r.dYC) / r.dYW));
  });
}

/// The first of the corners in which a block is clear of the points and of the block beside it.
std::optional<BlockPlace> Free_Corner(std::span<const Corner> hCorner, const MapBlock& hBlock, const MapRange& hRange,
                                      std::span<const MapPoint> hPoint, const std::optional<PlacedBlock>& hBeside) {
  for (const Corner& h : hCorner) {
    const PlacedBlock hHere{Place_in(h, hBlock), hBlock};
    if (!(hBeside && hHere.Touches(*hBeside)) && !Has_Points(hHere, hRange, hPoint)) return hHere.hPlace;
  }
  return {};
}

/// The range with a band above it that has fBand of the new height. The scale stays the same along both axes.
MapRange With_Band(const MapRange& r, R4 fBand) {
  const R8 dGrow = 1.0 / (1.0 - R8{fBand});
  return {r.dXC, r.dYC + r.dYW * (dGrow - 1.0), r.dXW * dGrow, r.dYW * dGrow};
}

bool Has_Room(const MapBlock& hNotes, const MapBlock& hScale) {
  return hNotes.fHeight > 0.0f && hNotes.fHeight <= fMostNotes && hNotes.fWidth + hScale.fWidth <= 1.0f;
}

MapLayout Scale_Alone(const MapRange& hRange, std::span<const MapPoint> hPoint, const MapBlock& hScale) {
  if (const auto hPlace = Free_Corner(hScaleCorner, hScale, hRange, hPoint, {})) return {hRange, {}, hPlace};
  return {With_Band(hRange, hScale.fHeight), {}, Place_in({true, true}, hScale)};
}

}  // namespace

MapLayout Map_Layout(const MapRange& hRange, std::span<const MapPoint> hPoint, const MapBlock& hNotes,
                     const MapBlock& hScale) {
  if (!Has_Room(hNotes, hScale)) return Scale_Alone(hRange, hPoint, hScale);
  if (const auto hPlace = Free_Corner(hNotesCorner, hNotes, hRange, hPoint, {})) {
    const auto hBar = Free_Corner(hScaleCorner, hScale, hRange, hPoint, PlacedBlock{*hPlace, hNotes});
    if (hBar) return {hRange, hPlace, hBar};
  }
  const R4 fBand = std::max(hNotes.fHeight, hScale.fHeight);
  return {With_Band(hRange, fBand), Place_in({false, true}, hNotes), Place_in({true, true}, hScale)};
}

R8 Scale_Bar_Length(R8 dWidth) {
  const R8 dLongest = dBarPart * dWidth;
  if (!std::isfinite(dLongest) || dLongest <= 0.0) return 0.0;
  const R8 dDecade = std::pow(10.0, std::floor(std::log10(dLongest)));
  for (const R8 dStep : {5.0, 2.0}) {
    if (dStep * dDecade <= dLongest) return dStep * dDecade;
  }
  return dDecade;
}

R8 Shape_of(const GrBox& h) {
  const GrPoint hPixel = IGrPixelSize();
  return R8{(h.fY2 - h.fY1) / hPixel.fY} / R8{(h.fX2 - h.fX1) / hPixel.fX};
}

namespace {

/// Height of a character along X, as turned text has it.
R4 Turned_Height() {
  const GrPoint hPixel = IGrPixelSize();
  return InfoGraphics(iCharHeight) / hPixel.fY * hPixel.fX;
}

/// From the plot to the middle of the Northing label, at least: the numbers are between them.
R4 Label_Distance(const MapFonts& hFonts) {
  Use_Font(hFonts.hNumbers);
  const R4 fNumbers = IPgYScaleWidth() + fNumberGap * Turned_Height();
  Use_Font(hFonts.hLabels);
  return fNumbers + (0.5f + fNumberGap) * Turned_Height();
}

}  // namespace

GrBox With_Room_for_Axes(GrBox hPlot, std::span<const MapPoint> hPoint, R8 dWiden, const MapFonts& hFonts) {
  Use_Font(hFonts.hLabels);
  const R4 fBelow = fRowsBelow * InfoGraphics(iCharHeight);
  hPlot.fY1 = std::min(std::max(hPlot.fY1, InfoGraphics(iUnitYMin) + fBelow), hPlot.fY2 - fLeastPlot);
  Set_Map_Units(hPlot, Map_Range(hPoint, Shape_of(hPlot), dWiden));
  const R4 fBeside = Label_Distance(hFonts) + (0.5f + fNumberGap) * Turned_Height();
  hPlot.fX1 = std::min(std::max(hPlot.fX1, InfoGraphics(iUnitXMin) + fBeside), hPlot.fX2 - fLeastPlot);
  return hPlot;
}

void Set_Map_Units(const GrBox& hPlot, const MapRange& r) {
  const R4 fXMin = InfoGraphics(iUnitXMin), fXSpan = InfoGraphics(iUnitXMax) - fXMin;
  const R4 fYMin = InfoGraphics(iUnitYMin), fYSpan = InfoGraphics(iUnitYMax) - fYMin;
  IPgArea((hPlot.fX1 - fXMin) / fXSpan, (hPlot.fY1 - fYMin) / fYSpan, (hPlot.fX2 - fXMin) / fXSpan,
          (hPlot.fY2 - fYMin) / fYSpan);
  IPgCoordinates(r.dXC, r.dYC);
  IPgUnits(static_cast<R4>(-r.dXW), static_cast<R4>(-r.dYW), static_cast<R4>(r.dXW), static_cast<R4>(r.dYW));
}

void Draw_Map_Axes(const MapFonts& hFonts, std::string_view sUnit) {
  const std::string sBrackets = sUnit.empty() ? "" : " (" + std::string(sUnit) + ")";
  const R4 fSpacing = IPgUnitsToGrUnits(InfoPgReal(iPlotXMin), 0.0f).fX - InfoGraphics(iUnitXMin);
  const R4 fPlace = std::max(fNorthingPlace, Label_Distance(hFonts) / fSpacing);
  Use_Font(hFonts.hLabels);
  IPgXLabel("Easting" + sBrackets);
  IPgYLabelLeft("Northing" + sBrackets, fPlace);
  Use_Font(hFonts.hNumbers);
  IPgXScale("IN");
  IPgYScaleLeft("IN");
  IPgXScaleTop("I");
  IPgYScaleRight("I");
  IPgBorder();
}

namespace {

/// A size in graphics units as parts of the plot, with a margin all around.
MapBlock Block_of(const GrBox& hPlot, R4 fWidth, R4 fHeight) {
  return {(fWidth + 2.0f * fBlockMargin * Turned_Height()) / (hPlot.fX2 - hPlot.fX1),
          (fHeight + 2.0f * fBlockMargin * InfoGraphics(iCharHeight)) / (hPlot.fY2 - hPlot.fY1)};
}

/// The lower left corner of what stands in a block, in graphics units.
GrPoint Inside(const GrBox& hPlot, const BlockPlace& h) {
  return {hPlot.fX1 + h.fX * (hPlot.fX2 - hPlot.fX1) + fBlockMargin * Turned_Height(),
          hPlot.fY1 + h.fY * (hPlot.fY2 - hPlot.fY1) + fBlockMargin * InfoGraphics(iCharHeight)};
}

R4 Longest_Bar(const GrBox& hPlot) {
  return static_cast<R4>(dBarPart) * (hPlot.fX2 - hPlot.fX1);
}

/// An upright arrow with its letter at its foot.
void Draw_North(R4 fX, R4 fY) {
  const R4 fLine = InfoGraphics(iCharHeight);
  WGrTextString(fX, fY + 0.5f * fLine, "N");
  IGrArrowJoin(fX, fY + 1.1f * fLine, fX, fY + fBarHeight * fLine + 0.6f * fLine, ArrowHeads::End);
}

}  // namespace

std::string Cut_to_Room(std::string_view sText, R4 fRoom) {
  constexpr std::string_view sCut = "...";
  if (WGrTextLength(sText) <= fRoom) return std::string(sText);
  std::size_t N = sText.size();
  while (N > 0 && WGrTextLength(Cut_Text(sText, N)) + WGrTextLength(sCut) > fRoom) --N;
  return std::string(Cut_Text(sText, N)).append(sCut);
}

std::vector<std::string> Notes_with_Room(const GrBox& hPlot, const MapFonts& hFonts,
                                         std::span<const std::string> sLine) {
  const R4 fBeside = (1.0f - Scale_Block(hPlot, hFonts).fWidth) * (hPlot.fX2 - hPlot.fX1);
  const R4 fRoom = fBeside - 2.0f * fBlockMargin * Turned_Height() - InfoGraphics(iCharWidth);
  std::vector<std::string> sCut;
  for (const std::string& s : sLine) sCut.push_back(Cut_to_Room(s, fRoom));
  return sCut;
}

MapBlock Notes_Block(const GrBox& hPlot, const MapFonts& hFonts, std::span<const std::string> sLine) {
  if (sLine.empty()) return {};
  Use_Font(hFonts.hNotes);
  R4 fWidest = 0.0f;
  for (const std::string& s : sLine) fWidest = std::max(fWidest, WGrTextLength(s));
  return Block_of(hPlot, fWidest, static_cast<R4>(sLine.size()) * InfoGraphics(iCharHeight));
}

void Draw_Notes(const GrBox& hPlot, const MapFonts& hFonts, const BlockPlace& hPlace,
                std::span<const std::string> sLine) {
  Use_Font(hFonts.hNotes);
  WGrTextOrientation(Justify::Left, 0.0f);
  const GrPoint h = Inside(hPlot, hPlace);
  R4 fUp = static_cast<R4>(sLine.size()) - 0.5f;
  for (const std::string& s : sLine) {
    WGrTextString(h.fX, h.fY + fUp * InfoGraphics(iCharHeight), s);
    fUp -= 1.0f;
  }
}

MapBlock Scale_Block(const GrBox& hPlot, const MapFonts& hFonts) {
  Use_Font(hFonts.hNotes);
  return Block_of(hPlot, Longest_Bar(hPlot) + fArrowRoom * Turned_Height(), fBarHeight * InfoGraphics(iCharHeight));
}

void Draw_Scale_Bar(const GrBox& hPlot, const MapFonts& hFonts, const MapLayout& hLayout, std::string_view sUnit) {
  const R8 dBar = Scale_Bar_Length(2.0 * hLayout.hRange.dXW);
  if (!hLayout.hScale || dBar <= 0.0) return;
  Use_Font(hFonts.hNotes);
  WGrTextOrientation(Justify::Centre, 0.0f);
  const GrPoint h = Inside(hPlot, *hLayout.hScale);
  const R4 fLine = InfoGraphics(iCharHeight);
  const R4 fBar = static_cast<R4>(dBar / (2.0 * hLayout.hRange.dXW)) * (hPlot.fX2 - hPlot.fX1);
  const R4 fX2 = h.fX + Longest_Bar(hPlot), fX1 = fX2 - fBar;  // close to the arrow
  const std::string sLength = Str_Write_XYZR8(dBar).str() + (sUnit.empty() ? "" : " " + std::string(sUnit));
  IGrSegment(fX1, h.fY + 0.3f * fLine, fX2, h.fY + 0.3f * fLine);
  for (const R4 fX : {fX1, fX2}) IGrSegment(fX, h.fY, fX, h.fY + 0.6f * fLine);
  WGrTextString(0.5f * (fX1 + fX2), h.fY + 1.3f * fLine, sLength);
  Draw_North(fX2 + 0.6f * fArrowRoom * Turned_Height(), h.fY - 0.3f * fLine);
}

}  // namespace quillan
