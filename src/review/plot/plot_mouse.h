// plot_mouse.h: points and boxes that the user sets with the mouse, in graphics units.
//
// These routines wait for the user themselves; what the user does otherwise meanwhile is dropped. They leave the
// drawing in the colour "BLACK", in the plot mode "N", with the arrow as pointer, and all else as they found it. The
// user's Esc ends them, and so does a close request, which the loop that called then sees.
#pragma once

#include "base/types.h"
#include "toolkit/draw/draw.h"
#include "toolkit/window/messages.h"

namespace quillan {

struct MousePoint {
  GrPoint hPoint;
  I4 iError = 0;  // 0; 1 Esc
};

/// Corners sorted and held to the graphics area.
struct MouseBox {
  GrBox hBox;
  I4 iError = 0;  // 0; 1 Esc, or no box
};

/// Whether a drag was meant as a box: one of less than fLeastBox is a click of an unsteady hand.
[[nodiscard]] L4 Is_Box(const GrBox& hBox);

/// Waits for one click. iMouseCursor: shape of the pointer meanwhile.
[[nodiscard]] MousePoint IGr_GetMousePoint(I4 iMouseCursor);

/// Two clicks, or one drag, set opposite corners of a box. On Esc, and where it is at most a pixel wide or high, the
/// box is given as it stood, before the first click 8 pixels wide and high in the middle of the area.
[[nodiscard]] MouseBox IGr_ZoomMouseBox(I4 iMouseCursor);

/// Follows the drag of a button whose press is hPress. A click without a drag gives a box without a size: a point.
[[nodiscard]] MouseBox IGr_SelectMouseBox(const Message& hPress);

}  // namespace quillan
