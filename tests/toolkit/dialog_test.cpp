// Dialogs, boxes and the file dialog off-screen, used by a script's events as a user would use them.
#include "toolkit/dialog/dialog.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <functional>

#include "support/played_session.h"
#include "toolkit/dialog/grid.h"

namespace quillan {
namespace {

void Play(std::string_view sSteps) {
  std::ofstream("steps.txt", std::ios::binary) << sSteps;
  Script_Load("steps.txt");
}

class Dialogs : public testing::Test {
 protected:
  void SetUp() override {
    Open_Window(1200, 900, iMenuMain);
    WMessageEnable(MessageType::Field, true);
  }
  void TearDown() override {
    Script_Load({});
    WindowClose();
  }
};

/// Plays steps on the current dialog until a button is pushed, and gives the messages: "1049 1010!" for the field 1049
/// and the button 1010.
std::string Messages_of(std::string_view sSteps) {
  Play(sSteps);
  WDialogShow(iCentred, iCentred, iShowSemiModeless);
  std::string sAll;
  for (Message h; h.iType != MessageType::Button && h.iType != MessageType::Close;) {
    h = WMessage();
    if (h.iType == MessageType::Field) sAll += std::to_string(h.VALUE1) + ' ';
    if (h.iType == MessageType::Button) sAll += std::to_string(h.VALUE1) + '!';
  }
  WDialogHide();
  return sAll;
}

/// The button that ends the current dialog when the steps are played on it.
I4 Exit_of(std::string_view sSteps) {
  Play(sSteps);
  return WDialogShow(iCentred, iCentred, iShowModal);
}

TEST_F(Dialogs, FitASmallScreen) {
  for (const I4 iDialog : {101, 103, 104, 109, 112, 113}) {
    WDialogLoad(iDialog);
    const std::string sPicture = std::to_string(iDialog) + ".png";
    Messages_of("snapshot " + sPicture + "\npress 1010");
    EXPECT_LT(WInfoDialog(iDialogWidth), 1280) << iDialog;
    EXPECT_TRUE(std::filesystem::exists(sPicture)) << iDialog;
    WDialogUnload();
  }
}

TEST_F(Dialogs, ContinueAloneChangesNoDigitAndNoByte) {
  const std::string sLatin1 = "M\xE9xico", sLong(140, 'x');
  const std::vector<R4> fArea{0.004f, 10000.123f, 412.0912f};
  WDialogLoad(103);
  WDialogPutReal(1049, 123.456789f, "(F12.1)");
  WDialogPutReal(1045, 2.0e9f, "(F12.1)");  // out of range, but the file's own value
  WDialogPutDouble(1047, 656123.123456789, "(F12.1)");
  WDialogPutInteger(1101, 5000);
  WDialogPutString(1069, sLatin1);
  WDialogPutString(1025, sLong);
  WGridPutReal(1038, 1, fArea, "(1P,G12.4E1)");
  EXPECT_EQ(Messages_of("field 1049 123.5\npress 1009"), "1009!");
  EXPECT_EQ(Script_Exit_Status(), 0);
  EXPECT_EQ(WDialogGetReal(1049), 123.456789f);
  EXPECT_EQ(WDialogGetReal(1045), 2.0e9f);
  EXPECT_EQ(WDialogGetDouble(1047), 656123.123456789);
  EXPECT_EQ(WDialogGetInteger(1101), 5000);
  EXPECT_EQ(WDialogGetString(1069), sLatin1);
  EXPECT_EQ(WDialogGetString(1025), sLong);
  EXPECT_EQ(WGridGetReal(1038, 1), (std::vector<std::optional<R4>>(fArea.begin(), fArea.end())));
}

TEST_F(Dialogs, NumbersStandInTheirForm) {
  const struct {
    R8 dValue;
    const char* sForm;
    const char* sShown;
  } hCase[] = {
      {270.0,    "(F12.1)",      "270.0"      },
      {0.25,     "(F12.1)",      "0.2"        }, // an exact tie goes to the even digit
      {-0.01,    "(F12.1)",      "-0.0"       },
      {179.6,    "(F8.0)",       "180"        },
      {-1.5E12,  "(F12.1)",      "-1.5000E+12"}, // too wide for the field
      {10000.0,  "(1P,G12.4E1)", "1.0000E+4"  },
      {9999.96,  "(1P,G12.4E1)", "1.0000E+4"  }, // five digits once it is rounded
      {412.0912, "(1P,G12.4E1)", "412.1"      },
      {0.1,      "(1P,G12.4E1)", "0.1000"     },
      {0.05,     "(1P,G12.4E1)", "5.0000E-2"  },
      {0.0,      "(1P,G12.4E1)", "0.000"      },
      {1234.5,   "(ES12.3)",     "1.234E+03"  },
      {dDummy,   "(F12.1)",      ""           },
  };
  WDialogLoad(103);
  for (const auto& hRow : hCase) {
    WDialogPutDouble(1051, hRow.dValue, hRow.sForm);
    Messages_of("field 1051 \"" + std::string(hRow.sShown) + "\"\npress 1009");
    EXPECT_EQ(Script_Exit_Status(), 0) << hRow.dValue << ' ' << hRow.sForm;
  }
}

TEST_F(Dialogs, WhatCannotBeUsedIsNotRead) {
  const struct {
    const char* sTyped;
    std::optional<R4> fRead;
  } hCase[] = {
      {"45",      45.0f },
      {" +12.5 ", 12.5f },
      {"1e2",     100.0f},
      {"360",     360.0f},
      {"0.1",     0.1f  },
      {"",        {}    },
      {"  ",      {}    },
      {"360.1",   {}    },
      {"-361",    {}    },
      {"abc",     {}    },
      {"1,5",     {}    },
      {"12 m",    {}    },
      {"nan",     {}    },
      {"+-1",     {}    },
      {"1e99",    {}    },
  };
  WDialogLoad(103);
  for (const auto& hRow : hCase) {
    WDialogPutReal(1049, 270.0f, "(F12.1)");
    EXPECT_EQ(Messages_of("set 1049 \"" + std::string(hRow.sTyped) + "\"\npress 1009"), "1049 1009!") << hRow.sTyped;
    EXPECT_EQ(WDialogGetReal(1049), hRow.fRead) << hRow.sTyped;
  }
  Messages_of("set 1045 1E-9\npress 1009");
  EXPECT_EQ(WDialogGetReal(1045), 1.0e-9f) << "the limit itself, which is just below the limit once it is an R4";

  WGridRangeReal(1038, 1, 0.01, 1.0e9);
  WGridPutReal(1038, 1, std::vector<R4>{1.0f, 2.0f, fDummy}, "(1P,G12.4E1)");
  Messages_of("cell 1038 1 1 0\ncell 1038 2 1 x\npress 1009");
  EXPECT_EQ(WGridGetReal(1038, 1), std::vector<std::optional<R4>>(3)) << "out of range, no number, missing";

  WDialogLoad(101);
  WDialogRangeInteger(1003, 1, 20);
  for (const auto& [sTyped, iRead] : {
           std::pair<std::string, std::optional<I4>>("20", 20), {"21",  {}},
              {"0",   {}},
              {"5.0", {}}
  }) {
    Messages_of("set 1003 " + sTyped + "\npress 1009");
    EXPECT_EQ(WDialogGetInteger(1003), iRead) << sTyped;
  }
  EXPECT_EQ(InfoError(), iErrNone) << "what the user types is no error of the program";
}

TEST_F(Dialogs, ReportEachCompleteEditOnceAndBeforeTheButton) {
  WDialogLoad(103);
  WDialogPutReal(1049, 270.0f, "(F12.1)");
  WDialogPutMenu1(1040, std::vector<std::string>{"m", "ft"}, 1);
  WDialogPutCheckBox(1105, false);
  WGridPutReal(1038, 1, std::vector<R4>{1.0f, 2.0f, 3.0f}, "(1P,G12.4E1)");
  EXPECT_EQ(Messages_of("set 1049 45\nset 1049 45\ncheck 1105 on\ncheck 1105 on\nchoose 1040 2\nchoose 1040 2\n"
                        "cell 1038 2 1 50\ncell 1038 2 1 50\npress 1107"),
            "1049 1105 1040 1038 1107!");
  EXPECT_EQ(WDialogGetMenu1(1040), 2);
  EXPECT_EQ(WDialogGetCheckBox(1105), true);
  EXPECT_EQ(WGridGetReal(1038, 1), (std::vector<std::optional<R4>>{1.0f, 50.0f, 3.0f}));
}

TEST_F(Dialogs, EnterCompletesTheFieldAndContinues) {
  WDialogLoad(101);
  WDialogPutInteger(1002, 1);
  // The first field has the focus, its text selected: typing replaces it.
  EXPECT_EQ(Messages_of("key 9\nkey Enter"), "1002 1009!");
  EXPECT_EQ(WDialogGetInteger(1002), 9);
  EXPECT_EQ(Messages_of("key Up\nkey Up\nkey Tab\nkey Esc"), "1002 1002 1010!");
  EXPECT_EQ(WDialogGetInteger(1002), 11);
}

TEST_F(Dialogs, StepsOfANumberMayCount) {
  WDialogLoad(109);
  WDialogRangeInteger(1057, 1, 3);
  WDialogPutInteger(1057, 2);
  EXPECT_EQ(Messages_of("key Up\nkey Up\nkey 3\npress 1010"), "1057 1057 1010!") << "the edit is complete at its end";
}

TEST_F(Dialogs, AModalDialogEndsWithItsButton) {
  WDialogLoad(104);
  WDialogPutNote(1059, "line1.avg");
  EXPECT_EQ(InfoError(), iErrNone);
  EXPECT_EQ(Exit_of("check 1059 off\npress 1009"), iBtnContinue);
  EXPECT_EQ(WDialogGetCheckBox(1059), false);
  EXPECT_EQ(Exit_of("key Esc"), iBtnCancel);
  EXPECT_EQ(Exit_of("check 1059 on"), iBtnCancel) << "one that a script leaves open is cancelled";
  EXPECT_EQ(Script_Exit_Status(), 3);
}

TEST_F(Dialogs, OneOpensWhileAnotherIsOpen) {
  WDialogLoad(103);
  WDialogPutString(1025, "Lake");
  WDialogShow(iCentred, iCentred, iShowSemiModeless);
  WDialogLoad(112);
  WDialogPutString(1072, "SCALAR");
  WDialogPutMenu1(1076, std::vector<std::string>{"FXL", "MVL", "INL"}, 1);
  EXPECT_EQ(Exit_of("field 1072 SCALAR\nfield 1076 FXL\nchoose 1076 3\nfield 1076 3\npress 1009"), iBtnContinue);
  EXPECT_EQ(WDialogGetMenu1(1076), 3);
  WDialogUnload();
  EXPECT_EQ(WInfoDialog(iCurrentDialog), 0);
  WDialogSelect(103);
  EXPECT_EQ(WDialogGetString(1025), "Lake");
  WDialogSelect(112);
  EXPECT_EQ(InfoError(), iErrNoDialog);
}

TEST_F(Dialogs, ScriptsFailOnWhatAUserCouldNotDo) {
  WDialogLoad(103);
  WDialogFieldState(1047, 0);
  WDialogPutString(1106, "loop.txw");
  for (const char* sStep : {"set 1047 5", "set 1106 other.txw", "set 1999 5", "set 1105 on", "check 1047 on",
                            "choose 1040 9", "cell 1038 4 1 5", "slide 1047 3", "field 1106 other.txw", "answer ok"}) {
    Messages_of(std::string(sStep) + "\npress 1009");
    EXPECT_EQ(Script_Exit_Status(), 3) << sStep;
  }
}

TEST_F(Dialogs, ColumnsAreMatchedInATable) {
  const std::vector<std::string> sVariable{"Station", "East", "North"};
  WDialogLoad(113);
  WGridRows(1078, 3);
  WGridPutString(1078, 1, sVariable);
  WGridPutMenu(1078, 3, std::vector<std::string>{"Stn", "X", "none"}, std::vector<I4>{1, 3, 3});
  EXPECT_EQ(Exit_of("cell 1078 2 3 2\npress 1009"), iBtnContinue);
  EXPECT_EQ(WGridGetMenu(1078, 3), (std::vector<I4>{1, 2, 3}));
  Exit_of("cell 1078 1 1 Other\npress 1009");  // the texts are not the user's
  EXPECT_EQ(Script_Exit_Status(), 3);
  WGridPutString(1078, 4, sVariable);
  EXPECT_EQ(InfoError(), iErrBadArgument);
}

TEST_F(Dialogs, BoxesOfATableAreSwitchedByAClick) {
  const std::array<L4, 3> bOn{true, false, true};
  const std::array<I4, 3> iState{iCellInUse, iCellInUse, iCellUnused};
  WDialogLoad(113);
  WGridRows(1078, 3);
  WGridLabelRows(1078, std::vector<std::string>{"Ex", "Hz", "Hy"});
  WGridPutCheckBox(1078, 2, bOn);
  WGridPutReal(1078, 3, std::vector<R4>{1.0f, 2.0f, fDummy}, "(F10.2)");
  for (const I4 iColumn : {2, 3}) WGridStateColumn(1078, iColumn, iState);
  EXPECT_EQ(Messages_of("cell 1078 1 2 off\ncell 1078 2 2 off\ncell 1078 2 2 on\npress 1009"), "1078 1078 1009!");
  EXPECT_EQ(WGridGetCheckBox(1078, 2), (std::vector<L4>{false, true, true}));
  for (const char* sRefused : {"cell 1078 3 2 off", "cell 1078 1 2 1", "cell 1078 3 3 5"}) {
    Messages_of(std::string(sRefused) + "\npress 1009");
    EXPECT_EQ(Script_Exit_Status(), 3) << sRefused;
  }
  EXPECT_EQ(WGridGetCheckBox(1078, 2), (std::vector<L4>{false, true, true}));
  EXPECT_EQ(InfoError(), 0);
}

TEST_F(Dialogs, BoxesGiveTheAnswer) {
  const struct {
    const char* sStep;
    BoxButtons iButtons;
    bool bYes;
    I4 iStatus;
  } hCase[] = {
      {"answer yes",          BoxButtons::YesNo,    true,  0},
      {"answer no",           BoxButtons::YesNo,    false, 0},
      {"key Esc\nanswer yes", BoxButtons::YesNo,    true,  0}, // a key hit in haste answers nothing
      {"key Enter",           BoxButtons::YesNo,    true,  0}, // the first button is the default
      {"answer ok",           BoxButtons::OkCancel, true,  0},
      {"key Esc",             BoxButtons::OkCancel, false, 0},
      {"answer ok",           BoxButtons::Ok,       true,  0},
      {"answer yes",          BoxButtons::OkCancel, false, 3}, // there is no such button
  };
  for (const auto& h : hCase) {
    Play(h.sStep);
    EXPECT_EQ(WMessageBox(h.iButtons, BoxIcon::Question, "Should line1 data be saved?", ""), h.bYes) << h.sStep;
    EXPECT_EQ(Script_Exit_Status(), h.iStatus) << h.sStep;
  }
  const auto Is_Quiet = [](std::string_view sStep) {
    Play(sStep);
    EXPECT_TRUE(WMessageBox(BoxButtons::OkCancel, BoxIcon::Stop, "AVG_Read.WARNING:\rline 1", "ERROR", true));
    return WMessageBoxQuiet();
  };
  EXPECT_FALSE(Is_Quiet("expect \"line 1\"\nanswer ok"));
  EXPECT_TRUE(Is_Quiet("key Tab\nkey Tab\nkey \" \"\nanswer ok"));
}

TEST_F(Dialogs, FilesAreChosenByAbsolutePath) {
  const std::string sFolder = std::filesystem::current_path().string() + "/";
  std::ofstream("LINE1.AVG") << "x";
  const struct {
    const char* sStep;
    I4 iFlags;
    const char* sBegin;
    std::string sChosen;
    I4 iStatus;
  } hCase[] = {
      {"file LINE1.AVG",   iSelectOpen,     "",          sFolder + "LINE1.AVG", 0},
      {"file ./new.avg",   iSelectSave,     "LINE1.AVG", sFolder + "new.avg",   0},
      {"file new",         iSelectSave,     "",          sFolder + "new.avg",   0},
      {"file LINE1.AVG",   iSelectSave,     "",          sFolder + "LINE1.AVG", 0}, // agreed to replacing it
      {"file cancel",      iSelectOptional, "kept.txw",  "",                    0},
      {"file missing.avg", iSelectOpen,     "kept.avg",  "",                    3},
  };
  for (const auto& h : hCase) {
    Play(h.sStep);
    EXPECT_EQ(WSelectFile2("Choose TEM *.avg or *.xdb file|*.avg;*.xdb|", h.iFlags, "Open", h.sBegin), h.sChosen);
    EXPECT_EQ(Script_Exit_Status(), h.iStatus) << h.sStep;
  }
}

TEST(DialogsWithoutAnApplication, AreHarmless) {
  WindowClose();
  WDialogLoad(101);
  EXPECT_EQ(InfoError(), iErrNoDialog);
  WDialogPutInteger(1002, 1);
  EXPECT_EQ(WDialogShow(iCentred, iCentred, iShowModal), 0);
  WDialogUnload();
  EXPECT_FALSE(WDialogGetInteger(1002));
  EXPECT_EQ(InfoError(), iErrNoDialog);
  EXPECT_FALSE(WMessageBox(BoxButtons::Ok, BoxIcon::None, "text", ""));
  EXPECT_EQ(InfoError(), iErrNoWindow);
}

}  // namespace
}  // namespace quillan
