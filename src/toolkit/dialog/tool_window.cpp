// tool_window.cpp: tool windows, the dialogs that lie beside a plot: they stay above the main window, never take the
// keyboard away from the plot, and stay where the user has put them.
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QWheelEvent>
#include <algorithm>
#include <optional>

#include "toolkit/dialog/private_dialog.h"
#include "toolkit/window/private_window.h"

namespace quillan::toolkit {
namespace {

constexpr I4 NMsecSettle = 500;  // in which a window system gives a new window its final place

/// The property of the main window that keeps where the user has put a dialog: as long as the window is open.
QByteArray Place_Name(const DialogRecord& hDialog) {
  return "place" + QByteArray::number(hDialog.iDialog);
}

bool Is_Tool_on_Show(const DialogRecord& hDialog) {
  return hDialog.iMode == iShowTool && hDialog.hWindow && hDialog.hWindow->isVisible();
}

/// The field whose text line a widget is, or whose step buttons go with one; null for anything else.
Field* Field_of_Line(DialogRecord& hDialog, const QObject* hTarget) {
  for (auto& [iField, hField] : hDialog.hField)
    if (Line_Edit(hField.hWidget) && (hTarget == hField.hWidget || hTarget == Line_Edit(hField.hWidget)))
      return &hField;
  return nullptr;
}

bool Is_Cell_Edited(const DialogRecord& hDialog) {
  return std::ranges::any_of(hDialog.hField, [](const auto& hRow) { return Grid_Is_Edited(hRow.second.hWidget); });
}

/// A key in a text line: Enter ends the edit, Esc takes it back, and either gives the keyboard back to the plot. What
/// the field does not want goes to the plot. False: the line takes the key itself.
bool On_Key_in_Line(Field& hField, const QKeyEvent& hKey) {
  switch (hKey.key()) {
    case Qt::Key_Escape: Line_Edit(hField.hWidget)->setText(hField.sComplete); [[fallthrough]];
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Tab:
    case Qt::Key_Backtab: Focus_Plot(); return true;
    default: return !Field_Wants(hField, hKey) && Key_to_Plot(hKey);
  }
}

/// Watches a tool window and its controls.
class ToolWatch : public QObject {
 public:
  explicit ToolWatch(DialogRecord& hRecord) : QObject(hRecord.hWindow), hDialog(hRecord), hWindow(hRecord.hWindow) {}

 protected:
  bool eventFilter(QObject* hTarget, QEvent* hEvent) override {
    const bool bWindow = hTarget == hWindow;
    switch (hEvent->type()) {
      case QEvent::KeyPress: return On_Key(hTarget, *static_cast<QKeyEvent*>(hEvent));
      case QEvent::Wheel: Wheel_to_Plot(*static_cast<QWheelEvent*>(hEvent)); return true;
      case QEvent::MouseButtonPress:
        if (!Field_of_Line(hDialog, hTarget)) Complete_Edits();
        return false;
      case QEvent::MouseButtonRelease: After_Click(hTarget); return false;
      case QEvent::FocusIn: bEntered = true; return false;
      case QEvent::Show:
        if (bWindow) hSinceShown.start();
        return false;
      case QEvent::Move:
        if (bWindow) Push_Message({.iType = MessageType::Expose});  // the plot's title makes room for it
        if (bWindow && hDialog.hWindow->isVisible() && hSinceShown.hasExpired(NMsecSettle) && Main_Window())
          Main_Window()->setProperty(Place_Name(hDialog), hDialog.hWindow->pos());
        return false;
      default: return false;
    }
  }

 private:
  bool On_Key(QObject* hTarget, const QKeyEvent& hKey) {
    if (Field* hField = Field_of_Line(hDialog, hTarget)) return On_Key_in_Line(*hField, hKey);
    Key_to_Plot(hKey);
    return true;  // the window's own keys would close it and push its buttons
  }

  /// A number that is entered by a click is selected: typing replaces it. Any other control hands the keyboard back
  /// when it has carried out the click; a drop-down list that has opened keeps it.
  void After_Click(const QObject* hTarget) {
    if (const Field* hField = Field_of_Line(hDialog, hTarget)) {
      QLineEdit* hLine = Line_Edit(hField->hWidget);
      if (bEntered && !hLine->hasSelectedText()) hLine->selectAll();
      bEntered = false;
      return;
    }
    const auto Give = [this] {
      if (!QApplication::activePopupWidget() && !Is_Cell_Edited(hDialog)) Focus_Plot();
    };
    QMetaObject::invokeMethod(this, Give, Qt::QueuedConnection);
  }

  DialogRecord& hDialog;
  const QObject* const hWindow;  // only compared: events come while it is being deleted, too
  QElapsedTimer hSinceShown;
  bool bEntered = false;  // a field has just got the focus
};

/// Only text fields and cells that are edited take the keyboard, and only where they are clicked.
void Take_Away_Focus(QWidget* hWidget) {
  hWidget->setFocusPolicy(Line_Edit(hWidget) ? Qt::ClickFocus : Qt::NoFocus);
  if (auto* hButton = qobject_cast<QPushButton*>(hWidget)) hButton->setAutoDefault(false);
  if (auto* hDropDown = qobject_cast<QComboBox*>(hWidget))
    QObject::connect(hDropDown, &QComboBox::activated, hDropDown, [] { Focus_Plot(); });
}

/// Makes a tool window of a dialog that was not shown yet.
void Prepare(DialogRecord& hDialog) {
  QDialog& hWindow = *hDialog.hWindow;
  bool bText = false;
  auto* hWatch = new ToolWatch(hDialog);
  hWindow.installEventFilter(hWatch);
  for (auto& [iField, hField] : hDialog.hField) {
    QWidget* hCells = Grid_Cells(hField.hWidget);
    bText = bText || hCells || Line_Edit(hField.hWidget);
    Take_Away_Focus(hField.hWidget);
    hField.hWidget->installEventFilter(hWatch);
    if (hCells) hCells->installEventFilter(hWatch);
  }
  if (QWidget* hBar = Title_Bar(hWindow)) hBar->installEventFilter(hWatch);
  hWindow.setWindowFlags(Qt::Tool | Qt::FramelessWindowHint |
                         (bText ? Qt::WindowFlags() : Qt::WindowDoesNotAcceptFocus));
  hWindow.setAttribute(Qt::WA_ShowWithoutActivating);
  if (hWindow.layout()) hWindow.layout()->setSizeConstraint(QLayout::SetFixedSize);
  hWindow.adjustSize();
}

/// The place beside a window, level with its top; nothing where the screen has no room there.
std::optional<QPoint> Place_Beside(const QWidget& hMain, QSize hSize) {
  const QRect hFrame = hMain.frameGeometry();
  const QRect hAvailable = hMain.screen()->availableGeometry();
  for (const I4 iLeft : {hFrame.right() + 1, hFrame.left() - hSize.width()}) {
    const QRect hPlace(QPoint(iLeft, hFrame.top()), hSize);
    if (hAvailable.contains(hPlace)) return hPlace.topLeft();
  }
  return std::nullopt;
}

void Place_Tool(const DialogRecord& hDialog, I4 iX, I4 iY) {
  QDialog& hTool = *hDialog.hWindow;
  const QWidget* hMain = Main_Window();
  const QWidget* hArea = Drawing_Area();
  if (!hMain || !hArea) return Place(hTool, hTool.screen()->geometry(), iX, iY);
  const QVariant hUser = hMain->property(Place_Name(hDialog));
  if (hUser.isValid() && QGuiApplication::screenAt(hUser.toPoint())) return hTool.move(hUser.toPoint());
  if (const auto hBeside = Place_Beside(*hMain, hTool.size())) return hTool.move(*hBeside);
  Place(hTool, QRect(hArea->mapToGlobal(QPoint()), hArea->size()), iX, iY);
}

}  // namespace

void Show_Tool(DialogRecord& hDialog, I4 iX, I4 iY) {
  if (Is_Tool_on_Show(hDialog)) return;
  QDialog& hWindow = *hDialog.hWindow;
  if (!hWindow.testAttribute(Qt::WA_WState_Created)) Prepare(hDialog);
  Place_Tool(hDialog, iX, iY);
  hWindow.show();
  Focus_Plot();  // not every window system shows a window without making it the active one
}

void Complete_Edits() {
  for (const auto& hDialog : Loaded_Dialogs()) {
    if (!Is_Tool_on_Show(*hDialog)) continue;
    for (auto& [iField, hField] : hDialog->hField) {
      if (Line_Edit(hField.hWidget)) Field_Complete(hField);
      Grid_Complete(hField.hWidget);
    }
  }
}

void Focus_Plot() {
  Complete_Edits();
  for (const auto& hDialog : Loaded_Dialogs()) {
    if (!Is_Tool_on_Show(*hDialog)) continue;
    if (QWidget* hFocus = hDialog->hWindow->focusWidget()) hFocus->clearFocus();
    if (QApplication::activeWindow() == hDialog->hWindow && Main_Window()) Main_Window()->activateWindow();
  }
}

}  // namespace quillan::toolkit
