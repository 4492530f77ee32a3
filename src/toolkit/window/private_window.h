// private_window.h: what the window's source files share with each other and with the dialogs and the script.
//
// Events of the window system become messages in messages.cpp alone. Waiting is done by Wait_Until alone, which also
// lets a session script play its next step when the program has come to rest.
#pragma once

#include <QDialog>
#include <QMainWindow>
#include <functional>
#include <string_view>
#include <vector>

#include "toolkit/draw/last_error.h"
#include "toolkit/draw/private_draw.h"
#include "toolkit/window/messages.h"

class QAction;
class QFileDialog;
class QKeyEvent;
class QMessageBox;
class QMouseEvent;
class QWheelEvent;

namespace quillan::toolkit {

// ---- What the higher rooms fill in

/// The dialogs beside the window. They fill this in when the first one is loaded; until then there are none.
struct DialogHooks {
  /// Ends the edit of each field beside the plot: what the program does next must find them complete.
  void (*Complete_Edits)() = [] {};
  /// Ends the edits and gives the keyboard back to the plot.
  void (*Focus_Plot)() = [] {};
  /// The dialog on top, tool windows apart; null where there is none.
  QDialog* (*Top_Dialog)() = []() -> QDialog* { return nullptr; };
};
inline DialogHooks hDialogs;

/// Hears what the user does in the main window and in boxes. The recorder of scripts fills this in; until then nobody
/// listens.
struct WindowListener {
  void (*Menu)(I4 iCommand) = [](I4) {};
  void (*Key)(const QKeyEvent& hKey) = [](const QKeyEvent&) {};
  /// A mouse button in the drawing area.
  void (*Press)(const QMouseEvent& hPress) = [](const QMouseEvent&) {};
  void (*Release)(const QMouseEvent& hRelease) = [](const QMouseEvent&) {};
  /// The box that the last press began was given up, by Esc or by a close request.
  void (*Box_Given_Up)(bool bClose) = [](bool) {};
  /// A message that the program has taken: of what is turned or moved too fast for it some never comes so far.
  void (*Taken)(const Message& hMessage) = [](const Message&) {};
  void (*Close)() = [] {};
  void (*Drop)(const QString& sFile) = [](const QString&) {};
  void (*Answer)(const QMessageBox& hBox) = [](const QMessageBox&) {};
  void (*File)(const QString& sFile) = [](const QString&) {};  // blank: Cancel
};
inline WindowListener hWindowListener;

/// Plays the next step of the session script; null when none is played. The script fills it in.
inline void (*hPlayStep)() = nullptr;
/// Whether the script wants Esc pressed when the program looks at the user in the middle of work: no step can be played
/// then. The script sets it.
inline bool bEscAtLook = false;

// ---- The application (application.cpp)

/// Makes the application if there is none. False: before WInitialise nobody knows how.
bool Make_Application();
void End_Application();
/// Whether memory has ended in an event handler since the last call.
bool Memory_Has_Ended();

// ---- The window (window.cpp)

/// The main window, null when none is open. WindowClose deletes it, the drawing area and then the application: whatever
/// is shown has the main window as its parent, and is held by guarded pointers.
QMainWindow* Main_Window();
/// The child window, null when none is open; and the one of the two that the user works in.
QMainWindow* Child_Window();
QMainWindow* Active_Window();
/// The dialog on top, else that window: what a box belongs to.
QWidget* Front_Window();
/// Gives the keyboard to what is left on the screen when a dialog or a box is gone: not every window system does.
void Hand_Back_Focus();
/// A window that is opened is painted when all that is done to it is done, not for each step.
class PaintedOnce {
 public:
  explicit PaintedOnce(QWidget& hOpened) : hWindow(hOpened) { hWindow.setUpdatesEnabled(false); }
  ~PaintedOnce() { hWindow.setUpdatesEnabled(true); }
  PaintedOnce(const PaintedOnce&) = delete;
  PaintedOnce& operator=(const PaintedOnce&) = delete;

 private:
  QWidget& hWindow;
};
/// A text over the wide part of the status bar: the hint of a menu entry; blank gives the part its own text back.
void Show_Hint(const QString& sHint);
/// Gives the arrow back while the program waits for the user in the middle of long work.
void Suspend_Busy(bool bSuspend);

// ---- Messages (messages.cpp)

/// Adds a message to the queue. Types that are switched off are dropped.
void Push_Message(Message hMessage);
bool Is_Wanted(MessageType iType);
void Drop_Messages();
/// The same for what the user did in the child window; what concerns the main one stays.
void Drop_Child_Messages();
/// Takes over the size of the drawing area and lets the program know of it.
void Follow_Size(MessageType iType);
/// Runs the event loop until bDone gives true. While it waits, a playing script carries out its next step. Throws
/// std::bad_alloc when memory ended in an event handler, as it would where the program itself asks for it.
void Wait_Until(const std::function<bool()>& bDone);
/// A key and a turn of the wheel as messages, wherever in the program's windows they were given. False: the key means
/// nothing to the program.
bool Key_to_Plot(const QKeyEvent& hEvent);
void Wheel_to_Plot(const QWheelEvent& hEvent);
/// Turns the events of the main window and its drawing area into messages, and the choice of a menu entry.
void Watch_Window(QMainWindow* hWindow, QWidget* hArea);
/// Presses Esc if the script wants that now.
void Press_Esc_at_Look();
void Watch_Entry(QAction* hEntry, I4 iCommand, bool bIsStep);

// ---- The menu (menus.cpp)

/// All entries of the bar on show, the entries of a command, and whether the bar on show is the main menu; the same,
/// and not greyed.
std::vector<QAction*> Menu_Entries();
std::vector<QAction*> Menu_Entries(I4 iCommand);
bool Main_Menu_Is_on_Show();
bool Main_Menu_Is_Ready();
/// Whether the bar on show is not greyed as a whole.
bool Menu_Bar_Is_Usable();

// ---- Help (documents.cpp)

/// F1 was pressed in a dialog; and what it does then, outside of the event.
void Want_Help();
void Help_if_Wanted();

// ---- Boxes (boxes.cpp)

/// The box and the file dialog that wait for an answer; null where there is none. Their reject() is Cancel.
QMessageBox* Open_Box();
QFileDialog* Open_File_Dialog();
/// Ends the open file dialog with a choice.
void Choose_File(const QString& sPath);

}  // namespace quillan::toolkit
