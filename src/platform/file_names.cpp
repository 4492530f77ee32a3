#include "platform/file_names.h"

#include <algorithm>
#include <filesystem>

#include "base/text.h"

namespace quillan {

namespace fs = std::filesystem;

bool IOsFileExists(std::string_view sPath) {
  std::error_code hProblem;
  const fs::file_status hStatus = fs::status(std::string(sPath), hProblem);
  return fs::exists(hStatus) && !fs::is_directory(hStatus);
}

std::string IOsFullPath(std::string_view sPath) {
  std::error_code hProblem;
  const fs::path hPath{std::string(sPath)};
  const fs::path hFull = fs::weakly_canonical(fs::absolute(hPath, hProblem), hProblem);
  return hProblem || hFull.empty() ? std::string(sPath) : hFull.string();
}

I8 IOsFileSize(std::string_view sPath) {
  std::error_code hProblem;
  const auto NBytes = fs::file_size(std::string(sPath), hProblem);
  return hProblem ? 0 : static_cast<I8>(NBytes);
}

namespace {

bool Differs_in_Case_Only(std::string_view s1, std::string_view s2) {
  return std::ranges::equal(s1, s2, {}, Upper_Case, Upper_Case);
}

}  // namespace

std::string IOsFindCompanion(std::string_view sPath) {
  if (IOsFileExists(sPath)) return std::string(sPath);
  const fs::path hPath{std::string(sPath)};
  const std::string sName = hPath.filename().string();
  std::string sFound;
  std::error_code hProblem;
  const fs::path hFolder = hPath.has_parent_path() ? hPath.parent_path() : fs::path(".");
  for (fs::directory_iterator hEntry(hFolder, hProblem), hEnd; !hProblem && hEntry != hEnd;
       hEntry.increment(hProblem)) {
    const std::string sEntry = hEntry->path().filename().string();
    const bool bFirst = sFound.empty() || sEntry < sFound;
    if (bFirst && Differs_in_Case_Only(sEntry, sName) && IOsFileExists(hEntry->path().string())) sFound = sEntry;
  }
  return sFound.empty() ? std::string(sPath) : (hPath.parent_path() / sFound).string();
}

}  // namespace quillan
