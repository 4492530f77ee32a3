#include "commands/read_stations.h"

#include "foundations/file_util.h"
#include "foundations/log_file.h"
#include "foundations/str_write.h"
#include "model/tmd_data.h"
#include "review/plan_view.h"
#include "review/stn_map.h"
#include "stations/stn_data.h"
#include "stations/stn_file.h"
#include "stations/stn_lookup.h"
#include "toolkit/window/window.h"

namespace quillan {
namespace {

/// With one line there is no doubt; of several, one must bear the survey's number or lie beside it.
I4 Check_Line() {
  if (Is_Present(hTemSurvey.dLineNumber) || hStn.NStnLine <= 1) return 0;
  LogErr({"Read_Stations.ERROR: the station file has " + Str_Write_I4(hStn.NStnLine).str() + " lines,",
          "and the survey has no line number to choose one by.",
          "Enter it in Edit Survey Configuration; the receivers keep their positions."});
  return 1;
}

std::string Result(I4 NFound, std::string_view sStnFile) {
  return Str_Write_I4(NFound).str() + " of " + Str_Write_I4(NTrn).str() + " soundings have a position from " +
         std::string(File_Name(sStnFile)) + ".";
}

}  // namespace

R8 Station_Line() {
  return Is_Present(hTemSurvey.dLineNumber) ? hTemSurvey.dLineNumber : 0.0;
}

I4 Read_Stations(std::string& sStnFile) {
  if (Stn_Read(sStnFile, Station_Line(), hTemSurvey.fRxHPR, false) != 0) return 1;
  (void)Stn_Plot_Map(File_Name(sStnFile), Station_Line());  // without a window there is nothing to look at
  return Check_Line();
}

I4 TEM_RxStn_XYZHPR(std::string sStnFile) {
  LogText_Reset();
  if (Read_Stations(sStnFile) != 0) return 1;
  const I4 NFound = Stn_Positions(Station_Line());
  LogText("Stn file station,east,north,elevation,[heading,pitch,roll] interpolated to Rx.Stn positions");
  const I4 iError = TEM_Map_View_Plot(sStnFile);
  WindowOutStatusBar(iStatusProgress, Result(NFound, sStnFile));
  return iError;
}

I4 Position_Receivers() {
  return TEM_RxStn_XYZHPR(std::string(File_Stem(sAvgFile)) + ".stn");
}

}  // namespace quillan
