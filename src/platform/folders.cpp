#include "platform/folders.h"

#include <filesystem>

#include "platform/arguments.h"
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

std::string Config_File(std::string_view sName) {
  namespace fs = std::filesystem;
  fs::path hFolder(IOsVariable("XDG_CONFIG_HOME"));
  if (!hFolder.is_absolute()) {
    const fs::path hHome(IOsVariable("HOME"));
    if (!hHome.is_absolute()) return {};
    hFolder = hHome / ".config";
  }
  return (hFolder / "quillan" / sName).string();
}

bool Make_Folder_of(std::string_view sFile) {
  namespace fs = std::filesystem;
  const fs::path hFolder = fs::path(std::string(sFile)).parent_path();
  std::error_code hProblem;
  fs::create_directories(hFolder, hProblem);
  return fs::is_directory(hFolder, hProblem);
}

}  // namespace quillan
