// window.h: the main window: its start and end, title, status bar and size.
//
// The client area shows one backing image that draw.h draws into; exposure is served from it.
#pragma once

#include <string>
#include <string_view>

#include "base/types.h"

namespace quillan {

/// Prepares the toolkit. Takes the toolkit's own options out of the command line, so that IOsArgument sees what is
/// left. Without a display (neither DISPLAY nor WAYLAND_DISPLAY set) a run whose script was loaded before (Script_Load
/// of script.h) takes the off-screen platform.
void WInitialise(int argc, char** argv);

/// Opens the main window. NXP, NYP: outer size in pixels, held to the screen.
void WindowOpen2(I4 iXP, I4 iYP, I4 NXP, I4 NYP, I4 iMenu, std::string_view sTitle);

/// Closes what is open. Safe when nothing is.
void WindowClose();

/// Opens a child window over the middle of the main one and selects it: until it is closed all drawing and waiting, the
/// status bar and WInfoWindow are the child's, and the main window answers to nothing. There is one at a time.
/// NXP, NYP: size in pixels. Its close button gives a Close message with VALUE3 = iInChild.
void WindowOpenChild2(I4 NXP, I4 NYP, std::string_view sTitle);
/// Closes it and selects the main window again, as it was: what is drawn, the graphics state, the menu. What the user
/// did in the child and the program did not ask for is over with it.
void WindowCloseChild();

void WindowTitle(std::string_view sTitle);
/// Whether what is open differs from its file: a star at the end of the title, and a dot in the narrow part of the
/// status bar.
void WindowModified(bool bModified);

/// Three parts in the status bar: the first NWidth1 pixels wide, the third at the right end as wide as its text, the
/// second takes the rest.
void WindowStatusBarParts(I4 NWidth1);
inline constexpr I4 iStatusProgress = 2;  // hints and progress
inline constexpr I4 iStatusStanding = 3;  // what must stay in sight
/// iPart: 1 the narrow part, or one of those. A child window has the wide part alone.
void WindowOutStatusBar(I4 iPart, std::string_view sText);

/// The busy cursor while long work runs; calls may nest.
void WindowBusy(bool bBusy);

/// A bar in the status bar that shows how far long work has come, and the words for it in the wide part, with the busy
/// cursor. dShare: 0 to 1, below 0 where nobody knows. WindowProgressEnd takes it away; safe when there is none.
void WindowProgress(R8 dShare, std::string_view sText);
void WindowProgressEnd();

// Selectors of WInfoWindow.
inline constexpr I4 iWindowWidth = 1;
inline constexpr I4 iWindowHeight = 2;
inline constexpr I4 iWindowDrawable = 9;  // 0: no window to draw on
// Selectors of WInfoScreen.
inline constexpr I4 iScreenWidth = 1;
inline constexpr I4 iScreenHeight = 2;
/// 0 where there is no window. Pixels are those of the layout, before the screen's scale factor.
I4 WInfoWindow(I4 iSelect);
I4 WInfoScreen(I4 iSelect);

}  // namespace quillan
