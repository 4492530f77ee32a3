#include "toolkit/window/messages.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>

#include "support/played_session.h"

namespace quillan {
namespace {

TEST(Messages, KeysGiveTheirCharacterOrCode) {
  PlayedSession hSession(
      "key a\nkey B\nkey é\nkey Esc\nkey Enter\nkey Tab\nkey Up\nkey Down\nkey Right\nkey Left\n"
      "key Ctrl+a\nkey Alt+b\nkey Ctrl+Z\nkey Ctrl+Y\nkey Ctrl+Shift+Z\n");
  std::vector<I4> iKeys;
  for (const Message& h : hSession.Rest()) {
    EXPECT_EQ(h.iType, MessageType::Key);
    iKeys.push_back(h.VALUE1);
  }
  EXPECT_EQ(iKeys, (std::vector<I4>{'a', 'B', 0xE9, 27, 13, 9, 258, 259, 260, 261, iKeyUndo, iKeyRedo, iKeyRedo}))
      << "any other letter with Ctrl or Alt is no message";
}

TEST(Messages, ClicksHaveButtonAndPositionInUnitsAndPixels) {
  for (const auto& [sButton, iButton] : {
           std::pair{"left",    1},
           {"right",   3},
           {"back",    4},
           {"forward", 5}
  }) {
    SCOPED_TRACE(sButton);
    PlayedSession hSession("click 2.5 7.5 " + std::string(sButton) + "\n");
    const std::vector<Message> hAll = hSession.Rest();
    ASSERT_EQ(hAll.size(), 2u);
    EXPECT_EQ(hAll[0].iType, MessageType::MouseDown);
    EXPECT_EQ(hAll[1].iType, MessageType::MouseUp);
    for (const Message& h : hAll) {
      EXPECT_EQ(h.VALUE1, iButton);
      EXPECT_NEAR(h.GX, 2.5f, 1e-5f);
      EXPECT_NEAR(h.GY, 7.5f, 1e-5f);
      EXPECT_EQ(h.X, WInfoWindow(iWindowWidth) / 4);
      EXPECT_EQ(h.Y, WInfoWindow(iWindowHeight) / 4);
    }
  }
  PlayedSession hSession("click 0 0\nclick 100 -1\n");
  IGrArea(0.25f, 0.5f, 0.75f, 1.0f);
  IGrUnits(0.0f, 0.0f, 100.0f, -2.0f);  // units may fall
  const std::vector<Message> hAll = hSession.Rest();
  ASSERT_EQ(hAll.size(), 4u);
  EXPECT_EQ(hAll[0].X, WInfoWindow(iWindowWidth) / 4);
  EXPECT_EQ(hAll[0].Y, WInfoWindow(iWindowHeight) / 2);
  EXPECT_EQ(hAll[2].X, 3 * WInfoWindow(iWindowWidth) / 4);
  EXPECT_NEAR(hAll[2].GY, -1.0f, 1e-5f);
}

TEST(Messages, MovesComeWhenAskedForAndOnlyTheLastOfARow) {
  PlayedSession hSession("drag 1 1 9 9\ndrag 1 1 9 9 right\n");
  EXPECT_EQ(hSession.Next().iType, MessageType::MouseDown);
  EXPECT_EQ(hSession.Next().iType, MessageType::MouseUp) << "moves are off at the start";
  WMessageEnable(MessageType::MouseMove, true);
  EXPECT_EQ(hSession.Next().iType, MessageType::MouseMove);
  EXPECT_EQ(hSession.Next().iType, MessageType::MouseDown);
  const Message hMove = hSession.Next();
  EXPECT_EQ(hMove.iType, MessageType::MouseMove);
  EXPECT_NEAR(hMove.GX, 9.0f, 1e-4f) << "eight moves in a row are one message, the last";
  EXPECT_EQ(hSession.Next().iType, MessageType::MouseUp);
}

TEST(Messages, TheWheelIsTheExtraButtonsOnePressAStep) {
  PlayedSession hSession("wheel 3 2.5 7.5\nwheel -1 5 5\nwheel 0 5 5\n");
  const std::vector<Message> hAll = hSession.Rest();
  ASSERT_EQ(hAll.size(), 4u) << "a step of the wheel has no release";
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(hAll[i].iType, MessageType::MouseDown);
    EXPECT_EQ(hAll[i].VALUE1, i < 3 ? iMouseForward : iMouseBack) << "down is the next one";
    EXPECT_EQ(hAll[i].VALUE2, iByWheel);
  }
  EXPECT_NEAR(hAll[0].GX, 2.5f, 1e-2f);
  EXPECT_NEAR(hAll[0].GY, 7.5f, 1e-2f);
}

TEST(Messages, WhatIsPutBackComesFirst) {
  PlayedSession hSession("key a\nkey b\n");
  const Message hFirst = hSession.Next();
  WMessagePutBack({.iType = MessageType::Close});
  WMessagePutBack(hFirst);
  EXPECT_EQ(hSession.Next().VALUE1, 'a');
  EXPECT_EQ(hSession.Next().iType, MessageType::Close);
  EXPECT_EQ(hSession.Next().VALUE1, 'b') << "the script goes on only when nothing waits";
}

constexpr Message hPressAt23{.iType = MessageType::MouseDown, .VALUE1 = iMouseLeft, .GX = 2.0f, .GY = 3.0f};

TEST(InputBox, EndsWhereTheButtonIsReleased) {
  PlayedSession hSession("drag 1 2 7 8.5\nclick 3 4\ndrag 9 9 6 6 right\n");
  for (const auto& [fX, fY] : {
           std::pair{7.0f, 8.5f},
           {3.0f, 4.0f},
           {6.0f, 6.0f}
  }) {
    const InputBox hBox = WGrInputBox(hSession.Next());  // by now the button was released
    EXPECT_TRUE(hBox.bReleased);
    EXPECT_NEAR(hBox.fX2, fX, 1e-4f);
    EXPECT_NEAR(hBox.fY2, fY, 1e-4f);
  }
  EXPECT_EQ(hSession.Next().iType, MessageType::Close) << "no message of the drag is left";
}

TEST(InputBox, EscEndsItAndMovesAreOffAgain) {
  PlayedSession hSession("key n\nwheel 1 5 5\nkey Esc\ndrag 1 1 5 5\n");
  const InputBox hBox = WGrInputBox(hPressAt23);
  EXPECT_FALSE(hBox.bReleased);
  EXPECT_EQ(hBox.fX2, 2.0f) << "the pointer did not move";
  EXPECT_EQ(hSession.Next().iType, MessageType::MouseDown);
  EXPECT_EQ(hSession.Next().iType, MessageType::MouseUp);
}

TEST(InputBox, ACloseRequestOrAChangeOfSizeIsLeftToTheCaller) {
  PlayedSession hSession("resize 800 500\nclose\nkey a\n");
  EXPECT_FALSE(WGrInputBox(hPressAt23).bReleased);
  Message h = WMessage();
  while (h.iType == MessageType::Expose) h = WMessage();
  EXPECT_EQ(h.iType, MessageType::Resize);
  EXPECT_EQ(hSession.Next().iType, MessageType::Close);
  EXPECT_EQ(hSession.Next().VALUE1, 'a') << "one close request, not two";
}

TEST(Messages, NeverTwoExposuresOrChangesOfSizeWaitAndLookingPlaysNoStep) {
  PlayedSession hSession("key a\n");
  WindowStatusBarParts(32);  // changes the size of the drawing area once more
  std::map<MessageType, int> NCame;
  for (Message h = WMessagePeek(); h.iType != MessageType::None; h = WMessagePeek()) {
    ++NCame[h.iType];
    if (h.iType == MessageType::Resize) {
      EXPECT_EQ(h.HPIX, WInfoWindow(iWindowHeight)) << "the last size counts";
    }
  }
  EXPECT_EQ(NCame, (std::map<MessageType, int>{
                       {MessageType::Expose, 1},
                       {MessageType::Resize, 1}
  }));
  EXPECT_EQ(hSession.Next().iType, MessageType::Key);
}

TEST(Messages, ADataFileIsTakenWhileTheMainMenuIsUsable) {
  std::ofstream("Line 7.AVG") << "x";
  const std::pair<const char*, std::function<void()>> hNotNow[] = {
      {"a greyed menu", [] { WMenuBarState(0); }},
      {"another menu",  Show_Test_Menu          },
      {"no menu",       [] { WMenu(iNoMenu); }  },
  };
  for (const auto& [sWhat, Change] : hNotNow) {
    PlayedSession hSession("drop \"Line 7.AVG\"\nkey a\ndrop \"Line 7.AVG\"\n");
    EXPECT_EQ(hSession.Next().iType, MessageType::FileDropped);
    EXPECT_TRUE(WDroppedFile().ends_with("/Line 7.AVG")) << WDroppedFile();
    EXPECT_EQ(hSession.Next().iType, MessageType::Key);
    Change();
    EXPECT_EQ(hSession.Next().iType, MessageType::Close);
    EXPECT_EQ(hSession.Errors(), "steps.txt:3: the window does not take Line 7.AVG\n") << sWhat;
  }
}

TEST(Menus, GreyingTheBarKeepsTheStateOfEachEntry) {
  PlayedSession hSession("menu 40011\nmenu 40016\nmenu 40009\n");
  Show_Test_Menu();
  WMenuBarState(0);
  WMenuSetState(40009, 0);
  WMenuBarState(1);
  EXPECT_EQ(hSession.Next().VALUE1, 40011);
  EXPECT_EQ(hSession.Next().VALUE1, 40016);
  EXPECT_EQ(hSession.Next().iType, MessageType::Close);
  EXPECT_EQ(hSession.Errors(), "steps.txt:3: command 40009 is greyed\n");
}

TEST(Menus, KeysChooseTheEntriesOfTheBarOnShow) {
  PlayedSession hSession("key Ctrl+S\nkey Ctrl+Shift+S\nkey Alt+x\nkey Alt+F\nkey Down\nkey Enter\nkey Ctrl+O\n");
  Show_Test_Menu();
  for (const I4 iCommand : {40009, 40010, 40011, 40005}) EXPECT_EQ(hSession.Next().VALUE1, iCommand);
  WMenu(iNoMenu);
  EXPECT_EQ(hSession.Next().iType, MessageType::Close) << "the keys of a bar that is gone do nothing";
  EXPECT_EQ(Script_Exit_Status(), 0);
}

// Layers above are tested without a window: nothing may crash, hang, or pretend.
TEST(Menus, AnEntryThatSaysWhatItWouldDoKeepsItsTextAndStateInEveryBar) {
  constexpr I4 iCmdLive = 49001;
  constexpr MenuRow hBar[] = {
      {0, iCmdLive, "Back", "", "Ctrl+Z; Ctrl+Y"}
  };
  PlayedSession hSession("key Ctrl+Y\nkey Alt+B\nmenu 49001\n");
  WMenuDefine(iTestMenu, hBar);
  WMenuEntry(iCmdLive, "&Back " + As_Menu_Text("A&B"), true);
  WMenu(iTestMenu);
  EXPECT_EQ(hSession.Next().VALUE1, iCmdLive) << "the second of its keys";
  EXPECT_EQ(hSession.Next().VALUE1, iCmdLive) << "its letter, and not the one after the & of the name";
  WMenuEntry(iCmdLive, "Back", false);
  WMenu(iTestMenu);
  WMenuSetState(iCmdLive, 1);  // what applies elsewhere does not wake it
  EXPECT_EQ(hSession.Next().iType, MessageType::Close);
  EXPECT_NE(hSession.Errors().find("greyed"), std::string::npos);
}

TEST(Toolkit, WithoutAWindowEveryCallIsHarmless) {
  InfoError();
  EXPECT_EQ(WMessage().iType, MessageType::Close) << "a loop that waits for a message must end";
  EXPECT_EQ(InfoError(), iErrNoWindow);
  EXPECT_EQ(WMessagePeek().iType, MessageType::None);
  EXPECT_FALSE(WGrInputBox(hPressAt23).bReleased);
  EXPECT_EQ(WInfoWindow(iWindowDrawable) + WInfoWindow(iWindowWidth) + WInfoScreen(iScreenWidth), 0);
  const std::function<void()> hCall[] = {
      [] { WindowTitle("title"); },
      [] { WindowModified(true); },
      [] { WindowOutStatusBar(2, "text"); },
      [] { WindowBusy(true); },
      [] { WCursorShape(iCursorPick); },
      [] { WMenu(iTestMenu); },
      [] { WMenuSetState(40009, 0); },
      [] { WindowClear(); },
      [] { WGrTextString(0.0f, 0.0f, "text"); },
      [] { IGrSegment(1.0f, 1.0f, 5.0f, 5.0f); },
  };
  for (const auto& Call : hCall) {
    InfoError();
    Call();
    EXPECT_EQ(InfoError(), iErrNoWindow) << &Call - hCall;
  }
  WMessageEnable(MessageType::MouseMove, false);
  WindowBell();
  WindowClose();
}

TEST(Messages, OfAChildWindowSayWhereTheyComeFromAndGoWithIt) {
  PlayedSession hSession("click 1 1\nkey a\nclose\nclose\nkey b\nkey c\n");
  WindowOpenChild2(500, 350, "child");
  IGrUnits(0.0f, 0.0f, 10.0f, 10.0f);
  const Message hPress = hSession.Next();
  EXPECT_EQ(hPress.iType, MessageType::MouseDown);
  EXPECT_EQ(hPress.VALUE3, iInChild);
  EXPECT_NEAR(hPress.GX, 1.0f, 0.05f);
  EXPECT_EQ(hSession.Next().iType, MessageType::MouseUp);
  EXPECT_EQ(hSession.Next().VALUE1, 'a');
  const Message hClose = hSession.Next();
  EXPECT_EQ(hClose.iType, MessageType::Close);
  EXPECT_EQ(hClose.VALUE3, iInChild);
  WMessagePutBack(hClose);
  WMessagePutBack({.iType = MessageType::Key, .VALUE1 = 'z'});
  WMessagePutBack({.iType = MessageType::Menu, .VALUE1 = 40005});
  WindowCloseChild();
  EXPECT_EQ(hSession.Next().iType, MessageType::Menu) << "what the main window was given stays";
  const Message hMain = hSession.Next();
  EXPECT_EQ(hMain.iType, MessageType::Close);
  EXPECT_EQ(hMain.VALUE3, 0);
  EXPECT_EQ(hSession.Next().VALUE1, 'b');
}

TEST(Messages, ATimerComesOnceUnlessItIsTakenBack) {
  Open_Window(400, 300);
  WMessageTimer(1, 7);
  WMessageTimer(1, 8);
  WMessageTimer(2, 9);
  WMessageTimer(0, 8);
  std::vector<I4> iTimer;
  while (iTimer.empty() || iTimer.back() != 9) {
    const Message h = WMessage();
    if (h.iType == MessageType::Timer) iTimer.push_back(h.VALUE1);
  }
  EXPECT_EQ(iTimer, (std::vector<I4>{7, 9}));
  WMessageTimer(0, 7);  // long gone
  WMessageTimer(60000, 7);
  WindowClose();
  WMessageTimer(1, 7);
  EXPECT_EQ(InfoError(), iErrNoWindow);
}

}  // namespace
}  // namespace quillan
