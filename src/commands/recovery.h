// recovery.h: nothing that was done to the data is lost when the program does not come to its end.
//
// Each edit goes into the journal of the data file (files/journal.h) as it is made: with the edit to the system, and
// within two seconds to the disk. A save and the answer No to the question of a save end the journal; after any other
// end of the run it stays, and the user is asked about it when the file is opened again.
//
//   Recovery_Begin    after a file was opened, or none, and the history has begun
//   Recovery_Saved    after a save, when the history knows of it
//   Recovery_Declined after No to the question whether the data should be saved
//   Recovery_Leave    before the data go
//   Recovery_End      at the end of the run
//
// A journal that cannot be written costs a note in the status bar, never an edit.
#pragma once

#include <string>

#include "base/types.h"

namespace quillan {

// Module state. The shell fills it as the run begins.
inline std::string sJournalFolder;  // where journals stand; blank: none are kept

/// The journal folder of a user, whether it is there or not; blank where the system knows none.
std::string Journal_Folder_of_User();

/// Leaves the journal of the file before and takes up that of sAvgFile. Edits that were not saved in an earlier run are
/// put into the data again if the user wants it. A journal that is not of this state of the file is set aside under a
/// name that the user is told.
void Recovery_Begin();

/// Edits from here on are edits of what was saved.
void Recovery_Saved();

/// The user does not want the edits any more; the next edit says otherwise.
void Recovery_Declined();

/// Whether the data differ from those of their file decides whether the journal has to stay.
void Recovery_Leave();

void Recovery_End();

}  // namespace quillan
