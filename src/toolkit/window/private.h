// private.h: what the toolkit's own source files share. With private_draw.h the only header that knows Qt.
//
// Events of the window system become messages in messages.cpp alone. Waiting is done by Wait_Until alone, which also
// lets a session script play its next step when the program has come to rest.
#pragma once

#include <QImage>
#include <QMainWindow>
#include <QPointF>
#include <QPointer>
#include <QString>
#include <functional>
#include <limits>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/edit_form.h"
#include "base/types.h"
#include "toolkit/draw/last_error.h"
#include "toolkit/script/script.h"
#include "toolkit/window/ids.h"
#include "toolkit/window/messages.h"

class QAction;
class QDialog;
class QMessageBox;
class QFileDialog;
class QKeyEvent;
class QLineEdit;
class QWheelEvent;
class QWidget;

namespace quillan::toolkit {

// Text is bytes: UTF-8 where it is well formed, else Latin-1 (window.cpp).
QString To_QString(std::string_view sBytes);
std::string To_Bytes(const QString& sText);

/// The main window, null when none is open (window.cpp), and its drawing area. WindowClose deletes both and then the
/// application: whatever is shown has the main window as its parent, and is held by guarded pointers.
QMainWindow* Main_Window();
QWidget* Drawing_Area();
/// A text over the wide part of the status bar: the hint of a menu entry; blank gives the part its own text back.
void Show_Hint(const QString& sHint);
/// Gives the arrow back while the program waits for the user in the middle of long work (window.cpp).
void Suspend_Busy(bool bSuspend);
/// The backing image of the drawing area, of its size at the screen's pixel ratio (draw.cpp). Resize stretches
/// what is drawn.
QImage& Backing_Image();
void Resize_Backing_Image();
void Drop_Backing_Image();
/// A position in the drawing area: pixels from its upper left corner to the graphics units in force, and back.
QPointF Pixels_to_Units(QPointF hPixel);
QPointF Units_to_Pixels(QPointF hUnit);

/// Adds a message to the queue (messages.cpp). Types that are switched off are dropped.
void Push_Message(MessageType iType, const Message& hMessage);
bool Is_Wanted(MessageType iType);
/// A key and a turn of the wheel as messages, wherever in the program's windows they were given. False: the key means
/// nothing to the program.
bool Key_to_Plot(const QKeyEvent& hEvent);
void Wheel_to_Plot(const QWheelEvent& hEvent);
/// Runs the event loop until bDone gives true. While it waits, a playing script carries out its next step.
void Wait_Until(const std::function<bool()>& bDone);
/// Whether a message waits.
bool Has_Message();
void Drop_Messages();
/// Turns the events of the main window and its drawing area into messages, and the choice of a menu entry.
void Watch_Window(QMainWindow* hWindow, QWidget* hArea);
void Watch_Entry(QAction* hEntry, I4 iCommand);

/// The entries of a command in the bar on show (menus.cpp), and whether the bar on show is the main menu, not greyed.
std::vector<QAction*> Menu_Entries(I4 iCommand);
bool Main_Menu_Is_Ready();

/// The dialog that is current and shown, and what else waits for an answer; null where there is none (dialog.cpp,
/// boxes.cpp). QWidget::isModal tells a dialog that waits for an answer from a tool window. Their reject() is Cancel.
QDialog* Current_Dialog();
QMessageBox* Open_Box();
QFileDialog* Open_File_Dialog();

// How a script uses the current dialog (dialog.cpp, grid.cpp). Each gives an empty text, or why it cannot be done.
// The widgets get the events that a user's hands would cause, and the edit is completed.
std::string Dialog_Press(I4 iButton);
std::string Dialog_Set(I4 iField, std::string_view sValue);
std::string Dialog_Check(I4 iField, bool bOn);
std::string Dialog_Radio(I4 iField);
std::string Dialog_Choose(I4 iField, I4 iEntry);
std::string Dialog_Slide(I4 iField, I4 iValue);
std::string Dialog_Cell(I4 iGrid, I4 iRow, I4 iColumn, std::string_view sValue);
std::string Dialog_Field_Is(I4 iField, std::string_view sValue);
// How a script answers a box and a file dialog (boxes.cpp). sAnswer: ok, cancel, yes, no. sPath: cancel, or a path.
std::string Box_Answer(std::string_view sAnswer);
std::string File_Dialog_Answer(std::string_view sPath);

// Numbers as they stand in fields and grid cells (fields.cpp).

enum class FieldKind { Text, Integer, Real, Double };

struct NumberRule {
  FieldKind iKind = FieldKind::Text;
  EditForm form;
  R8 dLow = -std::numeric_limits<R8>::infinity();
  R8 dHigh = std::numeric_limits<R8>::infinity();
};

/// The value as the screen shows it; blank where it is missing.
QString Number_Text(R8 dValue, const NumberRule& rule);
/// Reads what the user typed. Gives iErrNone; iErrFieldEmpty or iErrFieldBad, which leave dValue as it is.
I4 Read_Number(const QString& sText, const NumberRule& rule, R8& dValue);
/// The range in words for a tool tip; blank where there is none.
QString Range_Words(const NumberRule& rule);
/// The red frame around a field whose text is no number or out of range.
void Mark_Bad(QWidget* hWidget, bool bBad);

/// A control of a dialog. Its text tells whether the user has changed it: as long as it is the one that was shown for
/// the put value, that value is given back, digit for digit and byte for byte.
struct Field {
  I4 iField = 0;
  QWidget* hWidget = nullptr;
  NumberRule rule;
  QString sTip;       // its meaning; the range is added
  bool bPut = false;  // a value was put: dPut or sPut, shown as sShown
  R8 dPut = 0.0;
  std::string sPut;
  QString sShown;
  QString sComplete;  // its text when its last edit was complete
};

/// Sets up a control that was just loaded: width, tool tip, signals.
void Field_Watch(Field& hField);
/// The text of a line edit, or of a label or button without its mnemonic; on or off of a check box; the entry of a
/// drop-down.
QString Field_Text(const Field& hField);
bool Field_Is_Unchanged(const Field& hField);
/// Shows the text of a value that was put, unless the user is just editing the field: then the put is dropped (false).
bool Field_Show(Field& hField, const QString& sText);
/// Ends the edit of a field; if its value has changed, the program is told.
void Field_Complete(Field& hField);
void Field_Set_Range(Field& hField, R8 dLow, R8 dHigh);
/// The text line of a text or number field; null for other controls.
QLineEdit* Line_Edit(QWidget* hWidget);
/// Whether a key belongs to what is typed into a field: letters and the keys up and down do not belong to a number.
bool Field_Wants(const Field& hField, const QKeyEvent& hKey);
/// A whole number with step buttons, whose text may be anything until it is read.
QWidget* New_Integer_Spin(QWidget* hParent);
/// A tool tip that is wrapped.
void Set_Tip(QWidget* hWidget, const QString& sTip);
/// Keeps the wheel from changing a value that the pointer happens to be over.
void Ignore_Wheel(QWidget* hWidget);

/// A table of a dialog (grid.cpp).
QWidget* New_Grid(QWidget* hParent);
/// Ends the edit of a cell.
void Grid_Complete(QWidget* hGrid);

/// A dialog that is loaded (dialog.cpp).
struct DialogRecord {
  I4 iDialog = 0;
  QPointer<QDialog> hWindow;
  std::map<I4, Field> hField;  // by control number
  I4 iMode = iShowModal;
  I4 iExit = 0;  // the button that was pushed, 0 before
};

// Tool windows (tool_window.cpp): dialogs that lie beside a plot and leave it the keyboard.
/// Shows a dialog as one, where the user has put it, else at pixels iX, iY of the drawing area.
void Show_Tool(DialogRecord& hDialog, I4 iX, I4 iY);
/// Ends the edit of each field of the tool windows on show: what the program does next must find them complete.
void Complete_Edits();
/// Ends the edits and gives the keyboard back to the plot.
void Focus_Plot();
/// Forgets where the user has put them.
void Forget_Places();

/// Dialogs that are loaded, in the order of their loading (dialog.cpp).
const std::vector<std::unique_ptr<DialogRecord>>& Loaded_Dialogs();
/// Moves a dialog to pixels iX, iY of hUnder, the whole of it on the screen of the main window.
void Place(QDialog& hWindow, const QRect& hUnder, I4 iX, I4 iY);

/// The current dialog and a control of it; null, with the error status set, where there is none.
DialogRecord* Current_Record();
Field* Find_Field(I4 iField);
/// The same for a question that is no fault of the program: the error status stays as it is.
Field* Known_Field(I4 iField);
/// Parent of a box: the dialog that is current and shown, else the main window.
QWidget* Box_Parent();
/// Gives the keyboard to what is left on the screen when a dialog or a box is gone: not every window system does.
void Hand_Back_Focus();
/// Answer of the last box or file dialog (boxes.cpp).
I4 Box_Exit();

// The script (script.cpp).
/// Reads a script and starts it; a blank path: no script plays.
void Script_Load(std::string_view sPath);
/// Carries out the next step; called by Wait_Until when all events are handled. At the end of the steps it sends the
/// close request. After a step that failed it cancels whatever waits.
void Script_Play_Step();
/// Carries out one step. Empty, or the reason why it does not fit what is on the screen (script_steps.cpp).
std::string Script_Carry_Out(const ScriptStep& hStep);
/// The box or dialog that waits for an answer, the innermost one, null where there is none; and its name in words.
QDialog* Waits_First();
std::string What_Waits();

}  // namespace quillan::toolkit
