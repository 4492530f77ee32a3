#include "foundations/sort_util.h"

#include <algorithm>
#include <memory>
#include <numeric>
#include <string_view>
#include <utility>
#include <vector>

#include "base/text.h"

namespace quillan {

namespace {

constexpr int NToleranceUnits = 10;  // units of the last place within which reals are equal

/// Infinities of one sign are equal as well.
template <class Real>
bool Near(Real a, Real b) {
  return a == b || std::abs(a - b) < Real{NToleranceUnits} * Spacing(a);
}

/// Equality of the families that know the tolerance.
bool Equal(I4 a, I4 b) {
  return a == b;
}
bool Equal(R4 a, R4 b) {
  return Near(a, b);
}
bool Equal(R8 a, R8 b) {
  return Near(a, b);
}
bool Equal(const std::string& a, const std::string& b) {
  return Trimmed(a) == Trimmed(b);
}

template <class Item>
bool Less(const Item& a, const Item& b) {
  return a < b;
}
template <>
bool Less(const std::string& a, const std::string& b) {
  return Trimmed(a) < Trimmed(b);
}

/// Items that are there to be worked on: N, held to what the arrays hold.
template <class... Span>
std::size_t Held(I4 N, const Span&... array) {
  return std::min({static_cast<std::size_t>(std::max(N, 0)), array.size()...});
}

template <class Item>
void Insert_Sort(I4 NX, std::span<const Item> XA, std::span<I4> JSort) {
  const std::size_t N = Held(NX, XA, JSort);
  const auto item = [&](I4 j) -> const Item& { return XA[static_cast<std::size_t>(j - 1)]; };
  for (std::size_t i = 0; i < N; ++i) {
    const I4 jNew = static_cast<I4>(i) + 1;
    std::size_t iPlace = i;
    for (; iPlace > 0 && Less(item(jNew), item(JSort[iPlace - 1])); --iPlace) JSort[iPlace] = JSort[iPlace - 1];
    JSort[iPlace] = jNew;
  }
}

/// Lets the item at iTop sink to its place in a heap of N slots, each of which is not below its children.
template <class Slot, class Question>
void Sift(std::span<Slot> hSlot, std::size_t iTop, std::size_t N, Question bLess) {
  Slot hHeld = std::move(hSlot[iTop]);
  for (std::size_t iChild = 2 * iTop + 1; iChild < N; iChild = 2 * iTop + 1) {
    if (iChild + 1 < N && bLess(hSlot[iChild], hSlot[iChild + 1])) ++iChild;
    if (!bLess(hHeld, hSlot[iChild])) break;
    hSlot[iTop] = std::move(hSlot[iChild]);
    iTop = iChild;
  }
  hSlot[iTop] = std::move(hHeld);
}

template <class Slot, class Question>
void Heap_Sort(std::span<Slot> hSlot, Question bLess) {
  for (std::size_t iTop = hSlot.size() / 2; iTop > 0; --iTop) Sift(hSlot, iTop - 1, hSlot.size(), bLess);
  for (std::size_t N = hSlot.size(); N > 1; --N) {
    std::swap(hSlot[0], hSlot[N - 1]);
    Sift(hSlot, 0, N - 1, bLess);
  }
}

/// The index order of N items, which bLess compares by their places.
template <class Question>
void Heap_Sort_Index(std::span<I4> JSort, Question bLess) {
  std::iota(JSort.begin(), JSort.end(), 1);
  Heap_Sort(JSort, bLess);
}

template <class Item>
void Heap_Sort_Items(I4 NX, std::span<const Item> XA, std::span<I4> JSort) {
  const auto item = [&](I4 j) -> const Item& { return XA[static_cast<std::size_t>(j - 1)]; };
  const auto bLess = [&](I4 j1, I4 j2) { return Less(item(j1), item(j2)); };
  Heap_Sort_Index(JSort.first(Held(NX, XA, JSort)), bLess);
}

template <class Item>
void Sort_Inplace(I4 NX, std::span<Item> XA) {
  Heap_Sort(XA.first(Held(NX, XA)), Less<Item>);
}

template <class Item>
I4 Order_of_Keys(std::size_t MKey, const Item* Key1, const Item* Key2) {
  for (std::size_t k = 0; k < MKey; ++k) {
    if (!Equal(Key1[k], Key2[k])) return Key1[k] >= Key2[k] ? 1 : -1;
  }
  return 0;
}

/// Keys of a tuple, or tuples of a list, that the arrays hold.
template <class Item>
I4 Tuples(I4 MKey, I4 N, std::span<const Item> KeyList) {
  return MKey < 1 ? 0 : static_cast<I4>(std::min(Held(N), KeyList.size() / static_cast<std::size_t>(MKey)));
}

template <class Item>
void Sort_MKey(I4 MKey, I4 NPnt, std::span<const Item> SortKey, std::span<I4> JSort) {
  const std::size_t M = Held(MKey);
  const auto tuple = [&](I4 j) { return SortKey.data() + static_cast<std::size_t>(j - 1) * M; };
  const auto bLess = [&](I4 j1, I4 j2) {
    const Item *Key1 = tuple(j1), *Key2 = tuple(j2);
    std::size_t k = 0;
    while (k < M && Equal(Key1[k], Key2[k])) ++k;
    return k < M && Key1[k] < Key2[k];
  };
  Heap_Sort_Index(JSort.first(Held(Tuples(MKey, NPnt, SortKey), JSort)), bLess);
}

template <class Item>
void SortKey_Order(I4 MKey, std::span<const Item> SortKey1, std::span<const Item> SortKey2, I4& iOrder) {
  iOrder = Order_of_Keys(Held(MKey, SortKey1, SortKey2), SortKey1.data(), SortKey2.data());
}

/// In items that rise, or fall where bFalling; item(j) is the j-th.
template <class Real, class Item>
void Hunt_Bracket(I4 NX, Item item, bool bFalling, Real XX, I4& JLO) {
  if (NX < 2) {
    JLO = NX;
    return;
  }
  const auto iOrder = [&](I4 j) { return (bFalling ? XX > item(j) : XX < item(j)) ? -1 : 1; };
  Hunt_by_Order(NX, iOrder, JLO);
}

template <class Real>
void Hunt_Bracket_Array(I4 NX, std::span<const Real> XA, Real XX, I4& JLO) {
  const std::size_t N = Held(NX, XA);
  const auto item = [&](I4 j) { return XA[static_cast<std::size_t>(j - 1)]; };
  Hunt_Bracket(static_cast<I4>(N), item, N > 1 && !(XA[0] < XA[N - 1]), XX, JLO);
}

template <class Item>
void Hunt_Bracket_MKey(I4 MKey, I4 NList, std::span<const Item> KeyList, std::span<const Item> Key, I4& JLO,
                       I4& iOrder) {
  const std::size_t M = Held(MKey, Key);
  const auto iOrder_at = [&](I4 j) {
    return Order_of_Keys(M, Key.data(), KeyList.data() + static_cast<std::size_t>(j - 1) * M);
  };
  iOrder = Hunt_by_Order(Tuples(MKey, NList, KeyList), iOrder_at, JLO);
}

template <class Item>
void Reorder(I4 NP, std::span<const I4> JSort, std::span<Item> array) {
  const std::size_t N = Held(NP, JSort, array);
  const auto work = std::make_unique<Item[]>(N);
  std::copy_n(array.begin(), N, work.get());
  for (std::size_t i = 0; i < N; ++i) array[i] = work[static_cast<std::size_t>(JSort[i] - 1)];
}

template <class Item>
void Check_Order(I4 NX, std::span<const Item> XA, I4& iFlag) {
  iFlag = 0;
  for (std::size_t i = 1; i < Held(NX, XA); ++i) {
    const I4 I = static_cast<I4>(i) + 1;
    if (Equal(XA[i], XA[i - 1])) {
      iFlag = -I;
    } else if (Less(XA[i], XA[i - 1])) {
      iFlag = I;
      return;
    }
  }
}

template <class Item>
void Drop_Duplicates(I4& NX, std::span<Item> XA) {
  const std::size_t N = Held(NX, XA);
  Sort_Inplace(NX, XA);
  std::size_t NKept = std::min<std::size_t>(N, 1);
  for (std::size_t i = 1; i < N; ++i) {
    if (Equal(XA[i], XA[NKept - 1])) continue;
    if (i != NKept) XA[NKept] = std::move(XA[i]);
    ++NKept;
  }
  NX = static_cast<I4>(NKept);
}

template <class Item>
void Put_in_Order(Item& a, Item& b) {
  if (a > b) std::swap(a, b);
}

/// Brings the median of the first, the middle and the last item to the first place, as the pivot, and parts the others
/// about it. Returns the place of the pivot; items from iNext on are not below it.
template <class Item>
std::size_t Part_at_Median(std::span<Item> XA, std::size_t iLeft, std::size_t iRight, std::size_t& iNext) {
  std::swap(XA[iLeft + (iRight - iLeft) / 2], XA[iLeft + 1]);
  Put_in_Order(XA[iLeft + 1], XA[iRight]);
  Put_in_Order(XA[iLeft], XA[iRight]);
  Put_in_Order(XA[iLeft + 1], XA[iLeft]);
  const Item pivot = XA[iLeft];
  std::size_t iUp = iLeft + 1, iDown = iRight;  // the items there stop the walks, whatever the values are
  for (;;) {
    do {
      ++iUp;
    } while (XA[iUp] < pivot);
    do {
      --iDown;
    } while (XA[iDown] > pivot);
    if (iDown < iUp) break;
    std::swap(XA[iUp], XA[iDown]);
  }
  XA[iLeft] = XA[iDown];
  XA[iDown] = pivot;
  iNext = iUp;
  return iDown;
}

template <class Item>
void Select_K(I4 K, I4 N, std::span<Item> XA, I4& iError) {
  iError = 1;
  if (K < 1 || static_cast<std::size_t>(K) > Held(N, XA)) return;
  iError = 0;
  const std::size_t k = static_cast<std::size_t>(K - 1);
  std::size_t iLeft = 0, iRight = Held(N, XA) - 1;
  while (iRight >= iLeft + 2) {
    std::size_t iNext = 0;
    const std::size_t iPivot = Part_at_Median(XA, iLeft, iRight, iNext);
    if (iPivot == k) return;
    if (iPivot > k) {
      iRight = iPivot - 1;
    } else {
      iLeft = iNext;
    }
  }
  if (iRight == iLeft + 1) Put_in_Order(XA[iLeft], XA[iRight]);
}

}  // namespace

void InsertSort_I4(I4 NX, std::span<const I4> XA, std::span<I4> JSort) {
  Insert_Sort(NX, XA, JSort);
}

void InsertSort_R4(I4 NX, std::span<const R4> XA, std::span<I4> JSort) {
  Insert_Sort(NX, XA, JSort);
}

void InsertSort_R8(I4 NX, std::span<const R8> XA, std::span<I4> JSort) {
  Insert_Sort(NX, XA, JSort);
}

void InsertSort_CN(I4 NX, std::span<const std::string> XA, std::span<I4> JSort) {
  Insert_Sort(NX, XA, JSort);
}

void HeapSort_I4(I4 NX, std::span<const I4> XA, std::span<I4> JSort) {
  Heap_Sort_Items(NX, XA, JSort);
}

void HeapSort_R4(I4 NX, std::span<const R4> XA, std::span<I4> JSort) {
  Heap_Sort_Items(NX, XA, JSort);
}

void HeapSort_R8(I4 NX, std::span<const R8> XA, std::span<I4> JSort) {
  Heap_Sort_Items(NX, XA, JSort);
}

void HeapSort_CN(I4 NX, std::span<const std::string> XA, std::span<I4> JSort) {
  Heap_Sort_Items(NX, XA, JSort);
}

void Sort_Inplace_I4(I4 NX, std::span<I4> XA) {
  Sort_Inplace(NX, XA);
}

void Sort_Inplace_R4(I4 NX, std::span<R4> XA) {
  Sort_Inplace(NX, XA);
}

void Sort_Inplace_R8(I4 NX, std::span<R8> XA) {
  Sort_Inplace(NX, XA);
}

void Sort_Inplace_CN(I4 NX, std::span<std::string> XA) {
  Sort_Inplace(NX, XA);
}

void Sort_MKey_I4(I4 MKey, I4 NPnt, std::span<const I4> SortKey, std::span<I4> JSort) {
  Sort_MKey(MKey, NPnt, SortKey, JSort);
}

void Sort_MKey_R4(I4 MKey, I4 NPnt, std::span<const R4> SortKey, std::span<I4> JSort) {
  Sort_MKey(MKey, NPnt, SortKey, JSort);
}

void Sort_MKey_R8(I4 MKey, I4 NPnt, std::span<const R8> SortKey, std::span<I4> JSort) {
  Sort_MKey(MKey, NPnt, SortKey, JSort);
}

void SortKey_Order_I4(I4 MKey, std::span<const I4> SortKey1, std::span<const I4> SortKey2, I4& iOrder) {
  SortKey_Order(MKey, SortKey1, SortKey2, iOrder);
}

void SortKey_Order_R4(I4 MKey, std::span<const R4> SortKey1, std::span<const R4> SortKey2, I4& iOrder) {
  SortKey_Order(MKey, SortKey1, SortKey2, iOrder);
}

void SortKey_Order_R8(I4 MKey, std::span<const R8> SortKey1, std::span<const R8> SortKey2, I4& iOrder) {
  SortKey_Order(MKey, SortKey1, SortKey2, iOrder);
}

void Hunt_Bracket_R4(I4 NX, std::span<const R4> XA, R4 XX, I4& JLO) {
  Hunt_Bracket_Array(NX, XA, XX, JLO);
}

void Hunt_Bracket_R8(I4 NX, std::span<const R8> XA, R8 XX, I4& JLO) {
  Hunt_Bracket_Array(NX, XA, XX, JLO);
}

void Hunt_Bracket_JSort_R4(I4 NX, std::span<const R4> XA, std::span<const I4> JSort, R4 XX, I4& JLO) {
  const auto item = [&](I4 j) { return XA[static_cast<std::size_t>(JSort[static_cast<std::size_t>(j - 1)] - 1)]; };
  Hunt_Bracket(static_cast<I4>(Held(NX, JSort)), item, false, XX, JLO);
}

void Hunt_Bracket_MKey_I4(I4 MKey, I4 NList, std::span<const I4> KeyList, std::span<const I4> Key, I4& JLO,
                          I4& iOrder) {
  Hunt_Bracket_MKey(MKey, NList, KeyList, Key, JLO, iOrder);
}

void Hunt_Bracket_MKey_R4(I4 MKey, I4 NList, std::span<const R4> KeyList, std::span<const R4> Key, I4& JLO,
                          I4& iOrder) {
  Hunt_Bracket_MKey(MKey, NList, KeyList, Key, JLO, iOrder);
}

void Hunt_Bracket_MKey_R8(I4 MKey, I4 NList, std::span<const R8> KeyList, std::span<const R8> Key, I4& JLO,
                          I4& iOrder) {
  Hunt_Bracket_MKey(MKey, NList, KeyList, Key, JLO, iOrder);
}

void Reorder_I4(I4 NP, std::span<const I4> JSort, std::span<I4> array) {
  Reorder(NP, JSort, array);
}

void Reorder_L4(I4 NP, std::span<const I4> JSort, std::span<L4> array) {
  Reorder(NP, JSort, array);
}

void Reorder_R4(I4 NP, std::span<const I4> JSort, std::span<R4> array) {
  Reorder(NP, JSort, array);
}

void Reorder_R8(I4 NP, std::span<const I4> JSort, std::span<R8> array) {
  Reorder(NP, JSort, array);
}

void Reorder_Z4(I4 NP, std::span<const I4> JSort, std::span<Z4> array) {
  Reorder(NP, JSort, array);
}

void Reorder_CN(I4 NP, std::span<const I4> JSort, std::span<std::string> array) {
  Reorder(NP, JSort, array);
}

void Swap_I4(I4& i1, I4& i2) {
  std::swap(i1, i2);
}

void Swap_L4(L4& b1, L4& b2) {
  std::swap(b1, b2);
}

void Swap_R4(R4& f1, R4& f2) {
  std::swap(f1, f2);
}

void Swap_R8(R8& d1, R8& d2) {
  std::swap(d1, d2);
}

void Swap_Z4(Z4& z1, Z4& z2) {
  std::swap(z1, z2);
}

void Swap_CN(std::string& s1, std::string& s2) {
  std::swap(s1, s2);
}

void Check_Order_I4(I4 NX, std::span<const I4> XA, I4& iFlag) {
  Check_Order(NX, XA, iFlag);
}

void Check_Order_R4(I4 NX, std::span<const R4> XA, I4& iFlag) {
  Check_Order(NX, XA, iFlag);
}

void Check_Order_R8(I4 NX, std::span<const R8> XA, I4& iFlag) {
  Check_Order(NX, XA, iFlag);
}

void Check_Order_CN(I4 NX, std::span<const std::string> XA, I4& iFlag) {
  Check_Order(NX, XA, iFlag);
}

void Drop_Duplicates_I4(I4& NX, std::span<I4> XA) {
  Drop_Duplicates(NX, XA);
}

void Drop_Duplicates_R4(I4& NX, std::span<R4> XA) {
  Drop_Duplicates(NX, XA);
}

void Drop_Duplicates_R8(I4& NX, std::span<R8> XA) {
  Drop_Duplicates(NX, XA);
}

void Drop_Duplicates_CN(I4& NX, std::span<std::string> XA) {
  Drop_Duplicates(NX, XA);
}

void SelectK_I4(I4 K, I4 N, std::span<I4> XA, I4& iError) {
  Select_K(K, N, XA, iError);
}

void SelectK_R4(I4 K, I4 N, std::span<R4> XA, I4& iError) {
  Select_K(K, N, XA, iError);
}

void SelectK_R8(I4 K, I4 N, std::span<R8> XA, I4& iError) {
  Select_K(K, N, XA, iError);
}

}  // namespace quillan
