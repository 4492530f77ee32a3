// str_write.h: a number becomes tidy text.
//
// Str_Write_... give at most 16 characters, left-adjusted, "*" for a missing value or one too wide for its form. The
// digits are those of the exact binary value, rounded to nearest, an exact tie to the even digit.
#pragma once

#include <string_view>

#include "base/edit_form.h"
#include "base/text.h"
#include "base/types.h"

namespace quillan {

inline constexpr I4 MFormText = 512;  // the longest text that a form can give

/// Writes a number by a form into sOut, which holds at least MFormText characters, right-justified in the form's width
/// (width 0: as wide as it needs). Returns the text; an empty one when the value does not fit, as do not-a-number and
/// infinity. A negative value that rounds to nothing keeps its sign: "-0.000". The zero before a point is left out
/// where the width has no room for it, and always at width 0.
std::string_view Write_Form(R8 dValue, const EditForm& form, char* sOut);
std::string_view Write_Form(R4 fValue, const EditForm& form, char* sOut);

/// Integers of the least width.
Text<16> Str_Write_I4(I4 iValue);
Text<16> Str_Write_I4F22(I4 iValue);  // at least two digits from -9 to 99: "05", "-9"

/// By a form, then tidied: a zero before the point, no trailing zeros unless an exponent is there.
Text<16> Str_Write_R4(R4 fValue, const EditForm& form);
Text<16> Str_Write_R8(R8 dValue, const EditForm& form);

/// A coordinate or length: 3 decimals below 1.0E8, then fewer digits.
Text<16> Str_Write_XYZR8(R8 dValue);

/// Degrees clockwise from north as a bearing: "N45E"; a cardinal letter up to half a degree above it.
Text<16> Str_Write_Brg(R4 fAzimuth);
/// How many decimals (1 to 3) a station number needs. It looks at the first two decimals alone: a value with only a
/// third decimal gets 1, which every written label of the program relies on.
I4 NReqDecR8(R8 dValue);

}  // namespace quillan
