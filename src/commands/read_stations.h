// read_stations.h: the command Read Stn File: the receivers take their positions and attitudes from surveyed stations.
#pragma once

#include <string>

#include "base/types.h"

namespace quillan {

/// The line number by which the survey's stations are looked up: the survey's, or 0 where it has none.
[[nodiscard]] R8 Station_Line();

/// Reads a station file, asking for it where it does not exist, and shows its stations on the map. sStnFile then names
/// the file that was read.
/// Returns 0; 1 there are no stations, or it cannot be known which of several lines is the survey's, which is reported.
[[nodiscard]] I4 Read_Stations(std::string& sStnFile);

/// Reads the station file, gives every transient the position and attitude of its receiver station, and shows the plan
/// view. A transient whose station cannot be looked up keeps its own.
/// Returns 0; 1 no stations were read: the transients are as they were; else the status of the plan view.
[[nodiscard]] I4 TEM_RxStn_XYZHPR(std::string sStnFile);

/// The same with the station file that belongs to the data file.
[[nodiscard]] I4 Position_Receivers();

}  // namespace quillan
