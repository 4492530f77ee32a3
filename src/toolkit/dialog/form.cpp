#include "toolkit/dialog/form.h"

#include "toolkit/window/menus.h"
#include "toolkit/window/messages.h"

namespace quillan {

LoadedDialog::LoadedDialog(I4 iWanted) : iDialog(iWanted), iBefore(WInfoDialog(iCurrentDialog)) {
  WDialogLoad(iDialog);
  bThere = WInfoDialog(iCurrentDialog) == iDialog;
}

LoadedDialog::~LoadedDialog() {
  if (!bThere) return;
  WDialogSelect(iDialog);
  WDialogUnload();
  if (iBefore != 0) WDialogSelect(iBefore);
}

FieldsAlone::FieldsAlone() {
  WMenuBarState(0);
  WMessageEnable(MessageType::Field, true);
}

FieldsAlone::~FieldsAlone() {
  WMessageEnable(MessageType::Field, false);
  WMenuBarState(1);
}

}  // namespace quillan
