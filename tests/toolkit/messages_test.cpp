#include "toolkit/window/messages.h"

#include <gtest/gtest.h>

#include <map>

#include "support/played_session.h"
#include "toolkit/draw/last_error.h"

namespace quillan {
namespace {

TEST(Messages, KeysGiveTheirCharacterOrCode) {
  PlayedSession hSession(
      "key a\nkey B\nkey é\nkey Esc\nkey Enter\nkey Tab\nkey Up\nkey Down\nkey Right\nkey Left\n"
      "key Ctrl+a\nkey Alt+b\n");
  std::vector<I4> iKeys;
  for (const Came& hCame : hSession.Rest()) {
    EXPECT_EQ(hCame.iType, MessageType::Key);
    iKeys.push_back(hCame.hMessage.VALUE1);
  }
  EXPECT_EQ(iKeys, (std::vector<I4>{'a', 'B', 0xE9, 27, 13, 9, 258, 259, 260, 261}))
      << "a letter with Ctrl or Alt is no message";
}

TEST(Messages, ClicksTellButtonAndPositionInUnitsAndPixels) {
  struct Case {
    const char* sStep;
    I4 iButton;
  };
  for (const Case& hCase : {
           Case{"click 2.5 7.5\n",         1},
           Case{"click 2.5 7.5 right\n",   3},
           Case{"click 2.5 7.5 back\n",    4},
           Case{"click 2.5 7.5 forward\n", 5}
  }) {
    SCOPED_TRACE(hCase.sStep);
    PlayedSession hSession(hCase.sStep);
    const std::vector<Came> hAll = hSession.Rest();
    ASSERT_EQ(hAll.size(), 2u);
    EXPECT_EQ(hAll[0].iType, MessageType::MouseDown);
    EXPECT_EQ(hAll[1].iType, MessageType::MouseUp);
    for (const Came& hCame : hAll) {
      EXPECT_EQ(hCame.hMessage.VALUE1, hCase.iButton);
      EXPECT_EQ(hCame.hMessage.VALUE3, 0);
      EXPECT_NEAR(hCame.hMessage.GX, 2.5f, 1e-5f);
      EXPECT_NEAR(hCame.hMessage.GY, 7.5f, 1e-5f);
      EXPECT_EQ(hCame.hMessage.X, WInfoWindow(iWindowWidth) / 4);
      EXPECT_EQ(hCame.hMessage.Y, WInfoWindow(iWindowHeight) / 4);
    }
  }
}

TEST(Messages, PositionsAreThoseOfTheAreaInUse) {
  PlayedSession hSession("click 0 0\nclick 100 -1\n");
  IGrArea(0.25f, 0.5f, 0.75f, 1.0f);
  IGrUnits(0.0f, 0.0f, 100.0f, -2.0f);  // units may fall
  const std::vector<Came> hAll = hSession.Rest();
  ASSERT_EQ(hAll.size(), 4u);
  EXPECT_EQ(hAll[0].hMessage.X, WInfoWindow(iWindowWidth) / 4);
  EXPECT_EQ(hAll[0].hMessage.Y, WInfoWindow(iWindowHeight) / 2);
  EXPECT_EQ(hAll[2].hMessage.X, 3 * WInfoWindow(iWindowWidth) / 4);
  EXPECT_EQ(hAll[2].hMessage.Y, WInfoWindow(iWindowHeight) / 4);
  EXPECT_NEAR(hAll[2].hMessage.GY, -1.0f, 1e-5f);
}

TEST(Messages, MovesComeWhenAskedForAndOnlyTheLastOfARow) {
  PlayedSession hSession("drag 1 1 9 9\ndrag 1 1 9 9 right\n");
  EXPECT_EQ(hSession.Next().iType, MessageType::MouseDown);
  EXPECT_EQ(hSession.Next().iType, MessageType::MouseUp) << "moves are off at the start";
  WMessageEnable(MessageType::MouseMove, true);
  EXPECT_EQ(hSession.Next().iType, MessageType::MouseMove);
  EXPECT_EQ(hSession.Next().iType, MessageType::MouseDown);
  const Came hMove = hSession.Next();
  EXPECT_EQ(hMove.iType, MessageType::MouseMove);
  EXPECT_NEAR(hMove.hMessage.GX, 9.0f, 1e-4f) << "eight moves in a row are one message, the last";
  EXPECT_EQ(hSession.Next().iType, MessageType::MouseUp);
}

TEST(Messages, TheWheelIsTheExtraButtonsOnePressAStep) {
  PlayedSession hSession("wheel 3 2.5 7.5\nwheel -1 5 5\nwheel 0 5 5\n");
  const std::vector<Came> hAll = hSession.Rest();
  ASSERT_EQ(hAll.size(), 4u) << "a step of the wheel has no release";
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(hAll[i].iType, MessageType::MouseDown);
    EXPECT_EQ(hAll[i].hMessage.VALUE1, i < 3 ? iMouseForward : iMouseBack) << "down is the next one";
    EXPECT_EQ(hAll[i].hMessage.VALUE2, iByWheel);
    EXPECT_EQ(hAll[i].hMessage.VALUE3, 0);
  }
  EXPECT_NEAR(hAll[0].hMessage.GX, 2.5f, 1e-2f);
  EXPECT_NEAR(hAll[0].hMessage.GY, 7.5f, 1e-2f);
}

TEST(Messages, WhatIsPutBackComesFirst) {
  PlayedSession hSession("key a\nkey b\n");
  const Came hFirst = hSession.Next();
  WMessagePutBack(MessageType::Close, {});
  WMessagePutBack(hFirst.iType, hFirst.hMessage);
  EXPECT_EQ(hSession.Next().hMessage.VALUE1, 'a');
  EXPECT_EQ(hSession.Next().iType, MessageType::Close);
  EXPECT_EQ(hSession.Next().hMessage.VALUE1, 'b') << "the script goes on only when nothing waits";
}

/// What WGrInputBox gives for a press at 2, 3 of the graphics area.
struct Box {
  R4 fX2 = 0.0f, fY2 = 0.0f;
  MessageType iType = MessageType::None;
  explicit Box(const Message& hPress = {.VALUE1 = iMouseLeft, .GX = 2.0f, .GY = 3.0f}) {
    WGrInputBox(hPress, fX2, fY2, iType);
  }
};

TEST(InputBox, EndsWhereTheButtonIsReleased) {
  PlayedSession hSession("drag 1 2 7 8.5\nclick 3 4\ndrag 9 9 6 6 right\n");
  for (const auto& [fX, fY] : {
           std::pair{7.0f, 8.5f},
           {3.0f, 4.0f},
           {6.0f, 6.0f}
  }) {
    const Came hPress = hSession.Next();
    ASSERT_EQ(hPress.iType, MessageType::MouseDown);
    const Box hBox(hPress.hMessage);  // by now the button was released
    EXPECT_EQ(hBox.iType, MessageType::MouseUp);
    EXPECT_NEAR(hBox.fX2, fX, 1e-4f);
    EXPECT_NEAR(hBox.fY2, fY, 1e-4f);
  }
  EXPECT_EQ(hSession.Next().iType, MessageType::Close) << "no message of the drag is left";
}

TEST(InputBox, EscEndsItAndMovesAreOffAgain) {
  PlayedSession hSession("key n\nwheel 1 5 5\nkey Esc\ndrag 1 1 5 5\n");
  const Box hBox;
  EXPECT_EQ(hBox.iType, MessageType::Key);
  EXPECT_EQ(hBox.fX2, 2.0f) << "the pointer did not move";
  EXPECT_EQ(hSession.Next().iType, MessageType::MouseDown);
  EXPECT_EQ(hSession.Next().iType, MessageType::MouseUp);
}

TEST(InputBox, ACloseRequestOrAChangeOfSizeIsLeftToTheCaller) {
  PlayedSession hSession("resize 800 500\nclose\nkey a\n");
  EXPECT_EQ(Box().iType, MessageType::Key);
  Came hCame;
  WMessage(hCame.iType, hCame.hMessage);
  while (hCame.iType == MessageType::Expose) WMessage(hCame.iType, hCame.hMessage);
  EXPECT_EQ(hCame.iType, MessageType::Resize);
  EXPECT_EQ(hSession.Next().iType, MessageType::Close);
  EXPECT_EQ(hSession.Next().hMessage.VALUE1, 'a') << "one close request, not two";
}

TEST(InputBox, EndsWithoutAWindow) {
  EXPECT_EQ(Box().iType, MessageType::Key);
  Came hCame;
  WMessagePeek(hCame.iType, hCame.hMessage);
  EXPECT_EQ(hCame.iType, MessageType::None);
}

TEST(Messages, NeverTwoExposuresOrChangesOfSizeWait) {
  PlayedSession hSession("");
  WindowStatusBarParts(32);  // changes the size of the drawing area once more
  std::map<MessageType, int> NCame;
  Came hCame;
  for (WMessagePeek(hCame.iType, hCame.hMessage); hCame.iType != MessageType::None;
       WMessagePeek(hCame.iType, hCame.hMessage)) {
    ++NCame[hCame.iType];
    if (hCame.iType == MessageType::Resize) {
      EXPECT_EQ(hCame.hMessage.HPIX, WInfoWindow(iWindowHeight)) << "the last size counts";
    }
  }
  EXPECT_EQ(NCame, (std::map<MessageType, int>{
                       {MessageType::Expose, 1},
                       {MessageType::Resize, 1}
  }));
}

TEST(Messages, LookingPlaysNoStep) {
  PlayedSession hSession("key a\n");
  Came hCame;
  do WMessagePeek(hCame.iType, hCame.hMessage);
  while (hCame.iType == MessageType::Expose || hCame.iType == MessageType::Resize);
  EXPECT_EQ(hCame.iType, MessageType::None);
  EXPECT_EQ(hSession.Next().iType, MessageType::Key);
}

TEST(Messages, ACloseRequestLeavesTheWindowToTheProgram) {
  PlayedSession hSession("close\nkey a\n");
  EXPECT_EQ(hSession.Next().iType, MessageType::Close);
  EXPECT_EQ(WInfoWindow(iWindowDrawable), 1);
  EXPECT_EQ(hSession.Next().iType, MessageType::Key);
}

TEST(Messages, ADataFileDroppedWhileTheMenuIsUsableIsAMessage) {
  std::ofstream("Line 7.AVG") << "x";
  PlayedSession hSession("drop \"Line 7.AVG\"\nkey a\ndrop \"Line 7.AVG\"\n");
  EXPECT_EQ(hSession.Next().iType, MessageType::FileDropped);
  EXPECT_TRUE(WDroppedFile().ends_with("/Line 7.AVG")) << WDroppedFile();
  EXPECT_EQ(hSession.Next().iType, MessageType::Key);
  WMenuBarState(0);
  EXPECT_EQ(hSession.Next().iType, MessageType::Close);
  EXPECT_EQ(hSession.Errors(), "steps.txt:3: the window does not take Line 7.AVG\n") << "a greyed menu takes no file";
}

TEST(Messages, AReviewTakesNoDroppedFile) {
  std::ofstream("line7.avg") << "x";
  for (const I4 iMenu : {iMenuSection, iNoMenu}) {
    PlayedSession hSession("drop line7.avg\n");
    WMenu(iMenu);
    EXPECT_TRUE(hSession.Rest().empty());
    EXPECT_EQ(Script_Exit_Status(), 3);
  }
}

TEST(Menus, EveryEntryOfTheMainMenuGivesItsCommandOrIsGreyed) {
  for (const MenuRow& hRow : Menu_Rows(iMenuMain)) {
    if (hRow.iCommand == 0) continue;
    SCOPED_TRACE(hRow.sText);
    PlayedSession hSession("menu " + std::to_string(hRow.iCommand) + "\n");
    const bool bThere =
        hRow.iCommand != iCmdAverageRepeats && hRow.iCommand != iCmdMerge && hRow.iCommand != iCmdReadStn;
    WMenuSetState(hRow.iCommand, 1);
    const std::vector<Came> hAll = hSession.Rest();
    ASSERT_EQ(hAll.size(), bThere ? 1u : 0u);
    EXPECT_EQ(Script_Exit_Status(), bThere ? 0 : 3) << "a command that is not there stays grey";
    if (!bThere) continue;
    EXPECT_EQ(hAll[0].hMessage.VALUE1, hRow.iCommand);
  }
}

TEST(Menus, GreyingTheBarKeepsTheStateOfEachEntry) {
  PlayedSession hSession("menu 40011\nmenu 40016\nmenu 40009\n");
  WMenuBarState(0);
  WMenuSetState(iCmdSave, 0);
  WMenuBarState(1);
  EXPECT_EQ(hSession.Next().hMessage.VALUE1, iCmdExit);
  EXPECT_EQ(hSession.Next().hMessage.VALUE1, iCmdAutoSkip);
  EXPECT_EQ(hSession.Next().iType, MessageType::Close);
  EXPECT_EQ(hSession.Errors(), "steps.txt:3: command 40009 is greyed\n");
}

TEST(Menus, KeysChooseTheEntriesOfTheBarOnShow) {
  PlayedSession hSession("key Ctrl+S\nkey Ctrl+Shift+S\nkey Alt+x\nkey Alt+F\nkey Down\nkey Enter\nkey Ctrl+O\n");
  for (const I4 iCommand : {iCmdSave, iCmdSaveAs, iCmdExit, iCmdOpen}) {
    EXPECT_EQ(hSession.Next().hMessage.VALUE1, iCommand);
  }
  WMenu(iMenuSection);
  EXPECT_EQ(hSession.Next().iType, MessageType::Close) << "the keys of another bar do nothing";
  EXPECT_EQ(Script_Exit_Status(), 0);
}

TEST(Drawing, TextIsAsLargeAsTheFontSaysWithinWhatCanBeRead) {
  PlayedSession hSession("");
  IGrUnits(0.0f, 0.0f, static_cast<R4>(WInfoWindow(iWindowWidth)), static_cast<R4>(WInfoWindow(iWindowHeight)));
  WGrTextFont(16.0f / static_cast<R4>(WInfoWindow(iWindowWidth)), 20.0f / static_cast<R4>(WInfoWindow(iWindowHeight)));
  EXPECT_NEAR(InfoGraphics(iCharWidth), 16.0f, 0.01f);
  EXPECT_NEAR(InfoGraphics(iCharHeight), 20.0f, 0.01f);
  EXPECT_NEAR(WGrTextLength("0123456789"), 160.0f, 0.1f);
  WGrTextFont(0.0001f, 0.0001f);
  EXPECT_NEAR(InfoGraphics(iCharHeight), 9.0f, 0.01f);
  EXPECT_GT(InfoGraphics(iCharWidth), 0.7f * 0.5f * 9.0f);
}

// Layers above are tested without a window: nothing may crash, hang, or pretend.
TEST(Toolkit, WithoutAWindowEveryCallIsHarmless) {
  InfoError();
  Came hCame;
  WMessage(hCame.iType, hCame.hMessage);
  EXPECT_EQ(hCame.iType, MessageType::Close) << "a loop that waits for a message must end";
  EXPECT_EQ(InfoError(), iErrNoWindow);
  WMessagePeek(hCame.iType, hCame.hMessage);
  EXPECT_EQ(hCame.iType, MessageType::None);
  EXPECT_EQ(WInfoWindow(iWindowDrawable), 0);
  EXPECT_EQ(WInfoWindow(iWindowWidth), 0);
  EXPECT_EQ(WInfoScreen(iScreenWidth), 0);
  EXPECT_EQ(WGrTextLength("text"), 0.0f);
  const auto Sets_Error = [](auto Call) {
    InfoError();
    Call();
    return InfoError() == iErrNoWindow;
  };
  EXPECT_TRUE(Sets_Error([] { WindowTitle("title"); }));
  EXPECT_TRUE(Sets_Error([] { WindowOutStatusBar(2, "text"); }));
  EXPECT_TRUE(Sets_Error([] { WindowBusy(true); }));
  EXPECT_TRUE(Sets_Error([] { WCursorShape(iCursorPick); }));
  EXPECT_TRUE(Sets_Error([] { WMenu(iMenuMain); }));
  EXPECT_TRUE(Sets_Error([] { WMenuSetState(iCmdSave, 0); }));
  EXPECT_TRUE(Sets_Error([] { WindowClear(); }));
  EXPECT_TRUE(Sets_Error([] { WGrTextString(0.0f, 0.0f, "text"); }));
  WMessageEnable(MessageType::MouseMove, false);
  WindowBell();
  WindowClose();
}

}  // namespace
}  // namespace quillan
