#include "commands/match_columns.h"

#include <string>

#include "base/text.h"
#include "toolkit/dialog/dialog.h"
#include "toolkit/dialog/grid.h"
#include "toolkit/draw/last_error.h"

namespace quillan {
namespace {

constexpr std::string_view sAskName = "Str_Column_Labels_Dialog";
constexpr std::size_t MPrompt = 128;  // characters

void Put_Fields(const ColumnQuestion& hQuestion) {
  const std::string sFile(hQuestion.sFileName);
  const std::string sPrompt = "Match column labels from " + sFile + " to program variables.";
  WDialogTitle("Verify column labels in " + sFile);
  WGridRows(iGrdColumns, static_cast<I4>(hQuestion.KCol.size()));
  WDialogPutString(iLblColumnsPrompt, Cut_Text(sPrompt, MPrompt));
  WGridPutString(iGrdColumns, 1, hQuestion.sVariable);
  WGridPutString(iGrdColumns, 2, hQuestion.sStatus);
  WGridPutMenu(iGrdColumns, 3, hQuestion.sLabel, hQuestion.KCol);
  InqWintError(sAskName);
}

}  // namespace

bool Match_Columns(const ColumnQuestion& hQuestion) {
  const I4 iDialogBefore = WInfoDialog(iCurrentDialog);
  WDialogLoad(iDlgMatchColumns);
  if (WInfoDialog(iCurrentDialog) != iDlgMatchColumns) {
    InfoError();  // nobody can be asked: as if the user had cancelled
    return false;
  }
  Put_Fields(hQuestion);
  WDialogShow(iCentred, iCentred, iShowModal);
  InqWintError(sAskName);
  const bool bContinue = WInfoDialog(iExitButton) == iBtnContinue;
  if (bContinue) WGridGetMenu(iGrdColumns, 3, hQuestion.KCol);
  WDialogUnload();
  if (iDialogBefore != 0) WDialogSelect(iDialogBefore);
  InqWintError(sAskName);
  return bContinue;
}

}  // namespace quillan
