#include "commands/average_repeats.h"

#include <string>

#include "commands/session.h"
#include "foundations/file_util.h"
#include "foundations/str_write.h"
#include "model/derived.h"
#include "model/tmd_data.h"
#include "review/average_dialog.h"
#include "review/qcs_sections.h"
#include "toolkit/window/log_text.h"
#include "toolkit/window/window.h"

namespace quillan {
namespace {

void Name_Averaged_File() {
  sAvgFile = std::string(File_Stem(sAvgFile)) + ".avg";
  hSession.sFileName = File_Name(sAvgFile);
  Session_Title();
}

/// What follows from which transients there are.
void Order_Again() {
  (void)TMD_Trns_Set_iTWCfg();  // an empty store has none
  (void)QCS_Allocate();         // a fault has been reported
  Show_No_Data();
}

std::string Result(I4 NBefore) {
  return "Average Repeats: " + Str_Write_I4(NBefore).str() + " transients have become " + Str_Write_I4(NTrn).str() +
         ".";
}

}  // namespace

I4 Average_Repeats() {
  const I4 NBefore = NTrn;
  const I4 iError = TMD_Average_Dialog();
  LogText_Update();
  if (iError == 0) Name_Averaged_File();
  if (NTrn == NBefore) return iError;
  Order_Again();
  if (NTrn >= 1) WindowOutStatusBar(iStatusProgress, Result(NBefore));
  return iError;
}

}  // namespace quillan
