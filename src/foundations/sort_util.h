// sort_util.h: sorting, searching and selecting, one member of each family for each kind of item.
//
// Suffixes: I4, R4, R8, L4, Z4 (complex of two R4), CN (text, compared lexically without trailing blanks).
//
// Numbers that come from instruments and rescaled stations differ in their last bits, so that some families take two
// reals for equal when |a - b| < 10 Spacing(a); each family says whether it does. Whole numbers and texts compare
// exactly. Any input gives a valid order of its items, not-a-number included, though such an item may stand anywhere.
//
// A table is sorted by its index, and its columns, or its large records in one pass, follow:
//
//   HeapSort_R4(NPnt, fStn, JSort);
//   Reorder_R4(NPnt, JSort, fStn);
//   Reorder_R8(NPnt, JSort, dEast);
//
// Counts (NX, NPnt, NP, N) are held to what the arrays hold; with none nothing is done.
// Indices count from 1, also those in JSort: JSort(1), at JSort[0], is the place of the smallest item in XA.
#pragma once

#include <complex>
#include <span>
#include <string>

#include "base/types.h"

namespace quillan {

using Z4 = std::complex<R4>;

// Index order by exact comparison. XA stays; JSort(1..NX) receives the order of XA(1..NX).

/// Equal items keep their order. Time grows with the square of NX, but little for what is nearly in order.
void InsertSort_I4(I4 NX, std::span<const I4> XA, std::span<I4> JSort);
void InsertSort_R4(I4 NX, std::span<const R4> XA, std::span<I4> JSort);
void InsertSort_R8(I4 NX, std::span<const R8> XA, std::span<I4> JSort);
void InsertSort_CN(I4 NX, std::span<const std::string> XA, std::span<I4> JSort);

/// For any size; equal items come in no particular order, but always in the same one.
void HeapSort_I4(I4 NX, std::span<const I4> XA, std::span<I4> JSort);
void HeapSort_R4(I4 NX, std::span<const R4> XA, std::span<I4> JSort);
void HeapSort_R8(I4 NX, std::span<const R8> XA, std::span<I4> JSort);
void HeapSort_CN(I4 NX, std::span<const std::string> XA, std::span<I4> JSort);

/// The heap sort on the items themselves.
void Sort_Inplace_I4(I4 NX, std::span<I4> XA);
void Sort_Inplace_R4(I4 NX, std::span<R4> XA);
void Sort_Inplace_R8(I4 NX, std::span<R8> XA);
void Sort_Inplace_CN(I4 NX, std::span<std::string> XA);

// Tuples of MKey keys: key K of point j stands at (j - 1) * MKey + K - 1. Reals are compared with the tolerance.

/// The heap sort on tuples: the first key in which two tuples differ decides.
void Sort_MKey_I4(I4 MKey, I4 NPnt, std::span<const I4> SortKey, std::span<I4> JSort);
void Sort_MKey_R4(I4 MKey, I4 NPnt, std::span<const R4> SortKey, std::span<I4> JSort);
void Sort_MKey_R8(I4 MKey, I4 NPnt, std::span<const R8> SortKey, std::span<I4> JSort);

/// iOrder: -1 the first tuple is less, 0 they are equal in every key, 1 it is greater.
void SortKey_Order_I4(I4 MKey, std::span<const I4> SortKey1, std::span<const I4> SortKey2, I4& iOrder);
void SortKey_Order_R4(I4 MKey, std::span<const R4> SortKey1, std::span<const R4> SortKey2, I4& iOrder);
void SortKey_Order_R8(I4 MKey, std::span<const R8> SortKey1, std::span<const R8> SortKey2, I4& iOrder);

// Brackets: XX lies at or behind item JLO and before item JLO + 1. 0 is before the first item, NX from the last item
// on. JLO comes in as the place found by the last call, which makes a walk of nearby values cheap; any value will do.

/// In an array that rises or falls, told by its two ends; "before" is meant in its own direction. With one item or
/// none JLO is NX.
void Hunt_Bracket_R4(I4 NX, std::span<const R4> XA, R4 XX, I4& JLO);
void Hunt_Bracket_R8(I4 NX, std::span<const R8> XA, R8 XX, I4& JLO);
/// In XA(JSort(1)), XA(JSort(2)), ..., which rise.
void Hunt_Bracket_JSort_R4(I4 NX, std::span<const R4> XA, std::span<const I4> JSort, R4 XX, I4& JLO);
/// In tuples that rise. iOrder: 0 tuple JLO equals the value; 1 the value lies behind tuple JLO; -1 before all.
void Hunt_Bracket_MKey_I4(I4 MKey, I4 NList, std::span<const I4> KeyList, std::span<const I4> Key, I4& JLO, I4& iOrder);
void Hunt_Bracket_MKey_R4(I4 MKey, I4 NList, std::span<const R4> KeyList, std::span<const R4> Key, I4& JLO, I4& iOrder);
void Hunt_Bracket_MKey_R8(I4 MKey, I4 NList, std::span<const R8> KeyList, std::span<const R8> Key, I4& JLO, I4& iOrder);

/// The search behind all brackets. iOrder(j) compares the value with item j: -1 before it, 1 at or behind it; 0 ends
/// the search there. The result: 0 the search ended at item JLO; 1 the value lies behind item JLO; -1 before all.
template <class Order>
I4 Hunt_by_Order(I4 NX, Order iOrder, I4& JLO);

/// array(i) becomes array(JSort(i)), i = 1..NP. JSort holds places from 1 to NP; what lies behind them stays.
void Reorder_I4(I4 NP, std::span<const I4> JSort, std::span<I4> array);
void Reorder_L4(I4 NP, std::span<const I4> JSort, std::span<L4> array);
void Reorder_R4(I4 NP, std::span<const I4> JSort, std::span<R4> array);
void Reorder_R8(I4 NP, std::span<const I4> JSort, std::span<R8> array);
void Reorder_Z4(I4 NP, std::span<const I4> JSort, std::span<Z4> array);
void Reorder_CN(I4 NP, std::span<const I4> JSort, std::span<std::string> array);

/// Exchanges two items.
void Swap_I4(I4& i1, I4& i2);
void Swap_L4(L4& b1, L4& b2);
void Swap_R4(R4& f1, R4& f2);
void Swap_R8(R8& d1, R8& d2);
void Swap_Z4(Z4& z1, Z4& z2);
void Swap_CN(std::string& s1, std::string& s2);

/// iFlag: 0 the items rise; -I they rise but for ties within the tolerance, the last of which is of items I - 1 and I;
/// I the first item that is less than the one before it.
void Check_Order_I4(I4 NX, std::span<const I4> XA, I4& iFlag);
void Check_Order_R4(I4 NX, std::span<const R4> XA, I4& iFlag);
void Check_Order_R8(I4 NX, std::span<const R8> XA, I4& iFlag);
void Check_Order_CN(I4 NX, std::span<const std::string> XA, I4& iFlag);

/// Sorts, and keeps one item of those that are equal within the tolerance; NX becomes their number. Each item is
/// compared with the last one kept, so that a slow drift stays one item as long as it stays near the first.
void Drop_Duplicates_I4(I4& NX, std::span<I4> XA);
void Drop_Duplicates_R4(I4& NX, std::span<R4> XA);
void Drop_Duplicates_R8(I4& NX, std::span<R8> XA);
void Drop_Duplicates_CN(I4& NX, std::span<std::string> XA);

/// Brings the K-th smallest of N items to place K, no greater ones before it, no smaller ones behind it. iError: 0; 1
/// K is not within 1..N, and nothing was done.
void SelectK_I4(I4 K, I4 N, std::span<I4> XA, I4& iError);
void SelectK_R4(I4 K, I4 N, std::span<R4> XA, I4& iError);
void SelectK_R8(I4 K, I4 N, std::span<R8> XA, I4& iError);

template <class Order>
I4 Hunt_by_Order(I4 NX, Order iOrder, I4& JLO) {
  I4 iLast = 1;
  I4 JHI = NX + 1;
  const auto bFound_at = [&](I4 J) {
    iLast = iOrder(J);
    (iLast < 0 ? JHI : JLO) = J;
    return iLast == 0;
  };
  const I4 JStart = JLO >= 1 && JLO <= NX ? JLO : 0;
  JLO = 0;
  if (JStart > 0) {
    if (bFound_at(JStart)) return 0;
    const I4 iSide = iLast;
    for (I4 NStep = 1; iLast == iSide; NStep *= 2) {  // ever longer steps until the value is passed
      const I4 J = JStart + iSide * NStep;
      if (J <= JLO || J >= JHI) break;
      if (bFound_at(J)) return 0;
    }
  }
  while (JHI - JLO > 1) {
    if (bFound_at(JLO + (JHI - JLO) / 2)) return 0;
  }
  return JLO == 0 ? -1 : 1;
}

}  // namespace quillan
