#include "stations/stn_lookup.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "foundations/pn_intrp.h"
#include "stations/station_text.h"

namespace quillan {
namespace {

// Two lines that run east, the second 100 m to the north and 50 m up. A point at the end of each climbs.
const std::string sTwoLines =
    "Station East North Elev Heading Pitch Roll Depth Line\n"
    "10 2500000 7100000 100 80 1 -1 2 1000\n"
    "20 2500010 7100000 100 80 1 -1 2 1000\n"
    "30 2500030 7100004 110 90 3 -3 4 1000\n"
    "10 2500000 7100100 150 82 1 -1 2 1100\n"
    "20 2500010 7100100 150 82 1 -1 2 1100\n"
    "30 2500030 7100104 160 92 3 -3 4 1100\n";

TEST(StationLookUp, GivesPositionAttitudeAndDepth) {
  ASSERT_EQ(Read_Stations(sTwoLines), 0);
  struct Case {
    const char* sWhat;
    R8 dStn, dLine;
    R8 dX, dY, dZ;
    R4 fH, fD;
    I4 iQLine, iQStn;
  };
  for (const Case& h : std::vector<Case>{
           {"on a point",         20, 1000, 2500010, 7100000, 100,   80,   -2, iOnPoint,       iOnPoint      },
           {"between points",     25, 1000, 2500020, 7100002, 105,   85,   -3, iOnPoint,       iBetweenPoints},
           {"before the line",    0,  1000, 2499990, 7100000, 100,   80,   -2, iOnPoint,       iBeyondTable  },
           {"beyond the line",    40, 1000, 2500050, 7100008, 110,   90,   -4, iOnPoint,       iBeyondTable  },
           {"on the second line", 20, 1100, 2500010, 7100100, 150,   82,   -2, iOnPoint,       iOnPoint      },
           {"between the lines",  25, 1025, 2500020, 7100027, 117.5, 85.5, -3, iBetweenPoints, iBetweenPoints},
           {"beyond the lines",   25, 1200, 2500020, 7100202, 205,   89,   -3, iBeyondTable,   iBetweenPoints},
  }) {
    const StationFix hPlace = Stn_Get_dXYZfD(h.dStn, h.dLine);
    const StationFix hBoth = Stn_Get_dXYZfHPR(h.dStn, h.dLine);
    EXPECT_EQ(hPlace.iError, 0) << h.sWhat;
    EXPECT_NEAR(hPlace.dXYZ(1), h.dX, 1.0E-3) << h.sWhat;
    EXPECT_NEAR(hPlace.dXYZ(2), h.dY, 1.0E-3) << h.sWhat;
    EXPECT_NEAR(hPlace.dXYZ(3), h.dZ, 1.0E-3) << h.sWhat;
    EXPECT_FLOAT_EQ(hPlace.fDepth, h.fD) << h.sWhat;
    EXPECT_FLOAT_EQ(hBoth.fHPR(1), h.fH) << h.sWhat;
    EXPECT_FLOAT_EQ(hBoth.fHPR(2), -hBoth.fHPR(3)) << h.sWhat;
    EXPECT_EQ(hPlace.iQIntrp, (Array1<I4, 2>{h.iQLine, h.iQStn})) << h.sWhat;
    EXPECT_EQ(hBoth.iQIntrp, hPlace.iQIntrp) << h.sWhat;
    EXPECT_EQ(Stn_Get_dXYZ(h.dStn, h.dLine).dXYZ, hPlace.dXYZ) << h.sWhat;
    EXPECT_EQ(hBoth.dXYZ, hPlace.dXYZ) << h.sWhat;
    EXPECT_EQ(Stn_Get_fHPR(h.dStn, h.dLine).fHPR, hBoth.fHPR) << h.sWhat;
  }
}

TEST(StationLookUp, HeadingsAreBlendedAsNumbers) {
  ASSERT_EQ(Read_Stations("Station East North Elev Heading Line\n"
                          "1 0 0 0 359 10\n2 5 0 0 359 10\n1 0 9 0 1 20\n2 5 9 0 1 20\n"),
            0);
  EXPECT_FLOAT_EQ(Stn_Get_fHPR(1.5, 15.0).fHPR(1), 180.0f);
}

TEST(StationLookUp, OneLineServesEveryLineNumber) {
  ASSERT_EQ(Read_Stations("1 0 0 0\n2 10 0 0\n"), 0);
  const StationFix h = Stn_Get_dXYZ(1.5, 77.0);
  EXPECT_EQ(h.dXYZ(1), 5.0);
  EXPECT_EQ(h.iQIntrp(1), iBeyondTable);
}

TEST(StationLookUp, WithoutAStationThereIsNoPlaceAndNoReport) {
  ASSERT_EQ(Read_Stations(sTwoLines), 0);
  for (const auto& [dStn, dLine] : std::vector<std::pair<R8, R8>>{
           {dDummy, 1000.0},
           {20.0,   dDummy},
           {1.1E20, 1000.0}
  }) {
    EXPECT_EQ(Stn_Get_dXYZfHPR(dStn, dLine).iError, 1);
    EXPECT_EQ(Stn_Get_dXYZfHPR(dStn, dLine).dXYZ(1), dDummy);
  }
  Stn_Forget();
  EXPECT_EQ(Stn_Get_dXYZ(20.0, 1000.0).iError, 1);
  EXPECT_EQ(Stn_Get_PellXYZ(1, 1).iError, 1);
  EXPECT_EQ(Stn_Get_XYOffset().iError, 1);
  EXPECT_EQ(Shown("ERROR"), 0);
}

TEST(StationPositions, EveryTransientTakesThatOfItsReceiver) {
  ASSERT_EQ(Read_Stations(sTwoLines), 0);
  Load({TransientBuilder().Station(10.0), TransientBuilder().Station(25.0), TransientBuilder().Station(dDummy)});
  hTrn(3).dRxXYZ = {1.0, 2.0, 3.0};
  EXPECT_EQ(Stn_Positions(1000.0), 2);
  EXPECT_EQ(hTrn(1).dRxXYZ, (Array1<R8, 3>{2500000.0, 7100000.0, 100.0}));
  EXPECT_EQ(hTrn(2).dRxXYZ, (Array1<R8, 3>{2500020.0, 7100002.0, 105.0}));
  EXPECT_EQ(hTrn(2).fRxHPR, (Array1<R4, 3>{85.0f, 2.0f, -2.0f}));
  EXPECT_EQ(hTrn(3).dRxXYZ, (Array1<R8, 3>{1.0, 2.0, 3.0})) << "a receiver without a station keeps its own";
}

TEST(StationElectrodes, AreFoundByNumberAndByStation) {
  hPellReports = {};
  ASSERT_EQ(Read_Stations("Station East North Elev Depth MuxBox Electrode\n"
                          "1000 500100 0 5 2 1 1\n1010 500110 0 6 3 1 2\n1020 500120 0 7 4 40 -1\n"),
            0);
  const PellFix hPell = Stn_Get_PellXYZ(1, 2);
  EXPECT_EQ(hPell.iError, 0);
  EXPECT_EQ(hPell.dStn, 1010.0);
  EXPECT_EQ(hPell.dLine, dLineGiven);
  EXPECT_EQ(hPell.dXYZ, (Array1<R8, 3>{500110.0, 0.0, 6.0}));
  EXPECT_EQ(hPell.fDepth, -3.0f);
  EXPECT_EQ(Stn_Get_PellMux(1009.9995, dLineGiven).iMuxChn, 2);
  EXPECT_EQ(Shown("ERROR"), 0);

  EXPECT_EQ(Stn_Get_PellMux(1020.0, dLineGiven).iMuxBox, 40) << "reported, and given all the same";
  EXPECT_EQ(Shown("Mux Box=40 < 0 or > 32"), 1);
  EXPECT_EQ(Shown("Mux Electrode=-1 < 0 or > 32"), 1);
  for (I4 I = 1; I <= 5; ++I) {
    EXPECT_EQ(Stn_Get_PellXYZ(2, 3).iError, 1);
    EXPECT_EQ(Stn_Get_PellMux(1010.002, dLineGiven).iError, 1);
    EXPECT_EQ(Stn_Get_PellMux(1010.0, 7.0).iError, 1);
  }
  EXPECT_EQ(Shown("Pell Mux Box=2,  Electrode=3"), 3) << "three times a run";
  EXPECT_EQ(Shown("Stn_Get_PellMux.ERROR: Did not find stn-file data for"), 3);
  EXPECT_FALSE(Is_Present(Stn_Get_PellXYZ(2, 3).dXYZ(1)));
}

}  // namespace
}  // namespace quillan
