#include "stations/stn_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "foundations/user.h"
#include "stations/station_text.h"
#include "support/user_notebook.h"

namespace quillan {
namespace {

R8 Station(I4 I) {
  return R8{hStn.fStnS(I)} + hStn.iStnS0;
}

/// The stations of a line, as "100 125 150".
std::string Stations_of(I4 iLine) {
  std::string sStations;
  for (I4 I = hStn.iStnBeg(iLine); I <= hStn.iStnEnd(iLine); ++I)
    sStations += (sStations.empty() ? "" : " ") + std::to_string(static_cast<I4>(Station(I)));
  return sStations;
}

TEST(StationFile, IsReadWithoutLabels) {
  EXPECT_EQ(Read_Stations("! Orrin basin\n"
                          "\n"
                          "100 350100.25 6240020.5 120\r\n"
                          "150,350150.25,6240020.5,121\r\n"
                          "  125\t350125.25\t6240020.5\t122"),
            0);
  EXPECT_EQ(hStn.NStn, 3);
  ASSERT_EQ(hStn.NStnLine, 1);
  EXPECT_EQ(hStn.dStnLine(1), dLineGiven);
  EXPECT_EQ(Stations_of(1), "100 125 150");
  EXPECT_EQ(hStn.fStnZ(2), 122.0f);
  EXPECT_EQ(R8{hStn.fStnX(2)} + hStn.iStnX0, 350125.25) << "seven digits and a fraction";
  EXPECT_EQ(R8{hStn.fStnY(2)} + hStn.iStnY0, 6240020.5);
  EXPECT_EQ(hStn.fStnP(2), 2.0f);
  EXPECT_EQ(hStn.fStnR(2), 3.0f);
  EXPECT_EQ(hStn.fStnH(2), 90.0f) << "a straight line without headings runs along itself";
  EXPECT_EQ(hStn.fSZmax, 122.0f);
  EXPECT_EQ(hStn.lStnAzm + hStn.lLine + hStn.lDepth, 0);
  EXPECT_EQ(Shown("3 distinct points read from line.stn"), 1);
  EXPECT_EQ(Shown("ERROR"), 0);
}

TEST(StationFile, LabelsNameTheColumnsInAnyOrder) {
  EXPECT_EQ(Read_Stations("Line Roll Pitch Heading Electrode MuxBox Depth Elevation Northing_m Easting_m Station\n"
                          "7 1 2 3 4 5 6 70 80 90 100\n"
                          "7 1 2 * 4 5 -6 70 80 91 101\n"),
            0);
  ASSERT_EQ(hStn.NStn, 2);
  EXPECT_EQ(hStn.dStnLine(1), 7.0);
  EXPECT_EQ(hStn.fStnR(1), 1.0f);
  EXPECT_EQ(hStn.fStnP(1), 2.0f);
  EXPECT_EQ(hStn.fStnH(1), 3.0f) << "headings of the file stay";
  EXPECT_EQ(hStn.fStnH(2), 45.0f) << "a heading that is missing is the caller's";
  EXPECT_EQ(hStn.iMuxChn(1), 4);
  EXPECT_EQ(hStn.iMuxBox(1), 5);
  EXPECT_EQ(hStn.fStnD(1), -6.0f) << "a depth is negative whatever its sign";
  EXPECT_EQ(hStn.fStnD(2), -6.0f);
  EXPECT_EQ(hStn.lStnAzm, 2);
  EXPECT_EQ(hStn.lMuxChn, 2);
  EXPECT_EQ(Shown("Have found correct column labels, now reading numerical data."), 1);
}

TEST(StationFile, RowsBelowIncompleteLabelsAreIgnored) {
  EXPECT_EQ(Read_Stations("Station East North\n1 10 0 5\n"
                          "Station East Height\n1 10 0 5\n"
                          "Station East North Elev\n2 20 0 5\n3 30 0 5\n"),
            0);
  EXPECT_EQ(hStn.NStn, 2);
  EXPECT_EQ(Shown("ERROR: Missing station, easting, northing or elevation data on record 1"), 1);
  EXPECT_EQ(Shown("ERROR: Missing station"), 1) << "a second box";
  EXPECT_EQ(NErr, 1) << "the second is in the error file";
}

TEST(StationFile, RowsThatCannotBeUsedAreDroppedAndReportedOnce) {
  EXPECT_EQ(Read_Stations("1 10 0 5\n"
                          "2 abc 0 5\n"       // unreadable
                          "3 * 0 5\n"         // no easting
                          "4 40 0\n"          // no elevation
                          "5 50 / 5\n"        // no northing either
                          "6 60 -2.0E12 5\n"  // beyond the earth
                          "7 70 0 1.1E12\n"   // once more, without a box
                          "8 80 1.0E12 5\n"   // the last value that is taken
                          "9 90 0 5 garbage\n"),
            0);
  EXPECT_EQ(hStn.NStn, 3);
  EXPECT_EQ(Stations_of(1), "1 8 9");
  EXPECT_EQ(Shown("ERROR reading real*8 EAST value from abc"), 1);
  EXPECT_EQ(Shown("ERROR: |Northing|=|-2.0000E+12| > 1.0E12 on line.stn line 6"), 1);
  EXPECT_EQ(Shown("ERROR: no"), 0) << "after the first bad value without a box";
  EXPECT_EQ(NErr, 4) << "three without a value and one beyond the limit";
}

TEST(StationFile, OptionalValueThatCannotBeReadDropsTheRow) {
  EXPECT_EQ(Read_Stations("Station East North Elev Line\n1 0 0 5 x\n2 10 0 5 *\n3 20 0 5 4\n4 30 0 5\n"), 0);
  ASSERT_EQ(hStn.NStnLine, 2);
  EXPECT_EQ(hStn.dStnLine(1), 4.0);
  EXPECT_EQ(Stations_of(1), "3");
  EXPECT_EQ(Stations_of(2), "2 4") << "of no line of their own, nor that of the row before";
}

TEST(StationFile, OriginsAreMultiplesOfTenThousand) {
  struct Case {
    const char* sMean;
    I4 iOrigin;
  };
  for (const Case& h : std::vector<Case>{
           {"14999",  10000     },
           {"15000",  20000     },
           {"-15000", -20000    },
           {"4999.9", 0         },
           {"1.0E12", 2147480000}
  }) {
    EXPECT_EQ(Read_Stations(std::string(h.sMean) + " 0 0 0\n" + h.sMean + " 1 0 0\n"), 0);
    EXPECT_EQ(hStn.iStnS0, h.iOrigin) << h.sMean;
  }
}

TEST(StationFile, PointsThatDoNotSeparateAreDropped) {
  EXPECT_EQ(Read_Stations("Station East North Elev Depth\n"
                          "1 0 0 5 0\n"
                          "2 10 0 5 0\n"
                          "3 10.005 0 5 0\n4 10 0.005 5 0\n5 10 0 5 0\n"  // at one place
                          "6 10 0 5 2\n"                                  // there as well, but deeper
                          "7 20 0 5 2\n7 999 999 6 2\n"),                 // one station: without a word
            0);
  EXPECT_EQ(hStn.NStn, 8) << "what was read";
  EXPECT_EQ(Stations_of(1), "1 2 6 7");
  EXPECT_EQ(hStn.fStnD(3), -2.0f) << "the whole point moves up";
  EXPECT_EQ(Shown("WARNING: Line 1200, Near zero station separation between"), 2) << "of three";
  EXPECT_EQ(Shown("Stn 2 at 10 E, 0 N and"), 2);
  EXPECT_EQ(Shown("Stn 3 at 10.005 E, 0 N, will drop this data."), 1);
  EXPECT_EQ(Shown("Dropping (stn,x,y,z) data due to near 0 stn separation."), 2);
}

TEST(StationFile, LinesStandInTheOrderOfTheirNumbers) {
  std::string sText = "Station East North Elev Line\n";
  sText += Line_Rows(3, 10.0, 0.0, 200.0, " 20200.5") + Line_Rows(4, 10.0, 0.0, 0.0, " 20000.25");
  sText += Line_Rows(2, 10.0, 0.0, 100.0, " 20100") + "3 30 200 5 20200.5\n2 20 100 5 20100\n";
  EXPECT_EQ(Read_Stations(sText), 0);
  ASSERT_EQ(hStn.NStnLine, 3);
  EXPECT_EQ(hStn.dStnLine(1), 20000.25);
  EXPECT_EQ(hStn.dStnLine(3), 20200.5);
  EXPECT_EQ(Stations_of(1), "0 1 2 3");
  EXPECT_EQ(Stations_of(2), "0 1 2");
  EXPECT_EQ(Stations_of(3), "0 1 2 3") << "rows of one line need not stand together";
}

TEST(StationFile, RowsInNoOrderAreSortedAsRowsInOrder) {
  std::vector<std::string> sRow;
  for (I4 iLine = -2; iLine < 3; ++iLine) {
    for (I4 iStn = -20; iStn < 20; ++iStn) {
      const std::string sStn = std::to_string(12.5 * iStn), sLine = std::to_string(20000 + iLine);
      sRow.push_back(sStn + " " + sStn + " " + sLine + " 0 " + sLine + "\n");
    }
  }
  const auto Read = [&] {
    std::string sText = "Station East North Elev Line\n";
    for (const std::string& s : sRow) sText += s;
    EXPECT_EQ(Read_Stations(sText), 0);
    std::string sOrder;
    for (I4 iLine = 1; iLine <= hStn.NStnLine; ++iLine) {
      for (I4 I = hStn.iStnBeg(iLine); I <= hStn.iStnEnd(iLine); ++I)
        sOrder += std::to_string(hStn.fStnL(I)) + " " + std::to_string(hStn.fStnS(I)) + "\n";
    }
    return sOrder;
  };
  const std::string sOrder = Read();
  EXPECT_EQ(hStn.NStnLine, 5);
  EXPECT_TRUE(sOrder.starts_with("-2.000000 -250.000000\n-2.000000 -237.5")) << sOrder.substr(0, 50);
  std::shuffle(sRow.begin(), sRow.end(), std::mt19937(3));
  EXPECT_EQ(Read(), sOrder);
  sRow.push_back(sRow.front());  // a repeated row takes the tolerant sort
  EXPECT_EQ(Read(), sOrder);
}

TEST(StationFile, LineNumbersBeyondReasonEndInATable) {
  EXPECT_EQ(Read_Stations("Station East North Elev Line\n1 0 0 0 1E300\n2 1 0 0 -1E300\n3 2 0 0 1.0E38\n4 3 0 0 5\n"),
            0);
  EXPECT_EQ(hStn.NStnLine, 4);
  // Numbers that are nearly one interleave, since the order takes them for one.
  std::string sText = "Station East North Elev Line\n";
  for (const char* const sLine : {" 9000", " 9000.001"}) sText += Line_Rows(50, 10.0, 0.0, 0.0, sLine);
  EXPECT_EQ(Read_Stations(sText), 0);
  EXPECT_GE(hStn.NStnLine, 2);
  EXPECT_EQ(hStn.iStnEnd(hStn.NStnLine), 100);
}

TEST(StationFile, FileOfRubbishIsReadToItsEnd) {
  std::string sText;
  for (I4 I = 0; I < 1000000; ++I) sText += I % 3 == 0 ? "12 x3 \x01\xff 4\n" : I % 3 == 1 ? "9 1 2E99 1\n" : "1,,;\n";
  sText += "Label record\n1 2 3 4\n";
  EXPECT_EQ(Read_Stations(sText), 1);
  EXPECT_EQ(hStn.NStn, 0);
  EXPECT_EQ(Shown("ERROR reading"), 1);
  EXPECT_EQ(Shown("ERROR: |Northing|=|"), 1);
  EXPECT_EQ(Shown("ERROR: Missing station"), 1);
  EXPECT_EQ(Shown("ERROR: No valid line 1200 data recovered from line.stn"), 1);
  EXPECT_EQ(Shown("(and optional heading, pitch, roll, depth, line columns)."), 1);
  EXPECT_LT(std::filesystem::file_size("test.err"), 100000u) << "the error file ends";
}

TEST(StationFile, WithoutAUserNothingIsShownButInTheFiles) {
  EXPECT_EQ(Read_Stations("1 x 0 0\n1 * 0 0\n1 9E12 0 0\nbad labels\n", true), 1);
  EXPECT_EQ(Shown("ERROR"), 0);
  EXPECT_EQ(NErr, 5) << "four records and the file";
}

TEST(StationFile, AnotherFileMayBeChosenOrNone) {
  ASSERT_EQ(Read_Stations("1 0 0 0\n2 1 0 0\n"), 0);
  Write_File("OTHER.STN", "5 0 0 0\n6 1 0 0\n");
  const UserNotebook hNotebook;
  std::vector<std::string> sAsked;
  std::string sChosen;
  hUser.Choose_File = [&](std::string_view sFilter, std::string_view sTitle) {
    sAsked.push_back(std::string(sFilter).append(";").append(sTitle));
    return sChosen;
  };
  const auto Read = [](std::string sStnFile, L4 bAuto) {
    LogText_Reset();
    const I4 iError = Stn_Read(sStnFile, dLineGiven, fHPRGiven, bAuto);
    return std::to_string(iError) + " " + sStnFile;
  };
  EXPECT_EQ(Read("other.stn", true), "0 OTHER.STN") << "a name in another case";
  EXPECT_EQ(Read("none.stn", true), "1 none.stn");
  EXPECT_EQ(hStn.NStn, 0) << "stations of the file before";
  EXPECT_EQ(Shown("Did not find stn file none.stn"), 1);
  EXPECT_TRUE(sAsked.empty());

  EXPECT_EQ(Read("none.stn", false), "1 none.stn");
  EXPECT_EQ(Shown("Stn file import canceled."), 1);
  ASSERT_EQ(sAsked.size(), 1u);
  EXPECT_EQ(sAsked[0], "Select optional station location file or select Cancel|*.stn|;Select optional .stn file");
  sChosen = "OTHER.STN";
  EXPECT_EQ(Read("none.stn", false), "0 OTHER.STN");
  EXPECT_EQ(Stations_of(1), "5 6");
}

}  // namespace
}  // namespace quillan
