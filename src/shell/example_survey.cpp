#include "shell/example_survey.h"

#include <filesystem>

#include "platform/folders.h"

namespace quillan {

std::string Copy_Example_Survey(std::string& sReason) {
  namespace fs = std::filesystem;
  const std::string sSurvey = Shared_File("examples/survey");
  const fs::path hCopy = "quillan-example";
  std::error_code hProblem;
  if (sSurvey.empty()) {
    sReason = "the example survey does not stand with the program";
    return {};
  }
  fs::copy(sSurvey, hCopy, fs::copy_options::recursive | fs::copy_options::skip_existing, hProblem);
  if (hProblem) {
    sReason = "the example survey cannot be copied into " + hCopy.string() + ": " + hProblem.message();
    return {};
  }
  return (hCopy / "orrin.avg").string();
}

}  // namespace quillan
