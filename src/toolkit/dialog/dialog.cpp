#include "toolkit/dialog/dialog.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFile>
#include <QFontDatabase>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>
#include <QSignalBlocker>
#include <QSlider>
#include <QUiLoader>
#include <QVBoxLayout>
#include <algorithm>
#include <memory>

#include "toolkit/draw/last_error.h"
#include "toolkit/window/private.h"

namespace quillan {

using namespace toolkit;

namespace {

// Dialogs that are loaded, in the order of their loading, and the one that calls act on (0: none).
std::vector<std::unique_ptr<DialogRecord>> hLoaded;
I4 iCurrent = 0;
I4 iLastExit = 0;

/// A button, Esc and the title bar's button end up here. The edit under way comes first: a program that reads the
/// dialog because of the button finds the field complete.
void Push_Button(DialogRecord& hDialog, I4 iButton) {
  for (auto& [iField, hField] : hDialog.hField) {
    Field_Complete(hField);
    Grid_Complete(hField.hWidget);
  }
  if (hDialog.iMode == iShowModal) {
    hDialog.iExit = iButton;
    return;
  }
  Message hMessage;
  hMessage.VALUE1 = iButton;
  Push_Message(MessageType::Button, hMessage);
  if (hDialog.iMode == iShowTool) Focus_Plot();
}

/// The button that Esc and the title bar's button stand for.
I4 Leaving_Button(const DialogRecord& hDialog) {
  return hDialog.hField.contains(iBtnExitReview) ? iBtnExitReview : iBtnCancel;
}

/// The window of a dialog. It closes when the program says so, not by itself.
class FormDialog : public QDialog {
 public:
  using QDialog::QDialog;
  DialogRecord* hDialog = nullptr;

  void reject() override {
    if (hDialog) Push_Button(*hDialog, Leaving_Button(*hDialog));
  }
};

class DialogLoader : public QUiLoader {
 public:
  QWidget* createWidget(const QString& sClass, QWidget* hParent, const QString& sName) override {
    QWidget* hOwn = sClass == "QDialog"        ? new FormDialog(hParent)
                    : sClass == "QSpinBox"     ? New_Integer_Spin(hParent)
                    : sClass == "QTableWidget" ? New_Grid(hParent)
                                               : nullptr;
    if (!hOwn) return QUiLoader::createWidget(sClass, hParent, sName);
    hOwn->setObjectName(sName);
    return hOwn;
  }
};

FormDialog* Load_File(I4 iDialog) {
  QFile hFile(QString(":/dialogs/%1.ui").arg(iDialog));
  if (!hFile.open(QIODevice::ReadOnly)) return nullptr;
  DialogLoader hLoader;
  hLoader.clearPluginPaths();
  return dynamic_cast<FormDialog*>(hLoader.load(&hFile, Main_Window()));
}

/// The button box has the platform's order; its two buttons get the names that the program knows them by.
void Name_Buttons(QDialog& hWindow) {
  auto* hBox = hWindow.findChild<QDialogButtonBox*>();
  if (!hBox) return;
  const auto Name = [hBox](QDialogButtonBox::StandardButton iStandard, I4 iButton, const char* sText) {
    QPushButton* hButton = hBox->button(iStandard);
    if (!hButton) return;
    hButton->setObjectName(QString("c%1").arg(iButton));
    hButton->setText(sText);
    hButton->setIcon({});
    hButton->setDefault(iButton == iBtnContinue);
  };
  Name(QDialogButtonBox::Ok, iBtnContinue, "Continue");
  Name(QDialogButtonBox::Cancel, iBtnCancel, "Cancel");
}

void Set_Fixed_Font(QWidget* hWidget) {
  if (!hWidget->property("fixedFont").toBool()) return;
  QFont hFont = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  hFont.setPointSizeF(hWidget->font().pointSizeF());
  hWidget->setFont(hFont);
}

/// A field that only shows has the colour of what surrounds it.
void Set_Read_Only_Look(QWidget* hWidget) {
  const auto* hLine = qobject_cast<QLineEdit*>(hWidget);
  if (!hLine || !hLine->isReadOnly()) return;
  QPalette hPalette = hWidget->palette();
  hPalette.setColor(QPalette::Base, hPalette.color(QPalette::Window));
  hWidget->setPalette(hPalette);
}

/// Width of the labels in the first column of a group.
I4 Label_Width(const QGridLayout& hGrid) {
  I4 NWidth = 0;
  for (I4 iRow = 0; iRow < hGrid.rowCount(); ++iRow) {
    const QLayoutItem* hItem = hGrid.itemAtPosition(iRow, 0);
    const bool bAlone = hItem && hItem != hGrid.itemAtPosition(iRow, 1);  // a heading goes on into the next column
    if (bAlone && qobject_cast<QLabel*>(hItem->widget())) NWidth = std::max(NWidth, hItem->sizeHint().width());
  }
  return NWidth;
}

/// Fields of groups that stand one above the other begin at the same place.
void Align_Groups(QDialog& hWindow) {
  for (const QVBoxLayout* hColumn : hWindow.findChildren<QVBoxLayout*>()) {
    std::vector<QGridLayout*> hGroup;
    for (I4 I = 0; I < hColumn->count(); ++I) {
      const QWidget* hBox = hColumn->itemAt(I)->widget();
      if (auto* hGrid = hBox ? qobject_cast<QGridLayout*>(hBox->layout()) : nullptr) hGroup.push_back(hGrid);
    }
    I4 NWidth = 0;
    for (const QGridLayout* hGrid : hGroup) NWidth = std::max(NWidth, Label_Width(*hGrid));
    for (QGridLayout* hGrid : hGroup) hGrid->setColumnMinimumWidth(0, NWidth);
  }
}

void Take_Control(DialogRecord& hDialog, QWidget* hWidget) {
  const I4 iField = hWidget->objectName().mid(1).toInt();
  Field& hField = hDialog.hField[iField];
  hField.iField = iField;
  hField.hWidget = hWidget;
  Set_Fixed_Font(hWidget);
  Set_Read_Only_Look(hWidget);
  Field_Watch(hField);
  if (auto* hButton = qobject_cast<QPushButton*>(hWidget))
    QObject::connect(hButton, &QPushButton::clicked, hButton, [&hDialog, iField] { Push_Button(hDialog, iField); });
}

/// Grey remarks behind controls, in the theme's own grey, so that a dark theme shows them too.
void Grey_Notes(QDialog& hWindow) {
  for (QLabel* hNote : hWindow.findChildren<QLabel*>(QRegularExpression("^n[0-9]+$"))) {
    QPalette hPalette = hNote->palette();
    hPalette.setColor(QPalette::WindowText, hPalette.color(QPalette::PlaceholderText));
    hNote->setPalette(hPalette);
  }
}

DialogRecord* Record_of(I4 iDialog) {
  for (auto& hDialog : hLoaded)
    if (hDialog->iDialog == iDialog && hDialog->hWindow) return hDialog.get();
  return nullptr;
}

void Focus_First_Field(QDialog& hWindow) {
  QWidget* hFirst = hWindow.nextInFocusChain();
  const auto Takes_Focus = [&](QWidget* hWidget) {
    return (hWidget->focusPolicy() & Qt::TabFocus) && hWidget->isEnabled() && hWidget->isVisibleTo(&hWindow) &&
           !hWidget->focusProxy();
  };
  while (hFirst != &hWindow && !Takes_Focus(hFirst)) hFirst = hFirst->nextInFocusChain();
  if (hFirst == &hWindow) return;
  hFirst->setFocus(Qt::TabFocusReason);
  if (QLineEdit* hLine = Line_Edit(hFirst)) hLine->selectAll();
}

void Hide(QDialog& hWindow) {
  hWindow.hide();
  Hand_Back_Focus();
}

/// Ends with Cancel where the dialog is taken away under the user's hands.
void Wait_For_Exit(DialogRecord& hDialog) {
  const QPointer<QDialog> hWindow = hDialog.hWindow;
  Wait_Until([&] { return !hWindow || hDialog.iExit != 0; });
  iLastExit = hDialog.iExit != 0 ? hDialog.iExit : iBtnCancel;
  if (hWindow) Hide(*hWindow);
}

/// A field that holds numbers, and a field or label that holds text; null, with the error status set, where there is
/// none.
Field* Find_Number(I4 iField) {
  Field* hField = Find_Field(iField);
  if (!hField || hField->rule.iKind != FieldKind::Text) return hField;
  Set_Error(iErrNoField);
  return nullptr;
}

Field* Find_Text(I4 iField) {
  Field* hField = Find_Field(iField);
  if (!hField) return nullptr;
  const bool bLine = Line_Edit(hField->hWidget) && hField->rule.iKind == FieldKind::Text;
  if (bLine || qobject_cast<QLabel*>(hField->hWidget)) return hField;
  Set_Error(iErrNoField);
  return nullptr;
}

template <class Control>
Control* Find_Control(I4 iField) {
  const Field* hField = Find_Field(iField);
  if (!hField) return nullptr;
  auto* hControl = qobject_cast<Control*>(hField->hWidget);
  if (!hControl) Set_Error(iErrNoField);
  return hControl;
}

void Put_Number(I4 iField, R8 dValue, const EditForm* form) {
  Field* hField = Find_Number(iField);
  if (!hField) return;
  if (form) hField->rule.form = *form;
  if (Field_Show(*hField, Number_Text(dValue, hField->rule))) hField->dPut = dValue;
}

bool Get_Number(I4 iField, R8& dValue) {
  const Field* hField = Find_Number(iField);
  if (!hField) return false;
  const bool bAsPut = Field_Is_Unchanged(*hField) && !Field_Text(*hField).isEmpty();
  if (bAsPut) {
    dValue = hField->dPut;
    return true;
  }
  const I4 iStatus = Read_Number(Field_Text(*hField), hField->rule, dValue);
  if (iStatus != iErrNone) Set_Error(iStatus);
  return iStatus == iErrNone;
}

}  // namespace

namespace toolkit {

DialogRecord* Current_Record() {
  DialogRecord* hDialog = Record_of(iCurrent);
  if (!hDialog) Set_Error(iErrNoDialog);
  return hDialog;
}

Field* Known_Field(I4 iField) {
  DialogRecord* hDialog = Record_of(iCurrent);
  if (!hDialog) return nullptr;
  const auto hFound = hDialog->hField.find(iField);
  return hFound == hDialog->hField.end() ? nullptr : &hFound->second;
}

Field* Find_Field(I4 iField) {
  if (!Current_Record()) return nullptr;
  Field* hField = Known_Field(iField);
  if (!hField) Set_Error(iErrNoField);
  return hField;
}

const std::vector<std::unique_ptr<DialogRecord>>& Loaded_Dialogs() {
  return hLoaded;
}

void Place(QDialog& hWindow, const QRect& hUnder, I4 iX, I4 iY) {
  const QWidget* hMain = Main_Window();
  const QScreen* hScreen = hMain ? hMain->screen() : hWindow.screen();
  const QRect hAvailable = hScreen->availableGeometry();
  const QSize hSize = hWindow.size();
  const QPoint hMiddle = hUnder.center() - QPoint(hSize.width(), hSize.height()) / 2;
  const I4 iLeft = iX == iCentred ? hMiddle.x() : hUnder.left() + iX;
  const I4 iTop = iY == iCentred ? hMiddle.y() : hUnder.top() + iY;
  const I4 iRightmost = std::max(hAvailable.left(), hAvailable.right() - hSize.width());
  const I4 iLowest = std::max(hAvailable.top(), hAvailable.bottom() - hSize.height());
  hWindow.move(std::clamp(iLeft, hAvailable.left(), iRightmost), std::clamp(iTop, hAvailable.top(), iLowest));
}

QDialog* Current_Dialog() {
  const DialogRecord* hDialog = Record_of(iCurrent);
  return hDialog && hDialog->hWindow->isVisible() ? hDialog->hWindow.data() : nullptr;
}

QWidget* Box_Parent() {
  const DialogRecord* hDialog = Record_of(iCurrent);
  const bool bOverDialog = hDialog && hDialog->hWindow->isVisible() && hDialog->iMode != iShowTool;
  return bOverDialog ? static_cast<QWidget*>(hDialog->hWindow) : Main_Window();
}

void Hand_Back_Focus() {
  QWidget* hTop = Main_Window();
  for (const auto& hDialog : hLoaded)
    if (hDialog->hWindow && hDialog->hWindow->isVisible() && hDialog->iMode != iShowTool) hTop = hDialog->hWindow;
  if (hTop) hTop->activateWindow();
}

}  // namespace toolkit

void WDialogLoad(I4 iDialog) {
  std::erase_if(hLoaded, [](const auto& hDialog) { return !hDialog->hWindow; });
  if (Record_of(iDialog)) {
    iCurrent = iDialog;
    return;
  }
  FormDialog* hWindow = qApp ? Load_File(iDialog) : nullptr;
  if (!hWindow) {
    Set_Error(iErrNoDialog);
    return;
  }
  auto& hDialog = *hLoaded.emplace_back(std::make_unique<DialogRecord>());
  hDialog.iDialog = iDialog;
  hDialog.hWindow = hWindow;
  hWindow->hDialog = &hDialog;
  Name_Buttons(*hWindow);
  Grey_Notes(*hWindow);
  Align_Groups(*hWindow);
  for (QWidget* hWidget : hWindow->findChildren<QWidget*>(QRegularExpression("^c[0-9]+$")))
    Take_Control(hDialog, hWidget);
  iCurrent = iDialog;
}

void WDialogSelect(I4 iDialog) {
  if (iDialog == 0 || Record_of(iDialog))
    iCurrent = iDialog;
  else
    Set_Error(iErrNoDialog);
}

I4 WDialogShow(I4 iX, I4 iY, I4 iMode) {
  DialogRecord* hDialog = Current_Record();
  if (!hDialog) return 0;
  QDialog& hWindow = *hDialog->hWindow;
  hDialog->iMode = iMode;
  hDialog->iExit = 0;
  if (iMode == iShowTool) {
    Show_Tool(*hDialog, iX, iY);
    return 0;
  }
  hWindow.setWindowModality(iMode == iShowModal ? Qt::ApplicationModal : Qt::NonModal);
  if (!hWindow.testAttribute(Qt::WA_WState_Created)) {  // shown again, it stays where the user left it
    hWindow.adjustSize();
    Place(hWindow, Main_Window() ? Main_Window()->frameGeometry() : hWindow.screen()->availableGeometry(), iX, iY);
  }
  hWindow.show();
  hWindow.activateWindow();
  Focus_First_Field(hWindow);
  if (iMode != iShowModal) return 0;
  Wait_For_Exit(*hDialog);
  return iLastExit;
}

void WDialogHide() {
  if (const DialogRecord* hDialog = Current_Record()) Hide(*hDialog->hWindow);
}

void WDialogUnload() {
  const DialogRecord* hDialog = Current_Record();
  if (!hDialog) return;
  delete hDialog->hWindow;  // before the record, which its signals refer to
  std::erase_if(hLoaded, [](const auto& hOther) { return !hOther->hWindow; });
  iCurrent = 0;
  Hand_Back_Focus();
}

void WDialogTitle(std::string_view sTitle) {
  if (const DialogRecord* hDialog = Current_Record()) hDialog->hWindow->setWindowTitle(To_QString(sTitle));
}

I4 WInfoDialog(I4 iSelect) {
  switch (iSelect) {
    case iExitButton: return iLastExit;
    case iCurrentDialog: return Record_of(iCurrent) ? iCurrent : 0;
    case iExitButtonCommon: return Box_Exit();
    case iDialogWidth: break;
    default: Set_Error(iErrBadArgument); return 0;
  }
  const DialogRecord* hDialog = Current_Record();
  if (!hDialog) return 0;
  if (!hDialog->hWindow->testAttribute(Qt::WA_WState_Created)) hDialog->hWindow->adjustSize();
  return hDialog->hWindow->width();
}

void WDialogPutString(I4 iField, std::string_view sText) {
  Field* hField = Find_Text(iField);
  if (hField && Field_Show(*hField, To_QString(sText))) hField->sPut = sText;
}

void WDialogGetString(I4 iField, std::string& sText) {
  const Field* hField = Find_Text(iField);
  if (!hField) return;
  sText = Field_Is_Unchanged(*hField) ? hField->sPut : To_Bytes(Field_Text(*hField));
}

void WDialogPutInteger(I4 iField, I4 iValue) {
  Put_Number(iField, iValue, nullptr);
}

void WDialogGetInteger(I4 iField, I4& iValue) {
  R8 dValue = 0.0;
  if (Get_Number(iField, dValue)) iValue = static_cast<I4>(dValue);
}

void WDialogRangeInteger(I4 iField, I4 iLow, I4 iHigh) {
  WDialogRangeReal(iField, iLow, iHigh);
}

void WDialogPutReal(I4 iField, R4 fValue, const EditForm& form) {
  Put_Number(iField, static_cast<R8>(fValue), &form);
}

void WDialogGetReal(I4 iField, R4& fValue) {
  R8 dValue = 0.0;
  if (Get_Number(iField, dValue)) fValue = static_cast<R4>(dValue);
}

void WDialogPutDouble(I4 iField, R8 dValue, const EditForm& form) {
  Put_Number(iField, dValue, &form);
}

void WDialogGetDouble(I4 iField, R8& dValue) {
  Get_Number(iField, dValue);
}

void WDialogRangeReal(I4 iField, R8 dLow, R8 dHigh) {
  if (Field* hField = Find_Number(iField)) Field_Set_Range(*hField, dLow, dHigh);
}

void WDialogPutCheckBox(I4 iField, bool bOn) {
  auto* hBox = Find_Control<QCheckBox>(iField);
  if (!hBox) return;
  hBox->setChecked(bOn);
  Field* hField = Find_Field(iField);
  hField->sComplete = Field_Text(*hField);
}

void WDialogGetCheckBox(I4 iField, bool& bOn) {
  if (const auto* hBox = Find_Control<QCheckBox>(iField)) bOn = hBox->isChecked();
}

void WDialogPutMenu1(I4 iField, std::span<const std::string> sEntry, I4 iSelect) {
  auto* hDropDown = Find_Control<QComboBox>(iField);
  if (!hDropDown || hDropDown->view()->isVisible()) return;  // the user is just choosing
  hDropDown->clear();
  for (const std::string& sText : sEntry) hDropDown->addItem(To_QString(sText));
  hDropDown->setCurrentIndex(iSelect - 1);
  Field* hField = Find_Field(iField);
  hField->sComplete = Field_Text(*hField);
}

void WDialogGetMenu1(I4 iField, I4& iSelect) {
  const auto* hDropDown = Find_Control<QComboBox>(iField);
  if (!hDropDown) return;
  if (hDropDown->currentIndex() < 0)
    Set_Error(iErrFieldEmpty);
  else
    iSelect = hDropDown->currentIndex() + 1;
}

void WDialogRangeTrackbar(I4 iField, I4 iLow, I4 iHigh, I4 iStep) {
  auto* hTrackbar = Find_Control<QSlider>(iField);
  if (!hTrackbar) return;
  const QSignalBlocker hNoMessage(hTrackbar);
  hTrackbar->setRange(iLow, iHigh);
  hTrackbar->setPageStep(iStep);
  Field* hField = Find_Field(iField);
  hField->sComplete = Field_Text(*hField);
}

void WDialogPutTrackbar(I4 iField, I4 iValue) {
  auto* hTrackbar = Find_Control<QSlider>(iField);
  if (!hTrackbar || hTrackbar->isSliderDown()) return;
  const QSignalBlocker hNoMessage(hTrackbar);
  hTrackbar->setValue(iValue);
  Field* hField = Find_Field(iField);
  if (Field_Show(*hField, {})) hField->dPut = iValue;
}

void WDialogGetTrackbar(I4 iField, I4& iValue) {
  const auto* hTrackbar = Find_Control<QSlider>(iField);
  if (!hTrackbar) return;
  const Field& hField = *Find_Field(iField);
  iValue = Field_Is_Unchanged(hField) ? static_cast<I4>(hField.dPut) : hTrackbar->value();
}

void WDialogFieldState(I4 iField, I4 iState) {
  const Field* hField = Find_Field(iField);
  if (!hField) return;
  hField->hWidget->setEnabled(iState != 0);
  for (QLabel* hLabel : hField->hWidget->window()->findChildren<QLabel*>())
    if (hLabel->buddy() == hField->hWidget) hLabel->setEnabled(iState != 0);
}

void WDialogPutNote(I4 iField, std::string_view sNote) {
  const DialogRecord* hDialog = Current_Record();
  if (!hDialog) return;
  auto* hNote = hDialog->hWindow->findChild<QLabel*>(QString("n%1").arg(iField));
  if (hNote)
    hNote->setText(To_QString(sNote));
  else
    Set_Error(iErrNoField);
}

namespace {

template <class Value>
std::optional<Value> Read_Field(void (*Get)(I4, Value&), I4 iField) {
  Value hValue{};
  InfoError();
  Get(iField, hValue);
  if (InfoError() != iErrNone) return std::nullopt;
  return hValue;
}

}  // namespace

std::optional<std::string> WDialogGetString(I4 iField) {
  return Read_Field<std::string>(WDialogGetString, iField);
}

std::optional<I4> WDialogGetInteger(I4 iField) {
  return Read_Field<I4>(WDialogGetInteger, iField);
}

std::optional<R4> WDialogGetReal(I4 iField) {
  return Read_Field<R4>(WDialogGetReal, iField);
}

std::optional<R8> WDialogGetDouble(I4 iField) {
  return Read_Field<R8>(WDialogGetDouble, iField);
}

std::optional<bool> WDialogGetCheckBox(I4 iField) {
  return Read_Field<bool>(WDialogGetCheckBox, iField);
}

std::optional<I4> WDialogGetMenu1(I4 iField) {
  return Read_Field<I4>(WDialogGetMenu1, iField);
}

std::optional<I4> WDialogGetTrackbar(I4 iField) {
  return Read_Field<I4>(WDialogGetTrackbar, iField);
}

}  // namespace quillan
