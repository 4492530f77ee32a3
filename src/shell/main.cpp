// main.cpp: what the options ask for, and the one place where the end of the run is caught.
#include <cstdio>
#include <new>
#include <string>
#include <string_view>

#include "base/program.h"
#include "commands/recent_files.h"
#include "commands/recovery.h"
#include "foundations/log_file.h"
#include "platform/safe_file.h"
#include "shell/command_loop.h"
#include "shell/example_survey.h"
#include "shell/options.h"
#include "toolkit/script/recorder.h"
#include "toolkit/script/script.h"
#include "toolkit/window/window.h"

namespace {

using namespace quillan;

// The commit that the program was built from; blank where that is not known.
#ifndef QUILLAN_COMMIT
#define QUILLAN_COMMIT ""
#endif
constexpr std::string_view sCommit = QUILLAN_COMMIT;

int Print_Version() {
  std::string sLine = std::string(sPrgName) + " " + std::string(sVersion);
  if (!sCommit.empty()) sLine.append(" (commit ").append(sCommit).append(")");
  std::printf("%s\n", sLine.c_str());
  return 0;
}

int Print_Help() {
  std::fwrite(sHelp.data(), 1, sHelp.size(), stdout);
  return 0;
}

int Refuse(const std::string& sFault, int iStatus) {
  std::fprintf(stderr, "quillan: %s\n", sFault.c_str());
  return iStatus;
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
    if (Record_Would_Destroy(h.sRecord)) return Refuse(h.sRecord + " is there already and is no record of steps", 2);
    const int NRemaining = static_cast<int>(h.hRemaining.size());
    h.hRemaining.push_back(nullptr);  // a command line ends in a null
    Script_Load(h.sScript);
    Record_Listen();
    sJournalFolder = Journal_Folder(h);
    Recent_Begin(h.sScript.empty() || h.bRecent);  // a script leaves the user's own list alone
    WInitialise(NRemaining, h.hRemaining.data());
    if (!h.sRecord.empty() && Record_Begin(h.sRecord) != 0) return Refuse("cannot write " + h.sRecord, 2);
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
  Options h = Read_Options(argc, argv);
  if (!h.sFault.empty()) return Refuse(h.sFault, 2);
  if (h.bHelp) return Print_Help();
  if (h.bVersion) return Print_Version();
  std::string sExample;
  if (h.bExample) {
    sExample = Copy_Example_Survey(h.sFault);
    if (sExample.empty()) return Refuse(h.sFault, 1);
    h.hRemaining.insert(h.hRemaining.begin() + 1, sExample.data());
  }
  return Run(h);
}
