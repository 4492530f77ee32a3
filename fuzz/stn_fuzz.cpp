// stn_fuzz.cpp: the reader of station files on any bytes, the lines that it made of them, and what is looked up there.
#include <algorithm>
#include <cmath>
#include <filesystem>

#include "fuzz/fuzz_file.h"
#include "stations/color_scale.h"
#include "stations/line_stats.h"
#include "stations/stn_file.h"
#include "stations/stn_lookup.h"

namespace {

using namespace quillan;

constexpr R8 dLimit = 1.0E12;  // of a station and of a place
// A sum of offsets, or a step along an end segment of two stations that are a ten-thousandth apart.
constexpr R8 dFarthest = 1.0E17;

bool Is_Place(R8 dValue) {
  return std::abs(dValue) <= dLimit * (1.0 + 1.0E-6);
}

void Check_Point(I4 I) {
  Require(Is_Place(R8{hStn.fStnS(I)} + hStn.iStnS0));
  Require(Is_Place(R8{hStn.fStnX(I)} + hStn.iStnX0));
  Require(Is_Place(R8{hStn.fStnY(I)} + hStn.iStnY0));
  Require(Is_Place(R8{hStn.fStnZ(I)}));
  Require(hStn.fStnD(I) < 0.0f || (hStn.fStnD(I) == 0.0f && !std::signbit(hStn.fStnD(I))));
  Require(hStn.fStnX(I) >= hStn.fSXmin && hStn.fStnX(I) <= hStn.fSXmax);
}

void Check_Stat(const LineStat& h) {
  for (const R4 f :
       {h.fStnX0, h.fStnY0, h.fUmin, h.fUmax, h.fVdev, h.fVnsr, h.fDSmed, h.fdUdSmed, h.fdUdSdev, h.fStnS0})
    Require(std::isfinite(f));
  Require(h.fStnUazm >= 0.0f && h.fStnUazm <= 360.0f);
  Require(h.fUmin <= 0.0f && h.fUmax >= 0.0f && h.fVdev >= 0.0f);
  Require(h.iLineType >= iLineStraight && h.iLineType <= iLinePoints);
}

/// Points stand in one line each, apart from each other, and are found where they are.
void Check_Line(I4 iLine) {
  const I4 I1 = hStn.iStnBeg(iLine), I2 = hStn.iStnEnd(iLine);
  Require(I1 >= 1 && I1 <= I2 && I2 <= hStn.NStn);
  if (iLine > 1) Require(I1 > hStn.iStnEnd(iLine - 1));
  for (I4 I = I1; I <= I2; ++I) {
    Check_Point(I);
    Require(I == I1 || std::abs(hStn.fStnS(I) - hStn.fStnS(I - 1)) >= 1.0E-4f);
  }
  Check_Stat(hStn.hLineStat(iLine));
  for (const R8 dStn : {R8{hStn.fStnS(I1)} + hStn.iStnS0, R8{hStn.fStnS(I2)} + hStn.iStnS0 + 7.0}) {
    const StationFix hFix = Stn_Get_dXYZ(dStn, hStn.dStnLine(iLine));
    if (hFix.iError != 0) continue;
    Require(hFix.iQIntrp(2) >= 1 && hFix.iQIntrp(2) <= 3 && hFix.iQIntrp(1) >= 1 && hFix.iQIntrp(1) <= 3);
    Require(std::abs(hFix.dXYZ(1)) <= dFarthest && std::abs(hFix.dXYZ(2)) <= dFarthest);
    Require(std::isfinite(hFix.dXYZ(3)));
  }
}

void Check_Scale() {
  const ColorScale h = Stn_CF_Increment(50, hStn.fSZmin, hStn.fSZmax, 1.0f);
  Require(std::isfinite(h.fCFmin) && h.fCFmax > h.fCFmin && h.NCFinc >= 0 && h.NCFinc < 50);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* hData, std::size_t NData) {
  Begin_Fuzzing();
  static const bool bInFolder =
      (std::filesystem::current_path(hFuzzFolder.hPath), true);  // the file of steps goes there
  static_cast<void>(bInFolder);
  std::string sStnFile = Fuzz_File(hData, NData);
  const I4 iError = Stn_Read(sStnFile, 1200.0, {90.0f, 0.0f, 0.0f}, NData % 2 == 0);
  Require((iError == 0) == (hStn.NStn >= 1));
  if (iError != 0) return 0;
  Require(hStn.NStnLine >= 1 && hStn.NStnLine <= hStn.NStn);
  if (hStn.NStn < 2) return 0;  // without statistics
  for (I4 iLine = 1; iLine <= hStn.NStnLine; ++iLine) Check_Line(iLine);
  Check_Scale();
  return 0;
}
