#include "toolkit/window/window.h"

#include <QApplication>
#include <QIcon>
#include <QLabel>
#include <QLocale>
#include <QMenuBar>
#include <QPaintEvent>
#include <QPainter>
#include <QPointer>
#include <QProgressBar>
#include <QScreen>
#include <QStatusBar>
#include <QTemporaryFile>
#include <QWindow>
#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <iostream>
#include <new>
#include <utility>

#include "platform/arguments.h"
#include "toolkit/draw/draw.h"
#include "toolkit/window/menus.h"
#include "toolkit/window/private_window.h"

// The resources lie in a static library: without this call the linker would leave them out.
static void Load_Resources() {
  Q_INIT_RESOURCE(resources);
}

namespace quillan {

using namespace toolkit;

namespace {

// The screen of a run without a display. Windows have no frame there, so that pictures have the size asked for.
constexpr std::string_view sOffScreen =
    R"({"synchronousWindowSystemEvents": true, "windowFrameMargins": false, "screens": [{"name": "quillan",
        "x": 0, "y": 0, "width": 1920, "height": 1200, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})";

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

// What failed in an event handler. The application fills it, Memory_Has_Ended takes it.
bool bNoMemory = false;

/// Memory that ends in an event handler must not unwind through the window system: whoever waits hears of it.
class Application : public QApplication {
 public:
  using QApplication::QApplication;
  bool notify(QObject* hReceiver, QEvent* hEvent) override {
    try {
      return QApplication::notify(hReceiver, hEvent);
    } catch (const std::bad_alloc&) {
      bNoMemory = true;
      return false;
    }
  }
};

// What is open. WInitialise and WindowOpen2 fill it, WindowClose empties it.
struct OpenWindow {
  QApplication* hApplication = nullptr;
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

// The command line, which the application refers to as long as it lives; null before WInitialise.
int NArgument = 0;
char** hArgument = nullptr;

bool Asks_For_Platform(int argc, char** argv) {
  const auto bPlatform = [](std::string_view sArg) { return sArg == "-platform" || sArg == "--platform"; };
  return qEnvironmentVariableIsSet("QT_QPA_PLATFORM") || std::any_of(argv, argv + argc, bPlatform);
}

bool Has_Display() {
#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
  return !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
#else
  return true;
#endif
}

/// Settles where the window is shown, before the application is made.
void Choose_Platform(int argc, char** argv) {
  if (Asks_For_Platform(argc, argv) || Has_Display()) return;
  if (!hPlayStep) {
    std::cerr << "quillan: there is no display (neither DISPLAY nor WAYLAND_DISPLAY is set).\n"
                 "A session script runs without one: quillan FILE --script STEPS.txt\n";
    std::exit(1);
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");
}

// What Qt remarks on every run without a desktop. Standard error is for what concerns the user.
constexpr const char* sRemark[] = {"This plugin does not support", "QStandardPaths: XDG_RUNTIME_DIR not set"};

void Pass_On(QtMsgType, const QMessageLogContext&, const QString& sText) {
  const bool bRemark = std::ranges::any_of(sRemark, [&](const char* sWords) { return sText.startsWith(sWords); });
  if (!bRemark) std::cerr << To_Bytes(sText) << std::endl;
}

void Make_Application() {
  // The platform reads its screen from a file while the application is made.
  QTemporaryFile hScreen;
  const bool bOffScreen = qgetenv("QT_QPA_PLATFORM") == "offscreen";
  if (bOffScreen && hScreen.open()) {
    hScreen.write(sOffScreen.data(), static_cast<qint64>(sOffScreen.size()));
    hScreen.close();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + hScreen.fileName().toLocal8Bit());
  }
  if (bOffScreen) qInstallMessageHandler(Pass_On);
  hOpen.hApplication = new Application(NArgument, hArgument);
  if (bOffScreen) qputenv("QT_QPA_PLATFORM", "offscreen");

  // The application takes the user's locale; numbers in files and fields are written with a point everywhere.
  std::setlocale(LC_NUMERIC, "C");
  QLocale::setDefault(QLocale::c());
  // No display name: window systems would add it to every title.
  QCoreApplication::setApplicationName("quillan");
  QGuiApplication::setDesktopFileName("quillan");
  QGuiApplication::setQuitOnLastWindowClosed(false);
  Load_Resources();
  QGuiApplication::setWindowIcon(QIcon(":/quillan.png"));
}

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

bool toolkit::Memory_Has_Ended() {
  return std::exchange(bNoMemory, false);
}

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

void WInitialise(int argc, char** argv) {
  NArgument = argc;
  hArgument = argv;
  if (!hOpen.hApplication) {
    Choose_Platform(argc, argv);
    Make_Application();
  }
  // What the application left of the command line is what the program sees.
  System_Set_Arguments(std::vector<std::string>(hArgument, hArgument + NArgument));
}

void WindowOpen2(I4 iXP, I4 iYP, I4 NXP, I4 NYP, I4 iMenu, std::string_view sTitle) {
  if (!hArgument) return Set_Error(iErrNoWindow);
  if (!hOpen.hApplication) Make_Application();
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
  if (!hOpen.hApplication) return;
  Close_Main();
  delete hOpen.hApplication;
  hOpen.hApplication = nullptr;
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
  if (hOpen.hApplication) QApplication::beep();
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
  const QScreen* hScreen = hOpen.hApplication ? QGuiApplication::primaryScreen() : nullptr;
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
