// mdp_data.h: the way of a metadata line into its group.
//
//   $ Tx.Freq= 8 hertz             group, keyword, value; blanks do not count
//   $ FLINE= 1200                  one of the many older names, here of Line.Number
//   $ Rx.Length= 50, 25            the fields of a value are separated by commas or semicolons
//   $ Dorval: Tx.Freq= 8           another program's line
//   $ Tx.Amp= *                    not set: no value
//
// Names are compared in upper case. A name is translated at most once. The live records of the eleven groups (MdJob,
// MdSurvey, MdUnit, MdGrid, MdLine, MdStn, MdKvr, MdGps, MdTx, MdRx, MdChn) stand in the headers of the groups.
#pragma once

#include <string_view>

#include "base/types.h"
#include "foundations/str_parse.h"
#include "metadata/ch_md.h"
#include "metadata/gps_md.h"
#include "metadata/grid_md.h"
#include "metadata/job_md.h"
#include "metadata/kvr_md.h"
#include "metadata/line_md.h"
#include "metadata/rx_md.h"
#include "metadata/stn_md.h"
#include "metadata/survey_md.h"
#include "metadata/tx_md.h"
#include "metadata/unit_md.h"

namespace quillan {

// Status of a line beside that of the group's reader: 0 taken; not 0 where a value is missing or unreadable; 3 unknown
// keyword.
inline constexpr I4 iMdpNoRecord = 1;  // the line holds no metadata or no value
inline constexpr I4 iMdpForeign = 2;   // another program's line

inline constexpr I4 NAlias = 143;     // older names that are known
inline constexpr I4 MMdName = 32;     // characters of a name; the rest is cut
inline constexpr I4 MMdField = 128;   // fields of a value
inline constexpr I4 MMdValue = 2048;  // characters of a value; the rest is cut

// Module state. MDP_Read_Value fills it for each record; nothing is read from it afterwards.
inline FieldList hMdpField(MMdField, 128);

/// Once at the start of the program: all groups get their defaults.
void MDP_Initialize();

/// All groups get their defaults; warning counts go on unless bResetError.
void MDP_Initialize_MD(bool bResetError);

/// What became of a line.
struct MdpStatus {
  I4 IOERR = 0;           // status of the group's reader, or iMdpNoRecord, iMdpForeign; 0 for an unknown group
  bool bForeign = false;  // no group takes the line, by its program, its group or its keyword
};

/// Takes a $ line into its group. iRecord: its number in the source. Foreign lines are kept and written back by those
/// who hold the file.
[[nodiscard]] MdpStatus MDP_from_MDE(I4 iRecord, std::string_view sRecord, I4 iPriority);

/// The same for a line that is split already; sRecord is what reports show. IOERR is 1 where the name leads to no
/// keyword.
[[nodiscard]] MdpStatus MDP_Read_Value(I4 iRecord, std::string_view sRecord, std::string_view sName,
                                       std::string_view sValue, I4 iPriority);

}  // namespace quillan
