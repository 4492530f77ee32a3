// The column labels of a file matched to the variables of the program, and the values of its rows.

#include <algorithm>

#include "foundations/log_file.h"
#include "foundations/str_parse.h"
#include "foundations/str_value.h"
#include "foundations/user.h"

namespace quillan {

namespace {

constexpr std::size_t MReportLine = 128;  // characters of a reported line
constexpr std::size_t MMissing = 3;       // missing columns that are named
constexpr I4 NValueWidth = 16;            // characters of a value that are read

using CutFields = void (*)(std::string_view, FieldList&);

/// Cuts the labels of a record and begins a match of N variables. Returns the labels in upper case.
std::vector<std::string> Begin_Match(std::string_view sRecord, CutFields Cut, std::size_t N, I4 MFC,
                                     ColumnMap& hColumn) {
  FieldList hField(MFC);
  Cut(sRecord, hField);
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

/// Each variable in turn takes the first column that matches and is free.
void Match_by_Variable(std::span<const std::string> CLabel, std::span<const std::string_view> CID, bool bExactMatch,
                       ColumnMap& hColumn) {
  for (std::size_t j = 0; j < CID.size(); ++j) {
    for (std::size_t k = 0; k < CLabel.size(); ++k) {
      if (hColumn.JCol[k] != 0 || !Label_Matches(CLabel[k], CID[j], bExactMatch)) continue;
      Join(j, k, hColumn);
      break;
    }
  }
}

/// Column k takes the first variable that is free and for which bMatches(j) holds.
template <class Question>
void Match_Column(std::size_t k, Question bMatches, ColumnMap& hColumn) {
  for (std::size_t j = 0; j < hColumn.KCol.size(); ++j) {
    if (hColumn.KCol[j] == 0 && bMatches(j)) return Join(j, k, hColumn);
  }
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

/// A line for each variable without a column, NMax at most.
template <class Name>
ErrorLines Missing_Columns(const ColumnMap& hColumn, std::string_view sBefore, std::size_t NMax, Name sName) {
  ErrorLines sError;
  for (std::size_t j = 0; j < hColumn.KCol.size() && sError.size() < NMax; ++j) {
    if (hColumn.KCol[j] != 0) continue;
    const std::string sLine = std::string(sBefore) + std::string(sName(j)) + " column.";
    sError.emplace_back(Cut_Text(sLine, MReportLine));
  }
  return sError;
}

void Report_Missing(const ErrorLines& sError, I4& iError) {
  if (sError.empty()) return;
  iError = 1;
  LogErr(sError);
}

/// Every missing column is named, in as many reports as that takes.
void Report_All_Missing(std::span<const std::string_view> CID, const ColumnMap& hColumn, I4& iError) {
  const auto sName = [&](std::size_t j) { return Trimmed(CID[j]); };
  const ErrorLines sLine = Missing_Columns(hColumn, "ERROR: Could not find ", CID.size(), sName);
  for (auto it = sLine.begin(); it != sLine.end();) {
    const auto itEnd = it + std::min<std::ptrdiff_t>(MError, sLine.end() - it);
    Report_Missing({it, itEnd}, iError);
    it = itEnd;
  }
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

template <class Real>
void Column_Values(std::string_view sRecord, I4 MFC, I4& NFC, std::span<const I4> KCol, Real rMissing,
                   std::span<Real> rValue) {
  FieldList hField(MFC, NValueWidth);
  Str_Parse_Fld(sRecord, hField);
  NFC = hField.NFld();
  for (std::size_t j = 0; j < std::min(KCol.size(), rValue.size()); ++j) {
    const std::string_view sField = hField(KCol[j]);
    rValue[j] = rMissing;
    if (sField.empty() || sField.find('*') != std::string_view::npos) continue;
    Real rRead = rMissing;
    if (Free_Read(sField, rRead)) rValue[j] = rRead;
  }
}

}  // namespace

void Str_Column_Labels(std::string_view sRecord, bool bReportErr, bool bExactMatch,
                       std::span<const std::string_view> CID, I4 MFC, ColumnMap& hColumn, I4& iError) {
  iError = 0;
  const auto CLabel = Begin_Match(sRecord, Str_Parse_Fld, CID.size(), MFC, hColumn);
  Match_by_Variable(CLabel, CID, bExactMatch, hColumn);
  if (!bReportErr) return;
  const auto sName = [&](std::size_t j) { return Trimmed(CID[j]); };
  Report_Missing(Missing_Columns(hColumn, " ERROR: Could not find ", MMissing, sName), iError);
}

void Str_Column_Labels_Aliased(std::string_view sRecord, bool bReportErr, bool bExactMatch,
                               std::span<const std::vector<std::string_view>> CID, I4 MFC, ColumnMap& hColumn,
                               I4& iError) {
  iError = 0;
  const auto CLabel = Begin_Match(sRecord, Str_Parse_Fld, CID.size(), MFC, hColumn);
  for (std::size_t k = 0; k < CLabel.size(); ++k) {
    const auto bSpelling = [&](std::string_view CSpelling) { return Label_Matches(CLabel[k], CSpelling, bExactMatch); };
    Match_Column(
        k, [&](std::size_t j) { return std::any_of(CID[j].begin(), CID[j].end(), bSpelling); }, hColumn);
  }
  if (!bReportErr) return;
  const auto sName = [&](std::size_t j) { return CID[j].empty() ? std::string_view{} : CID[j].front(); };
  Report_Missing(Missing_Columns(hColumn, " ERROR: Could not find ", MMissing, sName), iError);
}

void Str_Column_Labels_Alias_List(std::string_view sRecord, bool bReportErr, bool bExactMatch,
                                  std::span<const AliasRow> CAlias, std::span<const std::string_view> CID, I4 MFC,
                                  ColumnMap& hColumn, I4& iError) {
  iError = 0;
  const auto CLabel = Begin_Match(sRecord, Str_Parse_Fld, CID.size(), MFC, hColumn);
  for (std::size_t k = 0; k < CLabel.size(); ++k) {
    const std::string_view CWork = Translated(CLabel[k], CAlias);
    Match_Column(
        k, [&](std::size_t j) { return Label_Matches(CWork, CID[j], bExactMatch); }, hColumn);
  }
  if (!bReportErr) return;
  const auto sName = [&](std::size_t j) { return Trimmed(CID[j]); };
  Report_Missing(Missing_Columns(hColumn, "ERROR: Could not find ", MMissing, sName), iError);
}

void Str_Column_Labels_Dialog(std::string_view sFileName, std::string_view sRecord, bool bExactMatch,
                              std::span<const AliasRow> CAlias, std::span<const std::string_view> CID,
                              std::span<const std::string_view> sVariable, std::span<const I4> JCheck, I4 MFC,
                              ColumnMap& hColumn, I4& iError) {
  Str_Column_Labels_Alias_List(sRecord, false, bExactMatch, CAlias, CID, MFC, hColumn, iError);
  if (Is_Complete(hColumn)) return;

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
    if (sMissing.empty()) return;
    LogErr({"ERROR: Missing required data-column labels", sMissing + " in", std::string(sRecord)});
  }
  hColumn = hFound;  // "none" is no column that a caller could read
  iError = 2;
}

void CSV_Column_Labels(std::string_view sRecord, bool bReportErr, bool bExactMatch,
                       std::span<const std::string_view> CID, I4 MFC, ColumnMap& hColumn, I4& iError) {
  iError = 0;
  LogText("Parsing column labels on line:");
  LogText(Cut_Text(Trimmed(sRecord), MReportLine));
  const auto CLabel = Begin_Match(sRecord, CSV_to_Fld, CID.size(), MFC, hColumn);
  Match_by_Variable(CLabel, CID, bExactMatch, hColumn);
  if (bReportErr) Report_All_Missing(CID, hColumn, iError);
  hColumn.NFC = hColumn.KCol.empty() ? 0 : *std::max_element(hColumn.KCol.begin(), hColumn.KCol.end());
}

void Str_Column_R4Values(std::string_view sRecord, I4 MFC, I4& NFC, std::span<const I4> KCol, std::span<R4> fValue) {
  Column_Values(sRecord, MFC, NFC, KCol, fDummy, fValue);
}

void Str_Column_R8Values(std::string_view sRecord, I4 MFC, I4& NFC, std::span<const I4> KCol, std::span<R8> dValue) {
  Column_Values(sRecord, MFC, NFC, KCol, dDummy, dValue);
}

}  // namespace quillan
