// sort_util.h: sorting, searching and selecting.
//
// A table is sorted by its index, and its columns, or its large records in one pass, follow:
//
//   HeapSort_R4(NPnt, fStn, JSort);
//   Reorder_R4(NPnt, JSort, fStn);
//   Reorder_R8(NPnt, JSort, dEast);
//
// Counts (NX, NPnt, NP, N) are held to what the arrays hold; with none nothing is done. Indices count from 1, also
// those in JSort: JSort(1), at JSort[0], is the place of the smallest item in XA. Any input gives a valid order of its
// items, not-a-number included.
#pragma once

#include <algorithm>
#include <compare>
#include <numeric>
#include <span>
#include <vector>

#include "base/types.h"

namespace quillan {

/// Items that are there to be worked on: N, held to what the arrays hold.
template <class... Span>
std::size_t Held_Count(I4 N, const Span&... array) {
  return std::min({static_cast<std::size_t>(std::max(N, 0)), array.size()...});
}

/// The order of XA(1..NX) by exact comparison into JSort(1..NX); XA stays. Equal items keep their order.
template <class Item>
void InsertSort(I4 NX, std::span<const Item> XA, std::span<I4> JSort) {
  const auto item = [&](I4 j) { return XA[static_cast<std::size_t>(j - 1)]; };
  const auto JUsed = JSort.first(Held_Count(NX, XA, JSort));
  std::iota(JUsed.begin(), JUsed.end(), 1);
  std::stable_sort(JUsed.begin(), JUsed.end(), [&](I4 j1, I4 j2) { return std::weak_order(item(j1), item(j2)) < 0; });
}
inline constexpr auto InsertSort_R4 = InsertSort<R4>;
inline constexpr auto InsertSort_R8 = InsertSort<R8>;

/// The same by a heap sort. Equal items come in no particular order, but always in the same one.
void HeapSort_R4(I4 NX, std::span<const R4> XA, std::span<I4> JSort);

/// The heap sort on tuples of MKey keys; key K of point j stands at (j - 1) * MKey + K - 1. The first key in which two
/// tuples differ decides. Keys that come from instruments and rescaled stations differ in their last bits: two are
/// equal when |a - b| < 10 Spacing(a), so that the next key decides for one station.
void Sort_MKey_R4(I4 MKey, I4 NPnt, std::span<const R4> SortKey, std::span<I4> JSort);

/// JLO, such that XX lies at or after item JLO and before item JLO + 1: 0 before the first item, NX from the last item
/// on. XA rises or falls, as its two ends say; "before" is meant in its own direction. With one item or none JLO is NX.
template <class Real>
[[nodiscard]] I4 Hunt_Bracket(I4 NX, std::span<const Real> XA, Real XX) {
  const auto XUsed = XA.first(Held_Count(NX, XA));
  if (XUsed.size() < 2) return static_cast<I4>(XUsed.size());
  const bool bFalling = !(XUsed.front() < XUsed.back());
  const auto it = std::upper_bound(XUsed.begin(), XUsed.end(), XX,
                                   [&](Real fAt, Real fItem) { return bFalling ? fAt > fItem : fAt < fItem; });
  return static_cast<I4>(it - XUsed.begin());
}
inline constexpr auto Hunt_Bracket_R4 = Hunt_Bracket<R4>;
inline constexpr auto Hunt_Bracket_R8 = Hunt_Bracket<R8>;

/// array(i) becomes array(JSort(i)), i = 1..NP. JSort holds places from 1 to NP; what lies after them stays.
template <class Item>
void Reorder(I4 NP, std::span<const I4> JSort, std::span<Item> array) {
  const std::size_t N = Held_Count(NP, JSort, array);
  const std::vector<Item> work(array.begin(), array.begin() + static_cast<std::ptrdiff_t>(N));
  for (std::size_t i = 0; i < N; ++i) array[i] = work[static_cast<std::size_t>(JSort[i] - 1)];
}
inline constexpr auto Reorder_I4 = Reorder<I4>;
inline constexpr auto Reorder_R4 = Reorder<R4>;
inline constexpr auto Reorder_R8 = Reorder<R8>;

/// Brings the K-th smallest of N items to place K, no greater ones before it, no smaller ones after it. Status: 0; 1 K
/// is not within 1..N, and nothing was done.
[[nodiscard]] I4 SelectK_R4(I4 K, I4 N, std::span<R4> XA);

}  // namespace quillan
