// fuzz_file.h: what the fuzz targets share.
#pragma once

#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "foundations/log_file.h"
#include "foundations/str_value.h"

namespace quillan {

/// No boxes and no log: only faults are looked for. Reports are made as in a fresh run.
inline void Begin_Fuzzing() {
  bAutoErr = true;
  sLogFile = sErrFile = "/dev/null";
  NErr = 0;
  Fld_Begin_File();
}

/// What must be true of any input.
inline void Require(bool bTrue) {
  if (!bTrue) std::abort();
}

/// A folder in memory, gone at the end of the run.
struct FuzzFolder {
  std::filesystem::path hPath = "/dev/shm/quillan_fuzz_" + std::to_string(getpid());
  FuzzFolder() { std::filesystem::create_directories(hPath); }
  ~FuzzFolder() {
    std::error_code hProblem;
    std::filesystem::remove_all(hPath, hProblem);
  }
  FuzzFolder(const FuzzFolder&) = delete;
  FuzzFolder& operator=(const FuzzFolder&) = delete;
};
inline const FuzzFolder hFuzzFolder;

inline std::string Fuzz_Path(std::string_view sName) {
  return (hFuzzFolder.hPath / sName).string();
}

/// Path of a file that holds the bytes; the next call replaces it.
inline std::string Fuzz_File(std::string_view sBytes) {
  const std::string sPath = Fuzz_Path("input");
  std::ofstream(sPath, std::ios::binary) << sBytes;
  return sPath;
}
inline std::string Fuzz_File(const std::uint8_t* hData, std::size_t NData) {
  return Fuzz_File({reinterpret_cast<const char*>(hData), NData});
}

}  // namespace quillan
