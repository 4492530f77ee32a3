#include "review/stn_map.h"

#include <gtest/gtest.h>

#include "stations/stn_file.h"
#include "support/files.h"
#include "support/played_session.h"
#include "support/reports.h"
#include "support/survey_builder.h"
#include "support/user_notebook.h"

namespace quillan {
namespace {

/// Reads stations of line 7 unless they state another.
void Read(const std::string& sRows) {
  Begin_Test();
  Write_File("map.stn", sRows);
  std::string sStnFile = "map.stn";
  ASSERT_EQ(Stn_Read(sStnFile, 7.0, Array1<R4, 3>{37.0f, 0.0f, 0.0f}, true), 0);
}

constexpr const char* sTwoLines =
    "Station East North Elev Line Depth\n"
    "100 482000 5176000 10 7 2.5\n150 482050.5 5176000 12 7 2\n200 482100.5 5176000 11 7 0\n"
    "100 482000 5176200 20 8 1\n150 482050 5176200.5 20 8 1\n";

TEST(StationMap, AnnotationSaysTheStatisticsOfTheLineFromTheBottomUp) {
  Read(sTwoLines);
  std::vector<std::string> sLine = Stn_Annotation(7.0);
  ASSERT_GT(sLine.size(), 1u);
  sLine[1].resize(sLine[1].find("NSR ") + 4);  // the noise of the last digits
  const std::vector<std::string> sWanted = {
      "Median station interval 50, median length/stn scale 1 +/- 0.005",
      "Average across-line |deviation| 0 => NSR ",
      "Straight line trending 90 deg E of N",
      "Depth range -2.5 to 0",
      "Elevation range 10 to 20",
      "Northing  range 5176000 to 5176200.5",
      "Easting   range 482000 to 482100.5",
      "Station   range 100 to 200",
      "5 points for line 7",
  };
  EXPECT_EQ(sLine, sWanted);
  EXPECT_TRUE(Stn_Annotation(9.0).empty()) << "no such line";
}

TEST(StationMap, ThePointerHasItsCoordinatesAndTheNearestStation) {
  Read(sTwoLines);
  EXPECT_EQ(Stn_Pointer_Text({482060, 5176190}),
            "482060 E, 5176190 N     Nearest: station 150 of line 8 at 482050 E, 5176200.5 N, elevation 20");
  Read("1 -5.3 3 0\n");
  EXPECT_EQ(Stn_Pointer_Text({0.04, -0.04}), "0 E, 0 N     Nearest: station 1 at -5.3 E, 3 N, elevation 0");
}

TEST(StationMap, ScalesOfColoursOverAnyRangeHaveFewerThanElevenLabels) {
  const struct {
    R4 fMin, fMax;
    const char* sLabels;
  } hCases[] = {
      {0.0f,    9.0f,    "0 1 2 3 4 5 6 7 8 9"          },
      {1384.0f, 1384.0f, "1384 1385"                    },
      {1373.0f, 1384.0f, "1374 1376 1378 1380 1382 1384"},
      {-7.5f,   -3.2f,   "-8 -7 -6 -5 -4 -3"            },
  };
  for (const auto& c : hCases) {
    std::string sAll;
    for (const ColorLabel& h : Stn_Color_Labels(Stn_CF_Increment(50, c.fMin, c.fMax, 1.0f)))
      sAll += (sAll.empty() ? "" : " ") + h.sLabel;
    EXPECT_EQ(sAll, c.sLabels) << c.fMin << " to " << c.fMax;
  }
  for (const R4 fMin : {-1.0E12f, -2.0E9f, 0.0f, 1.0E9f, 2.0E9f, 1.0E12f}) {
    for (const R4 fWidth : {0.0f, 1.0f, 1.0E6f, 2.0E9f, 4.0E11f}) {
      const std::vector<ColorLabel> hLabel = Stn_Color_Labels(Stn_CF_Increment(50, fMin, fMin + fWidth, 1.0f));
      EXPECT_LT(hLabel.size(), 11u) << fMin << ' ' << fWidth;
      EXPECT_GE(hLabel.size(), 1u) << fMin << ' ' << fWidth;
      for (const ColorLabel& h : hLabel) EXPECT_TRUE(h.fPlace >= 0.0f && h.fPlace <= 1.0f) << fMin << ' ' << fWidth;
    }
  }
}

/// Shows the map while steps.txt plays; whether it was closed, and what came after it.
std::string Play_Map(std::string_view sSteps) {
  PlayedSession hSession(sSteps);
  const I4 iError = Stn_Plot_Map("map.stn", 7.0);
  std::string sAfter = std::to_string(iError);
  for (const Message& h : hSession.Rest()) sAfter += " " + std::to_string(static_cast<I4>(h.iType));
  return sAfter + hSession.Errors();
}

TEST(StationMap, ClosesOnAKeyAClickOrItsButtonAndWhatWasDoneInItIsOver) {
  Read(sTwoLines);
  for (const std::string sClose : {"key x", "key Esc", "click 5 5", "click 5 5 right", "close"}) {
    EXPECT_EQ(Play_Map("hover 482050 5176000\nexpect \"Nearest: station 150 of line 7\"\nresize 700 500\nwheel 2 5 5\n"
                       "expect \"Station data check\"\n" +
                       sClose + "\nexpect \"QUILLAN test\"\nkey y\n"),
              "0 1")
        << sClose;
  }
  EXPECT_NE(Play_Map("menu 40005\n").find("greyed"), std::string::npos) << "the main window answers to nothing";
  NErr = 0;
  EXPECT_EQ(Shown("Station"), 0) << "the screen text is empty";
}

TEST(StationMap, ClosesByItselfAfterItsTime) {
  Read("1 0 0 5\n");
  EXPECT_EQ(NMsecMap, 30000);
  NMsecMap = 1;
  Open_Window(900, 600);
  EXPECT_EQ(Stn_Plot_Map("map.stn", 7.0), 0);  // nobody presses a key
  NMsecMap = 30000;
  WindowClose();
  EXPECT_EQ(Stn_Plot_Map("map.stn", 7.0), 1) << "no window";
  Stn_Forget();
  EXPECT_EQ(Stn_Plot_Map("map.stn", 7.0), 0) << "nothing to show";
}

}  // namespace
}  // namespace quillan
