#include "foundations/str_parse.h"

#include <algorithm>
#include <array>
#include <limits>

#include "foundations/log_file.h"
#include "foundations/user.h"

namespace quillan {

namespace {

constexpr std::size_t iNone = std::string_view::npos;

bool Is_Blank_or_Tab(char c) {
  return c == ' ' || c == '\t';
}

using CharacterSet = std::array<bool, 256>;

constexpr CharacterSet Set_of(std::string_view sCharacters) {
  CharacterSet bSet{};
  for (const char c : sCharacters) bSet[static_cast<unsigned char>(c)] = true;
  return bSet;
}

bool Is_in(const CharacterSet& bSet, char c) {
  return bSet[static_cast<unsigned char>(c)];
}

constexpr CharacterSet bEndsToken = Set_of(" \t,\"");  // or opens and closes quotes in it

/// A run of characters between separators. Inside quotes there are none.
struct Token {
  std::string_view sText;
  bool bQuoted = false;  // holds a quote
  bool bOpen = false;    // the record ends inside its quotes
};

Token Token_at(std::string_view sRecord, std::size_t iBeg) {
  Token hToken;
  std::size_t iEnd = iBeg;
  while (iEnd < sRecord.size() && !Is_in(bEndsToken, sRecord[iEnd])) ++iEnd;
  for (; iEnd < sRecord.size(); ++iEnd) {
    const char c = sRecord[iEnd];
    if (!Is_in(bEndsToken, c)) continue;
    if (c == '"') {
      hToken.bQuoted = true;
      hToken.bOpen = !hToken.bOpen;
    } else if (!hToken.bOpen) {
      break;
    }
  }
  hToken.sText = sRecord.substr(iBeg, iEnd - iBeg);
  return hToken;
}

/// Commas go before the blanks that stand in front of them, and tabs are blanks. Between fields this changes nothing,
/// but inside quotes it shows: a quoted "a ,b" has always been read as "a, b".
std::string Commas_First(std::string_view sToken) {
  std::string sText(sToken);
  std::replace(sText.begin(), sText.end(), '\t', ' ');
  for (std::size_t iEnd = 0, iBeg = sText.find_first_of(" ,"); iBeg != iNone; iBeg = sText.find_first_of(" ,", iEnd)) {
    iEnd = std::min(sText.find_first_not_of(" ,", iBeg), sText.size());
    const auto at = [&](std::size_t i) { return sText.begin() + static_cast<std::ptrdiff_t>(i); };
    std::partition(at(iBeg), at(iEnd), [](char c) { return c == ','; });
  }
  return sText;
}

void Add_Token(const Token& hToken, FieldList& hField) {
  if (!hToken.bQuoted) {
    hField.Add(hToken.sText);
  } else if (hToken.sText.find('\t') == iNone && hToken.sText.find(" ,") == iNone) {
    hField.Add_Unquoted(hToken.sText, false);
  } else {
    hField.Add_Unquoted(hField.Keep(Commas_First(hToken.sText)), false);
  }
}

void Report_Extra_Columns(I4 MFld) {
  LogErr({"WARNING: more than " + std::to_string(MFld) + " columns in csv file.", "Extra columns will be dropped."});
}

bool Holds(std::string_view sText, std::string_view sPart) {
  return sText.find(sPart) != iNone;
}

/// The first entry for which bMatches holds, counted from 1; 0 none.
template <class Question>
I4 First_Entry(std::span<const std::string_view> CEnumeration, Question bMatches) {
  const auto it = std::find_if(CEnumeration.begin(), CEnumeration.end(), bMatches);
  return it == CEnumeration.end() ? 0 : static_cast<I4>(it - CEnumeration.begin()) + 1;
}

}  // namespace

FieldList::FieldList(I4 MFld, I4 NFieldWidth)
    : MField(MFld),
      NWidth(NFieldWidth > 0 ? static_cast<std::size_t>(NFieldWidth) : std::numeric_limits<std::size_t>::max()) {}

void FieldList::Clear() {
  sField.clear();
  sOwned.clear();
}

void FieldList::Add_Unquoted(std::string_view sText, bool bTabs) {
  const auto bBlanked = [&](char c) { return c == '"' || (bTabs && c == '\t'); };
  sText = Cut_Text(sText, NWidth);
  while (!sText.empty() && (sText.front() == ' ' || bBlanked(sText.front()))) sText.remove_prefix(1);
  while (!sText.empty() && (sText.back() == ' ' || bBlanked(sText.back()))) sText.remove_suffix(1);
  if (std::any_of(sText.begin(), sText.end(), bBlanked)) {
    std::string& sOwn = Keep(std::string(sText));
    std::replace_if(sOwn.begin(), sOwn.end(), bBlanked, ' ');
    sText = sOwn;
  }
  sField.push_back(sText);
}

std::string& FieldList::Keep(std::string sText) {
  return sOwned.emplace_back(std::move(sText));
}

void Str_Parse_Fld(std::string_view sRecord, FieldList& hField) {
  hField.Clear();
  bool bField = false;  // a field stands since the last comma, so the next comma only ends it
  for (std::size_t iPos = 0; iPos < sRecord.size() && !hField.Is_Full();) {
    if (Is_Blank_or_Tab(sRecord[iPos])) {
      ++iPos;
    } else if (sRecord[iPos] == ',') {
      if (!bField) hField.Add({});
      bField = false;
      ++iPos;
    } else {
      const Token hToken = Token_at(sRecord, iPos);
      if (hToken.bOpen) return;
      Add_Token(hToken, hField);
      bField = true;
      iPos += hToken.sText.size();
    }
  }
}

void Str_to_Fld(std::string_view sRecord, std::string_view sSeparators, FieldList& hField) {
  hField.Clear();
  sRecord = Trimmed(sRecord);
  const CharacterSet bSeparator = Set_of(sSeparators);
  std::size_t iBeg = 0;
  bool bInQuote = false;
  for (std::size_t iPos = 0; iPos < sRecord.size(); ++iPos) {
    if (sRecord[iPos] == '"') bInQuote = !bInQuote;
    const bool bLast = iPos + 1 == sRecord.size();
    if (bInQuote || (!bLast && !Is_in(bSeparator, sRecord[iPos]))) continue;
    if (hField.Is_Full()) return Report_Extra_Columns(hField.MFld());
    const std::size_t iEnd = bLast ? sRecord.size() : iPos;  // a separator that ends the record stays in the field
    hField.Add_Unquoted(sRecord.substr(iBeg, iEnd - iBeg), true);
    iBeg = iPos + 1;
  }
}

I4 Str_to_iEnumeration(std::string_view sField, std::string_view sKeyword,
                       std::span<const std::string_view> CEnumeration, I4& iEnumeration) {
  if (Trimmed(sField).empty() || Holds(sField, "*")) return -1;
  const std::string CField = Str_UpCase(Trimmed(Left_Adjusted(sField)));
  I4 iFound = First_Entry(CEnumeration, [&](std::string_view CEntry) { return Trimmed(CEntry) == CField; });
  // The order of the table matters here: a short word early in it swallows a longer one below.
  if (iFound == 0) {
    iFound = First_Entry(CEnumeration, [&](std::string_view CEntry) { return Holds(CField, Trimmed(CEntry)); });
  }
  if (iFound == 0) return Str_to_iEnumeration_Dialog(CField, sKeyword, CEnumeration, iEnumeration);
  iEnumeration = iFound;
  return 0;
}

I4 Str_to_iEnumeration_Dialog(std::string_view CField, std::string_view sKeyword,
                              std::span<const std::string_view> CEnumeration, I4& iEnumeration) {
  const I4 N = static_cast<I4>(CEnumeration.size());
  std::vector<std::string> sEntry;
  for (const std::string_view CEntry : CEnumeration) sEntry.emplace_back(Trimmed(CEntry));
  const I4 iMeant = hUser.Which_Word({CField, Trimmed(sKeyword), sEntry, std::max(1, std::min(iEnumeration, N))});
  if (iMeant >= 1 && iMeant <= N) iEnumeration = iMeant;
  return iMeant == 0 ? 2 : 0;
}

std::string Str_Strip_Quotes(std::string_view sText) {
  std::string sPlain(sText);
  std::replace_if(
      sPlain.begin(), sPlain.end(), [](char c) { return c == '\t' || c == '"'; }, ' ');
  return std::string(Trimmed(Left_Adjusted(sPlain)));
}

Text<32> Str_Trim0(std::string_view sText) {
  sText = Left_Adjusted(sText);
  if (sText.find_first_of("Ee") != iNone || !Holds(sText, ".")) return sText;
  std::string sNumber(Text<32>(sText).padded());
  sNumber += ' ';  // a number that fills the text ends in a blank as well
  for (std::size_t i = sNumber.find("0 "); i != iNone; i = sNumber.find("0 ")) sNumber[i] = ' ';
  sNumber.resize(Trimmed(sNumber).size());
  if (sNumber.size() < 2 || sNumber == "-.") return "0";
  if (sNumber.back() == '.') sNumber.pop_back();
  return sNumber;
}

std::string Str_UpCase(std::string_view sText) {
  std::string CText(sText);
  std::transform(CText.begin(), CText.end(), CText.begin(), Upper_Case);
  return CText;
}

std::string Str_Squish(std::string_view sText) {
  std::string sPacked(sText);
  std::erase_if(sPacked, Is_Blank_or_Tab);
  return sPacked;
}

}  // namespace quillan
