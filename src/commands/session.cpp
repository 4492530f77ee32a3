#include "commands/session.h"

#include "base/program.h"
#include "toolkit/window/window.h"

namespace quillan {

void Session_Title() {
  WindowTitle(std::string(CPrgName) + " v" + std::string(sVersion) + " updated " + std::string(sUpdate) +
              ", data from " + hSession.sFileName);
}

}  // namespace quillan
