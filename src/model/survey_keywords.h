// survey_keywords.h: the survey's keywords: one table for the survey record, the metadata groups and the files.
//
//   $ Job.Name = "Orrin basin"      a keyword record as files hold it
//   $ Tx.Length = 200,100 m
//
// The metadata groups and the survey record hold the same facts in two forms: the groups as the files gave them, the
// survey record as the program works with them. A value moves only if its source has one, so that a survey which is
// read line by line keeps the last good value. The survey type is not exchanged: this program knows one.
//
// A new keyword of the survey is a new row of the table in the source file: its two homes, its form in a file, and the
// words by which an update of a metadata file finds the older records that it replaces.
#pragma once

#include <string>
#include <string_view>
#include <vector>

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
/// derived from its corners first, where at least two were given.
void TMD_Survey_from_MD();

/// What the survey record has goes to the metadata groups.
void TMD_Survey_to_MD();

/// Appends the survey record to a list that holds at most MEntry records: job, survey, line, stations, transmitter,
/// units, in the order of the files. Lengths are in m in the survey record and in iLengthUnit in the list.
/// Returns 0; -1 fewer than MMdEntryFree entries are free, which is reported.
[[nodiscard]] I4 TMD_Survey_Append_MD(MdEntryList& hEntry, I4 MEntry = MMdEntry);

/// The line of a file: "$ Job.Name = "Orrin basin"".
std::string MD_Entry_Line(const MdEntry& hEntry);

/// Whether the survey's records take the place of those of a keyword, which is given in upper case. A word of the table
/// anywhere in it is enough: LINE takes LINE.TYPE with it.
bool Replaced_by_Survey(std::string_view CKeyword);

}  // namespace quillan
