// avg_legacy_writer.h: the store into an averaged data file of the legacy format (stem + "o.avg").
//
//   \ Dorval format from QUILLAN v3.30n on 12/11/2020
//   $ TEM: Array=COL
//   $ TEM: TxRamp=0                       the first transient's delay under the name of the ramp, as old programs want
//   $ TEM: TxDX=20.3                      loop size along and across the line, in the length unit
//   $ TEM: TxDY=20.3
//   $ TEM: TxArea=10000
//   $ TEM: RxArea=412.1                   one receiver area for the whole file
//   skp     Tx   Station  Freq Cmp Amps Win Time   Magnitude  RampAppRes    Depth    %Mag
//   \-++-------++-------++----++-++----++-++-----++---------++---------++---------++-----+
//    2 1        1        250.0 Hz 1.000   6 0.011  4.4730E+5  6.550E+0   4.566E+0      0.2
//
// Fields are separated by at least one blank and padded to the width of their column. This format keeps the skip flags:
// 2 is a window in use, 1 a skipped one.
#pragma once

#include <string>
#include <string_view>

#include "base/types.h"

namespace quillan {

/// Writes the store, which Prepare_Output has made ready. Returns 0; 1 when the store is empty or the file could not be
/// written, which is reported; the file of before is then whole.
[[nodiscard]] I4 AVG_Write0(std::string_view sFile);

/// A time in msec as the table shows it, with fewer decimals the later it is; "*" when missing.
std::string AVG_Write_TWC0(R4 fTWC);

}  // namespace quillan
