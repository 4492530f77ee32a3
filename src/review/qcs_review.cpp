#include "review/qcs_review.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "foundations/file_util.h"
#include "foundations/log_file.h"
#include "foundations/str_write.h"
#include "model/tmd_data.h"
#include "review/plot/igr_util.h"
#include "review/qcs_export.h"
#include "review/qcs_plot.h"
#include "review/review_flag.h"
#include "review/tool_window.h"
#include "toolkit/dialog/dialog.h"
#include "toolkit/draw/draw.h"
#include "toolkit/draw/last_error.h"
#include "toolkit/draw/plot_axes.h"
#include "toolkit/window/menus.h"
#include "toolkit/window/messages.h"
#include "toolkit/window/window.h"

namespace quillan {
namespace {

constexpr I4 iStay = 0;  // iFlag while the review goes on
constexpr I4 iErrorClosed = 3;

constexpr R4 fReachFlag = 0.5f;   // graphics units in which a click finds a point
constexpr R4 fReachCurve = 2.0f;  // the same for View Curve
constexpr R4 fZoomHalfX = 1.0f;   // graphics units, least half sizes of a zoom
constexpr R4 fZoomHalfY = 0.7f;

/// What the review knows.
struct SectionView {
  explicit SectionView(I4& iTrnShown) : iTrn(iTrnShown) {}

  I4& iTrn;
  I4 iSection = 1;
  I4 iSectionShown = 0;  // 0: none yet
  I4 iPlotType = 1;
  I4 NPlotType = 1;
  Array1<Text<16>, MPlotType> sPlotType;
  PlotRange hRange, hFull;
  R4 fYPNoise0 = fDummy;  // what was last put into the field of the noise floor
  bool bFieldChanged = false;
  bool bInitialize = true;  // the range has to be made anew, which ends a zoom
  bool bRedraw = true;
  I4 iFlag = iStay;
  I4 iError = 0;

  std::string_view Type() const { return sPlotType(iPlotType).trimmed(); }
};

// ---- fields of the tool window

/// What the field holds is meant for the section that was on show when it was typed, though that was left since.
/// Before the first one is shown the field holds nothing of the user's.
void Read_Noise_Floor(SectionView& hView) {
  if (hView.iSectionShown == 0) return;
  R4 fField = 0.0f;
  InfoError();
  WDialogGetReal(iFldNoiseFloor, fField);
  if (InfoError() != iErrNone) return;
  L4 bChanged = false;
  QCS_Take_Noise_Floor(hView.iSectionShown, hView.iPlotType, fField, hView.fYPNoise0, bChanged);
  hView.bInitialize = hView.bInitialize || bChanged;
}

void Read_Fields(SectionView& hView) {
  Read_Noise_Floor(hView);
  if (!hView.bFieldChanged) return;
  hView.bFieldChanged = false;
  const I4 iPlotType0 = hView.iPlotType;
  if (const auto iRead = WDialogGetTrackbar(iTrkSection)) hView.iSection = std::clamp(*iRead, 1, NSection);
  if (const auto iRead = WDialogGetMenu1(iMnuView)) hView.iPlotType = std::clamp(*iRead, 1, hView.NPlotType);
  if (hView.iPlotType != iPlotType0) hView.bInitialize = true;
}

void Put_Noise_Floor(SectionView& hView) {
  hView.fYPNoise0 = fYPNoise(hView.iPlotType);
  WDialogPutReal(iFldNoiseFloor, hView.fYPNoise0, "(1P,G14.3)");
}

// ---- what is shown

void Begin_Section(SectionView& hView) {
  hView.iSectionShown = hView.iSection;
  hView.iTrn = hSection(hView.iSection).iTrnBeg;
  QCS_Plot_Types(hTrn(hView.iTrn).iRxCmp, hView.NPlotType, hView.sPlotType);
  hView.iPlotType = std::clamp(hView.iPlotType, 1, hView.NPlotType);
  std::vector<std::string> sEntry;
  for (I4 I = 1; I <= hView.NPlotType; ++I) sEntry.push_back(hView.sPlotType(I).str());
  WDialogPutMenu1(iMnuView, sEntry, hView.iPlotType);
  hView.bInitialize = true;
}

void Initialize_Plot(SectionView& hView) {
  hView.bInitialize = false;
  hView.hFull = PlotRange{};  // a section without values must not show the scale of the one before
  I4 iError = 0;
  QCS_Section_Initialize(hView.iSection, hView.iPlotType, hView.hFull, iError);
  hView.hRange = hView.hFull;
  Put_Noise_Floor(hView);
  hView.bRedraw = true;
}

void Put_Place(const SectionView& hView) {
  WDialogPutString(iLblSectionTitle,
                   "Section " + Str_Write_I4(hView.iSection).str() + "/" + Str_Write_I4(NSection).str());
  WDialogPutTrackbar(iTrkSection, hView.iSection);
}

void Draw(SectionView& hView) {
  if (!hView.bRedraw) return;
  hView.bRedraw = false;
  I4 iError = 0;
  QCS_Section_Plot(hView.iSection, hView.iPlotType, hView.Type(), hView.hRange, iError);
}

/// Brings fields, ranges and picture up to date.
void Show(SectionView& hView) {
  Read_Fields(hView);
  if (hView.iSection != hView.iSectionShown) Begin_Section(hView);
  if (hView.bInitialize) Initialize_Plot(hView);
  Put_Place(hView);
  Draw(hView);
}

// ---- gestures

void Page(SectionView& hView, I4 iStep) {
  hView.iSection = std::clamp(hView.iSection + iStep, 1, NSection);
}

void Zoom_In(SectionView& hView) {
  R4 fX1 = 0.0f, fY1 = 0.0f, fX2 = 0.0f, fY2 = 0.0f;
  I4 iError = 0;
  IGr_ZoomMouseBox(iCursorCorner, fX1, fY1, fX2, fY2, iError);
  if (iError != 0) return;
  QCS_Shape_Box(fYCMU / fXCMU, fX1, fY1, fX2, fY2);
  PlotRange hBox;
  IPgUnitsFromGrUnits(fX1, fY1, hBox.fXPmin, hBox.fYPmin);
  IPgUnitsFromGrUnits(fX2, fY2, hBox.fXPmax, hBox.fYPmax);
  hView.hRange = QCS_Zoom_Range(hBox, hView.hFull);
  hView.bRedraw = true;
}

void Zoom_All(SectionView& hView) {
  hView.hRange = hView.hFull;
  hView.bRedraw = true;
}

void Flip_Stations(SectionView& hView) {
  Tool_Hint_Box();
  R4 fX1 = 0.0f, fY1 = 0.0f, fX2 = 0.0f, fY2 = 0.0f;
  I4 iError = 0;
  IGr_ZoomMouseBox(iCursorTwoWay, fX1, fY1, fX2, fY2, iError);
  if (iError != 0) return;
  QCS_Section_FlipTrn(hView.iSection, fX1, fX2);
  Tool_Hint_Flags();
  hView.bInitialize = true;
}

void Flip_All(SectionView& hView) {
  QCS_Section_FlipAll(hView.iSection);
  hView.bInitialize = true;
}

void View_Curve(SectionView& hView) {
  WDialogHide();
  R4 fX = 0.0f, fY = 0.0f;
  I4 iError = 0;
  I4 iTrnPnt = 0, iTwcPnt = 0;
  IGr_GetMousePoint(iCursorPick, fX, fY, iError);
  if (iError == 0) {
    QCS_Section_Point(fX, fY, hView.iSection, hView.iPlotType, hView.hRange, fReachCurve, iTrnPnt, iTwcPnt);
    if (iTrnPnt == 0) WindowBell();
  }
  if (iTrnPnt == 0) return Tool_Show();
  hView.iTrn = iTrnPnt;
  hView.iFlag = iFlagCurve;
}

/// Says in the status bar what became of an export.
void Tell_Export(const std::string& sFile, I4 iError) {
  const std::string sName(File_Name(sFile));
  WindowOutStatusBar(2, iError == 0 ? sName + " is written." : sName + " could not be written.");
}

void Export_Picture(SectionView& hView, std::string_view sExtension, decltype(QCS_Section_Plot_PNG) Plot) {
  const std::string sFile = QCS_Export_Path(sAvgFile, hView.iSection, hView.iPlotType, sExtension);
  I4 iError = 0;
  Plot(sFile, hView.iSection, hView.iPlotType, hView.Type(), hView.hRange, iError);
  Tell_Export(sFile, iError);
  hView.bRedraw = true;  // plot units are those of the picture until the window is drawn again
}

void Export_Wmf(SectionView& hView) {
  Export_Picture(hView, ".wmf", QCS_Section_Plot_WMF);
}

void Export_Png(SectionView& hView) {
  Export_Picture(hView, ".png", QCS_Section_Plot_PNG);
}

void Export_Csv(SectionView& hView) {
  WindowClear();
  const std::string sFile = QCS_Export_Path(sAvgFile, hView.iSection, hView.iPlotType, ".csv");
  I4 iError = 0;
  QCS_Section_Write_CSV(sFile, hView.iSection, hView.iPlotType, iError);
  Tell_Export(sFile, iError);
  hView.bRedraw = true;
}

void Leave_to_Save(SectionView& hView) {
  hView.iFlag = iFlagSave;
}

void Leave(SectionView& hView) {
  hView.iFlag = iFlagExit;
}

struct Gesture {
  I4 iCommand;  // of the menu
  I4 iButton;   // of the tool window; 0: none
  void (*Carry_Out)(SectionView& hView);
};

constexpr Gesture hGesture[] = {
    {iCmdZoomIn,        iBtnZoomIn,        Zoom_In      },
    {iCmdZoomAll,       iBtnZoomAll,       Zoom_All     },
    {iCmdFlipTransient, iBtnFlipTransient, Flip_Stations},
    {iCmdFlipAll,       iBtnFlipAll,       Flip_All     },
    {iCmdViewCurve,     iBtnViewCurve,     View_Curve   },
    {iCmdExportWmf,     0,                 Export_Wmf   },
    {iCmdExportPng,     0,                 Export_Png   },
    {iCmdExportCsv,     0,                 Export_Csv   },
    {iCmdSaveData,      iBtnSaveData,      Leave_to_Save},
    {iCmdExit,          iBtnExitReview,    Leave        },
};

void On_Choice(SectionView& hView, I4 Gesture::*iChoice, I4 iChosen) {
  LogErr_Begin_Command();
  for (const Gesture& h : hGesture) {
    if (h.*iChoice == iChosen) return h.Carry_Out(hView);
  }
}

void On_Key(SectionView& hView, I4 iKey) {
  switch (iKey) {
    case 'N':
    case 'n':
    case iKeyDown:
    case iKeyRight: Page(hView, +1); break;
    case 'P':
    case 'p':
    case iKeyUp:
    case iKeyLeft: Page(hView, -1); break;
    default: break;
  }
}

void Flag_Point(SectionView& hView, const Message& hMessage) {
  I4 iTwcPnt = 0;
  QCS_Section_Point(hMessage.GX, hMessage.GY, hView.iSection, hView.iPlotType, hView.hRange, fReachFlag, hView.iTrn,
                    iTwcPnt);
  if (hView.iTrn == 0) return;
  hTrn(hView.iTrn).bSkip(iTwcPnt) = hMessage.VALUE1 == iMouseLeft;
  hView.bRedraw = true;
}

void On_Press(SectionView& hView, const Message& hMessage) {
  if (hMessage.VALUE3 != 0) return;
  if (hMessage.VALUE2 == iByWheel) return Page(hView, hMessage.VALUE1 == iMouseForward ? +1 : -1);
  if (hMessage.VALUE1 == iMouseLeft || hMessage.VALUE1 == iMouseRight) Flag_Point(hView, hMessage);
}

void On_Resize(SectionView& hView) {
  Tool_Follow();
  hView.bRedraw = true;
}

void On_Message(SectionView& hView, MessageType iType, const Message& hMessage) {
  switch (iType) {
    case MessageType::Key: On_Key(hView, hMessage.VALUE1); break;
    case MessageType::Menu: On_Choice(hView, &Gesture::iCommand, hMessage.VALUE1); break;
    case MessageType::Button: On_Choice(hView, &Gesture::iButton, hMessage.VALUE1); break;
    case MessageType::MouseDown: On_Press(hView, hMessage); break;
    case MessageType::Field: hView.bFieldChanged = true; break;
    case MessageType::Expose: hView.bRedraw = true; break;
    case MessageType::Resize: On_Resize(hView); break;
    case MessageType::Close:
      hView.iFlag = iFlagExit;
      hView.iError = iErrorClosed;
      break;
    default: break;
  }
}

void Open_Tool() {
  WMenu(iMenuSection);
  Tool_Open(iDlgReviewSection, iTrkSection, NSection);
  WDialogPutString(iLblSectionCount, Str_Write_I4(NSection).trimmed());
  Tool_Hint_Flags();
  Tool_Show();
}

/// Moves a pair of limits, widths kept, to where the lower one is.
void Shift_to_Low(R4 fLow, R4& fMin, R4& fMax) {
  fMax += fLow - fMin;
  fMin = fLow;
}

void Shift_to_High(R4 fHigh, R4& fMin, R4& fMax) {
  fMin -= fMax - fHigh;
  fMax = fHigh;
}

/// Gives a side of a box at least its least half size about its middle.
void Widen_Side(R4 fHalf, R4& f1, R4& f2) {
  const R4 fMiddle = 0.5f * (f1 + f2);
  const R4 fReach = std::max(0.5f * std::abs(f2 - f1), fHalf);
  f1 = fMiddle - fReach;
  f2 = fMiddle + fReach;
}

}  // namespace

void QCS_Review(I4& iTrn, I4& iFlag, I4& iError) {
  iError = 0;
  iFlag = iFlagExit;
  if (NTrn < 1 || NSection < 1) {
    iError = 1;
    return;
  }
  iTrn = std::clamp(iTrn, 1, NTrn);
  SectionView hView{iTrn};
  hView.iSection = std::clamp(hTrn(iTrn).iSection, 1, NSection);
  Open_Tool();
  while (hView.iFlag == iStay) {
    Show(hView);
    MessageType iType = MessageType::None;
    Message hMessage;
    WMessage(iType, hMessage);
    On_Message(hView, iType, hMessage);
  }
  Tool_Close();
  WMenu(iNoMenu);
  iFlag = hView.iFlag;
  iError = hView.iError;
}

void QCS_Shape_Box(R4 fYXArea, R4& fXGr1, R4& fYGr1, R4& fXGr2, R4& fYGr2) {
  Widen_Side(fZoomHalfX, fXGr1, fXGr2);
  Widen_Side(fZoomHalfY, fYGr1, fYGr2);
  const R4 fHalfX = 0.5f * (fXGr2 - fXGr1);
  const R4 fHalfY = 0.5f * (fYGr2 - fYGr1);
  Widen_Side(fHalfY / fYXArea, fXGr1, fXGr2);
  Widen_Side(fHalfX * fYXArea, fYGr1, fYGr2);
}

PlotRange QCS_Zoom_Range(const PlotRange& hBox, const PlotRange& hFull) {
  PlotRange h = hBox;
  if (h.fXPmin < hFull.fXPmin) Shift_to_Low(hFull.fXPmin, h.fXPmin, h.fXPmax);
  if (h.fXPmax > hFull.fXPmax) Shift_to_High(hFull.fXPmax, h.fXPmin, h.fXPmax);
  h.fXPmin = std::max(h.fXPmin, hFull.fXPmin);  // a box wider than the section shows all of it

  if (h.fYPmin < hFull.fYPmin) {
    Shift_to_Low(hFull.fYPmin, h.fYPmin, h.fYPmax);
    h.fYPmax = std::min(h.fYPmax, hFull.fYPmax);
  } else if (h.fYPmax > hFull.fYPmax) {
    Shift_to_High(hFull.fYPmax, h.fYPmin, h.fYPmax);
  }
  return h;
}

}  // namespace quillan
