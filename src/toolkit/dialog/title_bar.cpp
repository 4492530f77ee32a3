// title_bar.cpp: the title bar of a tool window. A window system's own would keep the double click to itself.
#include <QApplication>
#include <QBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QStyle>
#include <QToolButton>
#include <QWindow>

#include "toolkit/dialog/private_dialog.h"

namespace quillan::toolkit {
namespace {

constexpr I4 NBeside = 6;  // pixels between the left edge and the title

class TitleBar : public QWidget {
 public:
  explicit TitleBar(QDialog& hDialog) : QWidget(&hDialog), hWindow(hDialog) {
    auto* hTitle = new QLabel(hDialog.windowTitle(), this);
    hTitle->setTextFormat(Qt::PlainText);
    QObject::connect(&hDialog, &QWidget::windowTitleChanged, hTitle, &QLabel::setText);
    auto* hClose = new QToolButton(this);
    hClose->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    hClose->setAutoRaise(true);
    hClose->setFocusPolicy(Qt::NoFocus);
    hClose->setToolTip("Close");
    QObject::connect(hClose, &QToolButton::clicked, &hDialog, &QWidget::close);
    auto* hRow = new QHBoxLayout(this);
    hRow->setContentsMargins(NBeside, 1, 1, 1);
    hRow->addWidget(hTitle, 1);
    hRow->addWidget(hClose);
    setBackgroundRole(QPalette::Midlight);
    setAutoFillBackground(true);
  }

  /// Up to the bar alone, so that the plot under the window is seen, and down again.
  void Roll() {
    bRolled = !bRolled;
    hWindow.layout()->setSizeConstraint(bRolled ? QLayout::SetNoConstraint : QLayout::SetFixedSize);
    if (bRolled) return hWindow.setFixedSize(hWindow.width(), height());
    hWindow.layout()->activate();
  }

 protected:
  void mousePressEvent(QMouseEvent* hEvent) override {
    bHeld = hEvent->button() == Qt::LeftButton;
    hPressed = hEvent->globalPosition().toPoint();
    hGrip = hPressed - hWindow.pos();
  }
  void mouseReleaseEvent(QMouseEvent*) override { bHeld = bMoving = false; }
  void mouseDoubleClickEvent(QMouseEvent* hEvent) override {
    if (hEvent->button() == Qt::LeftButton) Roll();
  }

  /// An unsteady click moves nothing. The window system moves the window where it can; then no release arrives here.
  void mouseMoveEvent(QMouseEvent* hEvent) override {
    const QPoint hNow = hEvent->globalPosition().toPoint();
    if (!bHeld || (!bMoving && (hNow - hPressed).manhattanLength() < QApplication::startDragDistance())) return;
    if (!bMoving && hWindow.windowHandle() && hWindow.windowHandle()->startSystemMove()) {
      bHeld = false;
      return;
    }
    bMoving = true;
    hWindow.move(hNow - hGrip);
  }

 private:
  QDialog& hWindow;
  QPoint hPressed;  // on the screen
  QPoint hGrip;     // from the window's corner to where it is held
  bool bHeld = false;
  bool bMoving = false;
  bool bRolled = false;
};

}  // namespace

void Add_Title_Bar(QDialog& hWindow) {
  auto* hColumn = qobject_cast<QBoxLayout*>(hWindow.layout());
  if (!hColumn) return;
  auto* hBar = new TitleBar(hWindow);
  hColumn->setMenuBar(hBar);  // at the top, from edge to edge
  const QMargins hMargins = hColumn->contentsMargins();
  hColumn->addStrut(hBar->sizeHint().width() - hMargins.left() - hMargins.right());
}

QWidget* Title_Bar(const QDialog& hWindow) {
  return hWindow.layout() ? hWindow.layout()->menuBar() : nullptr;
}

void Roll_Title_Bar(const QDialog& hWindow) {
  if (auto* hBar = dynamic_cast<TitleBar*>(Title_Bar(hWindow))) hBar->Roll();
}

}  // namespace quillan::toolkit
