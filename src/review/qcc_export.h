// qcc_export.h: the curve on show as a CSV table, and the names of its exports.
//
// The table has a header and one line a time window, each field followed by a comma, the last one as well:
//
//   Window,Time (msec),dBz/dt (uV/amp),Error (%),Skipped,
//   14,5.60000E-01,4.71000E+03,0.4,no,
//
// All windows of the transient, those that are not plotted and not in view as well; a missing value is "*". Numbers:
// time and value (ES14.5), error (F14.1).
#pragma once

#include <string>
#include <string_view>

#include "base/types.h"

namespace quillan {

/// Path of an export of the curve, without its extension: the data file's path without its own, the receiver station,
/// what is plotted with the letter of the component: "line1_1400_dBzdt".
std::string QCC_Export_Stem(std::string_view sDataFile);

/// What the curve is, for the small print of its exports.
std::string QCC_Export_Subject();

/// Writes the table. Returns 0; 1 it could not be written, which is reported.
[[nodiscard]] I4 QCC_Write_CSV(std::string_view sCsvFile);

}  // namespace quillan
