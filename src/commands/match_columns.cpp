#include "commands/match_columns.h"

#include <algorithm>
#include <string>
#include <vector>

#include "base/text.h"
#include "toolkit/dialog/form.h"
#include "toolkit/dialog/grid.h"

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
}

}  // namespace

bool Match_Columns(const ColumnQuestion& hQuestion) {
  const LoadedDialog form(iDlgMatchColumns);
  if (!form.Is_There()) {
    InfoError();  // nobody can be asked: as if the user had cancelled
    return false;
  }
  Put_Fields(hQuestion);
  InqWintError(sAskName);
  const bool bContinue = WDialogShow(iCentred, iCentred, iShowModal) == iBtnContinue;
  if (bContinue) {
    const std::vector<I4> KChosen = WGridGetMenu(iGrdColumns, 3);
    std::ranges::copy_if(KChosen, hQuestion.KCol.begin(), [](I4 K) { return K > 0; });
  }
  InqWintError(sAskName);
  return bContinue;
}

}  // namespace quillan
