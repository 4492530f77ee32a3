// bare_window.cpp: the least that a program with a window does: starts, shows a menu, a status bar and a line of text
// in a window of the editor's size, ends when they are painted. The floor of the editor's start.
#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QPainter>
#include <QStatusBar>
#include <QTimer>

namespace {

class Paper : public QWidget {
 public:
  using QWidget::QWidget;

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter hPainter(this);
    hPainter.fillRect(rect(), Qt::white);
    hPainter.drawText(20, 20, "Data input complete.");
    QTimer::singleShot(0, qApp, &QCoreApplication::quit);
  }
};

}  // namespace

int main(int argc, char** argv) {
  const QApplication hApplication(argc, argv);
  QMainWindow hWindow;
  hWindow.setCentralWidget(new Paper(&hWindow));
  hWindow.menuBar()->addMenu("&File")->addAction("&Open");
  hWindow.statusBar()->showMessage("Ready");
  hWindow.resize(1275, 1044);
  hWindow.show();
  return QApplication::exec();
}
