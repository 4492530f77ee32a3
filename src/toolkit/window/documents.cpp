#include "toolkit/window/documents.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QGuiApplication>
#include <QUrl>
#include <utility>

#include "toolkit/window/private_window.h"

namespace quillan {

using namespace toolkit;

namespace {

// WOnHelp and a dialog fill it.
struct HelpWanted {
  void (*Carry_Out)() = nullptr;
  bool bWanted = false;
};
HelpWanted hHelp;

}  // namespace

void toolkit::Want_Help() {
  hHelp.bWanted = hHelp.Carry_Out != nullptr;
}

void toolkit::Help_if_Wanted() {
  if (std::exchange(hHelp.bWanted, false)) hHelp.Carry_Out();
}

bool IOsOpenDocument(std::string_view sPath) {
  if (!qApp || hPlayStep || QGuiApplication::platformName() == "offscreen") return false;
  return QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(To_QString(sPath)).absoluteFilePath()));
}

void WOnHelp(void (*Carry_Out)()) {
  hHelp.Carry_Out = Carry_Out;
}

}  // namespace quillan
