// hardcopy.h: pictures in files: while a hardcopy is open, all drawing goes to it.
//
// Two drivers: a placeable Windows metafile of vector records (metafile.cpp), and PNG. The picture has the shape of the
// window it stands for: areas, units and text sizes are fractions of it. A file takes the place of an earlier one only
// when it is complete (SafeFile).
#pragma once

#include <string_view>

#include "base/types.h"

namespace quillan {

enum class HardCopyDriver : I4 { Png = 6, Metafile = 11 };

/// Chooses the driver of the next hardcopy.
void IGrHardCopySelect(HardCopyDriver iDriver);
/// Size of the next hardcopy: pixels for PNG (at 400 dots an inch), device units for a metafile (120 a centimetre).
void IGrHardCopySize(I4 NWidth, I4 NHeight);

/// Opens a hardcopy; a failure sets the error status, and drawing then goes nowhere until IGrHardCopyEnd.
void IGrHardCopy(std::string_view sPath);
/// Closes it and puts the file in its place. False, with the error status iErrFile set, when the file is not there.
[[nodiscard]] bool IGrHardCopyEnd();

}  // namespace quillan
