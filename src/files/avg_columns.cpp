#include "files/avg_columns.h"

#include <algorithm>
#include <array>

#include "base/text.h"

namespace quillan {
namespace {

constexpr auto hUpperLabel = [] {
  std::array<Text<16>, MAvgColumn> hLabel;
  for (std::size_t K = 0; K < hLabel.size(); ++K) {
    std::array<char, 16> sUpper{};
    const std::string_view sLabel = hAvgColumn[K].sLabel;
    std::transform(sLabel.begin(), sLabel.end(), sUpper.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    hLabel[K] = std::string_view(sUpper.data(), sLabel.size());
  }
  return hLabel;
}();

constexpr auto hLabel = [] {
  std::array<std::string_view, MAvgColumn> CLabel;
  for (std::size_t K = 0; K < CLabel.size(); ++K) CLabel[K] = hUpperLabel[K].trimmed();
  return CLabel;
}();

/// Calls Take(spelling, number of its column from 0) for each other spelling.
template <class Step>
constexpr void For_Each_Alias(Step Take) {
  for (std::size_t K = 0; K < hLabel.size(); ++K) {
    for (std::string_view CRest = hAvgColumn[K].CAlias; !CRest.empty();) {
      const std::string_view CSpelling = CRest.substr(0, CRest.find(' '));
      Take(CSpelling, K);
      CRest.remove_prefix(std::min(CSpelling.size() + 1, CRest.size()));
    }
  }
}

constexpr std::size_t NAlias = [] {
  std::size_t N = 0;
  For_Each_Alias([&](std::string_view, std::size_t) { ++N; });
  return N;
}();

constexpr auto hAlias = [] {
  std::array<AliasRow, NAlias> hRow;
  std::size_t N = 0;
  For_Each_Alias([&](std::string_view CSpelling, std::size_t K) { hRow[N++] = {CSpelling, hLabel[K]}; });
  std::sort(hRow.begin(), hRow.end(),
            [](const AliasRow& h1, const AliasRow& h2) { return h1.sSpelling < h2.sSpelling; });
  return hRow;
}();

}  // namespace

constinit const std::span<const std::string_view> CAvgLabel = hLabel;
constinit const std::span<const AliasRow> CAvgAlias = hAlias;

}  // namespace quillan
