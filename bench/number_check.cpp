// number_check.cpp: random numbers, read and written by the program, against the standard library: equal to the last
// bit and the last character. By hand, after a change of free_read or str_write; a minute for 100 million:
//
//   number_check [HOW_MANY]
//
// Prints what differs, and ends with status 1 then.
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>
#include <string_view>
#include <type_traits>

#include "base/edit_form.h"
#include "foundations/free_read.h"
#include "foundations/str_write.h"

namespace {

using namespace quillan;

struct Random {
  std::uint64_t iState = 88172645463325252ULL;

  std::uint64_t Next() {  // xorshift: the random numbers must not take longer than the work
    iState ^= iState << 13;
    iState ^= iState >> 7;
    return iState ^= iState << 17;
  }
  std::uint64_t Below(std::uint64_t N) { return (Next() >> 11) % N; }
};

/// Mostly what files hold, a few digits with a point among them, and now and then many digits or a great exponent.
std::string_view Random_Text(Random& hRandom, char* sText) {
  char* p = sText;
  if (hRandom.Below(3) == 0) *p++ = '-';
  const std::uint64_t NDigit = 1 + hRandom.Below(hRandom.Below(4) == 0 ? 22 : 9);
  const std::uint64_t KPoint = hRandom.Below(NDigit + 2);
  std::uint64_t iDigits = hRandom.Next();
  for (std::uint64_t K = 0; K < NDigit; ++K, iDigits /= 10) {
    if (K == KPoint) *p++ = '.';
    if (K == 17) iDigits = hRandom.Next();
    *p++ = static_cast<char>('0' + iDigits % 10);
  }
  if (hRandom.Below(3) != 0) {
    *p++ = hRandom.Below(4) == 0 ? 'e' : 'E';
    if (hRandom.Below(4) != 0) *p++ = hRandom.Below(2) == 0 ? '-' : '+';
    p = std::to_chars(p, p + 4, hRandom.Below(hRandom.Below(8) == 0 ? 400 : 24)).ptr;
  }
  return {sText, static_cast<std::size_t>(p - sText)};
}

/// The middle between two floats, cut to 15 digits: to an R8 it is the middle all the same, and only the digits tell to
/// which of the floats it is nearer.
std::string_view Random_Middle(Random& hRandom, char* sText) {
  constexpr std::uint64_t iFraction = (std::uint64_t{1} << 52) - 1;
  constexpr std::uint64_t iRest = (std::uint64_t{1} << 29) - 1;  // bits that a float has no room for
  const std::uint64_t iExponent = 1023 - 24 + hRandom.Below(48);
  const std::uint64_t iMiddle = (hRandom.Next() & iFraction & ~iRest) | (std::uint64_t{1} << 28);
  const R8 dMiddle = std::bit_cast<R8>(iExponent << 52 | iMiddle);
  const auto hEnd = std::to_chars(sText, sText + 32, dMiddle, std::chars_format::scientific, 14);
  return {sText, static_cast<std::size_t>(hEnd.ptr - sText)};
}

template <class Real>
bool Reads_Alike(std::string_view sText) {
  using Bits = std::conditional_t<sizeof(Real) == 4, std::uint32_t, std::uint64_t>;
  Real xRead{0}, xLibrary{0};
  const std::size_t NText = Read_Leading(sText, xRead);
  const auto hRead = std::from_chars(sText.data(), sText.data() + sText.size(), xLibrary);
  const std::size_t NLibrary = hRead.ec == std::errc{} ? static_cast<std::size_t>(hRead.ptr - sText.data()) : 0;
  return NText == NLibrary && std::bit_cast<Bits>(xRead) == std::bit_cast<Bits>(xLibrary);
}

constexpr EditForm hForm[] = {"ES10.4E1", "ES12.5", "ES9.2", "ES9.0", "ES20.12",
                              "F0.1",     "F12.3",  "F14.2", "F0.9",  "F5.0"};

/// What a form has to give, by the digits of the library: the exponent as the form wants it, blanks ahead.
std::string Expected(R8 dValue, const EditForm& form) {
  char sDigit[512];
  const bool bFixed = form.iKind == EditKind::Fixed;
  const auto hEnd = std::to_chars(sDigit, sDigit + sizeof sDigit, dValue,
                                  bFixed ? std::chars_format::fixed : std::chars_format::scientific, form.NDecimal);
  std::string sText(sDigit, hEnd.ptr);
  const auto Width = static_cast<std::size_t>(form.NWidth);
  if (bFixed) {
    if (form.NDecimal == 0) sText += '.';
    const std::size_t KZero = std::signbit(dValue) ? 1 : 0;
    if ((Width == 0 || sText.size() > Width) && form.NDecimal > 0 && sText[KZero] == '0') sText.erase(KZero, 1);
  } else {
    const std::size_t KLetter = sText.find('e');
    std::string sExponent = sText.substr(KLetter + 2);
    if (form.NExponent == 1 && sExponent[0] == '0') sExponent.erase(0, 1);
    if (form.NExponent == 1 && sExponent.size() > 1) return {};
    const std::string sLetter = sExponent.size() == 3 ? "" : "E";
    sText = sText.substr(0, KLetter) + (form.NDecimal == 0 ? "." : "") + sLetter + sText[KLetter + 1] + sExponent;
  }
  if (Width > 0 && sText.size() > Width) return {};
  if (Width > 0) sText.insert(0, Width - sText.size(), ' ');
  return sText;
}

/// A value as files hold it, of few digits, or any bits at all.
template <class Real>
Real Random_Value(Random& hRandom) {
  using Bits = std::conditional_t<sizeof(Real) == 4, std::uint32_t, std::uint64_t>;
  if (hRandom.Below(4) == 0) return std::bit_cast<Real>(static_cast<Bits>(hRandom.Next()));
  const auto dWhole = static_cast<R8>(hRandom.Below(hRandom.Below(2) == 0 ? 4096 : 100000000));
  const R8 dMagnitude =
      dWhole * std::pow(hRandom.Below(3) == 0 ? 2.0 : 10.0, static_cast<R8>(hRandom.Below(24)) - 14.0);
  return static_cast<Real>(hRandom.Below(3) == 0 ? -dMagnitude : dMagnitude);
}

template <class Real>
bool Writes_Alike(Real x, const EditForm& form) {
  char sOut[MFormText];
  return !std::isfinite(x) || Write_Form(x, form, sOut) == Expected(R8{x}, form);
}

}  // namespace

int main(int argc, char** argv) {
  const long NText = argc > 1 ? std::atol(argv[1]) : 100000000;
  Random hRandom;
  long NDifferent = 0;
  char sText[64];
  for (long I = 0; I < NText; ++I) {
    const std::string_view s = I % 16 == 0 ? Random_Middle(hRandom, sText) : Random_Text(hRandom, sText);
    if (Reads_Alike<R4>(s) && Reads_Alike<R8>(s)) continue;
    std::printf("read differently: %.*s\n", static_cast<int>(s.size()), s.data());
    ++NDifferent;
  }
  for (long I = 0; I < NText / 10; ++I) {  // the library writes slowly
    const EditForm& form = hForm[hRandom.Below(std::size(hForm))];
    const R4 fValue = Random_Value<R4>(hRandom);
    const R8 dValue = Random_Value<R8>(hRandom);
    if (Writes_Alike(fValue, form) && Writes_Alike(dValue, form)) continue;
    std::printf("written differently: %.9g or %.17g, %d decimals\n", R8{fValue}, dValue, form.NDecimal);
    ++NDifferent;
  }
  std::printf("%ld texts, %ld values: %ld differ\n", NText, NText / 10, NDifferent);
  return NDifferent == 0 ? 0 : 1;
}
