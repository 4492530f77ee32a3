// avg_reader.h: averaged (.avg) and unaveraged (.xdb) data files into the store.
//
//   \ remark                               comment; so are lines that begin with / ! or a double quote
//   $Tx.Freq= 16 hertz                     metadata, in force until the next such line
//   TWin.Center, dBdt.Mag, dBdt.%Err       labels: columns of the rows below, in any order
//   1.2500E-2, 3.40512E+02, 0.4            one row a time window
//
// A record has at most 256 characters, and lines of fewer than three are passed over. A line that begins with a letter
// names the columns until the next such line; "TWin.Center" and "dBdt.Mag" are required, and rows below a line
// without them are ignored. Older files spell the labels otherwise (avg_columns). Rows need a $ line ahead of them.
//
// Rows make one transient as long as both stations stay and the times rise: a time that falls back is a repeat. What
// belongs to the whole transient is taken from its first row and the metadata in force there. The column SKIP holds 2
// for a window in use; "dBdt.Wgt" is read and has no effect, so a file of the current format comes back without skip
// flags.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/array.h"
#include "foundations/str_parse.h"
#include "model/tmd_data.h"

namespace quillan {

inline constexpr I4 MAvgRecord = 256;  // characters of a record
inline constexpr I4 MAvgCol = 32;      // columns of a file

/// What the reader remembers from row to row. AVG_Read clears it for a file but for the transmitter station and the
/// time, which the first row of any file overrules as a new receiver station.
struct AvgReadState {
  FieldList hField{MAvgCol};  // fields of the row at hand
  std::string sLabels;        // the label line in force
  ColumnMap hColumn;          // its match
  std::vector<I4> JRead;      // its columns in the order in which the variables are read
  std::vector<I4> JPlain;     // the same by file column, 0 for one that is passed over; empty unless all are R4
  L4 bValidData = false;      // it has the required columns
  L4 bNewMD = false;          // a $ line came since the last row
  L4 bHaveMD = false;         // a $ line came before any row
  R8 dTxKvrStn0 = dDummy;     // stations and time of the row before
  R8 dRxKvrStn0 = dDummy;
  R4 fTWCen0 = fDummy;
  I4 ITW = 0;  // rows of the transient so far
};
inline AvgReadState hAvgRead;

/// Replaces the transients of the store by those of a file. On return j = 1..NTrn, I = 1..hTrn(j).NTW: fTWCen(I) in
/// msec, rising; fuVmag(I) and fuVerr(I) in idBdtUnit; fuVpct(I) in percent; fARes(I) in ohm-m. A row that cannot be
/// used is dropped and named in the error file. Comment lines, and $ lines that no metadata group takes, are kept for
/// the next file written.
/// Returns 0 when at least one transient was read; 1 when none was, the file could not be read, or its last line of
/// labels lacks a required column.
[[nodiscard]] I4 AVG_Read(std::string_view sFile);

}  // namespace quillan
