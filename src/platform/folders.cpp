#include "platform/folders.h"

#include <filesystem>

#include "platform/system_calls.h"

namespace quillan {

std::string IOsDirName() {
  std::error_code hProblem;
  return std::filesystem::current_path(hProblem).string();
}

std::string Shared_File(std::string_view sName) {
  namespace fs = std::filesystem;
  const fs::path hFolder = fs::path(Sys_Program_Path()).parent_path();
  std::error_code hProblem;
  for (const fs::path& hShare : {hFolder / "share", hFolder.parent_path() / "share"}) {
    const fs::path hPath = hShare / "quillan" / sName;
    if (fs::exists(hPath, hProblem)) return hPath.string();
  }
  return {};
}

}  // namespace quillan
