#include "commands/merge_data.h"

#include <string>

#include "foundations/log_file.h"
#include "foundations/str_write.h"
#include "model/derived.h"
#include "processing/tmd_merge.h"
#include "review/merge_edit.h"
#include "review/qcs_sections.h"
#include "toolkit/window/window.h"

namespace quillan {

I4 MergeChn() {
  LogText_Reset();
  if (NTrn < 1) {
    LogErr({"ERROR: No valid data present."});
    return 1;
  }
  if (NTrn == 1) return 0;
  if (const I4 iError = MergeChnEdit(); iError != 0) return iError;

  const I4 NTrns0 = NTrn;
  TMD_Merge(hMerge);
  static_cast<void>(TMD_Trns_Set_iTWCfg());  // the store is not empty
  static_cast<void>(QCS_Allocate());
  WindowOutStatusBar(iStatusProgress, "Merge Data: pairs merged: " + Str_Write_I4(NTrns0 - NTrn).str() +
                                          "; soundings left: " + Str_Write_I4(NTrn).str() + ".");
  return 0;
}

}  // namespace quillan
