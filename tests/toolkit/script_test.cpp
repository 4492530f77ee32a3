#include "toolkit/script/script.h"

#include <gtest/gtest.h>

#include <QImage>

#include "support/played_session.h"
#include "toolkit/dialog/dialog.h"
#include "toolkit/draw/plot_axes.h"

namespace quillan {
namespace {

using Words = std::vector<std::string>;

TEST(ScriptParse, CutsALineIntoItsWords) {
  const std::pair<const char*, Words> hCases[] = {
      {"menu 40016",                           {"menu", "40016"}                     },
      {" \tset  1006\t2.5 ",                   {"set", "1006", "2.5"}                },
      {"expect \"two words\"",                 {"expect", "two words"}               },
      {"set 1025 \"\"",                        {"set", "1025", ""}                   },
      {"set 1025 \"say \"\"hello\"\" twice\"", {"set", "1025", "say \"hello\" twice"}},
      {"file in\"put a\"/b.avg",               {"file", "input a/b.avg"}             },
      {"expect \"no end",                      {"expect", "no end"}                  },
      {"key #",                                {"key", "#"}                          },
      {"file C:\\data\\x.avg",                 {"file", "C:\\data\\x.avg"}           },
  };
  for (const auto& [sLine, sWord] : hCases) {
    const std::vector<ScriptStep> hStep = Script_Parse(sLine);
    ASSERT_EQ(hStep.size(), 1u) << sLine;
    EXPECT_EQ(hStep[0].sWord, sWord) << sLine;
  }
}

TEST(ScriptParse, CountsCommentsAndEmptyLinesAsLines) {
  const std::vector<ScriptStep> hStep = Script_Parse("\xEF\xBB\xBF# remark\r\n\r\n  # another\r\nclose\r\n\nkey a");
  ASSERT_EQ(hStep.size(), 2u);
  EXPECT_EQ(hStep[0].iLine, 4);
  EXPECT_EQ(hStep[0].sWord, Words{"close"}) << "a carriage return is no part of the word";
  EXPECT_EQ(hStep[1].iLine, 6);
  EXPECT_TRUE(Script_Parse("").empty());
}

TEST(Script, AStepThatDoesNotFitTheScreenEndsTheRunWithItsReason) {
  const std::pair<const char*, const char*> hCases[] = {
      {"jump 3",                      "there is no step jump"                                                         },
      {"menu",                        "the step is written: menu NAME"                                                },
      {"click 1 2 left Shift Ctrl 3", "the step is written: click X Y [left|right|middle|back|forward] [Shift] [Ctrl]"},
      {"menu 40021",                  "the menu on show has no command 40021"                                         },
      {"press 1009",                  "no dialog is open"                                                             },
      {"answer ok",                   "no message box is open"                                                        },
      {"file a.avg",                  "no file dialog is open"                                                        },
      {"key F99",                     "there is no key F99"                                                           },
      {"click 11 5",                  "the position lies outside the drawing area"                                    },
      {"click 1 1 upper",             "the button is left, right, middle, back or forward"                            },
      {"drag 1 1 2 2 Shift up",       "the button is left or right"                                                   },
      {"drag 1 1 2 2 back",           "the button is left or right"                                                   },
      {"point 1 1",                   "there are no plot axes"                                                        },
      {"check 1005 maybe",            "no dialog is open"                                                             },
      {"expect nonsense",             "\"nonsense\" is not on the screen, which shows \"QUILLAN test\""               },
      {"drop missing.avg",            "there is no file missing.avg"                                                  },
      {"drop steps.txt",              "the window does not take steps.txt"                                            },
      {"snapshot no/such/folder.png", "cannot write no/such/folder.png"                                               },
  };
  for (const auto& [sStep, sReason] : hCases) {
    PlayedSession hSession("# first line\n" + std::string(sStep) + "\nkey a\n");
    EXPECT_TRUE(hSession.Rest().empty()) << sStep << ": the step after it must not be played";
    EXPECT_EQ(hSession.Errors(), "steps.txt:2: " + std::string(sReason) + "\n");
    EXPECT_EQ(Script_Exit_Status(), 3);
  }
}

TEST(Script, APointIsInThePlotsOwnUnits) {
  PlayedSession hSession("point 5 100\npoint 5 1000 right\nmenu 40016\npoint 5 100\n");
  Show_Test_Menu();
  IPgArea(0.1f, 0.1f, 0.9f, 0.9f);
  IPgScaling(Scaling::Linear, Scaling::Logarithmic);
  IPgUnits(0.0f, 10.0f, 10.0f, 1000.0f);
  const Message hLeft = hSession.Next();
  EXPECT_EQ(hLeft.VALUE1, iMouseLeft);
  EXPECT_NEAR(hLeft.GX, 5.0f, 1e-4f);
  EXPECT_NEAR(hLeft.GY, 5.0f, 1e-4f);
  EXPECT_EQ(hSession.Next().iType, MessageType::MouseUp);
  const Message hRight = hSession.Next();
  EXPECT_EQ(hRight.VALUE1, iMouseRight);
  EXPECT_NEAR(hRight.GY, 9.0f, 1e-4f);
  EXPECT_EQ(hSession.Next().iType, MessageType::MouseUp);
  EXPECT_EQ(hSession.Next().iType, MessageType::Menu);
  WMenu(iTestMenu);
  EXPECT_EQ(hSession.Next().iType, MessageType::Close);
  EXPECT_EQ(hSession.Errors(), "steps.txt:4: there are no plot axes\n") << "the plot is gone with its menu";
}

TEST(Script, ExpectFindsWhatTheUserReads) {
  PlayedSession hSession("expect QUILLAN\nexpect \"line one line two\"\nexpect ERROR\nanswer cancel\n");
  EXPECT_FALSE(WMessageBox(BoxButtons::OkCancel, BoxIcon::Stop, "line one\rline two", "ERROR"));
  EXPECT_EQ(hSession.Errors(), "");
  EXPECT_EQ(hSession.Next().iType, MessageType::Close);
  EXPECT_EQ(Script_End(), 0);
}

TEST(Script, AFailureAtABoxCancelsItAndEveryOtherOne) {
  PlayedSession hSession("menu 40005\n");
  EXPECT_FALSE(WMessageBox(BoxButtons::YesNo, BoxIcon::Question, "Should a.avg data be saved?", ""));
  EXPECT_EQ(hSession.Errors(), "steps.txt:1: the message box \"Should a.avg data be saved?\" waits for an answer\n");
  EXPECT_EQ(WSelectFile2("data|*.avg|", iSelectOpen, "Open", "a.avg"), "");
  EXPECT_EQ(hSession.Next().iType, MessageType::Close);
  EXPECT_EQ(hSession.Next().iType, MessageType::Close);
}

TEST(Script, ABoxThatWaitsAtTheEndOfTheStepsIsAFailure) {
  PlayedSession hSession("key a\n\nkey b\n");
  hSession.Next();
  hSession.Next();
  WMessageBox(BoxButtons::Ok, BoxIcon::Warning, "Disk full", "");
  EXPECT_EQ(hSession.Errors(),
            "steps.txt:3: the steps are at their end, and the message box \"Disk full\" waits for an answer\n");
  EXPECT_EQ(Script_Exit_Status(), 3);
}

TEST(Script, ADialogBesideTheWindowThatWaitsAtTheEndIsAFailureAndAToolWindowIsNone) {
  for (const I4 iMode : {iShowSemiModeless, iShowTool}) {
    PlayedSession hSession("key a\n");
    hSession.Next();
    WDialogLoad(104);
    WDialogShow(iCentred, iCentred, iMode);
    EXPECT_EQ(hSession.Next().iType, MessageType::Close);
    EXPECT_EQ(Script_Exit_Status(), iMode == iShowTool ? 0 : 3) << hSession.Errors();
    WDialogUnload();
  }
}

TEST(Script, StepsThatAreLeftWhenTheProgramHasEndedAreAFailure) {
  PlayedSession hSession("key a\n\nset 1006 \"5 m\"\nkey b\n");
  hSession.Next();
  EXPECT_EQ(Script_Exit_Status(), 0);
  EXPECT_EQ(Script_End(), 3);
  EXPECT_EQ(hSession.Errors(), "steps.txt:3: the program has ended before the step set 1006 5 m\n");
}

TEST(Script, AScriptThatCannotBeReadEndsTheRun) {
  std::ostringstream sErrors;
  std::streambuf* hKept = std::cerr.rdbuf(sErrors.rdbuf());
  for (const char* sPath : {"missing.txt", "."}) {
    Script_Load(sPath);
    EXPECT_EQ(Script_Exit_Status(), 3) << sPath;
    EXPECT_TRUE(Script_Is_Playing()) << "the run must still be brought to its end";
  }
  EXPECT_EQ(sErrors.str(), "missing.txt: the script cannot be read\n.: the script cannot be read\n");
  Script_Load({});
  EXPECT_EQ(Script_Exit_Status(), 0);
  EXPECT_FALSE(Script_Is_Playing());
  std::cerr.rdbuf(hKept);
}

TEST(Script, ASnapshotShowsTheWholeWindowAndGrowsForWhatHangsOver) {
  PlayedSession hSession("resize 640 480\nsnapshot window.png\nkey a\nresize 200 160\nsnapshot box.png\nanswer ok\n");
  EXPECT_EQ(hSession.Next().iType, MessageType::Key);
  EXPECT_EQ(QImage("window.png").size(), QSize(640, 480));
  WMessageBox(BoxButtons::Ok, BoxIcon::Information, std::string(60, 'W'), "");
  EXPECT_GT(QImage("box.png").width(), 400);
}

}  // namespace
}  // namespace quillan
