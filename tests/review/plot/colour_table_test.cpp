#include "review/plot/colour_table.h"

#include <gtest/gtest.h>

#include "foundations/log_file.h"
#include "support/files.h"

namespace quillan {
namespace {

class CftData : public testing::Test {
 protected:
  void SetUp() override {
    bAutoErr = true;
    ASSERT_EQ(Log_Initialize("quillan"), 0);
    CFT_Initialize("no_such_file.clr");
  }
  void TearDown() override { Log_Close(); }

  static I4 Read(const std::string& sRows) {
    Write_File("test.clr", sRows);
    return CFT_Read("test.clr");
  }
  static std::string Colour_of(R4 fPercent) {
    const Colour h = CFT_Get(fPercent);
    return std::to_string(h.iRed) + " " + std::to_string(h.iGreen) + " " + std::to_string(h.iBlue);
  }
};

TEST_F(CftData, WithoutAFileAndInTheOneThatIsShippedColoursRunFromBlueToRed) {
  for (const bool bShipped : {false, true}) {
    if (bShipped) {
      EXPECT_EQ(Read("0 9 9 9\n"), 0);
      EXPECT_EQ(CFT_Read(std::string(QUILLAN_SOURCE_DIR) + "/share/cftable.clr"), 0);
    }
    EXPECT_EQ(NCFT, 5);
    std::string sColours;
    for (const R4 fPercent : {-20.0f, 0.0f, 12.5f, 25.0f, 50.0f, 75.0f, 100.0f, 1.0E30f})
      sColours += Colour_of(fPercent) + ", ";
    EXPECT_EQ(sColours, "0 0 255, 0 0 255, 0 128 255, 0 255 255, 0 255 0, 255 255 0, 255 0 0, 255 0 0, ") << bShipped;
  }
}

TEST_F(CftData, RowsAreSortedHeldToTheirRangesAndTheFirstOfAPercentStays) {
  EXPECT_EQ(Read("ColorMap of ours\n"
                 "\"percent\" red\n"
                 "! 1 1 1 1\n"
                 "a\\b\n"
                 "c/d\n"
                 "   \n"
                 "50, 1, 2, 3, and more\n"
                 "130 300 -5 1.0E2\r\n"
                 "50 9 9 9\n"
                 "-3\t10 20 30\n"
                 "50 8 8 8"),
            0);
  EXPECT_EQ(NCFT, 3);
  EXPECT_EQ(Colour_of(0.0f), "10 20 30");
  EXPECT_EQ(Colour_of(50.0f), "1 2 3");
  EXPECT_EQ(Colour_of(100.0f), "255 0 100");
  EXPECT_EQ(Colour_of(75.0f), "128 1 52") << "halves are rounded away from zero";
}

TEST_F(CftData, BeyondTheRowsOfAFileTheEndColoursGoOn) {
  EXPECT_EQ(Read("40 100 0 0\n60 200 0 0\n"), 0);
  EXPECT_EQ(Colour_of(0.0f), "100 0 0");
  EXPECT_EQ(Colour_of(100.0f), "200 0 0");
  EXPECT_EQ(Read("40 7 8 9\n"), 0);
  for (const R4 fPercent : {0.0f, 40.0f, 100.0f}) EXPECT_EQ(Colour_of(fPercent), "7 8 9");
}

TEST_F(CftData, BetweenTwoCommasANumberStaysThatOfTheRowBefore) {
  EXPECT_EQ(Read("20 100 , , 50\n80,,7, \n 90, 1, 2,, \n"), 0);
  EXPECT_EQ(Colour_of(0.0f), "100 0 50");
  EXPECT_EQ(Colour_of(100.0f), "1 2 50");
  EXPECT_EQ(NCFT, 2) << "a row of three numbers is none";
}

TEST_F(CftData, OfTheLinesThatCannotBeReadTheFirstIsReported) {
  EXPECT_EQ(Read("10 1 2\n20 red 0 0\n30 1 2 3\n"), 0);
  EXPECT_EQ(NCFT, 1);
  Log_Close();
  const std::string sErrors = Read_Whole_File("quillan.err");
  EXPECT_NE(sErrors.find("CFT_Read.ERROR while reading test.clr"), std::string::npos);
  EXPECT_NE(sErrors.find("reading (percent_range,red,green,blue) values from line 1\n"), std::string::npos);
  EXPECT_EQ(sErrors.find("20 red"), std::string::npos);
}

TEST_F(CftData, AFileWithoutARowLeavesTheColoursAsTheyWere) {
  EXPECT_EQ(Read("! nothing\n"), 1);
  EXPECT_EQ(NCFT, 5);
  Log_Close();
  EXPECT_NE(Read_Whole_File("quillan.err").find("CFT_Read.ERROR: Did not find any valid color-fill values in"),
            std::string::npos);
}

TEST_F(CftData, RowsBeyondTheTableAreNotRead) {
  std::string sRows;
  for (I4 I = 0; I <= 150; ++I) sRows += std::to_string(0.5 * I) + " 1 2 3\n";
  EXPECT_EQ(Read(sRows), 0);
  EXPECT_EQ(NCFT, MCFT);
  EXPECT_EQ(fCFT(MCFT, iCftPercent), 50.0f);
}

}  // namespace
}  // namespace quillan
