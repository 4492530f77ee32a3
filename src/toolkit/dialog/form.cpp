#include "toolkit/dialog/form.h"

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

}  // namespace quillan
