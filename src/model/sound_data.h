// sound_data.h: whether data that come from outside the program's own readers can be worked with.
//
// Counts and codes lie within their arrays and tables, flags are yes or no, and what transients are sorted by is a
// number. Measured values and texts can be anything.
#pragma once

#include "metadata/mdp_data.h"
#include "model/stn_data.h"
#include "model/tmd_data.h"
#include "model/txw_data.h"

namespace quillan {

bool Is_Sound(const Transient& h);
bool Is_Sound(const Survey& h);
bool Is_Sound(const AvgKeptLines& h);
bool Is_Sound(const WireLoop& h);
/// Every point and line that the counts speak of is there, and so are the points of each line.
bool Is_Sound(const StationTable& h);

// The metadata groups. Those that are not named have neither counts nor codes.
bool Is_Sound(const SurveyGroup& h);
bool Is_Sound(const UnitGroup& h);
bool Is_Sound(const LineGroup& h);
bool Is_Sound(const KvrGroup& h);
bool Is_Sound(const TxGroup& h);
bool Is_Sound(const RxGroup& h);
bool Is_Sound(const ChGroup& h);
inline bool Is_Sound(const JobGroup&) {
  return true;
}
inline bool Is_Sound(const GridGroup&) {
  return true;
}
inline bool Is_Sound(const StnGroup&) {
  return true;
}
inline bool Is_Sound(const GpsGroup&) {
  return true;
}

}  // namespace quillan
