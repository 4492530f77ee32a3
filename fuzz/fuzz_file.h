// fuzz_file.h: what the fuzz targets of the file readers share.
#pragma once

#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <string>

#include "foundations/log_file.h"

namespace quillan {

/// No boxes and no log: only faults are looked for.
inline void Begin_Fuzzing() {
  bAutoErr = true;
  sLogFile = sErrFile = "/dev/null";
}

/// Path of a file in memory that holds the bytes; the next call replaces it.
inline std::string Fuzz_File(const std::uint8_t* hData, std::size_t NData) {
  const std::string sPath = "/dev/shm/quillan_fuzz_" + std::to_string(getpid());
  if (std::FILE* hFile = std::fopen(sPath.c_str(), "wb")) {
    std::fwrite(hData, 1, NData, hFile);
    std::fclose(hFile);
  }
  return sPath;
}

}  // namespace quillan
