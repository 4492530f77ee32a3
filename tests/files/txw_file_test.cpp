#include "files/txw_file.h"

#include <gtest/gtest.h>

#include <string>

#include "model/txw_data.h"
#include "support/files.h"
#include "support/reports.h"
#include "support/survey_builder.h"

namespace quillan {
namespace {

class WireFile : public testing::Test {
 protected:
  void SetUp() override {
    Begin_Test();
    Txw_Initialize();
  }

  static I4 Read(const std::string& sText) {
    Write_File("loops.txw", sText);
    LogText_Reset();
    std::string sTxwFile = "loops.txw";
    return Txw_Read(sTxwFile, false);
  }
};

TEST_F(WireFile, ReadsLoopsWithoutLabels) {
  EXPECT_EQ(Read("! Orrin basin\n"
                 "1200 0 0\n1200,100,0\n1200\t100\t100\n1200 0 100\n"
                 "\n"
                 "1300 500 0\n1300 700 0\n1300 600 200\n"),
            0);
  ASSERT_EQ(NTxw, 2);
  EXPECT_EQ(hTxw(1).dTxStn, 1200.0);
  EXPECT_EQ(hTxw(1).NTxUTMV, 4);
  EXPECT_FLOAT_EQ(hTxw(1).fTxArea, 10000.0f);
  EXPECT_EQ(hTxw(1).dTxUTMC(1), 50.0);
  EXPECT_FLOAT_EQ(hTxw(2).fTxArea, 20000.0f);
  EXPECT_EQ(Shown("Tx wire endpoint coordinates for 2 loops read from loops.txw"), 1);
}

TEST_F(WireFile, LabelsNameTheColumnsInAnyOrderAndSpelling) {
  EXPECT_EQ(Read("Northing Easting Depth Elevation Tx.KvrStn\n"
                 "1 2 -3 4 5\n7 8 6 9 5\n"),
            0);
  ASSERT_EQ(NTxw, 1);
  EXPECT_EQ(hTxw(1).dTxStn, 5.0);
  EXPECT_EQ(hTxw(1).dTxUTMV(1, 1), 2.0);
  EXPECT_EQ(hTxw(1).dTxUTMV(2, 1), 1.0);
  EXPECT_EQ(hTxw(1).dTxUTMV(3, 1), 4.0);
  EXPECT_EQ(hTxw(1).fTxDepth(1), -6.0f) << "the last row decides, and a depth is negative whatever its sign";
  EXPECT_EQ(hTxw(1).fTxDepth(MTxUTMV), -6.0f);
}

TEST_F(WireFile, RowsBelowIncompleteLabelsAreIgnored) {
  EXPECT_EQ(Read("TX ELEV\n1 2 3\n"
                 "TX EAST NORTH\n9 1 1\n"),
            0);
  ASSERT_EQ(NTxw, 1);
  EXPECT_EQ(hTxw(1).dTxStn, 9.0);
  EXPECT_EQ(Shown("Txw_Read.ERROR missing data column label(s) on record 1"), 1);
  EXPECT_EQ(Shown("Missing: EAST, NORTH"), 1);
}

TEST_F(WireFile, RowsThatCannotBeUsedAreDropped) {
  EXPECT_EQ(Read("1 0 0\n"
                 "1 10\n"         // no north
                 "1 10 *\n"       // the same
                 "1 10 abc\n"     // unreadable
                 "1 2.0E12 5\n"   // beyond the earth
                 "1 5 -3.0E12\n"  // and once more, without a box
                 "1 100 0\n"
                 "1 100 -1.0E12\n"),  // the last value that is taken
            0);
  ASSERT_EQ(NTxw, 1);
  EXPECT_EQ(hTxw(1).NTxUTMV, 3);
  EXPECT_EQ(Shown("ERROR: |Easting|=|2.0000E+12| > 1.0E12 on loops.txw line 5"), 1);
  EXPECT_EQ(Shown("|Northing|"), 0);
}

TEST_F(WireFile, CornersBeyondTheLastPlaceAreIgnored) {
  std::string sText;
  for (int J = 0; J < 33; ++J) sText += "1 " + std::to_string(J % 7) + " " + std::to_string(J) + "\n";
  EXPECT_EQ(Read(sText + "2 0 0\n"), 0);
  ASSERT_EQ(NTxw, 2);
  EXPECT_EQ(hTxw(1).NTxUTMV, MTxUTMV);
}

TEST_F(WireFile, SecondFileLeavesNothingOfTheFirst) {
  ASSERT_EQ(Read("1 0 0 5 5\n1 9 0\n1 9 9\n2 0 0\n3 0 0\n"), 0);
  ASSERT_EQ(NTxw, 3);
  ASSERT_EQ(Read("7 1 1\n"), 0);
  EXPECT_EQ(NTxw, 1);
  EXPECT_EQ(hTxw.MLoop(), 1);
  EXPECT_EQ(hTxw(1).NTxUTMV, 1);
  EXPECT_FALSE(Is_Present(hTxw(1).fTxArea));

  EXPECT_EQ(Read("! nothing\n"), 1);
  EXPECT_EQ(NTxw, 0);
  EXPECT_EQ(Shown("ERROR: No valid Tx loop wire endpoint coordinates recovered from"), 1);
}

TEST_F(WireFile, FileIsFoundInAnyCaseAndAMissingOneLeavesNoLoops) {
  Write_File("FIELD.TXW", "4 0 0\n");
  std::string sTxwFile = "field.txw";
  EXPECT_EQ(Txw_Read(sTxwFile, true), 0);
  EXPECT_EQ(NTxw, 1);

  for (const bool bAuto : {true, false}) {
    sTxwFile = "nowhere.txw";
    LogText_Reset();
    EXPECT_EQ(Txw_Read(sTxwFile, bAuto), 1);
    EXPECT_EQ(NTxw, 0);
    EXPECT_EQ(Shown("Did not find txw file"), bAuto ? 1 : 0);
    EXPECT_EQ(Shown("Txw file import canceled."), 1);
  }
}

TEST_F(WireFile, TooManyLoopsAreCutOff) {
  std::string sText;
  for (int K = 1; K <= MTxwLoop + 10; ++K) sText += std::to_string(K) + " 0 0\n";
  EXPECT_EQ(Read(sText), 0);
  EXPECT_EQ(NTxw, MTxwLoop);
  EXPECT_EQ(hTxw(NTxw).dTxStn, R8{MTxwLoop}) << "the first loops of the file stay";
}

}  // namespace
}  // namespace quillan
