#include "commands/record_steps.h"

#include <string>

#include "foundations/file_util.h"
#include "foundations/log_file.h"
#include "toolkit/script/recorder.h"
#include "toolkit/window/messages.h"
#include "toolkit/window/window.h"

namespace quillan {

I4 Record_Steps() {
  const RecordPause hPause;
  if (Record_Is_On()) {
    Record_End();
    WindowOutStatusBar(iStatusProgress, "The record of steps has ended.");
    return 0;
  }
  const std::string sFile = WSelectFile2("Session script *.txt|*.txt|", iSelectSave, "Record steps into", "steps.txt");
  if (sFile.empty()) return 0;
  if (Record_Begin(sFile) != 0) {
    LogErr({"Record_Steps ERROR:", "Cannot write " + sFile + ".", "No steps are recorded."});
    return 1;
  }
  WindowOutStatusBar(iStatusProgress,
                     "Steps go to " + std::string(File_Name(sFile)) + " until Record Steps is chosen again.");
  return 0;
}

}  // namespace quillan
