#include "review/qcc_review.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "foundations/log_file.h"
#include "foundations/str_write.h"
#include "model/tmd_data.h"
#include "review/plot/igr_util.h"
#include "review/qcc_plot.h"
#include "review/review_flag.h"
#include "review/tool_window.h"
#include "toolkit/dialog/dialog.h"
#include "toolkit/draw/last_error.h"
#include "toolkit/window/messages.h"
#include "toolkit/window/window.h"

namespace quillan {
namespace {

constexpr I4 iNothing = std::numeric_limits<I4>::min() + 1;  // no transient and no plot type: the plot must be made
constexpr I4 iStay = 0;                                      // iFlag while the review goes on
constexpr R4 fReach = 0.5f;                                  // graphics units, how near to a point a click must be
constexpr R4 fBoxArea = 0.1f;  // graphics units squared; a smaller drag was meant as a click

constexpr R4 fMostHidden = 0.5f;  // of the window's width: the title keeps the rest

/// What is on show.
struct CurveView {
  I4 iTrn = 1;          // transient; the plot type is iCurvePlotType
  I4 iTrn0 = iNothing;  // what the plot was made for
  I4 iPlotType0 = iNothing;
  I4 NPlotType = 1;  // types that the transient has
  CurveTypeNames sPlotType;
  I4 iPltCmp = iCmpHz;  // its component
  bool bRedraw = true;  // the window does not show the plot
  I4 iFlag = iStay;
};

// ---- show

void Open_Tool_Window() {
  Tool_Open(iDlgReviewCurve, iTrkCurve, NTrn);
  WDialogPutString(iLblCurveCount, Str_Write_I4(NTrn).trimmed());
  Tool_Hint_Flags();
  Tool_Show();
  InqWintError("QCC_Review");
}

std::string Station(R8 dStn) {
  return Str_Write_R8(dStn, "(F12.3)").str();
}

void Put_Plot_Types(const CurveView& h) {
  std::vector<std::string> sEntry;
  for (I4 iType = 1; iType <= h.NPlotType; ++iType) sEntry.push_back(h.sPlotType(iType).str());
  WDialogPutMenu1(iMnuView, sEntry, std::min(iCurvePlotType, h.NPlotType));
}

void Make_Plot(CurveView& h) {
  I4 iError = 0;
  QCC_Plot_Initialize(hTrn(h.iTrn), iCurvePlotType, h.NPlotType, h.sPlotType, h.iPltCmp, iError);
  h.iTrn0 = h.iTrn;
  h.iPlotType0 = iCurvePlotType;
  h.bRedraw = true;
  WDialogPutString(iLblCurveTitle, "Tx " + Station(hTrn(h.iTrn).dTxStn) + ", Rx " + Station(hTrn(h.iTrn).dRxStn));
  Put_Plot_Types(h);
}

/// The tool window hides the right end of the plot's upper edge until the user moves it.
void Leave_Room_for_Tool_Window() {
  const R4 fWindow = static_cast<R4>(std::max(WInfoWindow(iWindowWidth), 1));
  const R4 fTool = static_cast<R4>(WInfoDialog(iDialogWidth) + 1);
  fCurveTitleEnd = fCurveGrXMax - (fCurveGrXMax - fCurveGrXMin) * std::min(fTool / fWindow, fMostHidden);
}

/// Draws only what the window does not show already; a transient that cannot be plotted leaves it blank.
void Show(CurveView& h) {
  if (h.iTrn != h.iTrn0 || iCurvePlotType != h.iPlotType0) Make_Plot(h);
  WDialogPutTrackbar(iTrkCurve, h.iTrn);
  if (!h.bRedraw) return;
  I4 iError = 0;
  Leave_Room_for_Tool_Window();
  QCC_Plot_Trns(h.iPltCmp, iError);
  h.bRedraw = false;
}

// ---- gestures

void First(CurveView& h) {
  h.iTrn = 1;
}
void Last(CurveView& h) {
  h.iTrn = NTrn;
}
void Next(CurveView& h) {
  h.iTrn = std::min(h.iTrn + 1, NTrn);
}
void Previous(CurveView& h) {
  h.iTrn = std::max(h.iTrn - 1, 1);
}

void View_Section(CurveView& h) {
  h.iFlag = iFlagSection;
}
void Save_Data(CurveView& h) {
  h.iFlag = iFlagSave;
}
void Exit_Review(CurveView& h) {
  h.iFlag = iFlagExit;
}

/// The flag of the transient stands above those of its time windows, which keep theirs.
void Flag_Transient(CurveView& h, L4 bSkip) {
  hTrn(h.iTrn).bSkipTrn = bSkip;
  h.iTrn0 = iNothing;
}
void Skip_All(CurveView& h) {
  Flag_Transient(h, true);
}
void Clear_All(CurveView& h) {
  Flag_Transient(h, false);
}

/// Esc zooms into the box as it stands.
void Zoom_In(CurveView& h) {
  R4 fXGr1 = 0.0f, fYGr1 = 0.0f, fXGr2 = 0.0f, fYGr2 = 0.0f;
  I4 iError = 0;
  if (hCurve.NPobs < 1) return;
  Tool_Hint_Box();
  IGr_ZoomMouseBox(iCursorCorner, fXGr1, fYGr1, fXGr2, fYGr2, iError);
  Tool_Hint_Flags();
  QCC_Zoom_Box(fXGr1, fYGr1, fXGr2, fYGr2);
  h.bRedraw = true;
}

void Zoom_All(CurveView& h) {
  QCC_Zoom_All();
  h.bRedraw = true;
}

/// A drag flags a box of points; one too small for a box, as of an unsteady hand, the point nearest to its press.
void Flag_Points(CurveView& h, const Message& hPress, L4 bSetSkip) {
  R4 fXGr1 = 0.0f, fYGr1 = 0.0f, fXGr2 = 0.0f, fYGr2 = 0.0f;
  I4 iError = 0;
  IGr_SelectMouseBox(hPress, fXGr1, fYGr1, fXGr2, fYGr2, iError);
  if (iError != 0) return;
  if (std::abs(fXGr2 - fXGr1) * std::abs(fYGr2 - fYGr1) >= fBoxArea) {
    QCC_SkipBox(hTrn(h.iTrn), bSetSkip, fXGr1, fYGr1, fXGr2, fYGr2, iError);
  } else {
    QCC_SkipPoint(hTrn(h.iTrn), bSetSkip, hPress.GX, hPress.GY, fReach, iError);
  }
  h.bRedraw = true;
}

struct Gesture {
  I4 iKeyOrButton;
  void (*Act)(CurveView& h);
};

constexpr Gesture hKey[] = {
    {'F',       First      },
    {'L',       Last       },
    {'N',       Next       },
    {iKeyDown,  Next       },
    {iKeyRight, Next       },
    {'P',       Previous   },
    {iKeyUp,    Previous   },
    {iKeyLeft,  Previous   },
    {'X',       Exit_Review},
    {iKeyEsc,   Exit_Review},
};

constexpr Gesture hButton[] = {
    {iBtnSkipAll,     Skip_All    },
    {iBtnClearAll,    Clear_All   },
    {iBtnZoomIn,      Zoom_In     },
    {iBtnZoomAll,     Zoom_All    },
    {iBtnViewSection, View_Section},
    {iBtnSaveData,    Save_Data   },
    {iBtnExitReview,  Exit_Review },
};

template <std::size_t N>
void Carry_Out(const Gesture (&hTable)[N], I4 iKeyOrButton, CurveView& h) {
  for (const Gesture& hRow : hTable) {
    if (hRow.iKeyOrButton == iKeyOrButton) hRow.Act(h);
  }
}

I4 Upper_Case(I4 iKey) {
  return iKey >= 'a' && iKey <= 'z' ? iKey - 'a' + 'A' : iKey;
}

void On_Mouse(CurveView& h, const Message& hPress) {
  if (hPress.VALUE3 != 0) return;  // in another window
  switch (hPress.VALUE1) {
    case iMouseLeft: Flag_Points(h, hPress, true); break;
    case iMouseRight: Flag_Points(h, hPress, false); break;
    case iMouseForward: Next(h); break;
    case iMouseBack: Previous(h); break;
    default: break;
  }
}

void On_Field(CurveView& h, I4 iField) {
  I4 iValue = 0;
  InfoError();
  if (iField == iTrkCurve) WDialogGetTrackbar(iTrkCurve, iValue);
  if (iField == iMnuView) WDialogGetMenu1(iMnuView, iValue);
  if (InfoError() != iErrNone) return;
  if (iField == iTrkCurve) h.iTrn = std::clamp(iValue, 1, NTrn);
  if (iField == iMnuView) iCurvePlotType = std::clamp(iValue, 1, h.NPlotType);
}

void On_Resize(CurveView& h) {
  Tool_Follow();
  h.bRedraw = true;
}

void Wait_And_Act(CurveView& h) {
  MessageType iType = MessageType::None;
  Message hMessage;
  WMessage(iType, hMessage);
  switch (iType) {
    case MessageType::Key: Carry_Out(hKey, Upper_Case(hMessage.VALUE1), h); break;
    case MessageType::Button: Carry_Out(hButton, hMessage.VALUE1, h); break;
    case MessageType::MouseDown: On_Mouse(h, hMessage); break;
    case MessageType::Field: On_Field(h, hMessage.VALUE1); break;
    case MessageType::Expose: h.bRedraw = true; break;
    case MessageType::Resize: On_Resize(h); break;
    case MessageType::Close: Stop_Program();
    default: break;
  }
}

}  // namespace

void QCC_Review_Initialize() {
  iCurvePlotType = 1;
}

void QCC_Review(I4& iTrn, I4& iFlag, I4& iError) {
  iError = 0;
  iFlag = iFlagExit;
  if (NTrn < 1) return;

  CurveView hView;
  hView.iTrn = std::clamp(iTrn, 1, NTrn);
  Open_Tool_Window();
  while (hView.iFlag == iStay) {
    Show(hView);
    Wait_And_Act(hView);
  }
  Tool_Close();
  iTrn = hView.iTrn;
  iFlag = hView.iFlag;
}

}  // namespace quillan
