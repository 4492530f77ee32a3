// folders.h: the folders that the program works in.
#pragma once

#include <string>

namespace quillan {

/// The working folder, without a separator at its end.
std::string IOsDirName();

}  // namespace quillan
