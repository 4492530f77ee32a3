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

/// Reads the number at the head of a text, which has to begin with a digit, a point or a minus, and is spelled with E
/// where it has an exponent. The value is the nearest that there is, to the last bit. Numbers of up to 15 digits or so,
/// as nearly all of a file are, take a fraction of the time of std::from_chars.
/// Returns its length; 0 when there is no such number or it is beyond the range of its type.
std::size_t Read_Leading(std::string_view sText, R4& fValue);
std::size_t Read_Leading(std::string_view sText, R8& dValue);
/// The same for a text that ends in a NUL: the quickest way through a row of numbers.
std::size_t Read_Next(const char* sText, R4& fValue);
std::size_t Read_Next(const char* sText, R8& dValue);

/// True when the read succeeds, also for a null value.
template <class Number>
[[nodiscard]] bool Free_Read(std::string_view sText, Number& xValue) {
  return List_Read(sText, xValue) != Outcome::Failed;
}

}  // namespace quillan
