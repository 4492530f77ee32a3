#include "commands/session.h"

#include "base/program.h"
#include "model/tmd_data.h"
#include "toolkit/window/window.h"

namespace quillan {

void Session_Initialize() {
  sFileName.clear();
  sAvgFile.clear();
  bUpdateAVG = false;
  NTrn = 0;
  NStn = 0;
}

void Session_Title() {
  WindowTitle(std::string(CPrgName) + " v" + std::string(sVersion) + " updated " + std::string(sUpdate) +
              ", data from " + sFileName);
}

}  // namespace quillan
