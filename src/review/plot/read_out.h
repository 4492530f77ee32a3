// read_out.h: a point of a plot in words, for the status bar, and what is hidden of the points.
//
//   Stn 1400 (recorded 200) Hz 4 Hz, window 14, 0.56 msec, 4.71E3 uV/A +- 0.4 %, skipped
//
// Which point is meant is for the reviews to say.
#pragma once

#include <string>

#include "base/types.h"
#include "model/tmd_data.h"

namespace quillan {

/// A window that was picked; 0: none was.
struct PickedPoint {
  I4 iTrn = 0;  // transient
  I4 iTwc = 0;  // time window

  bool operator==(const PickedPoint&) const = default;
};

// Module state: skipped points, and the lines to them, are left out of both reviews. The user turns it on and off; a
// review of the data begins with all of them.
inline L4 bHideSkipped = false;
inline constexpr std::string_view sHiddenHint = "Skipped points are hidden; Ctrl+H shows them.";

/// The sounding of a transient: station, component, base frequency. The recorded station is named where it is another.
[[nodiscard]] std::string Sounding_Words(const Transient& h);

/// Window I of a transient with its value of a plot type. The error is that of the decay value alone.
[[nodiscard]] std::string Point_Words(const Transient& h, I4 I, I4 iPlotType);

}  // namespace quillan
