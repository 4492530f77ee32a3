#include "commands/export_usf.h"

#include <string>

#include "commands/read_stations.h"
#include "foundations/file_util.h"
#include "model/stn_data.h"
#include "model/tmd_data.h"
#include "stations/stn_lookup.h"

namespace quillan {
namespace {

/// Gives the receivers the positions of a station file, which is asked for also where the data file had positions: the
/// surveyed ones are better. A table that was read before has given them already.
/// Returns 0; 1 when there is no station file.
I4 Locate_Receivers(std::string_view sUsfFile) {
  if (hStn.NStn >= 1) return 0;
  std::string sStnFile = std::string(File_Stem(sUsfFile)) + ".stn";
  if (Read_Stations(sStnFile) != 0) return 1;
  Stn_Positions(hTemSurvey.dLineNumber);
  return 0;
}

}  // namespace

I4 Export_USF(std::string_view sUsfFile) {
  if (USF_Check() != 0) return 1;
  if (Locate_Receivers(sUsfFile) != 0) return 1;
  return USF_Write(sUsfFile, iUsfLayout);
}

}  // namespace quillan
