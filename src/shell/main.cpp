// main.cpp: the options of the command line, and the one place where the end of the run is caught.
#include <cstdio>
#include <new>
#include <string>
#include <string_view>
#include <vector>

#include "base/program.h"
#include "foundations/log_file.h"
#include "platform/safe_file.h"
#include "shell/command_loop.h"
#include "toolkit/script/script.h"
#include "toolkit/window/window.h"

namespace {

using namespace quillan;

constexpr const char* sHelp =
    "usage: quillan [FILE] [--script STEPS.txt]\n"
    "\n"
    "Editor for time-domain electromagnetic sounding data. FILE is an averaged (.avg),\n"
    "unaveraged (.xdb) or contour (.Z) data file; without an extension it gets \".avg\".\n"
    "\n"
    "  --script STEPS.txt  play the steps of a file as the user's input; without a display\n"
    "                      this runs off-screen\n"
    "  --version           print the version and end\n"
    "  --help              print this help and end\n";

struct Options {
  bool bHelp = false;
  bool bVersion = false;
  std::string sScript;
  std::string sFault;             // why the command line cannot be used
  std::vector<char*> hRemaining;  // the program's name and what is no option of ours
};

Options Read_Options(int argc, char** argv) {
  Options h;
  for (int I = 0; I < argc; ++I) {
    const std::string_view sArgument = argv[I];
    if (I > 0 && sArgument == "--help") {
      h.bHelp = true;
    } else if (I > 0 && sArgument == "--version") {
      h.bVersion = true;
    } else if (I > 0 && sArgument == "--script") {
      if (I + 1 < argc) {
        h.sScript = argv[++I];
      } else {
        h.sFault = "--script needs the name of a file";
      }
    } else {
      h.hRemaining.push_back(argv[I]);
    }
  }
  return h;
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
    WInitialise(NRemaining, h.hRemaining.data());
    Run_Program();
  } catch (const ProgramStop&) {
    return Script_End();
  } catch (const std::bad_alloc&) {
    std::fputs("quillan: there is not enough memory.\n", stderr);
    return 1;
  }
}

}  // namespace

int main(int argc, char** argv) {
  Options h = Read_Options(argc, argv);
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
