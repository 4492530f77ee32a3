#include "shell/command_loop.h"

#include <algorithm>
#include <cmath>

#include "base/program.h"
#include "commands/auto_skip_command.h"
#include "commands/open_survey.h"
#include "commands/save_survey.h"
#include "commands/session.h"
#include "commands/survey_config.h"
#include "foundations/file_util.h"
#include "foundations/log_file.h"
#include "metadata/mdp_data.h"
#include "model/tmd_data.h"
#include "platform/arguments.h"
#include "platform/file_names.h"
#include "platform/folders.h"
#include "processing/moving_average.h"
#include "review/plot/cft_data.h"
#include "review/review_door.h"
#include "review/review_flag.h"
#include "shell/user_at_window.h"
#include "toolkit/dialog/dialog.h"
#include "toolkit/draw/last_error.h"
#include "toolkit/window/log_text.h"
#include "toolkit/window/menus.h"
#include "toolkit/window/messages.h"
#include "toolkit/window/window.h"

namespace quillan {
namespace {

constexpr R8 fScreenShare = 0.85;  // of the screen's height
constexpr R8 fWidest = 1.25;       // width over height
constexpr R8 fHighest = 0.8;       // height over width
constexpr I4 NStatusPart1 = 32;    // pixels
constexpr std::string_view sOpenFilter = "Choose TEM *.avg or *.xdb file|*.avg;*.xdb|";

// ---- questions

/// Whether the user wants changed data saved first.
bool Wants_Save() {
  WMessageBox(BoxButtons::YesNo, BoxIcon::Question, "Should " + sFileName + " data be saved?", "");
  return WInfoDialog(iExitButtonCommon) == iAnswerYes;
}

bool Choose_File(std::string_view sFilter, I4 iFlags, std::string_view sTitle, std::string& sFile) {
  WSelectFile2(sFilter, iFlags, sFile, sTitle);
  return WInfoDialog(iExitButtonCommon) == iAnswerYes;
}

// ---- commands

void Save_Data(I4& iError) {
  TEM_Write_Data(sAvgFile, bUpdateAVG, iError);
  if (iError == 2) Stop_Program();
}

void Save_Data_As(I4& iError) {
  if (!Choose_File("Verify output TEM *.avg|*.avg|", iSelectSave, "Select output TEM *.avg file name", sAvgFile)) {
    iError = 1;
    return;
  }
  sFileName = File_Name(sAvgFile);
  Save_Data(iError);
}

void Read_Named_File(I4& iError) {
  sFileName = File_Name(sAvgFile);
  WindowTitle("Quillan " + std::string(sVersion) + " updated " + std::string(sUpdate) + ", data from " + sFileName);
  TEM_Read_Data(sAvgFile, iError);
}

/// After Yes to the save question the user chooses Open or Exit again.
bool Saves_First(I4& iError) {
  if (!bUpdateAVG || !Wants_Save()) return false;
  Save_Data(iError);
  return true;
}

void Open_File(I4& iError) {
  if (Saves_First(iError)) return;
  if (Choose_File(sOpenFilter, iSelectOpen, "Select TEM *.avg or *.xdb file for input", sAvgFile)) {
    Read_Named_File(iError);
  } else {  // no file, no data: what the window shows is what is in the store
    NTrn = 0;
    iError = 1;
  }
  bUpdateAVG = false;
}

void Open_Dropped_File(I4& iError) {
  if (Saves_First(iError)) return;
  sAvgFile = WDroppedFile();
  Read_Named_File(iError);
  bUpdateAVG = false;
}

/// What the user wants after a review: to save, or nothing; a review that was left has nothing to save.
void Review_Data(I4& iError) {
  I4 iFlag = 0;
  TEM_Review_Data(iFlag, iError);
  if (iFlag == iFlagSave) TEM_Write_Data(sAvgFile, bUpdateAVG, iError);
  if (iFlag == iFlagExit) bUpdateAVG = false;
}

void Exit_Program(I4& iError) {
  if (!Saves_First(iError)) Stop_Program();
}

struct Command {
  I4 iCommand;
  bool bNeedsData;    // greyed without data
  bool bChangesData;  // counts as a change from its start on, also when the user then cancels
  void (*Carry_Out)(I4& iError);
};

constexpr Command hCommand[] = {
    {iCmdOpen,           false, false, Open_File      },
    {iCmdSave,           true,  false, Save_Data      },
    {iCmdSaveAs,         true,  false, Save_Data_As   },
    {iCmdExit,           false, false, Exit_Program   },
    {iCmdSurveyConfig,   true,  true,  Edit_Cfg       },
    {iCmdMovingAverage,  true,  true,  GMA_Time       },
    {iCmdAutoSkip,       true,  true,  AutoSkip_Filter},
    {iCmdReadStn,        true,  true,  nullptr        }, // commands without a procedure stay grey
    {iCmdAverageRepeats, true,  true,  nullptr        },
    {iCmdMerge,          true,  true,  nullptr        },
    {iCmdReview,         true,  true,  Review_Data    },
};

void Set_Menu_State() {
  for (const Command& h : hCommand) {
    const bool bAvailable = h.Carry_Out != nullptr && (NTrn >= 1 || !h.bNeedsData);
    WMenuSetState(h.iCommand, bAvailable ? 1 : 0);
  }
}

void Carry_Out(I4 iChoice) {
  const auto h = std::find_if(std::begin(hCommand), std::end(hCommand),
                              [&](const Command& hRow) { return hRow.iCommand == iChoice; });
  if (h == std::end(hCommand) || h->Carry_Out == nullptr || (h->bNeedsData && NTrn < 1)) return;
  LogErr_Begin_Command();
  if (h->bChangesData) bUpdateAVG = true;
  I4 iError = 0;
  h->Carry_Out(iError);
}

void Carry_Out_Drop() {
  LogErr_Begin_Command();
  I4 iError = 0;
  Open_Dropped_File(iError);
}

[[noreturn]] void Command_Loop() {
  for (;;) {
    Set_Menu_State();
    MessageType iType = MessageType::None;
    Message hMessage;
    WMessage(iType, hMessage);
    switch (iType) {
      case MessageType::Menu: Carry_Out(hMessage.VALUE1); break;
      case MessageType::FileDropped: Carry_Out_Drop(); break;
      case MessageType::Expose:
      case MessageType::Resize: LogText_Update(); break;
      case MessageType::Close: Stop_Program();  // without a question: the user has decided
      default: break;
    }
  }
}

// ---- start

void Open_Window() {
  I4 NXP = 0;
  I4 NYP = 0;
  Window_Size(WInfoScreen(iScreenWidth), WInfoScreen(iScreenHeight), NXP, NYP);
  WindowOpen2(0, 0, NXP, NYP, iMenuMain,
              std::string(CPrgName) + " v" + std::string(sVersion) + " updated " + std::string(sUpdate));
  WindowStatusBarParts(NStatusPart1);
}

void Initialize_All() {
  I4 iError = 0;
  hUser = User_at_Window();
  Session_Initialize();
  Log_Initialize(sPrgName, iError);
  Last_Error_Initialize();
  TMD_Initialize(iError);
  MDP_Initialize(iError);
  CFT_Initialize("cftable.clr");
  InqWintError();
}

void Read_First_File() {
  Get_File(IOsArgument(1), sAvgFile, ".avg");
  if (sAvgFile.empty()) Stop_Program();
  Session_Title();
  I4 iError = 0;
  TEM_Read_Data(sAvgFile, iError);
  sFileName = File_Name(sAvgFile);
  bUpdateAVG = false;
}

std::string_view First_Word(std::string_view sText) {
  const auto K1 = sText.find_first_not_of(" \t");
  if (K1 == std::string_view::npos) return {};
  return sText.substr(K1, sText.find_first_of(" \t", K1) - K1);
}

std::string Completed(std::string_view sName, std::string_view sFileExt) {
  std::string sFile(sName);
  if (Index_FExt(sFile) == static_cast<I4>(sFile.size())) sFile += sFileExt;
  if (sFile.find(sSlash) != std::string::npos) return sFile;
  return IOsDirName() + sSlash + sFile;
}

}  // namespace

void Window_Size(I4 NXScreen, I4 NYScreen, I4& NXP, I4& NYP) {
  NXP = NXScreen;
  NYP = static_cast<I4>(std::floor(fScreenShare * NYScreen));
  const I4 NXP1 = static_cast<I4>(std::floor(fWidest * NYP));
  const I4 NYP1 = static_cast<I4>(std::floor(fHighest * NXP));
  NXP = std::min(NXP1, NXP);
  NYP = std::min(NYP1, NYP);
}

void Get_File(std::string_view sCmdLine, std::string& sFile, std::string_view sFileExt) {
  sFile.clear();
  const std::string_view sName = IOsFileExists(sCmdLine) ? sCmdLine : First_Word(sCmdLine);
  if (!sName.empty()) sFile = Completed(sName, sFileExt);
  if (IOsFileExists(sFile)) return;
  sFile.clear();
  if (!Choose_File(sOpenFilter, iSelectOpen, "Open TEM *.avg or *.xdb file for input", sFile)) Stop_Program();
}

void Run_Program() {
  Open_Window();
  Initialize_All();
  Read_First_File();
  Command_Loop();
}

}  // namespace quillan
