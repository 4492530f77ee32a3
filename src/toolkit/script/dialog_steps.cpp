// How a session script uses the current dialog, boxes and the file dialog, by the events that a user's hands would
// cause.
#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTableWidget>

#include "toolkit/dialog/private_dialog.h"
#include "toolkit/script/private_script.h"
#include "toolkit/window/private_window.h"

namespace quillan::toolkit {
namespace {

/// The control that the first argument names, if it is of that kind and can be used; else null and the reason.
template <class Control>
Control* Usable(Arguments sArgument, const char* sKind, std::string& sReason) {
  const std::string sName = std::string(sKind) + ' ' + sArgument[0];
  const Field* hField = Known_Field(Whole(sArgument[0]));
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
std::string Switch(Arguments sArgument, const char* sKind, bool bOn) {
  std::string sReason;
  auto* hButton = Usable<Button>(sArgument, sKind, sReason);
  if (!hButton) return sReason;
  Take_Focus(hButton);
  if (hButton->isChecked() != bOn) hButton->click();
  return "";
}

std::string Choose_Row(QTableWidget* hGrid, I4 iRow) {
  if (iRow < 1 || iRow > hGrid->rowCount()) return "the table has " + std::to_string(hGrid->rowCount()) + " rows";
  Take_Focus(hGrid);
  hGrid->setCurrentCell(iRow - 1, 0);
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

QDialog* Waits_First() {
  if (Open_Box()) return Open_Box();
  if (Open_File_Dialog()) return Open_File_Dialog();
  QDialog* hDialog = Current_Dialog();
  return hDialog && hDialog->isModal() ? hDialog : nullptr;
}

std::string What_Waits() {
  if (Open_Box()) return "the message box " + Quoted(Open_Box()->text());
  if (Open_File_Dialog()) return "the file dialog " + Quoted(Open_File_Dialog()->windowTitle());
  return "the dialog " + Quoted(Current_Dialog()->windowTitle());
}

QString As_Read(QString sText) {
  return sText.remove(QChar(0x200B)).simplified();
}

std::string Quoted(const QString& sText) {
  return '"' + To_Bytes(As_Read(sText)) + '"';
}

std::string Play_Press(Arguments sArgument) {
  std::string sReason;
  auto* hButton = Usable<QPushButton>(sArgument, "button", sReason);
  if (!hButton) return sReason;
  Take_Focus(hButton);
  hButton->click();
  return "";
}

std::string Play_Set(Arguments sArgument) {
  std::string sReason;
  auto* hWidget = Usable<QWidget>(sArgument, "field", sReason);
  if (!hWidget) return sReason;
  QLineEdit* hLine = Line_Edit(hWidget);
  if (!hLine) return "control " + sArgument[0] + " is no text or number field";
  if (hLine->isReadOnly()) return "field " + sArgument[0] + " cannot be edited";
  Take_Focus(hWidget);
  Type_Over(hLine, sArgument[1]);
  Field_Complete(*Known_Field(Whole(sArgument[0])));
  return "";
}

std::string Play_Check(Arguments sArgument) {
  if (sArgument[1] != "on" && sArgument[1] != "off") return "a box is on or off";
  return Switch<QCheckBox>(sArgument, "check box", sArgument[1] == "on");
}

std::string Play_Radio(Arguments sArgument) {
  return Switch<QRadioButton>(sArgument, "radio button", true);
}

std::string Play_Choose(Arguments sArgument) {
  std::string sReason;
  if (auto* hGrid = Usable<QTableWidget>(sArgument, "table", sReason)) return Choose_Row(hGrid, Whole(sArgument[1]));
  sReason.clear();
  auto* hDropDown = Usable<QComboBox>(sArgument, "drop-down", sReason);
  return hDropDown ? Choose_Entry(hDropDown, Whole(sArgument[1])) : sReason;
}

std::string Play_Slide(Arguments sArgument) {
  std::string sReason;
  auto* hTrackbar = Usable<QSlider>(sArgument, "trackbar", sReason);
  if (!hTrackbar) return sReason;
  const I4 iValue = Whole(sArgument[1]), iLow = hTrackbar->minimum(), iHigh = hTrackbar->maximum();
  if (iValue < iLow || iValue > iHigh)
    return "the trackbar goes from " + std::to_string(iLow) + " to " + std::to_string(iHigh);
  Take_Focus(hTrackbar);
  hTrackbar->setValue(iValue);
  return "";
}

std::string Play_Cell(Arguments sArgument) {
  std::string sReason;
  auto* hGrid = Usable<QTableWidget>(sArgument, "grid", sReason);
  if (!hGrid) return sReason;
  const I4 iRow = Whole(sArgument[1]), iColumn = Whole(sArgument[2]);
  if (iRow < 1 || iRow > hGrid->rowCount() || iColumn < 1 || iColumn > hGrid->columnCount())
    return "the grid has " + std::to_string(hGrid->rowCount()) + " rows and " + std::to_string(hGrid->columnCount()) +
           " columns";
  if (auto* hDropDown = qobject_cast<QComboBox*>(hGrid->cellWidget(iRow - 1, iColumn - 1)))
    return Choose_Entry(hDropDown, To_QString(sArgument[3]).toInt());
  return Edit_Cell(hGrid, iRow, iColumn, sArgument[3]);
}

std::string Play_Field(Arguments sArgument) {
  const Field* hField = Known_Field(Whole(sArgument[0]));
  if (!hField) return "the dialog has no control " + sArgument[0];
  const auto* hDropDown = qobject_cast<QComboBox*>(hField->hWidget);
  if (hDropDown && std::to_string(hDropDown->currentIndex() + 1) == sArgument[1]) return "";
  const std::string sShown = To_Bytes(Field_Text(*hField));
  if (sShown == sArgument[1]) return "";
  return "control " + sArgument[0] + " shows \"" + sShown + "\", not \"" + sArgument[1] + '"';
}

std::string Play_Answer(Arguments sArgument) {
  constexpr struct {
    std::string_view sAnswer;
    QMessageBox::StandardButton iButton;
  } hAnswer[] = {
      {"ok",     QMessageBox::Ok    },
      {"cancel", QMessageBox::Cancel},
      {"yes",    QMessageBox::Yes   },
      {"no",     QMessageBox::No    }
  };
  for (const auto& hRow : hAnswer) {
    if (hRow.sAnswer != sArgument[0]) continue;
    QAbstractButton* hButton = Open_Box()->button(hRow.iButton);
    if (!hButton) return "the message box has no button " + sArgument[0];
    hButton->click();
    return "";
  }
  return "an answer is ok, cancel, yes or no, not " + sArgument[0];
}

std::string Play_File(Arguments sArgument) {
  const std::string& sPath = sArgument[0];
  QDialog& hDialog = *Open_File_Dialog();
  if (sPath == "cancel") {
    hDialog.reject();
    return "";
  }
  const QFileInfo hFile(QDir::cleanPath(QDir::current().absoluteFilePath(To_QString(sPath))));
  const bool bSave = Open_File_Dialog()->acceptMode() == QFileDialog::AcceptSave;
  const QString sSuffix = Open_File_Dialog()->defaultSuffix();
  if (hFile.isDir()) return sPath + " is a folder";
  if (!bSave && !hFile.exists()) return "there is no file " + sPath;
  const bool bAddSuffix = bSave && hFile.suffix().isEmpty() && !sSuffix.isEmpty();
  Choose_File(bAddSuffix ? hFile.filePath() + '.' + sSuffix : hFile.filePath());
  return "";
}

}  // namespace quillan::toolkit
