// The application: where it is shown, what it takes from the user's settings, and its end.
#include <QApplication>
#include <QIcon>
#include <QLocale>
#include <QTemporaryFile>
#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <iostream>
#include <new>
#include <utility>

#include "platform/arguments.h"
#include "toolkit/window/private_window.h"
#include "toolkit/window/window.h"

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

// The command line, which the application refers to as long as it lives; null before WInitialise.
int NArgument = 0;
char** hArgument = nullptr;

// Make_Application fills it, End_Application empties it.
Application* hApplication = nullptr;

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

/// The application, as all of our windows need it.
void Set_Up_Application() {
  // The platform reads its screen from a file while the application is made.
  QTemporaryFile hScreen;
  const bool bOffScreen = qgetenv("QT_QPA_PLATFORM") == "offscreen";
  if (bOffScreen && hScreen.open()) {
    hScreen.write(sOffScreen.data(), static_cast<qint64>(sOffScreen.size()));
    hScreen.close();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + hScreen.fileName().toLocal8Bit());
  }
  if (bOffScreen) qInstallMessageHandler(Pass_On);
  hApplication = new Application(NArgument, hArgument);
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

}  // namespace

bool toolkit::Make_Application() {
  if (!hApplication && hArgument) Set_Up_Application();
  return hApplication != nullptr;
}

void toolkit::End_Application() {
  delete std::exchange(hApplication, nullptr);
}

bool toolkit::Memory_Has_Ended() {
  return std::exchange(bNoMemory, false);
}

void WInitialise(int argc, char** argv) {
  NArgument = argc;
  hArgument = argv;
  if (!hApplication) Choose_Platform(argc, argv);
  Make_Application();
  // What the application left of the command line is what the program sees.
  System_Set_Arguments(std::vector<std::string>(hArgument, hArgument + NArgument));
}

}  // namespace quillan
