// digit_sort.h: large tables in ascending order, by the digits of their keys.
//
// Items are dealt out by one byte of their keys after the other, the lowest first; no two are compared. Equal keys keep
// their order.
#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <utility>
#include <vector>

#include "base/types.h"

namespace quillan {

/// Bits that compare as the real does; -0 comes before 0, not-a-number at an end.
inline std::uint32_t Ordered_Bits(R4 f) {
  constexpr std::uint32_t iSign = 0x80000000u;
  const auto iBits = std::bit_cast<std::uint32_t>(f);
  return (iBits & iSign) != 0 ? ~iBits : iBits | iSign;
}
/// The real of such bits.
inline R4 Real_of_Bits(std::uint32_t iOrdered) {
  constexpr std::uint32_t iSign = 0x80000000u;
  return std::bit_cast<R4>((iOrdered & iSign) != 0 ? iOrdered & ~iSign : ~iOrdered);
}

/// Key_of(item): an unsigned number.
template <class Item, class KeyOf>
void Digit_Sort(std::vector<Item>& hItem, KeyOf Key_of) {
  using Key = decltype(Key_of(hItem[0]));
  constexpr std::size_t NByte = sizeof(Key);
  const auto Byte = [&](const Item& h, std::size_t K) { return static_cast<std::size_t>(Key_of(h) >> (8 * K)) & 0xff; };
  std::array<std::array<std::uint32_t, 256>, NByte> NOf{};
  for (const Item& h : hItem) {
    for (std::size_t K = 0; K < NByte; ++K) ++NOf[K][Byte(h, K)];
  }
  std::vector<Item> work(hItem.size());
  for (std::size_t K = 0; K < NByte; ++K) {
    if (hItem.empty() || NOf[K][Byte(hItem[0], K)] == hItem.size()) continue;  // all alike in this byte
    std::uint32_t iNext = 0;
    for (std::uint32_t& N : NOf[K]) iNext += std::exchange(N, iNext);
    for (const Item& h : hItem) work[NOf[K][Byte(h, K)]++] = h;
    hItem.swap(work);
  }
}

}  // namespace quillan
