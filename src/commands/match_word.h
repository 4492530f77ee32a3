// match_word.h: dialog 112: which known word did a file mean?
#pragma once

#include "base/types.h"
#include "foundations/user.h"

namespace quillan {

inline constexpr I4 iDlgMatchLabel = 112;
inline constexpr I4 iFldMatchWord = 1072;
inline constexpr I4 iMnuMatchList = 1076;
inline constexpr I4 iLblMatchWhat = 1104;

/// The entry that was meant, from 1; -1 when the selection cannot be read; 0 cancelled, also where there is nobody to
/// ask.
[[nodiscard]] I4 Match_Word(const WordQuestion& hQuestion);

}  // namespace quillan
