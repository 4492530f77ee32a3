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

namespace {

/// A folder for what is kept for the user: as a variable names it, else its usual place under the home folder. A name
/// that is no full path would depend on where the program was started.
fs::path User_Folder(std::string_view sVariable, const fs::path& hUsual) {
  const fs::path hNamed(IOsVariable(sVariable));
  if (hNamed.is_absolute()) return hNamed;
  const fs::path hHome(IOsVariable("HOME"));
  return hHome.is_absolute() ? hHome / hUsual : fs::path();
}

}  // namespace

std::string IOsStateDir() {
#ifdef _WIN32
  return IOsVariable("LOCALAPPDATA");
#else
  return User_Folder("XDG_STATE_HOME", fs::path(".local") / "state").string();
#endif
}

std::string Config_File(std::string_view sName) {
#ifdef _WIN32
  const fs::path hFolder(IOsVariable("APPDATA"));
#else
  const fs::path hFolder = User_Folder("XDG_CONFIG_HOME", ".config");
#endif
  return hFolder.empty() ? std::string() : (hFolder / "quillan" / sName).string();
}

bool IOsMakeDir(std::string_view sFolder) {
  const fs::path hFolder{std::string(sFolder)};
  std::error_code hProblem;
  fs::create_directories(hFolder, hProblem);
  return fs::is_directory(hFolder, hProblem);
}

namespace {

/// Beside the program in a build, else under the prefix.
fs::path Share_Folder() {
  const fs::path hFolder = fs::path(Sys_Program_Path()).parent_path();
  std::error_code hProblem;
  const bool bBeside = fs::exists(hFolder / "share" / "quillan", hProblem);
  return (bBeside ? hFolder : hFolder.parent_path()) / "share";
}

}  // namespace

std::string Shared_File(std::string_view sName) {
  const fs::path hPath = Share_Folder() / "quillan" / sName;
  std::error_code hProblem;
  return fs::exists(hPath, hProblem) ? hPath.string() : std::string();
}

std::string Document_File(std::string_view sName) {
  return (Share_Folder() / "doc" / "quillan" / sName).string();
}

}  // namespace quillan
