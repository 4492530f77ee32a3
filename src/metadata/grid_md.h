// grid_md.h: metadata group GRID: reference points of a local grid. They are kept; nothing is computed from them.
//
//   $ Grid.Ref1= 0:0, 645308.1:1894488.8, "Peg A"    two pairs and a label
//   $ Grid.XYOffset= 500, 1000, "Shore"              an offset and a label
//   $ Grid.XAzimuth= N45E
//
// Numbers are separated by commas, semicolons or colons alike.
#pragma once

#include "base/array.h"
#include "base/text.h"
#include "base/types.h"
#include "metadata/md_engine.h"

namespace quillan {

using GridPairs = Array2<R8, 2, 2>;  // (coordinate, pair); a record gives (1,1), (2,1), (1,2), (2,2)

/// The warnings so far about each keyword, and about keywords that are unknown.
struct GridWarnings {
  I4 NErrRef1 = 0, NErrRef2 = 0, NErrCalc = 0, NErrXYOffset = 0, NErrXAzimuth = 0, NErrUnknown = 0;
};

/// One item a keyword, and the priority l... of the record that gave it (0: none).
struct GridGroup : GridWarnings {
  Text<16> sRef1, sRef2, sCalc;  // labels of the pairs
  Text<16> sXYOffset;            // label of the offset
  GridPairs dRef1{}, dRef2{};    // reference points
  GridPairs dCalc{};             // calculated point
  Array1<R8, 2> dXYOffset{};     // offset
  R4 fXAzimuth = 90.0f;          // degrees clockwise from north, x axis of the grid

  I4 lRef1 = 0, lRef2 = 0, lCalc = 0, lXYOffset = 0, lXAzimuth = 0;
};

// Module state. Grid_MD_Read fills it, Grid_MD_Initialize restores it.
inline GridGroup MdGrid;

/// (hGroup, bResetError): every value gets its default, as MD_Initialize says.
inline constexpr auto Grid_MD_Initialize = MD_Initialize<GridGroup, GridWarnings>;

/// Applies one record. Returns the status of MD_Read.
[[nodiscard]] I4 Grid_MD_Read(const MdRecord& hRecord, GridGroup& hGrid);

}  // namespace quillan
