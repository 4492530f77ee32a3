#include "model/txw_data.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "foundations/log_file.h"
#include "foundations/str_write.h"
#include "model/station_scale.h"

namespace quillan {

namespace {

constexpr R4 fPi = 3.14159265f;
constexpr R4 fRadian = 0.0174532924f;  // radians in a degree
constexpr I4 NCornerMin = 3;           // fewer enclose nothing
constexpr R4 fAreaMin = 0.01f;         // smaller loops have no sides
constexpr R4 fSideMin = 0.01f;         // where the search for the longest wire begins
constexpr R4 fAzimuthMax = 360.1f;     // degrees, either way
constexpr R8 dStnMax = 1.0E20;         // a station number beyond it is a missing value
constexpr const char* sNoArea = "has less than 3 wire endpoints => no surface area.";

/// The first report since the last read shows in a box; a file of many bad loops would stop the user at each otherwise.
void Report(const ErrorLines& sError) {
  if (++NTxwError == 1) {
    LogErr(sError);
  } else {
    LogErr_File(sError);
  }
}

/// "Txw_Get_Area.ERROR: Tx loop for Tx.Stn=1200"
std::string Loop_Text(const char* sRoutine, const WireLoop& hTxwJ) {
  return std::string(sRoutine) + ".ERROR: Tx loop for Tx.Stn=" + Str_Write_XYZR8(hTxwJ.dTxStn).str();
}

/// Of each run of one station the first loop stays.
void Drop_Repeated_Loops() {
  I4 NKept = 1;
  for (I4 K = 2; K <= NTxw; ++K) {
    if (Is_Same_Stn(hTxw(NKept).dTxStn, hTxw(K).dTxStn)) continue;
    if (++NKept != K) hTxw(NKept) = hTxw(K);
  }
  NTxw = NKept;
}

void Set_Center(WireLoop& hTxwJ) {
  for (I4 I = 1; I <= 3; ++I) {
    R8 dSum = 0.0;
    for (I4 J = 1; J <= hTxwJ.NTxUTMV; ++J) dSum += hTxwJ.dTxUTMV(I, J);
    hTxwJ.dTxUTMC(I) = dSum / hTxwJ.NTxUTMV;
  }
}

/// East (1) or north (2) of a corner from the centre. The difference is taken before the rounding: map coordinates have
/// more digits than R4.
R4 Offset(const WireLoop& hTxwJ, I4 I, I4 J) {
  return static_cast<R4>(hTxwJ.dTxUTMV(I, J) - hTxwJ.dTxUTMC(I));
}

void Order_by_Angle(WireLoop& hTxwJ) {
  struct Corner {
    R4 fAngle;
    Array1<R8, 3> dUTM;
    R4 fDepth;
  };
  std::vector<Corner> hCorner;
  for (I4 J = 1; J <= hTxwJ.NTxUTMV; ++J) {
    const R4 fAngle = fPi + std::atan2(Offset(hTxwJ, 2, J), Offset(hTxwJ, 1, J));
    hCorner.push_back({fAngle, hTxwJ.dTxUTMV.hColumn(J), hTxwJ.fTxDepth(J)});
  }
  std::stable_sort(hCorner.begin(), hCorner.end(),
                   [](const Corner& h1, const Corner& h2) { return h1.fAngle < h2.fAngle; });
  for (I4 J = 1; J <= hTxwJ.NTxUTMV; ++J) {
    const Corner& h = hCorner[static_cast<std::size_t>(J - 1)];
    hTxwJ.dTxUTMV.hColumn(J) = h.dUTM;
    hTxwJ.fTxDepth(J) = h.fDepth;
  }
}

/// Area by trapezoids under the wires (shoelace formula), positive when the corners run anticlockwise.
R4 Signed_Area(const WireLoop& hTxwJ) {
  R4 fArea = 0.0f;
  R4 fX0 = Offset(hTxwJ, 1, hTxwJ.NTxUTMV);
  R4 fY0 = Offset(hTxwJ, 2, hTxwJ.NTxUTMV);
  for (I4 J = 1; J <= hTxwJ.NTxUTMV; ++J) {
    const R4 fX = Offset(hTxwJ, 1, J);
    const R4 fY = Offset(hTxwJ, 2, J);
    fArea += 0.5f * (fX0 - fX) * (fY0 + fY);
    fX0 = fX;
    fY0 = fY;
  }
  return fArea;
}

/// The longest extents of a single wire along and across the azimuth.
void Longest_Wires(const WireLoop& hTxwJ, R4 fXazm, R4& fXLength, R4& fYLength) {
  const R4 fdXdE = std::sin(fXazm * fRadian);
  const R4 fdXdN = std::cos(fXazm * fRadian);
  const R4 fdYdE = -fdXdN;
  const R4 fdYdN = fdXdE;
  fXLength = fSideMin;
  fYLength = fSideMin;
  for (I4 J = 1; J <= hTxwJ.NTxUTMV; ++J) {
    const I4 JNext = J < hTxwJ.NTxUTMV ? J + 1 : 1;
    const R4 fEast = static_cast<R4>(hTxwJ.dTxUTMV(1, JNext) - hTxwJ.dTxUTMV(1, J));
    const R4 fNorth = static_cast<R4>(hTxwJ.dTxUTMV(2, JNext) - hTxwJ.dTxUTMV(2, J));
    fXLength = std::max(fXLength, std::abs(fEast * fdXdE + fNorth * fdXdN));
    fYLength = std::max(fYLength, std::abs(fEast * fdYdE + fNorth * fdYdN));
  }
}

}  // namespace

void Txw_Initialize() {
  NTxw = 0;
  hTxw.Clear();
  NTxwError = 0;
}

void Txw_Sort() {
  const auto Stands_Before = [](const WireLoop& h1, const WireLoop& h2) { return h1.dTxStn < h2.dTxStn; };
  if (std::is_sorted(hTxw.begin(), hTxw.begin() + NTxw, Stands_Before)) return;
  std::stable_sort(hTxw.begin(), hTxw.begin() + NTxw, Stands_Before);
  Drop_Repeated_Loops();
}

I4 Txw_Get_Area(WireLoop& hTxwJ) {
  if (hTxwJ.NTxUTMV < NCornerMin) {
    Report({Loop_Text("Txw_Get_Area", hTxwJ), sNoArea});
    return 1;
  }
  Set_Center(hTxwJ);
  Order_by_Angle(hTxwJ);
  const R4 fArea = Signed_Area(hTxwJ);
  hTxwJ.fTxArea = std::abs(fArea);
  if (!(fArea < 0.0f)) return 0;
  std::reverse(hTxwJ.dTxUTMV.hColumn.begin(), hTxwJ.dTxUTMV.hColumn.begin() + hTxwJ.NTxUTMV);
  std::reverse(hTxwJ.fTxDepth.begin(), hTxwJ.fTxDepth.begin() + hTxwJ.NTxUTMV);
  return 0;
}

I4 Txw_Get_Length(const WireLoop& hTxwJ, R4 fXazm, Array1<R4, 2>& fTxLength) {
  fTxLength.fill(1.0f);
  if (!(hTxwJ.fTxArea >= fAreaMin)) {
    Report({Loop_Text("Txw_Get_Length", hTxwJ), "has surface area < 0.01 m^2"});
    return 1;
  }
  fTxLength.fill(std::sqrt(hTxwJ.fTxArea));
  if (hTxwJ.NTxUTMV < NCornerMin) {
    Report({Loop_Text("Txw_Get_Length", hTxwJ), sNoArea});
    return 1;
  }
  if (!(std::abs(fXazm) <= fAzimuthMax)) {
    Report({"Txw_Get_Length.ERROR:",
            "input X azimuth = " + Str_Write_R4(fXazm, "(F0.1)").str() + " < 360 or > 360 degrees"});
    return 1;
  }

  R4 fXLength = 0.0f, fYLength = 0.0f;
  Longest_Wires(hTxwJ, fXazm, fXLength, fYLength);
  const R4 fLenScale = std::sqrt(hTxwJ.fTxArea / (fXLength * fYLength));
  fTxLength(1) = fLenScale * fXLength;
  fTxLength(2) = fLenScale * fYLength;
  return 0;
}

LoopFound Txw_Get_iTxw(R8 dTxStn) {
  if (NTxw < 1 || !(std::abs(dTxStn) <= dStnMax)) return {.iError = 1};
  for (I4 K = 1; K <= NTxw; ++K) {
    if (Is_Same_Stn(dTxStn, hTxw(K).dTxStn)) return {.iTxw = K};
    if (hTxw(K).dTxStn > dTxStn) break;
  }
  return {};
}

}  // namespace quillan
