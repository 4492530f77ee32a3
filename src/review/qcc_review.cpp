#include "review/qcc_review.h"

#include <algorithm>
#include <optional>
#include <string>

#include "foundations/log_file.h"
#include "foundations/str_write.h"
#include "model/edits.h"
#include "review/flag_many.h"
#include "review/plot/gestures.h"
#include "review/plot/mode_hint.h"
#include "review/plot/plot_mouse.h"
#include "review/plot/plot_title.h"
#include "review/qcc_export.h"
#include "review/qcc_plot.h"
#include "review/review_export.h"
#include "review/tool_window.h"
#include "toolkit/dialog/dialog.h"
#include "toolkit/window/window.h"

namespace quillan {
namespace {

constexpr R4 fReach = 0.5f;  // graphics units, how near to a point a click must be

/// What is on show; the plot type is iCurvePlotType.
struct CurveView : ReviewView {
  I4 iTrn = 1;
  I4 iTrn0 = 0;  // what the plot was made for; 0: it must be made
  I4 iPlotType0 = 0;
};

// ---- show

std::string Station(R8 dStn) {
  return Str_Write_R8(dStn, "(F12.3)").str();
}

void Make_Plot(CurveView& h) {
  // The making may report: the user must see of which transient.
  WDialogPutString(iLblCurveTitle, "Tx " + Station(hTrn(h.iTrn).dTxStn) + ", Rx " + Station(hTrn(h.iTrn).dRxStn));
  QCC_Plot_Initialize(h.iTrn, iCurvePlotType);
  iCurvePlotType = hCurve.iPlotType;
  h.iTrn0 = h.iTrn;
  h.iPlotType0 = iCurvePlotType;
  h.bRedraw = true;
  WDialogPutMenu1(iMnuView, hCurve.sPlotType, std::min(iCurvePlotType, hCurve.NPlotType()));
}

/// Draws only what the window does not show already; a transient that cannot be plotted leaves it blank.
void Show(CurveView& h) {
  WDialogPutTrackbar(iTrkCurve, h.iTrn);
  if (h.iTrn != h.iTrn0 || iCurvePlotType != h.iPlotType0) Make_Plot(h);
  if (!h.bRedraw) return;
  QCC_Follow_Range();
  QCC_Plot_Trns(Tool_Title_Room());
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
  Edit_Transient_Flag(h.iTrn, bSkip);
  h.iTrn0 = 0;
}

void Skip_All(CurveView& h) {
  Flag_Transient(h, true);
}

void Clear_All(CurveView& h) {
  Flag_Transient(h, false);
}

/// Esc zooms into the box as it stands.
void Zoom_In(CurveView& h) {
  if (hCurve.NPobs < 1) return;
  Tool_Hint_Box();
  const ModeHint hHint("Zoom: click two corners of a box, or drag it. Esc ends it with the box as it stands.");
  const MouseBox hMouse = IGr_ZoomMouseBox(iCursorCorner);
  Tool_Hint_Flags();
  QCC_Zoom_Box(hMouse.hBox);
  h.bRedraw = true;
}

void Zoom_All(CurveView& h) {
  QCC_Zoom_All();
  h.bRedraw = true;
}

/// The picture was drawn into the file with its own plot units.
void Export(CurveView& h) {
  if (hCurve.NPobs < 1) return WindowOutStatusBar(2, "There is no curve to export.");
  Review_Export({QCC_Export_Stem(sAvgFile), QCC_Export_Subject(), QCC_Plot_File, QCC_Write_CSV});
  h.bRedraw = true;
}

// clang-format off
constexpr Gesture<CurveView> hGesture[] = {
    // button         key        procedure
    {0,               'F',       First,        {}, "", "first sounding"},
    {0,               'L',       Last,         {}, "", "last sounding"},
    {0,               'N',       Next,         {}, "", "next sounding"},
    {0,               iKeyDown,  Next        },
    {0,               iKeyRight, Next        },
    {0,               'P',       Previous,     {}, "", "previous sounding"},
    {0,               iKeyUp,    Previous    },
    {0,               iKeyLeft,  Previous    },
    {iBtnSkipAll,     0,         Skip_All,     {}, "Skip All"},
    {iBtnClearAll,    0,         Clear_All,    {}, "Clear All"},
    {iBtnZoomIn,      0,         Zoom_In     },
    {iBtnZoomAll,     0,         Zoom_All    },
    {iBtnViewSection, 0,         View_Section},
    {iCmdExport,      iKeyCtrlE, Export,       {}, "", "export the plot or its data"},
    {iBtnSaveData,    0,         Save_Data   },
    {iBtnExitReview,  'X',       Exit_Review,  {}, "", "leave the review"},
    {0,               iKeyEsc,   Exit_Review },
};
// clang-format on

/// The window of the point nearest to a click, and all later ones.
void Flag_Later(const GrPoint& hClick, L4 bSetSkip) {
  const PickedPoint h = QCC_Nearest_Point(hClick, fReach);
  Say_Flagged(bSetSkip, h.iTrn == 0 ? 0 : Flag_Later_Windows(bSetSkip, h.iTrn, h.iTwc));
}

/// A drag flags a box of points; one too small for a box, as of an unsteady hand, the point nearest to its press.
void Flag_Points(CurveView& h, const Message& hPress, L4 bSetSkip) {
  const MouseBox hMouse = IGr_SelectMouseBox(hPress);
  if (hMouse.iError != 0) return;
  h.bRedraw = true;
  const bool bBox = Is_Box(hMouse.hBox);
  const GrPoint hClick{hPress.GX, hPress.GY};
  if (!bBox && hPress.bCtrl) return Flag_Later(hClick, bSetSkip);
  if (!bBox) h.hClicked = QCC_Clicked_Point(bSetSkip, hClick, fReach);
  const L4 bFound = bBox ? QCC_SkipBox(bSetSkip, hMouse.hBox) : QCC_SkipPoint(bSetSkip, hClick, fReach);
  if (!bFound) Say_No_Point();
}

void On_Press(CurveView& h, const Message& hPress) {
  switch (hPress.VALUE1) {
    case iMouseLeft: Flag_Points(h, hPress, true); break;
    case iMouseRight: Flag_Points(h, hPress, false); break;
    case iMouseForward: Next(h); break;
    case iMouseBack: Previous(h); break;
    default: break;
  }
}

void On_Field(CurveView& h, I4 iField) {
  const auto iRead = iField == iTrkCurve  ? WDialogGetTrackbar(iTrkCurve)
                     : iField == iMnuView ? WDialogGetMenu1(iMnuView)
                                          : std::nullopt;
  if (iRead && iField == iTrkCurve) h.iTrn = std::clamp(*iRead, 1, NTrn);
  if (iRead && iField == iMnuView) iCurvePlotType = std::clamp(*iRead, 1, hCurve.NPlotType());
}

void On_Close(CurveView&) {
  Stop_Program();
}

TransientRange Shown(const CurveView& h) {
  return {h.iTrn, h.iTrn};
}

/// Flags alone leave the curve where it was, zoom included.
void Go_To(CurveView& h, const TakenBack& hBack) {
  h.iTrn = hBack.iTrn;
  if (!hBack.bOnlyFlags) h.iTrn0 = 0;
  if (hBack.bRegrouped) h.iFlag = iFlagCurve;  // the tool window counts anew
}

// ---- pointing

PickedPoint Near(const CurveView&, const GrPoint& hPointer) {
  return QCC_Nearest_Point(hPointer, fReach);
}

std::optional<GrPoint> Place(const CurveView&, const PickedPoint& h) {
  return QCC_Place(h);
}

std::string In_Words(const CurveView&, const PickedPoint& h) {
  return Point_Words(hTrn(h.iTrn), h.iTwc, hCurve.iPlotType);
}

/// The curve of another sounding has its point where it had one of the same window, or the nearest one.
PickedPoint Step(CurveView& h, const PickedPoint& hFrom, I4 NWindow, I4 NSounding) {
  const bool bBegun = hFrom.iTrn == h.iTrn;
  if (NSounding == 0 || !bBegun) return QCC_Step(bBegun ? hFrom.iTwc : 0, NWindow);
  h.iTrn = std::clamp(h.iTrn + NSounding, 1, NTrn);
  Show(h);
  return QCC_Point_of_Window(hFrom.iTwc);
}

}  // namespace

void QCC_Review_Initialize() {
  iCurvePlotType = 1;
}

ReviewEnd QCC_Review(I4 iTrn) {
  if (NTrn < 1) return {iFlagExit, 0, iTrn};
  CurveView hView;
  hView.iTrn = std::clamp(iTrn, 1, NTrn);
  hView.sRest = bHideSkipped ? sHiddenHint : "";
  const ToolWindow hTool(iDlgReviewCurve, iTrkCurve, iLblCurveCount, NTrn, Tool_Trackbar_Step(NTrn));
  Review_Loop(hView, hGesture,
              {
                  Show, On_Press, On_Field, Tool_Follow, On_Close, true, Shown, Go_To, {Near, Place, In_Words, Step}
  });
  return {hView.iFlag, 0, hView.iTrn};
}

}  // namespace quillan
