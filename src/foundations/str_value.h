// str_value.h: a text field becomes a number, a logical, a bearing, a length, a clock time, a version or an index.
//
// Status that every reader returns: 0 the value was read; -1 missing (blank, "*", for numbers also "INF"), the default
// is given; positive, the field cannot be read, the default is given. Fld_to_... report a positive status with the
// record that held the field: the first report of a file in a box, the further ones in the error file alone.
//
// Numbers are read as a list-directed read reads them (see free_read.h).
#pragma once

#include <string_view>

#include "base/types.h"
#include "foundations/free_read.h"

namespace quillan {

/// Whether a field is blank or holds "*".
[[nodiscard]] bool Is_Missing(std::string_view sField);

// Quiet readers.
[[nodiscard]] I4 Str_to_I4(std::string_view sField, I4 iDefault, I4& iValue);
[[nodiscard]] I4 Str_to_L4(std::string_view sField, L4 bDefault, L4& bValue);
[[nodiscard]] I4 Str_to_R4(std::string_view sField, R4 fDefault, R4& fValue);
[[nodiscard]] I4 Str_to_R8(std::string_view sField, R8 dDefault, R8& dValue);
/// Degrees clockwise from north: a number, a word ("east", "NE") or a quadrant bearing ("N45E"). A number that cannot
/// be read gives the default with status 0, on purpose: surveys write anything into this field.
[[nodiscard]] I4 Str_to_R4Azimuth(std::string_view sField, R4 fDefault, R4& fAzimuth);
/// Metres: a number and an optional unit letter, m or f. iLength: unit of a bare number, 1 metres, 2 feet.
[[nodiscard]] I4 Str_to_R4Meters(std::string_view sField, I4 iLength, R4 fDefault, R4& fMeters);
/// Decimal hours, given so or as hh:mm:ss.
[[nodiscard]] I4 Str_to_R8Time(std::string_view sField, R8 dDefault, R8& dHours);
/// The digits of a version text: "V3.20" gives 320. A text without digits gives the default with status 0.
[[nodiscard]] I4 Str_to_I4Version(std::string_view sField, I4 iDefault, I4& iVersion);
/// The last run of digits in a keyword: "Ch3" gives 3. Without a digit 1, with status -1.
[[nodiscard]] I4 Str_to_I4Index(std::string_view sKeyword, I4& I4Index);

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
[[nodiscard]] I4 Fld_to_I4(const FieldContext& hAt, std::string_view sField, I4 iDefault, I4& iValue);
[[nodiscard]] I4 Fld_to_L4(const FieldContext& hAt, std::string_view sField, L4 bDefault, L4& bValue);
[[nodiscard]] I4 Fld_to_R4(const FieldContext& hAt, std::string_view sField, R4 fDefault, R4& fValue);
[[nodiscard]] I4 Fld_to_R8(const FieldContext& hAt, std::string_view sField, R8 dDefault, R8& dValue);
[[nodiscard]] I4 Fld_to_R4Azimuth(const FieldContext& hAt, std::string_view sField, R4 fDefault, R4& fAzimuth);
[[nodiscard]] I4 Fld_to_R4Meters(const FieldContext& hAt, std::string_view sField, I4 iLength, R4 fDefault,
                                 R4& fMeters);
[[nodiscard]] I4 Fld_to_R8Time(const FieldContext& hAt, std::string_view sField, R8 dDefault, R8& dHours);
[[nodiscard]] I4 Fld_to_I4Version(const FieldContext& hAt, std::string_view sField, I4 iDefault, I4& iVersion);
/// Degrees from ddmm.mmm or dddmm.mmm, as a satellite receiver writes them. Fewer than one digit of degrees is
/// unreadable, without a report.
[[nodiscard]] I4 Fld_NMEA_to_R8Deg(const FieldContext& hAt, std::string_view sField, R8 dDefault, R8& dDegrees);

}  // namespace quillan
