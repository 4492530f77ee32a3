#include "commands/match_word.h"

#include <string>

#include "toolkit/dialog/dialog.h"
#include "toolkit/draw/last_error.h"

namespace quillan {
namespace {

constexpr std::string_view sAskName = "Str_to_iEnumeration_Dialog";

void Put_Fields(const WordQuestion& hQuestion) {
  WDialogPutString(iLblMatchWhat, "Match this " + std::string(hQuestion.sKeyword) + " label");
  WDialogPutString(iFldMatchWord, hQuestion.CWord);
  WDialogPutMenu1(iMnuMatchList, hQuestion.sEntry, hQuestion.iSelect);
  InqWintError(sAskName);
}

I4 Selected() {
  I4 iSelect = 0;
  WDialogGetMenu1(iMnuMatchList, iSelect);
  return InfoError() == iErrNone ? iSelect : -1;
}

}  // namespace

I4 Match_Word(const WordQuestion& hQuestion) {
  const I4 iDialogBefore = WInfoDialog(iCurrentDialog);
  WDialogLoad(iDlgMatchLabel);
  if (WInfoDialog(iCurrentDialog) != iDlgMatchLabel) {
    InfoError();  // nobody can be asked: as if the user had cancelled
    return 0;
  }
  Put_Fields(hQuestion);
  WDialogShow(iCentred, iCentred, iShowModal);
  InqWintError(sAskName);
  I4 iMeant = -1;
  if (WInfoDialog(iExitButton) == iBtnContinue) iMeant = Selected();
  if (WInfoDialog(iExitButton) == iBtnCancel) iMeant = 0;
  WDialogUnload();
  if (iDialogBefore != 0) WDialogSelect(iDialogBefore);
  InqWintError(sAskName);
  return iMeant;
}

}  // namespace quillan
