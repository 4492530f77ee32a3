// save_survey.h: the way of the store back into files: the commands Save and Save As, the question that comes before
// changed data are left, and dialog 104.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "base/types.h"
#include "commands/format_table.h"

namespace quillan {

/// Which rows of hFileFormat a save writes.
using OutputFormats = std::array<L4, NFileFormat>;

// Module state: the choice of the last save, which the next one begins with; at first the averaged file alone.
inline OutputFormats hOutput{true};

/// Saves the store: keeps the data file of the first save as a backup, asks for the file types, writes them and brings
/// the metadata file up to date. The data count as saved as soon as the types are chosen, whatever happens then.
/// Returns 0; 1 failed or cancelled; 2 the program is to stop.
[[nodiscard]] I4 TEM_Write_Data(std::string_view sDataFile);

/// The copy that the first save makes: "line1.avg" is kept as "line1.$.avg".
std::string Backup_Name(std::string_view sDataFile);

/// Dialog 104 for a save of sDataFile. Returns 0; 1 the user cancelled.
[[nodiscard]] I4 Select_Output_Formats(std::string_view sDataFile, OutputFormats& hFormats);

/// The commands: a save under the name of the data file, or under another, which is then the data file.
/// Return the status of TEM_Write_Data, 1 without a name; a status of 2 ends the program here.
[[nodiscard]] I4 Save_Data();
[[nodiscard]] I4 Save_Data_As();

/// Asks whether changed data should be saved, and saves them on Yes. True after Yes: the user then chooses Open or Exit
/// again.
[[nodiscard]] bool Saves_First();

}  // namespace quillan
