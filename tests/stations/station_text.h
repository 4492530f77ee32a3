// station_text.h: station files for tests, written as they are read.
#pragma once

#include <string>

#include "stations/stn_file.h"
#include "support/files.h"
#include "support/reports.h"
#include "support/survey_builder.h"

namespace quillan {

/// Line number, heading, pitch and roll that a row takes which does not state them.
inline constexpr R8 dLineGiven = 1200.0;
inline constexpr Array1<R4, 3> fHPRGiven{45.0f, 2.0f, 3.0f};

/// Reads a text as a station file; what is shown and counted is that of this read.
inline I4 Read_Stations(const std::string& sText, L4 bAuto = false) {
  Begin_Test();
  Write_File("line.stn", sText);
  std::string sStnFile = "line.stn";
  return Stn_Read(sStnFile, dLineGiven, fHPRGiven, bAuto);
}

/// Rows of a line: station 0, 1 .. N - 1 each dStep m, due east from (dX0, dY0), elevation 100 + station.
inline std::string Line_Rows(I4 N, R8 dStep, R8 dX0, R8 dY0, const std::string& sMore = "") {
  std::string sRows;
  for (I4 I = 0; I < N; ++I) {
    sRows += std::to_string(I) + " " + std::to_string(dX0 + dStep * I) + " " + std::to_string(dY0) + " " +
             std::to_string(100 + I) + sMore + "\n";
  }
  return sRows;
}

}  // namespace quillan
