// history_commands.h: the commands Undo, Redo and Edit List, and what the window shows of the history.
//
// model/history keeps the edits. Here stands what follows from the data above the core after a step: the sections, the
// name of the file in titles, whether there is something to save.
#pragma once

#include <string_view>

#include "base/types.h"
#include "review/plot/review_edits.h"

namespace quillan {

inline constexpr I4 iCmdEditList = 41003;
inline constexpr std::string_view sListText = "Edit &List...";

// Controls of dialog 120.
inline constexpr I4 iDlgEditList = 120;
inline constexpr I4 iGrdEdits = 1201;
inline constexpr I4 iLblPosition = 1202;
inline constexpr I4 iBtnGoTo = 1203;
inline constexpr I4 iBtnWriteList = 1204;

/// After a file was opened, or none: no edits, and nothing differs from the file.
void Begin_History();

/// After a command that can change data, by the words of its menu entry.
void Keep_Edit(std::string_view sMenuText);

/// After edits were put into the data from elsewhere: what follows from them, and what the window shows.
void End_of_Edits();

/// After a save, and after one that was given up or failed: what it has completed in the data is no edit.
void End_of_Save(bool bSaved);

/// The commands. Undo and Redo return 0; 1 when there is no edit. The status bar says what was done.
[[nodiscard]] I4 Undo_Command();
[[nodiscard]] I4 Redo_Command();
/// Dialog 120: every edit, from which the user goes to the state after one, or writes the list. Returns 0.
[[nodiscard]] I4 Edit_List();

/// What the reviews ask for.
ReviewEdits Edits_for_Reviews();

}  // namespace quillan
