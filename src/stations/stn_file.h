// stn_file.h: station files (.stn): surveyed positions of stations along lines into the station table.
//
//   ! Orrin basin, surveyed 2020-09-14                 comment; so are lines that begin with $ \ / or a double quote
//   Station   East    North    Elev  Heading   Line    labels: columns of the rows below, in any order; may be left out
//   100       350100  6240020  120   92.5      1200    one row a station
//   125       350125  6240019  121   91.0      1200
//
// A record has at most 128 characters and 16 columns, separated by blanks, commas or tabs; lines of fewer than three
// characters are passed over. A line that begins with a letter names the columns until the next such line; rows below
// one that lacks station, east, north or elevation are ignored. Without labels these four are the columns.
//
//   STATION, EAST, NORTH, ELEV   required in each row; coordinates in any one length unit
//   HEADING, PITCH, ROLL         degrees; the caller's where they are absent
//   LINE                         line number; the caller's where it is absent
//   DEPTH                        0 where it is absent; may have either sign
//   MUXBOX, ELECTRODE            0 where they are absent
//
// A label counts when it holds the word: "Easting_m" is EAST.
#pragma once

#include <string>

#include "base/array.h"
#include "base/types.h"
#include "model/stn_data.h"

namespace quillan {

inline constexpr I4 MStnRecord = 128;  // characters of a record
inline constexpr I4 MStnCol = 16;      // columns of a file

/// Replaces the station table by the stations of a file, sorted by line and station, without repeated ones, the
/// statistics of each line computed. Where no heading is in the file, stations of straight lines head along the line.
/// dLineNumber, fLineHPR (heading, pitch, roll): what a row takes that does not state them. A row that cannot be used
/// is dropped and reported, once: the first report of each kind shows in a box, the others are in the error file.
/// A file that does not exist: with bAuto nothing is read, else the user may choose another, which sStnFile then names.
/// bAuto: nobody is asked, and errors go to the error file alone.
/// Returns 0 when at least one station was read; 1 no file, or no station in it: the table has no stations.
[[nodiscard]] I4 Stn_Read(std::string& sStnFile, R8 dLineNumber, const Array1<R4, 3>& fLineHPR, L4 bAuto);

}  // namespace quillan
