#include "review/qcs_sections.h"

#include <cmath>

#include "foundations/log_file.h"
#include "foundations/str_write.h"
#include "metadata/enm_data.h"
#include "review/plot/igr_util.h"
#include "toolkit/draw/plot_axes.h"

namespace quillan {

Array1<SectionRecord, MSection> hSection;

namespace {

constexpr I4 iArrayCNT = 6;  // central loop, in CTemArray
constexpr I4 iCmpOff = 8;    // transmitter current, in CChnCmp

constexpr I4 NSameSpacing = 10000;  // stations within so many spacings are one: they went through text and scaling
constexpr R4 fAResLeast = 1.0E-6f;  // ohm-m, a transient without a greater value has no resistivities

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

void Open_Section(I4 j) {
  I4 iError = 0;
  ++NSection;
  QCS_Initialize_SectionJ(hSection(NSection), iError);
  hSection(NSection).iTrnBeg = j;
}

// ---- ranges and checks

/// The lines of a report on a section whose transients are not in the store; none if they are.
void Check_Transients(const SectionRecord& h, ErrorLines& sError) {
  const auto Is_In_Store = [](I4 j) { return j >= 1 && j <= NTrn; };
  const std::string sStore = " < 1 or > NTrn=" + Number(NTrn);
  if (!Is_In_Store(h.iTrnBeg)) sError.push_back("iTrnBeg=" + Number(h.iTrnBeg) + sStore);
  if (!Is_In_Store(h.iTrnEnd)) sError.push_back("iTrnEnd=" + Number(h.iTrnEnd) + sStore);
  if (h.iTrnBeg > h.iTrnEnd) sError.push_back("iTrnBeg=" + Number(h.iTrnBeg) + " > iTrnEnd=" + Number(h.iTrnEnd));
}

void Join_Range(R4 fMin1, R4 fMax1, R4& fMin, R4& fMax) {
  fMin = std::min(fMin, fMin1);
  fMax = std::max(fMax, fMax1);
}

void Join_Ranges(const Transient& h, SectionRecord& hSectionJ) {
  Join_Range(h.fTWCmin, h.fTWCmax, hSectionJ.fTWCmin, hSectionJ.fTWCmax);
  Join_Range(h.fuVmin, h.fuVmax, hSectionJ.fuVmin, hSectionJ.fuVmax);
  if (Is_Present(h.fBmax)) Join_Range(h.fBmin, h.fBmax, hSectionJ.fBmin, hSectionJ.fBmax);
  if (h.fARmax > fAResLeast) Join_Range(h.fARmin, h.fARmax, hSectionJ.fARmin, hSectionJ.fARmax);
}

// ---- the plot

R4 Plotted_Station(I4 j) {
  return static_cast<R4>(hTrn(j).dRxKvrStn);
}

/// Neither missing nor beyond what a plot can hold.
bool Is_Station(R4 fStn) {
  return std::abs(fStn) < -fDummyLimit;
}

struct PlotTypeRow {
  const WindowValues Transient::*hValue;
  R4 SectionRecord::*fMin;
  R4 SectionRecord::*fMax;
};

constexpr Array1<PlotTypeRow, MPlotType> hPlotType{{{
    {&Transient::fuVmag, &SectionRecord::fuVmin, &SectionRecord::fuVmax},
    {&Transient::fBmag, &SectionRecord::fBmin, &SectionRecord::fBmax},
    {&Transient::fARes, &SectionRecord::fARmin, &SectionRecord::fARmax},
}}};

/// iError: 1 the section has no station or no value of the plot type, which is reported.
void Check_Ranges(I4 iSection, I4 iPlotType, I4& iError) {
  const SectionRecord& h = hSection(iSection);
  const std::string sSection = "iSection=" + Number(iSection);
  ErrorLines sError = {"QCS_Section_Initialize.ERROR:"};
  if (!Is_Station(h.fStnMin) || !Is_Station(h.fStnMax)) sError.push_back(sSection + " X-plot range uninitialized");
  if (!Is_Present(h.*hPlotType(iPlotType).fMax)) sError.push_back(sSection + " Y-plot range uninitialized");
  if (sError.size() == 1) return;
  iError = 1;
  LogErr(sError);
}

void Set_X_Range(const SectionRecord& h, PlotRange& hRange) {
  hRange.fXPmin = h.fStnMin;
  hRange.fXPmax = h.fStnMax;
  const R4 fWidth = std::max(fXWidthLeast, fXSpacingLeast * Spacing(h.fStnMax));
  if (hRange.fXPmax - hRange.fXPmin >= fWidth) return;
  hRange.fXPmin -= fWidth;
  hRange.fXPmax = hRange.fXPmin + 2.0f * fWidth;
}

void Set_Y_Range(const SectionRecord& h, const PlotTypeRow& hType, PlotRange& hRange) {
  hRange.fYPmin = fAsinh10(h.*hType.fMin, fYPScale);
  const R4 fTop = fAsinh10(h.*hType.fMax, fYPScale);
  hRange.fYPmax = std::max({fTop, 0.0f, hRange.fYPmin + fYWidthLeast});
}

void Scale_Section(I4 iSection, I4 iPlotType) {
  const SectionRecord& hSectionJ = hSection(iSection);
  hScaled.iSection = iSection;
  hScaled.iPlotType = iPlotType;
  hScaled.iTrnBeg = hSectionJ.iTrnBeg;
  hScaled.fY.assign(static_cast<std::size_t>(hSectionJ.iTrnEnd - hSectionJ.iTrnBeg + 1) * MTW, fDummy);
  auto fY = hScaled.fY.begin();
  for (I4 j = hSectionJ.iTrnBeg; j <= hSectionJ.iTrnEnd; ++j, fY += MTW) {
    const WindowValues& fValue = QCS_Values(hTrn(j), iPlotType);
    hScaled.hColumn.push_back({Plotted_Station(j), hTrn(j).NTW});
    for (I4 I = 1; I <= hTrn(j).NTW; ++I) {
      if (fValue(I) >= fDummyLimit) fY[I - 1] = fAsinh10(fValue(I), fYPScale);
    }
  }
}

PlotMap Map_of_Screen(const PlotRange& hRange) {
  R4 fXGr0 = 0.0f, fYGr0 = 0.0f, fXGr1 = 0.0f, fYGr1 = 0.0f;
  IPgUnitsToGrUnits(hRange.fXPmin, hRange.fYPmin, fXGr0, fYGr0);
  IPgUnitsToGrUnits(hRange.fXPmax, hRange.fYPmax, fXGr1, fYGr1);
  return {hRange.fXPmin, fXGr0, (fXGr1 - fXGr0) / (hRange.fXPmax - hRange.fXPmin),
          hRange.fYPmin, fYGr0, (fYGr1 - fYGr0) / (hRange.fYPmax - hRange.fYPmin)};
}

// ---- polarity

void Flip_Range(R4& fMin, R4& fMax) {
  if (!Is_Present(fMax)) return;  // the marks of an empty range
  const R4 fMin0 = fMin;
  fMin = -fMax;
  fMax = -fMin0;
}

void Flip_Transient(Transient& h) {
  for (I4 I = 1; I <= h.NTW; ++I) {
    if (Is_Present(h.fuVmag(I))) h.fuVmag(I) = -h.fuVmag(I);
    if (Is_Present(h.fBmag(I))) h.fBmag(I) = -h.fBmag(I);
  }
  Flip_Range(h.fuVmin, h.fuVmax);
  Flip_Range(h.fBmin, h.fBmax);
}

}  // namespace

void QCS_Initialize() {
  hSection.fill(SectionRecord{});
  NSection = 0;
  fYPNoise.fill(1.0f);
  fYPScale = fYPScalePerNoise;
  Forget_Scaled();
}

void QCS_Allocate(I4& iError) {
  iError = NTrn < 1 ? 1 : 0;
  NSection = 0;
  Forget_Scaled();
  if (iError != 0) return;
  for (I4 j = 1; j <= NTrn; ++j) {
    if (j == 1 || Begins_Section(hTrn(hSection(NSection).iTrnBeg), hTrn(j))) Open_Section(j);
    hSection(NSection).iTrnEnd = j;
    hTrn(j).iSection = NSection;
  }
  QCS_Range_Sections(iError);
}

void QCS_Initialize_SectionJ(SectionRecord& hSectionJ, I4& iError) {
  iError = 0;
  hSectionJ = SectionRecord{};
}

void QCS_Range_SectionJ(SectionRecord& hSectionJ, I4& iError) {
  iError = 0;
  ErrorLines sError = {"QCS_Range_SectionJ.ERROR"};
  Check_Transients(hSectionJ, sError);
  if (sError.size() > 1) {
    iError = 1;
    LogErr(sError);
    return;
  }
  SectionRecord hEmpty;
  hEmpty.iTrnBeg = hSectionJ.iTrnBeg;
  hEmpty.iTrnEnd = hSectionJ.iTrnEnd;
  hEmpty.fYPNoise = hSectionJ.fYPNoise;
  hSectionJ = hEmpty;
  hSectionJ.fStnMin = Plotted_Station(hSectionJ.iTrnBeg);
  hSectionJ.fStnMax = Plotted_Station(hSectionJ.iTrnEnd);
  for (I4 j = hSectionJ.iTrnBeg; j <= hSectionJ.iTrnEnd; ++j) Join_Ranges(hTrn(j), hSectionJ);
}

void QCS_Range_Sections(I4& iError) {
  iError = 0;
  for (I4 iSection = 1; iSection <= NSection; ++iSection) {
    I4 iErrorJ = 0;
    QCS_Range_SectionJ(hSection(iSection), iErrorJ);
    iError = std::max(iError, iErrorJ);
  }
}

std::string_view QCS_Component_Letter(I4 iRxCmp) {
  return iRxCmp >= 1 && iRxCmp <= iCmpHz ? sXYZ((iRxCmp - 1) % 3 + 1) : "R";
}

void QCS_Plot_Types(I4 iRxCmp, I4& NPlotType, Array1<Text<16>, MPlotType>& sPlotType) {
  const std::string sLetter(QCS_Component_Letter(iRxCmp));
  NPlotType = 1;
  sPlotType.fill("");
  if (iRxCmp >= iCmpHx && iRxCmp <= iCmpHz) {
    NPlotType = 2;
    sPlotType(1) = "dB" + sLetter + "/dt (uV/A)";
    sPlotType(2) = "B" + sLetter + "(t) (nT/A)";
  } else if (iRxCmp >= 1 && iRxCmp < iCmpHx) {
    sPlotType(1) = "E" + sLetter + "(t) (uV/Am)";
  } else {
    sPlotType(1) = iRxCmp == iCmpOff ? "Tx Current (amps" : "Unknown Cmp";  // "amps)" has no room in 16 characters
  }
}

const WindowValues& QCS_Values(const Transient& h, I4 iPlotType) {
  return h.*Held_Entry(hPlotType, iPlotType).hValue;
}

void QCS_Check_Section(std::string_view sRoutine, I4 iSection, I4 iPlotType, I4& iError) {
  iError = 0;
  ErrorLines sError = {std::string(sRoutine) + ".ERROR:"};
  const bool bSection = iSection >= 1 && iSection <= NSection;
  if (!bSection) sError.push_back("iSection=" + Number(iSection) + " < 1 or > NSection=" + Number(NSection));
  if (iPlotType < 1 || iPlotType > MPlotType) {
    sError.push_back("iPlotType=" + Number(iPlotType) + " < 1 or > MPlotType=" + Number(MPlotType));
  }
  if (bSection) Check_Transients(hSection(iSection), sError);
  if (sError.size() == 1) return;
  iError = 1;
  LogErr(sError);
}

void QCS_Take_Noise_Floor(I4 iSection, I4 iPlotType, R4 fField, R4 fYPNoise0, L4& bChanged) {
  fYPNoise(iPlotType) = std::clamp(fField, fNoiseFieldLeast, fNoiseFieldGreatest);
  bChanged = std::abs(fYPNoise(iPlotType) - fYPNoise0) > fSameNoise * Spacing(fYPNoise0);
  if (bChanged) hSection(iSection).fYPNoise(iPlotType) = fYPNoise(iPlotType);
}

void QCS_Section_Initialize(I4 iSection, I4 iPlotType, PlotRange& hRange, I4& iError) {
  Forget_Scaled();
  QCS_Check_Section("QCS_Section_Initialize", iSection, iPlotType, iError);
  if (iError != 0) return;
  SectionRecord& h = hSection(iSection);
  QCS_Range_SectionJ(h, iError);
  fYPNoise(iPlotType) = std::min(h.fYPNoise(iPlotType), fYPNoiseHighest);
  fYPScale = fYPScalePerNoise * fYPNoise(iPlotType);
  Check_Ranges(iSection, iPlotType, iError);
  if (iError != 0) return;
  Set_X_Range(h, hRange);
  Set_Y_Range(h, hPlotType(iPlotType), hRange);
  Scale_Section(iSection, iPlotType);
}

void QCS_Nearest_Point(R4 fXGr1, R4 fYGr1, const PlotRange& hRange, const PlotMap& hMap, R4 fRGrMax, I4& iTrnPnt,
                       I4& iTwcPnt) {
  iTrnPnt = iTwcPnt = 0;
  R4 fNearest = fRGrMax * fRGrMax;
  QCS_Visit_Points(hRange, [&](const SectionPoint& h) {
    const R4 fDX = hMap.fXGr0 + hMap.fXGrPerUnit * (h.fX - hMap.fX0) - fXGr1;
    const R4 fDY = hMap.fYGr0 + hMap.fYGrPerUnit * (h.fY - hMap.fY0) - fYGr1;
    const R4 fDistance = fDX * fDX + fDY * fDY;
    const bool bNearer = iTrnPnt == 0 ? fDistance <= fNearest : fDistance < fNearest;
    if (!bNearer) return;  // nor is not-a-number
    fNearest = fDistance;
    iTrnPnt = h.iTrn;
    iTwcPnt = h.iTwc;
  });
}

void QCS_Section_Point(R4 fXGr1, R4 fYGr1, I4 iSection, I4 iPlotType, const PlotRange& hRange, R4 fRGrMax, I4& iTrnPnt,
                       I4& iTwcPnt) {
  iTrnPnt = iTwcPnt = 0;
  I4 iError = 0;
  QCS_Check_Section("QCS_Section_Point", iSection, iPlotType, iError);
  const bool bInside = fXGr1 >= 0.0f && fXGr1 <= fXCMU && fYGr1 >= 0.0f && fYGr1 <= fYCMU;
  const bool bReady = hScaled.iSection == iSection && hScaled.iPlotType == iPlotType;
  if (iError != 0 || !bInside || !bReady) return;
  QCS_Nearest_Point(fXGr1, fYGr1, hRange, Map_of_Screen(hRange), fRGrMax, iTrnPnt, iTwcPnt);
}

void QCS_Flip_Stations(I4 iSection, R4 fXPlt1, R4 fXPlt2) {
  I4 iError = 0;
  QCS_Check_Section("QCS_Section_FlipTrn", iSection, 1, iError);
  if (iError != 0) return;
  Forget_Scaled();
  for (I4 j = hSection(iSection).iTrnBeg; j <= hSection(iSection).iTrnEnd; ++j) {
    if (Plotted_Station(j) > fXPlt2) break;
    if (Plotted_Station(j) >= fXPlt1) Flip_Transient(hTrn(j));
  }
}

void QCS_Section_FlipTrn(I4 iSection, R4 fXGr1, R4 fXGr2) {
  R4 fXPlt1 = 0.0f, fXPlt2 = 0.0f, fYPlt = 0.0f;
  IPgUnitsFromGrUnits(fXGr1, 0.0f, fXPlt1, fYPlt);
  IPgUnitsFromGrUnits(fXGr2, 0.0f, fXPlt2, fYPlt);
  QCS_Flip_Stations(iSection, fXPlt1, fXPlt2);
}

void QCS_Section_FlipAll(I4 iSection) {
  I4 iError = 0;
  QCS_Check_Section("QCS_Section_FlipAll", iSection, 1, iError);
  if (iError != 0) return;
  Forget_Scaled();
  for (I4 j = hSection(iSection).iTrnBeg; j <= hSection(iSection).iTrnEnd; ++j) Flip_Transient(hTrn(j));
}

}  // namespace quillan
