#include "foundations/free_read.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>

namespace quillan {
namespace {

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

/// Whole numbers and powers of ten that a real holds exactly: their quotient is then the nearest real.
template <class Real>
struct Exact;
template <>
struct Exact<R4> {
  static constexpr I8 iMost = 1 << 24;
  static constexpr R4 fPower[] = {1E0f, 1E1f, 1E2f, 1E3f, 1E4f, 1E5f, 1E6f, 1E7f, 1E8f, 1E9f, 1E10f};
};
template <>
struct Exact<R8> {
  static constexpr I8 iMost = I8{1} << 53;
  static constexpr R8 fPower[] = {1E0, 1E1, 1E2, 1E3, 1E4, 1E5, 1E6, 1E7, 1E8, 1E9, 1E10};
};

template <class Real>
bool Read_Short_Decimal(std::string_view sText, Real& x) {
  constexpr std::size_t MCharacter = 17;  // an I8 holds as many digits
  constexpr std::ptrdiff_t MDecimal = std::ssize(Exact<Real>::fPower) - 1;
  if (sText.empty() || sText.size() > MCharacter) return false;
  const char* p = sText.data();
  const char* const pEnd = p + sText.size();
  const bool bNegative = *p == '-';
  const char* const pFirst = bNegative ? ++p : p;
  I8 iDigits = 0;
  while (p < pEnd && Is_Digit(*p)) iDigits = 10 * iDigits + (*p++ - '0');
  std::ptrdiff_t NDecimal = 0;
  if (p < pEnd && *p == '.') {
    const char* const pPoint = p++;
    while (p < pEnd && Is_Digit(*p)) iDigits = 10 * iDigits + (*p++ - '0');
    NDecimal = p - pPoint - 1;
    if (p - pFirst == 1) return false;  // a point alone
  }
  if (p < pEnd || p == pFirst || NDecimal > MDecimal || iDigits > Exact<Real>::iMost) return false;
  const Real fRead = static_cast<Real>(iDigits) / Exact<Real>::fPower[NDecimal];
  x = bNegative ? -fRead : fRead;
  return true;
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

}  // namespace

bool Read_Decimal(std::string_view sText, R4& fValue) {
  return Read_Short_Decimal(sText, fValue);
}

bool Read_Decimal(std::string_view sText, R8& dValue) {
  return Read_Short_Decimal(sText, dValue);
}

Outcome List_Read(std::string_view sText, I4& iValue) {
  return Read_Integer(sText, iValue);
}

Outcome List_Read(std::string_view sText, I8& iValue) {
  return Read_Integer(sText, iValue);
}

Outcome List_Read(std::string_view sText, R4& fValue) {
  return Read_Real(sText, fValue);
}

Outcome List_Read(std::string_view sText, R8& dValue) {
  return Read_Real(sText, dValue);
}

}  // namespace quillan
