// str_value.h: a text field becomes a number, a logical, a bearing, a length, a line number, a clock time.
//
// Status of every reader, IOERR: 0 the value was read; -1 missing (blank, "*", for numbers also "INF"), the default
// is given; positive, the field cannot be read, the default is given. Fld_to_... report a positive status with the
// record that held the field: the first report of a file in a box, the further ones in the error file alone.
//
// Numbers are read as a list-directed read reads them: leading blanks are skipped, and the token runs to the next
// blank, comma or slash (a tab counts as a blank), so "12.5 m" is 12.5 and "1/2" is 1. A real is an optional sign,
// digits with an optional point, and an optional exponent: E or D (either case) and a signed integer, or a bare sign
// and integer ("12+50"). A field that begins with a comma or slash is a null value: read, target unchanged. Any other
// token fails; nan and infinity are no numbers here.
#pragma once

#include <string_view>

#include "base/types.h"

namespace quillan {

/// The list-directed read of one value. True when it succeeds, also for a null value, which leaves the target alone. A
/// value beyond the range of the target fails.
bool Free_Read(std::string_view sText, I4& iValue);
bool Free_Read(std::string_view sText, I8& iValue);
bool Free_Read(std::string_view sText, R4& fValue);
bool Free_Read(std::string_view sText, R8& dValue);

/// A clock time or a date cut at the first and at the last of its separators.
struct ThreeParts {
  std::string_view sFirst, sSecond, sThird;
};
/// False unless two separators leave at least one character before, between and behind them.
bool Cut_In_Three(std::string_view sText, std::string_view sSeparators, ThreeParts& hPart);

/// Whether a field is blank or holds "*".
bool Is_Missing(std::string_view sField);

// Quiet readers.
void Str_to_I4(std::string_view sField, I4 iDefault, I4& iValue, I4& IOERR);
void Str_to_I8(std::string_view sField, I8 iDefault, I8& iValue, I4& IOERR);
void Str_to_L4(std::string_view sField, L4 bDefault, L4& bValue, I4& IOERR);
void Str_to_R4(std::string_view sField, R4 fDefault, R4& fValue, I4& IOERR);
void Str_to_R8(std::string_view sField, R8 dDefault, R8& dValue, I4& IOERR);
/// Degrees clockwise from north: a number, a word ("east", "NE") or a quadrant bearing ("N45E"). A number that cannot
/// be read gives the default with IOERR 0, on purpose: surveys write anything into this field.
void Str_to_R4Azimuth(std::string_view sField, R4 fDefault, R4& fAzimuth, I4& IOERR);
/// Metres: a number and an optional unit letter, m or f. iLength: unit of a bare number, 1 metres, 2 feet.
void Str_to_R4Meters(std::string_view sField, I4 iLength, R4 fDefault, R4& fMeters, I4& IOERR);
/// The number within a line name such as "L12N".
void Str_to_R4Line(std::string_view sField, R4 fDefault, R4& fLine, I4& IOERR);
/// The same; a name of letters alone gives the place of its first letter in the alphabet, from 0, with IOERR 1.
void Str_to_R8Line(std::string_view sField, R8 dDefault, R8& dLine, I4& IOERR);
/// Decimal hours, given so or as hh:mm:ss.
void Str_to_R8Time(std::string_view sField, R8 dDefault, R8& dHours, I4& IOERR);
/// The digits of a version text: "V3.20" gives 320.
void Str_to_I4Version(std::string_view sField, I4 iDefault, I4& iVersion, I4& IOERR);
/// The last run of digits in a keyword: "Ch3" gives 3. Without a digit 1, with IOERR -1.
void Str_to_I4Index(std::string_view sKeyword, I4& I4Index, I4& IOERR);

// Module state. The first report of a file sets it.
inline L4 bFldReported = false;  // true: further bad values of the file go to the error file alone

/// Begins the reports of a file: its first bad value shows in a box again.
void Fld_Begin_File();

/// What a report names: the record and its number in the file, and the variable.
struct FieldContext {
  I4 iRecord;
  std::string_view sRecord;
  std::string_view sLabel;
};

// Reporting readers.
void Fld_to_I4(const FieldContext& hAt, std::string_view sField, I4 iDefault, I4& iValue, I4& IOERR);
void Fld_to_I8(const FieldContext& hAt, std::string_view sField, I8 iDefault, I8& iValue, I4& IOERR);
void Fld_to_L4(const FieldContext& hAt, std::string_view sField, L4 bDefault, L4& bValue, I4& IOERR);
void Fld_to_R4(const FieldContext& hAt, std::string_view sField, R4 fDefault, R4& fValue, I4& IOERR);
void Fld_to_R8(const FieldContext& hAt, std::string_view sField, R8 dDefault, R8& dValue, I4& IOERR);
void Fld_to_R4Azimuth(const FieldContext& hAt, std::string_view sField, R4 fDefault, R4& fAzimuth, I4& IOERR);
void Fld_to_R4Meters(const FieldContext& hAt, std::string_view sField, I4 iLength, R4 fDefault, R4& fMeters, I4& IOERR);
void Fld_to_R4Line(const FieldContext& hAt, std::string_view sField, R4 fDefault, R4& fLine, I4& IOERR);
void Fld_to_R8Line(const FieldContext& hAt, std::string_view sField, R8 dDefault, R8& dLine, I4& IOERR);
void Fld_to_R8Time(const FieldContext& hAt, std::string_view sField, R8 dDefault, R8& dHours, I4& IOERR);
void Fld_to_I4Version(const FieldContext& hAt, std::string_view sField, I4 iDefault, I4& iVersion, I4& IOERR);
/// Degrees up: a number, or a word that begins with U (90), H (0) or D (-90).
void Fld_to_R4Pitch(const FieldContext& hAt, std::string_view sField, R4 fDefault, R4& fPitch, I4& IOERR);
/// Hours from hhmmss.ss.
void Fld_NMEA_to_R8Time(const FieldContext& hAt, std::string_view sField, R8 dDefault, R8& dHours, I4& IOERR);
/// Degrees from ddmm.mmm or dddmm.mmm.
void Fld_NMEA_to_R8Deg(const FieldContext& hAt, std::string_view sField, R8 dDefault, R8& dDegrees, I4& IOERR);

// The same, the status returned.
[[nodiscard]] inline I4 Fld_to_I4(const FieldContext& hAt, std::string_view sField, I4 hDefault, I4& hValue) {
  I4 IOERR = 0;
  Fld_to_I4(hAt, sField, hDefault, hValue, IOERR);
  return IOERR;
}
[[nodiscard]] inline I4 Fld_to_L4(const FieldContext& hAt, std::string_view sField, L4 hDefault, L4& hValue) {
  I4 IOERR = 0;
  Fld_to_L4(hAt, sField, hDefault, hValue, IOERR);
  return IOERR;
}
[[nodiscard]] inline I4 Fld_to_R4(const FieldContext& hAt, std::string_view sField, R4 hDefault, R4& hValue) {
  I4 IOERR = 0;
  Fld_to_R4(hAt, sField, hDefault, hValue, IOERR);
  return IOERR;
}
[[nodiscard]] inline I4 Fld_to_R4Azimuth(const FieldContext& hAt, std::string_view sField, R4 hDefault, R4& hValue) {
  I4 IOERR = 0;
  Fld_to_R4Azimuth(hAt, sField, hDefault, hValue, IOERR);
  return IOERR;
}
[[nodiscard]] inline I4 Fld_to_R4Meters(const FieldContext& hAt, std::string_view sField, I4 iLength, R4 hDefault,
                                        R4& hValue) {
  I4 IOERR = 0;
  Fld_to_R4Meters(hAt, sField, iLength, hDefault, hValue, IOERR);
  return IOERR;
}
[[nodiscard]] inline I4 Fld_to_R8(const FieldContext& hAt, std::string_view sField, R8 hDefault, R8& hValue) {
  I4 IOERR = 0;
  Fld_to_R8(hAt, sField, hDefault, hValue, IOERR);
  return IOERR;
}
[[nodiscard]] inline I4 Fld_to_R8Time(const FieldContext& hAt, std::string_view sField, R8 hDefault, R8& hValue) {
  I4 IOERR = 0;
  Fld_to_R8Time(hAt, sField, hDefault, hValue, IOERR);
  return IOERR;
}
[[nodiscard]] inline I4 Fld_to_I4Version(const FieldContext& hAt, std::string_view sField, I4 hDefault, I4& hValue) {
  I4 IOERR = 0;
  Fld_to_I4Version(hAt, sField, hDefault, hValue, IOERR);
  return IOERR;
}
[[nodiscard]] inline I4 Fld_to_R4Line(const FieldContext& hAt, std::string_view sField, R4 hDefault, R4& hValue) {
  I4 IOERR = 0;
  Fld_to_R4Line(hAt, sField, hDefault, hValue, IOERR);
  return IOERR;
}
[[nodiscard]] inline I4 Fld_to_R8Line(const FieldContext& hAt, std::string_view sField, R8 hDefault, R8& hValue) {
  I4 IOERR = 0;
  Fld_to_R8Line(hAt, sField, hDefault, hValue, IOERR);
  return IOERR;
}
[[nodiscard]] inline I4 Fld_to_R4Pitch(const FieldContext& hAt, std::string_view sField, R4 hDefault, R4& hValue) {
  I4 IOERR = 0;
  Fld_to_R4Pitch(hAt, sField, hDefault, hValue, IOERR);
  return IOERR;
}
[[nodiscard]] inline I4 Str_to_R8(std::string_view sField, R8 dDefault, R8& dValue) {
  I4 IOERR = 0;
  Str_to_R8(sField, dDefault, dValue, IOERR);
  return IOERR;
}
[[nodiscard]] inline I4 Str_to_I4Index(std::string_view sKeyword, I4& I4Index) {
  I4 IOERR = 0;
  Str_to_I4Index(sKeyword, I4Index, IOERR);
  return IOERR;
}

}  // namespace quillan
