#include "review/qcs_sections.h"

#include <cmath>

#include "foundations/log_file.h"
#include "foundations/str_write.h"
#include "model/edits.h"
#include "review/plot/signed_log.h"
#include "toolkit/draw/plot_axes.h"

namespace quillan {

Array1<SectionRecord, MSection> hSection;

namespace {

constexpr I4 iArrayCNT = 6;  // central loop, in CTemArray

constexpr I4 NSameSpacing = 10000;  // stations within so many spacings are one: they went through text and scaling

constexpr R4 fXWidthLeast = 0.005f;   // plot units, a narrower range is widened
constexpr R4 fXSpacingLeast = 10.0f;  // spacings, the same for great station numbers
constexpr R4 fYWidthLeast = 1.0f;     // plot units
constexpr R4 fYPNoiseHighest = 1.0f;  // noise floor that a plot shows at most
constexpr R4 fYPScalePerNoise = 10.0f;

constexpr R4 fNoiseFieldLeast = 1.0E-12f;  // what the field of the noise floor is limited to
constexpr R4 fNoiseFieldGreatest = 1.0E9f;
constexpr R4 fSameNoise = 100.0f;  // spacings, within which the field shows what was put into it

std::string Number(I4 iValue) {
  return Str_Write_I4(iValue).str();
}

/// No point is visible until the next initialisation.
void Forget_Scaled() {
  hScaled.iSection = 0;
  hScaled.hColumn.clear();
  hScaled.fY.clear();
}

// ---- grouping

template <class Real>
bool Are_Apart(Real dValue0, Real dValue) {
  return std::abs(dValue - dValue0) > static_cast<Real>(NSameSpacing) * Spacing(dValue0);
}

R4 Separation(const Transient& h) {
  return static_cast<R4>(h.dRxStn - h.dTxStn);
}

/// Whether a transient belongs elsewhere than the first one of a section.
bool Begins_Section(const Transient& hFirst, const Transient& h) {
  if (h.iRxCmp != hFirst.iRxCmp) return true;
  switch (hTemSurvey.iTemArray) {
    case iArrayFXL:
    case iArrayLOT:
    case iArrayCNT: return Are_Apart(hFirst.dTxStn, h.dTxStn);
    case iArrayMVL: return Are_Apart(Separation(hFirst), Separation(h));
    default: return false;
  }
}

// ---- ranges and checks

/// Makes a report that has lines beside its first one. Whether it had.
bool Reported(const ErrorLines& sError) {
  if (sError.size() == 1) return false;
  LogErr(sError);
  return true;
}

/// The lines of a report on a section whose transients are not in the store; none if they are.
void Check_Transients(const SectionRecord& h, ErrorLines& sError) {
  const auto Is_In_Store = [](I4 j) { return j >= 1 && j <= NTrn; };
  const std::string sStore = " < 1 or > NTrn=" + Number(NTrn);
  if (!Is_In_Store(h.iTrnBeg)) sError.push_back("iTrnBeg=" + Number(h.iTrnBeg) + sStore);
  if (!Is_In_Store(h.iTrnEnd)) sError.push_back("iTrnEnd=" + Number(h.iTrnEnd) + sStore);
  if (h.iTrnBeg > h.iTrnEnd) sError.push_back("iTrnBeg=" + Number(h.iTrnBeg) + " > iTrnEnd=" + Number(h.iTrnEnd));
}

// ---- the plot

R4 Plotted_Station(I4 j) {
  return static_cast<R4>(hTrn(j).dRxKvrStn);
}

/// Neither missing nor beyond what a plot can hold.
bool Is_Station(R4 fStn) {
  return std::abs(fStn) < -fDummyLimit;
}

/// Reports a section without a station or without a value of the plot type.
bool Has_Ranges(I4 iSection, I4 iPlotType) {
  const SectionRecord& h = hSection(iSection);
  const std::string sSection = "iSection=" + Number(iSection);
  ErrorLines sError = {"QCS_Section_Initialize.ERROR:"};
  if (!Is_Station(h.fStnMin) || !Is_Station(h.fStnMax)) sError.push_back(sSection + " X-plot range uninitialized");
  if (!Is_Present(h.hValue(iPlotType).fMax)) sError.push_back(sSection + " Y-plot range uninitialized");
  return !Reported(sError);
}

/// Takes in 0 and at least one unit.
void Put_Y_Range(PlotRange& hRange, R4 fYMin, R4 fYMax) {
  hRange.fYPmin = fYMin;
  hRange.fYPmax = std::max({fYMax, 0.0f, fYMin + fYWidthLeast});
}

PlotRange Full_Range(const SectionRecord& h, const ValueRange& hValue) {
  PlotRange hRange;
  hRange.fXPmin = h.fStnMin;
  hRange.fXPmax = h.fStnMax;
  const R4 fWidth = std::max(fXWidthLeast, fXSpacingLeast * Spacing(h.fStnMax));
  if (hRange.fXPmax - hRange.fXPmin < fWidth) {
    hRange.fXPmin -= fWidth;
    hRange.fXPmax = hRange.fXPmin + 2.0f * fWidth;
  }
  Put_Y_Range(hRange, fAsinh10(hValue.fMin, fYPScale), fAsinh10(hValue.fMax, fYPScale));
  return hRange;
}

void Scale_Section(I4 iSection, I4 iPlotType) {
  const SectionRecord& hSectionJ = hSection(iSection);
  hScaled.iSection = iSection;
  hScaled.iPlotType = iPlotType;
  hScaled.iTrnBeg = hSectionJ.iTrnBeg;
  hScaled.fY.assign(static_cast<std::size_t>(hSectionJ.iTrnEnd - hSectionJ.iTrnBeg + 1) * MTW, fDummy);
  auto fY = hScaled.fY.begin();
  for (I4 j = hSectionJ.iTrnBeg; j <= hSectionJ.iTrnEnd; ++j, fY += MTW) {
    const WindowValues& fValue = Plot_Values(hTrn(j), iPlotType);
    hScaled.hColumn.push_back({Plotted_Station(j), hTrn(j).NTW});
    for (I4 I = 1; I <= hTrn(j).NTW; ++I) {
      if (fValue(I) >= fDummyLimit) fY[I - 1] = fAsinh10(fValue(I), fYPScale);
    }
  }
}

}  // namespace

void QCS_Initialize() {
  hSection.fill(SectionRecord{});
  NSection = 0;
  fYPNoise.fill(1.0f);
  fYPScale = fYPScalePerNoise;
  Forget_Scaled();
}

I4 QCS_Allocate() {
  NSection = 0;
  Forget_Scaled();
  if (NTrn < 1) return 1;
  for (I4 j = 1; j <= NTrn; ++j) {
    if (j == 1 || Begins_Section(hTrn(hSection(NSection).iTrnBeg), hTrn(j))) {
      hSection(++NSection) = SectionRecord{};
      hSection(NSection).iTrnBeg = j;
    }
    hSection(NSection).iTrnEnd = j;
    hTrn(j).iSection = NSection;
  }
  I4 iError = 0;
  for (I4 iSection = 1; iSection <= NSection; ++iSection) {
    iError = std::max(iError, QCS_Range_SectionJ(hSection(iSection)));
  }
  return iError;
}

I4 QCS_Range_SectionJ(SectionRecord& h) {
  ErrorLines sError = {"QCS_Range_SectionJ.ERROR"};
  Check_Transients(h, sError);
  if (Reported(sError)) return 1;
  h.fStnMin = Plotted_Station(h.iTrnBeg);
  h.fStnMax = Plotted_Station(h.iTrnEnd);
  for (I4 iType = 1; iType <= MPlotType; ++iType) {
    const PlotType& hType = Plot_Type(iType);
    ValueRange hRange;
    for (I4 j = h.iTrnBeg; j <= h.iTrnEnd; ++j) {
      const ValueRange hOf{hTrn(j).*hType.fMin, hTrn(j).*hType.fMax};
      if (hOf.fMax > hType.fRangeLeast) Join_Range(hOf.fMin, hOf.fMax, hRange.fMin, hRange.fMax);
    }
    h.hValue(iType) = hRange;
  }
  return 0;
}

std::vector<std::string> QCS_Plot_Types(I4 iRxCmp) {
  std::vector<std::string> sPlotType;
  for (I4 iType = 1; iType <= (Is_Magnetic(iRxCmp) ? MPlotType : 1); ++iType) {
    std::string sType = Section_Type(iRxCmp, iType);
    if (!sType.empty()) sPlotType.push_back(std::move(sType));
  }
  return sPlotType;
}

I4 QCS_Check_Section(std::string_view sRoutine, I4 iSection, I4 iPlotType) {
  ErrorLines sError = {std::string(sRoutine) + ".ERROR:"};
  const bool bSection = iSection >= 1 && iSection <= NSection;
  if (!bSection) sError.push_back("iSection=" + Number(iSection) + " < 1 or > NSection=" + Number(NSection));
  if (iPlotType < 1 || iPlotType > MPlotType) {
    sError.push_back("iPlotType=" + Number(iPlotType) + " < 1 or > MPlotType=" + Number(MPlotType));
  }
  if (bSection) Check_Transients(hSection(iSection), sError);
  return Reported(sError) ? 1 : 0;
}

L4 QCS_Take_Noise_Floor(I4 iSection, I4 iPlotType, R4 fField, R4 fYPNoise0) {
  fYPNoise(iPlotType) = std::clamp(fField, fNoiseFieldLeast, fNoiseFieldGreatest);
  const bool bChanged = std::abs(fYPNoise(iPlotType) - fYPNoise0) > fSameNoise * Spacing(fYPNoise0);
  if (bChanged) hSection(iSection).fYPNoise(iPlotType) = fYPNoise(iPlotType);
  return bChanged;
}

std::optional<PlotRange> QCS_Section_Initialize(I4 iSection, I4 iPlotType) {
  Forget_Scaled();
  if (QCS_Check_Section("QCS_Section_Initialize", iSection, iPlotType) != 0) return std::nullopt;
  SectionRecord& h = hSection(iSection);
  if (QCS_Range_SectionJ(h) != 0) return std::nullopt;
  fYPNoise(iPlotType) = std::min(h.fYPNoise(iPlotType), fYPNoiseHighest);
  fYPScale = fYPScalePerNoise * fYPNoise(iPlotType);
  if (!Has_Ranges(iSection, iPlotType)) return std::nullopt;
  Scale_Section(iSection, iPlotType);
  return Full_Range(h, h.hValue(iPlotType));
}

PlotRange QCS_Range_Shown(const PlotRange& hFull) {
  R4 fYMin = fRangeMin0, fYMax = fRangeMax0;
  QCS_Visit_Points(hFull, [&](const SectionPoint& h) { Join_Range(h.fY, h.fY, fYMin, fYMax); });
  PlotRange hRange = hFull;
  if (fYMin <= fYMax) Put_Y_Range(hRange, fYMin, fYMax);
  return hRange;
}

std::optional<SectionPoint> QCS_Point_in_Range(const PickedPoint& h, const PlotRange& hRange) {
  if (hScaled.iSection == 0 || h.iTrn < hScaled.iTrnBeg) return std::nullopt;
  const auto J = static_cast<std::size_t>(h.iTrn - hScaled.iTrnBeg);
  if (J >= hScaled.hColumn.size() || h.iTwc < 1 || h.iTwc > hScaled.hColumn[J].NTW) return std::nullopt;
  const R4 fX = hScaled.hColumn[J].fX, fY = hScaled.fY_at(J, h.iTwc);
  if (!Is_Present(fY) || !hRange.Has(fX, fY)) return std::nullopt;
  return SectionPoint{h.iTrn, h.iTwc, fX, fY, hTrn(h.iTrn).bSkip(h.iTwc)};
}

PickedPoint QCS_Step(const PickedPoint& hPoint, I4 NWindow, I4 NSounding, const PlotRange& hRange) {
  if (!QCS_Point_in_Range(hPoint, hRange)) {
    PickedPoint hFirst;
    QCS_Visit_Points(hRange, [&](const SectionPoint& h) {
      if (hFirst.iTrn == 0) hFirst = {h.iTrn, h.iTwc};
    });
    return hFirst;
  }
  const I4 iTrnEnd = hScaled.iTrnBeg + static_cast<I4>(hScaled.hColumn.size()) - 1;
  PickedPoint h = hPoint;
  do {
    h = {h.iTrn + NSounding, h.iTwc + NWindow};
    const auto hAt = QCS_Point_in_Range(h, hRange);
    if (hAt && !(bHideSkipped && hAt->bSkip)) return h;
  } while (h.iTrn >= hScaled.iTrnBeg && h.iTrn <= iTrnEnd && h.iTwc >= 1 && h.iTwc <= MTW);
  return hPoint;
}

namespace {

/// The part of a range in which stations within fReach of a click lie, and a little more.
PlotRange Columns_near(const GrPoint& hClick, PlotRange hRange, const PlotMap& hMap, R4 fReach) {
  constexpr R4 fMargin = 1.01f;
  const R4 fX = hMap.fX0 + (hClick.fX - hMap.fXGr0) / hMap.fXGrPerUnit;
  const R4 fHalf = fMargin * std::abs(fReach / hMap.fXGrPerUnit) + fXSpacingLeast * Spacing(fX);
  if (!std::isfinite(fX) || !std::isfinite(fHalf)) return hRange;
  hRange.fXPmin = std::max(hRange.fXPmin, fX - fHalf);
  hRange.fXPmax = std::min(hRange.fXPmax, fX + fHalf);
  return hRange;
}

}  // namespace

PickedPoint QCS_Nearest_Point(const GrPoint& hClick, const PlotRange& hRange, const PlotMap& hMap, R4 fRGrMax) {
  PickedPoint hPicked;
  R4 fNearest = fRGrMax * fRGrMax;
  QCS_Visit_Points(Columns_near(hClick, hRange, hMap, fRGrMax), [&](const SectionPoint& h) {
    const GrPoint hAt = hMap.Gr_Point(h.fX, h.fY);
    const R4 fDX = hAt.fX - hClick.fX;
    const R4 fDY = hAt.fY - hClick.fY;
    const R4 fDistance = fDX * fDX + fDY * fDY;
    const bool bNearer = hPicked.iTrn == 0 ? fDistance <= fNearest : fDistance < fNearest;
    if (!bNearer) return;  // nor is not-a-number
    fNearest = fDistance;
    hPicked = {h.iTrn, h.iTwc};
  });
  return hPicked;
}

PickedPoint QCS_Section_Point(const GrPoint& hClick, I4 iSection, I4 iPlotType, const PlotRange& hRange, R4 fRGrMax) {
  if (QCS_Check_Section("QCS_Section_Point", iSection, iPlotType) != 0) return {};
  const bool bInside = hClick.fX >= 0.0f && hClick.fX <= fXCMU && hClick.fY >= 0.0f && hClick.fY <= fYCMU;
  const bool bReady = hScaled.iSection == iSection && hScaled.iPlotType == iPlotType;
  if (!bInside || !bReady) return {};
  return QCS_Nearest_Point(hClick, hRange, Map_of_Screen(hRange), fRGrMax);
}

void QCS_Flip_Stations(I4 iSection, R4 fXPlt1, R4 fXPlt2) {
  if (QCS_Check_Section("QCS_Section_FlipTrn", iSection, 1) != 0) return;
  Forget_Scaled();
  for (I4 j = hSection(iSection).iTrnBeg; j <= hSection(iSection).iTrnEnd; ++j) {
    if (Plotted_Station(j) > fXPlt2) break;
    if (Plotted_Station(j) >= fXPlt1) Edit_Polarity(j);
  }
}

void QCS_Section_FlipTrn(I4 iSection, R4 fXGr1, R4 fXGr2) {
  QCS_Flip_Stations(iSection, IPgUnitsFromGrUnits(fXGr1, 0.0f).fX, IPgUnitsFromGrUnits(fXGr2, 0.0f).fX);
}

void QCS_Section_FlipAll(I4 iSection) {
  if (QCS_Check_Section("QCS_Section_FlipAll", iSection, 1) != 0) return;
  Forget_Scaled();
  for (I4 j = hSection(iSection).iTrnBeg; j <= hSection(iSection).iTrnEnd; ++j) Edit_Polarity(j);
}

}  // namespace quillan
