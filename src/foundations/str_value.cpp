#include "foundations/str_value.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <type_traits>

#include "base/text.h"
#include "foundations/log_file.h"
#include "foundations/str_parse.h"

namespace quillan {
namespace {

constexpr std::size_t NWork = 32;                 // characters of a field that are searched for a real
constexpr R4 fMetersPerUnit[] = {1.0f, 0.3048f};  // metres, feet
constexpr std::string_view sDigits = "0123456789";

}  // namespace

bool Is_Missing(std::string_view sField) {
  return Trimmed(sField).empty() || sField.find('*') != std::string_view::npos;
}

namespace {

/// Whether a numeric field is blank or holds "*" or "INF"; one pass, for a million fields of a file come this way.
bool Is_Missing_Number(std::string_view sField) {
  bool bBlank = true;
  bool bLetterI = false;
  for (const char c : sField) {
    if (c == '*') return true;
    bBlank = bBlank && c == ' ';
    bLetterI = bLetterI || c == 'I' || c == 'i';
  }
  return bBlank || (bLetterI && Str_UpCase(sField.substr(0, NWork)).find("INF") != std::string::npos);
}

template <class Number>
I4 Take_Number(std::string_view sField, std::size_t NSeen, Number xDefault, Number& xValue) {
  if constexpr (std::is_floating_point_v<Number>) {
    if (sField.size() <= NSeen && !sField.empty() && Read_Leading(sField, xValue) == sField.size()) return 0;
  }
  xValue = xDefault;
  if (Is_Missing_Number(sField)) return -1;
  return Free_Read(sField.substr(0, NSeen), xValue) ? 0 : 1;
}

}  // namespace

I4 Str_to_I4(std::string_view sField, I4 iDefault, I4& iValue) {
  return Take_Number(sField, sField.size(), iDefault, iValue);
}

I4 Str_to_L4(std::string_view sField, L4 bDefault, L4& bValue) {
  bValue = bDefault;
  if (Is_Missing(sField)) return -1;
  const char cFirst = Left_Adjusted(sField).front();
  const bool bYes = std::string_view("1YyTt").find(cFirst) != std::string_view::npos;
  if (!bYes && std::string_view("0NnFf").find(cFirst) == std::string_view::npos) return 1;
  bValue = bYes;
  return 0;
}

I4 Str_to_R4(std::string_view sField, R4 fDefault, R4& fValue) {
  return Take_Number(sField, NWork, fDefault, fValue);
}

I4 Str_to_R8(std::string_view sField, R8 dDefault, R8& dValue) {
  return Take_Number(sField, NWork, dDefault, dValue);
}

namespace {

struct BearingWord {
  std::string_view CWord, CBearing;
};

constexpr BearingWord hWithin[] = {
    {"NORTH", "N00E"},
    {"SOUTH", "S00W"},
    {"EAST",  "N90E"},
    {"WEST",  "N90W"},
    {"NE",    "N45E"},
    {"NW",    "N45W"},
    {"SE",    "S45E"},
    {"SW",    "S45W"},
};
constexpr BearingWord hWhole[] = {
    {"N", "N00E"},
    {"S", "S00W"},
    {"E", "N90E"},
    {"W", "N90W"}
};

std::string Bearing_of_Word(const std::string& CAZM) {
  for (const BearingWord& h : hWithin)
    if (CAZM.find(h.CWord) != std::string::npos) return std::string(h.CBearing);
  for (const BearingWord& h : hWhole)
    if (CAZM == h.CWord) return std::string(h.CBearing);
  return Str_Squish(CAZM);
}

/// The form is rigid: a letter, two digits, a letter. Returns 0, or 1 where the text has another form.
I4 Azimuth_of_Bearing(const std::string& CBearing, R4& fAzimuth) {
  struct Quadrant {
    char cFrom, cTo;
    R4 fOrigin, fSense;
  };
  static constexpr Quadrant hQuadrant[] = {
      {'N', 'E', 0.0f,   1.0f },
      {'S', 'E', 180.0f, -1.0f},
      {'S', 'W', 180.0f, 1.0f },
      {'N', 'W', 360.0f, -1.0f}
  };
  I4 iDegrees = -1;  // stays where a comma stands in place of the digits
  if (CBearing.size() < 4 || !Free_Read(std::string_view(CBearing).substr(1, 2), iDegrees)) return 1;
  if (iDegrees < 0 || iDegrees > 90) return 1;
  for (const Quadrant& h : hQuadrant) {
    if (CBearing[0] != h.cFrom || CBearing[3] != h.cTo) continue;
    fAzimuth = h.fOrigin + h.fSense * static_cast<R4>(iDegrees);
    return 0;
  }
  return 1;
}

}  // namespace

I4 Str_to_R4Azimuth(std::string_view sField, R4 fDefault, R4& fAzimuth) {
  constexpr std::size_t NBearing = 8;  // characters that count
  fAzimuth = fDefault;
  if (Is_Missing(sField)) return -1;
  const std::string CAZM = Str_UpCase(Trimmed(Left_Adjusted(sField).substr(0, NBearing)));
  if (CAZM.find_first_of("NSEW") != std::string::npos) return Azimuth_of_Bearing(Bearing_of_Word(CAZM), fAzimuth);
  static_cast<void>(Free_Read(CAZM, fAzimuth));  // a number that cannot be read is no error here
  return 0;
}

I4 Str_to_R4Meters(std::string_view sField, I4 iLength, R4 fDefault, R4& fMeters) {
  fMeters = fDefault;
  if (Is_Missing(sField)) return -1;
  I4 jLength = std::clamp(iLength, 1, 2);
  const std::size_t KUnit = sField.find_first_of("mMfF");
  if (KUnit != std::string_view::npos) jLength = sField[KUnit] == 'm' || sField[KUnit] == 'M' ? 1 : 2;
  R4 fLength = 0.0f;
  const Outcome iOutcome = List_Read(sField.substr(0, KUnit), fLength);
  if (iOutcome == Outcome::Value) fMeters = fLength * fMetersPerUnit[jLength - 1];
  return iOutcome == Outcome::Failed ? 1 : 0;
}

namespace {

/// hh:mm:ss, cut at the first and at the last colon. Returns 0, or 1 where the text has another form.
I4 Hours_of_Clock(std::string_view sTime, R8& dHours) {
  constexpr std::size_t NHour = 2;  // characters before the colon that are hours
  sTime = Trimmed(sTime);
  const std::size_t K1 = sTime.find(':');
  const std::size_t K2 = sTime.rfind(':');
  if (K1 == std::string_view::npos || K1 < 1 || K2 <= K1 + 1 || K2 + 1 >= sTime.size()) return 1;
  const std::size_t KHour = K1 > NHour ? K1 - NHour : 0;
  I4 iHour = 0;
  I4 iMin = 0;
  R8 dSec = 0.0;
  if (!Free_Read(sTime.substr(KHour, K1 - KHour), iHour) || !Free_Read(sTime.substr(K1 + 1, K2 - K1 - 1), iMin) ||
      !Free_Read(sTime.substr(K2 + 1), dSec))
    return 1;
  dHours = ((dSec / 60.0) + iMin) / 60.0 + iHour;
  return 0;
}

}  // namespace

I4 Str_to_R8Time(std::string_view sField, R8 dDefault, R8& dHours) {
  dHours = dDefault;
  if (Is_Missing(sField)) return -1;
  return Free_Read(sField, dHours) ? 0 : Hours_of_Clock(sField, dHours);
}

I4 Str_to_I4Version(std::string_view sField, I4 iDefault, I4& iVersion) {
  constexpr std::size_t NVersion = 16;  // characters that count
  iVersion = iDefault;
  if (Trimmed(sField).empty() || Left_Adjusted(sField).front() == '*') return -1;
  std::string sKept = Str_Squish(sField).substr(0, NVersion);
  std::erase_if(sKept, [](char c) { return sDigits.find(c) == std::string_view::npos; });
  return sKept.empty() || Free_Read(sKept, iVersion) ? 0 : 1;
}

I4 Str_to_I4Index(std::string_view sKeyword, I4& I4Index) {
  I4Index = 1;
  const std::size_t KLast = sKeyword.find_last_of(sDigits);
  if (KLast == std::string_view::npos) return -1;
  const std::size_t KFirst = sKeyword.find_last_not_of(sDigits, KLast) + 1;  // nowhere + 1 is 0
  return Free_Read(sKeyword.substr(KFirst, KLast - KFirst + 1), I4Index) ? 0 : 1;
}

void Fld_Begin_File() {
  bFldReported = false;
}

namespace {

/// Reports a field of positive status. sKind and sFrom stand before and after the label. Returns the status.
I4 Reported(I4 IOERR, const FieldContext& hAt, std::string_view sKind, std::string_view sField,
            std::string_view sFrom = " value from ") {
  if (IOERR <= 0) return IOERR;
  std::string sWhat = "ERROR reading ";
  sWhat.append(sKind).append(Trimmed(hAt.sLabel)).append(sFrom).append(Trimmed(sField));
  const auto Line_of = [](std::string_view sText) { return std::string(Cut_Text(sText, MErrText)); };
  const ErrorLines sError{Line_of(sWhat), "Record number " + std::to_string(hAt.iRecord), Line_of(hAt.sRecord)};
  if (bFldReported)
    LogErr_File(sError);
  else
    LogErr(sError);
  bFldReported = true;
  return IOERR;
}

}  // namespace

I4 Fld_to_I4(const FieldContext& hAt, std::string_view sField, I4 iDefault, I4& iValue) {
  return Reported(Str_to_I4(sField, iDefault, iValue), hAt, "integer ", sField);
}

I4 Fld_to_L4(const FieldContext& hAt, std::string_view sField, L4 bDefault, L4& bValue) {
  return Reported(Str_to_L4(sField, bDefault, bValue), hAt, "", sField, " Yes/No, True/False or 1/0 response from ");
}

I4 Fld_to_R4(const FieldContext& hAt, std::string_view sField, R4 fDefault, R4& fValue) {
  return Reported(Str_to_R4(sField, fDefault, fValue), hAt, "real*4 ", sField);
}

I4 Fld_to_R8(const FieldContext& hAt, std::string_view sField, R8 dDefault, R8& dValue) {
  return Reported(Str_to_R8(sField, dDefault, dValue), hAt, "real*8 ", sField);
}

I4 Fld_to_R4Azimuth(const FieldContext& hAt, std::string_view sField, R4 fDefault, R4& fAzimuth) {
  return Reported(Str_to_R4Azimuth(sField, fDefault, fAzimuth), hAt, "azimuth or bearing ", sField);
}

I4 Fld_to_R4Meters(const FieldContext& hAt, std::string_view sField, I4 iLength, R4 fDefault, R4& fMeters) {
  return Reported(Str_to_R4Meters(sField, iLength, fDefault, fMeters), hAt, "real*4 ", sField);
}

I4 Fld_to_R8Time(const FieldContext& hAt, std::string_view sField, R8 dDefault, R8& dHours) {
  const I4 IOERR = Str_to_R8Time(sField, dDefault, dHours);
  return Reported(IOERR, hAt, "hh:mm:ss ", '"' + std::string(Trimmed(sField)) + '"');
}

I4 Fld_to_I4Version(const FieldContext& hAt, std::string_view sField, I4 iDefault, I4& iVersion) {
  return Reported(Str_to_I4Version(sField, iDefault, iVersion), hAt, "numeric ", sField);
}

I4 Fld_NMEA_to_R8Deg(const FieldContext& hAt, std::string_view sField, R8 dDefault, R8& dDegrees) {
  dDegrees = dDefault;
  if (Is_Missing(sField)) return -1;
  const std::string_view sText = Trimmed(Left_Adjusted(sField));
  const std::size_t KPoint = std::min(sText.find('.'), sText.size());
  if (KPoint < 3) return 1;
  const std::string_view sDegrees = sText.substr(0, KPoint - 2);
  I4 iDegrees = 0;
  R8 dMin = 0.0;
  if (!Free_Read(sDegrees, iDegrees) || !Free_Read(sText.substr(KPoint - 2), dMin)) {
    return Reported(1, hAt, sDegrees.size() <= 2 ? "NMEA-format ddmm.mmm" : "NMEA-format dddmm.mmm", sField);
  }
  const R8 dMagnitude = std::abs(static_cast<R8>(iDegrees)) + dMin / 60.0;
  dDegrees = iDegrees < 0 ? -dMagnitude : dMagnitude;
  return 0;
}

}  // namespace quillan
