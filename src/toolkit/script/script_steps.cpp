// The table of the steps, and whether one fits its arguments and the screen.
#include <QMessageBox>
#include <algorithm>

#include "toolkit/dialog/private_dialog.h"
#include "toolkit/script/private_script.h"
#include "toolkit/window/private_window.h"

namespace quillan {

using namespace toolkit;

namespace {

// What must be on the screen for a step.
enum class Needs { Nothing, Window, Dialog, Box, FileDialog };

struct StepKind {
  std::string_view sName;
  std::string_view sUsage;    // its arguments in words
  std::string_view sPattern;  // one letter an argument: i whole number, n number, s text; after "?" optional
  Needs iNeeds;
  std::string (*Play)(Arguments sArgument);  // gives an empty text, or why the step cannot be carried out
};

// clang-format off
constexpr StepKind hStepKind[] = {
    // name      arguments                                       pattern     needs              procedure
    {"menu",     "NAME",                                                   "s",        Needs::Window,     Play_Menu},
    {"press",    "NAME",                                                   "s",        Needs::Dialog,     Play_Press},
    {"set",      "NAME VALUE",                                             "ss",       Needs::Dialog,     Play_Set},
    {"check",    "NAME on|off",                                            "ss",       Needs::Dialog,     Play_Check},
    {"radio",    "NAME",                                                   "s",        Needs::Dialog,     Play_Radio},
    {"choose",   "NAME ENTRY",                                             "ss",       Needs::Dialog,     Play_Choose},
    {"slide",    "NAME N",                                                 "si",       Needs::Dialog,     Play_Slide},
    {"cell",     "NAME ROW COL VALUE",                                     "ssss",     Needs::Dialog,     Play_Cell},
    {"field",    "NAME VALUE",                                             "ss",       Needs::Dialog,     Play_Field},
    {"key",      "KEY",                                                    "s",        Needs::Nothing,    Play_Key},
    {"click",    "X Y [left|right|middle|back|forward] [Shift] [Ctrl]",    "nn?sss",   Needs::Window,     Play_Click},
    {"drag",     "X1 Y1 X2 Y2 [left|right] [Shift] [Ctrl]",                "nnnn?sss", Needs::Window,     Play_Drag},
    {"point",    "X Y [left|right] [Shift] [Ctrl]",                        "nn?sss",   Needs::Window,     Play_Point},
    {"hover",    "X Y",                                                    "nn",       Needs::Window,     Play_Hover},
    {"wheel",    "N X Y",                                                  "inn",      Needs::Window,     Play_Wheel},
    {"answer",   "ok|cancel|yes|no [quiet]",                               "s?s",      Needs::Box,        Play_Answer},
    {"file",     "PATH|cancel",                                            "s",        Needs::FileDialog, Play_File},
    {"close",    "",                                                       "",         Needs::Window,     Play_Close},
    {"stop",     "",                                                       "",         Needs::Nothing,    Play_Stop},
    {"expect",   "TEXT",                                                   "s",        Needs::Nothing,    Play_Expect},
    {"resize",   "W H",                                                    "ii",       Needs::Nothing,    Play_Resize},
    {"drop",     "PATH",                                                   "s",        Needs::Window,     Play_Drop},
    {"snapshot", "FILE.png",                                               "s",        Needs::Nothing,    Play_Snapshot},
};
// clang-format on

/// Empty when the screen has what a step needs, else what is in the way.
std::string Lacks(Needs iNeeds) {
  const QDialog* hFirst = Waits_First();
  const std::string sWaits = hFirst ? What_Waits() + " waits for an answer" : "";
  switch (iNeeds) {
    case Needs::Nothing: return "";
    case Needs::Window: return hFirst ? sWaits : Main_Window() ? "" : "no window is open";
    case Needs::Dialog:
      return hFirst && hFirst != Current_Dialog() ? sWaits : Current_Dialog() ? "" : "no dialog is open";
    case Needs::Box: return Open_Box() ? "" : hFirst ? sWaits : "no message box is open";
    case Needs::FileDialog: return Open_Box() ? sWaits : Open_File_Dialog() ? "" : "no file dialog is open";
  }
  return "";
}

bool Fits(char cKind, const std::string& sWord) {
  I4 iValue = 0;
  R8 dValue = 0.0;
  return cKind == 'i' ? Reads_As(sWord, iValue) : cKind == 'n' ? Reads_As(sWord, dValue) : true;
}

/// Whether the arguments are as many and of the kinds that the step takes.
bool Fits_Pattern(std::string_view sPattern, Arguments sArgument) {
  bool bOptional = false;
  std::size_t NTaken = 0;
  for (const char cKind : sPattern) {
    if (cKind == '?') {
      bOptional = true;
    } else if (NTaken == sArgument.size()) {
      return bOptional;
    } else if (!Fits(cKind, sArgument[NTaken++])) {
      return false;
    }
  }
  return NTaken == sArgument.size();
}

}  // namespace

std::string toolkit::Script_Carry_Out(const ScriptStep& hStep) {
  const auto hKind = std::ranges::find(hStepKind, std::string_view(hStep.sWord[0]), &StepKind::sName);
  if (hKind == std::end(hStepKind)) return "there is no step " + hStep.sWord[0];
  const Arguments sArgument = Arguments(hStep.sWord).subspan(1);
  if (!Fits_Pattern(hKind->sPattern, sArgument)) {
    return "the step is written: " + std::string(hKind->sName) + " " + std::string(hKind->sUsage);
  }
  const std::string sLacks = Lacks(hKind->iNeeds);
  return sLacks.empty() ? hKind->Play(sArgument) : sLacks;
}

}  // namespace quillan
