#include "platform/folders.h"

#include <filesystem>

#include "platform/arguments.h"
#include "platform/system_calls.h"

namespace quillan {

namespace fs = std::filesystem;

std::string IOsDirName() {
  std::error_code hProblem;
  return fs::current_path(hProblem).string();
}

std::string IOsStateDir() {
#ifdef _WIN32
  return IOsVariable("LOCALAPPDATA");
#else
  const fs::path hState = IOsVariable("XDG_STATE_HOME");
  if (hState.is_absolute()) return hState.string();  // another one would depend on where the program was started
  const fs::path hHome = IOsVariable("HOME");
  return hHome.empty() ? std::string() : (hHome / ".local" / "state").string();
#endif
}

bool IOsMakeDir(std::string_view sFolder) {
  const fs::path hFolder{std::string(sFolder)};
  std::error_code hProblem;
  fs::create_directories(hFolder, hProblem);
  return fs::is_directory(hFolder, hProblem);
}

std::string Shared_File(std::string_view sName) {
  const fs::path hFolder = fs::path(Sys_Program_Path()).parent_path();
  std::error_code hProblem;
  for (const fs::path& hShare : {hFolder / "share", hFolder.parent_path() / "share"}) {
    const fs::path hPath = hShare / "quillan" / sName;
    if (fs::exists(hPath, hProblem)) return hPath.string();
  }
  return {};
}

}  // namespace quillan
