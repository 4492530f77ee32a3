// saved_state.h: whether the data are those of the file, as they were last read or saved.
//
// Of the transients a number each is kept, not their values. A state that comes back, by undo or by hand, is known
// again.
#pragma once

#include <span>
#include <string>

#include "model/tmd_data.h"

namespace quillan {

/// The data are those of the file now. sPart: the bytes of each of History_Parts.
void Saved_Take(std::span<const Transient> hTrn, std::span<const std::string> sPart);

/// Transient j was changed.
void Saved_Touch(I4 j);

/// Whether the data differ from those of Saved_Take.
bool Saved_Differs(std::span<const Transient> hTrn, std::span<const std::string> sPart);

}  // namespace quillan
