// amr_file.h: the store into AMIRA files: the soundings of a window set (.tem) and its windows (.chn.tem).
//
//   TEM data reviewed with QUILLAN v3.30n on 13/11/2020
//   DATATYPE:TEM                     keywords, one a line; of a fixed loop also its corners:
//   LV1X:482285.82                   east of corner 1
//   /PROJECT:Orrin basin             remarks
//   /TIMES(ms)=0.0107,0.0139         the windows: arithmetic centres, widths, starts, ends
//   LOOP LINE STN EAST ... NCH CH1        CH2        labels
//   1    12   50  *    ... 2   1.1210E+4  *          one row a sounding
//
//   Torvo KVR delay times w.r.t. end of Tx ramp (msec).
//   NUMTIMES:2
//   DELAY WIDTHS
//   0.0107 0.003                     one row a window: centre and width
//
// The format knows one window set a file. A survey with several has a pair of files for each: line72.tem and
// line72.chn.tem hold the second set of line7. Numbers have no trailing zeros, and one that is missing or too wide is
// "*", as is a skipped window. Fields are padded to the width of their column, which grows with what it holds.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "base/array.h"
#include "base/types.h"
#include "model/tmd_data.h"

namespace quillan {

inline constexpr I4 MAmrSet = 8;  // window sets that are written

/// The distinct window sets of the store, in the order of their first transients.
struct AmrSetList {
  I4 NTWCfgList = 0;
  Array1<I4, MAmrSet> iTWCfg{};
};
/// Sets beyond the limit are reported, with the soundings that are left out. The store must not be empty.
[[nodiscard]] AmrSetList AMR_TWCfg_List();

/// Asked ahead of each pair of files: the name to write sTrnFile under, blank to give up.
using AmrQuestion = std::function<std::string(const std::string& sTrnFile)>;

/// Writes the store, a pair of files for each window set: the stem of sAmrFile, with several sets the number of the
/// set, and ".tem" and ".chn.tem"; under another name the channel file takes that one too.
/// Returns 0; 1 when the store is empty or a file could not be written, both reported, or Name_to_Write gave up; what
/// was not written is then as before.
[[nodiscard]] I4 AMR_Write(std::string_view sAmrFile, const AmrQuestion& Name_to_Write);

/// Writes a channel file. I = 1..NTW: fTWbeg(I), fTWend(I) in msec.
/// Returns 0; 1 when the file could not be written, which is reported.
[[nodiscard]] I4 AMR_Write_Chn(const std::string& sChnFile, I4 NTW, const WindowValues& fTWbeg,
                               const WindowValues& fTWend);

}  // namespace quillan
