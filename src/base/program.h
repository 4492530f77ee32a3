// program.h: the program's name, version and date of change, as they stand in titles, logs and written files.
#pragma once

#include <string_view>

namespace quillan {

inline constexpr std::string_view sPrgName = "quillan";  // stem of the log files
inline constexpr std::string_view CPrgName = "QUILLAN";  // title form, and the program prefix of metadata lines
inline constexpr std::string_view sVersion = "3.30n";
inline constexpr std::string_view sUpdate = "23/Nov/2020";  // date of the program's last change

}  // namespace quillan
