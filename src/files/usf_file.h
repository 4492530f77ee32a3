// usf_file.h: the store into a file of the Universal Sounding Format (.usf). Only soundings of the z component fit it.
//
//   ! TEM data reviewed with QUILLAN v3.30n on 13/11/2020
//   ! Job.Name:  Orrin basin
//
//   //USF: Universal Sounding Format      keywords of the file
//   //SOUNDINGS: 1
//   ...
//   //END
//
//   /ARRAY: CENTRAL LOOP TEM              for each sounding: its keywords,
//   /SOUNDING_NAME: 1250
//   ...
//   /POINTS: 1
//   /END
//
//     TIME,       WIDTH,      VOLTAGE,     ERROR_BAR        and its table: seconds, seconds, V/Am2, percent
//    1.0530E-5, 2.0278E-6, 4.47300E-01,    0.20
//   /END
//
// Numbers of keywords have no trailing zeros. A number that is missing or too wide is "*", as //DUMMY: says. A skipped
// window is not in the table.
//
// The layout of sweeps says the same so that programs take it which read each table by itself: the transients of one
// receiver and one transmitter station are the sweeps of one sounding, every table has all keywords of its own, lengths
// are in metres, missing numbers are 99999, and skipped windows stand in the table with the QUALITY 0, the others
// with 1.
#pragma once

#include <string>
#include <string_view>

#include "base/types.h"

namespace quillan {

enum class UsfLayout { Soundings, Sweeps };

/// Whether the store has something for the format: transients of the z component that are not skipped, of an array that
/// it knows. Returns 0; 1 when it has not, which is reported.
[[nodiscard]] I4 USF_Check();

/// Writes the store, which USF_Check has passed.
/// Returns 0; 1 when the file could not be written, which is reported; the file of before is then whole.
[[nodiscard]] I4 USF_Write(std::string_view sUsfFile, UsfLayout iLayout);

}  // namespace quillan
