// documents.h: documents that another program of the desktop shows, and the key that asks for one.
#pragma once

#include <string_view>

namespace quillan {

/// Opens a document in the program that the desktop has for its kind, a page in the browser, and does not wait for it.
/// In the run of a script and off the screen it opens nothing. False: it was not opened.
bool IOsOpenDocument(std::string_view sPath);

/// What F1 does in a dialog, whose keys never reach the program: carried out while the dialog waits, which stays as it
/// is.
void WOnHelp(void (*Carry_Out)());

}  // namespace quillan
