// The column labels of a file matched to the variables of the program.

#include <algorithm>

#include "foundations/log_file.h"
#include "foundations/str_parse.h"
#include "foundations/user.h"

namespace quillan {

namespace {

constexpr std::size_t MMissing = 3;  // missing columns that are named

/// Cuts the labels of a record and begins a match of N variables. Returns the labels in upper case.
std::vector<std::string> Begin_Match(std::string_view sRecord, std::size_t N, I4 MFC, ColumnMap& hColumn) {
  FieldList hField(MFC);
  Str_Parse_Fld(sRecord, hField);
  hColumn.NFC = hField.NFld();
  hColumn.KCol.assign(N, 0);
  hColumn.JCol.assign(static_cast<std::size_t>(std::max(MFC, 0)), 0);
  hColumn.sLabel.clear();
  std::vector<std::string> CLabel;
  for (I4 K = 1; K <= hField.NFld(); ++K) {
    hColumn.sLabel.emplace_back(hField(K));
    CLabel.push_back(Str_UpCase(hField(K)));
  }
  return CLabel;
}

bool Label_Matches(std::string_view CLabel, std::string_view CID, bool bExactMatch) {
  return bExactMatch ? CLabel == Trimmed(CID) : CLabel.find(Trimmed(CID)) != std::string_view::npos;
}

/// j and k count from 0 here.
void Join(std::size_t j, std::size_t k, ColumnMap& hColumn) {
  hColumn.KCol[j] = static_cast<I4>(k + 1);
  hColumn.JCol[k] = static_cast<I4>(j + 1);
}

/// What the label stands for: aliases are ascending, so the walk ends where the label would stand.
std::string_view Translated(std::string_view CLabel, std::span<const AliasRow> CAlias) {
  for (const AliasRow& hRow : CAlias) {
    const std::string_view CSpelling = Trimmed(hRow.sSpelling);
    if (CLabel == CSpelling) return Trimmed(hRow.sLabel);
    if (CLabel < CSpelling) break;
  }
  return CLabel;
}

/// Reports the variables without a column, three at most; sBefore stands before the name of each. Returns 1 when any is
/// missing, else 0.
I4 Report_Missing(const ColumnMap& hColumn, std::span<const std::string_view> CID, std::string_view sBefore) {
  ErrorLines sError;
  for (std::size_t j = 0; j < hColumn.KCol.size() && sError.size() < MMissing; ++j) {
    if (hColumn.KCol[j] != 0) continue;
    const std::string sLine = std::string(sBefore).append(Trimmed(CID[j])).append(" column.");
    sError.emplace_back(Cut_Text(sLine, MErrText));
  }
  if (sError.empty()) return 0;
  LogErr(sError);
  return 1;
}

bool Is_Complete(const ColumnMap& hColumn) {
  return std::find(hColumn.KCol.begin(), hColumn.KCol.end(), 0) == hColumn.KCol.end();
}

/// Makes "none" the last entry of the labels and the choice of every variable without a column. Returns its place.
I4 Add_None(I4 MFC, ColumnMap& hColumn) {
  const I4 nLabel = std::max(1, std::min(MFC, hColumn.NFC + 1));
  hColumn.sLabel.resize(static_cast<std::size_t>(nLabel));
  hColumn.sLabel.back() = "none";
  std::replace(hColumn.KCol.begin(), hColumn.KCol.end(), 0, nLabel);
  return nLabel;
}

/// Whether a required variable has its column shows in the case of the word.
std::vector<std::string> Status_Words(const ColumnMap& hColumn, std::span<const I4> JCheck, I4 nLabel) {
  std::vector<std::string> sStatus(hColumn.KCol.size(), "Optional");
  for (const I4 J : JCheck) {
    const std::size_t j = static_cast<std::size_t>(J - 1);
    if (j < sStatus.size()) sStatus[j] = hColumn.KCol[j] < nLabel ? "Required" : "REQUIRED";
  }
  return sStatus;
}

/// Takes the user's choices as the columns of the variables; nLabel is the entry for none.
void Take_Columns(I4 nLabel, ColumnMap& hColumn) {
  std::fill(hColumn.JCol.begin(), hColumn.JCol.end(), 0);
  for (std::size_t j = 0; j < hColumn.KCol.size(); ++j) {
    I4& K = hColumn.KCol[j];
    if (K < 1 || K >= nLabel) K = 0;
    if (K > 0) hColumn.JCol[static_cast<std::size_t>(K - 1)] = static_cast<I4>(j + 1);
  }
}

/// The required variables that have no column, joined by commas.
std::string Missing_Required(std::span<const std::string_view> CID, std::span<const I4> JCheck,
                             const ColumnMap& hColumn) {
  std::string sList;
  for (const I4 J : JCheck) {
    const std::size_t j = static_cast<std::size_t>(J - 1);
    if (j >= CID.size() || hColumn.KCol[j] != 0) continue;
    if (!sList.empty()) sList += ", ";
    sList += Trimmed(CID[j]);
  }
  return sList;
}

}  // namespace

I4 Str_Column_Labels(std::string_view sRecord, bool bReportErr, bool bExactMatch, std::span<const std::string_view> CID,
                     I4 MFC, ColumnMap& hColumn) {
  const auto CLabel = Begin_Match(sRecord, CID.size(), MFC, hColumn);
  for (std::size_t j = 0; j < CID.size(); ++j) {
    for (std::size_t k = 0; k < CLabel.size() && hColumn.KCol[j] == 0; ++k) {
      if (hColumn.JCol[k] == 0 && Label_Matches(CLabel[k], CID[j], bExactMatch)) Join(j, k, hColumn);
    }
  }
  return bReportErr ? Report_Missing(hColumn, CID, " ERROR: Could not find ") : 0;
}

I4 Str_Column_Labels_Alias_List(std::string_view sRecord, bool bReportErr, bool bExactMatch,
                                std::span<const AliasRow> CAlias, std::span<const std::string_view> CID, I4 MFC,
                                ColumnMap& hColumn) {
  const auto CLabel = Begin_Match(sRecord, CID.size(), MFC, hColumn);
  for (std::size_t k = 0; k < CLabel.size(); ++k) {
    const std::string_view CWork = Translated(CLabel[k], CAlias);
    for (std::size_t j = 0; j < CID.size() && hColumn.JCol[k] == 0; ++j) {
      if (hColumn.KCol[j] == 0 && Label_Matches(CWork, CID[j], bExactMatch)) Join(j, k, hColumn);
    }
  }
  return bReportErr ? Report_Missing(hColumn, CID, "ERROR: Could not find ") : 0;
}

I4 Str_Column_Labels_Dialog(std::string_view sFileName, std::string_view sRecord, bool bExactMatch,
                            std::span<const AliasRow> CAlias, std::span<const std::string_view> CID,
                            std::span<const std::string_view> sVariable, std::span<const I4> JCheck, I4 MFC,
                            ColumnMap& hColumn) {
  const I4 iError = Str_Column_Labels_Alias_List(sRecord, false, bExactMatch, CAlias, CID, MFC, hColumn);
  if (Is_Complete(hColumn)) return iError;

  const ColumnMap hFound = hColumn;
  const I4 nLabel = Add_None(MFC, hColumn);
  const std::vector<std::string> sStatus = Status_Words(hColumn, JCheck, nLabel);
  std::vector<std::string> sWord(sVariable.begin(), sVariable.end());
  sWord.resize(hColumn.KCol.size());
  std::vector<I4> KChoice = hColumn.KCol;  // of the entries, the one for none among them
  while (hUser.Which_Columns({Trimmed(sFileName), sWord, sStatus, hColumn.sLabel, KChoice})) {
    hColumn.KCol = KChoice;
    Take_Columns(nLabel, hColumn);
    const std::string sMissing = Missing_Required(CID, JCheck, hColumn);
    if (sMissing.empty()) return 0;
    LogErr({"ERROR: Missing required data-column labels", sMissing + " in", std::string(sRecord)});
  }
  hColumn = hFound;  // "none" is no column that a caller could read
  return 2;
}

}  // namespace quillan
