// user.h: the person at the program, as the core sees them: somebody who reads reports and answers questions.
//
// The shell fills the record with windows and dialogs, a test with a notebook. Until then nobody is there: reports go
// to standard error, every question counts as cancelled, and nobody wants to stop.
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/types.h"

namespace quillan {

/// What the person does with a report: goes on, goes on and wants no further reports of the running command, or ends
/// the program.
enum class AfterReport { GoOn, Quiet, Stop };

/// A word that is in no table: which of the known ones was meant?
struct WordQuestion {
  std::string_view CWord;               // as it stands in the file, in upper case
  std::string_view sKeyword;            // what the word is a value of
  std::span<const std::string> sEntry;  // the known words
  I4 iSelect;                           // the one that the question begins with, from 1
};

/// Labels that are in no table: which column of a file feeds which variable?
struct ColumnQuestion {
  std::string_view sFileName;
  std::span<const std::string> sVariable;  // what each variable is
  std::span<const std::string> sStatus;    // whether it is required
  std::span<const std::string> sLabel;     // the columns of the file, and last the entry for none
  std::span<I4> KCol;                      // of each variable: its entry of sLabel; in and out
};

inline constexpr I4 iZDataSkip = 0;  // what a block of a contour file is taken for: data that are passed over
inline constexpr I4 iZDataDbdt = 1;  // dB/dt

struct ZDataType {
  I4 iDataType = iZDataSkip;
  I4 iRxCmp = 6;  // component, code in CChnCmp
  friend bool operator==(const ZDataType&, const ZDataType&) = default;
};

/// A block of a contour file: what does it hold?
struct ZTypeQuestion {
  std::span<const std::string> sHeader;  // the lines of its header
  I4 MHeader;                            // the most that a header has
  ZDataType hFound;                      // by the words in them
};

struct ZTypeAnswer {
  std::optional<ZDataType> hType;  // nothing: cancelled
  L4 bForAll = false;              // also for the blocks further down in which the same is found
};

/// How far long work has come.
struct WorkDone {
  std::string_view sWork;  // "Reading line7.avg"
  std::string_view sUnit;  // of the counts: "soundings"
  I8 NDone, NAll;          // NAll is 0 where nobody knows
  R8 dSeconds;             // since it began
  L4 bMayStop;             // whether the user may stop it
};

struct User {
  std::function<AfterReport(std::string_view sReport)> Tell;
  /// The entry that was meant, from 1; -1 when there is no choice that can be used, 0 cancelled.
  std::function<I4(const WordQuestion&)> Which_Word;
  /// False when cancelled.
  std::function<bool(const ColumnQuestion&)> Which_Columns;
  std::function<ZTypeAnswer(const ZTypeQuestion&)> Which_Z_Data;
  /// The path of an existing file that may also be left out: blank then. sFilter: "words|*.a;*.b|".
  std::function<std::string(std::string_view sFilter, std::string_view sTitle)> Choose_File;
  std::function<bool(std::string_view sQuestion, std::string_view sTitle)> Says_Yes;
  /// A line of progress, which stands last in sTextBuffer.
  std::function<void(std::string_view sLine)> Show_Line;
  /// Shows how far long work has come, and looks whether the user wants something, so that the window stays alive.
  /// False: the user wants the work stopped. Does not return when the user ends the program.
  std::function<bool(const WorkDone&)> Look;
  /// That work is over, however it ended.
  std::function<void()> Work_Ends;
  /// The run ends: takes the window away.
  std::function<void()> Leave;
};

/// Nobody.
User No_User();

// Module state. The shell fills it.
inline User hUser = No_User();

}  // namespace quillan
