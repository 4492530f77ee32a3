#include "commands/history_commands.h"

#include <algorithm>
#include <string>
#include <vector>

#include "commands/edit_list.h"
#include "commands/live_dialog.h"
#include "commands/session.h"
#include "commands/survey_config.h"
#include "foundations/file_util.h"
#include "foundations/str_write.h"
#include "model/derived.h"
#include "model/history.h"
#include "review/qcs_sections.h"
#include "toolkit/dialog/form.h"
#include "toolkit/dialog/grid.h"
#include "toolkit/window/menus.h"
#include "toolkit/window/window.h"

namespace quillan {
namespace {

// ---- what the window shows

/// "Undo Auto Skip (13 windows in 6 soundings)"; the word alone, greyed, where there is no edit.
void Show_Entry(I4 iCommand, std::string_view sWord, I4 K) {
  const bool bThere = K >= 1 && K <= History_Count();
  std::string sText(sWord);
  if (bThere) sText += " " + As_Menu_Text(Edit_Name(History_Edit(K).hWords));
  WMenuEntry(iCommand, sText, bThere);
}

void Show_History() {
  Show_Entry(iCmdUndo, "&Undo", History_Position());
  Show_Entry(iCmdRedo, "&Redo", History_Position() + 1);
  WMenuEntry(iCmdEditList, sListText, History_Count() > 0);
  WindowModified(NTrn >= 1 && History_Differs_from_File());
}

// ---- what follows from the data after a step

/// Sections are numbered again; the user's noise floors stay as long as there are as many of them.
void Group_Sections() {
  std::vector<NoiseFloors> fFloor;
  for (I4 K = 1; K <= NSection; ++K) fFloor.push_back(hSection(K).fYPNoise);
  static_cast<void>(QCS_Allocate());  // without data there are none
  if (static_cast<I4>(fFloor.size()) != NSection) return;
  for (I4 K = 1; K <= NSection; ++K) hSection(K).fYPNoise = fFloor[static_cast<std::size_t>(K - 1)];
}

/// bTitle: the window's title is of another file, or of none.
void Complete_Data(bool bTitle) {
  static_cast<void>(TMD_Trns_Set_iTWCfg());  // without data there are none
  Group_Sections();
  iZPositive = Z_Positive(hTemSurvey);  // or the next look at the configuration would turn the receivers round
  hSession.sFileName = File_Name(sAvgFile);
  if (bTitle) Session_Title();
  Show_No_Data();
  History_Follow();
}

/// After steps from NTrn0 transients.
void End_of_Steps(I4 NTrn0, bool bOnlyFlags) {
  if (!bOnlyFlags) Complete_Data(NTrn0 < 1 || hSession.sFileName != File_Name(sAvgFile));
  hSession.bUpdateAVG = History_Differs_from_File();
  Show_History();
}

/// One step, by History_Undo or History_Redo.
TakenBack Step(const Edit* (*Go)(), std::string_view sDone, std::string_view sNone, const TransientRange& hShown) {
  const I4 NTrn0 = NTrn, NSection0 = NSection;
  const Edit* hEdit = Go();
  if (hEdit == nullptr) {
    WindowOutStatusBar(iStatusProgress, sNone);
    return {};
  }
  End_of_Steps(NTrn0, hEdit->bOnlyFlags);
  WindowOutStatusBar(iStatusProgress, std::string(sDone) + Edit_Name(hEdit->hWords) + ".");
  return {.bDone = true,
          .iTrn = Edit_Place(*hEdit, hShown.jFrom, hShown.jTo),
          .bOnlyFlags = hEdit->bOnlyFlags,
          .bRegrouped = NTrn != NTrn0 || NSection != NSection0};
}

TakenBack Undo(const TransientRange& hShown) {
  return Step(History_Undo, "Taken back: ", "There is nothing to take back.", hShown);
}

TakenBack Redo(const TransientRange& hShown) {
  return Step(History_Redo, "Done again: ", "There is nothing to do again.", hShown);
}

void Keep_Gesture(std::string_view sEdit) {
  if (History_Keep(sEdit)) Show_History();
}

// ---- dialog 120

void Put_Column(I4 iColumn, const std::vector<EditRow>& hRow, std::string EditRow::*hField) {
  std::vector<std::string> sText(hRow.size());
  std::ranges::transform(hRow, sText.begin(), hField);
  WGridPutString(iGrdEdits, iColumn, sText);
}

void Put_Edits() {
  const std::vector<EditRow> hRow = Edit_Rows();
  WGridRows(iGrdEdits, static_cast<I4>(hRow.size()));
  Put_Column(1, hRow, &EditRow::sTime);
  Put_Column(2, hRow, &EditRow::sEdit);
  Put_Column(3, hRow, &EditRow::sWhat);
  Put_Column(4, hRow, &EditRow::sWhere);
  WGridSelectRow(iGrdEdits, History_Position() + 1);
  WDialogPutString(iLblPosition, "In force: " + Str_Write_I4(History_Position()).str() + " of " +
                                     Str_Write_I4(History_Count()).str() + ". Edits in brackets are taken back.");
}

/// The state after the chosen row; the first row is the state before all edits.
void Go_To_Row() {
  const I4 NTrn0 = NTrn;
  const I4 iTarget = std::clamp(WGridSelectedRow(iGrdEdits) - 1, 0, History_Count());
  while (History_Position() > iTarget) static_cast<void>(History_Undo());
  while (History_Position() < iTarget) static_cast<void>(History_Redo());
  End_of_Steps(NTrn0, false);
  Put_Edits();
}

void Write_List() {
  const std::string sFile = Edit_List_Name(sAvgFile);
  const bool bReplaces = IOsFileExists(sFile);
  if (Write_Edit_List(sFile, sAvgFile) != 0) return;
  WindowOutStatusBar(iStatusProgress, "Written: " + std::string(File_Name(sFile)) +
                                          (bReplaces ? "; an earlier file was replaced." : "; no file was replaced."));
}

}  // namespace

void Begin_History() {
  History_Begin();
  Show_History();
}

void Keep_Edit(std::string_view sMenuText) {
  std::string sEdit(sMenuText);
  std::erase(sEdit, '&');
  Keep_Gesture(sEdit);
}

void End_of_Edits() {
  End_of_Steps(NTrn, false);
}

void End_of_Save(bool bSaved) {
  if (bSaved)
    History_Saved();
  else
    History_Follow();
  Show_History();
}

I4 Undo_Command() {
  return Undo({}).bDone ? 0 : 1;
}

I4 Redo_Command() {
  return Redo({}).bDone ? 0 : 1;
}

I4 Edit_List() {
  const LoadedDialog form(iDlgEditList);
  Put_Edits();
  InqWintError("Edit_List");
  for (;;) {
    switch (Run_Live_Dialog([] {})) {
      case iBtnGoTo: Go_To_Row(); break;
      case iBtnWriteList: Write_List(); break;
      default: return 0;
    }
  }
}

ReviewEdits Edits_for_Reviews() {
  return {Keep_Gesture, Undo, Redo};
}

}  // namespace quillan
