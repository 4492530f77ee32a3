#include "commands/session.h"

#include "base/program.h"
#include "model/tmd_data.h"
#include "toolkit/window/window.h"

namespace quillan {

std::string Program_Title() {
  return std::string(CPrgName) + " v" + std::string(sVersion) + " updated " + std::string(sUpdate);
}

void Session_Title() {
  WindowTitle(Program_Title() + ", data from " + hSession.sFileName);
}

void Show_No_Data() {
  if (NTrn >= 1) return;
  WindowTitle(Program_Title());
  WindowOutStatusBar(iStatusProgress, "No data are open. Ctrl+O opens a file.");
}

}  // namespace quillan
