// tool_window.h: what the tool windows of both reviews share: where they stand, their trackbar, their hint lines.
#pragma once

#include "base/types.h"

namespace quillan {

// Controls of dialogs 115, the curves, and 118, the sections.
inline constexpr I4 iDlgReviewCurve = 115;
inline constexpr I4 iDlgReviewSection = 118;
inline constexpr I4 iBtnSaveData = 1060;
inline constexpr I4 iLblCurveCount = 1079;
inline constexpr I4 iLblCurveTitle = 1080;
inline constexpr I4 iTrkCurve = 1081;
inline constexpr I4 iBtnSkipAll = 1082;
inline constexpr I4 iBtnClearAll = 1083;
inline constexpr I4 iBtnZoomIn = 1084;
inline constexpr I4 iBtnZoomAll = 1085;
inline constexpr I4 iLblSectionCount = 1086;
inline constexpr I4 iBtnExitReview = 1087;
inline constexpr I4 iLblHint1 = 1088;
inline constexpr I4 iLblHint2 = 1089;
inline constexpr I4 iMnuView = 1090;
inline constexpr I4 iLblSectionTitle = 1108;
inline constexpr I4 iTrkSection = 1109;
inline constexpr I4 iFldNoiseFloor = 1111;
inline constexpr I4 iBtnFlipTransient = 1112;
inline constexpr I4 iBtnFlipAll = 1113;
inline constexpr I4 iBtnViewCurve = 1114;
inline constexpr I4 iBtnViewSection = 1115;
inline constexpr I4 iCmdExport = 41010;  // a menu command of the sections, a button of the curves

/// A review's dialog on show, to the end of its scope: then it and its messages are gone and the plot is cleared.
class ToolWindow {
 public:
  /// Ranges the trackbar from 1 to the larger of 2 and NItem, puts NItem beside it, and shows the dialog. A click
  /// beside its knob goes on by iStep.
  ToolWindow(I4 iDialog, I4 iTrackbar, I4 iLblCount, I4 NItem, I4 iStep);
  ~ToolWindow();
  ToolWindow(const ToolWindow&) = delete;
  ToolWindow& operator=(const ToolWindow&) = delete;
};

/// Shows it beside the main window; where the screen has no room there, at the top of the main window, its right edge
/// one pixel from the window's; or where the user put it.
void Tool_Show();
/// After the main window has changed its size: it goes along with the corner that it stands at, unless the user has put
/// it elsewhere.
void Tool_Follow();

/// Step of the trackbar of the curves: 1, doubled while NTrn / step is 21 or more.
I4 Tool_Trackbar_Step(I4 NTrn);

/// What the mouse does, in the two hint lines.
void Tool_Hint_Flags();  // clicks set and clear skip flags
void Tool_Hint_Box();    // clicks set the corners of a box

}  // namespace quillan
