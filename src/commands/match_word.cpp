#include "commands/match_word.h"

#include <string>

#include "toolkit/dialog/form.h"

namespace quillan {
namespace {

constexpr std::string_view sAskName = "Str_to_iEnumeration_Dialog";

}  // namespace

I4 Match_Word(const WordQuestion& hQuestion) {
  const LoadedDialog form(iDlgMatchLabel);
  if (!form.Is_There()) {
    InfoError();  // nobody can be asked: as if the user had cancelled
    return 0;
  }
  WDialogPutString(iLblMatchWhat, "Match this " + std::string(hQuestion.sKeyword) + " label");
  WDialogPutString(iFldMatchWord, hQuestion.CWord);
  WDialogPutMenu1(iMnuMatchList, hQuestion.sEntry, hQuestion.iSelect);
  InqWintError(sAskName);

  const I4 iButton = WDialogShow(iCentred, iCentred, iShowModal);
  InqWintError(sAskName);
  if (iButton == iBtnCancel) return 0;
  return iButton == iBtnContinue ? WDialogGetMenu1(iMnuMatchList).value_or(-1) : -1;
}

}  // namespace quillan
