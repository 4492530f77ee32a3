#include "foundations/date_time.h"

#include <gtest/gtest.h>

#include <limits>

#include "foundations/log_file.h"
#include "support/files.h"

namespace quillan {
namespace {

constexpr I4 iLowest = std::numeric_limits<I4>::min();
constexpr I4 iHighest = std::numeric_limits<I4>::max();

class DateTime : public ::testing::Test {
 protected:
  DateTime() {
    EXPECT_EQ(Log_Initialize("dates"), 0);
    bAutoErr = true;
    Date_Time_Initialize();
  }
  static std::string Reported() { return Read_Whole_File(sErrFile); }
};

std::string Date(I4 JDay) {
  return JDay_to_sYYYYMMDD(JDay).str();
}

TEST_F(DateTime, ClockTimesBecomeHours) {
  const struct {
    const char* sHHMMSS;
    R8 dHours;
    I4 IOERR;
    const char* sReport;
  } hCase[] = {
      {"12:30:36",     12.51,    0,  ""                                                              },
      {"-0:30:00",     -0.5,     0,  ""                                                              },
      {"100:00:00.36", 100.0001, 0,  ""                                                              },
      {"5400",         1.5,      0,  ""                                                              },
      {",",            -1.0,     0,  ""                                                              },
      {" ",            -1.0,     -1, ""                                                              },
      {"*",            -1.0,     -1, ""                                                              },
      {"xyz",          -1.0,     0,  "ERROR: Did not find expected hh:mm:ss.s format in \"xyz\"\n"   },
      {"12:30",        -1.0,     1,  "ERROR: Did not find expected hh:mm:ss.s format in \"12:30\"\n" },
      {":30:00",       -1.0,     1,  "ERROR: Did not find expected hh:mm:ss.s format in \":30:00\"\n"},
      {"1:x:00",       -1.0,     1,  "ERROR reading hh:mm:ss.s value from 1:x:00\"\n"                },
  };
  for (const auto& h : hCase) {
    ASSERT_EQ(Log_Initialize("dates"), 0);
    R8 dHours = 0.0;
    EXPECT_EQ(dHours_from_sHHMMSS(h.sHHMMSS, -1.0, dHours), h.IOERR) << h.sHHMMSS;
    EXPECT_NEAR(dHours, h.dHours, 1.0E-12) << h.sHHMMSS;
    EXPECT_TRUE(Reported().ends_with(h.sReport)) << Reported();
    EXPECT_EQ(Reported().empty(), h.sReport[0] == '\0') << h.sHHMMSS;
  }
}

TEST_F(DateTime, HoursBecomeClockTimes) {
  const struct {
    R8 dHours;
    I4 NDec;
    const char* sText;
  } hCase[] = {
      {12.51,                          3,  "12:30:36.000"},
      {12.51,                          0,  "12:30:36"    },
      {12.51,                          -5, "12:30:36"    },
      {12.51,                          9,  "12:30:36.000"},
      {-0.5,                           0,  "-00:30:00"   },
      {1.9999999,                      1,  "02:00:00.0"  },
      {1.99999999999,                  3,  "02:00:00.000"},
      {59.0 / 60.0 + 59.9999 / 3600.0, 2,  "01:00:00.00" },
      {1.0 / 60.0,                     1,  "00:01:00.0"  },
      {8.0 / 60.0,                     1,  "00:08:00.0"  },
      {123.25,                         0,  "123:15:00"   },
      {999999.5,                       0,  "999999:30:00"},
      {dDummy,                         3,  "*"           },
  };
  for (const auto& h : hCase) EXPECT_EQ(dHours_to_sHHMMSS(h.dHours, h.NDec), h.sText) << h.dHours;
  EXPECT_EQ(Reported(), "");
}

TEST_F(DateTime, AnHourTooWideIsReported) {
  EXPECT_EQ(dHours_to_sHHMMSS(1234567.5, 0), "*");
  EXPECT_TRUE(Reported().ends_with(
      " dHours_to_sHHMMSS.IOERR =     1\n iHour=1234567, iMin=    30\n iSec=     0, MSec=     0\n"))
      << Reported();
  EXPECT_EQ(dHours_to_sHHMMSS(1.0E300, 0), "*");
}

TEST_F(DateTime, PartsOfHoursGiveTheHoursBack) {
  for (const R8 dHours : {0.0, 12.51, -0.25, 23.999999, 1.0 / 60.0, 7.99999999999}) {
    const ClockTime h = dHours_to_iHHMMSS(dHours);
    EXPECT_TRUE(h.iMin >= 0 && h.iMin <= 59 && h.fSec >= 0.0f && h.fSec <= 60.0f) << dHours;
    EXPECT_NEAR(dHours_from_iHHMMSS(h), dHours, 1.0E-6);
  }
}

TEST_F(DateTime, NmeaTimes) {
  const struct {
    R8 dHours, dHHMMSS;
    const char* sText;
  } hCase[] = {
      {12.5101,  123036.36,  " 123036.36"},
      {-12.5101, -123036.36, "-123036.36"},
      {0.0,      0.0,        " 000000.00"},
      {101.0,    1010000.0,  "1010000.00"},
      {1000.0,   10000000.0, "*"         },
  };
  for (const auto& h : hCase) {
    EXPECT_NEAR(NMEA_dHHMMSS_from_dHours(h.dHours), h.dHHMMSS, 1.0E-6);
    EXPECT_EQ(NMEA_sHHMMSS_from_dHours(h.dHours), h.sText);
  }
}

TEST_F(DateTime, EveryDayOfFourCenturiesComesBack) {
  EXPECT_EQ(JDay_from_iYYYYMMDD({2000, 1, 1}), 2451545);
  for (I4 JDay = 2415021; JDay <= 2415021 + 146097; ++JDay) {
    const CalendarDay h = JDay_to_iYYYYMMDD(JDay);
    ASSERT_TRUE(h.iMM >= 1 && h.iMM <= 12 && h.iDD >= 1 && h.iDD <= 31) << JDay;
    ASSERT_EQ(JDay_from_iYYYYMMDD(h), JDay);
  }
}

TEST_F(DateTime, DatesAreReadInEitherOrder) {
  const struct {
    const char *sText, *sDate;
    I4 IOERR;
  } hCase[] = {
      {"8/5/04",         "2004-08-05", 0 },
      {"8/5/98",         "1998-08-05", 0 },
      {"8/5/70",         "1970-08-05", 0 },
      {"8/5/2004 12:00", "2004-08-05", 0 },
      {"2004-08-05",     "2004-08-05", 0 },
      {"98-8-5",         "1998-08-05", 0 },
      {"2/30/2004",      "2004-03-01", 0 }, // not held against the calendar
      {"",               "*",          -1},
      {"*",              "*",          -1},
      {"8/5",            "*",          1 },
      {"20040805",       "*",          1 },
      {"8/x/04",         "*",          1 },
  };
  for (const auto& h : hCase) {
    I4 JDay = 9;
    EXPECT_EQ(Str_to_JulianDay(h.sText, -1, JDay), h.IOERR) << h.sText;
    EXPECT_EQ(Date(JDay), h.sDate) << h.sText;
  }
  I4 JDay = 0;
  EXPECT_EQ(Str_to_JulianDay("08-05-2004", -1, JDay), 0);
  EXPECT_EQ(JDay, JDay_from_iYYYYMMDD({2008, 5, 2004})) << "without a slash the year stands first";
}

TEST_F(DateTime, DaysAreWrittenInEitherOrder) {
  EXPECT_EQ(JDay_to_sMMDDYYYY(2453223), "08/05/2004");
  EXPECT_EQ(JDay_to_sYYYYMMDD(2453223), "2004-08-05");
  EXPECT_EQ(JDay_to_sYYYYMMDD(0), "*");
  EXPECT_EQ(JDay_to_sMMDDYYYY(iLowest), "*");
}

TEST_F(DateTime, ARememberedDateStandsForItsOwnTextAlone) {
  const I4 JDay = JDay_from_iYYYYMMDD({2004, 8, 5});
  const struct {
    const char* sText;
    I4 JDay, IOERR;
  } hCase[] = {
      {"8/5/2004",                  JDay,       0 },
      {"8/5/2004  ",                JDay,       0 },
      {"8/x/2004",                  -1,         1 },
      {"8/5/2004",                  JDay,       0 },
      {"8/5/2004      , 1",         JDay,       0 }, // equal to others in its first 16 characters, as the next two are
      {"8/00000000000005/2004",     JDay,       0 },
      {"8/00000000000005/2005",     JDay + 365, 0 },
      {"                 8/5/2004", JDay,       0 },
      {"  ",                        -1,         -1},
  };
  I4 JFound = 0;
  for (const auto& h : hCase) {
    EXPECT_EQ(JDay_from_sMMDDYYYY(h.sText, -1, JFound), h.IOERR) << h.sText;
    EXPECT_EQ(JFound, h.JDay) << h.sText;
  }
  EXPECT_EQ(JDay_from_sYYYYMMDD("8/5/2004", -1, JFound), 0);
  EXPECT_NE(JFound, JDay) << "the two orders remember apart";
}

TEST_F(DateTime, UtcLagsGpsByTheKnownLeapSeconds) {
  EXPECT_EQ(Date(GPS_to_JDaydHour({0, 0}).JDay), "1980-01-06");
  const DayAndHour hGps = GPS_to_JDaydHour({1930, 86400 + 5400});
  EXPECT_EQ(Date(hGps.JDay), "2017-01-02");
  EXPECT_DOUBLE_EQ(hGps.dHour, 1.5);

  const GpsTime hNewYear = GPS_from_UTC({JDay_from_iYYYYMMDD({2017, 1, 1}), 0.0});
  EXPECT_EQ(hNewYear.iGpsWeek, 1930);
  EXPECT_EQ(hNewYear.iGpsSec, 17) << "the leap second of 2016 is not known";
  const DayAndHour hBack = GPS_to_UTC(hNewYear);
  EXPECT_EQ(Date(hBack.JDay), "2017-01-01");
  EXPECT_DOUBLE_EQ(hBack.dHour, 0.0);

  EXPECT_EQ(GPS_from_UTC({JDay_from_iYYYYMMDD({1981, 6, 30}), 12.0}).iGpsSec % 60, 0) << "none before the first";
  const GpsTime hNextDay = GPS_from_UTC({JDay_from_iYYYYMMDD({2017, 1, 7}), 23.9999});
  EXPECT_EQ(hNextDay.iGpsWeek, 1931) << "the leap seconds reach into the next day";
  EXPECT_EQ(hNextDay.iGpsSec, 17);

  const DayAndHour hWeekStart = GPS_to_UTC({1930, 5});
  EXPECT_EQ(Date(hWeekStart.JDay), "2017-01-01");
  EXPECT_DOUBLE_EQ(hWeekStart.dHour, -12.0 / 3600.0) << "a correction across the week's start stays negative";
}

TEST_F(DateTime, HostileNumbersStayInRange) {
  for (const I4 i : {iLowest, iHighest}) {
    EXPECT_EQ(JDay_from_iYYYYMMDD({i, i, i}), i);
    EXPECT_EQ(JDay_to_iYYYYMMDD(i).iYYYY > 0, i > 0);
    EXPECT_EQ(GPS_to_JDaydHour({i, i}).JDay, i);
    EXPECT_EQ(GPS_to_UTC({i, i}).JDay, i);
    EXPECT_EQ(GPS_from_UTC({i, 1.0E300}).iGpsSec, iHighest);
  }
  for (const R8 d : {1.0E300, -1.0E300, std::numeric_limits<R8>::infinity(), std::numeric_limits<R8>::quiet_NaN()}) {
    EXPECT_GE(dHours_to_iHHMMSS(d).iHour, 0);
    EXPECT_EQ(dHours_to_sHHMMSS(d, 3), "*");
    EXPECT_EQ(NMEA_sHHMMSS_from_dHours(d), "*");
  }
  I4 JDay = 0;
  EXPECT_EQ(Str_to_JulianDay("2147483647/1/2147483647", -1, JDay), 0);
  R8 dHours = 0.0;
  EXPECT_EQ(dHours_from_sHHMMSS("-9223372036854775808:2147483647:1e308", -1.0, dHours), 0);
  EXPECT_LT(dHours, 0.0);
}

}  // namespace
}  // namespace quillan
