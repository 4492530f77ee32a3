// edit_form.h: how a number is laid out in text, read from the notation of the file formats.
//
//   (F12.3)        fixed: 12 wide, 3 decimals; F0.3: as wide as it needs
//   (ES12.4E1)     scientific, one digit before the point, exponent of 1 digit; without E: at least 2 digits
//   (1P,G14.4E1)   general: fixed with 4 significant digits while that fits, else scientific with one digit
//                  before the point
//
// The outer brackets may be left out.
#pragma once

#include <string_view>

#include "base/types.h"

namespace quillan {

enum class EditKind { Bad, Fixed, Scientific, General };

struct EditForm {
  EditKind iKind = EditKind::Bad;
  I4 NWidth = 0;     // characters; 0: the least width (kind F only)
  I4 NDecimal = 0;   // digits after the point; significant digits for kind G
  I4 NExponent = 0;  // digits of the exponent; 0: not given

  constexpr EditForm() = default;
  /// A text that is no form gives the kind Bad, which writes nothing.
  constexpr EditForm(const char* sForm) : EditForm(std::string_view(sForm)) {}
  constexpr EditForm(std::string_view sForm) {
    if (Take(sForm, "(") && (sForm.empty() || sForm.back() != ')')) return;
    if (!sForm.empty() && sForm.back() == ')') sForm.remove_suffix(1);
    const EditKind iRead = Take(sForm, "1P,G") || Take(sForm, "1PG") ? EditKind::General
                           : Take(sForm, "ES")                       ? EditKind::Scientific
                           : Take(sForm, "F")                        ? EditKind::Fixed
                                                                     : EditKind::Bad;
    if (iRead == EditKind::Bad) return;
    if (!Take_Number(sForm, NWidth) || !Take(sForm, ".") || !Take_Number(sForm, NDecimal)) return;
    if (Take(sForm, "E") && (iRead == EditKind::Fixed || !Take_Number(sForm, NExponent) || NExponent == 0)) return;
    if (sForm.empty()) iKind = iRead;
  }

  friend bool operator==(const EditForm&, const EditForm&) = default;

 private:
  static constexpr bool Take(std::string_view& sForm, std::string_view sWord) {
    if (!sForm.starts_with(sWord)) return false;
    sForm.remove_prefix(sWord.size());
    return true;
  }
  static constexpr bool Take_Number(std::string_view& sForm, I4& NValue) {
    NValue = 0;
    bool bAny = false;
    for (; !sForm.empty() && sForm.front() >= '0' && sForm.front() <= '9' && NValue < 1000; sForm.remove_prefix(1)) {
      NValue = 10 * NValue + (sForm.front() - '0');
      bAny = true;
    }
    return bAny;
  }
};

}  // namespace quillan
