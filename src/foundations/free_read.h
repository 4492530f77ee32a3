// free_read.h: the list-directed read of one number.
//
// Leading blanks are skipped, and the token runs to the next blank, comma or slash (a tab counts as a blank), so
// "12.5 m" is 12.5 and "1/2" is 1. A real is an optional sign, digits with an optional point, and an optional
// exponent: E or D (either case) and a signed integer, or a bare sign and integer ("12+50"). A field that begins with
// a comma or slash is a null value. Any other token fails; nan and infinity are no numbers here.
#pragma once

#include <string_view>

#include "base/types.h"

namespace quillan {

enum class Outcome { Value, Null, Failed };

/// A null value and a token that fails leave the target alone. A value beyond the range of the target fails.
Outcome List_Read(std::string_view sText, I4& iValue);
Outcome List_Read(std::string_view sText, I8& iValue);
Outcome List_Read(std::string_view sText, R4& fValue);
Outcome List_Read(std::string_view sText, R8& dValue);

/// Reads a text that is nothing but a few digits, with a point or a minus perhaps, as nearly all fields of a file are:
/// the same value in a fraction of the time. False: the text is anything else, and the target stays.
bool Read_Decimal(std::string_view sText, R4& fValue);
bool Read_Decimal(std::string_view sText, R8& dValue);

/// True when the read succeeds, also for a null value.
template <class Number>
[[nodiscard]] bool Free_Read(std::string_view sText, Number& xValue) {
  return List_Read(sText, xValue) != Outcome::Failed;
}

}  // namespace quillan
