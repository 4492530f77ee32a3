// igr_util.h: what all plots share: the scale of decay curves, its ticks, and points and boxes that the user sets with
// the mouse.
//
// Plot units are those of the data as they are drawn (plot_axes.h); graphics units are those of the window (draw.h).
// The values of a decay curve run over many decades and fall below zero in their noise. The signed logarithmic scale
// holds both: with u = x / (2 b) it is sign(x) log10(|u| + sqrt(u**2 + 1)), nearly linear for |x| < b, nearly
// log10(|x| / b) above.
#pragma once

#include <string>
#include <vector>

#include "base/types.h"
#include "toolkit/window/messages.h"

namespace quillan {

/// The signed logarithmic scale of fX with base fXBase, computed in R8.
R4 fAsinh10(R4 fX, R4 fXBase);
/// Its inverse, computed in R4: fXBase * (v - 1 / v), v = 10**fY, held to 1.0E32 either way. The two need not undo
/// each other to the last digit.
R4 fSinh10(R4 fY, R4 fXBase);

/// Ticks of a signed logarithmic axis of base fYPscl between the positions fYPmin and fYPmax: fYTick(1..NYTick) their
/// positions, rising, sYTick their texts; NYTick at most MYTick. Ticks stand at zero and at the decades on either side,
/// from the one nearest to the base on; where fewer than three of them lie in the range, at 1, 2 and 5 of each decade
/// as well; where that does not do either, at tidy steps.
void Asinh10_Ticks(R4 fYPmin, R4 fYPmax, R4 fYPscl, I4 MYTick, I4& NYTick, std::vector<R4>& fYTick,
                   std::vector<std::string>& sYTick);

// The mouse routines wait for the user themselves; what the user does otherwise meanwhile is dropped. They leave the
// drawing in the colour "BLACK", in the plot mode "N", with the arrow as pointer, and all else as they found it. The
// user's Esc ends them, and so does a close request, which the loop that called then sees.

/// Waits for one click: fXGr1, fYGr1 its place in graphics units. iMouseCursor: shape of the pointer meanwhile.
/// iError: 0; 1 Esc.
void IGr_GetMousePoint(I4 iMouseCursor, R4& fXGr1, R4& fYGr1, I4& iError);

/// Two clicks, or one drag, set opposite corners of a box, in graphics units: sorted, and held to the graphics area.
/// iError: 0; 1 Esc, or the box is at most a pixel wide or high; it is then given as it stood, before the first click
/// 8 pixels wide and high in the middle of the area.
void IGr_ZoomMouseBox(I4 iMouseCursor, R4& fXGr1, R4& fYGr1, R4& fXGr2, R4& fYGr2, I4& iError);

/// Follows the drag of a button whose press is hMessage: opposite corners of the box, sorted, and held to the graphics
/// area. A click without a drag gives a box without a size: a point.
/// IOERR: 0; 1 Esc.
void IGr_SelectMouseBox(const Message& hMessage, R4& fXGr1, R4& fYGr1, R4& fXGr2, R4& fYGr2, I4& IOERR);

}  // namespace quillan
