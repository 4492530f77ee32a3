#include "review/plan_view.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/played_session.h"
#include "support/survey_builder.h"
#include "toolkit/draw/plot_axes.h"

namespace quillan {
namespace {

Transient At(R8 dStn, R8 dEast, R8 dNorth) {
  Transient h = TransientBuilder().Station(dStn);
  h.dRxXYZ = {dEast, dNorth, 10.0};
  return h;
}

/// A survey of two receivers, the first without a position, with a loop of 200 by 100 m along N30E and its centre, or
/// offset, at 60, 80.
void Load_Survey(I4 iTemArray) {
  Load({TransientBuilder().Station(5), At(6, 482000, 5176000), At(7, 482000, 5176100)});
  hTemSurvey.iTemArray = iTemArray;
  hTemSurvey.fLineAzimuth = 90.0f;
  hTemSurvey.fTxLength = {200.0f, 100.0f};
  hTemSurvey.fTxHPR = {30.0f, 0.0f, 0.0f};
  hTemSurvey.dTxXYZC = {60.0, 80.0, 0.0};
}

TEST(PlanView, TheLoopStandsWhereTheArrayPutsIt) {
  const struct {
    const char* sArray;
    I4 iTemArray;
    R8 dX, dY;
  } hCases[] = {
      {"FXL",     1,  60,          80          },
      {"MVL",     2,  482000 + 60, 5176000 + 80}, // along a line to the east, and across it to the north
      {"INL",     3,  482000,      5176000     },
      {"COL",     4,  482000,      5176000     },
      {"LOT",     5,  60,          80          },
      {"CNT",     6,  482000,      5176000     },
      {"unknown", 99, 60,          80          },
  };
  for (const auto& c : hCases) {
    SCOPED_TRACE(c.sArray);
    Load_Survey(c.iTemArray);
    const PlanView h = Plan_View();
    EXPECT_EQ(h.jFirst, 2);
    EXPECT_EQ(h.hReceiver.size(), 2u);
    EXPECT_NEAR(h.hCentre.dX, c.dX, 1.0E-4);
    EXPECT_NEAR(h.hCentre.dY, c.dY, 1.0E-4);
    EXPECT_NEAR(h.hArrow.dX - h.hCentre.dX, 100 * 0.5, 1.0E-3) << "sin 30";
    EXPECT_NEAR(h.hArrow.dY - h.hCentre.dY, 100 * std::sqrt(0.75), 1.0E-3);
    EXPECT_EQ(h.hVertex(5).dX, h.hVertex(1).dX) << "closed";
  }
}

TEST(PlanView, NotesSayTheLoopAndTheDistanceInTheSurveysUnit) {
  Load_Survey(iArrayFXL);
  hTemSurvey.dTxXYZC = {482030.0, 5176040.0, 0.0};
  hTemSurvey.sJobName = "Orrin";
  hTemSurvey.sLineName = "12";
  EXPECT_EQ(Plan_Notes(Plan_View(), "/data/orrin.stn"),
            (std::vector<std::string>{"Plan View of Survey Configuration", "Orrin Line 12", "Data from orrin.stn",
                                      "Transmitter loop 200 x 100 m, along 30 deg E of N",
                                      "Receiver 6 is 50 m from the loop's centre, all are 50 to 67.1 m"}));
  hTemSurvey.sLineName = "";
  hTemSurvey.iTemArray = iArrayMVL;
  hTemSurvey.dTxXYZC = {30.0, 0.0, 0.0};
  hTemSurvey.fTxLength = {30.48f, 30.48f};
  hTemSurvey.iLengthUnit = 2;
  EXPECT_EQ(Plan_Notes(Plan_View(), "orrin.stn"),
            (std::vector<std::string>{"Plan View of Survey Configuration", "Data from orrin.stn",
                                      "Transmitter loop 100 x 100 ft, along 30 deg E of N",
                                      "Receiver 6 is 30 ft from the loop's centre"}));
}

TEST(PlanView, AMetreIsAsLongAlongEitherAxisInAWindowOfAnyShape) {
  for (const I4 NXP : {500, 900, 1800}) {
    Load_Survey(iArrayMVL);
    Open_Window(NXP, 600);
    ASSERT_EQ(TEM_Map_View_Plot("orrin.stn"), 0);
    const GrPoint h0 = IPgNumbersToGrUnits(482000, 5176000), h1 = IPgNumbersToGrUnits(482100, 5176100);
    const GrPoint hPixel = IGrPixelSize();
    const R4 fX = (h1.fX - h0.fX) / hPixel.fX, fY = (h1.fY - h0.fY) / hPixel.fY;
    EXPECT_GT(fX, 20.0f) << NXP;
    EXPECT_NEAR(fX, fY, 0.01f * fX) << NXP << ": east is to the right, north is up";
    WindowClose();
  }
}

TEST(PlanView, MissingPositionsAndSizesLeaveNumbers) {
  Load({TransientBuilder().Station(5)});
  for (const I4 iTemArray : {1, 2, 3}) {
    hTemSurvey.iTemArray = iTemArray;
    hTemSurvey.dTxXYZC = Filled<Array1<R8, 3>>(dDummy);
    hTemSurvey.fTxLength = Filled<Array1<R4, 2>>(fDummy);
    const PlanView h = Plan_View();
    EXPECT_EQ(h.jFirst, 0);
    EXPECT_EQ(h.hVertex(3).dX, 0.0);
    EXPECT_EQ(h.hVertex(3).dY, 0.0);
    EXPECT_EQ(Plan_Notes(h, "a.stn").back(), "No receiver has a position");
  }
  Begin_Test();
  EXPECT_EQ(TEM_Map_View_Plot("a.stn"), 1) << "no transients, no window";
}

}  // namespace
}  // namespace quillan
