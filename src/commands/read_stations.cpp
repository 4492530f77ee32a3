#include "commands/read_stations.h"

#include "foundations/file_util.h"
#include "foundations/log_file.h"
#include "foundations/progress.h"
#include "foundations/str_write.h"
#include "model/tmd_data.h"
#include "review/plan_view.h"
#include "review/stn_map.h"
#include "stations/stn_file.h"
#include "stations/stn_lookup.h"
#include "toolkit/window/window.h"

namespace quillan {
namespace {

std::string Result(I4 NFound, std::string_view sStnFile) {
  return Str_Write_I4(NFound).str() + " of " + Str_Write_I4(NTrn).str() + " soundings have a position from " +
         std::string(File_Name(sStnFile)) + ".";
}

}  // namespace

I4 Read_Stations(std::string& sStnFile) {
  const R8 dLineNumber = hTemSurvey.dLineNumber;
  if (Stn_Read(sStnFile, dLineNumber, hTemSurvey.fRxHPR, false) != 0) return 1;
  (void)Stn_Plot_Map(File_Name(sStnFile), dLineNumber);  // without a window there is nothing to look at
  return 0;
}

I4 TEM_RxStn_XYZHPR(std::string sStnFile) {
  LogText_Reset();
  if (Read_Stations(sStnFile) != 0) return 1;
  const I4 NFound = Stn_Positions(hTemSurvey.dLineNumber);
  if (bWorkStopped) return 1;
  LogText("Stn file station,east,north,elevation,[heading,pitch,roll] interpolated to Rx.Stn positions");
  const I4 iError = TEM_Map_View_Plot(sStnFile);
  WindowOutStatusBar(iStatusProgress, Result(NFound, sStnFile));
  return iError;
}

I4 Position_Receivers() {
  return TEM_RxStn_XYZHPR(std::string(File_Stem(sAvgFile)) + ".stn");
}

}  // namespace quillan
