// history_words.h: an edit in words, counted from what it changed.
//
//   Auto Skip (13 windows in 6 soundings)
//   Skip window 14, Stn 1400
//   Merge Repeats (800 to 400 transients)
//   Edit Survey Configuration (survey, metadata)
#pragma once

#include <string>
#include <string_view>

#include "model/history_image.h"

namespace quillan {

struct EditWords {
  std::string sEdit;   // "Auto Skip"; of flags by hand "Skip", "Clear"
  std::string sWhat;   // "13 windows"
  std::string sWhere;  // "6 soundings", "Stn 1400"; blank where it is not in transients
  bool bByHand = false;
};

/// sEdit: what the command or gesture is called; blank: flags by hand.
EditWords Edit_Words(std::string_view sEdit, const DataChange& hBefore, const DataChange& hAfter);

/// All of it in one line, as above.
std::string Edit_Name(const EditWords& h);

/// Where the edit was, for a window that shows transients jFrom to jTo: the first of them that it changed, else the
/// first of all; jFrom where it changed none.
I4 Edit_Place(const DataChange& hChange, I4 jFrom, I4 jTo);

/// Whether nothing but flags has changed.
bool Has_Only_Flags(const DataChange& hBefore, const DataChange& hAfter);

}  // namespace quillan
