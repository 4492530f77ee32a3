// Steps of the window as a whole: what it shows, its size, files dropped on it, pictures of it.
#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QMimeData>
#include <QPainter>
#include <QStatusBar>
#include <QUrl>
#include <algorithm>
#include <iterator>

#include "toolkit/dialog/private_dialog.h"
#include "toolkit/script/private_script.h"
#include "toolkit/window/private_window.h"

namespace quillan::toolkit {

namespace {

/// Texts and titles that the user can read.
QStringList Shown_Texts() {
  QStringList sShown;
  if (Open_Box()) sShown << Open_Box()->text() << Open_Box()->windowTitle();
  if (Open_File_Dialog()) sShown << Open_File_Dialog()->windowTitle();
  if (Current_Dialog()) sShown << Current_Dialog()->windowTitle();
  if (const QMainWindow* hWindow = Active_Window()) {
    sShown << hWindow->windowTitle().replace("[*]", hWindow->isWindowModified() ? "*" : "");
    const auto* hBar = hWindow->findChild<QStatusBar*>(QString(), Qt::FindDirectChildrenOnly);
    const auto hParts = hBar ? hBar->findChildren<QLabel*>() : QList<QLabel*>();
    for (const QLabel* hPart : hParts) sShown << hPart->text();
  }
  for (QString& sText : sShown) sText = As_Read(sText);
  return sShown;
}

}  // namespace

std::string Play_Expect(Arguments sArgument) {
  const QString sWanted = As_Read(To_QString(sArgument[0]));
  const QStringList sShown = Shown_Texts();
  for (const QString& sText : sShown) {
    if (sText.contains(sWanted)) return "";
  }
  return Quoted(sWanted) + " is not on the screen, which shows " + Quoted(sShown.join("\", \""));
}

std::string Play_Close(Arguments) {
  Active_Window()->close();
  return "";
}

std::string Play_Stop(Arguments) {
  bEscAtLook = true;
  return "";
}

std::string Play_Resize(Arguments sArgument) {
  if (!Active_Window()) return "no window is open";
  Active_Window()->resize(Whole(sArgument[0]), Whole(sArgument[1]));
  return "";
}

std::string Play_Drop(Arguments sArgument) {
  const QFileInfo hFile(To_QString(sArgument[0]));
  if (!hFile.exists()) return "there is no file " + sArgument[0];
  QMimeData hData;
  hData.setUrls({QUrl::fromLocalFile(hFile.absoluteFilePath())});
  const QPoint hMiddle = Main_Window()->rect().center();
  QDragEnterEvent hEnter(hMiddle, Qt::CopyAction, &hData, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(Main_Window(), &hEnter);
  if (!hEnter.isAccepted()) return "the window does not take " + sArgument[0];
  QDropEvent hDrop(hMiddle, Qt::CopyAction, &hData, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(Main_Window(), &hDrop);
  return "";
}

namespace {

constexpr QRgb iFrame = 0xFF808080;  // line around a dialog in a picture, as far as the picture goes

/// Windows over the main window, the lowest first: tool windows, dialogs, boxes, open drop-down lists and tool tips.
std::vector<QWidget*> Windows_Above() {
  const auto iLevel = [](const QWidget* hWindow) {
    if (hWindow->windowType() == Qt::Popup || hWindow->windowType() == Qt::ToolTip) return 3;
    return hWindow == Waits_First() ? 2 : hWindow->isModal() ? 1 : 0;
  };
  std::vector<QWidget*> hAbove;
  const QWidgetList hAll = QApplication::topLevelWidgets();
  std::ranges::copy_if(hAll, std::back_inserter(hAbove),
                       [](QWidget* hWindow) { return hWindow->isVisible() && hWindow != Main_Window(); });
  std::ranges::stable_sort(hAbove, {}, iLevel);
  return hAbove;
}

QImage Picture() {
  const std::vector<QWidget*> hAbove = Windows_Above();
  const QPoint hOrigin = Main_Window()->geometry().topLeft();
  QRect hCanvas = Main_Window()->rect();
  for (const QWidget* hWindow : hAbove) {
    hCanvas |= hWindow->geometry().translated(-hOrigin) & QRect(-10000, -10000, 20000, 20000);
  }
  const R8 dRatio = Main_Window()->devicePixelRatioF();
  QImage hPicture((QSizeF(hCanvas.size()) * dRatio).toSize(), QImage::Format_RGB32);
  hPicture.setDevicePixelRatio(dRatio);
  hPicture.fill(Qt::white);
  QPainter hPainter(&hPicture);
  hPainter.translate(-hCanvas.topLeft());
  hPainter.drawPixmap(0, 0, Main_Window()->grab());
  for (QWidget* hWindow : hAbove) {
    const QRect hPlace = hWindow->geometry().translated(-hOrigin);
    hPainter.fillRect(hPlace.adjusted(-1, -1, 1, 1), QColor(iFrame));
    hPainter.drawPixmap(hPlace.topLeft(), hWindow->grab());
  }
  return hPicture;
}

}  // namespace

std::string Play_Snapshot(Arguments sArgument) {
  if (!Main_Window()) return "no window is open";
  return Picture().save(To_QString(sArgument[0]), "PNG") ? "" : "cannot write " + sArgument[0];
}

}  // namespace quillan::toolkit
