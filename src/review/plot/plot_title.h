// plot_title.h: the title of a plot, and the room that a tool window leaves it.
#pragma once

#include <span>
#include <string_view>

#include "base/types.h"
#include "review/plot/text_size.h"

namespace quillan {

/// Where a title may stand, as parts of the width of the drawing area.
struct TitleRoom {
  R4 fBegin = 0.0f, fEnd = 1.0f;
};

/// The room beside a tool window, for a title that reaches down to fDepth of the height: all of it unless the window
/// hides some, else the wider part beside the window, but never less than half of the width. hTool: the window's place,
/// as parts of the drawing area from its upper left corner.
TitleRoom Room_Beside(const GrBox& hTool, R4 fDepth);
/// The same beside the tool window that is the current dialog.
TitleRoom Tool_Title_Room();

/// Where a line of title goes, in graphics units.
struct TitlePlace {
  R4 fMiddle;       // X of its middle, where there is room
  R4 fY;            // Y of its middle
  R4 fLeft;         // it never begins before this
  TitleRoom hRoom;  // nor outside of this
};
/// Draws a title in the first of the sizes in which it has room, narrowed where it has none in the last; a title that
/// is partly hidden does not name the sounding.
void Draw_Plot_Title(std::string_view sTitle, const TitlePlace& hPlace, std::span<const TextSize> hSize);

}  // namespace quillan
