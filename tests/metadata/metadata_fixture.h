// metadata_fixture.h: metadata lines as a file has them, what becomes of the live records, and what the user reads.
#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <initializer_list>
#include <sstream>
#include <string>
#include <string_view>
#include <type_traits>

#include "foundations/log_file.h"
#include "metadata/mdp_data.h"

namespace quillan {

/// A value as text: a logical as yes or no, an array as its elements.
template <class T>
std::string Text_of(const T& hValue) {
  std::ostringstream out;
  if constexpr (requires { hValue.begin(); }) {
    for (const auto& h : hValue) out << (out.tellp() > 0 ? " " : "") << Text_of(h);
  } else if constexpr (std::is_same_v<T, L4>) {
    out << (hValue ? "yes" : "no");
  } else if constexpr (std::is_arithmetic_v<T>) {
    out << hValue;
  } else {
    out << hValue.trimmed();
  }
  return out.str();
}

/// A field of the live records, looked at when asked.
struct Live {
  template <class T>
  Live(const T& hField) : Now([&hField] { return Text_of(hField); }) {}
  std::function<std::string()> Now;
};

/// One line, and what a field is afterwards.
struct Step {
  std::string_view sLine;  // blank: another field after the line before
  Live hField;
  std::string_view sValue;
  std::string_view sWarning = {};  // which the line adds to the error file once
  I4 iStatus = 0;
  I4 iPriority = iPriorityData;
};

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

  /// Takes the lines one after the other.
  void Expect(std::initializer_list<Step> hSteps) {
    for (const Step& h : hSteps) {
      const I4 NReported = h.sWarning.empty() ? 0 : Reported(h.sWarning);
      const I4 iStatus = h.sLine.empty() ? 0 : Take(h.sLine, h.iPriority);
      EXPECT_EQ(iStatus, h.iStatus) << h.sLine;
      EXPECT_EQ(h.hField.Now(), h.sValue) << h.sLine;
      EXPECT_TRUE(h.sWarning.empty() || Reported(h.sWarning) == NReported + 1) << h.sWarning;
    }
  }

  /// Lines of the error file, which holds every report, and of the reports that the user sees at once.
  static I4 Reported(std::string_view sPart) { return Lines_With(sErrFile, sPart); }
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
