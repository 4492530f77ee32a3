// main.cpp: the options of the command line, and the one place where the end of the run is caught.
#include <cstdio>
#include <new>
#include <string>
#include <string_view>
#include <vector>

#include "base/program.h"
#include "commands/recovery.h"
#include "foundations/log_file.h"
#include "platform/safe_file.h"
#include "shell/command_loop.h"
#include "toolkit/script/script.h"
#include "toolkit/window/window.h"

namespace {

using namespace quillan;

constexpr const char* sHelp =
    "usage: quillan [FILE] [--script STEPS.txt] [--journal FOLDER]\n"
    "\n"
    "Editor for time-domain electromagnetic sounding data. FILE is an averaged (.avg) or\n"
    "unaveraged (.xdb) data file; without an extension it gets \".avg\".\n"
    "\n"
    "  --script STEPS.txt  play the steps of a file as the user's input; without a display\n"
    "                      this runs off-screen\n"
    "  --journal FOLDER    where edits are kept until they are saved, in place of the user's\n"
    "                      state folder; a script without it keeps none\n"
    "  --version           print the version and end\n"
    "  --help              print this help and end\n";

struct Options {
  bool bHelp = false;
  bool bVersion = false;
  std::string sScript;
  std::string sJournal;
  std::string sFault;             // why the command line cannot be used
  std::vector<char*> hRemaining;  // the program's name and what is no option of ours
};

constexpr struct {
  std::string_view sName;
  bool Options::*bGiven;
} hPlainOption[] = {
    {"--help",    &Options::bHelp   },
    {"--version", &Options::bVersion},
};

constexpr struct {
  std::string_view sName;
  std::string Options::*sValue;
  std::string_view sWanted;
} hValueOption[] = {
    {"--script",  &Options::sScript,  "a file"  },
    {"--journal", &Options::sJournal, "a folder"},
};

/// Takes the option that argument I is, and its value. Returns how many arguments that were; 0: it is none of ours.
int Take_Option(const std::vector<char*>& hArgument, std::size_t I, Options& h) {
  const std::string_view sName = hArgument[I];
  for (const auto& hRow : hPlainOption) {
    if (sName != hRow.sName) continue;
    h.*hRow.bGiven = true;
    return 1;
  }
  for (const auto& hRow : hValueOption) {
    if (sName != hRow.sName) continue;
    if (I + 1 < hArgument.size())
      h.*hRow.sValue = hArgument[I + 1];
    else
      h.sFault = std::string(sName) + " needs the name of " + std::string(hRow.sWanted);
    return 2;
  }
  return 0;
}

Options Read_Options(const std::vector<char*>& hArgument) {
  Options h;
  for (std::size_t I = 0; I < hArgument.size();) {
    const int NTaken = I == 0 ? 0 : Take_Option(hArgument, I, h);  // the first is the program's name
    if (NTaken == 0) h.hRemaining.push_back(hArgument[I]);
    I += static_cast<std::size_t>(NTaken == 0 ? 1 : NTaken);
  }
  return h;
}

/// A script does not depend on what earlier runs left, unless it is told to.
std::string Journal_Folder(const Options& h) {
  if (!h.sJournal.empty()) return h.sJournal;
  return h.sScript.empty() ? Journal_Folder_of_User() : std::string();
}

/// Ends the start where the window could not be made: a window system that cannot start its thread waits for ever.
void Need_Room_for_Window() {
  constexpr std::size_t MRoom = std::size_t{48} << 20U;  // bytes
  ::operator delete(::operator new(MRoom));
}

int Run(Options& h) {
  try {
    Need_Room_for_Window();
    System_Initialize();
    const int NRemaining = static_cast<int>(h.hRemaining.size());
    h.hRemaining.push_back(nullptr);  // a command line ends in a null
    Script_Load(h.sScript);
    sJournalFolder = Journal_Folder(h);
    WInitialise(NRemaining, h.hRemaining.data());
    Run_Program();
  } catch (const ProgramStop&) {
    Recovery_End();
    return Script_End();
  } catch (const std::bad_alloc&) {
    std::fputs("quillan: there is not enough memory.\n", stderr);
    return 1;
  }
}

}  // namespace

int main(int argc, char** argv) {
  Options h = Read_Options({argv, argv + argc});
  if (!h.sFault.empty()) {
    std::fprintf(stderr, "quillan: %s\n", h.sFault.c_str());
    return 2;
  }
  if (h.bHelp || h.bVersion) {
    if (h.bHelp) std::fputs(sHelp, stdout);
    if (h.bVersion) std::printf("%s %s\n", std::string(sPrgName).c_str(), std::string(sVersion).c_str());
    return 0;
  }
  return Run(h);
}
