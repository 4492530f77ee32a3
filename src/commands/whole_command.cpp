#include "commands/whole_command.h"

#include <cstdio>
#include <memory>
#include <new>
#include <utility>

#include "commands/session.h"
#include "commands/survey_config.h"
#include "foundations/log_file.h"
#include "foundations/progress.h"
#include "model/history.h"
#include "model/stn_data.h"
#include "review/qcs_sections.h"
#include "toolkit/window/log_text.h"
#include "toolkit/window/menus.h"
#include "toolkit/window/window.h"

namespace quillan {
namespace {

/// The way back to the data before a command, which the history knows but for the table of stations. It holds the
/// memory that going back takes.
class WayBack {
 public:
  WayBack() : hSessionBefore(hSession), hStnBefore(hStn), hRoom(std::make_unique<char[]>(History_Put_Back_Room())) {}

  void Put_Back() {
    hRoom.reset();
    History_Put_Back();
    hSession = std::move(hSessionBefore);
    hStn = std::move(hStnBefore);
  }

 private:
  Session hSessionBefore;
  StationTable hStnBefore;
  std::unique_ptr<char[]> hRoom;
};

/// What follows from the data that were put back.
void Show_Put_Back() {
  static_cast<void>(QCS_Allocate());    // as it was when the data were read
  iZPositive = Z_Positive(hTemSurvey);  // or the next look at the configuration would turn the receivers round
  if (NTrn >= 1) Session_Title();
}

void Report_No_Memory(Unfinished iUnfinished) {
  const bool bPutBack = iUnfinished == Unfinished::PutBack;
  try {
    WMenu(iMenuMain);  // a review leaves its own, a dialog a greyed one
    if (bPutBack) Show_Put_Back();
    Show_No_Data();
    LogText_Update();
    LogErr({"ERROR: There is not enough memory for this command.",
            bPutBack ? "The data are as they were before it." : "The data are as the last edit left them."});
  } catch (const std::bad_alloc&) {
    std::fputs("quillan: there is not enough memory for this command.\n", stderr);
  }
}

I4 Take_Back(WayBack& hBefore) {
  hBefore.Put_Back();
  Show_Put_Back();
  Show_No_Data();
  constexpr std::string_view sStopped = "Stopped. The data are as they were before.";
  LogText(sStopped);
  WindowOutStatusBar(iStatusProgress, sStopped);
  return 1;
}

}  // namespace

I4 Run_Whole(I4 (*Carry_Out)(), Unfinished iUnfinished) {
  std::unique_ptr<WayBack> hBefore;
  bWorkStopped = false;
  try {
    if (iUnfinished == Unfinished::PutBack) hBefore = std::make_unique<WayBack>();
    const I4 iError = Carry_Out();
    return hBefore && bWorkStopped ? Take_Back(*hBefore) : iError;
  } catch (const std::bad_alloc&) {
    if (hBefore) hBefore->Put_Back();
  }
  hBefore.reset();  // gives the report its room
  Report_No_Memory(iUnfinished);
  return 1;
}

}  // namespace quillan
