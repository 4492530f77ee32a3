// recorder.h: what the user does, taken down as the steps of a session script.
//
// A script plays from the start of the program, so the recorder listens from the start, and a record that begins later
// holds the steps before it too. Each step is in the file as soon as it is done. Commands and fields are named by the
// words on the screen, files relative to the working folder, a click inside a plot in its units (`point`), other places
// in graphics units, with as many digits as it takes to meet the same place again. The size of the window is a step
// (`resize`) ahead of the first one that is done with it.
//
// What changes nothing is not recorded: a tool window moved, a letter typed and taken back, a look at a menu.
#pragma once

#include <string>
#include <string_view>

#include "base/types.h"

namespace quillan {

/// Listens from now on, with nothing recorded.
void Record_Listen();

/// Whether a record of that name would destroy a file that is none: a name left out on the command line must not cost
/// the data file that stands after it.
bool Record_Would_Destroy(std::string_view sPath);

/// Writes what was done into a file, and from then on each step as it is done. Returns 0; 1 when the file cannot be
/// written.
[[nodiscard]] I4 Record_Begin(std::string_view sPath);
void Record_End();

/// Whether a record is being written. It ends by itself where the disk is full, which the status bar says.
bool Record_Is_On();

/// What a command does whose row of the menu is no step (MenuRow), as the choice of another command and of a file in
/// the file dialog: a list of files that it goes by may not be there when the script plays.
void Record_Menu(I4 iCommand);
void Record_File(std::string_view sFile);

/// The user has stopped the work that the last step began: the record has `stop` ahead of that step.
void Record_Stop();

/// What is done while one lives is no step: the choice of the file of a record, keys that are dropped.
class RecordPause {
 public:
  RecordPause();
  ~RecordPause();
  RecordPause(const RecordPause&) = delete;
  RecordPause& operator=(const RecordPause&) = delete;
};

}  // namespace quillan
