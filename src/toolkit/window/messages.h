// messages.h: what the user does, as a queue of messages that the program asks for when it is ready; boxes and the
// choice of a file.
//
// All waiting of the program is here and in the modal dialogs of dialog.h. No code of the program runs inside an event
// handler of the window system.
#pragma once

#include <string>
#include <string_view>

#include "base/types.h"

namespace quillan {

/// What WMessage reports.
enum class MessageType : I4 {
  None = -1,         // WMessagePeek: nothing waits
  Key = 1,           // VALUE1: the character or a key code below
  Menu = 2,          // VALUE1: the command
  Button = 3,        // VALUE1: the control
  MouseDown = 4,     // VALUE1: the mouse button; VALUE3: 0 in the main window, iInChild; GX, GY; X, Y
  MouseUp = 5,       // as MouseDown
  MouseMove = 6,     // GX, GY; only when enabled
  Expose = 7,        // the window must be drawn again
  Resize = 8,        // the window has another size
  Close = 9,         // the user wants the window closed; VALUE3: 0 the main window, iInChild
  Field = 10,        // VALUE1: a control whose edit is complete; only when enabled
  FileDropped = 12,  // a data file was dropped on the main window; WDroppedFile gives its path
  Timer = 13,        // VALUE1: the timer's number
};

// Keys that have no character.
inline constexpr I4 iKeyEsc = 27;
inline constexpr I4 iKeyEnter = 13;
inline constexpr I4 iKeyTab = 9;
inline constexpr I4 iKeyUndo = 26;  // Ctrl+Z
inline constexpr I4 iKeyRedo = 25;  // Ctrl+Y, Ctrl+Shift+Z
inline constexpr I4 iKeyUp = 258;
inline constexpr I4 iKeyDown = 259;
inline constexpr I4 iKeyRight = 260;
inline constexpr I4 iKeyLeft = 261;
inline constexpr I4 iKeyCtrlE = 5;  // where the menu bar does not have it
inline constexpr I4 iKeySpace = 32;
inline constexpr I4 iKeyHelp = 63;  // the question mark
inline constexpr I4 iKeyCtrlH = 8;
inline constexpr I4 iKeyCtrlT = 20;
inline constexpr I4 iKeyCtrlUp = 513;
inline constexpr I4 iKeyCtrlDown = 514;
inline constexpr I4 iKeyCtrlRight = 515;
inline constexpr I4 iKeyCtrlLeft = 516;
inline constexpr I4 iKeyShiftSpace = 517;
inline constexpr I4 iKeyF1 = 518;  // where the menu bar does not have it
/// What a key is called on the screen: "Ctrl+H", "Up", "N".
std::string Key_Name(I4 iKey);

// Mouse buttons of the messages, and the wheel, which comes as a press of the extra buttons with VALUE2 = 1.
inline constexpr I4 iMouseLeft = 1;
inline constexpr I4 iMouseMiddle = 2;
inline constexpr I4 iMouseRight = 3;
inline constexpr I4 iMouseBack = 4;
inline constexpr I4 iMouseForward = 5;
inline constexpr I4 iByWheel = 1;

inline constexpr I4 iInChild = 1;  // VALUE3 of messages of the child window

struct Message {
  MessageType iType = MessageType::None;
  I4 VALUE1 = 0, VALUE2 = 0, VALUE3 = 0;  // by type, see MessageType
  I4 X = 0, Y = 0;                        // pixels in the drawing area, from its upper left corner
  R4 GX = 0.0f, GY = 0.0f;                // the same position in the graphics units in force
  bool bShift = false, bCtrl = false;     // keys that are held while the mouse acts
  I4 WPIX = 0, HPIX = 0;                  // pixels of the drawing area, when it has another size
};

/// Waits for the next message.
[[nodiscard]] Message WMessage();

/// Takes the next message if one waits, else gives one of type None at once. Lets the window repaint.
[[nodiscard]] Message WMessagePeek();

/// Calls a procedure once, when NMsec have passed, while the program waits for the user in any window or looks whether
/// there is a message: for work that can wait, but not long, and is nothing that the user sees. A call before that
/// changes nothing; null: no call any more.
void WAfter(I4 NMsec, void (*Carry_Out)());

/// Puts a message back before all others: the next WMessage gives it again. For a routine that waits inside another
/// loop and meets what only that loop can answer, a close request above all.
void WMessagePutBack(const Message& hMessage);

/// Turns MouseMove or Field messages on or off; both are off at the start.
void WMessageEnable(MessageType iType, bool bOn);

/// Puts one Timer message into the queue after NMsec milliseconds. 0: the timer is not wanted any more, nor its
/// message.
void WMessageTimer(I4 NMsec, I4 iTimer);

/// Where a rubber-band box was released, in graphics units.
struct InputBox {
  R4 fX2, fY2;
  bool bReleased;  // false: the user gave up
};
/// Follows the pointer with a rubber-band box from the press in hPress until a button is released, or until Esc or a
/// close request, which is put back for the caller's loop. A click that was already released ends at once.
[[nodiscard]] InputBox WGrInputBox(const Message& hPress);
/// A drag across less than this many graphics units squared is the click of an unsteady hand.
inline constexpr R4 fLeastBox = 0.1f;

/// Shape of the pointer over the drawing area.
void WCursorShape(I4 iShape);
inline constexpr I4 iCursorArrow = 0;
inline constexpr I4 iCursorTwoWay = 8;
inline constexpr I4 iCursorPick = 2003;
inline constexpr I4 iCursorCorner = 2004;
inline constexpr I4 iCursorBox = 2008;

/// An audible warning.
void WindowBell();

/// Path of the file of the last FileDropped message.
std::string WDroppedFile();

// Message boxes: the set of buttons and the icon.
enum class BoxButtons : I4 { Ok = 0, OkCancel = 1, YesNo = 2 };
enum class BoxIcon : I4 { None = 0, Stop = 1, Question = 2, Warning = 3, Information = 4 };

/// Asks a question in a box and waits for the answer: true for Yes and OK, false for No and Cancel. Esc and the box's
/// close button are Cancel; they do nothing where the answer is Yes or No. The first button is the default.
/// bQuietOption adds the box "Do not show further errors of this operation"; WMessageBoxQuiet: whether it was ticked in
/// the last box that had it.
bool WMessageBox(BoxButtons iButtons, BoxIcon iIcon, std::string_view sText, std::string_view sTitle,
                 bool bQuietOption = false);
bool WMessageBoxQuiet();

// File selection: what the flags ask for.
inline constexpr I4 iSelectOpen = 10;       // an existing file
inline constexpr I4 iSelectSave = 15;       // a file to write; the dialog asks before it replaces one
inline constexpr I4 iSelectOptional = 130;  // an existing file that the user may also leave out
/// Asks for a file: its path, blank on Cancel. sFilter: "words|*.a;*.b|", words and patterns in turn. sBegin: where to
/// begin, a file or a folder, blank for the working folder.
[[nodiscard]] std::string WSelectFile2(std::string_view sFilter, I4 iFlags, std::string_view sTitle,
                                       std::string_view sBegin);

}  // namespace quillan
