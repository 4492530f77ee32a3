// recent_files.h: the data files that the user opened last, and those of the command line, to go through in turn.
//
// The list of the last ones is kept from run to run in the user's configuration folder (Config_File of folders.h), one
// path a line, newest first. Two windows share it: each takes up what the other has added before it adds its own.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/types.h"

namespace quillan {

inline constexpr I4 MRecent = 8;         // files in the menu
inline constexpr I4 iCmdRecent = 41020;  // the newest; up to MRecent - 1 more
inline constexpr I4 iCmdNextFile = 41028;
inline constexpr I4 iCmdPreviousFile = 41029;

struct RecentFiles {
  std::string sListFile;              // where they are kept; blank: nowhere, and there are none
  std::vector<std::string> sFile;     // full paths, newest first
  std::vector<std::string> sOffered;  // full paths, in the order of the command line; none: there was one at most
  I4 iOffered = 1;                    // of these, the one that was opened or tried last
};

// Module state. Recent_Begin and Offer_Files fill it.
inline RecentFiles hRecent;

/// Takes the list up. bKept: false for a run whose files say nothing of the user's own work, such as that of a script.
void Recent_Begin(bool bKept);

/// The files of the command line; the first is the one that the run begins with. They are not asked for: one that is
/// not there is reported when its turn comes.
void Offer_Files(std::vector<std::string> sOffered);

/// A file was opened, or a save has made it: it is now the first of the list, and among those offered the one from
/// which Next and Previous go on.
void Recent_Add(std::string_view sFile);

/// File I of the list, 1..MRecent; blank where there are fewer.
std::string Recent_File(I4 I);

/// The folder of the newest file whose folder is still there, blank without one: where the user looks for the next.
std::string Recent_Folder();

/// Moves on by one of the files offered, by -1 back. Returns its path; blank at the end.
std::string Step_Offered(I4 iStep);

/// Puts names into the entries of the menu, and greys those whose file is gone.
void Show_Recent();

}  // namespace quillan
