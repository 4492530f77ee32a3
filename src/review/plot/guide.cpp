#include "review/plot/guide.h"

#include <string>
#include <string_view>

#include "platform/file_names.h"
#include "platform/folders.h"
#include "toolkit/window/documents.h"
#include "toolkit/window/messages.h"
#include "toolkit/window/window.h"

namespace quillan {
namespace {

I4 Show_Page(std::string_view sName) {
  const std::string sPage = Document_File(sName);
  if (!IOsFileExists(sPage)) {
    WMessageBox(BoxButtons::Ok, BoxIcon::Information,
                "The guide does not stand with the program:\n" + sPage +
                    "\nIt is made as the program is built, where pandoc is installed.",
                "Guide");
    return 1;
  }
  const bool bOpened = IOsOpenDocument(sPage);
  WindowOutStatusBar(iStatusProgress, (bOpened ? "The guide opens in the browser: " : "The guide is ") + sPage);
  return 0;
}

}  // namespace

I4 Show_Guide() {
  return Show_Page("guide/index.html");
}

void Show_Guide_to_Dialogs() {
  (void)Show_Page("guide/windows.html");  // a guide that is not there has been reported
}

}  // namespace quillan
