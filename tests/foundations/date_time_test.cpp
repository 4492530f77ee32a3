#include "foundations/date_time.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <limits>

#include "foundations/log_file.h"

namespace quillan {
namespace {

constexpr I4 iLowest = std::numeric_limits<I4>::min();
constexpr I4 iHighest = std::numeric_limits<I4>::max();

class DateTime : public ::testing::Test {
 protected:
  DateTime() {
    I4 IOERR = 0;
    Log_Initialize("dates", IOERR);
    bAutoErr = true;
    Date_Time_Initialize();
  }

  static std::string Reported() {
    std::ifstream in(sErrFile);
    return {std::istreambuf_iterator<char>(in), {}};
  }
};

std::string Clock(R8 dHours, I4 NDec) {
  std::string sHHMMSS;
  dHours_to_sHHMMSS(dHours, NDec, sHHMMSS);
  return sHHMMSS;
}

std::string Date(I4 JDay) {
  Text<16> sDate;
  JDay_to_sYYYYMMDD(JDay, sDate);
  return sDate.str();
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
    I4 IOERR = 9;
    Log_Initialize("dates", IOERR);
    R8 dHours = 0.0;
    dHours_from_sHHMMSS(h.sHHMMSS, -1.0, dHours, IOERR);
    EXPECT_NEAR(dHours, h.dHours, 1.0E-12) << h.sHHMMSS;
    EXPECT_EQ(IOERR, h.IOERR) << h.sHHMMSS;
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
  for (const auto& h : hCase) EXPECT_EQ(Clock(h.dHours, h.NDec), h.sText) << h.dHours;
  EXPECT_EQ(Reported(), "");
}

TEST_F(DateTime, AnHourTooWideIsReported) {
  EXPECT_EQ(Clock(1234567.5, 0), "*");
  EXPECT_TRUE(Reported().ends_with(
      " dHours_to_sHHMMSS.IOERR =     1\n iHour=1234567, iMin=    30\n iSec=     0, MSec=     0\n"))
      << Reported();
  EXPECT_EQ(Clock(1.0E300, 0), "*");
}

TEST_F(DateTime, PartsOfHoursGiveTheHoursBack) {
  for (const R8 dHours : {0.0, 12.51, -0.25, 23.999999, 1.0 / 60.0, 7.99999999999}) {
    I4 iSgn = 0;
    I4 iHour = 0;
    I4 iMin = 0;
    R4 fSec = 0.0f;
    R8 dBack = 0.0;
    dHours_to_iHHMMSS(dHours, iSgn, iHour, iMin, fSec);
    EXPECT_TRUE(iMin >= 0 && iMin <= 59 && fSec >= 0.0f && fSec <= 60.0f) << dHours;
    dHours_from_iHHMMSS(iSgn, iHour, iMin, fSec, dBack);
    EXPECT_NEAR(dBack, dHours, 1.0E-6);
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
    R8 dHHMMSS = 0.0;
    std::string sHHMMSS;
    NMEA_dHHMMSS_from_dHours(h.dHours, dHHMMSS);
    NMEA_sHHMMSS_from_dHours(h.dHours, sHHMMSS);
    EXPECT_NEAR(dHHMMSS, h.dHHMMSS, 1.0E-6);
    EXPECT_EQ(sHHMMSS, h.sText);
  }
}

TEST_F(DateTime, EveryDayOfFourCenturiesComesBack) {
  EXPECT_EQ(JDay_from_iYYYYMMDD(2000, 1, 1), 2451545);
  for (I4 JDay = 2415021; JDay <= 2415021 + 146097; ++JDay) {
    I4 iYYYY = 0;
    I4 iMM = 0;
    I4 iDD = 0;
    JDay_to_iYYYYMMDD(JDay, iYYYY, iMM, iDD);
    ASSERT_TRUE(iMM >= 1 && iMM <= 12 && iDD >= 1 && iDD <= 31) << JDay;
    ASSERT_EQ(JDay_from_iYYYYMMDD(iYYYY, iMM, iDD), JDay);
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
    I4 IOERR = 9;
    Str_to_JulianDay(h.sText, -1, JDay, IOERR);
    EXPECT_EQ(IOERR, h.IOERR) << h.sText;
    EXPECT_EQ(Date(JDay), h.sDate) << h.sText;
  }
  I4 JDay = 0;
  I4 IOERR = 9;
  Str_to_JulianDay("08-05-2004", -1, JDay, IOERR);
  EXPECT_EQ(IOERR, 0);
  EXPECT_EQ(JDay, JDay_from_iYYYYMMDD(2008, 5, 2004)) << "without a slash the year stands first";
}

TEST_F(DateTime, DaysAreWrittenInEitherOrder) {
  Text<16> sDate;
  JDay_to_sMMDDYYYY(2453223, sDate);
  EXPECT_EQ(sDate, "08/05/2004");
  EXPECT_EQ(Date(2453223), "2004-08-05");
  EXPECT_EQ(Date(0), "*");
  JDay_to_sMMDDYYYY(iLowest, sDate);
  EXPECT_EQ(sDate, "*");
}

TEST_F(DateTime, ARememberedDateStandsForItsOwnTextAlone) {
  const auto Day = [](const char* sText, I4& IOERR) {
    I4 JDay = 0;
    JDay_from_sMMDDYYYY(sText, -1, JDay, IOERR);
    return JDay;
  };
  I4 IOERR = 0;
  const I4 JDay = Day("8/5/2004", IOERR);
  EXPECT_EQ(Day("8/5/2004  ", IOERR), JDay);
  EXPECT_EQ(Day("8/x/2004", IOERR), -1);
  EXPECT_EQ(IOERR, 1);
  EXPECT_EQ(Day("8/5/2004", IOERR), JDay);
  EXPECT_EQ(IOERR, 0);
  // Texts that are equal in their first 16 characters, and a date behind more blanks than that.
  EXPECT_EQ(Day("8/5/2004      , 1", IOERR), JDay);
  EXPECT_EQ(Day("8/00000000000005/2004", IOERR), JDay);
  EXPECT_EQ(Day("8/00000000000005/2005", IOERR), JDay + 365);
  EXPECT_EQ(Day("                 8/5/2004", IOERR), JDay);
  EXPECT_EQ(Day("  ", IOERR), -1);
  EXPECT_EQ(IOERR, -1);
  I4 JDayOther = 0;
  JDay_from_sYYYYMMDD("8/5/2004", -1, JDayOther, IOERR);
  EXPECT_NE(JDayOther, JDay) << "the two orders remember apart";
}

TEST_F(DateTime, GpsTimeIsCountedFromItsEpoch) {
  I4 JDay = 0;
  R8 dHour = 0.0;
  GPS_to_JDaydHour(0, 0, JDay, dHour);
  EXPECT_EQ(Date(JDay), "1980-01-06");
  GPS_to_JDaydHour(1930, 86400 + 5400, JDay, dHour);
  EXPECT_EQ(Date(JDay), "2017-01-02");
  EXPECT_DOUBLE_EQ(dHour, 1.5);
}

TEST_F(DateTime, UtcLagsGpsByTheKnownLeapSeconds) {
  I4 iWeek = 0;
  I4 iSec = 0;
  I4 JDay = 0;
  R8 dHour = 0.0;
  GPS_from_UTC(JDay_from_iYYYYMMDD(2017, 1, 1), 0.0, iWeek, iSec);
  EXPECT_EQ(iWeek, 1930);
  EXPECT_EQ(iSec, 17) << "the leap second of 2016 is not known";
  GPS_to_UTC(iWeek, iSec, JDay, dHour);
  EXPECT_EQ(Date(JDay), "2017-01-01");
  EXPECT_DOUBLE_EQ(dHour, 0.0);

  GPS_from_UTC(JDay_from_iYYYYMMDD(1981, 6, 30), 12.0, iWeek, iSec);
  EXPECT_EQ(iSec % 60, 0) << "no leap second before the first";
  GPS_from_UTC(JDay_from_iYYYYMMDD(2017, 1, 7), 23.9999, iWeek, iSec);
  EXPECT_EQ(iWeek, 1931) << "the leap seconds reach into the next day";
  EXPECT_EQ(iSec, 17);

  GPS_to_UTC(1930, 5, JDay, dHour);
  EXPECT_EQ(Date(JDay), "2017-01-01");
  EXPECT_DOUBLE_EQ(dHour, -12.0 / 3600.0) << "a correction across the week's start stays negative";
}

TEST_F(DateTime, HostileNumbersStayInRange) {
  I4 i1 = 0;
  I4 i2 = 0;
  I4 i3 = 0;
  R4 fSec = 0.0f;
  R8 dHour = 0.0;
  std::string sText;
  for (const I4 i : {iLowest, iHighest}) {
    const I4 JDay = JDay_from_iYYYYMMDD(i, i, i);
    EXPECT_EQ(JDay, i);
    JDay_to_iYYYYMMDD(i, i1, i2, i3);
    EXPECT_EQ(i1 > 0, i > 0);
    GPS_to_JDaydHour(i, i, i1, dHour);
    EXPECT_EQ(i1, i);
    GPS_to_UTC(i, i, i1, dHour);
    EXPECT_EQ(i1, i);
    GPS_from_UTC(i, 1.0E300, i1, i2);
    EXPECT_EQ(i2, iHighest);
  }
  for (const R8 d : {1.0E300, -1.0E300, std::numeric_limits<R8>::infinity(), std::numeric_limits<R8>::quiet_NaN()}) {
    dHours_to_iHHMMSS(d, i1, i2, i3, fSec);
    EXPECT_GE(i2, 0);
    dHours_to_sHHMMSS(d, 3, sText);
    EXPECT_EQ(sText, "*");
    NMEA_sHHMMSS_from_dHours(d, sText);
    EXPECT_EQ(sText, "*");
  }
  I4 JDay = 0;
  I4 IOERR = 0;
  Str_to_JulianDay("2147483647/1/2147483647", -1, JDay, IOERR);
  EXPECT_EQ(IOERR, 0);
  R8 dHours = 0.0;
  dHours_from_sHHMMSS("-9223372036854775808:2147483647:1e308", -1.0, dHours, IOERR);
  EXPECT_LT(dHours, 0.0);
}

}  // namespace
}  // namespace quillan
