#include "model/stn_data.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

#include "foundations/digit_sort.h"
#include "foundations/sort_util.h"

namespace quillan {

namespace {

constexpr I4 MStnLeast = 256;  // points that a new table holds
constexpr I4 MStnSpare = 64;   // points that it holds beyond those that are wanted

// Keys count as one within 10 units of the last place of either; twice as many units of the lower one are clear of
// that.
constexpr R4 fClearUnits = 20.0f;

/// Flags and ranges as they are without a file.
void Clear_Flags_and_Ranges() {
  static_cast<StationRanges&>(hStn) = {};
  hStn.fSLmin = fRangeMin0;
  hStn.fSLmax = fRangeMax0;
  hStn.lLine = hStn.lDepth = hStn.lStnAzm = hStn.lPitch = hStn.lRoll = hStn.lMuxBox = hStn.lMuxChn = 0;
}

/// The values of a point that are numbers, and those that are counts.
constexpr StationColumn<R4> StationTable::*hRealColumn[] = {
    &StationTable::fStnS, &StationTable::fStnL, &StationTable::fStnX, &StationTable::fStnY, &StationTable::fStnZ,
    &StationTable::fStnH, &StationTable::fStnP, &StationTable::fStnR, &StationTable::fStnD};
constexpr StationColumn<I4> StationTable::*hCountColumn[] = {&StationTable::iMuxBox, &StationTable::iMuxChn};

/// A point and what it is sorted by.
struct PointKey {
  std::uint64_t iKey;  // line and station
  I4 I;
};

/// Whether any comparison, exact or not, puts the lower of two numbers before the higher.
bool Is_Clearly_Below(R4 f1, R4 f2) {
  using Limits = std::numeric_limits<R4>;
  return f1 < f2 && f2 - f1 >= fClearUnits * (Limits::epsilon() * std::abs(f1) + Limits::min());
}

R4 Line_of(const PointKey& h) {
  return Real_of_Bits(static_cast<std::uint32_t>(h.iKey >> 32));
}

R4 Station_of(const PointKey& h) {
  return Real_of_Bits(static_cast<std::uint32_t>(h.iKey));
}

bool Stands_Clearly_Before(const PointKey& h1, const PointKey& h2) {
  if (Line_of(h1) != Line_of(h2)) return Is_Clearly_Below(Line_of(h1), Line_of(h2));
  return Is_Clearly_Below(Station_of(h1), Station_of(h2));
}

/// The order by exact comparison, which is quick. False where points are so near each other that the tolerant one could
/// differ from it.
bool Has_Clear_Order(std::vector<I4>& JSort) {
  std::vector<PointKey> hKey;
  hKey.reserve(JSort.size());
  for (I4 I = 1; I <= hStn.NStn; ++I) {
    const std::uint64_t iLine = Ordered_Bits(hStn.fStnL(I));
    hKey.push_back({iLine << 32 | Ordered_Bits(hStn.fStnS(I)), I});
  }
  const auto Key_of = [](const PointKey& h) { return h.iKey; };
  if (!std::ranges::is_sorted(hKey, {}, Key_of)) Digit_Sort(hKey, Key_of);
  for (std::size_t J = 0; J < hKey.size(); ++J) {
    if (J > 0 && !Stands_Clearly_Before(hKey[J - 1], hKey[J])) return false;
    JSort[J] = hKey[J].I;
  }
  return true;
}

/// The order of the points by station, or by line and station where there is more than one line.
std::vector<I4> Order_of_Points() {
  std::vector<I4> JSort(static_cast<std::size_t>(hStn.NStn));
  if (Has_Clear_Order(JSort)) return JSort;
  if (hStn.NStnLine == 1) {
    HeapSort_R4(hStn.NStn, hStn.fStnS.Items(1, hStn.NStn), JSort);
    return JSort;
  }
  std::vector<R4> SortKey;
  SortKey.reserve(2 * JSort.size());
  for (I4 I = 1; I <= hStn.NStn; ++I) {
    SortKey.push_back(hStn.fStnL(I));
    SortKey.push_back(hStn.fStnS(I));
  }
  Sort_MKey_R4(2, hStn.NStn, SortKey, JSort);
  return JSort;
}

}  // namespace

void Stn_Forget() {
  hStn.NStn = hStn.NStnLine = 0;
  hStn.iStnS0 = hStn.iStnL0 = hStn.iStnX0 = hStn.iStnY0 = 0;
  Clear_Flags_and_Ranges();
}

void Stn_Initialize(I4 NStn, I4 NStnLine) {
  hStn.NStn = NStn;
  hStn.NStnLine = NStnLine;
  const I4 MStnLine = std::max(1, NStnLine);
  hStn.dStnLine.Start(NStnLine, MStnLine, dDummy);
  hStn.iStnBeg.Start(NStnLine, MStnLine, 0);
  hStn.iStnEnd.Start(NStnLine, MStnLine, 0);
  hStn.hLineStat.Start(NStnLine, MStnLine, LineStat{});
  const I4 MStn = std::max(NStn + MStnSpare, MStnLeast);
  for (const auto hColumn : hRealColumn) (hStn.*hColumn).Start(NStn, MStn, fDummy);
  hStn.fStnD.Start(NStn, MStn, 0.0f);
  for (const auto hColumn : hCountColumn) (hStn.*hColumn).Start(NStn, MStn, 0);
  Clear_Flags_and_Ranges();
}

void Stn_Add_Line(R8 dLine, I4 I) {
  // Numbers that are nearly one can interleave in the sorted table and give more lines than were counted.
  if (++hStn.NStnLine > hStn.dStnLine.NItem()) {
    hStn.dStnLine.Add(dDummy);
    hStn.iStnBeg.Add(0);
    hStn.iStnEnd.Add(0);
    hStn.hLineStat.Add({});
  }
  hStn.dStnLine(hStn.NStnLine) = dLine;
  hStn.iStnBeg(hStn.NStnLine) = hStn.iStnEnd(hStn.NStnLine) = I;
}

void Stn_Copy_Point(I4 I, I4 J) {
  for (const auto hColumn : hRealColumn) (hStn.*hColumn)(J) = (hStn.*hColumn)(I);
  for (const auto hColumn : hCountColumn) (hStn.*hColumn)(J) = (hStn.*hColumn)(I);
}

void Stn_Sort() {
  if (hStn.NStn < 2 || hStn.NStnLine < 1) return;
  const std::vector<I4> JSort = Order_of_Points();
  for (const auto hColumn : hRealColumn) Reorder_R4(hStn.NStn, JSort, (hStn.*hColumn).Items(1, hStn.NStn));
  for (const auto hColumn : hCountColumn) Reorder_I4(hStn.NStn, JSort, (hStn.*hColumn).Items(1, hStn.NStn));
}

}  // namespace quillan
