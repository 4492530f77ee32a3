#include "foundations/sort_util.h"

#include <utility>

#include "foundations/digit_sort.h"

namespace quillan {

namespace {

constexpr R4 fToleranceUnits = 10.0f;  // units of the last place within which keys are equal

/// Lets the place at iTop sink in a heap of N places, each of which is not below its children.
template <class Question>
void Sift(std::span<I4> JHeap, std::size_t iTop, std::size_t N, Question bLess) {
  const I4 jHeld = JHeap[iTop];
  for (std::size_t iChild = 2 * iTop + 1; iChild < N; iChild = 2 * iTop + 1) {
    if (iChild + 1 < N && bLess(JHeap[iChild], JHeap[iChild + 1])) ++iChild;
    if (!bLess(jHeld, JHeap[iChild])) break;
    JHeap[iTop] = JHeap[iChild];
    iTop = iChild;
  }
  JHeap[iTop] = jHeld;
}

/// The index order of items that bLess compares by their places. The standard heap sorts bring equal items out in an
/// order of their own; the order of transients in a saved file is that of this one.
template <class Question>
void Heap_Sort_Index(std::span<I4> JSort, Question bLess) {
  std::iota(JSort.begin(), JSort.end(), 1);
  for (std::size_t iTop = JSort.size() / 2; iTop > 0; --iTop) Sift(JSort, iTop - 1, JSort.size(), bLess);
  for (std::size_t N = JSort.size(); N > 1; --N) {
    std::swap(JSort[0], JSort[N - 1]);
    Sift(JSort, 0, N - 1, bLess);
  }
}

/// Infinities of one sign are equal as well.
bool Is_Near(R4 a, R4 b) {
  return a == b || std::abs(a - b) < fToleranceUnits * Spacing(a);
}

}  // namespace

void HeapSort_R4(I4 NX, std::span<const R4> XA, std::span<I4> JSort) {
  const auto item = [&](I4 j) { return XA[static_cast<std::size_t>(j - 1)]; };
  Heap_Sort_Index(JSort.first(Held_Count(NX, XA, JSort)), [&](I4 j1, I4 j2) { return item(j1) < item(j2); });
}

void Sort_MKey_R4(I4 MKey, I4 NPnt, std::span<const R4> SortKey, std::span<I4> JSort) {
  if (MKey < 1) return;
  const std::size_t M = static_cast<std::size_t>(MKey);
  const auto tuple = [&](I4 j) { return SortKey.data() + static_cast<std::size_t>(j - 1) * M; };
  const auto bLess = [&](I4 j1, I4 j2) {
    const R4 *Key1 = tuple(j1), *Key2 = tuple(j2);
    std::size_t k = 0;
    while (k < M && Is_Near(Key1[k], Key2[k])) ++k;
    return k < M && Key1[k] < Key2[k];
  };
  Heap_Sort_Index(JSort.first(std::min(Held_Count(NPnt, JSort), SortKey.size() / M)), bLess);
}

I4 SelectK_R4(I4 K, I4 N, std::span<R4> XA) {
  const auto XUsed = XA.first(Held_Count(N, XA));
  if (K < 1 || static_cast<std::size_t>(K) > XUsed.size()) return 1;
  std::nth_element(XUsed.begin(), XUsed.begin() + K - 1, XUsed.end(),
                   [](R4 a, R4 b) { return Ordered_Bits(a) < Ordered_Bits(b); });
  return 0;
}

}  // namespace quillan
