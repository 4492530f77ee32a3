// menus.h: the menu bars as tables of rows, and what may be done with the bar on show.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "base/types.h"

namespace quillan {

// The bar of the program, and the command that leaves whatever has the bar.
inline constexpr I4 iNoMenu = 0;
inline constexpr I4 iMenuMain = 30001;
inline constexpr I4 iCmdExit = 40011;

/// One row of a menu bar. Rows with a depth of 1 stand in the drop-down menu of the last row with depth 0 and no
/// command, rows with a depth of 2 in the menu beside the last such row with depth 1.
struct MenuRow {
  I4 iDepth;               // 0 on the bar, 1 in a drop-down menu, 2 in one beside it
  I4 iCommand;             // 0: the head of a drop-down menu
  std::string_view sText;  // & marks the mnemonic
  std::string_view sTip;   // shown in the wide part of the status bar while the pointer is over the entry
  std::string_view sKeys;  // standard keys, such as "Ctrl+O" or "Ctrl+Shift+Z; Ctrl+Y"; blank: none
  bool bThere = true;      // false: the program does not have the command yet, the entry stays grey
  bool bIsStep = true;     // false: a record of steps leaves it out, or has what the command itself gives it
};

/// Gives a menu bar its rows: the module that answers its commands calls this before WMenu.
void WMenuDefine(I4 iMenu, std::span<const MenuRow> hRow);

/// Shows another menu bar in the main window; iNoMenu takes the bar away.
void WMenu(I4 iMenu);

/// Greys (0) or enables (1) every entry of a command in the bar on show. A command that is not there stays grey.
void WMenuSetState(I4 iCommand, I4 iState);

/// Gives every entry of a command in the bar on show a tick or takes it away.
void WMenuSetCheck(I4 iCommand, bool bOn);

/// Gives a command that says what it would do another text, in every bar from now on, and greys it there or not. A text
/// that is not from the program is put in by As_Menu_Text; with a blank one the entry is not on show.
void WMenuEntry(I4 iCommand, std::string_view sText, bool bUsable);
/// Any text as it stands, without a mnemonic.
std::string As_Menu_Text(std::string_view sText);

/// Greys the whole bar (0) or gives each entry its own state back (1): for dialogs that leave the window usable.
void WMenuBarState(I4 iState);

}  // namespace quillan
