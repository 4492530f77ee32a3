#include "foundations/list_util.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "base/text.h"
#include "foundations/sort_util.h"
#include "foundations/str_parse.h"

namespace quillan {

namespace {

constexpr int NToleranceUnits = 100;  // units of the last place within which reals are the same
constexpr I4 iFarthest = 2147483646;  // difference to the items of an empty list
constexpr R4 fFarthest = 1.0E32f;
constexpr R8 dFarthest = 1.0E32;

bool Is_Below(I4 a, I4 b) {
  return a < b;
}
bool Is_Below(R4 a, R4 b) {
  return a < b;
}
bool Is_Below(R8 a, R8 b) {
  return a < b;
}
bool Is_Below(std::string_view s1, std::string_view s2) {
  return Trimmed(s1) < Trimmed(s2);
}

/// a less b. Whole numbers may lie 2**32 apart, so theirs is wider.
I8 Difference(I4 a, I4 b) {
  return I8{a} - I8{b};
}
R4 Difference(R4 a, R4 b) {
  return a - b;
}
R8 Difference(R8 a, R8 b) {
  return a - b;
}
I8 Difference(std::string_view s1, std::string_view s2) {
  const I8 iDistance = iStr_Fuzzy_Match(s1, s2);
  return Is_Below(s1, s2) ? -iDistance : iDistance;
}

/// Whether a value with this difference to an item is the item's.
template <class Value>
bool Is_Same(const Value&, I8 iDV) {
  return iDV == 0;
}
bool Is_Same(R4 fValue, R4 fDV) {
  return std::abs(fDV) < R4{NToleranceUnits} * Spacing(fValue);
}
bool Is_Same(R8 dValue, R8 dDV) {
  return std::abs(dDV) < R8{NToleranceUnits} * Spacing(dValue);
}

template <class Item>
const Item& At(std::span<Item> list, I4 J) {
  return list[static_cast<std::size_t>(J - 1)];
}

template <class Item>
I4 Held(I4 NList, std::span<Item> list) {
  return static_cast<I4>(std::min(list.size(), static_cast<std::size_t>(std::max(NList, 0))));
}

template <class Value, class Item, class Diff>
void Bracket(const Value& value, I4 NList, std::span<Item> list, I4& JLow, Diff& DV1, Diff& DV2) {
  const I4 N = Held(NList, list);
  Hunt_by_Order(
      N, [&](I4 J) { return Is_Below(value, At(list, J)) ? -1 : 1; }, JLow);
  DV1 = -1;
  DV2 = 0;
  if (N == 0) return;
  if (JLow == 0) {
    DV2 = Difference(value, At(list, 1));
    DV1 = std::min(2 * DV2, Diff{-1});
    return;
  }
  DV1 = Difference(value, At(list, JLow));
  DV2 = JLow < N ? Difference(At(list, JLow + 1), value) : std::max(2 * DV1, Diff{1});
}

template <class Value, class Item>
I4 Search(const Value& value, I4 NList, std::span<Item> list) {
  const I4 N = Held(NList, list);
  if (N == 0) return 0;
  I4 JLow = 0;
  decltype(Difference(value, list[0])) DV1, DV2;
  Bracket(value, N, list, JLow, DV1, DV2);
  if (Is_Same(value, DV1)) return std::max(1, JLow);
  return Is_Same(value, DV2) ? std::min(N, JLow + 1) : 0;
}

/// The difference stays as it is when the list is empty.
template <class Value, class Item, class Diff>
I4 Nearest(const Value& value, I4 NList, std::span<Item> list, Diff& DVmin) {
  const I4 N = Held(NList, list);
  if (N == 0) return 0;
  I4 JLow = 0;
  Diff DV1, DV2;
  Bracket(value, N, list, JLow, DV1, DV2);
  const bool bUpper = std::abs(DV2) < std::abs(DV1);
  DVmin = bUpper ? DV2 : DV1;
  return bUpper ? std::min(N, JLow + 1) : std::max(1, JLow);
}

/// Makes the list one longer if there is room. Returns the flag of adding: 1, or 2 in a full list.
template <class Item>
I4 Grow(I4& NList, std::span<Item> list) {
  if (static_cast<std::size_t>(NList) == list.size()) return 2;
  ++NList;
  return 1;
}

template <class Value, class Item>
void Append(const Value& value, I4& NList, std::span<Item> list, I4& iMatch, I4& iFlag) {
  NList = Held(NList, list);
  iFlag = 0;
  for (iMatch = 1; iMatch <= NList; ++iMatch) {
    if (Is_Same(value, Difference(value, At(list, iMatch)))) return;
  }
  iFlag = Grow(NList, list);
  iMatch = NList;
  if (NList > 0) list[static_cast<std::size_t>(NList - 1)] = value;
}

template <class Value, class Item>
void Insert(const Value& value, I4& NList, std::span<Item> list, I4& iFlag) {
  NList = Held(NList, list);
  iFlag = 0;
  I4 JLow = 0;
  decltype(Difference(value, list[0])) DV1, DV2;
  Bracket(value, NList, list, JLow, DV1, DV2);
  if (NList > 0 && (Is_Same(value, DV1) || Is_Same(value, DV2))) return;
  iFlag = Grow(NList, list);
  if (NList == 0) return;
  const auto itPlace = list.begin() + std::min(NList, JLow + 1) - 1;
  std::move_backward(itPlace, list.begin() + NList - 1, list.begin() + NList);
  *itPlace = value;
}

I4 Narrow(I8 iDV) {
  return static_cast<I4>(std::clamp<I8>(iDV, std::numeric_limits<I4>::min(), std::numeric_limits<I4>::max()));
}

/// The bracket of items whose difference is wider than its argument.
template <class Value, class Item>
void Bracket_Narrow(const Value& value, I4 NList, std::span<Item> list, I4& JLow, I4& iDV1, I4& iDV2) {
  I8 DV1 = 0, DV2 = 0;
  Bracket(value, NList, list, JLow, DV1, DV2);
  iDV1 = Narrow(DV1);
  iDV2 = Narrow(DV2);
}

}  // namespace

void List_Append_I4(I4 iValue, I4& NList, std::span<I4> iList, I4& iMatch, I4& iFlag) {
  Append(iValue, NList, iList, iMatch, iFlag);
}

void List_Append_R4(R4 fValue, I4& NList, std::span<R4> fList, I4& iMatch, I4& iFlag) {
  Append(fValue, NList, fList, iMatch, iFlag);
}

void List_Append_R8(R8 dValue, I4& NList, std::span<R8> dList, I4& iMatch, I4& iFlag) {
  Append(dValue, NList, dList, iMatch, iFlag);
}

void List_Append_Sn(std::string_view sValue, I4& NList, std::span<std::string> sList, I4& iMatch, I4& iFlag) {
  Append(Trimmed(sValue), NList, sList, iMatch, iFlag);
}

void List_Insert_I4(I4 iValue, I4& NList, std::span<I4> iList, I4& iFlag) {
  Insert(iValue, NList, iList, iFlag);
}

void List_Insert_R4(R4 fValue, I4& NList, std::span<R4> fList, I4& iFlag) {
  Insert(fValue, NList, fList, iFlag);
}

void List_Insert_R8(R8 dValue, I4& NList, std::span<R8> dList, I4& iFlag) {
  Insert(dValue, NList, dList, iFlag);
}

void List_Insert_Sn(std::string_view sValue, I4& NList, std::span<std::string> sList, I4& iFlag) {
  Insert(Trimmed(sValue), NList, sList, iFlag);
}

void List_Search_I4(I4 iValue, I4 NList, std::span<const I4> iList, I4& iMatch) {
  iMatch = Search(iValue, NList, iList);
}

void List_Search_R4(R4 fValue, I4 NList, std::span<const R4> fList, I4& iMatch) {
  iMatch = Search(fValue, NList, fList);
}

void List_Search_R8(R8 dValue, I4 NList, std::span<const R8> dList, I4& iMatch) {
  iMatch = Search(dValue, NList, dList);
}

void List_Search_Sn(std::string_view sValue, I4 NList, std::span<const std::string> sList, I4& iMatch) {
  iMatch = Search(sValue, NList, sList);
}

void List_Nearest_I4(I4 iValue, I4 NList, std::span<const I4> iList, I4& iMatch, I4& iDVmin) {
  I8 DVmin = iFarthest;
  iMatch = Nearest(iValue, NList, iList, DVmin);
  iDVmin = Narrow(DVmin);
}

void List_Nearest_R4(R4 fValue, I4 NList, std::span<const R4> fList, I4& iMatch, R4& fDVmin) {
  fDVmin = fFarthest;
  iMatch = Nearest(fValue, NList, fList, fDVmin);
}

void List_Nearest_R8(R8 dValue, I4 NList, std::span<const R8> dList, I4& iMatch, R8& dDVmin) {
  dDVmin = dFarthest;
  iMatch = Nearest(dValue, NList, dList, dDVmin);
}

void List_Nearest_Sn(std::string_view sValue, I4 NList, std::span<const std::string> sList, I4& iMatch, I4& iDVmin) {
  iMatch = 0;
  iDVmin = iFarthest;
  for (I4 J = 1; J <= Held(NList, sList); ++J) {
    const I4 iDistance = iStr_Fuzzy_Match(sValue, At(sList, J));
    if (iDistance >= iDVmin) continue;
    iDVmin = iDistance;
    iMatch = J;
  }
}

void List_Bracket_I4(I4 iValue, I4 NList, std::span<const I4> iList, I4& JLow, I4& iDV1, I4& iDV2) {
  Bracket_Narrow(iValue, NList, iList, JLow, iDV1, iDV2);
}

void List_Bracket_R4(R4 fValue, I4 NList, std::span<const R4> fList, I4& JLow, R4& fDV1, R4& fDV2) {
  Bracket(fValue, NList, fList, JLow, fDV1, fDV2);
}

void List_Bracket_R8(R8 dValue, I4 NList, std::span<const R8> dList, I4& JLow, R8& dDV1, R8& dDV2) {
  Bracket(dValue, NList, dList, JLow, dDV1, dDV2);
}

void List_Bracket_Sn(std::string_view sValue, I4 NList, std::span<const std::string> sList, I4& JLow, I4& iDV1,
                     I4& iDV2) {
  Bracket_Narrow(sValue, NList, sList, JLow, iDV1, iDV2);
}

}  // namespace quillan
