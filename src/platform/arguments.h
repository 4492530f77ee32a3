// arguments.h: the command line and the environment.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/types.h"

namespace quillan {

// Module state: the program's name, then the arguments, options taken out. System_Set_Arguments fills it.
inline std::vector<std::string> sCommandLine;

void System_Set_Arguments(std::vector<std::string> sLine);

/// How many arguments follow the program's name.
I4 IOsArguments();
/// Argument iArg; 0 is the program's own path; blank for a negative or missing one.
std::string IOsArgument(I4 iArg);
/// An environment variable; blank where it is not set.
std::string IOsVariable(std::string_view sName);

}  // namespace quillan
