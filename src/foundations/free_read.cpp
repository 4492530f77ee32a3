#include "foundations/free_read.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <string>
#include <type_traits>

#include "foundations/powers.h"

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

constexpr std::ptrdiff_t MDigit = 15;  // a whole number of as many digits is exact in an R8

/// Appends the digits at p to a whole number. Returns their end.
inline const char* Take_Digits(const char* p, std::uint64_t& iDigits) {
  for (;; ++p) {
    const unsigned iDigit = static_cast<unsigned char>(*p) - unsigned{'0'};
    if (iDigit > 9) return p;
    iDigits = 10 * iDigits + iDigit;
  }
}

/// Takes an exponent ("E-02"), for which there is an E at p. Returns its end, nullptr when it is spelled otherwise.
inline const char* Take_Exponent(const char* p, std::ptrdiff_t& iPower) {
  const bool bNegative = *++p == '-';
  if (bNegative || *p == '+') ++p;
  std::uint64_t iExponent = 0;
  const char* const pFirst = p;
  p = Take_Digits(p, iExponent);
  if (p == pFirst || p - pFirst > MDigit) return nullptr;
  iPower += bNegative ? -static_cast<std::ptrdiff_t>(iExponent) : static_cast<std::ptrdiff_t>(iExponent);
  return p;
}

/// The nearest R8 rounds to the nearest R4, but where it lies in the middle between two of them: the number itself may
/// lie to either side.
bool Is_in_Middle(R8 dValue) {
  constexpr std::uint64_t iBelow = (std::uint64_t{1} << 29) - 1;  // the bits of an R8 that an R4 has no room for
  constexpr std::uint64_t iMiddle = std::uint64_t{1} << 28;
  return (std::bit_cast<std::uint64_t>(dValue) & iBelow) == iMiddle;
}

/// The number at the head of a text, by one multiplication or division of two numbers that are exact, which gives the
/// nearest R8 there is. Returns its length, 0 when that does not do: for one of many digits or a high power of ten.
/// The text ends in a NUL, so that no character needs a look at the end of the text.
template <class Real>
std::size_t Read_Short(const char* sText, Real& x) {
  const bool bNegative = *sText == '-';
  const char* const pFirst = sText + (bNegative ? 1 : 0);
  std::uint64_t iDigits = 0;
  const char* p = Take_Digits(pFirst, iDigits);
  std::ptrdiff_t NDigit = p - pFirst;
  std::ptrdiff_t iPower = 0;
  if (*p == '.') {
    const char* const pDecimal = ++p;
    p = Take_Digits(p, iDigits);
    iPower = pDecimal - p;
    NDigit -= iPower;
  }
  if (NDigit < 1 || NDigit > MDigit) return 0;
  if (*p == 'E' || *p == 'e') p = Take_Exponent(p, iPower);
  if (p == nullptr || iPower < -MPower10 || iPower > MPower10) return 0;
  const R8 dMagnitude = Times_Power10(static_cast<R8>(static_cast<I8>(iDigits)), static_cast<I4>(iPower));
  if (std::is_same_v<Real, R4> && Is_in_Middle(dMagnitude)) return 0;
  x = static_cast<Real>(bNegative ? -dMagnitude : dMagnitude);
  return static_cast<std::size_t>(p - sText);
}

/// Any number at the head of a text.
template <class Real>
std::size_t Read_Long(std::string_view sText, Real& x) {
  const std::size_t KFirst = sText.starts_with('-') ? 1 : 0;
  if (sText.size() == KFirst || !(Is_Digit(sText[KFirst]) || sText[KFirst] == '.')) return 0;
  const auto hRead = std::from_chars(sText.data(), sText.data() + sText.size(), x);
  return hRead.ec == std::errc{} ? static_cast<std::size_t>(hRead.ptr - sText.data()) : 0;
}

template <class Real>
std::size_t Read_before_NUL(const char* sText, Real& x) {
  const std::size_t NText = Read_Short(sText, x);
  return NText > 0 ? NText : Read_Long(std::string_view(sText), x);
}

template <class Real>
std::size_t Read_Head(std::string_view sText, Real& x) {
  constexpr std::size_t MShort = 40;  // more characters than a short number has: 15 digits twice, point, E and signs
  std::array<char, MShort + 1> sHead;
  sHead[sText.copy(sHead.data(), MShort)] = '\0';
  const std::size_t NText = Read_Short(sHead.data(), x);
  return NText > 0 ? NText : Read_Long(sText, x);
}

template <class Real>
Outcome Read_Real(std::string_view sText, Real& x) {
  sText = Without_Leading_Blanks(sText);
  if (sText.empty()) return Outcome::Failed;
  if (Is_Null(sText.front())) return Outcome::Null;

  // Nearly every field of a file is spelled without oddities, and the end of the number is the end of the token.
  Real fRead{0};
  const std::size_t NText = Read_Leading(sText, fRead);
  if (NText > 0 && (NText == sText.size() || Ends_Token(sText[NText]))) {
    x = fRead;
    return Outcome::Value;
  }
  return Read_Odd_Real(Token(sText), x);
}

}  // namespace

std::size_t Read_Leading(std::string_view sText, R4& fValue) {
  return Read_Head(sText, fValue);
}

std::size_t Read_Leading(std::string_view sText, R8& dValue) {
  return Read_Head(sText, dValue);
}

std::size_t Read_Next(const char* sText, R4& fValue) {
  return Read_before_NUL(sText, fValue);
}

std::size_t Read_Next(const char* sText, R8& dValue) {
  return Read_before_NUL(sText, dValue);
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
