#include "stations/stn_data.h"

#include <algorithm>

#include "foundations/sort_util.h"

namespace quillan {

namespace {

constexpr I4 MStnLeast = 256;  // points that a new table holds
constexpr I4 MStnSpare = 64;   // points that it holds beyond those that are wanted

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

/// The order of the points by station, or by line and station where there is more than one line.
std::vector<I4> Order_of_Points() {
  std::vector<I4> JSort(static_cast<std::size_t>(hStn.NStn));
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
