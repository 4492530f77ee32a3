// review_edits.h: what a review wants of the program when it changes data, or takes a change back.
//
// A review knows neither the other windows nor what the program notes about unsaved data. It asks through hReviewEdits,
// which the commands fill; as it starts, nothing is kept and nothing can be taken back.
#pragma once

#include <string_view>

#include "base/types.h"

namespace quillan {

// Commands of the menu History.
inline constexpr I4 iCmdUndo = 41001;
inline constexpr I4 iCmdRedo = 41002;
inline constexpr std::string_view sUndoKeys = "Ctrl+Z";
inline constexpr std::string_view sRedoKeys = "Ctrl+Shift+Z; Ctrl+Y";
inline constexpr std::string_view sUndoTip = "Take back the last edit.";
inline constexpr std::string_view sRedoTip = "Do again what was taken back.";

/// Transients on show; an empty range: nothing is known of them.
struct TransientRange {
  I4 jFrom = 1, jTo = 0;
};

/// What an undo or redo has changed, for the window that shows transients.
struct TakenBack {
  bool bDone = false;       // false: there was no edit
  I4 iTrn = 0;              // the transient to go to
  bool bOnlyFlags = false;  // no more than skip flags: the plot keeps its scale
  bool bRegrouped = false;  // the number of transients or sections is another
};

struct ReviewEdits {
  /// Keeps what a gesture has changed as an edit; sEdit: what it is called, blank for flags by hand.
  void (*Keep)(std::string_view sEdit) = [](std::string_view) {};
  /// Takes the data one edit back or on, and says so in the status bar. The transient to go to is among those on show
  /// if one of them was changed.
  TakenBack (*Undo)(const TransientRange& hShown) = [](const TransientRange&) { return TakenBack{}; };
  TakenBack (*Redo)(const TransientRange& hShown) = [](const TransientRange&) { return TakenBack{}; };
};
inline ReviewEdits hReviewEdits;

}  // namespace quillan
