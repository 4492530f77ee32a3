// str_parse_fuzz.cpp: the cutters of records, the label matchers and the tidiers of text, on any bytes.
//
// The first byte chooses the capacity of the lists, the second the width of their fields; the rest is the record.
#include <algorithm>

#include "foundations/str_parse.h"
#include "fuzz/fuzz_file.h"

namespace {

using namespace quillan;

/// The cut done the long way: commas are moved in front of blanks one by one, then the characters are walked.
std::vector<std::string> Cut_by_Walking(std::string_view sRecord, std::size_t MFld) {
  std::string sWork(Left_Adjusted(sRecord));
  sWork.resize(sRecord.size() + 1, ' ');
  std::replace(sWork.begin(), sWork.end(), '\t', ' ');
  for (std::size_t i = sWork.find(" ,"); i != std::string::npos; i = sWork.find(" ,"))
    std::swap(sWork[i], sWork[i + 1]);

  std::vector<std::string> sField;
  const std::size_t NTrim = Trimmed(sWork).size();
  std::size_t iBeg = 0;
  bool bBlank = true, bQuote = false;
  for (std::size_t i = 0; i <= NTrim && i < sWork.size(); ++i) {
    const char c = sWork[i];
    if (c == '"') {
      if (!bQuote) bBlank = false;
      bQuote = !bQuote;
    } else if (!bQuote && (c == ',' || (c == ' ' && !bBlank))) {
      if (sField.size() == MFld) break;
      sField.push_back(sWork.substr(iBeg, i - iBeg));
      bBlank = true;
      iBeg = i + 1;
    } else if (!bQuote && c == ' ') {
      iBeg = i + 1;
    } else if (!bQuote) {
      bBlank = false;
    }
  }
  for (std::string& s : sField) s = s.find('"') == std::string::npos ? Trimmed(s) : Str_Strip_Quotes(s);
  return sField;
}

void Check_Fields(const FieldList& hField, std::size_t NWidth) {
  Require(hField.NFld() <= std::max(0, hField.MFld()));
  for (I4 K = 1; K <= hField.NFld(); ++K) {
    const std::string_view sField = hField(K);
    Require(Trimmed(sField).size() == sField.size());
    Require(NWidth == 0 || sField.size() <= NWidth);
    Require(sField.find('"') == std::string_view::npos);
  }
}

void Cut_Record(std::string_view sRecord, I4 MFld, I4 NWidth) {
  FieldList hField(MFld, NWidth);
  Str_Parse_Fld(sRecord, hField);
  Check_Fields(hField, static_cast<std::size_t>(NWidth));
  if (NWidth == 0) {
    const std::vector<std::string> sExpected = Cut_by_Walking(sRecord, static_cast<std::size_t>(MFld));
    Require(static_cast<std::size_t>(hField.NFld()) == sExpected.size());
    for (I4 K = 1; K <= hField.NFld(); ++K) Require(hField(K) == sExpected[static_cast<std::size_t>(K - 1)]);
  }
  Str_to_Fld(sRecord, ",", hField);
  Check_Fields(hField, static_cast<std::size_t>(NWidth));
  if (MFld > 0 && !Trimmed(sRecord).empty() && sRecord.find('"') == std::string_view::npos) Require(hField.NFld() > 0);
  Str_to_Fld(sRecord, ":;/", hField);
  Check_Fields(hField, static_cast<std::size_t>(NWidth));
}

/// Each variable that has a column is the variable of that column, and each column's of its variable.
void Check_Map(const ColumnMap& hColumn) {
  for (std::size_t j = 0; j < hColumn.KCol.size(); ++j) {
    const I4 K = hColumn.KCol[j];
    Require(K >= 0 && K <= static_cast<I4>(hColumn.sLabel.size()));
    if (K > 0) Require(hColumn.JCol[static_cast<std::size_t>(K - 1)] == static_cast<I4>(j + 1));
  }
  const auto Matched = [](const std::vector<I4>& i) {
    return std::count_if(i.begin(), i.end(), [](I4 I) { return I > 0; });
  };
  Require(Matched(hColumn.KCol) == Matched(hColumn.JCol));
}

void Match_Labels(std::string_view sRecord, I4 MFld) {
  constexpr std::string_view CID[] = {"STN", "EAST", "NORTH", "E", "A"};
  constexpr AliasRow CAlias[] = {
      {"A", "EAST" },
      {"B", "STN"  },
      {"X", "NORTH"}
  };
  ColumnMap hByVariable, hByColumn, hMap;
  for (const bool bExact : {false, true}) {
    const I4 iError = Str_Column_Labels(sRecord, bExact, bExact, CID, MFld, hByVariable);
    Check_Map(hByVariable);
    Require(iError == (bExact && std::count(hByVariable.KCol.begin(), hByVariable.KCol.end(), 0) > 0 ? 1 : 0));
    Require(Str_Column_Labels_Alias_List(sRecord, false, bExact, {}, CID, MFld, hByColumn) == 0);
    Require(hByColumn.KCol == hByVariable.KCol);
    Require(Str_Column_Labels_Alias_List(sRecord, bExact, bExact, CAlias, CID, MFld, hMap) <= 1);
    Check_Map(hMap);
  }
}

void Tidy_Text(std::string_view sText) {
  const std::string_view sNumber = sText.substr(0, sText.find_first_not_of("+-0123456789."));
  const Text<32> sShort = Str_Trim0(sNumber);
  Require(sShort.trimmed().size() <= std::max<std::size_t>(sNumber.size(), 1));
  if (std::count(sNumber.begin(), sNumber.end(), '.') == 1) Require(Str_Trim0(sShort.trimmed()) == sShort);
  Require(Str_Squish(sText).find_first_of(" \t") == std::string::npos);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* hData, std::size_t NData) {
  if (NData < 2) return 0;
  Begin_Fuzzing();
  const std::string_view sRecord(reinterpret_cast<const char*>(hData + 2), std::min<std::size_t>(NData - 2, 4000));
  Cut_Record(sRecord, hData[0] % 64, hData[1] % 24);
  Match_Labels(sRecord, hData[0] % 64);
  Tidy_Text(sRecord);
  return 0;
}
