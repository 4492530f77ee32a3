#include "toolkit/window/window.h"

#include <QApplication>
#include <QLabel>
#include <QMenuBar>
#include <QPaintEvent>
#include <QPainter>
#include <QPointer>
#include <QProgressBar>
#include <QScreen>
#include <QStatusBar>
#include <QWindow>
#include <algorithm>
#include <utility>

#include "toolkit/draw/draw.h"
#include "toolkit/window/menus.h"
#include "toolkit/window/private_window.h"

namespace quillan {

using namespace toolkit;

namespace {

/// The client area: white paper that shows the backing image.
class DrawingArea : public QWidget {
 public:
  explicit DrawingArea(QWidget* hParent) : QWidget(hParent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(160, 120);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    if (this != Drawing_Area()) {  // a child window is drawn into: what lies below stays as it is
      QPainter(this).drawImage(QRectF(rect()), Image_Below());
      return;
    }
    // The window was moved to a screen with another scale factor: what is drawn must be drawn again, finer or coarser.
    if (Backing_Image().devicePixelRatio() != devicePixelRatioF()) {
      Resize_Backing_Image();
      Push_Message({.iType = MessageType::Expose});
    }
    Flush_Screen();
    QPainter hPainter(this);
    hPainter.drawImage(QPointF(0.0, 0.0), Backing_Image());
    Paint_Overlay(hPainter);
  }
};

constexpr struct {
  I4 iShape;
  Qt::CursorShape iQtShape;
} hCursor[] = {
    {iCursorArrow,  Qt::ArrowCursor       },
    {iCursorTwoWay, Qt::SizeHorCursor     },
    {iCursorPick,   Qt::PointingHandCursor},
    {iCursorCorner, Qt::CrossCursor       },
    {iCursorBox,    Qt::CrossCursor       },
};

// What is open. WindowOpen2 fills it, WindowClose empties it.
struct OpenWindow {
  QPointer<QMainWindow> hMain;
  QPointer<QMainWindow> hChild;
  bool bBarUsable = true;       // of the menu bar, before the child was opened
  QPointer<QLabel> hPart[3];    // of the status bar
  QPointer<QProgressBar> hBar;  // in the status bar, while long work runs
  QPointer<QLabel> hChildBar;   // the child's
  QString sPart2;               // text of the wide part under a hint
  int NBusy = 0;                // calls of WindowBusy that are not taken back
};
OpenWindow hOpen;

/// The size inside the frame that gives the outer size asked for, held to the screen. On a small screen the window is
/// wider than asked for, so that no command of the bar is out of sight.
QSize Inner_Size(const QMainWindow& hMain, I4 NXP, I4 NYP) {
  const QSize hFrame = hMain.frameGeometry().size() - hMain.geometry().size();
  const QSize hLargest = hMain.screen()->availableGeometry().size() - hFrame;
  const QSize hAsked = QSize(NXP, NYP) - hFrame;
  return hAsked.expandedTo(QSize(hMain.menuWidget()->sizeHint().width(), 0)).boundedTo(hLargest);
}

void Show_Main(I4 iXP, I4 iYP, I4 NXP, I4 NYP) {
  QMainWindow& hMain = *hOpen.hMain;
  hMain.move(iXP, iYP);
  hMain.resize(Inner_Size(hMain, NXP, NYP));
  {
    const PaintedOnce hOnce(hMain);
    hMain.show();
  }
  if (QGuiApplication::platformName() == "offscreen") return;  // there are no frames
  QCoreApplication::processEvents();
  hMain.resize(Inner_Size(hMain, NXP, NYP));  // the frame is known only now
}

void Close_Main() {
  WindowCloseChild();
  delete hOpen.hMain;
  for (; hOpen.NBusy > 0; --hOpen.NBusy) QGuiApplication::restoreOverrideCursor();
  hOpen.sPart2.clear();
  Drop_Backing_Image();
  Drop_Messages();
}

}  // namespace

QMainWindow* toolkit::Main_Window() {
  return hOpen.hMain;
}

QMainWindow* toolkit::Child_Window() {
  return hOpen.hChild;
}

QMainWindow* toolkit::Active_Window() {
  return hOpen.hChild ? hOpen.hChild : hOpen.hMain;
}

QWidget* toolkit::Front_Window() {
  QWidget* hTop = hDialogs.Top_Dialog();
  return hTop && !hOpen.hChild ? hTop : Active_Window();
}

void toolkit::Hand_Back_Focus() {
  if (QWidget* hFront = Front_Window()) hFront->activateWindow();
}

void toolkit::Show_Hint(const QString& sHint) {
  if (hOpen.hPart[1]) hOpen.hPart[1]->setText(sHint.isEmpty() ? hOpen.sPart2 : sHint);
}

void toolkit::Suspend_Busy(bool bSuspend) {
  if (hOpen.NBusy > 0) QGuiApplication::changeOverrideCursor(bSuspend ? Qt::ArrowCursor : Qt::WaitCursor);
}

void WindowOpen2(I4 iXP, I4 iYP, I4 NXP, I4 NYP, I4 iMenu, std::string_view sTitle) {
  if (!Make_Application()) return Set_Error(iErrNoWindow);
  if (hOpen.hMain) Close_Main();
  hOpen.hMain = new QMainWindow;
  auto* hArea = new DrawingArea(hOpen.hMain);
  Use_Drawing_Area(hArea);
  hOpen.hMain->setCentralWidget(hArea);
  hOpen.hMain->setContextMenuPolicy(Qt::NoContextMenu);
  hOpen.hMain->menuBar()->setNativeMenuBar(false);  // commands stand on the bar itself, which native bars do not show
  hOpen.hMain->statusBar();  // has its place from the first: the drawing area need not give way when texts come
  Watch_Window(hOpen.hMain, hArea);
  WMenu(iMenu);
  WindowTitle(sTitle);
  Show_Main(iXP, iYP, NXP, NYP);
  hArea->setFocus();
}

namespace {

constexpr QSize hLeastChild(480, 336);  // pixels: a smaller plot has no room for its texts

void Give_Status_Bar(QMainWindow& hWindow) {
  hOpen.hChildBar = new QLabel(hWindow.statusBar());
  hOpen.hChildBar->setTextFormat(Qt::PlainText);
  hOpen.hChildBar->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  hWindow.statusBar()->addWidget(hOpen.hChildBar, 1);
}

/// Shows the child over the middle of the main window, as far as the screen goes.
void Show_Child(I4 NXP, I4 NYP) {
  const QRect hScreen = hOpen.hMain->screen()->availableGeometry();
  const QSize hSize = QSize(NXP, NYP).expandedTo(hLeastChild).boundedTo(hScreen.size());
  const QPoint hCorner = hOpen.hMain->geometry().center() - QPoint(hSize.width(), hSize.height()) / 2;
  const QPoint hLast = hScreen.bottomRight() - QPoint(hSize.width() - 1, hSize.height() - 1);
  hOpen.hChild->setGeometry({
      {std::clamp(hCorner.x(), hScreen.left(), hLast.x()), std::clamp(hCorner.y(), hScreen.top(), hLast.y())},
      hSize
  });
  hOpen.hChild->show();
  hOpen.hChild->activateWindow();
  Drawing_Area()->setFocus();
}

}  // namespace

void WindowOpenChild2(I4 NXP, I4 NYP, std::string_view sTitle) {
  if (!hOpen.hMain) return Set_Error(iErrNoWindow);
  if (hOpen.hChild) return Set_Error(iErrBadArgument);
  IGrFlush();  // what is due is the main window's
  hOpen.bBarUsable = Menu_Bar_Is_Usable();
  WMenuBarState(0);
  hOpen.hChild = new QMainWindow(hOpen.hMain);
  hOpen.hChild->setWindowModality(Qt::WindowModal);
  hOpen.hChild->setWindowTitle(To_QString(sTitle));
  hOpen.hChild->setMinimumSize(hLeastChild);
  Give_Status_Bar(*hOpen.hChild);
  auto* hArea = new DrawingArea(hOpen.hChild);
  Enter_Child_Area(hArea);
  hOpen.hChild->setCentralWidget(hArea);
  Watch_Window(hOpen.hChild, hArea);
  hOpen.hChild->setAcceptDrops(false);
  Show_Child(NXP, NYP);
}

void WindowCloseChild() {
  if (!hOpen.hChild) return;
  Leave_Child_Area();
  delete hOpen.hChild;
  Drop_Child_Messages();
  WMenuBarState(hOpen.bBarUsable ? 1 : 0);
  Follow_Size(MessageType::Resize);  // the main window may have another size by now
  Hand_Back_Focus();
}

void WindowClose() {
  if (!qApp) return;
  Close_Main();
  End_Application();
}

void WindowTitle(std::string_view sTitle) {
  if (!hOpen.hMain) return Set_Error(iErrNoWindow);
  hOpen.hMain->setWindowTitle(To_QString(sTitle) + "[*]");  // where the window system puts its mark
}

void WindowModified(bool bModified) {
  if (!hOpen.hMain) return Set_Error(iErrNoWindow);
  hOpen.hMain->setWindowModified(bModified);
  if (!hOpen.hPart[0]) return;
  hOpen.hPart[0]->setText(bModified ? QString(QChar(0x25CF)) : QString());
  hOpen.hPart[0]->setToolTip(bModified ? "The data differ from those of the file." : "");
}

void WindowStatusBarParts(I4 NWidth1) {
  if (!hOpen.hMain) return Set_Error(iErrNoWindow);
  QStatusBar* hBar = hOpen.hMain->statusBar();
  for (auto& hPart : hOpen.hPart) {
    delete hPart;
    hPart = new QLabel(hBar);
    hPart->setTextFormat(Qt::PlainText);
  }
  hOpen.hPart[0]->setFixedWidth(std::max(NWidth1, 0));
  // A long text does not widen the window.
  hOpen.hPart[1]->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  hOpen.hPart[2]->setMinimumWidth(1);
  hBar->addWidget(hOpen.hPart[0]);
  hBar->addWidget(hOpen.hPart[1], 1);
  hBar->addPermanentWidget(hOpen.hPart[2]);
}

void WindowOutStatusBar(I4 iPart, std::string_view sText) {
  if (!hOpen.hMain) return Set_Error(iErrNoWindow);
  if (hOpen.hChildBar && iPart == iStatusProgress) return hOpen.hChildBar->setText(To_QString(sText));
  if (iPart < 1 || iPart > 3 || !hOpen.hPart[0]) return Set_Error(iErrBadArgument);
  QLabel& hPart = *hOpen.hPart[iPart - 1];
  hPart.setText(To_QString(sText));
  if (iPart == 2) hOpen.sPart2 = hPart.text();
}

void WindowBusy(bool bBusy) {
  if (!hOpen.hMain) return Set_Error(iErrNoWindow);
  if (!bBusy && hOpen.NBusy == 0) return;
  hOpen.NBusy += bBusy ? 1 : -1;
  if (bBusy)
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  else
    QGuiApplication::restoreOverrideCursor();
}

namespace {

constexpr int NBarSteps = 1000;
constexpr int NBarWidth = 160;  // pixels

void Open_Bar() {
  hOpen.hBar = new QProgressBar;
  hOpen.hBar->setTextVisible(false);  // the words stand beside it
  hOpen.hBar->setFixedWidth(NBarWidth);
  hOpen.hBar->setMaximumHeight(hOpen.hPart[1]->fontMetrics().height());  // the status bar keeps its height
  hOpen.hMain->statusBar()->addPermanentWidget(hOpen.hBar);
  WindowBusy(true);
}

}  // namespace

void WindowProgress(R8 dShare, std::string_view sText) {
  if (!hOpen.hMain || !hOpen.hPart[1]) return Set_Error(iErrNoWindow);
  if (!hOpen.hBar) Open_Bar();
  hOpen.hBar->setRange(0, dShare < 0.0 ? 0 : NBarSteps);
  hOpen.hBar->setValue(static_cast<int>(std::min(dShare, 1.0) * NBarSteps));
  hOpen.hPart[1]->setText(To_QString(sText));
}

void WindowProgressEnd() {
  if (!hOpen.hBar) return;
  delete hOpen.hBar;
  WindowBusy(false);
  if (hOpen.hPart[1]) hOpen.hPart[1]->setText(hOpen.sPart2);
}

void WindowBell() {
  if (qApp) QApplication::beep();
}

void WCursorShape(I4 iShape) {
  if (!Drawing_Area()) return Set_Error(iErrNoWindow);
  for (const auto& hRow : hCursor) {
    if (hRow.iShape == iShape) return Drawing_Area()->setCursor(hRow.iQtShape);
  }
  Set_Error(iErrBadArgument);
}

I4 WInfoWindow(I4 iSelect) {
  if (!hOpen.hMain) {
    if (iSelect != iWindowDrawable) Set_Error(iErrNoWindow);
    return 0;
  }
  switch (iSelect) {
    case iWindowWidth: return Drawing_Area()->width();
    case iWindowHeight: return Drawing_Area()->height();
    case iWindowDrawable: return hOpen.hMain->isVisible() ? 1 : 0;
    default: Set_Error(iErrBadArgument); return 0;
  }
}

I4 WInfoScreen(I4 iSelect) {
  const QScreen* hScreen = qApp ? QGuiApplication::primaryScreen() : nullptr;
  if (!hScreen) {
    Set_Error(iErrNoWindow);
    return 0;
  }
  switch (iSelect) {
    case iScreenWidth: return hScreen->size().width();
    case iScreenHeight: return hScreen->size().height();
    default: Set_Error(iErrBadArgument); return 0;
  }
}

}  // namespace quillan
