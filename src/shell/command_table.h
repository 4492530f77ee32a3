// command_table.h: every command of the main menu as a row: what the user sees of it, when it applies, what it does.
#pragma once

#include <span>
#include <string_view>

#include "base/types.h"

namespace quillan {

inline constexpr I4 iCmdMovingAverage = 40006;
inline constexpr I4 iCmdAverageRepeats = 40007;
inline constexpr I4 iCmdReview = 40008;
inline constexpr I4 iCmdSave = 40009;
inline constexpr I4 iCmdSaveAs = 40010;
inline constexpr I4 iCmdAutoSkip = 40016;
inline constexpr I4 iCmdMerge = 40017;
inline constexpr I4 iCmdReadStn = 40018;
inline constexpr I4 iCmdSurveyConfig = 40020;

struct Command {
  I4 iDepth;               // 0 on the bar, 1 in the drop-down menu that the last head began, 2 beside it
  I4 iCommand;             // 0: the head of a drop-down menu
  bool bNeedsData;         // greyed without data
  bool bChangesData;       // counts as a change from its start on, also when the user then cancels
  I4 (*Carry_Out)();       // a failure has been reported when it returns; null: not there yet, greyed
  std::string_view sText;  // & marks the mnemonic
  std::string_view sKeys;  // such as "Ctrl+O"; blank: none
  std::string_view sTip;   // for the status bar
};

/// The rows in the order of the menu bar. A command may stand in it twice.
std::span<const Command> Command_Table();

}  // namespace quillan
