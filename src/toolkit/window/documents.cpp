#include "toolkit/window/documents.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QGuiApplication>
#include <QUrl>

#include "toolkit/window/private_window.h"

namespace quillan {

using namespace toolkit;

bool IOsOpenDocument(std::string_view sPath) {
  if (!qApp || hPlayStep || QGuiApplication::platformName() == "offscreen") return false;
  return QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(To_QString(sPath)).absoluteFilePath()));
}

}  // namespace quillan
