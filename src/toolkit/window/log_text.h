// log_text.h: the lines of the log in the drawing area, and the look at the user in the middle of long work.
#pragma once

#include <functional>
#include <span>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "base/types.h"

namespace quillan {

inline constexpr R4 fXCMScreen = 28.0f;  // cm, width of the screen that the size of the text is laid out for

/// Draws the screen text again: the newest lines that fit; a line too long for the window goes on in a second.
void LogText_Update();
/// The same as soon as the screen is looked at: lines that come together are drawn together.
void LogText_Update_Later();
/// Shows a picture in the place of the lines until the next line comes. Draw draws it, now and whenever the window has
/// another size; where it cannot any more, it shows the lines by LogText_Update.
void LogText_Show_Picture(void (*Draw)());
/// Whether such a picture is on show.
[[nodiscard]] bool LogText_Shows_Picture();
/// Draws again what the area shows: the lines, or the picture.
void LogText_Redraw();
/// Draws the picture again if there is one: what it shows may have changed.
void LogText_Renew_Picture();
/// The same where the text is on show, laid out for another size of the window: the program waits for an answer, and no
/// loop sees the change.
void LogText_Follow();

/// The rows of text that a window shows, oldest first: each line cut at blanks, or at characters where a word alone is
/// too long, into pieces of at most fWidth by fLength, and of the pieces the newest NRow. A blank line is a blank row.
std::vector<std::string_view> Lines_That_Fit(std::span<const Text<128>> sLine, I4 NRow, R4 fWidth,
                                             const std::function<R4(std::string_view)>& fLength);

/// Looks at waiting messages without waiting: 0 nothing, 1 the window was drawn again, 2 a file was dropped, 3
/// (iLookEsc) Esc was pressed. A close request ends the run; in a review it counts as Esc, and waits with what concerns
/// the plot until the work is done. For long loops, that the window stays alive.
inline constexpr I4 iLookEsc = 3;
I4 Message_Check();

}  // namespace quillan
