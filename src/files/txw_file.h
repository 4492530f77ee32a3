// txw_file.h: transmitter wire files (.txw): the surveyed corners of wire loops into the loop table.
//
//   ! Orrin basin, surveyed 2020-09-14     comment; so are lines that begin with $ \ / or a double quote
//   Tx.ID  East    North    Elev  Depth    labels: columns of the rows below, in any order; may be left out
//   1200   350100  6240020  120            one row a corner
//   1200   350300  6240020  121
//
// A record has at most 128 characters and 16 columns, separated by blanks, commas or tabs; lines of fewer than three
// characters are passed over. A line that begins with a letter names the columns until the next such line; rows below
// one that lacks the identifier, east or north are ignored. Without labels the columns are identifier, east, north.
//
//   LOOP (also TX, TX.ID, TX.KVRSTN, TX.STN, TXID)   identifier of the loop, a transmitter station number
//   EAST, NORTH                                      position, in any length unit
//   ELEV (also ELEVATION), DEPTH                     optional, 0 where they are absent; a depth may have either sign
//
// A loop is a run of rows with one identifier. A label counts when it holds the word: "Easting_m" is EAST.
#pragma once

#include <string>
#include <string_view>

#include "base/types.h"

namespace quillan {

inline constexpr I4 MTxwRecord = 128;  // characters of a record
inline constexpr I4 MTxwCol = 16;      // columns of a file
// Loops that are read: four for each transient of a full store. A file of more is no wire file.
inline constexpr I4 MTxwLoop = 16384;

/// Replaces the loop table by the loops of a file: K = 1..NTxw, J = 1..hTxw(K).NTxUTMV, of which the first 32 are kept;
/// the depth of the last corner stands for the whole loop. The loops are sorted, and centre and area are computed where
/// there are three corners. A row that cannot be used is dropped and reported.
/// A file that does not exist: with bAuto nothing is read, else the user may choose another, which sTxwFile then names.
/// bAuto: nobody is asked, and errors go to the error file alone.
/// Returns 0 when at least one loop was read; 1 no file, or no loop in it: the table is empty.
[[nodiscard]] I4 Txw_Read(std::string& sTxwFile, L4 bAuto);

}  // namespace quillan
