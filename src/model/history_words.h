// history_words.h: an edit in words, counted from what it changed.
//
//   Auto Skip (13 windows in 6 soundings)      a command or button
//   Merge Repeats (800 to 400 transients)
//   Edit Survey Configuration (survey, metadata)
//   Skip window 14, Stn 1400                   flags by hand
#pragma once

#include <string>
#include <string_view>

#include "model/tmd_data.h"

namespace quillan {

struct EditWords {
  std::string sEdit;     // "Auto Skip"; of flags by hand "Skip" or "Clear"
  std::string sWhat;     // "13 windows"
  std::string sWhere;    // "6 soundings", "Stn 1400"; blank where it is not in transients
  bool bByHand = false;  // flags by hand
  I8 iTime = 0;          // sec since 1970
};

/// What an edit changed, counted one transient or part after the other.
class EditTally {
 public:
  /// A transient that differs. bInFlags: in no more than flags of windows.
  void Count(const Transient& hBefore, const Transient& hAfter, bool bInFlags);
  /// A part of the data, or how many transients there are.
  void Count_Part(std::string_view sName);
  void Count_Store(I4 NTrnBefore, I4 NTrnAfter);

  /// sEdit: what the command or gesture is called; blank: flags by hand.
  EditWords Words(std::string_view sEdit) const;
  /// Whether no more than skip flags has changed, so that a plot keeps its scale.
  bool Has_Only_Flags() const { return NSounding > 0 && !bMore; }

 private:
  void Count_Flags(const Transient& hBefore, const Transient& hAfter);
  void Count_Values(const Transient& hBefore, const Transient& hAfter);
  std::string What(bool bByHand) const;
  std::string Where() const;

  I4 NTrnBefore = 0, NTrnAfter = 0;
  I4 NSounding = 0;               // transients that differ
  I4 NSkipped = 0, NCleared = 0;  // flags of windows
  I4 NSkippedTrn = 0;             // flags of whole transients
  I4 NValue = 0;                  // windows with another value
  I4 IFlag = 0;                   // the last window flagged
  R8 dStn = dDummy;               // station of the last transient
  std::string sParts;             // "survey, metadata"
  bool bMore = false;             // something other than flags
};

/// All of it in one line, as above.
std::string Edit_Name(const EditWords& h);

}  // namespace quillan
