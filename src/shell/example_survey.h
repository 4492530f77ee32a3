// example_survey.h: the example survey that comes with the program, as a copy that the user may change.
#pragma once

#include <string>

namespace quillan {

/// Copies the survey into the folder quillan-example of the working folder. Files that are there already stay, with all
/// that was done to them. Returns the path of its data file; blank where there is no survey or it cannot be copied, and
/// sReason says why.
[[nodiscard]] std::string Copy_Example_Survey(std::string& sReason);

}  // namespace quillan
