// tmd_exchange.h: the survey record against the metadata groups, the wire loops and any file of keyword records.
//
// The metadata groups and the survey record hold the same facts in two forms: the groups as the files gave them, the
// survey record as the program works with them. A value moves only if its source has one, so that a survey which is
// read line by line keeps the last good value. The survey type is not exchanged: this program knows one.
#pragma once

#include <string>
#include <vector>

#include "base/array.h"
#include "base/text.h"
#include "base/types.h"

namespace quillan {

/// A keyword record on its way into a file.
struct MdEntry {
  Text<32> sName;    // "Job.Name"
  Text<130> sValue;  // as it stands in the file: a text of 128 characters keeps both of its quotes
};
using MdEntryList = std::vector<MdEntry>;

inline constexpr I4 MMdEntry = 32;      // records in a list, unless its owner has more
inline constexpr I4 MMdEntryFree = 25;  // fewer free entries are not enough for the survey

/// What the metadata groups have goes to the survey record. The centre, length and azimuth of the transmitter are
/// derived from its corners first, where at least two were given. iError: 0.
void TMD_Survey_from_MD(I4& iError);

/// What the survey record has goes to the metadata groups. iError: 0.
void TMD_Survey_to_MD(I4& iError);

/// Appends the survey record to a list that holds at most MEntry records: job, survey, line, stations, transmitter,
/// units, in the order of the files. Lengths are in m in the survey record and in iLengthUnit in the list.
/// IOERR: 0; -1 fewer than MMdEntryFree entries are free, which is reported.
void TMD_Survey_Append_MD(MdEntryList& hEntry, I4& IOERR, I4 MEntry = MMdEntry);

/// The line of a file: "$ Job.Name = "Orrin basin"".
std::string MD_Entry_Line(const MdEntry& hEntry);

/// Transmitter positions from the wire loops, if a wire file is in use: the first loop gives the survey's transmitter
/// (centre, area, sides along and across the line), and each transient whose station has a loop gets its centre.
/// iError: 0; 1 no loops, or the last look-up failed.
void TMD_TxUTMC_from_hTxw(I4& iError);

/// Corners of a rectangular loop about its centre, along and across an azimuth in degrees.
/// fTxLength: sides in m. fTxXYV(1..2, J): east and north of corner J = 1..NTxXYV in iLengthUnit. NTxXYV: 4.
/// iError: 0.
void TMD_Get_fTxXYV(const Array1<R4, 2>& fTxLength, R4 fTxAzm, I4 iLengthUnit, I4& NTxXYV, Array2<R4, 2, 4>& fTxXYV,
                    I4& iError);

// The same, the status returned.
inline void TMD_Survey_from_MD() {
  I4 iError = 0;
  TMD_Survey_from_MD(iError);
}
inline void TMD_Survey_to_MD() {
  I4 iError = 0;
  TMD_Survey_to_MD(iError);
}
[[nodiscard]] inline I4 TMD_TxUTMC_from_hTxw() {
  I4 iError = 0;
  TMD_TxUTMC_from_hTxw(iError);
  return iError;
}

}  // namespace quillan
