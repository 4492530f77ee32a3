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
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTableWidget>

#include "toolkit/dialog/private_dialog.h"
#include "toolkit/script/private_names.h"
#include "toolkit/script/private_script.h"
#include "toolkit/window/private_window.h"

namespace quillan::toolkit {
namespace {

/// The field that a word means among those of its kind; null and the reason where it means none.
Field* Field_Meant(const std::string& sWord, const std::string& sKind, bool (*bFits)(QWidget*), std::string& sReason) {
  const Meant hMeant = Number_Meant(sWord, Named_Controls(bFits), "the dialog has no", sKind);
  Field* hField = hMeant.sReason.empty() ? Known_Field(hMeant.iNumber) : nullptr;
  if (!hField) sReason = hMeant.sReason.empty() ? "the dialog has no " + sKind + ' ' + sWord : hMeant.sReason;
  return hField;
}

/// The control that the first argument names, if it is of that kind and can be used; else null and the reason.
template <class Control>
Control* Usable(Arguments sArgument, const char* sKind, std::string& sReason, bool (*bFits)(QWidget*) = Is_a<Control>) {
  const std::string sName = std::string(sKind) + ' ' + sArgument[0];
  const Field* hField = Field_Meant(sArgument[0], sKind, bFits, sReason);
  if (!hField) return nullptr;
  if (!bFits(hField->hWidget))
    sReason = "the dialog has no " + sName;
  else if (!hField->hWidget->isEnabled())
    sReason = sName + " is greyed";
  return sReason.empty() ? qobject_cast<Control*>(hField->hWidget) : nullptr;
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

/// A button or a label that belongs to a field shows only what it is called.
bool Shows_Something(QWidget* hWidget) {
  const auto* hLabel = qobject_cast<QLabel*>(hWidget);
  return !qobject_cast<QPushButton*>(hWidget) && (!hLabel || !hLabel->buddy());
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

std::string Choose_Row(QTableWidget* hGrid, const std::string& sRow) {
  const auto [iRow, sReason] = Number_Meant(sRow, Named_Rows(*hGrid), "the table has no", "row");
  if (!sReason.empty()) return sReason;
  if (iRow < 1 || iRow > hGrid->rowCount()) return "the table has " + std::to_string(hGrid->rowCount()) + " rows";
  Take_Focus(hGrid);
  hGrid->setCurrentCell(iRow - 1, 0);
  return "";
}

std::string Choose_Entry(QComboBox* hDropDown, const std::string& sEntry) {
  const auto [iEntry, sReason] = Number_Meant(sEntry, Named_Entries(*hDropDown), "the drop-down has no", "entry");
  if (!sReason.empty()) return sReason;
  if (iEntry < 1 || iEntry > hDropDown->count())
    return "the drop-down has " + std::to_string(hDropDown->count()) + " entries";
  Take_Focus(hDropDown);
  hDropDown->setCurrentIndex(iEntry - 1);
  emit hDropDown->activated(iEntry - 1);
  return "";
}

/// Clicks a cell with a check box unless it shows the wanted state already.
std::string Switch_Cell(QTableWidget* hGrid, const QTableWidgetItem* hItem, std::string_view sValue) {
  if (sValue != "on" && sValue != "off") return "a box is on or off";
  Take_Focus(hGrid);
  hGrid->scrollToItem(hItem);
  if ((hItem->checkState() == Qt::Checked) == (sValue == "on")) return "";
  const QPointF hPlace = hGrid->visualItemRect(hItem).center();
  for (const auto& [iType, iHeld] :
       {std::pair(QEvent::MouseButtonPress, Qt::LeftButton), std::pair(QEvent::MouseButtonRelease, Qt::NoButton)}) {
    QMouseEvent hEvent(iType, hPlace, hGrid->viewport()->mapToGlobal(hPlace), Qt::LeftButton, iHeld, Qt::NoModifier);
    QApplication::sendEvent(hGrid->viewport(), &hEvent);
  }
  return "";
}

std::string Edit_Cell(QTableWidget* hGrid, I4 iRow, I4 iColumn, std::string_view sValue) {
  constexpr auto iChanges = Qt::ItemIsEnabled | Qt::ItemIsEditable;
  QTableWidgetItem* hItem = hGrid->item(iRow - 1, iColumn - 1);
  const bool bBox = hItem && hItem->data(Qt::CheckStateRole).isValid();
  if (bBox && (hItem->flags() & Qt::ItemIsEnabled)) return Switch_Cell(hGrid, hItem, sValue);
  if (!hItem || (hItem->flags() & iChanges) != iChanges) return "the cell cannot be edited";
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
  Field* hField = Field_Meant(sArgument[0], "field", Is_Line, sReason);
  if (!hField) return sReason;
  QLineEdit* hLine = Line_Edit(hField->hWidget);
  if (!hLine) return "control " + sArgument[0] + " is no text or number field";
  if (!hField->hWidget->isEnabled()) return "field " + sArgument[0] + " is greyed";
  if (hLine->isReadOnly()) return "field " + sArgument[0] + " cannot be edited";
  Take_Focus(hField->hWidget);
  Type_Over(hLine, sArgument[1]);
  Field_Complete(*hField);
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
  auto* hList = Usable<QWidget>(sArgument, "drop-down or list", sReason, Is_Chosen_From);
  if (!hList) return sReason;
  if (auto* hGrid = qobject_cast<QTableWidget*>(hList)) return Choose_Row(hGrid, sArgument[1]);
  return Choose_Entry(qobject_cast<QComboBox*>(hList), sArgument[1]);
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
  const auto [iRow, sNoRow] = Number_Meant(sArgument[1], Named_Rows(*hGrid), "the grid has no", "row");
  const auto [iColumn, sNoColumn] = Number_Meant(sArgument[2], Named_Columns(*hGrid), "the grid has no", "column");
  if (!sNoRow.empty() || !sNoColumn.empty()) return sNoRow + sNoColumn;
  if (iRow < 1 || iRow > hGrid->rowCount() || iColumn < 1 || iColumn > hGrid->columnCount())
    return "the grid has " + std::to_string(hGrid->rowCount()) + " rows and " + std::to_string(hGrid->columnCount()) +
           " columns";
  if (auto* hDropDown = qobject_cast<QComboBox*>(hGrid->cellWidget(iRow - 1, iColumn - 1)))
    return Choose_Entry(hDropDown, sArgument[3]);
  return Edit_Cell(hGrid, iRow, iColumn, sArgument[3]);
}

std::string Play_Field(Arguments sArgument) {
  std::string sReason;
  const Field* hField = Field_Meant(sArgument[0], "control", Shows_Something, sReason);
  if (!hField) return sReason;
  const auto* hDropDown = qobject_cast<QComboBox*>(hField->hWidget);
  if (hDropDown && std::to_string(hDropDown->currentIndex() + 1) == sArgument[1]) return "";
  const std::string sShown = To_Bytes(Field_Text(*hField));
  if (sShown == sArgument[1]) return "";
  return "control " + sArgument[0] + " shows \"" + sShown + "\", not \"" + sArgument[1] + '"';
}

namespace {

constexpr struct {
  std::string_view sAnswer;
  QMessageBox::StandardButton iButton;
} hAnswer[] = {
    {"ok",     QMessageBox::Ok    },
    {"cancel", QMessageBox::Cancel},
    {"yes",    QMessageBox::Yes   },
    {"no",     QMessageBox::No    }
};
constexpr std::string_view sQuiet = "quiet";

}  // namespace

std::string Answer_Words(const QMessageBox& hBox) {
  const auto iClicked = hBox.standardButton(hBox.clickedButton());
  for (const auto& hRow : hAnswer) {
    if (hRow.iButton != iClicked) continue;
    const bool bQuiet = hBox.checkBox() && hBox.checkBox()->isChecked();
    return std::string(hRow.sAnswer).append(bQuiet ? " " : "").append(bQuiet ? sQuiet : "");
  }
  return "";
}

std::string Play_Answer(Arguments sArgument) {
  for (const auto& hRow : hAnswer) {
    if (hRow.sAnswer != sArgument[0]) continue;
    QAbstractButton* hButton = Open_Box()->button(hRow.iButton);
    if (!hButton) return "the message box has no button " + sArgument[0];
    if (sArgument.size() > 1 && (sArgument[1] != sQuiet || !Open_Box()->checkBox()))
      return "the message box has no " + sArgument[1];
    if (sArgument.size() > 1) Open_Box()->checkBox()->setChecked(true);
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
