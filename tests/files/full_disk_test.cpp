// Every writer of the store on a disk that is full: the file of before stays whole, and the user is told.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include "export_survey.h"
#include "files/amr_file.h"
#include "files/avg_legacy_writer.h"
#include "files/avg_writer.h"
#include "files/usf_file.h"
#include "platform/safe_file.h"
#include "support/files.h"
#include "support/reports.h"

namespace quillan {
namespace {

constexpr rlim_t NDiskLeft = 4096;  // bytes of a file that still fit

I4 Write_Amira(std::string_view sFile) {
  return AMR_Write(sFile, [](const std::string& sTrnFile) { return sTrnFile; });
}

I4 Write_Usf(std::string_view sFile) {
  return USF_Write(sFile, UsfLayout::Soundings);
}

/// A file that meets a size limit ends as on a full disk.
I4 Write_with_Little_Room(I4 (*Write)(std::string_view), std::string_view sFile) {
  System_Initialize();
  rlimit hBefore;
  getrlimit(RLIMIT_FSIZE, &hBefore);
  const rlimit hScarce{NDiskLeft, hBefore.rlim_max};
  setrlimit(RLIMIT_FSIZE, &hScarce);
  const I4 iError = Write(sFile);
  setrlimit(RLIMIT_FSIZE, &hBefore);
  return iError;
}

TEST(FullDisk, LeavesTheFileOfBeforeAndTheUserIsTold) {
  for (const auto Write : {AVG_Write, AVG_Write0, Write_Amira, Write_Usf}) {
    Load_Export(iArrayMVL, std::vector<Transient>(100, Sounding(1, {1, 2, 3, 4}, {3, 2, 1})));
    hTemSurvey.dStnKvrInc = hTemSurvey.dStnInc = 1.0;
    Write_File("full.tem", "as it was");
    EXPECT_EQ(Write_with_Little_Room(Write, "full.tem"), 1);
    EXPECT_EQ(Read_Whole_File("full.tem"), "as it was");
    EXPECT_EQ(Shown("writing file full.tem"), 1);
    EXPECT_EQ(Shown("The data are not saved; choose Save again."), 1);
  }
}

}  // namespace
}  // namespace quillan
