// What the user does, as the steps of a record.
#include "toolkit/script/recorder.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QDir>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPushButton>
#include <QSlider>
#include <QTableWidget>
#include <QWheelEvent>

#include "support/files.h"
#include "support/played_session.h"
#include "toolkit/dialog/grid.h"
#include "toolkit/dialog/private_dialog.h"
#include "toolkit/draw/plot_axes.h"
#include "toolkit/window/private_window.h"

namespace quillan {
namespace {

using namespace toolkit;

/// A window of 900 x 600 pixels whose user is recorded in record.txt.
class Recorded : public testing::Test {
 protected:
  void SetUp() override {
    Record_Listen();
    WMenuDefine(iMenuMain, hTestBar);
    Open_Window(900, 600, iMenuMain);
    IGrUnits(0.0f, 0.0f, 24.0f, 17.0f);
    WMessageEnable(MessageType::Field, true);
    ASSERT_EQ(Record_Begin("record.txt"), 0);
  }
  void TearDown() override {
    hPlayStep = nullptr;
    Record_End();
    Record_Listen();
    WindowClose();
  }

  /// The program takes what has come.
  static std::vector<Message> Taken() {
    std::vector<Message> hAll;
    for (Message h = WMessagePeek(); h.iType != MessageType::None; h = WMessagePeek()) hAll.push_back(h);
    return hAll;
  }
  /// The steps so far, without the command line and the size of the window, one a line.
  static std::string Steps() {
    Taken();
    std::string sAll = Read_Whole_File("record.txt");
    for (const char* sHead : {"# To play it: quillan --script record.txt\n", "resize 900 600\n"})
      if (sAll.starts_with(sHead)) sAll.erase(0, std::string_view(sHead).size());
    return sAll;
  }

  static void Show(I4 iDialog) {
    WDialogLoad(iDialog);
    WDialogShow(WInfoWindow(iWindowWidth) - WInfoDialog(iDialogWidth) - 1, 0, iShowTool);
  }
  template <class Control>
  static Control* Find(I4 iField) {
    return Current_Dialog()->findChild<Control*>(QString("c%1").arg(iField));
  }
  static void Key(int iKey, const QString& sText = {}, Qt::KeyboardModifiers iHeld = {}) {
    QKeyEvent hEvent(QEvent::KeyPress, iKey, iHeld, sText);
    QCoreApplication::sendEvent(QApplication::focusWidget(), &hEvent);
  }
  static void Mouse(QEvent::Type iType, QPointF hPixel, Qt::MouseButton iButton = Qt::LeftButton,
                    Qt::KeyboardModifiers iHeld = {}) {
    QMouseEvent hEvent(iType, hPixel, Drawing_Area()->mapToGlobal(hPixel), iButton,
                       iType == QEvent::MouseButtonRelease ? Qt::NoButton : iButton, iHeld);
    QCoreApplication::sendEvent(Drawing_Area(), &hEvent);
  }
  static void Click(QPointF hPixel, Qt::MouseButton iButton = Qt::LeftButton, Qt::KeyboardModifiers iHeld = {}) {
    Mouse(QEvent::MouseButtonPress, hPixel, iButton, iHeld);
    Mouse(QEvent::MouseButtonRelease, hPixel, iButton, iHeld);
  }
  static void Turn(int iAngle) {
    const QPointF hPixel(450.0, 300.0);
    QWheelEvent hEvent(hPixel, Drawing_Area()->mapToGlobal(hPixel), {}, QPoint(0, iAngle), Qt::NoButton, Qt::NoModifier,
                       Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(Drawing_Area(), &hEvent);
  }
};

/// Presses and releases with their places, to the last digit.
std::string Places(const std::vector<Message>& hAll) {
  std::ostringstream sAll;
  sAll.precision(9);
  for (const Message& h : hAll) {
    if (h.iType == MessageType::MouseDown || h.iType == MessageType::MouseUp)
      sAll << static_cast<I4>(h.iType) << ' ' << h.VALUE1 << ' ' << h.X << ' ' << h.Y << ' ' << h.GX << ' ' << h.GY
           << '\n';
  }
  return sAll.str();
}

TEST_F(Recorded, APlaceIsMetAgainToTheLastDigit) {
  for (const QPoint hPixel : {QPoint(41, 0), QPoint(311, 207), QPoint(450, 300), QPoint(777, 13), QPoint(898, 540)}) {
    Click(hPixel, Qt::MiddleButton);
    Mouse(QEvent::MouseButtonPress, hPixel, Qt::RightButton);
    Mouse(QEvent::MouseMove, QPointF(400.0, 200.0));
    Mouse(QEvent::MouseButtonRelease, hPixel + QPoint(-40, 3), Qt::RightButton);
  }
  const std::string sDone = Places(Taken());
  const std::string sSteps = Read_Whole_File("record.txt");
  TearDown();
  PlayedSession hSession(sSteps);
  IGrUnits(0.0f, 0.0f, 24.0f, 17.0f);
  EXPECT_EQ(Places(hSession.Rest()), sDone) << sSteps;
  EXPECT_EQ(hSession.Errors(), "");
}

TEST_F(Recorded, ADragThatEndsOutsideTheWindowEndsAtItsEdge) {
  Mouse(QEvent::MouseButtonPress, Units_to_Pixels(QPointF(12.0, 8.5)));
  Mouse(QEvent::MouseButtonRelease, QPointF(-40.0, 2000.0));
  EXPECT_EQ(Steps(), "drag 12 8.5 0 0\n");
}

TEST_F(Recorded, AClickInAPlotIsAPointInItsUnits) {
  IPgArea(0.1f, 0.1f, 0.9f, 0.9f);
  IPgScaling(Scaling::Linear, Scaling::Logarithmic);
  IPgUnits(0.0f, 10.0f, 10.0f, 1000.0f);
  const GrPoint h = IPgUnitsToGrUnits(2.5f, 100.0f);
  const QPointF hPixel = Units_to_Pixels(QPointF(R8{h.fX}, R8{h.fY}));
  Click(hPixel);
  Click(hPixel, Qt::RightButton, Qt::ControlModifier);
  WCursorShape(iCursorCorner);  // a corner of a box is no point of the data
  Click(hPixel);
  EXPECT_EQ(Steps(), "point 2.5 100\npoint 2.5 100 right Ctrl\nclick 7.2 8.5\n");
}

TEST_F(Recorded, AnUnsteadyHandClicksInAPlotAndDragsElsewhere) {
  const auto Tremble = [] {
    Mouse(QEvent::MouseButtonPress, QPointF(450.0, 270.0));
    Mouse(QEvent::MouseButtonRelease, QPointF(456.0, 275.0));
  };
  Tremble();
  EXPECT_TRUE(Steps().starts_with("drag ")) << Steps();
  IPgArea(0.1f, 0.1f, 0.9f, 0.9f);
  IPgUnits(0.0f, 0.0f, 10.0f, 10.0f);
  const std::string sBefore = Steps();
  Tremble();
  EXPECT_TRUE(Steps().starts_with(sBefore + "point ")) << Steps();
}

TEST_F(Recorded, KeysThatAreHeldAsTheButtonGoesDownAreOfTheStep) {
  Mouse(QEvent::MouseButtonPress, Units_to_Pixels(QPointF(12.0, 8.5)), Qt::RightButton, Qt::ShiftModifier);
  Mouse(QEvent::MouseButtonRelease, Units_to_Pixels(QPointF(0.0, 0.0)), Qt::RightButton);
  Click(Units_to_Pixels(QPointF(12.0, 8.5)), Qt::LeftButton, Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier);
  EXPECT_EQ(Steps(), "drag 12 8.5 0 0 right Shift\nclick 12 8.5 Shift Ctrl\n");
}

TEST_F(Recorded, APlaceOnAMapIsItsCoordinates) {
  const R8 dEast = 482300.0, dNorth = 5176400.0;
  IPgArea(0.1f, 0.1f, 0.9f, 0.9f);
  IPgCoordinates(dEast, dNorth);
  IPgUnits(0.0f, 0.0f, 240.0f, 170.0f);
  const GrPoint h = IPgNumbersToGrUnits(dEast + 30.0, dNorth + 85.0);
  Click(Units_to_Pixels(QPointF(R8{h.fX}, R8{h.fY})));
  EXPECT_EQ(Steps(), "point 482330 5176485\n");
}

TEST_F(Recorded, AChildWindowHasItsOwnSize) {
  Click(QPointF(0.0, 0.0));
  EXPECT_EQ(Steps(), "click 0 17\n");
  WindowOpenChild2(700, 500, "map");
  Active_Window()->resize(600, 450);
  Key(Qt::Key_A, "a");
  Active_Window()->close();
  Taken();
  WindowCloseChild();
  Key(Qt::Key_B, "b");
  EXPECT_EQ(Steps(), "click 0 17\nresize 600 450\nkey a\nclose\nkey b\n");
}

TEST_F(Recorded, ABoxThatIsGivenUpIsNoStep) {
  const auto Box_After = [](void (*Act)()) {
    Mouse(QEvent::MouseButtonPress, QPointF(100.0, 100.0));
    hPlayStep = nullptr;
    Message hPress = WMessage();
    while (hPress.iType != MessageType::MouseDown) hPress = WMessage();
    Act();
    return WGrInputBox(hPress).bReleased;
  };
  EXPECT_FALSE(Box_After([] { Key(Qt::Key_Escape); }));
  Mouse(QEvent::MouseButtonRelease, QPointF(200.0, 200.0));
  EXPECT_EQ(Steps(), "");
  EXPECT_FALSE(Box_After([] { Main_Window()->close(); }));
  EXPECT_EQ(Steps(), "close\n");
}

TEST_F(Recorded, OnlyWhatTheProgramSeesOfATurnOrAMoveIsAStep) {
  Show(115);
  WDialogRangeTrackbar(1081, 1, 100, 8);
  for (int I = 0; I < 20; ++I) Turn(-120);
  Turn(120);
  EXPECT_TRUE(Steps().starts_with("wheel -1 ")) << Steps();
  ASSERT_EQ(Record_Begin("record.txt"), 0);
  const std::string sBefore = Steps();
  for (int iAt = 2; iAt <= 30; ++iAt) Find<QSlider>(1081)->setValue(iAt);
  EXPECT_EQ(Steps(), sBefore + "slide Curve 30\n");
}

TEST_F(Recorded, AStopStandsAheadOfTheStepThatBeganTheWork) {
  Key(Qt::Key_N, "n");
  Key(Qt::Key_Return);
  Record_Stop();
  Key(Qt::Key_P, "p");
  EXPECT_EQ(Steps(), "key n\nstop\nkey Enter\nkey p\n");
}

TEST_F(Recorded, AKeyIsPressedAgainAsItWas) {
  Key(Qt::Key_Left, {}, Qt::ControlModifier);
  Key(Qt::Key_Tab, {}, Qt::ShiftModifier);
  Key(Qt::Key_N, "N", Qt::ShiftModifier);
  Key(Qt::Key_Space, " ", Qt::ShiftModifier);
  Key(Qt::Key_QuoteDbl, "\"");
  Key(Qt::Key_Enter, "\r", Qt::KeypadModifier);
  EXPECT_EQ(Steps(), "key Ctrl+Left\nkey Shift+Tab\nkey N\nkey Shift+Space\nkey \"\"\"\"\nkey Enter\n");
  PlayedSession hSession(Steps());
  std::string sKeys;
  for (const Message& h : hSession.Rest()) sKeys += std::to_string(h.VALUE1) + ' ';
  EXPECT_EQ(sKeys, "516 9 78 517 34 13 ") << hSession.Errors();
}

TEST_F(Recorded, AnEditIsAStepWhenItIsComplete) {
  Show(118);
  WDialogPutReal(1111, 1.0f, "(1P,G14.3)");
  auto* hLine = Find<QLineEdit>(1111);
  const auto Enter = [&] {
    Current_Dialog()->activateWindow();
    hLine->setFocus(Qt::MouseFocusReason);
    hLine->selectAll();
  };
  Enter();
  Key(Qt::Key_5, "5");
  Key(Qt::Key_Escape);
  EXPECT_EQ(Steps(), "") << "it was taken back";
  Enter();
  Key(Qt::Key_5, "5");
  EXPECT_EQ(Steps(), "") << "it goes on";
  Key(Qt::Key_Return);
  EXPECT_EQ(Steps(), "set \"Noise Floor\" 5\n");
  // What plays the step is still in the field, where an arrow would stay.
  Key(Qt::Key_Left);
  Enter();
  Key(Qt::Key_6, "6");
  Key(Qt::Key_N, "N", Qt::ShiftModifier);
  Find<QPushButton>(1114)->click();
  Key(Qt::Key_Left);
  EXPECT_EQ(
      Steps(),
      "set \"Noise Floor\" 5\nkey Enter\nkey Left\nset \"Noise Floor\" 6\nkey N\npress \"View Curve\"\nkey Left\n");
}

TEST_F(Recorded, OnlyTheUserChoosesARow) {
  WDialogLoad(120);
  WGridRows(1201, 3);
  WGridPutString(1201, 1, std::vector<std::string>{"1", "2", "3"});
  WGridSelectRow(1201, 3);
  WDialogShow(0, 0, iShowTool);
  EXPECT_EQ(Steps(), "") << "the program did";
  Find<QTableWidget>(1201)->setCurrentCell(1, 3);
  EXPECT_EQ(Steps(), "choose Edits 2\n");
  WDialogUnload();
}

TEST_F(Recorded, AnswersAndFilesAreSteps) {
  hPlayStep = [] {
    if (!Open_Box()) return Choose_File(QDir::current().absoluteFilePath("a \"b\".avg"));
    if (Open_Box()->checkBox()) Open_Box()->checkBox()->setChecked(true);
    Open_Box()->button(QMessageBox::Ok)->click();
  };
  EXPECT_TRUE(WMessageBox(BoxButtons::OkCancel, BoxIcon::Stop, "A fault", "ERROR", true));
  static_cast<void>(WSelectFile2("data|*.avg|", iSelectSave, "Save", ""));
  {
    const RecordPause hPause;
    WMessageBox(BoxButtons::Ok, BoxIcon::Stop, "No step", "");
  }
  EXPECT_EQ(Steps(), "answer ok quiet\nfile \"a \"\"b\"\".avg\"\n");
  PlayedSession hSession("answer ok quiet\n");
  WMessageBox(BoxButtons::Ok, BoxIcon::Stop, "A fault", "", true);
  EXPECT_TRUE(WMessageBoxQuiet());
}

TEST_F(Recorded, WhatCannotBeWrittenIsNoRecord) {
  EXPECT_EQ(Record_Begin("no/such/folder.txt"), 1);
  EXPECT_FALSE(Record_Is_On());
  EXPECT_EQ(Record_Begin("/dev/full"), 1) << "a full disk ends it";
  EXPECT_FALSE(Record_Is_On());
}

TEST_F(Recorded, OnlyAnEarlierRecordIsReplacedUnasked) {
  Write_File("line7.avg", "\\ the data\n");
  Write_File("empty.txt", "");
  EXPECT_TRUE(Record_Would_Destroy("line7.avg"));
  for (const char* sFile : {"record.txt", "empty.txt", "none.txt", ""})
    EXPECT_FALSE(Record_Would_Destroy(sFile)) << sFile;
}

}  // namespace
}  // namespace quillan
