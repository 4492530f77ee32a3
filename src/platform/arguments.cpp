#include "platform/arguments.h"

#include <cstdlib>
#include <filesystem>
#include <utility>

#include "base/text.h"

namespace quillan {

namespace fs = std::filesystem;

namespace {

/// The full path where the system gives it, else the name that the program was called by.
std::string Program_Path() {
  std::error_code hProblem;
  const fs::path hPath = fs::read_symlink("/proc/self/exe", hProblem);
  if (!hProblem) return hPath.string();
  return sCommandLine.empty() ? std::string() : sCommandLine.front();
}

}  // namespace

void System_Set_Arguments(std::vector<std::string> sLine) {
  sCommandLine = std::move(sLine);
}

I4 IOsArguments() {
  return sCommandLine.empty() ? 0 : static_cast<I4>(sCommandLine.size() - 1);
}

std::string IOsArgument(I4 iArg) {
  if (iArg == 0) return Program_Path();
  return iArg > 0 && iArg <= IOsArguments() ? sCommandLine[static_cast<std::size_t>(iArg)] : std::string();
}

std::string IOsVariable(std::string_view sName) {
  const char* sFound = std::getenv(std::string(Trimmed(sName)).c_str());
  return sFound == nullptr ? "" : sFound;
}

}  // namespace quillan
