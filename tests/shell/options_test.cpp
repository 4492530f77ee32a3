// The command line.
#include "shell/options.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace quillan {
namespace {

Options Read(std::vector<std::string> sArgument) {
  static std::vector<std::string> sKept;  // the options refer to it
  sKept = std::move(sArgument);
  sKept.insert(sKept.begin(), "quillan");
  std::vector<char*> hArgument;
  for (std::string& s : sKept) hArgument.push_back(s.data());
  return Read_Options(static_cast<int>(hArgument.size()), hArgument.data());
}

std::string Remaining(const Options& h) {
  std::string sAll;
  for (const char* s : h.hRemaining) sAll += std::string(s) + " ";
  return sAll;
}

TEST(Options, AreTakenOutOfTheCommandLine) {
  const Options h = Read({"a.avg", "--script", "steps.txt", "--example", "-platform", "offscreen", "--style=fusion"});
  EXPECT_EQ(h.sFault, "");
  EXPECT_EQ(h.sScript, "steps.txt");
  EXPECT_TRUE(h.bExample && !h.bHelp && !h.bVersion);
  EXPECT_EQ(Remaining(h), "quillan a.avg -platform offscreen --style=fusion ") << "the window system reads its own";
  EXPECT_EQ(Remaining(Read({"--", "--script", "-"})), "quillan --script - ") << "a file may be called anything";
}

TEST(Options, OnesThatAreNotKnownAreRefusedWithAHint) {
  EXPECT_EQ(Read({"--scrpt", "steps.txt"}).sFault, "unknown option --scrpt; quillan --help lists them");
  EXPECT_EQ(Read({"-h"}).sFault, "unknown option -h; quillan --help lists them");
  EXPECT_EQ(Read({"--script"}).sFault, "--script needs the name of a file");
  EXPECT_EQ(Read({"--record", "a.txt", "--script", "b.txt"}).sRecord, "a.txt");
  std::ofstream("a.txt") << "close\n";
  EXPECT_EQ(Read({"--record", "./a.txt", "--script", "a.txt"}).sFault,
            "--record would write over the script that is played, a.txt");
}

TEST(Options, HelpNamesThemAllAndFitsATerminal) {
  std::istringstream in{std::string(sHelp)};
  for (std::string sLine; std::getline(in, sLine);) EXPECT_LE(sLine.size(), 80u) << sLine;
  for (const char* sOption : {"--example", "--script", "--record", "--journal", "--recent", "--version", "--help"})
    EXPECT_NE(sHelp.find(sOption), std::string_view::npos) << sOption;
}

}  // namespace
}  // namespace quillan
