// Contour files: what a golden file holds, what comes back from one, and what the reader makes of other people's files.
#include "files/z_file.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "metadata/mdp_data.h"
#include "support/files.h"
#include "support/reports.h"
#include "support/survey_builder.h"
#include "support/user_notebook.h"

namespace quillan {
namespace {

constexpr const char* sRuler = "IIxxxxxxxxYYYYYYYYzzzzzzzzzzzz\n";
constexpr const char* sMark = " 9999.00\n";

/// A user who takes every block for what was found in it, and notes how it was asked.
struct AgreeingUser : UserNotebook {
  I4 NAsked = 0;
  ZTypeAnswer hAnswer;   // where it holds a type, the answer to every question
  bool bForAll = false;  // otherwise
  AgreeingUser() {
    hUser.Which_Z_Data = [this](const ZTypeQuestion& h) {
      ++NAsked;
      std::string sFound = h.hFound.iDataType == iZDataDbdt ? "dB/dt " : "skip ";
      sFound += std::to_string(h.hFound.iRxCmp);
      sNote.push_back(sFound + ", " + std::to_string(h.sHeader.size()) + " lines");
      return hAnswer.hType ? hAnswer : ZTypeAnswer{h.hFound, bForAll};
    };
  }
};

/// Reads a file with these bytes as a fresh survey whose stations are as recorded.
I4 Read(const std::string& sBytes) {
  Begin_Test();
  MDP_Initialize();
  MdTx.dKvrStn = MdTx.dStn = dDummy;
  MdStn.dStnKvrBeg = MdStn.dStnBeg = 0.0;
  MdStn.dStnKvrInc = MdStn.dStnInc = 1.0;
  Write_File("data.Z", sBytes);
  return Z_Read("data.Z");
}

std::string Block(const std::string& sHeader, const std::string& sRows) {
  return sHeader + "\n" + sRuler + sRows + sMark;
}

/// Two soundings; of the second a window is skipped.
const std::string sTwoRows =
    " 2   100.0 0.01230  3.4051E+02\n 2   100.0  0.5000  1.1000E+01\n"
    " 2   150.0 0.01230 -2.5000E+02\n 1   150.0   1.200  1.0000E-03\n";

// ---- reading

TEST(ZReader, FixedColumnsAreReadEvenWhereNumbersTouch) {
  AgreeingUser hPerson;
  ASSERT_EQ(Read("$ Tx.Freq= 16\n$ Tx.Ramp= 3\n$ Tx.KvrStn= 7\n$ Rx.AreaX= 25\n" +
                 Block(" dBx/dt uV/amp", " 2123456.01000.000-1.2345E+03 and a remark\n" + sTwoRows)),
            0);
  ASSERT_EQ(NTrn, 3);
  EXPECT_EQ(hTrn(1).dRxKvrStn, 123456.0);
  EXPECT_EQ(hTrn(1).fTWCen(1), 1000.0f);
  EXPECT_EQ(hTrn(1).fuVmag(1), -1234.5f);
  EXPECT_EQ(hTrn(1).iRxCmp, iCmpHx);
  EXPECT_EQ(hTrn(1).fTxFreq, 16.0f);
  EXPECT_EQ(hTrn(1).fTxRamp, 3.0f);
  EXPECT_EQ(hTrn(1).dTxKvrStn, 7.0);
  EXPECT_EQ(hTrn(1).fRxArea, 25.0f);
  EXPECT_EQ(hTrn(3).NTW, 2);
  EXPECT_EQ(Skipped(3), "-X");
  EXPECT_EQ(Shown("3 transients have been read from data.Z"), 1);
}

TEST(ZReader, WordsOfTheHeaderSayWhatTheQuestionBeginsWith) {
  struct Case {
    const char* sHeader;
    const char* sFound;
  };
  for (const Case& h : {
           Case{" dBx/dt uV/amp",                    "dB/dt 4, 2 lines"},
           Case{" DBY/DT",                           "dB/dt 5, 2 lines"},
           Case{"$ Title= dBz/dt\n dBx/dt\n dBz/dt", "dB/dt 6, 3 lines"},
           Case{" Magnitude of the decay",           "dB/dt 6, 2 lines"},
           Case{"$ DATA= Magnitude",                 "dB/dt 6, 1 lines"},
           Case{" Bz nT/A\n    Tx 1.0",              "skip 6, 3 lines" },
           Case{"",                                  "skip 6, 2 lines" }
  }) {
    AgreeingUser hPerson;
    (void)Read(Block(h.sHeader, sTwoRows));
    EXPECT_EQ(hPerson.sNote[0], h.sFound) << h.sHeader;
    EXPECT_EQ(NTrn, h.sFound[0] == 'd' ? 2 : 0) << h.sHeader;
  }
}

TEST(ZReader, TheUsersAnswerStandsForTheBlockOrForAllLikeIt) {
  const std::string sFile = Block(" one", sTwoRows) + Block(" dBx/dt", sTwoRows) + Block(" two", sTwoRows);
  AgreeingUser hPerson;
  hPerson.hAnswer.hType = ZDataType{iZDataDbdt, iCmpHx + 1};
  ASSERT_EQ(Read(sFile), 0);
  EXPECT_EQ(hPerson.NAsked, 3);
  EXPECT_EQ(NTrn, 6);
  EXPECT_EQ(hTrn(3).iRxCmp, iCmpHx + 1);
  hPerson.hAnswer.bForAll = true;
  ASSERT_EQ(Read(sFile), 0);
  EXPECT_EQ(hPerson.NAsked, 3 + 2) << "the third block says no more than the first";
  hUser.Which_Z_Data = No_User().Which_Z_Data;
  EXPECT_EQ(Read(sFile), 1) << "cancelled";
  EXPECT_EQ(NTrn, 0);
}

TEST(ZReader, OtherSkipCodesTakeTheStateOfTheRowBefore) {
  AgreeingUser hPerson;
  ASSERT_EQ(Read(Block(" dBz/dt",
                       " 3     1.0   1.000  1.0000E+00\n 1     1.0   2.000  1.0000E+00\n"
                       "-1     2.0   1.000  1.0000E+00\n 2     2.0   2.000  1.0000E+00\n"
                       "       2.0   3.000  1.0000E+00\n")),
            0);
  EXPECT_EQ(Skipped(1), "-X");
  EXPECT_EQ(Skipped(2), "X--");
}

TEST(ZReader, AHeaderHasAtMostSixteenLinesBesidesDollarLines) {
  AgreeingUser hPerson;
  const auto Header = [](I4 N) {
    std::string sLines;
    for (I4 I = 1; I <= N; ++I) sLines += "$ CONTOUR= NONE\nline " + std::to_string(I) + "\n";
    return sLines + sRuler + sTwoRows + sMark;
  };
  hPerson.hAnswer.hType = ZDataType{iZDataDbdt, iCmpHz};
  EXPECT_EQ(Read(Header(16)), 0);
  EXPECT_EQ(hPerson.sNote[0], "skip 6, 16 lines");
  EXPECT_EQ(Read(Block(" dBz/dt", sTwoRows) + Header(17)), 1);
  EXPECT_EQ(Shown("Z_Read.ERROR: More than 16 header lines."), 1);
  EXPECT_EQ(NTrn, 0);
}

TEST(ZReader, ABadRowEndsItsBlockAndTheNextOneIsRead) {
  AgreeingUser hPerson;
  for (const char* sBad : {" 2   100.0 0.0x230  3.4051E+02", " 2   100.0 0.01230", "$ Tx.Freq= 4",
                           " 2********  1.000  1.0E+00", " 5   100.0   7.000", " 2   100.0   1.000     1   2.0"}) {
    ASSERT_EQ(Read(Block(" dBz/dt", " 2    50.0   1.000  1.0000E+00\n\n" + std::string(sBad) + "\n" + sTwoRows) +
                   Block(" dBx/dt", sTwoRows)),
              0)
        << sBad;
    EXPECT_EQ(NTrn, 3) << sBad;
    EXPECT_EQ(hTrn(2).iRxCmp, iCmpHx) << sBad;
    EXPECT_EQ(Shown("Z_Read.ERROR while reading data from line 5"), 1) << sBad;
    EXPECT_EQ(Shown(sBad), 1);
  }
}

TEST(ZReader, StationsTimesAndBlocksTellTransientsApart) {
  AgreeingUser hPerson;
  const std::string sRows =
      " 2   100.0   1.000  5.0000E+00\n 2100.0009   2.000  4.0000E+00\n"  // one station
      " 2 100.003   3.000  5.0000E+00\n"                                  // another
      " 2 100.003   2.000  5.0000E+00\n";                                 // a repeat at it
  ASSERT_EQ(Read(Block(" dBz/dt", sRows) + Block(" dBz/dt", " 2 100.003   3.000  5.0000E+00\n")), 0);
  ASSERT_EQ(NTrn, 4);
  EXPECT_EQ(hTrn(1).NTW, 2);
  EXPECT_EQ(hTrn(4).NTW, 1);
}

TEST(ZReader, MetadataAboveABlockHoldForItsRowsAndAlterItsStations) {
  AgreeingUser hPerson;
  ASSERT_EQ(Read(Block(" dBz/dt\n$ Tx.Amp= 3", sTwoRows) +
                 Block("$ Tx.Amp= 4\n$ Stn.Beg= 1000\n $ Stn.Inc= 2\n dBz/dt", sTwoRows)),
            0);
  EXPECT_EQ(hTrn(1).fTxAmp, 3.0f);
  EXPECT_EQ(hTrn(1).dRxStn, 100.0);
  EXPECT_EQ(hTrn(3).fTxAmp, 4.0f);
  EXPECT_EQ(hTrn(4).dRxStn, 1300.0);
  EXPECT_EQ(hTrn(4).dRxKvrStn, 150.0);
  EXPECT_EQ(hTrn(1).fRxArea, 10000.0f) << "no area was given";
}

TEST(ZReader, WhatTheStoreCannotHoldIsDropped) {
  AgreeingUser hPerson;
  std::string sRows;
  char sRow[40];
  for (I4 I = 1; I <= 70; ++I)
    sRows.append(sRow, std::snprintf(sRow, sizeof sRow, " 2%8.1f%8.3f%12.4E\n", 1.0, 0.1 * I, 1.0));
  for (I4 j = 2; j <= MTrn; ++j)
    sRows.append(sRow, std::snprintf(sRow, sizeof sRow, " 2%8.1f%8.3f%12.4E\n", 1.0 * j, 1.0, 1.0));
  ASSERT_EQ(Read(Block(" dBz/dt", sRows)), 0);
  EXPECT_EQ(NTrn, MTrn);
  EXPECT_EQ(hTrn(1).NTW, MTW);
  EXPECT_EQ(Shown("Excess data will be dropped."), 0);
  ASSERT_EQ(Read(Block(" dBz/dt", sRows + sTwoRows) + Block(" nothing", sTwoRows)), 0);
  EXPECT_EQ(NTrn, MTrn);
  EXPECT_EQ(Shown("Z_Read.WARNING: More than 4096 transients in data.Z"), 1);
  EXPECT_EQ(hPerson.NAsked, 3) << "the file is read on";
}

TEST(ZReader, AFileCutAnywhereGivesWhatIsThere) {
  AgreeingUser hPerson;
  const std::string sFile = "\xEF\xBB\xBF" + Block("$ Tx.Freq= 4\r\n dBz/dt", sTwoRows) + Block(" dBx/dt", sTwoRows);
  const std::size_t NHeader = sFile.find(sTwoRows), NMark = sFile.find(sMark);
  for (std::size_t N = 0; N < sFile.size(); ++N) {
    const I4 iError = Read(sFile.substr(0, N));
    EXPECT_EQ(iError == 0, NTrn >= 1) << N;
    EXPECT_TRUE(NTrn == 0 || N >= NHeader + 20) << N << ": the value is not there yet";
    EXPECT_TRUE(NTrn >= 1 || N < NHeader + 30) << N << ": there is a whole row";
    EXPECT_TRUE(Shown("its last row may be cut") == 1 || N < NHeader || N > NMark) << N;
    for (I4 j = 1; j <= NTrn; ++j) EXPECT_EQ(hTrn(j).dRxKvrStn, j % 2 == 1 ? 100.0 : 150.0) << N;
  }
}

TEST(ZReader, AFileThatHoldsNothingSaysSo) {
  AgreeingUser hPerson;
  Begin_Test();
  EXPECT_EQ(Z_Read("no such file.Z"), 1);
  EXPECT_EQ(Shown("ERROR: Could not find no such file.Z"), 1);
  for (const char* sNone : {"", " Dorval Contour File\n", " 9999.00\n 9999.00\n", "\xff\n\r\n$\n"}) {
    EXPECT_EQ(Read(sNone), 1);
    EXPECT_EQ(Shown("Found no valid dB/dt data in data.Z"), 1) << sNone;
  }
  EXPECT_EQ(hPerson.NAsked, 0) << "at the end of a file nothing is asked";
}

// ---- writing

/// A fixed loop with two components; the first sounding is skipped, one has values that are missing or too wide.
void Load_Fixed_Loop() {
  Load({TransientBuilder().Times({1}).Values({9}),
        TransientBuilder()
            .Times({0.0123456f, 0.5f, 0.9999f, 1.2f, 1000.25f})
            .Values({-1234.567f, fDummy, 1.0E-12f, 0.0f, 5})
            .Resistivities({55.55f, 1.0E-21f, 20.0f, fDummy, 100.0f})
            .Station(12.25),
        TransientBuilder().Times({0.000001f, 2}).Values({3, 2}).Resistivities({5, 6}).Station(1.0E7),
        TransientBuilder().Times({1, 2}).Values({5, 4}).Station(-12.5).Component(iCmpHx)});
  hTrn(1).bSkipTrn = true;
  hTrn(2).bSkip(3) = true;
  hTrn(4).fBmag(2) = -0.25f;
  hTemSurvey.sJobName = "Golden";
  hTemSurvey.sJobFor = "Client";
  hTemSurvey.sLineName = "L 7";
  hTemSurvey.fLineAzimuth = 225.0f;
  hTemSurvey.dStnKvrBeg = 0.5;
  hTemSurvey.dStnKvrInc = -50.0;
  hTemSurvey.dStnBeg = 1200.0;
}

/// A moving loop: soundings of one distance make a block wherever they are.
void Load_Moving_Loop() {
  Load({TransientBuilder().Times({1, 2}).Values({5, 4}).Resistivities({7, 8}).Station(100).Transmitter(50),
        TransientBuilder().Times({1, 2}).Values({6, 5}).Resistivities({7, 8}).Station(150).Transmitter(100),
        TransientBuilder().Times({1, 2}).Values({7, 6}).Resistivities({7, 8}).Station(150).Transmitter(200)});
  hTemSurvey.iTemArray = iArrayMVL;
}

TEST(ZWriter, FilesAreRightToTheByte) {
  Load_Fixed_Loop();
  EXPECT_EQ(Z_Write("fixed.Z"), 0);
  EXPECT_EQ(Read_Whole_File("fixed.Z"), Golden("fixed.Z"));
  EXPECT_EQ(Shown("Writing dBz/dt, Tx 1.0"), 1);
  EXPECT_NE(Read_Whole_File("test.log").find("Writing dBx/dt, Tx 1.0"), std::string::npos);
  EXPECT_EQ(Shown("3 transients have been written into fixed.Z"), 1);
  Load_Moving_Loop();
  EXPECT_EQ(Z_Write("moving.Z"), 0);
  EXPECT_EQ(Read_Whole_File("moving.Z"), Golden("moving.Z"));
}

/// What a column of four decimals after the first digit keeps.
void Expect_Printed(R4 fRead, R4 fStored, const char* sWhat) {
  EXPECT_NEAR(fRead, fStored, 5.1E-5 * std::abs(R8{fStored})) << sWhat;
}

TEST(ZWriter, WhatIsReadBackAreTheWindowsToTheirPrintedDigits) {
  AgreeingUser hPerson;
  hPerson.bForAll = true;
  Load_Fixed_Loop();
  hTrn(3).dRxKvrStn = hTrn(3).dRxStn = 9998.875;  // 9999 would be the mark
  hTrn(3).fTWCen(1) = 0.002f;
  const std::vector<Transient> hStored(hTrn.begin(), hTrn.begin() + NTrn);
  ASSERT_EQ(Z_Write("back.Z"), 0);
  ASSERT_EQ(Read(Read_Whole_File("back.Z")), 0);
  ASSERT_EQ(NTrn, 3);
  for (I4 j = 1; j <= NTrn; ++j) {
    const Transient &h = hTrn(j), &h0 = hStored[static_cast<std::size_t>(j)];
    EXPECT_EQ(h.dRxKvrStn, h0.dRxStn);
    EXPECT_EQ(h.iRxCmp, h0.iRxCmp);
    I4 I = 0;
    for (I4 I0 = 1; I0 <= h0.NTW; ++I0) {
      if (!Is_Present(h0.fuVmag(I0))) continue;
      EXPECT_EQ(h.bSkip(++I), h0.bSkip(I0));
      EXPECT_NEAR(h.fTWCen(I), h0.fTWCen(I0), h0.fTWCen(I0) >= 0.9999f ? 5.1E-4 : 5.1E-6);
      Expect_Printed(h.fuVmag(I), h0.fuVmag(I0), "dB/dt");
    }
    EXPECT_EQ(h.NTW, I);
  }
}

TEST(ZWriter, NoFileIsMadeOfNothingAndAFailureIsReported) {
  Begin_Test();
  Write_File("old.Z", "as it was");
  EXPECT_EQ(Z_Write("old.Z"), 1);
  EXPECT_EQ(Shown("ERROR: No valid data present"), 1);
  EXPECT_EQ(Read_Whole_File("old.Z"), "as it was");
  Load_Moving_Loop();
  EXPECT_EQ(Z_Write("no such folder/old.Z"), 1);
  EXPECT_EQ(Shown("ERROR opening file no such folder/old.Z"), 1);
  EXPECT_EQ(Z_Write("/dev/full"), 1);
  EXPECT_EQ(Shown("The data are not saved; choose Save again."), 2);
}

}  // namespace
}  // namespace quillan
