// tmd_exchange.h: the headers that stand in its place are model/survey_keywords.h and model/derived.h; it goes when the
// last caller has changed.
#pragma once

#include "model/survey_keywords.h"

namespace quillan {

[[nodiscard]] I4 TMD_TxUTMC_from_hTxw();  // of model/derived.h
inline void TMD_TxUTMC_from_hTxw(I4& iError) {
  iError = TMD_TxUTMC_from_hTxw();
}

}  // namespace quillan
