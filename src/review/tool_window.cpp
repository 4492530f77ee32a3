#include "review/tool_window.h"

#include <algorithm>

#include "foundations/str_write.h"
#include "model/tmd_data.h"
#include "toolkit/dialog/dialog.h"
#include "toolkit/draw/draw.h"
#include "toolkit/draw/last_error.h"
#include "toolkit/draw/plot_axes.h"
#include "toolkit/window/messages.h"
#include "toolkit/window/window.h"

namespace quillan {
namespace {

constexpr I4 NStepMost = 21;  // a trackbar of so many steps or more is too fine to aim at

}  // namespace

ToolWindow::ToolWindow(I4 iDialog, I4 iTrackbar, I4 iLblCount, I4 NItem, I4 iStep) {
  WDialogLoad(iDialog);
  WMessageEnable(MessageType::Field, true);
  WDialogRangeTrackbar(iTrackbar, 1, std::max(2, NItem), iStep);
  WDialogPutString(iLblCount, Str_Write_I4(NItem).trimmed());
  Tool_Hint_Flags();
  Tool_Show();
  InqWintError("Tool_Open");
}

ToolWindow::~ToolWindow() {
  WDialogUnload();
  WMessageEnable(MessageType::Field, false);
  IPgForget();
  WindowClear();
}

void Tool_Show() {
  WDialogShow(WInfoWindow(iWindowWidth) - WInfoDialog(iDialogWidth) - 1, 0, iShowTool);
}

void Tool_Follow() {
  WDialogHide();
  Tool_Show();
}

I4 Tool_Trackbar_Step(I4 NTransient) {
  I4 iTBinc = 1;
  while (NTransient / iTBinc >= NStepMost) iTBinc *= 2;
  return iTBinc;
}

void Tool_Hint_Flags() {
  WDialogPutString(iLblHint1, "Left click on point to set skip flag.");
  WDialogPutString(iLblHint2, "Right click on point to clear skip flag.");
}

void Tool_Hint_Box() {
  WDialogPutString(iLblHint1, "Move mouse cursor to box corner,");
  WDialogPutString(iLblHint2, "then left-click so set corner location.");
}

}  // namespace quillan
