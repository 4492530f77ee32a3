// text.h: text of a fixed width, as records, titles and file formats hold it.
//
// A Text<N> holds N bytes, padded with blanks. It is cut when it is assigned, but never inside a character of
// UTF-8, and it is compared without its trailing blanks. Nothing here allocates.
#pragma once

#include <algorithm>
#include <array>
#include <cstring>
#include <string>
#include <string_view>

#include "base/types.h"

namespace quillan {

/// An ASCII letter in upper case; any other character as it is.
constexpr char Upper_Case(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

/// Without trailing blanks. Leading blanks stay.
constexpr std::string_view Trimmed(std::string_view sText) {
  while (!sText.empty() && sText.back() == ' ') sText.remove_suffix(1);
  return sText;
}

/// Without leading blanks.
constexpr std::string_view Left_Adjusted(std::string_view sText) {
  while (!sText.empty() && sText.front() == ' ') sText.remove_prefix(1);
  return sText;
}

/// The first NMax bytes, or fewer where that would split a character of well-formed UTF-8.
constexpr std::string_view Cut_Text(std::string_view sText, std::size_t NMax) {
  if (sText.size() <= NMax) return sText;
  const auto bContinues = [&](std::size_t I) { return (static_cast<unsigned char>(sText[I]) & 0xC0U) == 0x80U; };
  if (!bContinues(NMax)) return sText.substr(0, NMax);
  std::size_t NCut = NMax;
  while (NCut > 0 && NMax - NCut < 3 && bContinues(NCut)) --NCut;
  // Only with the lead byte of a sequence is it a split character, and not bytes of another encoding.
  const bool bLead = static_cast<unsigned char>(sText[NCut]) >= 0xC2U;
  return sText.substr(0, bLead ? NCut : NMax);
}

template <I4 N>
class Text {
 public:
  static constexpr I4 NWidth = N;

  constexpr Text() { hByte.fill(' '); }
  constexpr Text(std::string_view sText) { *this = sText; }
  constexpr Text(const char* sText) { *this = std::string_view(sText); }
  Text(const std::string& sText) { *this = std::string_view(sText); }

  constexpr Text& operator=(std::string_view sText) {
    const std::string_view sCut = Cut_Text(sText, hByte.size());
    std::copy(sCut.begin(), sCut.end(), hByte.begin());
    std::fill(hByte.begin() + static_cast<std::ptrdiff_t>(sCut.size()), hByte.end(), ' ');
    return *this;
  }
  constexpr Text& operator=(const char* sText) { return *this = std::string_view(sText); }
  Text& operator=(const std::string& sText) { return *this = std::string_view(sText); }

  /// The text without its trailing blanks.
  constexpr std::string_view trimmed() const { return Trimmed({hByte.data(), hByte.size()}); }
  /// All N bytes.
  constexpr std::string_view padded() const { return {hByte.data(), hByte.size()}; }
  constexpr bool Is_Blank() const { return trimmed().empty(); }
  std::string str() const { return std::string(trimmed()); }

  friend constexpr bool operator==(const Text& s1, const Text& s2) { return s1.trimmed() == s2.trimmed(); }
  friend constexpr bool operator==(const Text& s1, std::string_view s2) { return s1.trimmed() == Trimmed(s2); }
  friend constexpr bool operator==(const Text& s1, const char* s2) { return s1 == std::string_view(s2); }

 private:
  std::array<char, static_cast<std::size_t>(N)> hByte{};
};

}  // namespace quillan
