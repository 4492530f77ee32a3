// match_word.h: dialog 112: which known word did a file mean?
#pragma once

#include "base/types.h"
#include "foundations/user.h"

namespace quillan {

/// The entry that was meant, from 1; -1 when the selection cannot be read; 0 cancelled, also where there is nobody to
/// ask.
I4 Match_Word(const WordQuestion& hQuestion);

}  // namespace quillan
