#include "platform/folders.h"

#include <filesystem>

namespace quillan {

std::string IOsDirName() {
  std::error_code hProblem;
  return std::filesystem::current_path(hProblem).string();
}

}  // namespace quillan
