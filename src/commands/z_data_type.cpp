#include "commands/z_data_type.h"

#include <string>
#include <vector>

#include "metadata/enm_data.h"
#include "toolkit/dialog/form.h"
#include "toolkit/dialog/grid.h"

namespace quillan {
namespace {

constexpr std::string_view sAskName = "Z_VerifyDataType";
constexpr std::ptrdiff_t NZCmp = 8;  // components to choose from; the blank one is none

void Put_Fields(const ZTypeQuestion& hQuestion) {
  std::vector<std::string> sLine(hQuestion.sHeader.begin(), hQuestion.sHeader.end());
  sLine.resize(static_cast<std::size_t>(hQuestion.MHeader));
  WGridRows(iGrdZHeader, hQuestion.MHeader);
  WGridPutString(iGrdZHeader, 1, sLine);
  WDialogPutRadioButton(hQuestion.hFound.iDataType == iZDataDbdt ? iRadZDbdt : iRadZSkip);
  const std::vector<std::string> sCmp(sChnCmp.begin(), sChnCmp.begin() + NZCmp);
  WDialogPutMenu1(iMnuZCmp, sCmp, hQuestion.hFound.iRxCmp);
}

}  // namespace

ZTypeAnswer Z_VerifyDataType(const ZTypeQuestion& hQuestion) {
  const LoadedDialog form(iDlgZDataType);
  if (!form.Is_There()) {
    InfoError();  // nobody can be asked: as if the user had cancelled
    return {};
  }
  Put_Fields(hQuestion);
  InqWintError(sAskName);
  if (WDialogShow(iCentred, iCentred, iShowModal) != iBtnContinue) return {};

  ZDataType hType = hQuestion.hFound;
  hType.iDataType = WDialogGetRadioButton(iRadZDbdt).value_or(false) ? iZDataDbdt : iZDataSkip;
  hType.iRxCmp = WDialogGetMenu1(iMnuZCmp).value_or(hType.iRxCmp);
  const bool bForAll = WDialogGetCheckBox(iChkZForAll).value_or(false);
  InqWintError(sAskName);
  return {hType, bForAll};
}

}  // namespace quillan
