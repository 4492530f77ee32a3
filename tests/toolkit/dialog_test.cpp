// Dialogs, boxes and the file dialog off-screen, used by a script's events as a user would use them.
#include "toolkit/dialog/dialog.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "toolkit/dialog/grid.h"
#include "toolkit/draw/last_error.h"
#include "toolkit/script/script.h"
#include "toolkit/window/messages.h"
#include "toolkit/window/window.h"

namespace quillan {
namespace {

char sProgram[] = "quillan";
char* hArguments[] = {sProgram, nullptr};

void Begin(std::string_view sSteps) {
  if (!sSteps.empty()) std::ofstream("steps.txt", std::ios::binary) << sSteps;
  WInitialise(1, hArguments, sSteps.empty() ? "" : "steps.txt");
}

class Dialogs : public testing::Test {
 protected:
  void SetUp() override {
    Begin("");
    WindowOpen2(0, 0, 1200, 900, iMenuMain, "Quillan");
    WMessageEnable(MessageType::Field, true);
    InfoError();
  }
  void TearDown() override {
    Begin("");
    WindowClose();
  }
};

/// Plays steps on the current dialog until a button is pushed, and tells what the program was told: "1049 1010!" for
/// the field 1049 and the button 1010.
std::string Messages_of(std::string_view sSteps) {
  Begin(sSteps);
  WDialogShow(iCentred, iCentred, iShowSemiModeless);
  std::string sTold;
  for (MessageType iType = MessageType::None; iType != MessageType::Button && iType != MessageType::Close;) {
    Message hMessage;
    WMessage(iType, hMessage);
    if (iType == MessageType::Field) sTold += std::to_string(hMessage.VALUE1) + ' ';
    if (iType == MessageType::Button) sTold += std::to_string(hMessage.VALUE1) + '!';
  }
  WDialogHide();
  return sTold;
}

/// The button that ends the current dialog when the steps are played on it.
I4 Exit_of(std::string_view sSteps) {
  Begin(sSteps);
  WDialogShow(iCentred, iCentred, iShowModal);
  return WInfoDialog(iExitButton);
}

I4 Answer_of(std::string_view sStep, BoxButtons iButtons) {
  Begin(sStep);
  WMessageBox(iButtons, BoxIcon::Question, "Should line1 data be saved?", "");
  return WInfoDialog(iExitButtonCommon);
}

TEST_F(Dialogs, HaveEveryControlOfTheirTables) {
  const struct {
    I4 iDialog;
    std::vector<I4> iControl;
  } hTable[] = {
      {101, {1001, 1002, 1003, 1004, 1005, 1006, 1007, 1008, 1009, 1010, 1011}                                     },
      {103, {1009, 1010, 1001, 1004, 1011, 1005, 1024, 1025, 1026, 1027, 1029, 1016, 1033, 1034,
             1035, 1023, 1036, 1037, 1041, 1042, 1043, 1044, 1045, 1046, 1049, 1040, 1054, 1055,
             1039, 1058, 1068, 1069, 1038, 1028, 1052, 1047, 1048, 1091, 1092, 1093, 1094, 1095,
             1096, 1097, 1098, 1099, 1101, 1102, 1030, 1031, 1056, 1032, 1051, 1105, 1106, 1107}        },
      {104, {1059, 1061, 1009, 1010, 1050, 1103}                                                                   },
      {112, {1104, 1011, 1072, 1076, 1009, 1010}                                                                   },
      {113, {1077, 1078, 1009, 1010}                                                                               },
      {115, {1001, 1079, 1080, 1081, 1082, 1083, 1084, 1085, 1060, 1087, 1088, 1089, 1090, 1016, 1115}             },
      {118,
       {1001, 1086, 1108, 1109, 1084, 1085, 1060, 1087, 1088, 1089, 1090, 1016, 1017, 1110, 1111, 1112, 1113, 1114}},
  };
  for (const auto& hRow : hTable) {
    WDialogLoad(hRow.iDialog);
    ASSERT_EQ(WInfoDialog(iCurrentDialog), hRow.iDialog);
    for (const I4 iControl : hRow.iControl) {
      WDialogFieldState(iControl, 1);
      EXPECT_EQ(InfoError(), iErrNone) << hRow.iDialog << ": " << iControl;
    }
    WDialogUnload();
  }
}

TEST_F(Dialogs, FitASmallScreen) {
  for (const I4 iDialog : {101, 103, 104, 112, 113}) {
    WDialogLoad(iDialog);
    const std::string sPicture = std::to_string(iDialog) + ".png";
    Messages_of("snapshot " + sPicture + "\npress 1010");
    EXPECT_LT(WInfoDialog(iDialogWidth), 1280) << iDialog;
    EXPECT_TRUE(std::filesystem::exists(sPicture)) << iDialog;
    WDialogUnload();
  }
}

TEST_F(Dialogs, ContinueAloneChangesNoDigitAndNoByte) {
  const R4 fAzimuth = 123.456789f;
  const R8 dCentre = 656123.123456789;
  const std::string sLatin1 = "M\xE9xico", sLong(140, 'x');
  WDialogLoad(iDlgSurveyConfig);
  WDialogPutReal(iFldLineAzimuth, fAzimuth, "(F12.1)");
  WDialogPutReal(iFldTxLengthX, 2.0e9f, "(F12.1)");  // out of range, but the file's own value
  WDialogPutDouble(iFldTxCenterX, dCentre, "(F12.1)");
  WDialogPutInteger(iFldTxTurns, 5000);
  WDialogPutString(iFldJobArea, sLatin1);
  WDialogPutString(iFldJobName, sLong);
  const std::vector<R4> fPut{0.004f, 10000.123f, 412.0912f};
  WGridPutReal(iGrdRxArea, 1, fPut, "(1P,G12.4E1)");
  EXPECT_EQ(Messages_of("field 1049 123.5\npress 1009"), "1009!");
  EXPECT_EQ(Script_Exit_Status(), 0);

  R4 fRead = 0.0f, fLength = 0.0f;
  R8 dRead = 0.0;
  I4 NTurn = 0;
  std::string sArea, sName;
  std::vector<R4> fArea(3);
  WDialogGetReal(iFldLineAzimuth, fRead);
  WDialogGetReal(iFldTxLengthX, fLength);
  WDialogGetDouble(iFldTxCenterX, dRead);
  WDialogGetInteger(iFldTxTurns, NTurn);
  WDialogGetString(iFldJobArea, sArea);
  WDialogGetString(iFldJobName, sName);
  WGridGetReal(iGrdRxArea, 1, fArea);
  EXPECT_EQ(InfoError(), iErrNone);
  EXPECT_EQ(fRead, fAzimuth);
  EXPECT_EQ(fLength, 2.0e9f);
  EXPECT_EQ(dRead, dCentre);
  EXPECT_EQ(NTurn, 5000);
  EXPECT_EQ(sArea, sLatin1);
  EXPECT_EQ(sName, sLong);
  EXPECT_EQ(fArea, fPut);
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
  WDialogLoad(iDlgSurveyConfig);
  for (const auto& hRow : hCase) {
    WDialogPutDouble(iFldLineNumber, hRow.dValue, hRow.sForm);
    Messages_of("field 1051 \"" + std::string(hRow.sShown) + "\"\npress 1009");
    EXPECT_EQ(Script_Exit_Status(), 0) << hRow.dValue << ' ' << hRow.sForm;
  }
}

TEST_F(Dialogs, WhatCannotBeUsedKeepsTheOldValue) {
  const struct {
    const char* sTyped;
    I4 iStatus;
    R4 fValue;
  } hCase[] = {
      {"45",      iErrNone,       45.0f },
      {" +12.5 ", iErrNone,       12.5f },
      {"1e2",     iErrNone,       100.0f},
      {"360",     iErrNone,       360.0f},
      {"0.1",     iErrNone,       0.1f  },
      {"",        iErrFieldEmpty, 99.0f },
      {"  ",      iErrFieldEmpty, 99.0f },
      {"360.1",   iErrFieldBad,   99.0f },
      {"-361",    iErrFieldBad,   99.0f },
      {"abc",     iErrFieldBad,   99.0f },
      {"1,5",     iErrFieldBad,   99.0f },
      {"12 m",    iErrFieldBad,   99.0f },
      {"nan",     iErrFieldBad,   99.0f },
      {"+-1",     iErrFieldBad,   99.0f },
      {"1e99",    iErrFieldBad,   99.0f },
  };
  WDialogLoad(iDlgSurveyConfig);
  for (const auto& hRow : hCase) {
    WDialogPutReal(iFldLineAzimuth, 270.0f, "(F12.1)");
    EXPECT_EQ(Messages_of("set 1049 \"" + std::string(hRow.sTyped) + "\"\npress 1009"), "1049 1009!") << hRow.sTyped;
    R4 fRead = 99.0f;
    WDialogGetReal(iFldLineAzimuth, fRead);
    EXPECT_EQ(InfoError(), hRow.iStatus) << hRow.sTyped;
    EXPECT_EQ(fRead, hRow.fValue) << hRow.sTyped;
  }
  // The limit 1E-9 itself is just below the limit once it is an R4.
  Messages_of("set 1045 1E-9\npress 1009");
  R4 fLength = 0.0f;
  WDialogGetReal(iFldTxLengthX, fLength);
  EXPECT_EQ(fLength, 1.0e-9f);
}

TEST_F(Dialogs, IntegersHaveTheRangeThatTheProgramSets) {
  WDialogLoad(iDlgAutoSkip);
  WDialogRangeInteger(iFldTWEnd, 1, 20);
  for (const auto& [sTyped, iStatus] : {
           std::pair("20", iErrNone), {"21",  iErrFieldBad},
             {"0",   iErrFieldBad},
             {"5.0", iErrFieldBad}
  }) {
    WDialogPutInteger(iFldTWEnd, 7);
    Messages_of("set 1003 " + std::string(sTyped) + "\npress 1009");
    I4 iRead = 7;
    WDialogGetInteger(iFldTWEnd, iRead);
    EXPECT_EQ(InfoError(), iStatus) << sTyped;
    EXPECT_EQ(iRead, iStatus == iErrNone ? 20 : 7) << sTyped;
  }
}

TEST_F(Dialogs, TellEachCompleteEditOnceAndBeforeTheButton) {
  const std::vector<std::string> sUnit{"m", "ft"};
  WDialogLoad(iDlgSurveyConfig);
  WDialogPutReal(iFldLineAzimuth, 270.0f, "(F12.1)");
  WDialogPutMenu1(iMnuLengthUnit, sUnit, 1);
  WDialogPutCheckBox(iChkTxwFile, false);
  WGridPutReal(iGrdRxArea, 1, std::vector<R4>{1.0f, 2.0f, 3.0f}, "(1P,G12.4E1)");
  EXPECT_EQ(Messages_of("set 1049 45\nset 1049 45\ncheck 1105 on\ncheck 1105 on\nchoose 1040 2\nchoose 1040 2\n"
                        "cell 1038 2 1 50\ncell 1038 2 1 50\npress 1107"),
            "1049 1105 1040 1038 1107!");
  I4 iUnit = 0;
  bool bTxw = false;
  std::vector<R4> fArea(3);
  WDialogGetMenu1(iMnuLengthUnit, iUnit);
  WDialogGetCheckBox(iChkTxwFile, bTxw);
  WGridGetReal(iGrdRxArea, 1, fArea);
  EXPECT_EQ(iUnit, 2);
  EXPECT_TRUE(bTxw);
  EXPECT_EQ(fArea, (std::vector<R4>{1.0f, 50.0f, 3.0f}));
}

TEST_F(Dialogs, EnterCompletesTheFieldAndContinues) {
  WDialogLoad(iDlgAutoSkip);
  WDialogPutInteger(iFldTWBeg, 1);
  // The first field has the focus, its text selected: typing replaces it.
  EXPECT_EQ(Messages_of("key 9\nkey Enter"), "1002 1009!");
  I4 iRead = 0;
  WDialogGetInteger(iFldTWBeg, iRead);
  EXPECT_EQ(iRead, 9);
  EXPECT_EQ(Messages_of("key Up\nkey Up\nkey Tab\nkey Esc"), "1002 1010!");
  WDialogGetInteger(iFldTWBeg, iRead);
  EXPECT_EQ(iRead, 11);
}

TEST_F(Dialogs, APutLeavesTheFieldThatIsBeingEdited) {
  WDialogLoad(iDlgAutoSkip);
  WDialogPutInteger(iFldTWBeg, 1);
  Begin("key 9\nresize 1000 800\nkey Enter");
  WDialogShow(iCentred, iCentred, iShowSemiModeless);
  MessageType iType = MessageType::None;
  Message hMessage;
  while (iType != MessageType::Resize) WMessage(iType, hMessage);
  WDialogPutInteger(iFldTWBeg, 5);
  while (iType != MessageType::Button) WMessage(iType, hMessage);
  I4 iRead = 0;
  WDialogGetInteger(iFldTWBeg, iRead);
  EXPECT_EQ(iRead, 9);
}

TEST_F(Dialogs, AModalDialogEndsWithItsButton) {
  WDialogLoad(iDlgSaveTypes);
  WDialogPutNote(iChkPutAvg, "line1.avg");
  EXPECT_EQ(InfoError(), iErrNone);
  EXPECT_EQ(Exit_of("check 1059 off\npress 1009"), iBtnContinue);
  bool bPut = true;
  WDialogGetCheckBox(iChkPutAvg, bPut);
  EXPECT_FALSE(bPut);
  EXPECT_EQ(Exit_of("key Esc"), iBtnCancel);
  // A dialog that a script leaves open is cancelled, and the run has failed.
  EXPECT_EQ(Exit_of("check 1059 on"), iBtnCancel);
  EXPECT_EQ(Script_Exit_Status(), 3);
}

TEST_F(Dialogs, OneOpensWhileAnotherIsOpen) {
  WDialogLoad(iDlgSurveyConfig);
  WDialogPutString(iFldJobName, "Lake");
  WDialogShow(iCentred, iCentred, iShowSemiModeless);
  WDialogLoad(iDlgMatchLabel);
  WDialogPutString(iFldMatchWord, "SCALAR");
  WDialogPutMenu1(iMnuMatchList, std::vector<std::string>{"FXL", "MVL", "INL"}, 1);
  EXPECT_EQ(Exit_of("field 1072 SCALAR\nfield 1076 FXL\nchoose 1076 3\nfield 1076 3\npress 1009"), iBtnContinue);
  I4 iSelect = 0;
  WDialogGetMenu1(iMnuMatchList, iSelect);
  EXPECT_EQ(iSelect, 3);
  WDialogUnload();
  EXPECT_EQ(WInfoDialog(iCurrentDialog), 0);
  WDialogSelect(iDlgSurveyConfig);
  std::string sName;
  WDialogGetString(iFldJobName, sName);
  EXPECT_EQ(sName, "Lake");
  WDialogSelect(iDlgMatchLabel);
  EXPECT_EQ(InfoError(), iErrNoDialog);
}

TEST_F(Dialogs, ScriptsFailOnWhatAUserCouldNotDo) {
  WDialogLoad(iDlgSurveyConfig);
  WDialogFieldState(iFldTxCenterX, 0);
  WDialogPutString(iFldTxwName, "loop.txw");
  for (const char* sStep : {"set 1047 5", "set 1106 other.txw", "set 1999 5", "set 1105 on", "check 1047 on",
                            "choose 1040 9", "cell 1038 4 1 5", "slide 1047 3", "field 1106 other.txw", "answer ok"}) {
    Messages_of(std::string(sStep) + "\npress 1009");
    EXPECT_EQ(Script_Exit_Status(), 3) << sStep;
  }
}

TEST_F(Dialogs, ColumnsAreMatchedInATable) {
  const std::vector<std::string> sVariable{"Station", "East", "North"}, sStatus{"Required", "REQUIRED", "Optional"};
  const std::vector<std::string> sLabel{"Stn", "X", "none"};
  WDialogLoad(iDlgMatchColumns);
  WGridRows(iGrdColumns, 3);
  WGridPutString(iGrdColumns, 1, sVariable);
  WGridPutString(iGrdColumns, 2, sStatus);
  WGridPutMenu(iGrdColumns, 3, sLabel, std::vector<I4>{1, 3, 3});
  EXPECT_EQ(Exit_of("cell 1078 2 3 2\npress 1009"), iBtnContinue);
  std::vector<I4> iSelect(3);
  WGridGetMenu(iGrdColumns, 3, iSelect);
  EXPECT_EQ(iSelect, (std::vector<I4>{1, 2, 3}));
  Exit_of("cell 1078 1 1 Other\npress 1009");  // the texts are not the user's
  EXPECT_EQ(Script_Exit_Status(), 3);
  WGridPutString(iGrdColumns, 4, sVariable);
  EXPECT_EQ(InfoError(), iErrBadArgument);
}

TEST_F(Dialogs, CellsThatCannotBeUsedKeepTheOldValue) {
  WDialogLoad(iDlgSurveyConfig);
  WGridRangeReal(iGrdRxArea, 1, 0.01, 1.0e9);
  WGridPutReal(iGrdRxArea, 1, std::vector<R4>{1.0f, 2.0f, fDummy}, "(1P,G12.4E1)");
  Messages_of("cell 1038 1 1 0\ncell 1038 2 1 x\npress 1009");
  std::vector<R4> fArea{7.0f, 8.0f, 9.0f};
  WGridGetReal(iGrdRxArea, 1, fArea);
  EXPECT_EQ(fArea, (std::vector<R4>{7.0f, 8.0f, 9.0f}));
  EXPECT_NE(InfoError(), iErrNone);
}

TEST_F(Dialogs, BoxesGiveTheAnswer) {
  EXPECT_EQ(Answer_of("answer yes", BoxButtons::YesNo), iAnswerYes);
  EXPECT_EQ(Answer_of("answer no", BoxButtons::YesNo), iAnswerNo);
  EXPECT_EQ(Answer_of("key Esc", BoxButtons::YesNo), iAnswerNo);
  EXPECT_EQ(Answer_of("key Enter", BoxButtons::YesNo), iAnswerYes);  // the first button is the default
  EXPECT_EQ(Answer_of("answer ok", BoxButtons::OkCancel), iAnswerYes);
  EXPECT_EQ(Answer_of("key Esc", BoxButtons::OkCancel), iAnswerNo);
  EXPECT_EQ(Answer_of("answer ok", BoxButtons::Ok), iAnswerYes);
  EXPECT_EQ(Script_Exit_Status(), 0);
  EXPECT_EQ(Answer_of("answer yes", BoxButtons::OkCancel), iAnswerNo);  // there is no such button
  EXPECT_EQ(Script_Exit_Status(), 3);
}

TEST_F(Dialogs, TheErrorBoxAsksWhetherToBeQuiet) {
  const auto Ask = [](std::string_view sStep) {
    Begin(sStep);
    WMessageBox(BoxButtons::OkCancel, BoxIcon::Stop, "AVG_Read.WARNING:\rline 1", "ERROR", true);
    return WMessageBoxQuiet();
  };
  EXPECT_FALSE(Ask("expect \"line 1\"\nanswer ok"));
  EXPECT_EQ(Script_Exit_Status(), 0);
  EXPECT_TRUE(Ask("key Tab\nkey Tab\nkey \" \"\nanswer ok"));
}

TEST_F(Dialogs, FilesAreChosenByAbsolutePath) {
  const std::string sFolder = std::filesystem::current_path().string() + "/";
  std::ofstream("LINE1.AVG") << "x";
  const auto Choose = [](std::string_view sStep, I4 iFlags, std::string sFile) {
    Begin(sStep);
    WSelectFile2("Choose TEM *.avg or *.xdb file|*.avg;*.xdb|", iFlags, sFile, "Open");
    return std::to_string(WInfoDialog(iExitButtonCommon)) + " " + sFile;
  };
  EXPECT_EQ(Choose("file LINE1.AVG", iSelectOpen, ""), "1 " + sFolder + "LINE1.AVG");
  EXPECT_EQ(Choose("file ./new.avg", iSelectSave, "LINE1.AVG"), "1 " + sFolder + "new.avg");
  EXPECT_EQ(Choose("file new", iSelectSave, ""), "1 " + sFolder + "new.avg");
  EXPECT_EQ(Choose("file LINE1.AVG", iSelectSave, ""), "1 " + sFolder + "LINE1.AVG");  // agreed to replacing it
  EXPECT_EQ(Choose("file cancel", iSelectOptional, "kept.txw"), "0 kept.txw");
  EXPECT_EQ(Script_Exit_Status(), 0);
  EXPECT_EQ(Choose("file missing.avg", iSelectOpen, "kept.avg"), "0 kept.avg");
  EXPECT_EQ(Script_Exit_Status(), 3);
}

TEST(DialogsWithoutAnApplication, AreHarmless) {
  WindowClose();
  WDialogLoad(iDlgAutoSkip);
  EXPECT_EQ(InfoError(), iErrNoDialog);
  WDialogPutInteger(iFldTWBeg, 1);
  WDialogShow(iCentred, iCentred, iShowModal);
  WDialogUnload();
  I4 iRead = 7;
  WDialogGetInteger(iFldTWBeg, iRead);
  EXPECT_EQ(iRead, 7);
  EXPECT_EQ(InfoError(), iErrNoDialog);
  WMessageBox(BoxButtons::Ok, BoxIcon::None, "text", "");
  EXPECT_EQ(InfoError(), iErrNoWindow);
  EXPECT_EQ(WInfoDialog(iExitButtonCommon), iAnswerNo);
}

}  // namespace
}  // namespace quillan
