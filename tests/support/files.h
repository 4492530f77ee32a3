// files.h: reading and writing whole files in tests.
#pragma once

#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

namespace quillan {

inline void Write_File(const std::string& sPath, const std::string& sBytes) {
  std::ofstream(sPath, std::ios::binary) << sBytes;
}

inline std::string Read_Whole_File(const std::string& sPath) {
  std::ifstream in(sPath, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

inline std::vector<std::string> Read_Lines(const std::string& sPath) {
  std::vector<std::string> sLine;
  std::ifstream in(sPath, std::ios::binary);
  for (std::string s; std::getline(in, s);) sLine.push_back(s);
  return sLine;
}

/// A file of the golden folder, which stands beside the tests.
inline std::string Golden(const std::string& sName) {
  return Read_Whole_File(std::string(QUILLAN_SOURCE_DIR) + "/tests/golden/" + sName);
}

}  // namespace quillan
