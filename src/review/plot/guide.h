// guide.h: the illustrated guide, which comes with the program as pages for the browser.
//
// The pages are made from docs/ as the program is built, where the tool for it is there.
#pragma once

#include "base/types.h"

namespace quillan {

inline constexpr I4 iCmdGuide = 41030;

/// Shows the first page in the browser. The status bar names its file, so that it can be opened by hand where there is
/// no browser, and while a script plays. Returns 0; 1 when there is no guide, which a box has said.
[[nodiscard]] I4 Show_Guide();
/// The same with the page of the dialogs, while one of them waits.
void Show_Guide_to_Dialogs();

}  // namespace quillan
