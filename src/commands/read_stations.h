// read_stations.h: the command Read Stn File: the receivers take their positions and attitudes from surveyed stations.
#pragma once

#include <string>

#include "base/types.h"

namespace quillan {

/// Reads a station file, asking for it where it does not exist, and shows its stations on the map. sStnFile then names
/// the file that was read. Rows that state no line or attitude take those of the survey.
/// Returns 0; 1 there are no stations, which was reported or is the user's choice.
[[nodiscard]] I4 Read_Stations(std::string& sStnFile);

/// Reads the station file, gives every transient the position and attitude of its receiver station, and shows the plan
/// view. A transient whose station cannot be looked up keeps its own.
/// Returns 0; 1 no stations were read: the transients are as they were; else the status of the plan view.
[[nodiscard]] I4 TEM_RxStn_XYZHPR(std::string sStnFile);

/// The same with the station file that belongs to the data file.
[[nodiscard]] I4 Position_Receivers();

}  // namespace quillan
