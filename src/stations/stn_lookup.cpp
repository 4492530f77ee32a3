#include "stations/stn_lookup.h"

#include <cmath>
#include <string>
#include <utility>

#include "foundations/list_util.h"
#include "foundations/log_file.h"
#include "foundations/pn_intrp.h"
#include "foundations/progress.h"
#include "foundations/str_write.h"
#include "model/edits.h"
#include "model/tmd_data.h"
#include "stations/line_stats.h"

namespace quillan {

namespace {

constexpr R8 dNumberMax = 1.0E20;     // a station or line number beyond it is a missing value
constexpr R4 fWeightLeast = 1.0E-5f;  // a line that weighs less is not looked at
constexpr R4 fStnNear = 0.001f;       // stations that are one
constexpr I4 iMuxMax = 32;            // boxes, and electrodes of a box, count from 0
constexpr I4 MPellReport = 3;         // reports of a kind in a run

constexpr EndSlopesR4 fdYdXN = fNoEndSlopes;  // goes on along the end segment
constexpr EndSlopesR4 fdYdX0{0.0f, 0.0f};     // keeps the end value

bool Is_Number(R8 dNumber) {
  return dNumber >= -dNumberMax && dNumber <= dNumberMax;
}

/// A station between the lines around it.
class Place {
 public:
  Place(R8 dStnSK, R8 dLineK) {
    if (hStn.NStn < 1 || !Is_Number(dStnSK) || !Is_Number(dLineK)) return;
    hLine = Stn_Line_Wgt(dLineK);
    bKnown = hLine.iError == 0;
    fStnSK = static_cast<R4>(dStnSK - hStn.iStnS0);
  }

  bool Is_Known() const { return bKnown; }
  /// The value of a column here, blended from the two lines in R4; an origin is added to the sum in R8 by the caller.
  R4 Value(const StationColumn<R4>& fColumn, const EndSlopesR4& fdYdX, I4* iQStn = nullptr) const {
    const R4 fValue1 = On_Line(hLine.iLine1, fColumn, fdYdX, iQStn);
    const bool bOneLine = hLine.iLine2 < 1 || std::abs(hLine.fWgtL2) <= fWeightLeast;
    const R4 fValue2 = bOneLine ? fValue1 : On_Line(hLine.iLine2, fColumn, fdYdX, nullptr);
    return hLine.fWgtL1 * fValue1 + hLine.fWgtL2 * fValue2;
  }
  I4 iQLine() const { return hLine.iQLine; }

 private:
  R4 On_Line(I4 iLine, const StationColumn<R4>& fColumn, const EndSlopesR4& fdYdX, I4* iQStn) const {
    const I4 I1 = hStn.iStnBeg(iLine), I2 = hStn.iStnEnd(iLine);
    const StationTable& h = hStn;
    return P1Intrp_R4(I2 - I1 + 1, h.fStnS.Items(I1, I2), fColumn.Items(I1, I2), fdYdX, fStnSK, iQStn);
  }

  LineWeights hLine;
  R4 fStnSK = 0.0f;
  bool bKnown = false;
};

// What a look-up is asked for.
constexpr unsigned iAskXYZ = 1, iAskHPR = 2, iAskDepth = 4;

StationFix Look_Up(R8 dStnSK, R8 dLineK, unsigned iAsk) {
  StationFix hFix;
  const Place hPlace(dStnSK, dLineK);
  if (!hPlace.Is_Known()) {
    hFix.iError = 1;
    return hFix;
  }
  hFix.iQIntrp(1) = hPlace.iQLine();
  I4* const iQStn = &hFix.iQIntrp(2);
  if (iAsk & iAskXYZ) {
    hFix.dXYZ(1) = R8{hPlace.Value(hStn.fStnX, fdYdXN)} + hStn.iStnX0;
    hFix.dXYZ(2) = R8{hPlace.Value(hStn.fStnY, fdYdXN)} + hStn.iStnY0;
    hFix.dXYZ(3) = R8{hPlace.Value(hStn.fStnZ, fdYdX0, iQStn)};
  }
  if (iAsk & iAskHPR) {
    hFix.fHPR(1) = hPlace.Value(hStn.fStnH, fdYdX0);
    hFix.fHPR(2) = hPlace.Value(hStn.fStnP, fdYdX0);
    hFix.fHPR(3) = hPlace.Value(hStn.fStnR, fdYdX0, iQStn);
  }
  if (iAsk & iAskDepth) hFix.fDepth = hPlace.Value(hStn.fStnD, fdYdX0, iQStn);
  return hFix;
}

/// The first reports of a kind, so that a file of many bad electrodes does not stop the user at each.
void Report(I4& NReport, const ErrorLines& sError) {
  if (++NReport <= MPellReport) LogErr(sError);
}

bool Is_Mux_Number(I4 iNumber, const char* sWhat, I4& NReport) {
  if (iNumber >= 0 && iNumber <= iMuxMax) return true;
  Report(NReport, {"Stn_Get_PellXYZ.ERROR", sWhat + Str_Write_I4(iNumber).str() + " < 0 or > 32"});
  return false;
}

/// Reports numbers that no multiplexer has; they are looked up all the same.
void Check_Mux_Numbers(I4 iMuxBox, I4 iMuxChn) {
  static_cast<void>(Is_Mux_Number(iMuxBox, "Mux Box=", hPellReports.NErrBox));
  static_cast<void>(Is_Mux_Number(iMuxChn, "Mux Electrode=", hPellReports.NErrChn));
}

PellFix Fix_of_Point(I4 I) {
  return {
      .dStn = R8{hStn.fStnS(I)}
        + hStn.iStnS0,
      .dLine = R8{hStn.fStnL(I)}
        + hStn.iStnL0,
      .dXYZ = {R8{hStn.fStnX(I)} + hStn.iStnX0, R8{hStn.fStnY(I)} + hStn.iStnY0, R8{hStn.fStnZ(I)}},
      .fDepth = hStn.fStnD(I),
      .iMuxBox = hStn.iMuxBox(I),
      .iMuxChn = hStn.iMuxChn(I),
  };
}

/// The point of a line within 0.001 of a station; 0 there is none.
I4 Point_at(R8 dStnK, I4 iLine) {
  if (iLine < 1) return 0;
  const I4 I1 = hStn.iStnBeg(iLine), I2 = hStn.iStnEnd(iLine);
  const NearestItem hNearest =
      List_Nearest_R4(static_cast<R4>(dStnK - hStn.iStnS0), I2 - I1 + 1, std::as_const(hStn.fStnS).Items(I1, I2));
  return hNearest.iMatch > 0 && std::abs(hNearest.fDVmin) <= fStnNear ? I1 + hNearest.iMatch - 1 : 0;
}

}  // namespace

StationFix Stn_Get_dXYZ(R8 dStnSK, R8 dLineK) {
  return Look_Up(dStnSK, dLineK, iAskXYZ);
}

StationFix Stn_Get_fHPR(R8 dStnSK, R8 dLineK) {
  return Look_Up(dStnSK, dLineK, iAskHPR);
}

StationFix Stn_Get_dXYZfHPR(R8 dStnSK, R8 dLineK) {
  return Look_Up(dStnSK, dLineK, iAskXYZ | iAskHPR);
}

StationFix Stn_Get_dXYZfD(R8 dStnSK, R8 dLineK) {
  return Look_Up(dStnSK, dLineK, iAskXYZ | iAskDepth);
}

I4 Stn_Positions(R8 dLineNumber) {
  Progress work("Positions", "soundings", NTrn);
  I4 NPlaced = 0;
  for (I4 j = 1; j <= NTrn && work.Goes_On(j); ++j) {
    const StationFix hFix = Stn_Get_dXYZfHPR(hTrn(j).dRxStn, dLineNumber);
    if (hFix.iError != 0) continue;
    Edit_Position(j, hFix.dXYZ, hFix.fHPR);
    ++NPlaced;
  }
  return NPlaced;
}

PellFix Stn_Get_PellXYZ(I4 iMuxBoxK, I4 iMuxChnK) {
  if (hStn.NStn < 1) return {.iError = 1};
  Check_Mux_Numbers(iMuxBoxK, iMuxChnK);
  for (I4 I = 1; I <= hStn.NStn; ++I) {
    if (hStn.iMuxBox(I) == iMuxBoxK && hStn.iMuxChn(I) == iMuxChnK) return Fix_of_Point(I);
  }
  Report(hPellReports.NErrPell,
         {"Stn_Get_PellXYZ.ERROR: Did not find stn file data for",
          "Pell Mux Box=" + Str_Write_I4(iMuxBoxK).str() + ",  Electrode=" + Str_Write_I4(iMuxChnK).str()});
  return {.iError = 1};
}

PellFix Stn_Get_PellMux(R8 dStnK, R8 dLineK) {
  if (hStn.NStn < 1) return {.iError = 1};
  const I4 I = Point_at(dStnK, Stn_Line_Match(dLineK));
  if (I < 1) {
    Report(hPellReports.NErrStn, {"Stn_Get_PellMux.ERROR: Did not find stn-file data for",
                                  "Stn=" + Str_Write_XYZR8(dStnK).str() + ",  Line=" + Str_Write_XYZR8(dLineK).str()});
    return {.iError = 1};
  }
  // Reported in the words of the other look-up, which those who search error files know.
  Check_Mux_Numbers(hStn.iMuxBox(I), hStn.iMuxChn(I));
  return Fix_of_Point(I);
}

StationOrigins Stn_Get_XYOffset() {
  if (hStn.NStn < 1) return {.iError = 1};
  return {.iSoffset = hStn.iStnS0, .iLoffset = hStn.iStnL0, .iXoffset = hStn.iStnX0, .iYoffset = hStn.iStnY0};
}

LineTrend Stn_Get_Trend(R8 dLineNumber) {
  const I4 iLine = Stn_Line_Match(dLineNumber);
  if (iLine < 1) return {};
  const LineStat& h = hStn.hLineStat(iLine);
  return {.dTrendS0 = R8{h.fStnS0} + hStn.iStnS0,
          .dTrendX0 = R8{h.fStnX0} + hStn.iStnX0,
          .dTrendY0 = R8{h.fStnX0} + hStn.iStnY0,
          .fTrendAzm = h.fStnUazm,
          .fTrendUmin = h.fUmin,
          .fTrendUmax = h.fUmax};
}

LineFigures Stn_Get_Stats(R8 dLineNumber) {
  const I4 iLine = Stn_Line_Match(dLineNumber);
  if (iLine < 1) return {};
  const LineStat& h = hStn.hLineStat(iLine);
  return {.iStnDist = h.iLineType,
          .fStnVdev = h.fVdev,
          .fStnVnsr = h.fVnsr,
          .fStnDSmed = h.fDSmed,
          .fStnDRDSmed = h.fdUdSmed,
          .fStnDRDSdev = h.fdUdSdev};
}

LineRanges Stn_Get_Range(R8 dLineNumber) {
  const I4 iLine = Stn_Line_Match(dLineNumber);
  if (iLine < 1) return {};
  const LineStat& h = hStn.hLineStat(iLine);
  return {.dStnSmin = R8{h.fSSmin} + hStn.iStnS0,
          .dStnSmax = R8{h.fSSmax} + hStn.iStnS0,
          .dStnXmin = R8{h.fSXmin} + hStn.iStnX0,
          .dStnXmax = R8{h.fSXmax} + hStn.iStnX0,
          .dStnYmin = R8{h.fSYmin} + hStn.iStnY0,
          .dStnYmax = R8{h.fSYmax} + hStn.iStnY0,
          .dStnZmin = R8{h.fSZmin},
          .dStnZmax = R8{h.fSZmax},
          .dStnDmin = R8{h.fSDmin},
          .dStnDmax = R8{h.fSDmax}};
}

}  // namespace quillan
