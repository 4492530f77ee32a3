// log_file.h: the one way in which the program says things.
//
// Progress goes to the log file (.log) and to the lines that the main window shows; errors go to the error file (.err)
// and to the person at the program (see user.h). Both files are made when their first line comes, and a run starts with
// neither of them. The error file is opened and closed for each report, so that its content survives a crash.
#pragma once

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "base/array.h"
#include "base/text.h"
#include "base/types.h"

namespace quillan {

inline constexpr I4 MError = 5;               // lines in one report
inline constexpr I4 MErr = 128;               // in place of this report of LogErr_File stands that there are no more
inline constexpr std::size_t MErrText = 128;  // characters of a line of a report that the user sees
inline constexpr I4 MTextBuffer = 48;         // lines on the screen

/// The end of the run: thrown by Stop_Program alone, caught by main alone, so that every destructor runs.
struct ProgramStop {};

/// Closes the log and the window and ends the run.
[[noreturn]] void Stop_Program();

/// Lines of one report: routine and kind, what is wrong, what was done. The first five are written.
using ErrorLines = std::vector<std::string>;

// Module state. Log_Initialize fills and restores it, bAutoErr aside, which the caller sets.
inline std::string sLogFile{"quillan.log"};         // path
inline std::string sErrFile{"quillan.err"};         // path
extern std::ofstream hLogFile;                      // open from its first line to Log_Close
inline Array1<Text<128>, MTextBuffer> sTextBuffer;  // lines on the screen, oldest first
inline I4 NTextBuffer = 0;                          // of which in use
inline I4 NErr = 0;                                 // reports that LogErr_File was given
inline L4 bAutoErr = false;                         // true: errors go to the log as text, no box stops the run
inline L4 bQuietErr = false;                        // the user wants no further boxes of the running command

/// Names the files after sFileStem (folder of it, or the working folder; extension dropped), removes what an earlier
/// run left, and clears the state. Status: 0, or 1 when an old file cannot be removed.
[[nodiscard]] I4 Log_Initialize(std::string_view sFileStem);
/// Closes the log file. The next line opens it again.
void Log_Close();

/// Begins a command: its errors show again.
void LogErr_Begin_Command();

/// Empties the screen text.
void LogText_Reset();
/// A line for the log file and the screen.
void LogText(std::string_view sText);
/// A line for the log file alone.
void LogText_File(std::string_view sText);
/// A report for the error file and the user, who may end the run.
void LogErr(const ErrorLines& sError);
/// A report for the error file alone, for one bad row of many; after 127 of them there are no more.
void LogErr_File(const ErrorLines& sError);

}  // namespace quillan
