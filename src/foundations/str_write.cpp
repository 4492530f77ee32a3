#include "foundations/str_write.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

#include "foundations/powers.h"
#include "foundations/str_parse.h"

namespace quillan {
namespace {

constexpr I4 iDummyLimit = -2147483645;  // an integer below it has no value
constexpr std::size_t NField = 16;       // characters of a written field
constexpr R8 dXYZFixed = R8{1.0E8f};     // below it a coordinate has three decimals
constexpr R8 dXYZGeneral = R8{1.0E15f};  // below it, rounded to 32 bits, a coordinate is written by form G
constexpr R4 fNearest = 0.5f;            // degrees, how far a word still stands for a bearing

using DigitBuffer = std::array<char, 2 * MFormText>;  // mantissa and exponent at their longest

std::string_view Right_Justified(std::string_view sText, I4 NWidth, char* sOut) {
  const auto NPlace = static_cast<std::size_t>(NWidth);
  if (sText.size() > NPlace) return {};
  const std::size_t NBlank = NPlace - sText.size();
  std::fill_n(sOut, NBlank, ' ');
  std::copy(sText.begin(), sText.end(), sOut + NBlank);
  return {sOut, NPlace};
}

/// A magnitude times a power of ten as the nearest whole number. -1 when the product is too large, or so near to the
/// middle between two whole numbers that its rounding may have moved it across: std::to_chars knows then.
I8 Whole_Digits(R8 dMagnitude, I4 iPower) {
  constexpr R8 dMost = 1.0E15;
  if (iPower < -MPower10 || iPower > MPower10) return -1;
  const R8 dScaled = Times_Power10(dMagnitude, iPower);
  if (dScaled >= dMost) return -1;
  const I8 iWhole = static_cast<I8>(dScaled);
  const R8 dFromMiddle = dScaled - static_cast<R8>(iWhole) - 0.5;
  if (std::abs(dFromMiddle) <= dScaled * std::numeric_limits<R8>::epsilon()) return -1;
  return dFromMiddle > 0.0 ? iWhole + 1 : iWhole;
}

/// Writes the last NDigit digits of a whole number, zeros among them. Returns their end.
char* Put_Digits(I8 iDigits, I4 NDigit, char* sOut) {
  for (char* p = sOut + NDigit; p != sOut; iDigits /= 10) *--p = static_cast<char>('0' + iDigits % 10);
  return sOut + NDigit;
}

/// Writes a value with NDecimal decimals, and without a point where there are none. Returns its end, nullptr when there
/// is no room.
char* Put_Fixed(R8 dValue, I4 NDecimal, char* sOut, char* pEnd) {
  constexpr I4 MDecimal = 15;
  const I8 iDigits = NDecimal <= MDecimal ? Whole_Digits(std::abs(dValue), NDecimal) : -1;
  if (iDigits < 0) {
    const auto hEnd = std::to_chars(sOut, pEnd, dValue, std::chars_format::fixed, NDecimal);
    return hEnd.ec == std::errc{} ? hEnd.ptr : nullptr;
  }
  const I8 iOne = static_cast<I8>(dPower10[NDecimal]);
  if (std::signbit(dValue)) *sOut++ = '-';
  sOut = std::to_chars(sOut, pEnd, iDigits / iOne).ptr;
  if (NDecimal > 0) *sOut++ = '.';
  return Put_Digits(iDigits % iOne, NDecimal, sOut);
}

std::string_view Write_Fixed(R8 dValue, I4 NWidth, I4 NDecimal, char* sOut) {
  DigitBuffer sDigit;
  char* const pEnd = Put_Fixed(dValue, NDecimal, sDigit.data(), sDigit.data() + MFormText - 1);
  if (pEnd == nullptr) return {};
  auto NText = static_cast<std::size_t>(pEnd - sDigit.data());
  if (NDecimal == 0) sDigit[NText++] = '.';

  std::string_view sText(sDigit.data(), NText);
  const bool bNegative = std::signbit(dValue);
  const bool bTight = NWidth == 0 || NText > static_cast<std::size_t>(NWidth);
  if (bTight && NDecimal > 0 && sText[bNegative ? 1 : 0] == '0') {
    if (bNegative) sDigit[1] = '-';
    sText.remove_prefix(1);
  }
  return Right_Justified(sText, NWidth == 0 ? static_cast<I4>(sText.size()) : NWidth, sOut);
}

/// Digits of a mantissa, the point after the first of them.
struct Mantissa {
  I8 iDigits = -1;  // -1: they are not known
  I4 iExponent = 0;
};

Mantissa Short_Mantissa(R8 dMagnitude, I4 NDecimal) {
  constexpr I4 MDecimal = 13;
  if (NDecimal > MDecimal) return {};
  // From the exponent of two, the one of ten or the one below it.
  const I4 iBinary = static_cast<I4>(std::bit_cast<std::uint64_t>(dMagnitude) >> 52) - 1023;
  I4 iExponent = (iBinary * 1233) >> 12;  // 1233 / 4096 is log10(2)
  const I8 iLeast = static_cast<I8>(dPower10[NDecimal]);
  I8 iDigits = Whole_Digits(dMagnitude, NDecimal - iExponent);
  if (iDigits >= 10 * iLeast) iDigits = Whole_Digits(dMagnitude, NDecimal - ++iExponent);
  if (iDigits < iLeast || iDigits >= 10 * iLeast) return {};
  return {iDigits, iExponent};
}

/// Writes sign, digit, point and decimals. Returns the exponent.
I4 Put_Mantissa(R8 dValue, I4 NDecimal, char* sOut) {
  const R8 dMagnitude = std::abs(dValue);
  if (std::signbit(dValue)) *sOut++ = '-';
  Mantissa h = Short_Mantissa(dMagnitude, NDecimal);
  if (h.iDigits >= 0) {
    Put_Digits(h.iDigits, NDecimal + 1, sOut + 1);
    sOut[0] = sOut[1];
  } else {
    DigitBuffer sDigit;
    const auto hEnd = std::to_chars(sDigit.data(), sDigit.data() + sDigit.size(), dMagnitude,
                                    std::chars_format::scientific, NDecimal);
    const char* const pLetter = std::find(sDigit.data(), hEnd.ptr, 'e');
    std::copy(static_cast<const char*>(sDigit.data()), pLetter, sOut);
    std::from_chars(pLetter + (pLetter[1] == '+' ? 2 : 1), hEnd.ptr, h.iExponent);
  }
  sOut[1] = '.';  // also where there are no decimals
  return h.iExponent;
}

/// Writes an exponent as a form gives it. Returns its end, nullptr when it has more digits than the form gives it. With
/// no digits given, an exponent of three takes the place of the letter: "1.0-100".
char* Write_Exponent(I4 iExponent, I4 NExponent, char* sOut) {
  const I4 iMagnitude = std::abs(iExponent);
  const I4 NDigit = iMagnitude < 10 ? 1 : iMagnitude < 100 ? 2 : 3;
  const I4 NPlace = NExponent > 0 ? NExponent : std::max(NDigit, 2);
  if (NDigit > NPlace) return nullptr;
  if (NExponent > 0 || NPlace == 2) *sOut++ = 'E';
  *sOut++ = iExponent < 0 ? '-' : '+';
  return Put_Digits(iMagnitude, NPlace, sOut);
}

std::string_view Write_Scientific(R8 dValue, const EditForm& form, char* sOut) {
  // Sign, digit, point and decimals, then always four characters where no digits of the exponent are given.
  const I4 NMantissa = (std::signbit(dValue) ? 3 : 2) + form.NDecimal;
  const I4 NBlank = form.NWidth - NMantissa - (form.NExponent > 0 ? form.NExponent + 2 : 4);
  if (NBlank < 0) return {};
  std::fill_n(sOut, NBlank, ' ');
  const I4 iExponent = Put_Mantissa(dValue, form.NDecimal, sOut + NBlank);
  if (Write_Exponent(iExponent, form.NExponent, sOut + NBlank + NMantissa) == nullptr) return {};
  return {sOut, static_cast<std::size_t>(form.NWidth)};
}

/// Decimals with which a magnitude shows d significant digits without an exponent, -1 when it needs one. The bounds
/// lie half a unit of the last digit below the powers of ten, so that what rounds up to a power is laid out as that
/// power; they are computed in the kind of the value, which decides for values that lie on a bound.
template <class Real>
I4 Decimals_of_General(Real fMag, I4 NDigit) {
  if (NDigit == 0) return -1;
  if (fMag == Real{0}) return NDigit - 1;
  Real fTop{1};
  for (I4 I = 1; I <= NDigit; ++I) fTop *= Real{10};
  const Real fHalf = static_cast<Real>(0.5);
  const Real fBelow = Real{1} - fHalf / fTop;
  if (fMag < static_cast<Real>(0.1 * static_cast<R8>(fBelow)) || fTop - fMag <= fHalf) return -1;

  I4 NDecimal = NDigit;
  for (Real fPower{1}; NDecimal > 0 && fMag >= fPower * fBelow; fPower *= Real{10}) --NDecimal;
  return NDecimal;
}

/// Without an exponent, blanks stand where it would be: columns of such numbers line up.
template <class Real>
std::string_view Write_General(Real x, const EditForm& form, char* sOut) {
  const I4 NDecimal = Decimals_of_General(std::abs(x), form.NDecimal);
  if (NDecimal < 0) return Write_Scientific(static_cast<R8>(x), form, sOut);
  const I4 NBlank = std::min(form.NExponent == 0 ? 4 : form.NExponent + 2, form.NWidth - 1);
  const std::string_view sText = Write_Fixed(static_cast<R8>(x), form.NWidth - NBlank, NDecimal, sOut);
  if (sText.empty()) return {};
  std::fill_n(sOut + sText.size(), NBlank, ' ');
  return {sOut, static_cast<std::size_t>(form.NWidth)};
}

template <class Real>
std::string_view Write_Real(Real x, const EditForm& form, char* sOut) {
  if (!std::isfinite(x) || form.NWidth > MFormText) return {};
  switch (form.iKind) {
    case EditKind::Fixed: return Write_Fixed(static_cast<R8>(x), form.NWidth, form.NDecimal, sOut);
    case EditKind::Scientific: return Write_Scientific(static_cast<R8>(x), form, sOut);
    case EditKind::General: return form.NWidth == 0 ? std::string_view{} : Write_General(x, form, sOut);
    case EditKind::Bad: break;
  }
  return {};
}

/// A digit before the point, and no zeros at the end. Zeros at the end of an exponent stay also where it has no letter
/// ("1.0000-100"): they are part of the number.
Text<16> Tidy(std::string_view sNumber) {
  std::array<char, NField + 1> sFull;
  std::size_t NFull = 0;
  if (sNumber.starts_with('-')) {
    sFull[NFull++] = '-';
    sNumber.remove_prefix(1);
  }
  if (sNumber.starts_with('.')) sFull[NFull++] = '0';
  NFull += sNumber.copy(sFull.data() + NFull, sFull.size() - NFull);
  const std::string_view sText(sFull.data(), std::min(NFull, NField));
  if (sNumber.find_first_of("+-") != std::string_view::npos) return sText;
  return Str_Trim0(sText).trimmed();
}

template <class Real>
Text<16> Write_Tidy(Real x, const EditForm& form) {
  std::array<char, MFormText> sOut;
  if (!Is_Present(x)) return "*";
  const std::string_view sForm = Write_Form(x, form, sOut.data());
  if (sForm.empty() || sForm.size() > NField) return "*";
  return Tidy(Trimmed(Left_Adjusted(sForm)));
}

}  // namespace

std::string_view Write_Form(R8 dValue, const EditForm& form, char* sOut) {
  return Write_Real(dValue, form, sOut);
}

std::string_view Write_Form(R4 fValue, const EditForm& form, char* sOut) {
  return Write_Real(fValue, form, sOut);
}

Text<16> Str_Write_I4(I4 iValue) {
  return iValue < iDummyLimit ? "*" : std::to_string(iValue);
}

Text<16> Str_Write_I4F22(I4 iValue) {
  if (iValue < 0 || iValue > 9) return Str_Write_I4(iValue);
  const std::array<char, 2> sDigit{'0', static_cast<char>('0' + iValue)};
  return std::string_view(sDigit.data(), sDigit.size());
}

Text<16> Str_Write_R4(R4 fValue, const EditForm& form) {
  return Write_Tidy(fValue, form);
}

Text<16> Str_Write_R8(R8 dValue, const EditForm& form) {
  return Write_Tidy(dValue, form);
}

Text<16> Str_Write_XYZR8(R8 dValue) {
  static constexpr EditForm formFixed("(F0.3)"), formGeneral("(1P,G15.7)"), formScientific("(ES9.1)");
  const R8 dMag = std::abs(dValue);
  return Write_Tidy(dValue, dMag < dXYZFixed ? formFixed : dMag < dXYZGeneral ? formGeneral : formScientific);
}

Text<16> Str_Write_Brg(R4 fAzimuth) {
  struct Quadrant {
    std::string_view sCardinal, sFrom, sTo;
    R4 fOrigin;  // degrees, where the bearing is counted from
    R4 fSense;   // +1 clockwise
  };
  static constexpr Quadrant hQuadrant[] = {
      {"N", "N", "E", 0.0f,   1.0f },
      {"E", "S", "E", 180.0f, -1.0f},
      {"S", "S", "W", 180.0f, 1.0f },
      {"W", "N", "W", 360.0f, -1.0f},
  };
  if (!Is_Present(fAzimuth) || std::isinf(fAzimuth)) return "*";
  const R4 fTurn = std::fmod(360.0f + fAzimuth, 360.0f);
  const R4 fQuadrant = std::floor(fAzimuth / 90.0f);
  if (fQuadrant < 0.0f || fQuadrant > 3.0f) return Str_Write_I4(Nint(fTurn));

  const Quadrant& h = hQuadrant[static_cast<I4>(fQuadrant)];
  // One-sided on purpose: 90.2 is east, 89.8 is N90E.
  if (fAzimuth - 90.0f * fQuadrant < fNearest) return h.sCardinal;
  const Text<16> sDegrees = Str_Write_I4(Nint(h.fSense * (fTurn - h.fOrigin)));
  return std::string(h.sFrom).append(sDegrees.trimmed()).append(h.sTo);
}

I4 NReqDecR8(R8 dValue) {
  static constexpr EditForm form("F16.3");
  std::array<char, MFormText> sOut;
  const std::string_view sText = Write_Form(dValue, form, sOut.data());
  if (sText.empty()) return 3;  // a number too wide shows all the decimals there are
  if (sText[14] != '0') return 3;
  return sText[13] != '0' ? 2 : 1;
}

}  // namespace quillan
