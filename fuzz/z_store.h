// z_store.h: what the targets of contour files share: a fresh store from a file.
#pragma once

#include "files/mde_file.h"
#include "files/z_file.h"
#include "foundations/user.h"
#include "fuzz/fuzz_file.h"
#include "metadata/mdp_data.h"
#include "model/tmd_data.h"

namespace quillan {

/// Reads a file as the program does that has just started, without a metadata file. The user takes a block for dB/dt
/// unless it begins with the letter B.
inline I4 Read_Contours(std::string_view sFile) {
  MDP_Initialize_MD(true);
  MdJob = JobGroup{};  // the job's number and date outlive the initialiser
  hTemSurvey = Survey{};
  std::string sNoMde = Fuzz_Path("none.mde");
  static_cast<void>(MDE_Read(sNoMde));  // there is none, but the station scaling gets its fallbacks
  hUser.Which_Z_Data = [](const ZTypeQuestion& h) {
    ZTypeAnswer hAnswer{h.hFound};
    const std::size_t K = h.sHeader.front().find_first_not_of(' ');
    const bool bOther = K != std::string::npos && h.sHeader.front()[K] == 'B';
    hAnswer.hType->iDataType = bOther ? iZDataSkip : iZDataDbdt;
    return hAnswer;
  };
  return Z_Read(sFile);
}

}  // namespace quillan
