// array.h: fixed arrays indexed as the field counts, from 1, or from a bound of their own.
//
//   Array1<R4, 64> fTWCen;        fTWCen(1) .. fTWCen(64)
//   Array1<I4, 0, 32> lXYZN;      lXYZN(0) .. lXYZN(32)
//   Array1<R4, 3> fHPR{0.0f, 90.0f, 0.0f};
//   Array2<R8, 3, 0, 32> dUTMN;   dUTMN(1, 0) .. dUTMN(3, 32); the first index runs over the coordinates
//
// Indices are asserted in debug builds. Arrays are plain values: copied by assignment, no allocation.
#pragma once

#include <array>
#include <cassert>
#include <limits>
#include <type_traits>

#include "base/types.h"

namespace quillan {

inline constexpr I4 iNoBound = std::numeric_limits<I4>::min();

/// One index, from 1 to A, or from A to B where B is given.
template <class T, I4 A, I4 B = iNoBound>
class Array1 {
 public:
  static constexpr I4 iLow = B == iNoBound ? 1 : A;
  static constexpr I4 iHigh = B == iNoBound ? A : B;
  static constexpr I4 NSize = iHigh - iLow + 1;

  Array1() = default;
  /// Every element in turn: Array1<R4, 3>{1.0f, 2.0f, 3.0f}.
  template <class... Item>
    requires(sizeof...(Item) == NSize && (std::is_convertible_v<Item, T> && ...))
  constexpr Array1(Item... hValue) : hItem{T{hValue}...} {}
  /// The same where the elements are records in brackets of their own; elements that are left out are 0.
  constexpr Array1(const std::array<T, static_cast<std::size_t>(NSize)>& hValue) : hItem(hValue) {}

  constexpr T& operator()(I4 I) {
    assert(I >= iLow && I <= iHigh);
    return hItem[static_cast<std::size_t>(I - iLow)];
  }
  constexpr const T& operator()(I4 I) const {
    assert(I >= iLow && I <= iHigh);
    return hItem[static_cast<std::size_t>(I - iLow)];
  }

  constexpr void fill(const T& hValue) { hItem.fill(hValue); }
  constexpr T* data() { return hItem.data(); }
  constexpr const T* data() const { return hItem.data(); }
  constexpr auto begin() { return hItem.begin(); }
  constexpr auto end() { return hItem.end(); }
  constexpr auto begin() const { return hItem.begin(); }
  constexpr auto end() const { return hItem.end(); }
  constexpr std::size_t size() const { return hItem.size(); }

  friend bool operator==(const Array1&, const Array1&) = default;

  std::array<T, static_cast<std::size_t>(NSize)> hItem;
};

/// An array of which every element starts from one value.
template <class Array, class T>
constexpr Array Filled(const T& hValue) {
  Array hArray{};
  hArray.fill(hValue);
  return hArray;
}

/// The entry of a table for a code that may lie outside it: the nearest one.
template <class Table>
constexpr const auto& Held_Entry(const Table& hTable, I4 iCode) {
  return hTable(iCode < Table::iLow ? Table::iLow : iCode > Table::iHigh ? Table::iHigh : iCode);
}

/// Two indices: the first from 1 to N1, the second from 1 to A, or from A to B where B is given.
template <class T, I4 N1, I4 A, I4 B = iNoBound>
class Array2 {
 public:
  static constexpr I4 iLow2 = B == iNoBound ? 1 : A;
  static constexpr I4 iHigh2 = B == iNoBound ? A : B;

  constexpr T& operator()(I4 I, I4 J) { return hColumn(J)(I); }
  constexpr const T& operator()(I4 I, I4 J) const { return hColumn(J)(I); }

  constexpr void fill(const T& hValue) {
    for (auto& hItem : hColumn) hItem.fill(hValue);
  }

  friend bool operator==(const Array2&, const Array2&) = default;

  Array1<Array1<T, N1>, iLow2, iHigh2> hColumn;
};

}  // namespace quillan
