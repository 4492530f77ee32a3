// Files that are there and that the user may not read.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>

#include "files/avg_reader.h"
#include "files/mde_file.h"
#include "files/txw_file.h"
#include "support/files.h"
#include "support/reports.h"
#include "support/survey_builder.h"

namespace quillan {
namespace {

/// Files are no longer opened by the administrator's rights, under which tests may run.
struct PlainUser {
  PlainUser() { bThere = ::geteuid() != 0 || ::seteuid(65534) == 0; }
  ~PlainUser() {
    if (::getuid() == 0 && ::seteuid(0) != 0) std::abort();
  }
  PlainUser(const PlainUser&) = delete;
  PlainUser& operator=(const PlainUser&) = delete;
  bool bThere;
};

TEST(UnopenedFile, EachReaderSaysWhy) {
  const struct {
    const char* sFile;
    std::function<I4(std::string&)> Read;
    const char* sReport;
  } hCase[] = {
      {"closed.avg", [](std::string& sFile) { return AVG_Read(sFile); },        "ERROR opening file closed.avg" },
      {"closed.mde", [](std::string& sFile) { return MDE_Read(sFile); },        "ERROR while trying to open"    },
      {"closed.txw", [](std::string& sFile) { return Txw_Read(sFile, false); }, "Txw_Read.ERROR: unable to open"},
  };
  const std::string sReason = std::make_error_code(std::errc::permission_denied).message();
  std::filesystem::permissions(".", std::filesystem::perms{0777});
  for (const auto& h : hCase) {
    Begin_Test();
    Write_File(h.sFile, "$ Job.Name = closed\n");
    std::filesystem::permissions(h.sFile, std::filesystem::perms{0});
    const PlainUser hPlain;
    if (!hPlain.bThere) GTEST_SKIP() << "no user without privileges can be had here";
    std::string sFile = h.sFile;
    EXPECT_EQ(h.Read(sFile), 1) << h.sFile;
    EXPECT_EQ(Shown(h.sReport), 1) << h.sFile;
    EXPECT_EQ(Shown(sReason), 1) << h.sFile;
  }
}

}  // namespace
}  // namespace quillan
