#include "shell/command_table.h"

#include "commands/auto_skip_command.h"
#include "commands/average_repeats.h"
#include "commands/history_commands.h"
#include "commands/merge_data.h"
#include "commands/moving_average_command.h"
#include "commands/open_file.h"
#include "commands/read_stations.h"
#include "commands/record_steps.h"
#include "commands/review_data.h"
#include "commands/save_survey.h"
#include "commands/survey_config.h"
#include "foundations/log_file.h"
#include "review/plot/guide.h"
#include "toolkit/window/menus.h"

namespace quillan {
namespace {

I4 Exit_Program() {
  if (!Saves_First()) Stop_Program();
  return 0;
}

constexpr std::string_view sRecentTip = "Open this file again.";

// The words of the hints are the users' own; "Smoth" is what their manuals and notes quote.
// clang-format off
constexpr Command hCommand[] = {
    // depth, command       needs  changes procedure       text, keys, hint
    {0, 0,                  false, false,  nullptr,         "&File", "", ""},
    {1, iCmdOpen,           false, false,  Open_File,       "&Open", "Ctrl+O", "Open a new file."},
    {1, 0,                  false, false,  nullptr,         "Open &Recent", "", ""},
    {2, iCmdRecent,         false, false,  Open_Recent_File<1>, "", "", sRecentTip},
    {2, iCmdRecent + 1,     false, false,  Open_Recent_File<2>, "", "", sRecentTip},
    {2, iCmdRecent + 2,     false, false,  Open_Recent_File<3>, "", "", sRecentTip},
    {2, iCmdRecent + 3,     false, false,  Open_Recent_File<4>, "", "", sRecentTip},
    {2, iCmdRecent + 4,     false, false,  Open_Recent_File<5>, "", "", sRecentTip},
    {2, iCmdRecent + 5,     false, false,  Open_Recent_File<6>, "", "", sRecentTip},
    {2, iCmdRecent + 6,     false, false,  Open_Recent_File<7>, "", "", sRecentTip},
    {2, iCmdRecent + 7,     false, false,  Open_Recent_File<8>, "", "", sRecentTip},
    {1, iCmdNextFile,       false, false,  Open_Next_File,  "&Next File", "Ctrl+PgDown",
                          "Open the next file of the command line."},
    {1, iCmdPreviousFile,   false, false,  Open_Previous_File, "&Previous File", "Ctrl+PgUp",
                          "Open the file of the command line before this one."},
    {1, iCmdSave,           true,  false,  Save_Data,       "&Save", "Ctrl+S", "Save current data."},
    {1, iCmdSaveAs,         true,  false,  Save_Data_As,    "Save &As", "Ctrl+Shift+S",
                          "Save current data with a new file name."},
    {1, iCmdRecordSteps,    false, false,  Record_Steps,    "Record S&teps", "",
                          "Write what you do as a session script; again to end it."},
    {1, iCmdGuide,          false, false,  Show_Guide,      "&Guide", "F1", "Show the illustrated guide in the browser."},
    {1, iCmdExit,           false, false,  Exit_Program,    "E&xit", "Ctrl+Q", "Exit program."},
    {0, iCmdSurveyConfig,   true,  true,   Edit_Cfg,        "Edit Survey Configuration", "",
                          "Edit survey configuration parameters."},
    {0, iCmdReadStn,        true,  true,   Position_Receivers, "Read Stn File", "",
                          "Interpolate on stn file stn,east,north,elevation[,heading,pitch,roll]"},
    {0, iCmdMovingAverage,  true,  true,   Smooth_Survey,   "&Moving Average Filter", "",
                          "Smoth transients with moving average over time."},
    {0, iCmdAutoSkip,       true,  true,   AutoSkip_Filter, "Auto &Skip", "",
                          "Skip all data with error greater than the specified threshold."},
    {0, iCmdAverageRepeats, true,  true,   Average_Repeats, "Average Repeats", "",
                          "Sort data, then average duplicate transients."},
    {0, iCmdMerge,          true,  true,   MergeChn,        "Merge Data", "",
                          "Merge transient data flagged by fractional stn #s."},
    {0, iCmdReview,         true,  true,   Review_Data,     "&Review Data", "", "Review transients by sounding."},
    {0, 0,                  false, false,  nullptr,         "&History", "", ""},
    {1, iCmdUndo,           false, false,  Undo_Command,    "&Undo", sUndoKeys, sUndoTip},
    {1, iCmdRedo,           false, false,  Redo_Command,    "&Redo", sRedoKeys, sRedoTip},
    {1, iCmdEditList,       false, false,  Edit_List,       sListText, "",
                          "What was done to the data; go to an earlier state; write the list to a file."},
    {0, iCmdExit,           false, false,  Exit_Program,    "E&xit", "", "Exit program."},
};
// clang-format on

}  // namespace

std::span<const Command> Command_Table() {
  return hCommand;
}

}  // namespace quillan
