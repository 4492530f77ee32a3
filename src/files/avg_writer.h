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

#include <string>
#include <string_view>

#include "base/types.h"
#include "foundations/text_file.h"
#include "model/tmd_data.h"

namespace quillan {

/// Writes the store, which Prepare_Output has made ready. Returns 0; 1 when the store is empty, the survey has no
/// recorded station increment to scale stations by, or the file could not be written; each is reported, and the file of
/// before is then whole.
[[nodiscard]] I4 AVG_Write(std::string_view sFile);

/// The survey's block: one "$ name = value" line a record.
void AVG_Write_TEM_Line_MD(TextWriter& out);

/// The metadata block of one transient. The survey's recorded station increment must not be 0.
void AVG_Write_TEM_Trns_MD(const Transient& hTrnsK, TextWriter& out);

// What both writers of averaged files share.

/// "QUILLAN v3.30n on 12/11/2020"
std::string AVG_Signature();
/// Begins a file: the report of an empty store, and the log lines. Returns 0; 1 when there is nothing to write.
[[nodiscard]] I4 AVG_Begin_Write(std::string_view sRoutine, std::string_view sFile, std::string_view sHeaderLine);
/// Reports a writer that has failed. Returns 0; 1 when it has. sWhat: "opening" or "writing".
[[nodiscard]] I4 AVG_Report_Write(const TextWriter& out, std::string_view sWhat, std::string_view sFile);

}  // namespace quillan
