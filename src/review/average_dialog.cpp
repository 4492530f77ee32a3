#include "review/average_dialog.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <string>
#include <vector>

#include "foundations/str_write.h"
#include "processing/tmd_avg.h"
#include "review/average_curves.h"
#include "review/average_plot.h"
#include "review/plot/gestures.h"
#include "toolkit/dialog/form.h"
#include "toolkit/dialog/grid.h"
#include "toolkit/draw/last_error.h"

namespace quillan {
namespace {

constexpr std::size_t MBlock = 32;  // characters of a block label
constexpr R4 fWgtLow = 0.01f;       // the least weight that is taken
constexpr R4 fWgtHigh = 100.0f;
constexpr R4 fWgtShownLow = 0.01001f;  // the range in which weights are shown, just inside
constexpr R4 fWgtShownHigh = 99.9f;
constexpr R4 fWgtTolerance = 100.0f;  // spacings of the weight

constexpr R4 fReach = 0.5f;  // graphics units in which a point is near

// Columns of the grid.
constexpr I4 iColBlock = 1, iColSkip = 2, iColWeight = 3;

// Where the dialog opens, as parts of the window, where the screen has no room beside it.
constexpr R4 fRightEdge = 0.98f, fTopEdge = 0.05f;
constexpr I4 NMargin = 2;  // pixels

// How the dialog ends: iFlag of the view.
constexpr I4 iMerge = 1, iSaveSkip = 2, iCancel = 3, iClosed = 4;

struct AverageView : ReviewView {
  I4 iGroup0 = 0;  // the group that the plot was made for; 0: it must be made
};

RepeatGroup& Group_on_Show() {
  return hRepeats(hRepeats.iGroup);
}

// ---- show

void Tool_Show() {
  const auto Part = [](R4 fPart, I4 iSelect) { return Nint(fPart * static_cast<R4>(WInfoWindow(iSelect))); };
  const I4 iLeft = Part(fRightEdge, iWindowWidth) - WInfoDialog(iDialogWidth) - NMargin;
  WDialogShow(iLeft, std::max(Part(fTopEdge, iWindowHeight) + NMargin, 1), iShowTool);
}

void Tool_Follow() {
  WDialogHide();
  Tool_Show();
}

/// The first and the last block of the receiver's file.
std::string Block_Label(const Transient& h) {
  const std::string sFirst = Str_Write_R8(h.dKvrBlk(1), "(F12.3)").str();
  return (sFirst + ":" + Str_Write_R8(h.dKvrBlk(2), "(F12.3)").str()).substr(0, MBlock);
}

void Put_Grid(const RepeatGroup& h) {
  std::vector<std::string> sBlock(MRepeat);
  std::array<R4, MRepeat> fWgt;
  std::array<I4, MRepeat> iState;
  fWgt.fill(fDummy);
  iState.fill(iCellUnused);
  for (I4 K = 1; K <= h.NRepeat; ++K) {
    const auto i = static_cast<std::size_t>(K - 1);
    sBlock[i] = Block_Label(hTrn(h.iTrn(K)));
    fWgt[i] = std::clamp(h.fWgtTrns(K), fWgtShownLow, fWgtShownHigh);
    iState[i] = iCellInUse;
  }
  WGridPutString(iGrdRepeats, iColBlock, sBlock);
  WGridPutCheckBox(iGrdRepeats, iColSkip, h.bSkipTrn.hItem);
  WGridPutReal(iGrdRepeats, iColWeight, fWgt, "(F10.2)");
  for (const I4 iColumn : {iColSkip, iColWeight}) WGridStateColumn(iGrdRepeats, iColumn, iState);
}

std::string Left_Out(I4 N) {
  if (N == 0) return "";
  return Str_Write_I4(N).str() + (N == 1 ? " more repeat is" : " more repeats are") +
         " left out of the average and dropped by Merge Repeats.";
}

std::string In_Words(const RepeatGroup& h, bool bPlotted) {
  const std::string sGroup = "Group " + Str_Write_I4(hRepeats.iGroup).str() + ": ";
  if (!bPlotted) return sGroup + "every repeat is skipped. Merge Repeats takes the group out of the data.";
  return sGroup + Str_Write_I4(h.NRepeat + h.NLeftOut).str() + (h.NRepeat == 1 ? " transient." : " repeats.") +
         " Green: average. Numbers: repeats; magenta is skipped.";
}

/// Draws only what the window does not show already: the pointer moves over it.
void Show(AverageView& hView) {
  if (!hView.bRedraw) return;
  hView.bRedraw = false;
  if (hView.iGroup0 != hRepeats.iGroup) (void)TMD_Avg_Plot_Setup(Group_on_Show());  // else the window stays blank
  hView.iGroup0 = hRepeats.iGroup;
  const bool bPlotted = TMD_Avg_Plot_Update(Tool_Title_Room()) == 0;
  hView.sRest = In_Words(Group_on_Show(), bPlotted);
  Say_Rest(hView);
  Put_Grid(Group_on_Show());
  WDialogPutString(iLblLeftOut, Left_Out(Group_on_Show().NLeftOut));
  WDialogPutInteger(iFldGroup, hRepeats.iGroup);
  InqWintError("TMD_Average_Dialog");
}

// ---- gestures

template <I4 iFlag>
void Leave(AverageView& hView) {
  hView.iFlag = iFlag;
}

constexpr Gesture<AverageView> hGesture[] = {
  // button           key      procedure
    {iBtnMergeRepeats, 0, Leave<iMerge>},
    {iBtnSaveSkipFlags, 0, Leave<iSaveSkip>},
    {iBtnCancel, iKeyEsc, Leave<iCancel>, {}, "", "cancel"},
};

PickedPoint Near(const AverageView&, const GrPoint& hPointer) {
  return Average_Nearest(hPointer, fReach);
}

/// A click does no more than to keep the name of the point.
void On_Press(AverageView& hView, const Message& hPress) {
  hView.hClicked = Near(hView, {hPress.GX, hPress.GY});
}

std::optional<GrPoint> Place(const AverageView&, const PickedPoint& h) {
  return Average_Place(h);
}

std::string Name_of(const AverageView&, const PickedPoint& h) {
  return Average_Words(h);
}

/// Takes a weight of the group on show. Returns whether it is another one.
bool Take_Weight(R4& fWgt, const std::optional<R4>& fRead) {
  if (!fRead || *fRead < fWgtLow) return false;
  const R4 fWgt0 = fWgt;
  fWgt = *fRead;
  return std::abs(fWgt - fWgt0) > fWgtTolerance * Spacing(fWgt0);
}

/// Whatever field has changed, all are read: those of the group on show before the number of the next one.
void On_Field(AverageView& hView, I4) {
  hView.bRedraw = true;
  RepeatGroup& h = Group_on_Show();
  const std::vector<L4> bSkip = WGridGetCheckBox(iGrdRepeats, iColSkip);
  const std::vector<std::optional<R4>> fWgt = WGridGetReal(iGrdRepeats, iColWeight);
  for (I4 K = 1; K <= h.NRepeat; ++K) {
    const auto i = static_cast<std::size_t>(K - 1);
    const bool bOther = i < bSkip.size() && bSkip[i] != h.bSkipTrn(K);
    if (bOther) h.bSkipTrn(K) = bSkip[i];
    const bool bOtherWeight = i < fWgt.size() && Take_Weight(h.fWgtTrns(K), fWgt[i]);
    if (bOther || bOtherWeight) hView.iGroup0 = 0;
  }
  const auto iRead = WDialogGetInteger(iFldGroup);
  if (iRead) hRepeats.iGroup = std::clamp(*iRead, 1, hRepeats.NTrnRpt);
}

/// The dialog while it is on show: its buttons are the only commands. In the end the plot is gone.
class FieldsBesidePlot {
 public:
  FieldsBesidePlot() {
    WMenu(iNoMenu);
    WMessageEnable(MessageType::Field, true);
  }
  ~FieldsBesidePlot() {
    WMessageEnable(MessageType::Field, false);
    WindowClear();
    WindowOutStatusBar(iStatusProgress, "");
    WMenu(iMenuMain);
  }
  FieldsBesidePlot(const FieldsBesidePlot&) = delete;
  FieldsBesidePlot& operator=(const FieldsBesidePlot&) = delete;
};

/// What the user wants done with the groups.
I4 Ask() {
  const LoadedDialog form(iDlgAverage);
  if (!form.Is_There()) return iCancel;  // there is nobody to ask
  const FieldsBesidePlot hBeside;
  WDialogRangeInteger(iFldGroup, 1, hRepeats.NTrnRpt);
  WDialogPutString(iLblGroupCount, "\\" + Str_Write_I4(hRepeats.NTrnRpt).str());
  WGridRows(iGrdRepeats, MRepeat);
  WGridRangeReal(iGrdRepeats, iColWeight, R8{fWgtLow}, R8{fWgtHigh});
  Tool_Show();
  AverageView hView;
  Review_Loop(
      hView, hGesture,
      {
          Show, On_Press, On_Field, Tool_Follow, Leave<iClosed>, false, nullptr, nullptr, {Near, Place, Name_of}
  });
  return hView.iFlag;
}

}  // namespace

I4 TMD_Average_Dialog() {
  const I4 iError = TMD_Avg_Get_Groups();
  if (hRepeats.NTrnRpt >= NTrn) {
    WMessageBox(BoxButtons::Ok, BoxIcon::Information, "There are no repeat data to be averaged.", " ");
    return 1;
  }
  if (iError != 0 || hRepeats.NTrnRpt < 1) return iError;
  hRepeats.iGroup = std::clamp(hRepeats.iGroup, 1, hRepeats.NTrnRpt);
  switch (Ask()) {
    case iMerge: {
      const I4 iSkip = TMD_Avg_Save_Skip();
      return iSkip != 0 ? iSkip : TMD_Avg_Repeats();
    }
    case iSaveSkip: return TMD_Avg_Save_Skip();
    case iClosed: return 3;
    default: return 2;
  }
}

}  // namespace quillan
