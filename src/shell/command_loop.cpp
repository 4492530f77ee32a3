#include "shell/command_loop.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "base/program.h"
#include "commands/history_commands.h"
#include "commands/open_file.h"
#include "commands/open_survey.h"
#include "commands/recent_files.h"
#include "commands/record_steps.h"
#include "commands/recovery.h"
#include "commands/session.h"
#include "commands/whole_command.h"
#include "foundations/file_util.h"
#include "foundations/log_file.h"
#include "metadata/mdp_data.h"
#include "model/history.h"
#include "model/tmd_data.h"
#include "platform/arguments.h"
#include "review/plan_view.h"
#include "review/plot/colour_table.h"
#include "review/plot/guide.h"
#include "shell/command_table.h"
#include "shell/user_at_window.h"
#include "toolkit/draw/last_error.h"
#include "toolkit/script/recorder.h"
#include "toolkit/window/documents.h"
#include "toolkit/window/log_text.h"
#include "toolkit/window/menus.h"
#include "toolkit/window/messages.h"
#include "toolkit/window/window.h"

namespace quillan {
namespace {

constexpr R8 dScreenShare = 0.85;  // of the screen's height
constexpr R8 dWidest = 1.25;       // width over height
constexpr R8 dHighest = 0.8;       // height over width
constexpr I4 NStatusPart1 = 32;    // pixels

// ---- start

/// Opens a file of a list, recent or of the command line.
bool Is_Listed_File(I4 iCommand) {
  return iCommand >= iCmdRecent && iCommand <= iCmdPreviousFile;
}

void Open_Window() {
  std::vector<MenuRow> hRow;
  for (const Command& h : Command_Table())
    hRow.push_back({h.iDepth, h.iCommand, h.sText, h.sTip, h.sKeys, h.Carry_Out != nullptr,
                    h.iCommand != iCmdRecordSteps && !Is_Listed_File(h.iCommand)});
  WMenuDefine(iMenuMain, hRow);
  const WindowSize hSize = Window_Size(WInfoScreen(iScreenWidth), WInfoScreen(iScreenHeight));
  WindowOpen2(0, 0, hSize.NXP, hSize.NYP, iMenuMain, Program_Title());
  WindowStatusBarParts(NStatusPart1);
  WOnHelp(Show_Guide_to_Dialogs);
}

void Initialize_All() {
  hUser = User_at_Window();
  hReviewEdits = Edits_for_Reviews();
  hSession = {};
  (void)Log_Initialize(sPrgName);  // a log that cannot be removed is no reason to stop
  Last_Error_Initialize();
  TMD_Initialize();
  MDP_Initialize();
  History_Begin();
  CFT_Initialize("cftable.clr");
  InqWintError();
}

void Read_First_File() {
  std::vector<std::string> sNamed = Named_Files(".avg");
  sAvgFile = Get_File(IOsArgument(1), ".avg");
  if (!sNamed.empty()) sNamed.front() = sAvgFile;
  Offer_Files(std::move(sNamed));
  const std::string sFile = sAvgFile;  // of some kinds another file is written
  Session_Title();
  (void)TEM_Read_Data(sAvgFile);  // a failure has been reported; the menu offers what is left
  hSession.sFileName = File_Name(sAvgFile);
  hSession.bUpdateAVG = false;
  Begin_History();
  Show_No_Data();
  Recovery_Begin();
  if (NTrn >= 1) Recent_Add(sFile);
}

// ---- loop

bool Is_Available(const Command& h) {
  return h.Carry_Out != nullptr && (NTrn >= 1 || !h.bNeedsData);
}

void Set_Menu_State() {
  for (const Command& h : Command_Table()) {
    if (h.iCommand != 0) WMenuSetState(h.iCommand, Is_Available(h) ? 1 : 0);
  }
  WMenuSetCheck(iCmdRecordSteps, Record_Is_On());
}

void Begin_Command() {
  LogErr_Begin_Command();
  WindowOutStatusBar(iStatusProgress, "");  // what the command before had to say
  bReceiverNamed = false;
}

/// A save needs its memory for itself, and what was done by hand in a review is not thrown away.
Unfinished If_Unfinished(const Command& h) {
  if (h.iCommand == iCmdOpen || Is_Listed_File(h.iCommand)) return Unfinished::PutBack;
  return h.bChangesData && h.iCommand != iCmdReview ? Unfinished::PutBack : Unfinished::Stay;
}

void Carry_Out(I4 iChoice) {
  const auto h = std::ranges::find(Command_Table(), iChoice, &Command::iCommand);
  if (h == Command_Table().end() || !Is_Available(*h)) return;
  Begin_Command();
  if (h->bChangesData) hSession.bUpdateAVG = true;
  // A failure has been reported; the user chooses what comes next.
  (void)Run_Whole(h->Carry_Out, If_Unfinished(*h));
  if (h->bChangesData) Keep_Edit(h->sText);
  Show_Recent();  // files come and go
  LogText_Renew_Picture();
}

/// Between commands there is nothing to put back: what could not be drawn is drawn with the next exposure.
Message Next_Message() {
  try {
    return WMessage();
  } catch (const std::bad_alloc&) {
    WindowOutStatusBar(iStatusProgress, "There is not enough memory to draw the window.");
    return {};
  }
}

[[noreturn]] void Command_Loop() {
  for (;;) {
    Set_Menu_State();
    WMessageEnable(MessageType::MouseMove, LogText_Shows_Picture());
    const Message hMessage = Next_Message();
    switch (hMessage.iType) {
      case MessageType::Menu: Carry_Out(hMessage.VALUE1); break;
      case MessageType::MouseMove:
      case MessageType::MouseDown:
        if (LogText_Shows_Picture()) TEM_Map_View_Follow(hMessage);
        break;
      case MessageType::FileDropped:
        Begin_Command();
        (void)Run_Whole(Open_Dropped_File, Unfinished::PutBack);  // as with a command
        break;
      case MessageType::Expose:
      case MessageType::Resize: LogText_Redraw(); break;
      case MessageType::Close: Stop_Program();  // without a question: the user has decided
      default: break;
    }
  }
}

}  // namespace

WindowSize Window_Size(I4 NXScreen, I4 NYScreen) {
  const I4 NYP = static_cast<I4>(std::floor(dScreenShare * NYScreen));
  return {std::min(static_cast<I4>(std::floor(dWidest * NYP)), NXScreen),
          std::min(static_cast<I4>(std::floor(dHighest * NXScreen)), NYP)};
}

void Run_Program() {
  Open_Window();
  Initialize_All();
  Read_First_File();
  Command_Loop();
}

}  // namespace quillan
