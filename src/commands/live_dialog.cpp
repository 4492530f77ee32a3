#include "commands/live_dialog.h"

#include "toolkit/dialog/form.h"
#include "toolkit/window/log_text.h"
#include "toolkit/window/messages.h"

namespace quillan {
I4 Run_Live_Dialog(const std::function<void()>& Show) {
  if (WInfoDialog(iCurrentDialog) == 0) return iBtnCancel;  // nobody can be asked
  const FieldsAlone alone;
  Show();
  WDialogShow(iCentred, iCentred, iShowSemiModeless);
  for (;;) {
    const Message hMessage = WMessage();
    switch (hMessage.iType) {
      case MessageType::Button: return hMessage.VALUE1;
      case MessageType::Field: Show(); break;
      case MessageType::Expose:
      case MessageType::Resize: LogText_Redraw(); break;
      case MessageType::Close: return iBtnCancel;
      default: break;
    }
  }
}

}  // namespace quillan
