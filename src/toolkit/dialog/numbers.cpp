// Numbers as they stand in fields and grid cells.
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "toolkit/dialog/private_dialog.h"

namespace quillan::toolkit {
namespace {

constexpr I4 MDecimal = 100;  // more digits than a screen has room for

std::string Digits(R8 dValue, std::chars_format iFormat, I4 NDecimal) {
  std::array<char, 512> hBuffer;  // the longest fixed number has 309 digits before the point
  const auto hEnd = std::to_chars(hBuffer.data(), hBuffer.data() + hBuffer.size(), dValue, iFormat,
                                  std::clamp(NDecimal, 0, MDecimal));
  return {hBuffer.data(), hEnd.ptr};
}

/// The digits and the exponent of "1.25e+04"; the exponent with at least NExponent digits, two where no number is
/// given.
std::string With_Exponent(const std::string& sDigits, I4 NExponent) {
  const auto iExponent = sDigits.find('e');
  if (iExponent == std::string::npos) return sDigits;
  std::string sExponent = sDigits.substr(iExponent + 2);
  const std::size_t NLeast = NExponent > 0 ? static_cast<std::size_t>(NExponent) : 2;
  while (sExponent.size() > NLeast && sExponent.front() == '0') sExponent.erase(0, 1);
  return sDigits.substr(0, iExponent) + 'E' + sDigits[iExponent + 1] + sExponent;
}

std::string Scientific(R8 dValue, I4 NDecimal, I4 NExponent) {
  return With_Exponent(Digits(dValue, std::chars_format::scientific, NDecimal), NExponent);
}

/// Fixed as long as that fits the width: a value out of all proportion must not fill the screen.
std::string Fixed(R8 dValue, const EditForm& form) {
  const std::string sText = Digits(dValue, std::chars_format::fixed, form.NDecimal);
  const bool bFits = form.NWidth == 0 || sText.size() <= static_cast<std::size_t>(form.NWidth);
  return bFits ? sText : Scientific(dValue, 4, 0);
}

std::string General(R8 dValue, const EditForm& form) {
  const std::string sDigits = Digits(dValue, std::chars_format::scientific, form.NDecimal - 1);
  const auto iPlace = sDigits.find('e');
  I4 iExponent = 0;  // after rounding: 9999.96 has five digits before the point
  const char* sExponent = sDigits.data() + iPlace + (sDigits[iPlace + 1] == '+' ? 2 : 1);
  std::from_chars(sExponent, sDigits.data() + sDigits.size(), iExponent);
  if (iExponent < -1 || iExponent >= form.NDecimal) return Scientific(dValue, form.NDecimal, form.NExponent);
  return Digits(dValue, std::chars_format::fixed, form.NDecimal - 1 - iExponent);
}

std::string Shortest(R8 dValue) {
  std::array<char, 64> hBuffer;
  const auto hEnd = std::to_chars(hBuffer.data(), hBuffer.data() + hBuffer.size(), dValue);
  return With_Exponent({hBuffer.data(), hEnd.ptr}, 1);
}

std::string Real_Text(R8 dValue, const EditForm& form) {
  if (!std::isfinite(dValue)) return Shortest(dValue);
  switch (form.iKind) {
    case EditKind::Fixed: return Fixed(dValue, form);
    case EditKind::Scientific: return Scientific(dValue, form.NDecimal, form.NExponent);
    case EditKind::General: return General(dValue, form);
    case EditKind::Bad: break;
  }
  return Shortest(dValue);
}

/// The whole text as one number.
template <class Number>
std::optional<Number> Parsed(std::string_view sText) {
  Number x{};
  const auto hEnd = std::from_chars(sText.data(), sText.data() + sText.size(), x);
  return hEnd.ec == std::errc{} && hEnd.ptr == sText.data() + sText.size() ? std::optional(x) : std::nullopt;
}

/// A value of the field's own type, in R8, where each type is exact.
std::optional<R8> Parsed_as(FieldKind iKind, std::string_view sText) {
  const auto In_R8 = [](auto hRead) { return hRead ? std::optional(static_cast<R8>(*hRead)) : std::nullopt; };
  switch (iKind) {
    case FieldKind::Integer: return In_R8(Parsed<I4>(sText));
    case FieldKind::Real: return In_R8(Parsed<R4>(sText));
    default: return Parsed<R8>(sText);
  }
}

}  // namespace

QString Number_Text(R8 dValue, const NumberRule& rule) {
  if (rule.iKind == FieldKind::Integer) return QString::number(static_cast<I4>(dValue));
  return Is_Present(dValue) ? QString::fromStdString(Real_Text(dValue, rule.form)) : QString();
}

std::optional<R8> Read_Number(const QString& sText, const NumberRule& rule) {
  const std::string sTrimmed = sText.trimmed().toStdString();
  std::string_view sNumber = sTrimmed;
  if (sNumber.starts_with('+') && !sNumber.starts_with("+-")) sNumber.remove_prefix(1);
  // The range is compared with the number as typed: 1E-9 rounds to an R4 just below 1E-9.
  const auto dTyped = Parsed<R8>(sNumber);
  if (!dTyped || *dTyped < rule.dLow || *dTyped > rule.dHigh) return {};
  if (rule.bNotZero && *dTyped == 0.0) return {};
  const auto dOwn = Parsed_as(rule.iKind, sNumber);
  return dOwn && std::isfinite(*dOwn) ? dOwn : std::nullopt;
}

bool Is_Bad_Number(const QString& sText, const NumberRule& rule) {
  return !sText.trimmed().isEmpty() && !Read_Number(sText, rule);
}

QString Range_Words(const NumberRule& rule) {
  const bool bRange = std::isfinite(rule.dLow) && std::isfinite(rule.dHigh);
  const QString sLeaves = " leaves the old value, and so does an empty field.";
  if (rule.bNotZero) return " 0 or a text that is no number" + sLeaves;
  if (!bRange) return " A text that is no number" + sLeaves;
  return QString(" Range: %1 to %2. A text that is no number or out of range")
             .arg(Shortest(rule.dLow).c_str(), Shortest(rule.dHigh).c_str()) +
         sLeaves;
}

}  // namespace quillan::toolkit
