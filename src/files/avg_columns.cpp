#include "files/avg_columns.h"

#include <algorithm>
#include <string>
#include <vector>

namespace quillan {
namespace {

const std::vector<std::string> sUpperLabel = [] {
  std::vector<std::string> sUpper;
  for (const AvgColumn& h : hAvgColumn) sUpper.push_back(Str_UpCase(h.sLabel));
  return sUpper;
}();
const std::vector<std::string_view> hLabel(sUpperLabel.begin(), sUpperLabel.end());

const std::vector<AliasRow> hAlias = [] {
  std::vector<AliasRow> hRow;
  for (std::size_t K = 0; K < hLabel.size(); ++K) {
    FieldList hSpelling(MAvgColumn);
    Str_Parse_Fld(hAvgColumn[K].CAlias, hSpelling);
    for (I4 I = 1; I <= hSpelling.NFld(); ++I) hRow.push_back({hSpelling(I), hLabel[K]});
  }
  std::sort(hRow.begin(), hRow.end(),
            [](const AliasRow& h1, const AliasRow& h2) { return h1.sSpelling < h2.sSpelling; });
  return hRow;
}();

}  // namespace

const std::span<const std::string_view> CAvgLabel(hLabel);
const std::span<const AliasRow> CAvgAlias(hAlias);

}  // namespace quillan
