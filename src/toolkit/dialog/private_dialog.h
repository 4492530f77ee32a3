// private_dialog.h: what the dialogs' source files share with each other and with the script.
#pragma once

#include <QDialog>
#include <QList>
#include <QPointer>
#include <QString>
#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "base/edit_form.h"
#include "base/types.h"
#include "toolkit/dialog/dialog.h"
#include "toolkit/draw/last_error.h"
#include "toolkit/draw/private_draw.h"

class QKeyEvent;
class QLineEdit;
class QTableWidget;
class QWidget;

namespace quillan::toolkit {

// ---- Numbers as they stand in fields and grid cells (numbers.cpp)

enum class FieldKind { Text, Integer, Real, Double };

struct NumberRule {
  FieldKind iKind = FieldKind::Text;
  EditForm form;
  R8 dLow = -std::numeric_limits<R8>::infinity();
  R8 dHigh = std::numeric_limits<R8>::infinity();
  bool bNotZero = false;
};

/// The value as the screen shows it; blank where it is missing.
QString Number_Text(R8 dValue, const NumberRule& rule);
/// What the user typed; nothing where it is empty, no number or out of range.
std::optional<R8> Read_Number(const QString& sText, const NumberRule& rule);
/// Whether a text is there and cannot be read.
bool Is_Bad_Number(const QString& sText, const NumberRule& rule);
/// The range in words for a tool tip; blank where there is none.
QString Range_Words(const NumberRule& rule);

// ---- Controls (fields.cpp)

/// A control of a dialog. Its text shows whether the user has changed it: as long as it is the one that was shown for
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
/// Ends the edit of a field; if its value has changed, the program gets a message.
void Field_Complete(Field& hField);
void Field_Set_Range(Field& hField, R8 dLow, R8 dHigh);
void Field_Refuse_Zero(Field& hField);
/// The text line of a text or number field; null for other controls.
QLineEdit* Line_Edit(QWidget* hWidget);
/// Whether a key belongs to what is typed into a field: letters and the keys up and down do not belong to a number.
bool Field_Wants(const Field& hField, const QKeyEvent& hKey);
/// A whole number with step buttons, whose text may be anything until it is read.
QWidget* New_Integer_Spin(QWidget* hParent);
/// The red frame around a field whose text is no number or out of range.
void Mark_Bad(QWidget* hWidget, bool bBad);
/// A tool tip that is wrapped.
void Set_Tip(QWidget* hWidget, const QString& sTip);
/// Keeps the wheel from changing a value that the pointer happens to be over.
void Ignore_Wheel(QWidget* hWidget);

// ---- A table of a dialog (grid.cpp)

QWidget* New_Grid(QWidget* hParent);
/// Ends the edit of a cell.
void Grid_Complete(QWidget* hGrid);
/// The part of a table that the mouse meets; null for any other control.
QWidget* Grid_Cells(QWidget* hGrid);
/// Whether the user is typing in a cell.
bool Grid_Is_Edited(QWidget* hGrid);

// ---- A picture of a dialog (picture.cpp)

QWidget* New_Picture(QWidget* hParent);

// ---- Dialogs (dialog.cpp)

struct DialogRecord {
  I4 iDialog = 0;
  QPointer<QDialog> hWindow;
  std::map<I4, Field> hField;  // by control number
  I4 iMode = iShowModal;
  I4 iExit = 0;  // the button that was pushed, 0 before
};

/// Hears what the user does in dialogs. The recorder of scripts fills this in; until then nobody listens.
struct DialogListener {
  void (*Button)(I4 iButton) = [](I4) {};
  void (*Edit)(const Field& hField) = [](const Field&) {};                                            // complete
  void (*Cell)(const QTableWidget& hGrid, I4 iRow, I4 iColumn) = [](const QTableWidget&, I4, I4) {};  // from 1
  void (*Row)(const QTableWidget& hGrid, I4 iRow) = [](const QTableWidget&, I4) {};  // chosen as a whole
};
inline DialogListener hDialogListener;

/// Dialogs that are loaded, in the order of their loading.
const std::vector<std::unique_ptr<DialogRecord>>& Loaded_Dialogs();
/// The current dialog, and one of its controls by number; null, with the error status set, where there is none.
DialogRecord* Current_Record();
Field* Find_Field(I4 iField);
/// The same for a question that is no fault of the program: the error status stays as it is.
DialogRecord* Known_Dialog();
Field* Known_Field(I4 iField);
/// The dialog that is current and shown, null where there is none. isModal is true for one that waits for an
/// answer, false for a tool window. Its reject() is Cancel.
QDialog* Current_Dialog();
/// Moves a dialog to pixels iX, iY of hUnder, the whole of it on the screen of the main window.
void Place(QDialog& hWindow, const QRect& hUnder, I4 iX, I4 iY);

/// What a designer file numbers: controls ("c102"), which the program knows by number, and remarks beside them
/// ("n102").
inline constexpr char cControl = 'c', cRemark = 'n';
template <typename Widget>
QList<Widget*> Numbered(const QDialog& hWindow, char cKind) {
  QList<Widget*> hFound = hWindow.findChildren<Widget*>();
  hFound.removeIf([cKind](const Widget* h) {
    const QString sName = h->objectName();
    bool bNumber = false;
    std::ignore = sName.mid(1).toInt(&bNumber);
    return !bNumber || sName[0] != cKind;
  });
  return hFound;
}

/// Gives a dialog that was just loaded the look of all dialogs (dialog_look.cpp): the names of its buttons, fonts, grey
/// remarks, fields that begin below each other, the title bar of one that its designer file marks as a "toolWindow".
void Give_Look(QDialog& hWindow);

// ---- Tool windows (tool_window.cpp): dialogs that lie beside a plot and leave it the keyboard

/// Shows a dialog as one: where the user has put it, else beside the main window, else, where the screen has no room
/// there, at pixels iX, iY of the drawing area.
void Show_Tool(DialogRecord& hDialog, I4 iX, I4 iY);
/// Gives a tool window a title bar of its own (title_bar.cpp), which moves it, rolls it up and down, and has its close
/// button, and makes it wide enough for its title; the bar, null where there is none.
void Add_Title_Bar(QDialog& hWindow);
QWidget* Title_Bar(const QDialog& hWindow);
/// Rolls it up to its bar or down again; without a bar it stays.
void Roll_Title_Bar(const QDialog& hWindow);
/// Ends the edit of each field of the tool windows on show.
void Complete_Edits();
/// Ends the edits and gives the keyboard back to the plot.
void Focus_Plot();

}  // namespace quillan::toolkit
