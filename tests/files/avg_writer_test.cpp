// Both writers of averaged files: golden files, and what comes back when they are read.
#include "files/avg_writer.h"
#include "files/save_report.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include "files/avg_legacy_writer.h"
#include "files/avg_reader.h"
#include "metadata/mdp_data.h"
#include "model/derived.h"
#include "support/files.h"
#include "support/reports.h"
#include "support/survey_builder.h"

namespace quillan {
namespace {

/// A survey whose numbers try every form of the files: missing, too wide, skipped, large and small.
void Load_Odd_Survey() {
  Load({TransientBuilder()
            .Times({0.0004f, 0.0123456f, 9.9989f, 99.95f, 1000.4f})
            .Values({-1234.567f, 9.99996E5f, fDummy, 1.0E-12f, 0.0f})
            .Errors_Percent({0.04f, 100000.0f, fDummy, 12.25f, 99999.9f})
            .Resistivities({55.5f, 1.0E-20f, 9.9996f, 1.0E10f, 20.0f})
            .Station(12.5),
        TransientBuilder().Times({1, 2}).Values({5, 4}).Errors_Percent({1, 2}).Station(13).Component(iCmpHx)});
  MDP_Initialize();
  setenv("SOURCE_DATE_EPOCH", "1605225600", 1);
  hTrn(1).bSkip(2) = true;
  hTrn(2).bSkipTrn = true;
  hTrn(1).fBmag(1) = 0.5f;
  hTrn(1).fTxAmp = 9.6f;
  hTrn(1).NCycle = 512;
  hTrn(1).dKvrBlk(1) = 3.0;
  hTrn(1).dKvrBlk(2) = 4.5;
  hTrn(1).sKvrDate = "13/11/2020";
  hTrn(1).dRxXYZ = {
      {482310.125, 5176420.5, -3.0}
  };
  hTrn(1).fADDelay = 1.5f;
  hTrn(1).fT0Delay = -0.25f;
  hTrn(1).fTxDelay = 2.0f;
  hTemSurvey.sJobName = "Golden";
  hTemSurvey.dStnKvrBeg = 0.0;
  hTemSurvey.dStnKvrInc = 0.5;
  hTemSurvey.dStnBeg = 100.0;
  hTemSurvey.dStnInc = 10.0;
  hTemSurvey.fTxArea = 400.0f;
  hAvgKept.sAvgCmt(++hAvgKept.NAvgCmt) = "! a comment of the user";
  hAvgKept.sAvgMde(++hAvgKept.NAvgMde) = "$ Narvo: Foo= 1";
}

TEST(AvgWriter, BothFormatsAreRightToTheByte) {
  Load_Odd_Survey();
  Prepare_Output(true);
  EXPECT_EQ(AVG_Write("odd.avg"), 0);
  EXPECT_EQ(Read_Whole_File("odd.avg"), Golden("odd.avg"));
  Load_Odd_Survey();  // the legacy file alone
  Prepare_Output(false);
  EXPECT_EQ(AVG_Write0("oddo.avg"), 0);
  EXPECT_EQ(Read_Whole_File("oddo.avg"), Golden("oddo.avg"));
}

TEST(AvgWriter, ColumnsAreThereWhenTheStoreHasTheirValues) {
  const auto Labels = [](bool bARes, R4 fBmag) {
    Load({TransientBuilder().Times({1}).Values({5}).Resistivities({bARes ? 10.0f : 0.0f})});
    hTrn(1).fBmag(1) = fBmag;
    hTemSurvey.dStnKvrInc = hTemSurvey.dStnInc = 1.0;
    Prepare_Output(true);
    EXPECT_EQ(AVG_Write("columns.avg"), 0);
    for (const std::string& s : Read_Lines("columns.avg")) {
      if (s.starts_with("TWin.Index")) return s.substr(s.find("dBdt.Wgt"));
    }
    return std::string();
  };
  EXPECT_EQ(Labels(false, fDummy), "dBdt.Wgt");
  EXPECT_EQ(Labels(false, 1.0f), "dBdt.Wgt,B.Mag");
  EXPECT_EQ(Labels(true, -1.0f), "dBdt.Wgt,ARes.Mag,Depth.Image");
  EXPECT_EQ(Labels(true, 1.0f), "dBdt.Wgt,ARes.Mag,Depth.Image,B.Mag");
}

TEST(AvgWriter, CurrentFormatReadBackGivesTheNumbersToTheirPrintedDigits) {
  Load_Odd_Survey();
  hTrn(2).NCycle = 1;
  ASSERT_EQ(AVG_Write("back.avg"), 0);
  const Transient h0 = hTrn(1);
  Begin_Test();
  MDP_Initialize();
  ASSERT_EQ(AVG_Read("back.avg"), 0);
  ASSERT_EQ(NTrn, 2);
  const Transient& h = hTrn(1);
  EXPECT_FLOAT_EQ(h.fTWCen(2), 1.2346E-2f);
  EXPECT_FLOAT_EQ(h.fuVmag(1), -1.23457E3f);
  EXPECT_EQ(h.fuVmag(3), 0.0f);  // a "*" comes back as the column's default
  EXPECT_EQ(h.dRxKvrStn, h0.dRxKvrStn);
  EXPECT_EQ(h.dRxStn, 100.0 + 12.5 * 20.0);
  EXPECT_EQ(h.dRxXYZ, h0.dRxXYZ);
  EXPECT_EQ(h.NCycle, 512);
  EXPECT_EQ(hTrn(2).NCycle, 1) << "one cycle is said too, else the one before would stand";
  EXPECT_EQ(h.fT0Delay, -0.25f);
  EXPECT_EQ(Skipped(1), "-----");  // this format does not bring flags back
  EXPECT_EQ(hTrn(2).iRxCmp, iCmpHx);
  EXPECT_EQ(hTemSurvey.sJobName, "Golden");
}

TEST(AvgWriter, SurveyWithoutStationIncrementLeavesTheOldFile) {
  Load_Odd_Survey();
  hTemSurvey.dStnKvrInc = 0.0;
  Write_File("old.avg", "as it was");
  EXPECT_EQ(AVG_Write("old.avg"), 1);
  EXPECT_EQ(Read_Whole_File("old.avg"), "as it was");
  EXPECT_EQ(Shown("ABS(Stn.KvrInc) = 0.0000E+00 < 1.0E-20"), 1) << "one report for all transients";
  EXPECT_EQ(hSaveState.sFailed, "old.avg: give a recorded station increment other than 0");
}

TEST(AvgWriter, LegacyComponentsReadBackAsTheyWereAndKeepTheirColumns) {
  for (I4 iRxCmp = 1; iRxCmp <= iCmpNone; ++iRxCmp) {
    Load_Odd_Survey();
    hTrn(1).iRxCmp = iRxCmp;
    for (I4 iRound = 1; iRound <= 2; ++iRound) {  // a column that moved would show in the second file
      Prepare_Output(false);
      ASSERT_EQ(AVG_Write0("cmpo.avg"), 0);
      Begin_Test();
      MDP_Initialize();
      ASSERT_EQ(AVG_Read("cmpo.avg"), 0);
    }
    EXPECT_EQ(hTrn(1).iRxCmp, iRxCmp);
    EXPECT_EQ(hTrn(1).fTWCen(2), 0.012f) << iRxCmp;
    EXPECT_EQ(hTrn(1).fuVmag(1), -1234.6f) << iRxCmp;
    EXPECT_EQ(hTrn(2).iRxCmp, iCmpHx);
  }
}

TEST(AvgWriter, FailedSaveSaysWhatToDoAndAnEmptyStoreMakesNoFile) {
  using Writer = I4 (*)(std::string_view);
  for (const Writer Write : {Writer{AVG_Write}, Writer{AVG_Write0}}) {
    Load_Odd_Survey();
    LogText_Reset();
    EXPECT_EQ(Write("no such folder/odd.avg"), 1);
    EXPECT_EQ(Shown("ERROR opening file no such folder/odd.avg"), 1);
    EXPECT_EQ(Shown("The data are not saved; choose Save again."), 1);
    Begin_Test();
    EXPECT_EQ(Write("empty.avg"), 1);
    EXPECT_EQ(Read_Whole_File("empty.avg"), "");
  }
}

TEST(AvgWriter, TimesOfTheLegacyTableHaveFewerDecimalsTheLaterTheyAre) {
  struct Case {
    R4 fTWC;
    const char* sText;
  };
  for (const Case& h : {
           Case{fDummy,  "*"    },
           Case{0.0f,    "0"    },
           Case{9.999f,  "10"   },
           Case{12.346f, "12.35"},
           Case{123.46f, "123.5"},
           Case{1000.5f, "1001" },
           Case{-5.0f,   "-5"   }
  }) {
    EXPECT_EQ(AVG_Write_TWC0(h.fTWC), h.sText) << h.fTWC;
  }
}

}  // namespace
}  // namespace quillan
