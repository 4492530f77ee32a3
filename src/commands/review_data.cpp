#include "commands/review_data.h"

#include "commands/save_survey.h"
#include "commands/session.h"
#include "model/tmd_data.h"
#include "review/review_door.h"
#include "review/review_flag.h"

namespace quillan {

I4 Review_Data() {
  const ReviewEnd hEnd = TEM_Review_Data();
  if (hEnd.iFlag == iFlagSave) return TEM_Write_Data(sAvgFile);
  if (hEnd.iFlag == iFlagExit) hSession.bUpdateAVG = false;
  return hEnd.iError;
}

}  // namespace quillan
