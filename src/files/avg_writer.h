// avg_writer.h: the store into an averaged data file (.avg) of the current format.
//
//   \ remark                                                     comments of the input file
//   \ TEM data reviewed with QUILLAN v3.30n on 12/11/2020
//                                                                a line of one blank
//   $ Job.Name = "Example"                                       the survey
//   ...                                                          $ lines of the input file that no group takes
//                                                                for each transient: a line of one blank,
//   $Kvr.AcqMethod=Transient                                     its metadata,
//   ...
//   TWin.Index,TWin.Center,TWin.Beg,TWin.End,dBdt.Mag,dBdt.Err,dBdt.%Err,dBdt.Wgt,ARes.Mag,Depth.Image,B.Mag
//    1, 4.0600E-3, 3.6000E-3, 4.5400E-3, 4.47300E+05, 9.34E+02,    0.2, 1.0,    6.550E+00,4.566E+0, 1.20000E+01
//
// Fields end in a comma and are padded to the width of their column, so that rows line up; a value that is missing or
// too wide is a lone "*". Resistivity and depth are there when any window of the store has a resistivity, B when any
// has a B(t). A skipped window keeps its numbers and has the weight 0.0.
#pragma once

#include <string_view>

#include "base/types.h"
#include "foundations/text_file.h"
#include "model/tmd_data.h"

namespace quillan {

/// The most that a resistivity or a B(t) may be and still count as none.
inline constexpr R4 fNoValueLimit = 1.0E-20f;

/// Writes the store. Depths are computed anew on the way and stay in the store. iError: 0; 1 when the store is empty,
/// the file could not be written (the file of before is then whole) or the last transient has no metadata block; each
/// is reported.
void AVG_Write(std::string_view sFile, I4& iError);

/// The survey's block: one "$ name = value" line a record. Sets the survey's time unit to msec, the unit of the rows.
void AVG_Write_TEM_Line_MD(TextWriter& out, I4& iError);

/// The metadata block of one transient. iError: 0; 1 when the survey has no station increment: nothing is written then.
void AVG_Write_TEM_Trns_MD(const Transient& hTrnsK, TextWriter& out, I4& iError);

// What both writers of averaged files share.

/// Today as DD/MM/YYYY.
std::string AVG_Date();
/// Image depth of window I from its time and resistivity, m.
R4 AVG_Depth(const Transient& h, I4 I);
/// Whether a window is out of use, by its own flag or its transient's.
bool AVG_Is_Skipped(const Transient& h, I4 I);
/// Begins a file: the report of an empty store, and the log lines. iError 1 when there is nothing to write.
void AVG_Begin_Write(std::string_view sRoutine, std::string_view sFile, std::string_view sHeaderLine, I4& iError);
/// Reports a writer that has failed, with iError 1; else iError stays. sWhat: "opening" or "writing".
void AVG_Report_Write(const TextWriter& out, std::string_view sWhat, std::string_view sFile, I4& iError);

// The same, the status returned.
[[nodiscard]] inline I4 AVG_Write(std::string_view sFile) {
  I4 iError = 0;
  AVG_Write(sFile, iError);
  return iError;
}

}  // namespace quillan
