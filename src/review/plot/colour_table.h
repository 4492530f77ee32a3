// colour_table.h: the colour table: which colour a percent has in sections and maps.
//
// The table is read from cftable.clr; without the file it runs from blue over cyan, green and yellow to red. The file
// holds one row a line, as four numbers in free format:
//
//   ! cold to warm                   comment: a line that holds ! " \ / or ColorMap, or is blank
//   0 0 0 255                        percent, red, green, blue
//   50 0 255 0
//
// Rows may come in any order; values outside their range are held to it; of rows of one percent the first counts.
#pragma once

#include <string_view>

#include "base/array.h"
#include "base/types.h"

namespace quillan {

inline constexpr I4 MCFT = 101;  // rows of the table

// Columns of a row.
inline constexpr I4 iCftPercent = 1;
inline constexpr I4 iCftRed = 2;
inline constexpr I4 iCftGreen = 3;
inline constexpr I4 iCftBlue = 4;
inline constexpr I4 MCftColumn = 4;

// Module state. CFT_Initialize fills and restores it; CFT_Read replaces it.
inline I4 NCFT = 0;                          // rows in use, 1 to 101
inline Array2<R4, MCFT, MCftColumn> fCFT{};  // (J, K): percent 0 to 100, rising with J; red, green, blue 0 to 255

/// Takes the default rows, then those of a file, if it can be read.
void CFT_Initialize(std::string_view sClrFile);

/// Replaces the rows by those of a file, which is looked for by its path and then where support files are.
/// Returns 0; 1 there is no such file, or no row in it; the rows stay.
[[nodiscard]] I4 CFT_Read(std::string_view sClrFile);

/// Parts of a colour, 0 to 255 each.
struct Colour {
  I4 iRed = 0, iGreen = 0, iBlue = 0;
};
/// The colour of a percent, interpolated between the rows.
Colour CFT_Get(R4 fXX);

}  // namespace quillan
