// messages.h: what the user does, as a queue of messages that the program asks for when it is ready.
//
// All waiting of the program is here, in the modal dialogs and in the boxes of dialog.h. No code of the program
// runs inside an event handler of the window system.
#pragma once

#include <string>
#include <string_view>

#include "base/types.h"
#include "toolkit/window/ids.h"

namespace quillan {

struct Message {
  MessageType iType = MessageType::None;
  I4 WIN = 0;                                         // window: 0 the main window
  I4 VALUE1 = 0, VALUE2 = 0, VALUE3 = 0, VALUE4 = 0;  // by type, see MessageType
  I4 X = 0, Y = 0;                                    // pixels in the drawing area, from its upper left corner
  R4 GVALUE1 = 0.0f, GVALUE2 = 0.0f;
  R4 GX = 0.0f, GY = 0.0f;                    // the same position in the graphics units in force
  I4 TIME = 0;                                // msec since the start
  I4 XPIX = 0, YPIX = 0, WPIX = 0, HPIX = 0;  // a rectangle of pixels: what was exposed
};

/// Waits for the next message.
void WMessage(MessageType& iType, Message& hMessage);

/// Takes the next message if one waits, else gives MessageType::None at once. Lets the window repaint.
void WMessagePeek(MessageType& iType, Message& hMessage);

[[nodiscard]] Message WMessage();  // the two above, the message returned with its type
[[nodiscard]] Message WMessagePeek();
void WMessagePutBack(const Message& hMessage);

/// Puts a message back before all others: the next WMessage gives it again. For a routine that waits inside another
/// loop and meets what only that loop can answer, a close request above all.
void WMessagePutBack(MessageType iType, const Message& hMessage);

/// Turns MouseMove or Field messages on or off; both are off at the start.
void WMessageEnable(MessageType iType, bool bOn);

/// Follows the pointer with a rubber-band box from the press in hMessage until a button is released: iType MouseUp and
/// the released corner fX2, fY2 in graphics units; or until Esc or a close request (iType Key; the close request is put
/// back for the caller's loop). A click that was already released ends at once.
void WGrInputBox(const Message& hMessage, R4& fX2, R4& fY2, MessageType& iType);

/// Shape of the pointer over the drawing area, one of iCursor... of ids.h.
void WCursorShape(I4 iShape);

/// An audible warning.
void WindowBell();

/// Path of the file of the last FileDropped message.
std::string WDroppedFile();

/// Asks a question in a box and waits for the answer, which WInfoDialog(iExitButtonCommon) tells. The first button
/// is the default. bQuietOption adds the box "Do not show further errors of this operation"; WMessageBoxQuiet tells
/// whether it was ticked in the last box that had it.
/// True for Yes and OK.
bool WMessageBox(BoxButtons iButtons, BoxIcon iIcon, std::string_view sText, std::string_view sTitle,
                 bool bQuietOption = false);
bool WMessageBoxQuiet();

/// Asks for a file. sFilter: "words|*.a;*.b|", words and patterns in turn. sFile: where to begin (a file or a
/// folder, blank for the working folder) in, the choice out, unchanged on Cancel. WInfoDialog(iExitButtonCommon) is
/// 1 after a choice.
void WSelectFile2(std::string_view sFilter, I4 iFlags, std::string& sFile, std::string_view sTitle);
/// The same: the path chosen, blank on Cancel. sBegin: where to begin.
[[nodiscard]] std::string WSelectFile2(std::string_view sFilter, I4 iFlags, std::string_view sTitle,
                                       std::string_view sBegin);

}  // namespace quillan
