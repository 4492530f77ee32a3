#include "shell/options.h"

#include <algorithm>
#include <filesystem>
#include <iterator>

namespace quillan {

constexpr std::string_view sHelpText =
    "usage: quillan [OPTION]... [FILE]...\n"
    "\n"
    "Editor for time-domain electromagnetic sounding data. FILE is an averaged\n"
    "(.avg), unaveraged (.xdb) or contour (.Z) data file; without an extension it\n"
    "gets \".avg\". Of several files the first is opened, and the menu offers the\n"
    "others in turn as Next File and Previous File.\n"
    "\n"
    "  --example           open a copy of the example survey, made in the folder\n"
    "                      quillan-example\n"
    "  --script STEPS.txt  play the steps of a file as the user's input; without a\n"
    "                      display this runs off-screen\n"
    "  --record STEPS.txt  write what the user does as the steps of such a file\n"
    "  --journal FOLDER    where edits are kept until they are saved, in place of the\n"
    "                      user's state folder; a script without it keeps none\n"
    "  --recent            keep the list of recent files also when a script plays\n"
    "  --version           print version and build, and end\n"
    "  --help              print this help and end\n"
    "  --                  what follows is a file, whatever it begins with\n"
    "\n"
    "Exit status: 0; 1 the window or memory could not be had; 2 the command line\n"
    "cannot be used; 3 a step of a script does not fit what is on the screen.\n";
const std::string_view sHelp = sHelpText;

namespace {

/// An option of ours: a flag, or one with a value.
struct Option {
  std::string_view sName;
  bool Options::*bFlag;
  std::string Options::*sValue;
  std::string_view sMissing;  // what its value is
};
constexpr Option hOption[] = {
    {"--help",    &Options::bHelp,    nullptr,            ""                    },
    {"--version", &Options::bVersion, nullptr,            ""                    },
    {"--example", &Options::bExample, nullptr,            ""                    },
    {"--recent",  &Options::bRecent,  nullptr,            ""                    },
    {"--script",  nullptr,            &Options::sScript,  "the name of a file"  },
    {"--record",  nullptr,            &Options::sRecord,  "the name of a file"  },
    {"--journal", nullptr,            &Options::sJournal, "the name of a folder"},
};

// The window system takes these itself; each has a value.
constexpr std::string_view sWindowOption[] = {"platform", "style",    "stylesheet",
                                              "display",  "geometry", "qwindowgeometry"};

bool Is_Window_Option(std::string_view sArgument) {
  sArgument.remove_prefix(sArgument.starts_with("--") ? 2 : 1);
  return std::ranges::find(sWindowOption, sArgument.substr(0, sArgument.find('='))) != std::end(sWindowOption);
}

/// Takes the option at argv[I]; I is then its last argument.
void Take_Option(Options& h, int argc, char** argv, int& I) {
  const std::string_view sArgument = argv[I];
  const auto hFound = std::ranges::find(hOption, sArgument, &Option::sName);
  if (hFound == std::end(hOption)) {
    if (Is_Window_Option(sArgument)) return h.hRemaining.push_back(argv[I]);
    h.sFault = "unknown option " + std::string(sArgument) + "; quillan --help lists them";
  } else if (hFound->bFlag != nullptr) {
    h.*hFound->bFlag = true;
  } else if (I + 1 < argc) {
    h.*hFound->sValue = argv[++I];
  } else {
    h.sFault = std::string(sArgument).append(" needs ").append(hFound->sMissing);
  }
}

}  // namespace

Options Read_Options(int argc, char** argv) {
  Options h;
  bool bFilesOnly = false;
  for (int I = 0; I < argc && h.sFault.empty(); ++I) {
    const std::string_view sArgument = argv[I];
    if (!bFilesOnly && I > 0 && sArgument == "--") {
      bFilesOnly = true;
    } else if (!bFilesOnly && I > 0 && sArgument.size() > 1 && sArgument.front() == '-') {
      Take_Option(h, argc, argv, I);
    } else {
      h.hRemaining.push_back(argv[I]);
    }
  }
  std::error_code hNoFile;
  if (h.sFault.empty() && !h.sScript.empty() && std::filesystem::equivalent(h.sRecord, h.sScript, hNoFile))
    h.sFault = "--record would write over the script that is played, " + h.sScript;
  return h;
}

}  // namespace quillan
