#include "review/plot/read_out.h"

#include <charconv>
#include <cmath>

#include "foundations/str_write.h"
#include "metadata/enm_data.h"
#include "model/station_scale.h"
#include "review/plot/plot_types.h"

namespace quillan {
namespace {

constexpr int NDigit = 2;  // after the first one

/// Three digits: 4.71E3. Between 0.1 and 1000 without an exponent, as such values are spoken.
std::string Three_Digits(R4 fValue) {
  char sText[32];
  const auto h = std::to_chars(std::begin(sText), std::end(sText), fValue, std::chars_format::scientific, NDigit);
  const std::string sAll(sText, h.ptr);
  const auto K = sAll.find('e');
  if (K == std::string::npos) return sAll;  // not a number
  I4 iExponent = 0;
  const char* sExponent = sText + K + (sText[K + 1] == '+' ? 2 : 1);
  std::from_chars(sExponent, h.ptr, iExponent);
  if (fValue == 0.0f) return "0";
  if (iExponent < -1 || iExponent > NDigit) return sAll.substr(0, K) + "E" + Str_Write_I4(iExponent).str();
  const auto hPlain =
      std::to_chars(std::begin(sText), std::end(sText), fValue, std::chars_format::fixed, NDigit - iExponent);
  return {sText, hPlain.ptr};
}

/// As the survey says; apparent resistivity and the transmitter's current have one unit only.
std::string_view Value_Unit(const Transient& h, I4 iPlotType) {
  if (h.iRxCmp == iCmpOff) return "amp";
  if (h.iRxCmp >= 1 && h.iRxCmp < iCmpHx) return Held_Entry(sEUnit, hTemSurvey.iEUnit);
  if (!Is_Magnetic(h.iRxCmp)) return "";
  constexpr I4 iTypeDecay = 1, iTypeField = 2;
  if (iPlotType == iTypeDecay) return Held_Entry(sdBdtUnit, hTemSurvey.idBdtUnit);
  return iPlotType == iTypeField ? Held_Entry(sBUnit, hTemSurvey.iBUnit) : "ohm-m";
}

std::string Value_Words(const Transient& h, I4 I, I4 iPlotType) {
  const R4 fValue = Plot_Values(h, iPlotType)(I);
  if (!Is_Present(fValue)) return "no value";
  std::string s = Three_Digits(fValue);
  if (const std::string_view sUnit = Value_Unit(h, iPlotType); !sUnit.empty()) s.append(" ").append(sUnit);
  const bool bError = &Plot_Values(h, iPlotType) == &h.fuVmag && Is_Present(h.fuVpct(I));
  return bError ? s + " +- " + Str_Write_R4(h.fuVpct(I), "(F12.1)").str() + " %" : s;
}

std::string_view Flag_Words(const Transient& h, I4 I) {
  if (h.bSkipTrn) return ", transient skipped";
  return h.bSkip(I) ? ", skipped" : "";
}

}  // namespace

std::string Sounding_Words(const Transient& h) {
  std::string s = "Stn " + Str_Write_XYZR8(h.dRxStn).str();
  const bool bOther = Is_Present(h.dRxKvrStn) && !Is_Same_Stn(h.dRxStn, h.dRxKvrStn);
  if (bOther) s += " (recorded " + Str_Write_XYZR8(h.dRxKvrStn).str() + ")";
  s += " " + std::string(Held_Entry(sChnCmp, h.iRxCmp));
  return s + " " + Str_Write_R4(h.fTxFreq, "(1P,G14.4E1)").str() + " Hz";
}

std::string Point_Words(const Transient& h, I4 I, I4 iPlotType) {
  std::string s = Sounding_Words(h) + ", window " + Str_Write_I4(I).str();
  s += ", " + Str_Write_R4(h.fTWCen(I), "(1P,G14.4E1)").str() + " msec, " + Value_Words(h, I, iPlotType);
  return s.append(Flag_Words(h, I));
}

}  // namespace quillan
