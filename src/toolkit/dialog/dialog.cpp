#include "toolkit/dialog/dialog.h"

#include <QApplication>
#include <QFile>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QUiLoader>
#include <algorithm>

#include "toolkit/dialog/private_dialog.h"
#include "toolkit/window/private_window.h"

namespace quillan {

using namespace toolkit;

namespace {

// Dialogs that are loaded, in the order of their loading, and the one that calls act on (0: none).
std::vector<std::unique_ptr<DialogRecord>> hLoaded;
I4 iCurrent = 0;

/// A button, Esc and the title bar's button end up here. The edit under way comes first: a program that reads the
/// dialog because of the button finds the field complete.
void Push_Button(DialogRecord& hDialog, I4 iButton) {
  for (auto& [iField, hField] : hDialog.hField) {
    Field_Complete(hField);
    Grid_Complete(hField.hWidget);
  }
  hDialogListener.Button(iButton);
  if (hDialog.iMode == iShowModal) {
    hDialog.iExit = iButton;
    return;
  }
  Push_Message({.iType = MessageType::Button, .VALUE1 = iButton});
  if (hDialog.iMode == iShowTool) Focus_Plot();
}

/// The button that Esc and the title bar's button stand for: the one that is marked so in the designer file, or Cancel.
I4 Leaving_Button(const DialogRecord& hDialog) {
  for (const auto& [iField, hField] : hDialog.hField)
    if (hField.hWidget->property("leaves").toBool()) return iField;
  return iBtnCancel;
}

/// The window of a dialog. It closes when the program says so, not by itself.
class FormDialog : public QDialog {
 public:
  using QDialog::QDialog;
  DialogRecord* hDialog = nullptr;

  void reject() override {
    if (hDialog) Push_Button(*hDialog, Leaving_Button(*hDialog));
  }

 protected:
  void keyPressEvent(QKeyEvent* hEvent) override {
    if (hEvent->key() == Qt::Key_F1) return Want_Help();
    QDialog::keyPressEvent(hEvent);
  }
  /// A tool window has no frame of the window system's: a line tells it from what is under it.
  void paintEvent(QPaintEvent*) override {
    if (!(windowFlags() & Qt::FramelessWindowHint)) return;
    QPainter hPainter(this);
    hPainter.setPen(palette().color(QPalette::Mid));
    hPainter.drawRect(rect().adjusted(0, 0, -1, -1));
  }
};

/// A loader starts every library that brings widgets to the designer. The dialogs need none: while one of these lives
/// there is nowhere to look for them.
class NoForeignWidgets {
 public:
  NoForeignWidgets() { QCoreApplication::setLibraryPaths({}); }
  ~NoForeignWidgets() { QCoreApplication::setLibraryPaths(sPath); }
  NoForeignWidgets(const NoForeignWidgets&) = delete;
  NoForeignWidgets& operator=(const NoForeignWidgets&) = delete;

 private:
  QStringList sPath = QCoreApplication::libraryPaths();
};

class DialogLoader : public QUiLoader {
 public:
  QWidget* createWidget(const QString& sClass, QWidget* hParent, const QString& sName) override {
    QWidget* hOwn = sClass == "QDialog"         ? new FormDialog(hParent)
                    : sClass == "QSpinBox"      ? New_Integer_Spin(hParent)
                    : sClass == "QTableWidget"  ? New_Grid(hParent)
                    : sClass == "QGraphicsView" ? New_Picture(hParent)
                                                : nullptr;
    if (!hOwn) return QUiLoader::createWidget(sClass, hParent, sName);
    hOwn->setObjectName(sName);
    return hOwn;
  }
};

FormDialog* Load_File(I4 iDialog) {
  QFile hFile(QString(":/dialogs/%1.ui").arg(iDialog));
  if (!hFile.open(QIODevice::ReadOnly)) return nullptr;
  const NoForeignWidgets hNone;
  DialogLoader hLoader;
  return dynamic_cast<FormDialog*>(hLoader.load(&hFile, Main_Window()));
}

void Take_Control(DialogRecord& hDialog, QWidget* hWidget) {
  const I4 iField = hWidget->objectName().mid(1).toInt();
  Field& hField = hDialog.hField[iField];
  hField.iField = iField;
  hField.hWidget = hWidget;
  Field_Watch(hField);
  if (auto* hButton = qobject_cast<QPushButton*>(hWidget))
    QObject::connect(hButton, &QPushButton::clicked, hButton, [&hDialog, iField] { Push_Button(hDialog, iField); });
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
I4 Wait_For_Exit(DialogRecord& hDialog) {
  const QPointer<QDialog> hWindow = hDialog.hWindow;
  Wait_Until([&] { return !hWindow || hDialog.iExit != 0; });
  const I4 iExit = hDialog.iExit != 0 ? hDialog.iExit : iBtnCancel;
  if (hWindow) Hide(*hWindow);
  return iExit;
}

QDialog* Top_Dialog() {
  QDialog* hTop = nullptr;
  for (const auto& hDialog : hLoaded)
    if (hDialog->hWindow && hDialog->hWindow->isVisible() && hDialog->iMode != iShowTool) hTop = hDialog->hWindow;
  return hTop;
}

}  // namespace

namespace toolkit {

DialogRecord* Current_Record() {
  DialogRecord* hDialog = Record_of(iCurrent);
  if (!hDialog) Set_Error(iErrNoDialog);
  return hDialog;
}

DialogRecord* Known_Dialog() {
  return Record_of(iCurrent);
}

Field* Known_Field(I4 iField) {
  DialogRecord* hDialog = Known_Dialog();
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

}  // namespace toolkit

void WDialogLoad(I4 iDialog) {
  std::erase_if(hLoaded, [](const auto& hDialog) { return !hDialog->hWindow; });
  if (Record_of(iDialog)) {
    iCurrent = iDialog;
    return;
  }
  FormDialog* hWindow = qApp ? Load_File(iDialog) : nullptr;
  if (!hWindow) return Set_Error(iErrNoDialog);
  hDialogs = {Complete_Edits, Focus_Plot, Top_Dialog};
  auto& hDialog = *hLoaded.emplace_back(std::make_unique<DialogRecord>());
  hDialog.iDialog = iDialog;
  hDialog.hWindow = hWindow;
  hWindow->hDialog = &hDialog;
  Give_Look(*hWindow);
  for (QWidget* hWidget : Numbered<QWidget>(*hWindow, cControl)) Take_Control(hDialog, hWidget);
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
  {
    const PaintedOnce hOnce(hWindow);
    hWindow.show();
    hWindow.activateWindow();
    Focus_First_Field(hWindow);
  }
  if (iMode != iShowModal) return 0;
  return Wait_For_Exit(*hDialog);
}

void WDialogHide() {
  if (const DialogRecord* hDialog = Current_Record()) Hide(*hDialog->hWindow);
}

void WDialogRoll() {
  if (const DialogRecord* hDialog = Current_Record()) Roll_Title_Bar(*hDialog->hWindow);
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
  if (iSelect == iCurrentDialog) return Record_of(iCurrent) ? iCurrent : 0;
  const DialogRecord* hDialog = Current_Record();
  if (!hDialog) return 0;
  QDialog& hWindow = *hDialog->hWindow;
  if (!hWindow.testAttribute(Qt::WA_WState_Created)) hWindow.adjustSize();
  const QWidget* hArea = Drawing_Area();
  const QPoint hPlace = hWindow.frameGeometry().topLeft() - (hArea ? hArea->mapToGlobal(QPoint()) : QPoint());
  switch (iSelect) {
    case iDialogX: return hPlace.x();
    case iDialogY: return hPlace.y();
    case iDialogWidth: return hWindow.width();
    case iDialogHeight: return hWindow.frameGeometry().height();
    default: Set_Error(iErrBadArgument); return 0;
  }
}

}  // namespace quillan
