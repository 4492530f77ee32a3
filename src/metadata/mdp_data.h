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

// Where a record comes from: its iPriority. The greater one wins, whichever is read first.
inline constexpr I4 iPriorityMde = 1;      // metadata file
inline constexpr I4 iPriorityData = 2;     // data file
inline constexpr I4 iPriorityDerived = 3;  // computed

// IOERR of MDP_from_MDE beside the status of the group's reader.
inline constexpr I4 iMdpNoRecord = 1;  // the line holds no metadata or no value
inline constexpr I4 iMdpForeign = 2;   // another program's line

inline constexpr I4 NAlias = 143;     // older names that are known
inline constexpr I4 MMdName = 32;     // characters of a name; the rest is cut
inline constexpr I4 MMdField = 128;   // fields of a value
inline constexpr I4 MMdValue = 2048;  // characters of a value; the rest is cut

// Module state. MDP_Read_Value fills it for each record; nothing is read from it afterwards.
inline FieldList hMdpField(MMdField, 128);

/// Once at the start of the program: all groups get their defaults. IMERR: 0.
void MDP_Initialize(I4& IMERR);

/// All groups get their defaults; warning counts go on unless bResetError. IMERR: 0.
void MDP_Initialize_MD(I4& IMERR, bool bResetError);

/// Takes a $ line into its group. iRecord: its number in the source. IOERR: the status of the group's reader (0 taken;
/// not 0 where a value is missing or unreadable; 3 unknown keyword), or iMdpNoRecord, or iMdpForeign.
/// bForeign, where it is given: true for a line that no group takes, by its program, its group or its keyword. Such
/// lines are kept and written back.
void MDP_from_MDE(I4 iRecord, std::string_view sRecord, I4 iPriority, I4& IOERR, bool* bForeign = nullptr);

/// The same for a line that is split already; sRecord is what reports show. IMERR: as IOERR above; 1 where the name
/// leads to no keyword; 0 for a group that no reader serves.
void MDP_Read_Value(I4 iRecord, std::string_view sRecord, std::string_view sName, std::string_view sValue, I4 iPriority,
                    I4& IMERR, bool* bForeign = nullptr);

// The same, the results returned.
struct MdpStatus {
  I4 IOERR = 0;
  bool bForeign = false;
};
[[nodiscard]] inline MdpStatus MDP_from_MDE(I4 iRecord, std::string_view sRecord, I4 iPriority) {
  MdpStatus h;
  MDP_from_MDE(iRecord, sRecord, iPriority, h.IOERR, &h.bForeign);
  return h;
}
inline void MDP_Initialize() {
  I4 iError = 0;
  MDP_Initialize(iError);
}
inline void MDP_Initialize_MD(bool bResetError) {
  I4 iError = 0;
  MDP_Initialize_MD(iError, bResetError);
}

}  // namespace quillan
