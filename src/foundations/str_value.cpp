#include "foundations/str_value.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string>

#include "base/text.h"
#include "foundations/log_file.h"
#include "foundations/str_parse.h"

namespace quillan {
namespace {

constexpr std::size_t NWork = 32;                 // characters of a field that are searched for a real
constexpr std::size_t NShort = 16;                // the same where a word may stand in place of the number
constexpr std::size_t MLine = 128;                // characters of a line of a report
constexpr R4 fMetersPerUnit[] = {1.0f, 0.3048f};  // metres, feet

constexpr bool Is_Digit(char c) {
  return c >= '0' && c <= '9';
}

constexpr bool Is_Blank(char c) {
  return c == ' ' || c == '\t';
}

constexpr bool Ends_Token(char c) {
  return Is_Blank(c) || c == ',' || c == '/';
}

constexpr bool Is_Null(char c) {
  return c == ',' || c == '/';
}

std::string_view Without_Leading_Blanks(std::string_view sText) {
  while (!sText.empty() && Is_Blank(sText.front())) sText.remove_prefix(1);
  return sText;
}

std::string_view Token(std::string_view sText) {
  const auto hEnd = std::find_if(sText.begin(), sText.end(), Ends_Token);
  return sText.substr(0, static_cast<std::size_t>(hEnd - sText.begin()));
}

std::string Short_Upper(std::string_view sField, std::size_t NMax) {
  return Str_UpCase(Trimmed(Left_Adjusted(sField).substr(0, NMax)));
}

// ---- The list-directed read

enum class Outcome { Value, Null, Failed };

template <class Integer>
Outcome Read_Integer(std::string_view sText, Integer& iValue) {
  sText = Without_Leading_Blanks(sText);
  if (sText.empty()) return Outcome::Failed;
  if (Is_Null(sText.front())) return Outcome::Null;
  if (sText.front() == '+') {
    sText.remove_prefix(1);
    if (sText.empty() || !Is_Digit(sText.front())) return Outcome::Failed;
  }
  Integer iRead = 0;
  const char* const pEnd = sText.data() + sText.size();
  const auto hRead = std::from_chars(sText.data(), pEnd, iRead);
  if (hRead.ec != std::errc{} || (hRead.ptr != pEnd && !Ends_Token(*hRead.ptr))) return Outcome::Failed;
  iValue = iRead;
  return Outcome::Value;
}

/// Of a number beyond the range of its type, whether it is too small rather than too large: the place of its first
/// digit and its exponent together tell.
bool Is_Tiny(std::string_view sNumber) {
  const std::size_t NMantissa = std::min(sNumber.find_first_of("eE"), sNumber.size());
  const std::string_view sMantissa = sNumber.substr(0, NMantissa);
  std::string_view sExponent = sNumber.substr(std::min(NMantissa + 1, sNumber.size()));
  if (sExponent.starts_with('+')) sExponent.remove_prefix(1);

  I8 iExponent = 0;
  const auto hRead = std::from_chars(sExponent.data(), sExponent.data() + sExponent.size(), iExponent);
  if (hRead.ec == std::errc::result_out_of_range) return sExponent.starts_with('-');
  const auto KFirst = static_cast<I8>(std::min(sMantissa.find_first_of("123456789"), NMantissa));
  const auto KPoint = static_cast<I8>(std::min(sMantissa.find('.'), NMantissa));
  return iExponent < KFirst - KPoint;
}

/// A number as from_chars writes it, of which every character must be used. What is too small becomes the nearest
/// number there is, zero; what is too large cannot be read.
template <class Real>
Outcome Read_Plain_Real(std::string_view sNumber, Real& x) {
  const std::size_t KFirst = sNumber.starts_with('-') ? 1 : 0;
  const bool bNumber = sNumber.size() > KFirst && (Is_Digit(sNumber[KFirst]) || sNumber[KFirst] == '.');
  if (!bNumber) return Outcome::Failed;  // words for infinity and not-a-number among them
  Real fRead{0};
  const char* const pEnd = sNumber.data() + sNumber.size();
  const auto hRead = std::from_chars(sNumber.data(), pEnd, fRead);
  if (hRead.ptr != pEnd) return Outcome::Failed;
  if (hRead.ec == std::errc::result_out_of_range && Is_Tiny(sNumber)) {
    x = std::copysign(Real{0}, KFirst == 1 ? Real{-1} : Real{1});
    return Outcome::Value;
  }
  if (hRead.ec != std::errc{}) return Outcome::Failed;
  x = fRead;
  return Outcome::Value;
}

/// The spellings that from_chars does not know: a leading plus, an exponent with D or with a bare sign.
template <class Real>
Outcome Read_Odd_Real(std::string_view sToken, Real& x) {
  if (sToken.starts_with('+')) {
    sToken.remove_prefix(1);
    if (sToken.starts_with('-')) return Outcome::Failed;
  }
  const std::size_t KExponent = sToken.find_first_of("eEdD+-", 1);
  if (KExponent == std::string_view::npos) return Read_Plain_Real(sToken, x);
  const bool bLetter = sToken[KExponent] != '+' && sToken[KExponent] != '-';
  std::string sPlain(sToken.substr(0, KExponent));
  sPlain.append("e").append(sToken.substr(KExponent + (bLetter ? 1 : 0)));
  return Read_Plain_Real(std::string_view(sPlain), x);
}

template <class Real>
Outcome Read_Real(std::string_view sText, Real& x) {
  sText = Without_Leading_Blanks(sText);
  if (sText.empty()) return Outcome::Failed;
  if (Is_Null(sText.front())) return Outcome::Null;

  // Nearly every field of a file is spelled as from_chars expects, which then finds the end of the token itself.
  const char cFirst = sText[sText.front() == '-' && sText.size() > 1 ? 1 : 0];
  if (Is_Digit(cFirst) || cFirst == '.') {
    Real fRead{0};
    const char* const pEnd = sText.data() + sText.size();
    const auto hRead = std::from_chars(sText.data(), pEnd, fRead);
    if (hRead.ec == std::errc{} && (hRead.ptr == pEnd || Ends_Token(*hRead.ptr))) {
      x = fRead;
      return Outcome::Value;
    }
  }
  return Read_Odd_Real(Token(sText), x);
}

// ---- The plain numbers

bool Holds_Inf(std::string_view sWork) {
  return Str_UpCase(sWork).find("INF") != std::string::npos;
}

/// Whether a numeric field is blank or holds "*" or "INF"; one pass, for a million fields of a file come this way.
bool Is_Missing_Number(std::string_view sField) {
  bool bBlank = true;
  bool bLetterI = false;
  for (const char c : sField) {
    if (c == '*') return true;
    bBlank = bBlank && c == ' ';
    bLetterI = bLetterI || c == 'I' || c == 'i';
  }
  return bBlank || (bLetterI && Holds_Inf(sField.substr(0, NWork)));
}

template <class Number>
void Take_Number(std::string_view sField, std::size_t NSeen, Number xDefault, Number& xValue, I4& IOERR) {
  IOERR = 0;
  xValue = xDefault;
  if (Is_Missing_Number(sField)) {
    IOERR = -1;
  } else if (!Free_Read(sField.substr(0, NSeen), xValue)) {
    IOERR = 1;
  }
}

// ---- Bearings

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

/// The form is rigid: a letter, two digits, a letter.
void Azimuth_of_Bearing(const std::string& CBearing, R4& fAzimuth, I4& IOERR) {
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
  IOERR = 1;
  I4 iDegrees = -1;  // stays where a comma stands in place of the digits
  if (CBearing.size() < 4 || !Free_Read(std::string_view(CBearing).substr(1, 2), iDegrees)) return;
  if (iDegrees < 0 || iDegrees > 90) return;
  for (const Quadrant& h : hQuadrant) {
    if (CBearing[0] != h.cFrom || CBearing[3] != h.cTo) continue;
    fAzimuth = h.fOrigin + h.fSense * static_cast<R4>(iDegrees);
    IOERR = 0;
  }
}

// ---- Names that hold a number

/// What a name may keep of its first characters: a number, or a letter.
struct NameContent {
  std::array<char, NShort> sKept;
  std::size_t NKept = 0;
  I4 iLetter = -1;  // place of the first letter in the alphabet, from 0

  std::string_view Kept() const { return {sKept.data(), NKept}; }
};

NameContent Content_of_Name(std::string_view sField, std::string_view sMarks) {
  NameContent h;
  std::size_t NSeen = 0;
  for (const char c : sField) {
    if (Is_Blank(c)) continue;
    if (++NSeen > NShort) break;
    if (Is_Digit(c) || sMarks.find(c) != std::string_view::npos) h.sKept[h.NKept++] = c;
    const char cLower = static_cast<char>(c | 0x20);
    if (h.iLetter < 0 && cLower >= 'a' && cLower <= 'z') h.iLetter = cLower - 'a';
  }
  return h;
}

bool Is_Missing_Name(std::string_view sField) {
  const std::string_view sName = Left_Adjusted(sField);
  return sName.empty() || sName.front() == '*';
}

constexpr std::string_view sLineMarks = "+-./";

// ---- Reports

std::string Line_of(std::string_view sText) {
  return std::string(Cut_Text(sText, MLine));
}

void Report(const FieldContext& hAt, std::string_view sWhat) {
  const ErrorLines sError{Line_of(sWhat), "Record number " + std::to_string(hAt.iRecord), Line_of(hAt.sRecord)};
  if (bFldReported)
    LogErr_File(sError);
  else
    LogErr(sError);
  bFldReported = true;
}

/// sKind and sFrom stand before and behind the label.
void Report_Field(const FieldContext& hAt, std::string_view sKind, std::string_view sField,
                  std::string_view sFrom = " value from ") {
  std::string sWhat = "ERROR reading ";
  sWhat.append(sKind).append(Trimmed(hAt.sLabel)).append(sFrom).append(Trimmed(sField));
  Report(hAt, sWhat);
}

}  // namespace

bool Free_Read(std::string_view sText, I4& iValue) {
  return Read_Integer(sText, iValue) != Outcome::Failed;
}

bool Free_Read(std::string_view sText, I8& iValue) {
  return Read_Integer(sText, iValue) != Outcome::Failed;
}

bool Free_Read(std::string_view sText, R4& fValue) {
  return Read_Real(sText, fValue) != Outcome::Failed;
}

bool Free_Read(std::string_view sText, R8& dValue) {
  return Read_Real(sText, dValue) != Outcome::Failed;
}

bool Cut_In_Three(std::string_view sText, std::string_view sSeparators, ThreeParts& hPart) {
  sText = Trimmed(sText);
  const std::size_t K1 = sText.find_first_of(sSeparators);
  if (K1 == std::string_view::npos) return false;
  const std::size_t K2 = sText.find_last_of(sSeparators);
  if (K1 < 1 || K2 <= K1 + 1 || K2 + 1 >= sText.size()) return false;
  hPart = {sText.substr(0, K1), sText.substr(K1 + 1, K2 - K1 - 1), sText.substr(K2 + 1)};
  return true;
}

bool Is_Missing(std::string_view sField) {
  return Trimmed(sField).empty() || sField.find('*') != std::string_view::npos;
}

void Str_to_I4(std::string_view sField, I4 iDefault, I4& iValue, I4& IOERR) {
  Take_Number(sField, sField.size(), iDefault, iValue, IOERR);
}

void Str_to_I8(std::string_view sField, I8 iDefault, I8& iValue, I4& IOERR) {
  Take_Number(sField, sField.size(), iDefault, iValue, IOERR);
}

void Str_to_L4(std::string_view sField, L4 bDefault, L4& bValue, I4& IOERR) {
  IOERR = 0;
  bValue = bDefault;
  if (Is_Missing(sField)) {
    IOERR = -1;
    return;
  }
  const char cFirst = Left_Adjusted(sField).front();
  if (std::string_view("1YyTt").find(cFirst) != std::string_view::npos)
    bValue = true;
  else if (std::string_view("0NnFf").find(cFirst) != std::string_view::npos)
    bValue = false;
  else
    IOERR = 1;
}

void Str_to_R4(std::string_view sField, R4 fDefault, R4& fValue, I4& IOERR) {
  Take_Number(sField, NWork, fDefault, fValue, IOERR);
}

void Str_to_R8(std::string_view sField, R8 dDefault, R8& dValue, I4& IOERR) {
  Take_Number(sField, NWork, dDefault, dValue, IOERR);
}

void Str_to_R4Azimuth(std::string_view sField, R4 fDefault, R4& fAzimuth, I4& IOERR) {
  constexpr std::size_t NBearing = 8;
  IOERR = 0;
  fAzimuth = fDefault;
  if (Is_Missing(sField)) {
    IOERR = -1;
    return;
  }
  const std::string CAZM = Short_Upper(sField, NBearing);
  if (CAZM.find_first_of("NSEW") == std::string::npos)
    Free_Read(CAZM, fAzimuth);  // a number that cannot be read is no error here
  else
    Azimuth_of_Bearing(Bearing_of_Word(CAZM), fAzimuth, IOERR);
}

void Str_to_R4Meters(std::string_view sField, I4 iLength, R4 fDefault, R4& fMeters, I4& IOERR) {
  IOERR = 0;
  fMeters = fDefault;
  if (Is_Missing(sField)) {
    IOERR = -1;
    return;
  }
  I4 jLength = std::clamp(iLength, 1, 2);
  const std::size_t KUnit = sField.find_first_of("mMfF");
  if (KUnit != std::string_view::npos) jLength = sField[KUnit] == 'm' || sField[KUnit] == 'M' ? 1 : 2;
  R4 fLength = 0.0f;
  const Outcome iOutcome = Read_Real(sField.substr(0, KUnit), fLength);
  if (iOutcome == Outcome::Failed) IOERR = 1;
  if (iOutcome == Outcome::Value) fMeters = fLength * fMetersPerUnit[jLength - 1];
}

void Str_to_R4Line(std::string_view sField, R4 fDefault, R4& fLine, I4& IOERR) {
  IOERR = 0;
  fLine = fDefault;
  if (Is_Missing_Name(sField)) {
    IOERR = -1;
    return;
  }
  const NameContent hName = Content_of_Name(sField, sLineMarks);
  if (hName.NKept > 0 && !Free_Read(hName.Kept(), fLine)) IOERR = 1;
}

void Str_to_R8Line(std::string_view sField, R8 dDefault, R8& dLine, I4& IOERR) {
  IOERR = 0;
  dLine = dDefault;
  if (Is_Missing_Name(sField)) {
    IOERR = -1;
    return;
  }
  const NameContent hName = Content_of_Name(sField, sLineMarks);
  if (hName.NKept > 0) {
    if (!Free_Read(hName.Kept(), dLine)) IOERR = 1;
    return;
  }
  IOERR = 1;  // the user hears of it, while the letter is used
  if (hName.iLetter >= 0) dLine = static_cast<R8>(hName.iLetter);
}

void Str_to_R8Time(std::string_view sField, R8 dDefault, R8& dHours, I4& IOERR) {
  constexpr std::size_t NHour = 2;  // characters before the colon that are hours
  IOERR = 0;
  dHours = dDefault;
  if (Is_Missing(sField)) {
    IOERR = -1;
    return;
  }
  if (Free_Read(sField, dHours)) return;
  IOERR = 1;
  ThreeParts hTime;
  if (!Cut_In_Three(sField, ":", hTime)) return;
  if (hTime.sFirst.size() > NHour) hTime.sFirst.remove_prefix(hTime.sFirst.size() - NHour);
  I4 iHour = 0;
  I4 iMin = 0;
  R8 dSec = 0.0;
  if (!Free_Read(hTime.sFirst, iHour) || !Free_Read(hTime.sSecond, iMin) || !Free_Read(hTime.sThird, dSec)) return;
  dHours = ((dSec / 60.0) + iMin) / 60.0 + iHour;
  IOERR = 0;
}

void Str_to_I4Version(std::string_view sField, I4 iDefault, I4& iVersion, I4& IOERR) {
  IOERR = 0;
  iVersion = iDefault;
  if (Is_Missing_Name(sField)) {
    IOERR = -1;
    return;
  }
  const NameContent hName = Content_of_Name(sField, "");
  if (hName.NKept > 0 && !Free_Read(hName.Kept(), iVersion)) IOERR = 1;
}

void Str_to_I4Index(std::string_view sKeyword, I4& I4Index, I4& IOERR) {
  constexpr std::string_view sDigits = "0123456789";
  IOERR = -1;
  I4Index = 1;
  const std::size_t KLast = sKeyword.find_last_of(sDigits);
  if (KLast == std::string_view::npos) return;
  const std::size_t KBefore = sKeyword.find_last_not_of(sDigits, KLast);
  const std::size_t KFirst = KBefore == std::string_view::npos ? 0 : KBefore + 1;
  IOERR = Free_Read(sKeyword.substr(KFirst, KLast - KFirst + 1), I4Index) ? 0 : 1;
}

void Fld_Begin_File() {
  bFldReported = false;
}

void Fld_to_I4(const FieldContext& hAt, std::string_view sField, I4 iDefault, I4& iValue, I4& IOERR) {
  Str_to_I4(sField, iDefault, iValue, IOERR);
  if (IOERR > 0) Report_Field(hAt, "integer ", sField);
}

void Fld_to_I8(const FieldContext& hAt, std::string_view sField, I8 iDefault, I8& iValue, I4& IOERR) {
  Str_to_I8(sField, iDefault, iValue, IOERR);
  if (IOERR > 0) Report_Field(hAt, "integer ", sField);
}

void Fld_to_L4(const FieldContext& hAt, std::string_view sField, L4 bDefault, L4& bValue, I4& IOERR) {
  Str_to_L4(sField, bDefault, bValue, IOERR);
  if (IOERR > 0) Report_Field(hAt, "", sField, " Yes/No, True/False or 1/0 response from ");
}

void Fld_to_R4(const FieldContext& hAt, std::string_view sField, R4 fDefault, R4& fValue, I4& IOERR) {
  Str_to_R4(sField, fDefault, fValue, IOERR);
  if (IOERR > 0) Report_Field(hAt, "real*4 ", sField);
}

void Fld_to_R8(const FieldContext& hAt, std::string_view sField, R8 dDefault, R8& dValue, I4& IOERR) {
  Str_to_R8(sField, dDefault, dValue, IOERR);
  if (IOERR > 0) Report_Field(hAt, "real*8 ", sField);
}

void Fld_to_R4Azimuth(const FieldContext& hAt, std::string_view sField, R4 fDefault, R4& fAzimuth, I4& IOERR) {
  Str_to_R4Azimuth(sField, fDefault, fAzimuth, IOERR);
  if (IOERR > 0) Report_Field(hAt, "azimuth or bearing ", sField);
}

void Fld_to_R4Meters(const FieldContext& hAt, std::string_view sField, I4 iLength, R4 fDefault, R4& fMeters,
                     I4& IOERR) {
  Str_to_R4Meters(sField, iLength, fDefault, fMeters, IOERR);
  if (IOERR > 0) Report_Field(hAt, "real*4 ", sField);
}

void Fld_to_R4Line(const FieldContext& hAt, std::string_view sField, R4 fDefault, R4& fLine, I4& IOERR) {
  Str_to_R4Line(sField, fDefault, fLine, IOERR);
  if (IOERR > 0) Report_Field(hAt, "numeric ", sField);
}

void Fld_to_R8Line(const FieldContext& hAt, std::string_view sField, R8 dDefault, R8& dLine, I4& IOERR) {
  Str_to_R8Line(sField, dDefault, dLine, IOERR);
  if (IOERR > 0) Report_Field(hAt, "numeric ", sField);
}

void Fld_to_R8Time(const FieldContext& hAt, std::string_view sField, R8 dDefault, R8& dHours, I4& IOERR) {
  Str_to_R8Time(sField, dDefault, dHours, IOERR);
  if (IOERR > 0) Report_Field(hAt, "hh:mm:ss ", '"' + std::string(Trimmed(sField)) + '"');
}

void Fld_to_I4Version(const FieldContext& hAt, std::string_view sField, I4 iDefault, I4& iVersion, I4& IOERR) {
  Str_to_I4Version(sField, iDefault, iVersion, IOERR);
  if (IOERR > 0) Report_Field(hAt, "numeric ", sField);
}

void Fld_to_R4Pitch(const FieldContext& hAt, std::string_view sField, R4 fDefault, R4& fPitch, I4& IOERR) {
  IOERR = 0;
  fPitch = fDefault;
  if (Is_Missing(sField)) {
    IOERR = -1;
    return;
  }
  const std::string CPitch = Short_Upper(sField, NShort);
  if (CPitch.find_first_of("UHD") == std::string::npos) {
    if (!Free_Read(CPitch, fPitch)) IOERR = 1;
  } else {
    switch (CPitch.front()) {
      case 'U': fPitch = 90.0f; break;
      case 'H': fPitch = 0.0f; break;
      case 'D': fPitch = -90.0f; break;
      default: IOERR = 1;
    }
  }
  if (IOERR > 0) Report_Field(hAt, "pitch ", sField);
}

void Fld_NMEA_to_R8Time(const FieldContext& hAt, std::string_view sField, R8 dDefault, R8& dHours, I4& IOERR) {
  IOERR = 0;
  dHours = dDefault;
  if (Is_Missing(sField)) {
    IOERR = -1;
    return;
  }
  const Text<16> sText(Left_Adjusted(sField));
  const std::string_view sTime = sText.padded();
  I4 iHour = 0;
  I4 iMin = 0;
  R8 dSec = 0.0;
  if (Free_Read(sTime.substr(0, 2), iHour) && Free_Read(sTime.substr(2, 2), iMin) && Free_Read(sTime.substr(4), dSec)) {
    const R8 dMagnitude = ((dSec / 60.0) + iMin) / 60.0 + std::abs(iHour);
    dHours = iHour < 0 ? -dMagnitude : dMagnitude;
    return;
  }
  IOERR = 1;
  Report_Field(hAt, "hhmmss.ss ", sField);
}

void Fld_NMEA_to_R8Deg(const FieldContext& hAt, std::string_view sField, R8 dDefault, R8& dDegrees, I4& IOERR) {
  IOERR = 0;
  dDegrees = dDefault;
  if (Is_Missing(sField)) {
    IOERR = -1;
    return;
  }
  const std::string_view sText = Trimmed(Left_Adjusted(sField));
  const std::size_t KPoint = std::min(sText.find('.'), sText.size());
  IOERR = 1;
  if (KPoint < 3 || KPoint - 2 >= NShort) return;
  const std::string_view sDegrees = sText.substr(0, KPoint - 2);
  const std::string_view sMinutes = sText.substr(0, NShort).substr(KPoint - 2);
  I4 iDegrees = 0;
  R8 dMin = 0.0;
  if (!Free_Read(sDegrees, iDegrees) || !Free_Read(sMinutes, dMin)) {
    Report_Field(hAt, sDegrees.size() <= 2 ? "NMEA-format ddmm.mmm" : "NMEA-format dddmm.mmm", sField);
    return;
  }
  const R8 dMagnitude = std::abs(static_cast<R8>(iDegrees)) + dMin / 60.0;
  dDegrees = iDegrees < 0 ? -dMagnitude : dMagnitude;
  IOERR = 0;
}

}  // namespace quillan
