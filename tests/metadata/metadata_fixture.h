// metadata_fixture.h: metadata lines as a file has them, and what the user is told about them.
#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <string_view>

#include "foundations/log_file.h"
#include "metadata/mdp_data.h"

namespace quillan {

class Metadata : public testing::Test {
 protected:
  void SetUp() override {
    bAutoErr = true;
    EXPECT_EQ(Log_Initialize("quillan"), 0);
    Fld_Begin_File();
    MdJob = JobGroup{};  // the initialiser keeps two of its fields
    MDP_Initialize();
  }

  /// The status of one line of a data file, or of the source that iPriority names.
  I4 Take(std::string_view sLine, I4 iPriority = iPriorityData) {
    const MdpStatus h = MDP_from_MDE(++iLine, sLine, iPriority);
    bForeign = h.bForeign;
    return h.IOERR;
  }

  /// Lines of the error file, which holds every report, and of the reports that the user sees at once.
  static I4 Told(std::string_view sPart) { return Lines_With(sErrFile, sPart); }
  static I4 Shown(std::string_view sPart) { return Lines_With(sLogFile, sPart); }

  I4 iLine = 0;
  bool bForeign = false;

 private:
  static I4 Lines_With(const std::string& sPath, std::string_view sPart) {
    std::ifstream in(sPath);
    I4 NLine = 0;
    for (std::string sLine; std::getline(in, sLine);) NLine += sLine.find(sPart) != std::string::npos ? 1 : 0;
    return NLine;
  }
};

}  // namespace quillan
