#include "review/qcs_review.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "foundations/file_util.h"
#include "foundations/str_write.h"
#include "model/edits.h"
#include "platform/file_names.h"
#include "review/flag_many.h"
#include "review/plot/gestures.h"
#include "review/plot/mode_hint.h"
#include "review/plot/plot_mouse.h"
#include "review/plot/plot_title.h"
#include "review/qcs_export.h"
#include "review/qcs_plot.h"
#include "review/qcs_sections.h"
#include "review/review_export.h"
#include "review/tool_window.h"
#include "toolkit/dialog/dialog.h"
#include "toolkit/draw/draw.h"
#include "toolkit/draw/last_error.h"
#include "toolkit/draw/plot_axes.h"
#include "toolkit/window/window.h"

namespace quillan {
namespace {

// The menu bar of the review and its commands.
constexpr I4 iMenuSection = 30003;
constexpr I4 iCmdZoomIn = 40021;
constexpr I4 iCmdZoomAll = 40022;
constexpr I4 iCmdFlipTransient = 40023;
constexpr I4 iCmdFlipAll = 40024;
constexpr I4 iCmdViewCurve = 40025;
constexpr I4 iCmdExportWmf = 40027;
constexpr I4 iCmdExportPng = 40028;
constexpr I4 iCmdSaveData = 40029;
constexpr I4 iCmdExportCsv = 40034;

constexpr I4 iErrorClosed = 3;

constexpr I4 iSectionStep = 1;  // of the trackbar: clicks beside its knob reach every section

constexpr R4 fReachFlag = 0.5f;   // graphics units in which a click finds a point
constexpr R4 fReachCurve = 2.0f;  // the same for View Curve

/// What the review knows.
struct SectionView : ReviewView {
  I4 iTrn = 1;
  I4 iSection = 1;
  I4 iSectionShown = 0;  // 0: none yet
  I4 iPlotType = 1;
  I4 NPlotType = 1;
  PlotRange hRange, hFull;
  PlotRange hFull0;       // with the points that are hidden
  R4 fYPNoise0 = fDummy;  // what was last put into the field of the noise floor
  bool bFieldChanged = false;
  bool bInitialize = true;  // the range has to be made again, which ends a zoom
  I4 iError = 0;
};

// ---- fields of the tool window

/// What the field holds is meant for the section that was on show when it was typed, though that was left since.
/// Before the first one is shown the field holds nothing of the user's.
void Read_Noise_Floor(SectionView& hView) {
  if (hView.iSectionShown == 0) return;
  const auto fField = WDialogGetReal(iFldNoiseFloor);
  if (fField && QCS_Take_Noise_Floor(hView.iSectionShown, hView.iPlotType, *fField, hView.fYPNoise0)) {
    hView.bInitialize = true;
  }
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

// ---- what is shown

void Begin_Section(SectionView& hView) {
  hView.iSectionShown = hView.iSection;
  hView.iTrn = hSection(hView.iSection).iTrnBeg;
  const std::vector<std::string> sPlotType = QCS_Plot_Types(hTrn(hView.iTrn).iRxCmp);
  hView.NPlotType = static_cast<I4>(sPlotType.size());
  hView.iPlotType = std::clamp(hView.iPlotType, 1, hView.NPlotType);
  WDialogPutMenu1(iMnuView, sPlotType, hView.iPlotType);
  hView.bInitialize = true;
}

void Initialize_Plot(SectionView& hView) {
  hView.bInitialize = false;
  // A section without values must not show the scale of the one before.
  hView.hFull = QCS_Section_Initialize(hView.iSection, hView.iPlotType).value_or(PlotRange{});
  hView.hFull0 = hView.hFull;
  hView.hRange = hView.hFull;
  hView.fYPNoise0 = fYPNoise(hView.iPlotType);
  WDialogPutReal(iFldNoiseFloor, hView.fYPNoise0, "(1P,G14.3)");
  hView.bRedraw = true;
}

/// The scale follows what is hidden and shown, unless the user has zoomed.
void Follow_Range(SectionView& hView) {
  const PlotRange hFull = bHideSkipped ? QCS_Range_Shown(hView.hFull0) : hView.hFull0;
  if (hView.hRange == hView.hFull) hView.hRange = hFull;
  hView.hFull = hFull;
}

/// Brings fields, ranges and picture up to date.
void Show(SectionView& hView) {
  Read_Fields(hView);
  if (hView.iSection != hView.iSectionShown) Begin_Section(hView);
  // What follows may report: the user must see of which section.
  WDialogPutString(iLblSectionTitle,
                   "Section " + Str_Write_I4(hView.iSection).str() + "/" + Str_Write_I4(NSection).str());
  WDialogPutTrackbar(iTrkSection, hView.iSection);
  if (hView.bInitialize) Initialize_Plot(hView);
  if (!hView.bRedraw) return;
  hView.bRedraw = false;
  Follow_Range(hView);
  // What cannot be drawn was reported; the user goes on to another section.
  static_cast<void>(QCS_Section_Plot(hView.iSection, hView.iPlotType, hView.hRange, Tool_Title_Room()));
}

// ---- gestures

void Next(SectionView& hView) {
  hView.iSection = std::min(hView.iSection + 1, NSection);
}

void Previous(SectionView& hView) {
  hView.iSection = std::max(hView.iSection - 1, 1);
}

void Zoom_In(SectionView& hView) {
  const ModeHint hHint("Zoom: click two corners of a box, or drag it. Esc ends it.");
  const MouseBox h = IGr_ZoomMouseBox(iCursorCorner);
  if (h.iError != 0) return;
  hView.hRange = Shift_Inside(Range_of_Box(Shaped_Zoom_Box(fYCMU / fXCMU, h.hBox)), hView.hFull);
  hView.bRedraw = true;
}

void Zoom_All(SectionView& hView) {
  hView.hRange = hView.hFull;
  hView.bRedraw = true;
}

/// After Esc the hint lines still speak of the box.
void Flip_Stations(SectionView& hView) {
  Tool_Hint_Box();
  const ModeHint hHint("Flip: click at both ends of the stations to reverse, or drag over them. Esc ends it.");
  const MouseBox h = IGr_ZoomMouseBox(iCursorTwoWay);
  if (h.iError != 0) return;
  QCS_Section_FlipTrn(hView.iSection, h.hBox.fX1, h.hBox.fX2);
  Tool_Hint_Flags();
  hView.bInitialize = true;
}

void Flip_All(SectionView& hView) {
  QCS_Section_FlipAll(hView.iSection);
  hView.bInitialize = true;
}

PickedPoint Point_at(const SectionView& hView, const GrPoint& hClick, R4 fReach) {
  return QCS_Section_Point(hClick, hView.iSection, hView.iPlotType, hView.hRange, fReach);
}

/// The point that the user clicks at; none after Esc, and where no point is near.
PickedPoint Pick_Curve(const SectionView& hView) {
  MousePoint hClick;
  {
    const ModeHint hHint("View Curve: click near a point to see its curve. Esc ends it.");
    hClick = IGr_GetMousePoint(iCursorPick);
  }
  if (hClick.iError != 0) return {};
  const PickedPoint hPicked = Point_at(hView, hClick.hPoint, fReachCurve);
  if (hPicked.iTrn != 0) return hPicked;
  WindowBell();
  Say_No_Point();
  return {};
}

void View_Curve(SectionView& hView) {
  WDialogHide();
  const PickedPoint hPicked = Pick_Curve(hView);
  if (hPicked.iTrn == 0) return Tool_Show();
  hView.iTrn = hPicked.iTrn;
  hView.iFlag = iFlagCurve;
}

std::string Export_Path(const SectionView& hView, std::string_view sExtension) {
  return QCS_Export_Path(sAvgFile, hView.iSection, hView.iPlotType, sExtension);
}

/// The files of an export, and whether one of them takes the place of an earlier one.
struct Export {
  std::string sFile, sNames;
  bool bReplaces;
};

Export Begin_Export(const SectionView& hView, std::string_view sExtension) {
  const std::string sFile = Export_Path(hView, sExtension);
  return {sFile, std::string(File_Name(sFile)), IOsFileExists(sFile)};
}

/// A table comes with its plot-control file.
Export Begin_Table(const SectionView& hView) {
  Export h = Begin_Export(hView, ".csv");
  const Export hControl = Begin_Export(hView, ".mde");
  h.sNames += " and " + hControl.sNames;
  h.bReplaces = h.bReplaces || hControl.bReplaces;
  return h;
}

/// Says in the status bar what became of an export. The window is drawn again: plot units are those of a picture until
/// then, and a table leaves it blank.
void End_Export(SectionView& hView, const Export& h, I4 iError) {
  Say_Exported(h.sNames, h.bReplaces, iError);
  hView.bRedraw = true;
}

void Export_Wmf(SectionView& hView) {
  const Export h = Begin_Export(hView, ".wmf");
  End_Export(hView, h, QCS_Section_Plot_WMF(h.sFile, hView.iSection, hView.iPlotType, hView.hRange));
}

void Export_Png(SectionView& hView) {
  const Export h = Begin_Export(hView, ".png");
  End_Export(hView, h, QCS_Section_Plot_PNG(h.sFile, hView.iSection, hView.iPlotType, hView.hRange));
}

void Export_Csv(SectionView& hView) {
  WindowClear();
  const Export h = Begin_Table(hView);
  End_Export(hView, h, QCS_Section_Write_CSV(h.sFile, hView.iSection, hView.iPlotType));
}

/// What is exported, in words.
std::string Export_Subject(const SectionView& h) {
  return "Section " + Str_Write_I4(h.iSection).str() + "/" + Str_Write_I4(NSection).str() + ", " +
         Section_Type(hTrn(hSection(h.iSection).iTrnBeg).iRxCmp, h.iPlotType);
}

/// By a name of the user's own.
void Export_Any(SectionView& h) {
  const auto Write_Picture = [&h](std::string_view sFile, const PictureKind& hKind, std::string_view sSmallPrint) {
    return QCS_Section_Plot_File(sFile, hKind, {h.iSection, h.iPlotType, h.hRange}, sSmallPrint);
  };
  const auto Write_Table = [&h](std::string_view sFile) {
    WindowClear();
    return QCS_Section_Write_CSV(sFile, h.iSection, h.iPlotType);
  };
  Review_Export({Export_Path(h, ""), Export_Subject(h), Write_Picture, Write_Table, true});
  h.bRedraw = true;
}

void Leave_to_Save(SectionView& hView) {
  hView.iFlag = iFlagSave;
}

void Leave(SectionView& hView) {
  hView.iFlag = iFlagExit;
}

// clang-format off
constexpr Gesture<SectionView> hGesture[] = {
    // button          key        procedure      menu
    {iBtnZoomIn,        0,         Zoom_In,       {0, iCmdZoomIn,        "Zoom In",
        "Click to set rubber-band-box corner, then drag to expand  zoom-in area.", ""}},
    {iBtnZoomAll,       0,         Zoom_All,      {0, iCmdZoomAll,       "Zoom All",
        "Return to default plot extent.", ""}},
    {iBtnFlipTransient, 0,         Flip_Stations, {0, iCmdFlipTransient, "Flip Transient",
        "Reverse transient polarity.", ""}, "Flip Transient"},
    {iBtnFlipAll,       0,         Flip_All,      {0, iCmdFlipAll,       "Flip All",
        "Reverse polarity of all transients.", ""}, "Flip All"},
    {iBtnViewCurve,     0,         View_Curve,    {0, iCmdViewCurve,     "View Curve",
        "Show TEM transient plot.", ""}},
    {0,                 0,         nullptr,       {0, 0,                 "Export Plot", "", ""}},
    {0,                 0,         Export_Wmf,    {1, iCmdExportWmf,     "Export plot to WMF",
        "Export profile plot to windows metafile (WMF) file.", ""}},
    {0,                 0,         Export_Png,    {1, iCmdExportPng,     "Export plot to PNG",
        "Export profile plot to portable network graphics (PNG) file.", ""}},
    {0,                 0,         Export_Csv,    {1, iCmdExportCsv,     "Export profile data to CSV",
        "Export profile data to a CSV file", ""}},
    {0,                 0,         Export_Any,    {1, iCmdExport,        "Export...",
        "Export the plot or its data to a file of any name: SVG, PDF, PNG, WMF or CSV", "Ctrl+E"}},
    {iBtnSaveData,      0,         Leave_to_Save, {0, iCmdSaveData,      "Save Data",
        "Save data in updated avg file or other data file formats.", "Ctrl+S"}},
    {0,                 0,         nullptr,       {0, 0,                 "History", "", ""}},
    {0,                 0,         nullptr,       {1, iCmdUndo,          "Undo", sUndoTip, sUndoKeys}},
    {0,                 0,         nullptr,       {1, iCmdRedo,          "Redo", sRedoTip, sRedoKeys}},
    {iBtnExitReview,    0,         Leave,         {0, iCmdExit,          "Exit Review",
        "Exit data review without saving changes.", ""}},
    {0,                 'N',       Next,     {}, "", "next section"},
    {0,                 iKeyDown,  Next},
    {0,                 iKeyRight, Next},
    {0,                 'P',       Previous, {}, "", "previous section"},
    {0,                 iKeyUp,    Previous},
    {0,                 iKeyLeft,  Previous},
};
// clang-format on

/// A click flags the point nearest to it, with Shift its window at all stations, with Ctrl all later windows of the
/// sounding too.
void Flag_at(SectionView& hView, const Message& hPress, L4 bSkip) {
  const PickedPoint hPicked = Point_at(hView, {hPress.GX, hPress.GY}, fReachFlag);
  hView.iTrn = hPicked.iTrn;
  if (hPicked.iTrn == 0) return Say_No_Point();
  hView.bRedraw = true;
  if (hPress.bShift) return Say_Flagged(bSkip, QCS_Flag_Window(bSkip, hView.iSection, hPicked.iTwc));
  if (hPress.bCtrl) return Say_Flagged(bSkip, Flag_Later_Windows(bSkip, hPicked.iTrn, hPicked.iTwc));
  hView.hClicked = hPicked;  // of many windows their count is told, of one what it is
  Edit_Window_Flag(hPicked.iTrn, hPicked.iTwc, bSkip);
}

/// A drag with Shift flags the points in a box; one too small for a box is a click.
void Flag_Box(SectionView& hView, const Message& hPress, L4 bSkip) {
  const MouseBox h = IGr_SelectMouseBox(hPress);
  if (h.iError != 0) return;
  if (!Is_Box(h.hBox)) return Flag_at(hView, hPress, bSkip);
  Say_Flagged(bSkip, QCS_Flag_Box(bSkip, h.hBox, hView.hRange));
  hView.bRedraw = true;
}

void On_Press(SectionView& hView, const Message& hPress) {
  if (hPress.VALUE2 == iByWheel) return hPress.VALUE1 == iMouseForward ? Next(hView) : Previous(hView);
  if (hPress.VALUE1 != iMouseLeft && hPress.VALUE1 != iMouseRight) return;
  const L4 bSkip = hPress.VALUE1 == iMouseLeft;
  return hPress.bShift ? Flag_Box(hView, hPress, bSkip) : Flag_at(hView, hPress, bSkip);
}

void On_Field(SectionView& hView, I4) {
  hView.bFieldChanged = true;
}

void On_Close(SectionView& hView) {
  hView.iFlag = iFlagExit;
  hView.iError = iErrorClosed;
}

TransientRange Shown(const SectionView& hView) {
  return {hSection(hView.iSection).iTrnBeg, hSection(hView.iSection).iTrnEnd};
}

/// Flags alone leave the section where it was, zoom included.
void Go_To(SectionView& hView, const TakenBack& hBack) {
  hView.iTrn = hBack.iTrn;
  hView.iSection = std::clamp(hTrn(hBack.iTrn).iSection, 1, NSection);
  if (!hBack.bOnlyFlags) hView.bInitialize = true;
  if (hBack.bRegrouped) hView.iFlag = iFlagSection;  // the tool window counts anew
}

// ---- pointing

PickedPoint Near(const SectionView& hView, const GrPoint& hPointer) {
  return Point_at(hView, hPointer, fReachFlag);
}

std::optional<GrPoint> Place(const SectionView& hView, const PickedPoint& h) {
  const auto hAt = QCS_Point_in_Range(h, hView.hRange);
  if (!hAt) return std::nullopt;
  return IPgUnitsToGrUnits(hAt->fX, hAt->fY);
}

std::string In_Words(const SectionView& hView, const PickedPoint& h) {
  return Point_Words(hTrn(h.iTrn), h.iTwc, hView.iPlotType);
}

PickedPoint Step(SectionView& hView, const PickedPoint& h, I4 NWindow, I4 NSounding) {
  return QCS_Step(h, NWindow, NSounding, hView.hRange);
}

}  // namespace

ReviewEnd QCS_Review(I4 iTrn) {
  if (NTrn < 1 || NSection < 1) return {iFlagExit, 1, iTrn};
  SectionView hView;
  hView.sRest = bHideSkipped ? sHiddenHint : "";
  hView.iTrn = std::clamp(iTrn, 1, NTrn);
  hView.iSection = std::clamp(hTrn(hView.iTrn).iSection, 1, NSection);
  Define_Menu(iMenuSection, hGesture);
  WMenu(iMenuSection);
  {
    const ToolWindow hTool(iDlgReviewSection, iTrkSection, iLblSectionCount, NSection, iSectionStep);
    Review_Loop(
        hView, hGesture,
        {
            Show, On_Press, On_Field, Tool_Follow, On_Close, true, Shown, Go_To, {Near, Place, In_Words, Step}
    });
  }
  WMenu(iNoMenu);
  return {hView.iFlag, hView.iError, hView.iTrn};
}

}  // namespace quillan
