#include "shell/user_at_window.h"

#include <iostream>
#include <string>

#include "base/text.h"
#include "commands/match_columns.h"
#include "commands/match_word.h"
#include "toolkit/dialog/dialog.h"
#include "toolkit/script/script.h"
#include "toolkit/window/log_text.h"
#include "toolkit/window/messages.h"
#include "toolkit/window/window.h"

namespace quillan {
namespace {

bool Answered_Yes() {
  return WInfoDialog(iExitButtonCommon) == iAnswerYes;
}

AfterReport Tell(std::string_view sReport) {
  if (WInfoWindow(iWindowDrawable) == 0) return No_User().Tell(sReport);
  WMessageBox(BoxButtons::OkCancel, BoxIcon::Stop, sReport, "ERROR", true);
  if (!Answered_Yes()) return AfterReport::Stop;
  return WMessageBoxQuiet() ? AfterReport::Quiet : AfterReport::GoOn;
}

std::string Choose_File(std::string_view sFilter, std::string_view sTitle) {
  std::string sFile;
  WSelectFile2(sFilter, iSelectOptional, sFile, sTitle);
  return Answered_Yes() ? sFile : std::string();
}

bool Says_Yes(std::string_view sQuestion, std::string_view sTitle) {
  WMessageBox(BoxButtons::YesNo, BoxIcon::Question, sQuestion, sTitle);
  return Answered_Yes();
}

void Show_Line(std::string_view sLine) {
  if (Script_Is_Playing()) std::cout << Trimmed(sLine) << std::endl;  // a line at a time, also into a pipe
  LogText_Update();
}

}  // namespace

User User_at_Window() {
  return {Tell, Match_Word, Match_Columns, Choose_File, Says_Yes, Show_Line, Message_Check, WindowClose};
}

}  // namespace quillan
