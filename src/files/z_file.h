// z_file.h: contour files (.Z): plain text for plotting programs, into the store and out of it.
//
//   $ Narvo: Project = Orrin basin                  $ lines: metadata, and other programs' settings
//    Dorval Contour File                            header lines, for people; words such as "dBz/dt" or "magnitude"
//    Cl Cn Ce Ns Nd Yl  Plot file1                  say what the block holds
//     0  1  0  3  1  0
//    TEM SURVEY DATA
//    dBz/dt uV/amp
//       Tx 100.0
//   $ CONTOUR= NONE
//   IIxxxxxxxxYYYYYYYYzzzzzzzzzzzz                  ends the header and shows the columns of the rows
//    2   100.0 0.01230  3.4051E+02                  skip code, receiver station, msec, value: I2, F8, F8, ES12.4
//    1   100.0 0.12500  1.1000E+01
//    9999.00                                        ends the block
//
// A block holds one transmitter offset and one component of one kind of data; a file has several. Only dB/dt is read.
// Skip code 2 is a window in use, 1 a skipped one; any other number takes the state of the row before. Since columns
// have fixed places, neighbouring numbers may touch. A record has at most 128 characters. The end mark is looked for in
// the first ten of them, so a row of station 9999 ends its block.
//
// What we write has three sections of blocks: dB/dt, B(t) where there is any, and apparent resistivity over the
// logarithm of time. Its settings belong to the plotting program, so that reading it back takes no metadata from them.
#pragma once

#include <cstddef>
#include <string_view>

#include "base/types.h"

namespace quillan {

inline constexpr I4 MZRecord = 128;  // characters of a record
inline constexpr I4 MZHeader = 16;   // lines of a header, $ lines aside

/// Replaces the transients of the store by the dB/dt blocks of a file, whose kind the user confirms block by block. On
/// return j = 1..NTrn, I = 1..hTrn(j).NTW: fTWCen(I) in msec, fuVmag(I) in idBdtUnit, bSkip(I). Rows make one transient
/// as long as the station stays and the time does not fall back; what belongs to the whole transient is taken from the
/// metadata in force. A row that cannot be read ends its block.
/// Returns 0 when at least one transient was read; 1 when none was, the file could not be read, a header has more than
/// MZHeader lines, or the user cancelled.
[[nodiscard]] I4 Z_Read(std::string_view sZFile);

/// Writes the transients that are not skipped. No command calls it: a save offers the formats of modelling programs.
/// Returns 0; 1 when the store is empty or the file could not be written; each is reported, and the file of before is
/// then whole.
[[nodiscard]] I4 Z_Write(std::string_view sZFile);

// What the reader and the writer share.

inline constexpr I4 iZSkipOut = 1;  // skip codes
inline constexpr I4 iZSkipInUse = 2;
inline constexpr I4 iZSkipNoPoint = 5;  // of a row that keeps a place on the axis without a value

/// A column of the rows, as the ruler shows it.
struct ZColumn {
  std::size_t iFirst;  // place, from 0
  std::size_t NWidth;
};
inline constexpr ZColumn hZSkipColumn = {0, 2};
inline constexpr ZColumn hZStnColumn = {2, 8};
inline constexpr ZColumn hZTimeColumn = {10, 8};
inline constexpr ZColumn hZValueColumn = {18, 12};
inline constexpr std::size_t NZRow = 30;  // characters of a row

/// The axis of a component: 1 x, 2 y, 3 z.
constexpr I4 Z_Axis(I4 iRxCmp) {
  return (iRxCmp - 1) % 3 + 1;
}

}  // namespace quillan
