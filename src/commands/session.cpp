#include "commands/session.h"

#include "base/program.h"
#include "toolkit/window/window.h"

namespace quillan {

std::string Program_Title() {
  return std::string(CPrgName) + " v" + std::string(sVersion) + " updated " + std::string(sUpdate);
}

void Session_Title() {
  WindowTitle(Program_Title() + ", data from " + hSession.sFileName);
}

}  // namespace quillan
