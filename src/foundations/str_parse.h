// str_parse.h: records cut into fields, labels matched to variables, words matched to enumerations.
//
// Every reader of the program is forgiving: the same record may be delimited by blanks, commas or tabs, a label may
// be spelled in several ways, a keyword may be misspelled. What counts as a field and how a label matches is here.
#pragma once

#include <list>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "base/types.h"

namespace quillan {

/// The fields of one record. Field I runs from 1 to NFld; a field is a view into the record, or into the list where
/// quotes were taken out of it, and lives until the next record is cut into the list.
class FieldList {
 public:
  /// MFld: how many fields are kept. NWidth: characters kept of each; 0 keeps all.
  explicit FieldList(I4 MFld, I4 NWidth = 0);

  I4 MFld() const { return MField; }
  I4 NFld() const { return static_cast<I4>(sField.size()); }
  /// Blank for an index beyond NFld.
  std::string_view operator()(I4 I) const {
    return I >= 1 && I <= NFld() ? sField[static_cast<std::size_t>(I - 1)] : std::string_view{};
  }

  void Clear();
  bool Is_Full() const { return NFld() >= MField; }
  /// Adds a field: trailing blanks go, and it is cut to the list's width.
  void Add(std::string_view sText) { sField.push_back(Trimmed(Cut_Text(sText, NWidth))); }
  /// Adds a field whose quotes (and tabs, where bTabs) become blanks and whose leading blanks go. It is cut first.
  void Add_Unquoted(std::string_view sText, bool bTabs);
  /// Keeps a text as long as the fields, for fields that are no part of the record as it stands.
  std::string& Keep(std::string sText);

  FieldList(const FieldList&) = delete;  // the fields of a copy would be views into texts of the other list
  FieldList& operator=(const FieldList&) = delete;
  FieldList(FieldList&&) = default;
  FieldList& operator=(FieldList&&) = default;

 private:
  I4 MField;
  std::size_t NWidth;
  std::vector<std::string_view> sField;
  std::list<std::string> sOwned;  // texts of the fields that could not stay views; they never move
};

/// Fields separated by blanks, commas and tabs; a comma separates even with blanks on either side, a run of blanks is
/// one separator, double quotes protect blanks and commas. "a,,b" has three fields; a trailing comma adds none; a
/// quote that never closes loses its field. Fields beyond the list's capacity are dropped in silence.
void Str_Parse_Fld(std::string_view sRecord, FieldList& hField);

/// Fields separated by any of the characters of sSeparators alone. A record that ends in a separator yields no empty
/// last field, and the separator stays at the end of the last field ("a,b," gives "a" and "b,"), which readers upstream
/// of ours rely on. Too many fields are reported and dropped.
void Str_to_Fld(std::string_view sRecord, std::string_view sSeparators, FieldList& hField);

/// A spelling and the label that replaces it; tables are ascending by the spelling.
struct AliasRow {
  std::string_view sSpelling;
  std::string_view sLabel;
};

/// How the columns of a file feed the variables of the program.
struct ColumnMap {
  std::vector<I4> KCol;             // for variable J (index J - 1) its file column K; 0 none
  std::vector<I4> JCol;             // for file column K (index K - 1) its variable J; 0 none
  std::vector<std::string> sLabel;  // the labels as written, column K at index K - 1
  I4 NFC = 0;                       // labels found
};

/// Matches the labels of a record to variables; CID holds the variables' texts in upper case. bExactMatch: the whole
/// label must be equal, else it is enough that it holds the text. bReportErr: unmatched variables are logged.
/// The earliest variable chooses its column. Status: 0; 1 a variable was not found (only with bReportErr).
[[nodiscard]] I4 Str_Column_Labels(std::string_view sRecord, bool bReportErr, bool bExactMatch,
                                   std::span<const std::string_view> CID, I4 MFC, ColumnMap& hColumn);
/// The same, labels first translated through an alias table. The earliest column chooses.
[[nodiscard]] I4 Str_Column_Labels_Alias_List(std::string_view sRecord, bool bReportErr, bool bExactMatch,
                                              std::span<const AliasRow> CAlias, std::span<const std::string_view> CID,
                                              I4 MFC, ColumnMap& hColumn);
/// Str_Column_Labels_Alias_List, then the user completes the match. sVariable: descriptions for the user; JCheck: the
/// variables (from 1) that are required. The record's last column cannot be chosen where it is column MFC, for "none"
/// takes its place in the list. Status: 0; 2 the user cancelled, and the match is the automatic one.
[[nodiscard]] I4 Str_Column_Labels_Dialog(std::string_view sFileName, std::string_view sRecord, bool bExactMatch,
                                          std::span<const AliasRow> CAlias, std::span<const std::string_view> CID,
                                          std::span<const std::string_view> sVariable, std::span<const I4> JCheck,
                                          I4 MFC, ColumnMap& hColumn);

/// The 1-based place of a word in an enumeration given in upper case: an equal entry, else the first entry that occurs
/// in the word, else the user is asked. Status: 0 found; -1 blank or "*", unchanged; 2 the user cancelled, unchanged.
/// sKeyword names the value to the user.
[[nodiscard]] I4 Str_to_iEnumeration(std::string_view sField, std::string_view sKeyword,
                                     std::span<const std::string_view> CEnumeration, I4& iEnumeration);
[[nodiscard]] I4 Str_to_iEnumeration_Dialog(std::string_view CField, std::string_view sKeyword,
                                            std::span<const std::string_view> CEnumeration, I4& iEnumeration);

/// Tabs and double quotes become blanks, leading and trailing blanks go.
std::string Str_Strip_Quotes(std::string_view sText);
/// A plain decimal number without its trailing zeros: "12.500" is "12.5", "12.000" is "12", ".000" is "0". A text with
/// an exponent or without a point stays as it is, left-adjusted.
Text<32> Str_Trim0(std::string_view sText);
/// ASCII letters in upper case.
std::string Str_UpCase(std::string_view sText);
/// Without any blank or tab.
std::string Str_Squish(std::string_view sText);

}  // namespace quillan
