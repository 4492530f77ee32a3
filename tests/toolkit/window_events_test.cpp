// What the windows of the toolkit make of a window system's own events: wheels, trackpads, activation, moves.
#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPushButton>
#include <QSlider>
#include <QThread>
#include <QWheelEvent>
#include <new>

#include "support/played_session.h"
#include "toolkit/dialog/private_dialog.h"
#include "toolkit/window/private_window.h"

namespace quillan {
namespace {

using namespace toolkit;

class WindowEvents : public testing::Test {
 protected:
  void SetUp() override {
    Open_Window(900, 600);
    WMessageEnable(MessageType::Field, true);
    Came();
  }
  void TearDown() override {
    hPlayStep = nullptr;
    WindowClose();
  }

  static void Show(I4 iDialog) {
    WDialogLoad(iDialog);
    WDialogShow(WInfoWindow(iWindowWidth) - WInfoDialog(iDialogWidth) - 1, 0, iShowTool);
  }
  static QDialog& Tool() { return *Current_Dialog(); }

  /// The messages since the last call, as types and values.
  static std::string Came() {
    std::string sAll;
    for (Message h = WMessagePeek(); h.iType != MessageType::None; h = WMessagePeek()) {
      if (h.iType == MessageType::Expose || h.iType == MessageType::Resize) continue;
      sAll += (sAll.empty() ? "" : " ") + std::to_string(static_cast<I4>(h.iType)) + ":" + std::to_string(h.VALUE1);
    }
    return sAll;
  }

  static void Turn(QWidget* hWidget, int iAngle, Qt::ScrollPhase iPhase = Qt::NoScrollPhase) {
    const QPointF hPixel(hWidget->rect().center());
    QWheelEvent hEvent(hPixel, hWidget->mapToGlobal(hPixel), {}, QPoint(0, iAngle), Qt::NoButton, Qt::NoModifier,
                       iPhase, false);
    QCoreApplication::sendEvent(hWidget, &hEvent);
  }
  static void Press_Key(int iKey, const QString& sText = {}, bool bRepeat = false) {
    QWidget* hTarget = QApplication::focusWidget() ? QApplication::focusWidget() : QApplication::activeWindow();
    QKeyEvent hEvent(QEvent::KeyPress, iKey, Qt::NoModifier, sText, bRepeat);
    QCoreApplication::sendEvent(hTarget, &hEvent);
  }
  static void Mouse(QWidget* hWidget, QEvent::Type iType, QPointF hPixel) {
    QMouseEvent hEvent(iType, hPixel, hWidget->mapToGlobal(hPixel), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(hWidget, &hEvent);
  }
  /// Where the drawing area is red.
  static QRect Red() {
    const QImage hImage = Drawing_Area()->grab().toImage();
    QRect hRed;
    for (int iY = 0; iY < hImage.height(); ++iY) {
      for (int iX = 0; iX < hImage.width(); ++iX) {
        if (hImage.pixelColor(iX, iY) == QColor(Qt::red)) hRed |= QRect(iX, iY, 1, 1);
      }
    }
    return hRed;
  }
  static void Click(QWidget* hWidget) {
    hWidget->activateWindow();  // as a window system does before the press
    const QPointF hPixel(hWidget->rect().center());
    for (const auto iType : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
      QMouseEvent hEvent(iType, hPixel, hWidget->mapToGlobal(hPixel), Qt::LeftButton,
                         iType == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
      QCoreApplication::sendEvent(hWidget, &hEvent);
    }
  }
  template <class Control>
  static Control* Find(I4 iField) {
    return Tool().findChild<Control*>(QString("c%1").arg(iField));
  }
};

/// A widget whose handler finds no memory.
class Greedy : public QObject {
 public:
  bool event(QEvent* hEvent) override {
    if (hEvent->type() == QEvent::User) throw std::bad_alloc();
    return QObject::event(hEvent);
  }
};

TEST_F(WindowEvents, MemoryThatEndsInAHandlerIsHeardOfByTheProgramOnce) {
  Greedy hGreedy;
  QCoreApplication::postEvent(&hGreedy, new QEvent(QEvent::User));
  EXPECT_THROW(static_cast<void>(WMessage()), std::bad_alloc);
  Press_Key(Qt::Key_A, "a");
  EXPECT_EQ(WMessage().VALUE1, 'a');
}

TEST_F(WindowEvents, PagingByTheWheelEndsWhenTheUserStops) {
  for (int I = 0; I < 20; ++I) Turn(Drawing_Area(), -120);
  EXPECT_EQ(Came(), "4:5") << "twenty steps during one redraw page once";
  Turn(Drawing_Area(), -120);
  Turn(Drawing_Area(), 120);
  EXPECT_EQ(Came(), "4:4") << "a turn back counts at once";
  for (int I = 0; I < 9; ++I) Turn(Drawing_Area(), -30, Qt::ScrollUpdate);
  EXPECT_EQ(Came(), "4:5") << "a trackpad's small steps add up";
  Turn(Drawing_Area(), -90, Qt::ScrollBegin);
  Turn(Drawing_Area(), -1200, Qt::ScrollMomentum);
  EXPECT_EQ(Came(), "");
  Turn(Drawing_Area(), 90, Qt::ScrollUpdate);
  EXPECT_EQ(Came(), "") << "a turn the other way begins again";
}

TEST_F(WindowEvents, AKeyHeldDownPagesOnceARedraw) {
  Press_Key(Qt::Key_N, "n");
  for (int I = 0; I < 20; ++I) Press_Key(Qt::Key_N, "n", true);
  EXPECT_EQ(Came(), "1:110");
}

TEST_F(WindowEvents, AToolWindowNeverHasTheFocus) {
  for (const I4 iDialog : {115, 118}) {
    Show(iDialog);
    EXPECT_EQ(QApplication::activeWindow(), Main_Window());
    EXPECT_EQ(QApplication::focusWidget(), Drawing_Area());
    Click(Find<QPushButton>(1085));
    EXPECT_EQ(Came(), "3:1085");
    EXPECT_EQ(QApplication::focusWidget(), Drawing_Area());
    Tool().activateWindow();  // its title bar was clicked
    EXPECT_FALSE(qobject_cast<QLineEdit*>(QApplication::focusWidget())) << "a field takes no keyboard by itself";
    Press_Key(Qt::Key_N, "n");
    Press_Key(Qt::Key_Return);
    Press_Key(Qt::Key_Escape);
    EXPECT_EQ(Came(), "1:110 1:13 1:27");
    EXPECT_TRUE(Tool().isVisible());
    Tool().close();
    EXPECT_EQ(Came(), "3:1087");
    EXPECT_TRUE(Tool().isVisible()) << "the program closes it";
    EXPECT_EQ(QApplication::activeWindow(), Main_Window());
    WDialogUnload();
  }
}

TEST_F(WindowEvents, AFieldThatIsClickedTakesTheKeyboardUntilEnter) {
  Show(118);
  auto* hLine = Find<QLineEdit>(1111);
  WDialogPutReal(1111, 1.0f, "(1P,G14.3)");
  Tool().activateWindow();
  hLine->setFocus(Qt::MouseFocusReason);
  Click(hLine);
  Press_Key(Qt::Key_5, "5");
  EXPECT_EQ(hLine->text(), "5") << "typing replaces the number";
  EXPECT_EQ(Came(), "");
  EXPECT_TRUE(hLine->hasFocus());
  Click(hLine);
  Press_Key(Qt::Key_End);
  Press_Key(Qt::Key_0, "0");
  EXPECT_EQ(hLine->text(), "50") << "a second click does not";
  Press_Key(Qt::Key_Return);
  EXPECT_EQ(Came(), "10:1111");
  EXPECT_EQ(QApplication::focusWidget(), Drawing_Area());
}

TEST_F(WindowEvents, AKnobThatIsHeldIsNotPutElsewhere) {
  Show(115);
  WDialogRangeTrackbar(1081, 1, 100, 8);
  auto* hTrackbar = Find<QSlider>(1081);
  hTrackbar->setSliderDown(true);
  for (int iAt = 2; iAt <= 30; ++iAt) hTrackbar->setSliderPosition(iAt);
  EXPECT_EQ(Came(), "10:1081") << "the moves during one redraw are one";
  WDialogPutTrackbar(1081, 25);
  EXPECT_EQ(WDialogGetTrackbar(1081), 30);
  hTrackbar->setSliderDown(false);
  WDialogPutTrackbar(1081, 25);
  EXPECT_EQ(hTrackbar->value(), 25);
  EXPECT_EQ(Came(), "");
  Turn(hTrackbar, -120);
  EXPECT_EQ(Came(), "4:5") << "the wheel pages, over the tool window too";
}

TEST_F(WindowEvents, AYesOrNoBoxIsLeftByItsButtonsAlone) {
  hPlayStep = [] {
    Press_Key(Qt::Key_Escape);
    Open_Box()->close();
    EXPECT_TRUE(Open_Box()->isVisible());
    Open_Box()->button(QMessageBox::Yes)->click();
  };
  EXPECT_TRUE(WMessageBox(BoxButtons::YesNo, BoxIcon::Question, "Should a.avg data be saved?", ""));
  for (const auto iButtons : {BoxButtons::Ok, BoxButtons::OkCancel}) {
    hPlayStep = [] { Open_Box()->close(); };
    EXPECT_EQ(WMessageBox(iButtons, BoxIcon::Stop, "no data", ""), iButtons == BoxButtons::Ok);
  }
}

TEST_F(WindowEvents, ABoxThatIsDrawnKeepsItsPlaceWhenTheWindowChangesItsSize) {
  IGrUnits(0.0f, 0.0f, 10.0f, 10.0f);
  WMessageEnable(MessageType::MouseMove, true);
  static I4 iStep;
  iStep = 0;
  hPlayStep = [] {
    const QSizeF hSize = Drawing_Area()->size();
    const QPointF hCorner(0.7 * hSize.width(), 0.6 * hSize.height());
    switch (++iStep) {
      case 1: return Mouse(Drawing_Area(), QEvent::MouseMove, hCorner);
      case 2: return Main_Window()->resize(500, 700);
      case 3: {
        const QRectF hBox(QPointF(0.2 * hSize.width(), 0.1 * hSize.height()), hCorner);
        const QRect hRed = Red();
        EXPECT_NEAR(hRed.left(), hBox.left(), 1.0);
        EXPECT_NEAR(hRed.top(), hBox.top(), 1.0);
        EXPECT_NEAR(hRed.right(), hBox.right(), 1.0);
        EXPECT_NEAR(hRed.bottom(), hBox.bottom(), 1.0);
        return Press_Key(Qt::Key_Escape);
      }
    }
  };
  EXPECT_FALSE(WGrInputBox({.iType = MessageType::MouseDown, .GX = 2.0f, .GY = 9.0f}).bReleased);
  EXPECT_EQ(iStep, 3);
  EXPECT_TRUE(Red().isNull()) << "nothing is left of it";
}

TEST_F(WindowEvents, AToolWindowOpensBesideTheMainWindowWhereTheScreenHasRoom) {
  QMainWindow& hMain = *Main_Window();
  Show(118);
  EXPECT_EQ(Tool().pos(), hMain.geometry().topRight() + QPoint(1, 0));
  WDialogUnload();
  hMain.move(1920 - hMain.width(), 40);
  Show(118);
  EXPECT_EQ(Tool().geometry().topRight(), hMain.geometry().topLeft() - QPoint(1, 0));
  WDialogUnload();
  hMain.setGeometry(10, 40, 1900, 700);
  Show(118);
  const QRect hArea(Drawing_Area()->mapToGlobal(QPoint()), Drawing_Area()->size());
  EXPECT_EQ(Tool().geometry().topRight(), hArea.topRight() - QPoint(1, 0));
}

TEST_F(WindowEvents, TheTitleBarOfAToolWindowShowsItsTitleRollsItAndMovesIt) {
  for (const I4 iDialog : {115, 118}) {
    Show(iDialog);
    QWidget* hBar = Title_Bar(Tool());
    ASSERT_TRUE(hBar);
    const auto* hTitle = hBar->findChild<QLabel*>();
    EXPECT_EQ(hTitle->text(), Tool().windowTitle());
    EXPECT_GE(hTitle->width(), hTitle->sizeHint().width());
    const QRect hWhole = Tool().geometry();
    const QPointF hAt(5.0, 5.0);
    Mouse(hBar, QEvent::MouseButtonDblClick, hAt);
    EXPECT_EQ(Tool().size(), QSize(hWhole.width(), hBar->height()));
    Mouse(hBar, QEvent::MouseButtonDblClick, hAt);
    EXPECT_EQ(Tool().geometry(), hWhole);
    Mouse(hBar, QEvent::MouseButtonPress, hAt);
    Mouse(hBar, QEvent::MouseMove, hAt + QPointF(1.0, 0.0));
    EXPECT_EQ(Tool().pos(), hWhole.topLeft()) << "an unsteady click";
    Mouse(hBar, QEvent::MouseMove, hAt + QPointF(-30.0, 40.0));
    Mouse(hBar, QEvent::MouseButtonRelease, hAt);
    EXPECT_EQ(Tool().pos(), hWhole.topLeft() + QPoint(-30, 40));
    EXPECT_EQ(QApplication::focusWidget(), Drawing_Area());
    EXPECT_EQ(Came(), "");
    WDialogUnload();
  }
}

TEST_F(WindowEvents, AToolWindowStaysWhereTheUserPutsIt) {
  Show(115);
  const QPoint hPlaced = Tool().pos();
  WDialogUnload();
  Show(115);
  EXPECT_EQ(Tool().pos(), hPlaced);
  QThread::msleep(600);
  Tool().move(40, 300);
  WDialogHide();
  WDialogShow(0, 0, iShowTool);
  EXPECT_EQ(Tool().pos(), QPoint(40, 300));
  WDialogUnload();
  Show(118);
  EXPECT_NE(Tool().pos(), QPoint(40, 300)) << "each has its own place";
  WDialogUnload();
  Show(115);
  EXPECT_EQ(Tool().pos(), QPoint(40, 300));
}

TEST_F(WindowEvents, WorkThatWasPutOffIsDoneOnceInTheMiddleOfAWait) {
  static I4 NDone;
  NDone = 0;
  const auto Carry_Out = [] {
    ++NDone;
    Push_Message({.iType = MessageType::Timer});
  };
  WAfter(300, Carry_Out);
  WAfter(3600000, [] {});  // does not put off what waits already
  EXPECT_EQ(WMessagePeek().iType, MessageType::None);
  EXPECT_EQ(WMessage().iType, MessageType::Timer);
  EXPECT_EQ(NDone, 1);
  WAfter(0, Carry_Out);
  WAfter(0, nullptr);
  EXPECT_EQ(WMessagePeek().iType, MessageType::None);
}

}  // namespace
}  // namespace quillan
