#include "shell/user_at_window.h"

#include <iostream>
#include <string>

#include "base/text.h"
#include "commands/match_columns.h"
#include "commands/match_word.h"
#include "commands/z_data_type.h"
#include "foundations/str_write.h"
#include "toolkit/script/recorder.h"
#include "toolkit/script/script.h"
#include "toolkit/window/log_text.h"
#include "toolkit/window/messages.h"
#include "toolkit/window/window.h"

namespace quillan {
namespace {

constexpr std::string_view sErrorButtons = "OK goes on. Cancel ends the program; changes that are not saved are lost.";

AfterReport Tell(std::string_view sReport) {
  if (WInfoWindow(iWindowDrawable) == 0) return No_User().Tell(sReport);
  const std::string sText = std::string(sReport) + "\n\n" + std::string(sErrorButtons);
  if (!WMessageBox(BoxButtons::OkCancel, BoxIcon::Stop, sText, "ERROR", true)) return AfterReport::Stop;
  return WMessageBoxQuiet() ? AfterReport::Quiet : AfterReport::GoOn;
}

std::string Choose_File(std::string_view sFilter, std::string_view sTitle) {
  return WSelectFile2(sFilter, iSelectOptional, sTitle, "");
}

bool Says_Yes(std::string_view sQuestion, std::string_view sTitle) {
  return WMessageBox(BoxButtons::YesNo, BoxIcon::Question, sQuestion, sTitle);
}

void Show_Line(std::string_view sLine) {
  if (Script_Is_Playing()) std::cout << Trimmed(sLine) << std::endl;  // a line at a time, also into a pipe
  LogText_Update_Later();
}

// ---- long work

// Seconds. What is over sooner than a bar is worth gets none; what is sooner still lets no window be drawn meanwhile.
constexpr R8 dShownAfter = 0.5, dLooksAfter = 0.05;

/// "Reading line7.avg: 3400 of 15000 kB. Esc stops."
std::string In_Words(const WorkDone& h) {
  std::string sText = std::string(h.sWork) + ": " + Str_Write_I4(static_cast<I4>(h.NDone)).str();
  if (h.NAll > 0) sText += " of " + Str_Write_I4(static_cast<I4>(h.NAll)).str();
  return sText + " " + std::string(h.sUnit) + (h.bMayStop ? ". Esc stops." : ".");
}

bool Look(const WorkDone& h) {
  if (h.dSeconds < dLooksAfter && !Script_Wants_to_Stop()) return true;
  const bool bShown = h.dSeconds >= dShownAfter;
  if (bShown) WindowProgress(h.NAll > 0 ? R8(h.NDone) / R8(h.NAll) : -1.0, In_Words(h));
  const RecordPause hPause;  // what the user does meanwhile is dropped
  // Before there is a bar, Esc was meant for something else. A script says what it means.
  const bool bStops = Message_Check() == iLookEsc && (bShown || Script_Is_Playing());
  if (bStops && h.bMayStop) Record_Stop();
  return !bStops;
}

}  // namespace

User User_at_Window() {
  return {Tell,     Match_Word, Match_Columns, Z_VerifyDataType,  Choose_File,
          Says_Yes, Show_Line,  Look,          WindowProgressEnd, WindowClose};
}

}  // namespace quillan
