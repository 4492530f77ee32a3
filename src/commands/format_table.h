// format_table.h: every kind of data file as a row: how Open reads it, how Save offers and writes it.
//
// A new kind is a row here, its reader or writer in files/, and its check box in dialog 104.
#pragma once

#include <iterator>
#include <string>
#include <string_view>

#include "base/types.h"
#include "commands/export_amira.h"
#include "commands/export_usf.h"
#include "files/avg_legacy_writer.h"
#include "files/avg_reader.h"
#include "files/avg_writer.h"
#include "files/z_file.h"

namespace quillan {

/// A reader and a writer return 0 when the data were read or written.
struct FileFormat {
  std::string_view CExt;                // extension of the files that Open reads, in upper case; blank: none
  I4 (*Read)(std::string_view sFile);   // of those with an extension
  I4 iBox;                              // control of dialog 104; 0: Save does not offer it
  std::string_view sNameEnd;            // what a save adds to the stem of the data file; blank: the data file itself
  I4 (*Write)(std::string_view sFile);  // null: not written yet, the box is greyed
  std::string_view sFlags;              // what becomes of skip flags, for dialog 104
  L4 bEndsSave;                         // a failure keeps what comes after it from being written
};

inline constexpr I4 iDlgSaveTypes = 104;
inline constexpr I4 iLblFlagsLost = 1052;
inline constexpr I4 iChkPutUsf = 1050;
inline constexpr I4 iChkPutAvg = 1059;
inline constexpr I4 iChkPutAmr = 1061;
inline constexpr I4 iChkPutAvg0 = 1103;

// Extension, reader, box, end of the name, writer, skip flags, ends the save.
inline constexpr FileFormat hFileFormat[] = {
    {".AVG", AVG_Read, iChkPutAvg,  "",      AVG_Write,    "flags are not read back",      true },
    {".XDB", AVG_Read, 0,           "",      nullptr,      "",                             true },
    {".Z",   Z_Read,   0,           ".avg",  nullptr,      "",                             true },
    {"",     nullptr,  iChkPutAvg0, "o.avg", AVG_Write0,   "keeps skip flags",             true },
    {"",     nullptr,  iChkPutAmr,  ".tem",  Export_AMIRA, "skipped windows are left out", false},
    {"",     nullptr,  iChkPutUsf,  ".usf",  Export_USF,   "skipped windows are left out", true },
};
inline constexpr std::size_t NFileFormat = std::size(hFileFormat);

/// The format that Open takes a data file for, by its extension in any case; null for an unknown one.
const FileFormat* Format_of(std::string_view sDataFile);

/// The file that a save of sDataFile writes in a format. The data file itself is named so once it is read: contour
/// files come in, and an averaged file goes out beside them.
std::string Output_Name(const FileFormat& hFormat, std::string_view sDataFile);

}  // namespace quillan
