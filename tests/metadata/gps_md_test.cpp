#include <gtest/gtest.h>

#include <string_view>

#include "metadata/metadata_fixture.h"

namespace quillan {
namespace {

class GpsMd : public Metadata {};

TEST_F(GpsMd, EveryKeywordFillsItsOwnValue) {
  const std::string_view sLine[] = {
      "$ Gps.Lat= -33.5", "$ Gps.Lon= -120",  "$ Gps.Alt= 850",     "$ Gps.Datum= WGS84",
      "$ Gps.Proj= UTM",  "$ Gps.Week= 1830", "$ Gps.Sec= 86400.5", "$ Gps.LeapSecond= 17",
      "$ Gps.NumSat= 9",  "$ Gps.PDOP= 2.5",  "$ Gps.Status= -7",   "$ Gps.TCDAC= 2048",
      "$ Gps.SN= 44",     "$ Gps.FW= 1.2",    "$ Gps.SW= 3.4",      "$ Gps.UTMZone= -13",
  };
  for (const std::string_view s : sLine) EXPECT_EQ(Take(s), 0) << s;
  EXPECT_EQ(MdGps.dLat, -33.5);
  EXPECT_EQ(MdGps.dLon, -120.0);
  EXPECT_EQ(MdGps.dAlt, 850.0);
  EXPECT_EQ(MdGps.sDatum, "WGS84");
  EXPECT_EQ(MdGps.sProj, "UTM");
  EXPECT_EQ(MdGps.iUTMZone, -13);
  EXPECT_EQ(MdGps.iWeek, 1830);
  EXPECT_EQ(MdGps.dSec, 86400.5);
  EXPECT_EQ(MdGps.iLeapSec, 17);
  EXPECT_EQ(MdGps.NSat, 9);
  EXPECT_EQ(MdGps.fPDOP, 2.5f);
  EXPECT_EQ(MdGps.iStatus, -7);
  EXPECT_EQ(MdGps.fTCDAC, 2048.0f);
  EXPECT_EQ(MdGps.sSN, "44");
  EXPECT_EQ(MdGps.sFWVer, "1.2");
  EXPECT_EQ(MdGps.sSWVer, "3.4");
}

TEST_F(GpsMd, AnOffendingValueBecomesZeroAndIsToldInTheWordsOfItsRow) {
  struct Case {
    std::string_view sLine;
    std::string_view sWarning;
  };
  const Case hCase[] = {
      {"$ Gps.Lat= 91",      "Gps.Lat = 9.1000E+01 < -90 or > 90 deg"         },
      {"$ Gps.Lon= -200",    "Gps.Lon = -2.0000E+02 < -90 or > 90 deg"        },
      {"$ Gps.Alt= 2.0E6",   "Gps.Alt = 2.0000E+06 < -1.0E6 or > 1.0E6 m"     },
      {"$ Gps.UTMZone= -61", "Gps.UTMZone = -61 = abs|-61| < 1 or > 60"       },
      {"$ Gps.Week= -1",     "Gps.Week = -1 < 0 or > 2147483646"              },
      {"$ Gps.Sec= -1",      "Gps.Sec = -1.0000E+00 < 0.0D0 or > 1.0E32 sec"  },
      {"$ Gps.NumSat= 65",   "Gps.NumSat = 65 < 0 or > 64"                    },
      {"$ Gps.PDOP= 1001",   "Gps.PDOP = 1.0010E+03 < 0 or > 64"              },
      {"$ Gps.TCDAC= -2",    "Gps.TCDAC = -2.0000E+00 < 0.0 or > 1.0E32 TCDAC"},
  };
  for (const Case& h : hCase) {
    EXPECT_EQ(Take(h.sLine), 0) << h.sLine;
    EXPECT_EQ(Told(h.sWarning), 1) << h.sWarning;
  }
  EXPECT_EQ(Told("Gps_MD_Read.WARNING: at record 2"), 1);
  EXPECT_EQ(Told("Gps.Lon will be set = 0.0000E+00"), 1);
  EXPECT_EQ(MdGps.dLat, 0.0);
  EXPECT_EQ(MdGps.dLon, 0.0);
  EXPECT_EQ(MdGps.iUTMZone, 0);
  EXPECT_EQ(MdGps.iWeek, 0);
  EXPECT_EQ(MdGps.fPDOP, 0.0f);
  EXPECT_EQ(Take("$ Gps.PDOP= 100"), 0);
  EXPECT_EQ(MdGps.fPDOP, 100.0f) << "the words speak of 64, the limit is 1000";
}

TEST_F(GpsMd, APositionStandsInOneFieldOrInThree) {
  EXPECT_EQ(Take("$ Gps.UTMXYZ= 350100:6240020:120"), 0);
  EXPECT_EQ(MdGps.dUTMXYZ, (Array1<R8, 3>{
                               {350100.0, 6240020.0, 120.0}
  }));
  EXPECT_EQ(Take("$ Gps.UTMXYZ= 1, 2"), 0);
  EXPECT_EQ(MdGps.dUTMXYZ, (Array1<R8, 3>{
                               {1.0, 2.0, 120.0}
  }));
  EXPECT_EQ(Take("$ Gps.UTMXYZ= 1.0E10, 5, 6"), 0);
  EXPECT_EQ(MdGps.dUTMXYZ, (Array1<R8, 3>{
                               {0.0, 5.0, 6.0}
  }));
  EXPECT_EQ(Told("GPS_MD_Read.WARNING: at record 3"), 1);
}

TEST_F(GpsMd, ATimeOffsetIsCompletedToSeconds) {
  struct Case {
    std::string_view sLine;
    R8 dHours;
  };
  const Case hCase[] = {
      {"$ Gps.LocalTimeOffset= -7",      -7.0},
      {"$ Gps.LocalTimeOffset= 10",      10.0},
      {"$ Gps.LocalTimeOffset= 9:30",    9.5 },
      {"$ Gps.LocalTimeOffset= 5:30:36", 5.51},
      {"$ Gps.LocalTimeOffset= 13",      0.0 }, // no place is that far from Greenwich by our limits
  };
  for (const Case& h : hCase) {
    EXPECT_EQ(Take(h.sLine), 0) << h.sLine;
    EXPECT_DOUBLE_EQ(MdGps.dTimeOffset, h.dHours) << h.sLine;
  }
  EXPECT_EQ(Told("Gps.LocalTimeOffset = 1.3000E+01 < -1.2000E+01 or > 1.2000E+01 hours"), 1);
}

}  // namespace
}  // namespace quillan
