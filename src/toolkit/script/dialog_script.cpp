// dialog_script.cpp: how a session script uses the current dialog, by the events that a user's hands would cause.
#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTableWidget>

#include "toolkit/window/private.h"

namespace quillan::toolkit {
namespace {

/// Why the current dialog cannot be used now; empty if it can.
std::string Blocked() {
  if (const QMessageBox* hBox = Open_Box()) return "a message box is open: " + To_Bytes(hBox->text());
  if (Open_File_Dialog()) return "a file dialog is open";
  return Current_Dialog() ? "" : "no dialog is open";
}

std::string Quoted(std::string_view sText) {
  return '"' + std::string(sText) + '"';
}

/// The control of the current dialog if it is of that kind and can be used; else null and the reason.
template <class Control>
Control* Usable(I4 iField, const char* sKind, std::string& sReason) {
  sReason = Blocked();
  if (!sReason.empty()) return nullptr;
  const std::string sName = std::string(sKind) + ' ' + std::to_string(iField);
  const Field* hField = Known_Field(iField);
  auto* hControl = hField ? qobject_cast<Control*>(hField->hWidget) : nullptr;
  if (!hControl)
    sReason = "the dialog has no " + sName;
  else if (!hControl->isEnabled())
    sReason = sName + " is greyed";
  return sReason.empty() ? hControl : nullptr;
}

void Press_Key(QWidget* hWidget, int iKey, const QString& sText) {
  for (const QEvent::Type iType : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent hEvent(iType, iKey, Qt::NoModifier, sText);
    QApplication::sendEvent(hWidget, &hEvent);
  }
}

/// Gives a control the focus as a click on it does; in a tool window only a text field takes it.
void Take_Focus(QWidget* hWidget) {
  Complete_Edits();
  if (!(hWidget->focusPolicy() & Qt::ClickFocus)) return;
  hWidget->window()->activateWindow();
  hWidget->setFocus(Qt::MouseFocusReason);
}

/// Types over what a line holds.
void Type_Over(QLineEdit* hLine, std::string_view sValue) {
  hLine->selectAll();
  if (sValue.empty()) Press_Key(hLine, Qt::Key_Delete, {});
  for (const QChar hChar : To_QString(sValue)) Press_Key(hLine, 0, QString(hChar));
}

/// Clicks a button unless it shows the wanted state already.
template <class Button>
std::string Switch(I4 iField, const char* sKind, bool bOn) {
  std::string sReason;
  auto* hButton = Usable<Button>(iField, sKind, sReason);
  if (!hButton) return sReason;
  Take_Focus(hButton);
  if (hButton->isChecked() != bOn) hButton->click();
  return "";
}

std::string Choose_Entry(QComboBox* hDropDown, I4 iEntry) {
  if (iEntry < 1 || iEntry > hDropDown->count())
    return "the drop-down has " + std::to_string(hDropDown->count()) + " entries";
  Take_Focus(hDropDown);
  hDropDown->setCurrentIndex(iEntry - 1);
  emit hDropDown->activated(iEntry - 1);
  return "";
}

std::string Edit_Cell(QTableWidget* hGrid, I4 iRow, I4 iColumn, std::string_view sValue) {
  QTableWidgetItem* hItem = hGrid->item(iRow - 1, iColumn - 1);
  if (!hItem || !(hItem->flags() & Qt::ItemIsEditable)) return "the cell cannot be edited";
  Take_Focus(hGrid);
  hGrid->setCurrentItem(hItem);
  hGrid->editItem(hItem);
  auto* hLine = hGrid->viewport()->findChild<QLineEdit*>();
  if (!hLine) return "the cell cannot be edited";
  Type_Over(hLine, sValue);
  Grid_Complete(hGrid);
  return "";
}

}  // namespace

std::string Dialog_Press(I4 iButton) {
  std::string sReason;
  auto* hButton = Usable<QPushButton>(iButton, "button", sReason);
  if (!hButton) return sReason;
  Take_Focus(hButton);
  hButton->click();
  return "";
}

std::string Dialog_Set(I4 iField, std::string_view sValue) {
  std::string sReason;
  auto* hWidget = Usable<QWidget>(iField, "field", sReason);
  if (!hWidget) return sReason;
  QLineEdit* hLine = Line_Edit(hWidget);
  if (!hLine) return "control " + std::to_string(iField) + " is no text or number field";
  if (hLine->isReadOnly()) return "field " + std::to_string(iField) + " cannot be edited";
  Take_Focus(hWidget);
  Type_Over(hLine, sValue);
  Field_Complete(*Known_Field(iField));
  return "";
}

std::string Dialog_Check(I4 iField, bool bOn) {
  return Switch<QCheckBox>(iField, "check box", bOn);
}

std::string Dialog_Radio(I4 iField) {
  return Switch<QRadioButton>(iField, "radio button", true);
}

std::string Dialog_Choose(I4 iField, I4 iEntry) {
  std::string sReason;
  auto* hDropDown = Usable<QComboBox>(iField, "drop-down", sReason);
  return hDropDown ? Choose_Entry(hDropDown, iEntry) : sReason;
}

std::string Dialog_Slide(I4 iField, I4 iValue) {
  std::string sReason;
  auto* hTrackbar = Usable<QSlider>(iField, "trackbar", sReason);
  if (!hTrackbar) return sReason;
  if (iValue < hTrackbar->minimum() || iValue > hTrackbar->maximum())
    return "the trackbar goes from " + std::to_string(hTrackbar->minimum()) + " to " +
           std::to_string(hTrackbar->maximum());
  Take_Focus(hTrackbar);
  hTrackbar->setValue(iValue);
  return "";
}

std::string Dialog_Cell(I4 iGrid, I4 iRow, I4 iColumn, std::string_view sValue) {
  std::string sReason;
  auto* hGrid = Usable<QTableWidget>(iGrid, "grid", sReason);
  if (!hGrid) return sReason;
  if (iRow < 1 || iRow > hGrid->rowCount() || iColumn < 1 || iColumn > hGrid->columnCount())
    return "the grid has " + std::to_string(hGrid->rowCount()) + " rows and " + std::to_string(hGrid->columnCount()) +
           " columns";
  if (auto* hDropDown = qobject_cast<QComboBox*>(hGrid->cellWidget(iRow - 1, iColumn - 1)))
    return Choose_Entry(hDropDown, To_QString(sValue).toInt());
  return Edit_Cell(hGrid, iRow, iColumn, sValue);
}

std::string Dialog_Field_Is(I4 iField, std::string_view sValue) {
  std::string sReason = Blocked();
  if (!sReason.empty()) return sReason;
  const Field* hField = Known_Field(iField);
  if (!hField) return "the dialog has no control " + std::to_string(iField);
  const auto* hDropDown = qobject_cast<QComboBox*>(hField->hWidget);
  if (hDropDown && std::to_string(hDropDown->currentIndex() + 1) == sValue) return "";
  const std::string sShown = To_Bytes(Field_Text(*hField));
  if (sShown == sValue) return "";
  return "control " + std::to_string(iField) + " shows " + Quoted(sShown) + ", not " + Quoted(sValue);
}

}  // namespace quillan::toolkit
