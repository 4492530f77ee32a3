// txw_data.h: transmitter wire loops: the surveyed corners of each loop, their centre, area and equivalent sides.
//
// The reader of wire files fills the table; the survey configuration and the transmitter positions are taken from it.
// All coordinates and lengths are in the units of the file, as surveyed. K runs over loops and J over the corners of a
// loop, both from 1; the loops stand in the order of rising identifiers.
#pragma once

#include <cassert>
#include <vector>

#include "base/array.h"
#include "base/types.h"

namespace quillan {

inline constexpr I4 MTxUTMV = 32;  // corners of a loop

using WireCorners = Array2<R8, 3, MTxUTMV>;

/// Corners without a position, at elevation 0.
constexpr WireCorners Unset_Corners() {
  WireCorners dCorner{};
  for (auto& dEastNorthElev : dCorner.hColumn)
    dEastNorthElev = {
        {dDummy, dDummy, 0.0}
    };
  return dCorner;
}

struct WireLoop {
  R8 dTxStn = dDummy;                                     // identifier, a transmitter station number
  R4 fTxArea = fDummy;                                    // area enclosed by the corners
  Array1<R8, 3> dTxUTMC = Filled<Array1<R8, 3>>(dDummy);  // centre, the mean of the corners: east, north, elevation
  I4 NTxUTMV = 0;                                         // corners
  WireCorners dTxUTMV = Unset_Corners();                  // (1..3, J): east, north, elevation
  Array1<R4, MTxUTMV> fTxDepth = Filled<Array1<R4, MTxUTMV>>(0.0f);  // depth of each corner, zero or negative
};

/// Loops by number, from 1.
class WireTable {
 public:
  WireLoop& operator()(I4 K) {
    assert(K >= 1 && K <= MLoop());
    return hLoop[static_cast<std::size_t>(K - 1)];
  }
  const WireLoop& operator()(I4 K) const {
    assert(K >= 1 && K <= MLoop());
    return hLoop[static_cast<std::size_t>(K - 1)];
  }
  auto begin() { return hLoop.begin(); }
  I4 MLoop() const { return static_cast<I4>(hLoop.size()); }
  /// One loop more, without corners.
  void Add() { hLoop.emplace_back(); }
  void Clear() { hLoop.clear(); }

 private:
  std::vector<WireLoop> hLoop;
};

// Module state. The reader of wire files fills it, Txw_Initialize empties it.
inline WireTable hTxw;    // the loops
inline I4 NTxw = 0;       // of which in use
inline I4 NTxwError = 0;  // reports on areas and lengths since the last read; the first of them shows in a box

/// No loops, and no reports so far.
void Txw_Initialize();

/// Puts the loops in the order of rising identifiers. If they were not so already, only the first loop of each
/// identifier is kept; a table that is in order is not looked at for duplicates, since a file so ordered was made to be
/// taken as it stands.
void Txw_Sort();

/// Centre and area of a loop. The corners are put into the order of their angle around the centre, so that a list of
/// corners in any order gives the true area of a convex loop; a re-entrant loop is flattened.
/// Returns 0; 1 fewer than 3 corners, reported, area and centre unchanged.
[[nodiscard]] I4 Txw_Get_Area(WireLoop& hTxwJ);

/// Sides of a rectangle that has the area of a loop and the proportions of its longest wires, along (1) and across (2)
/// the azimuth fXazm in degrees.
/// Returns 0; 1 reported: no area, fTxLength is then 1.0, or no such azimuth, it is then the side of the square.
[[nodiscard]] I4 Txw_Get_Length(const WireLoop& hTxwJ, R4 fXazm, Array1<R4, 2>& fTxLength);

/// What a look-up found.
struct LoopFound {
  I4 iTxw = 0;    // number of the loop, 0 if the station has none
  I4 iError = 0;  // 0, also when no loop is found; 1 no loops at all, or the station has no value
};
LoopFound Txw_Get_iTxw(R8 dTxStn);

}  // namespace quillan
