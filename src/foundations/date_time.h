// date_time.h: clock times, calendar days, GPS time.
//
// Hours are decimal hours. A day is the Julian day number, in which 2000-01-01 is 2451545. The last date text of
// each reader is remembered with its day: thousands of records of a survey carry one date.
#pragma once

#include <string>
#include <string_view>

#include "base/text.h"
#include "base/types.h"

namespace quillan {

struct ClockTime {
  I4 iSgn, iHour, iMin;  // iSgn: 1, or -1 before hour 0
  R4 fSec;
};
struct CalendarDay {
  I4 iYYYY, iMM, iDD;
};
struct DayAndHour {
  I4 JDay;
  R8 dHour;
};
struct GpsTime {
  I4 iGpsWeek, iGpsSec;  // the second of the week
};

/// The last date text that was read, blank before the first, and its day.
struct RememberedDate {
  Text<16> sDate;
  I4 iJDay = 0;
};

// Module state. The readers of dates fill it, Date_Time_Initialize clears it.
inline RememberedDate hLastMMDDYYYY;
inline RememberedDate hLastYYYYMMDD;
inline RememberedDate hLastJulianDay;

/// From hh:mm:ss, or from seconds where there is no colon. Status: 0, -1 missing, 1 unreadable. Text that is neither
/// gives the default, one line in the log and status 0, by design.
[[nodiscard]] I4 dHours_from_sHHMMSS(std::string_view sHHMMSS, R8 dDefault, R8& dHours);
R8 dHours_from_iHHMMSS(const ClockTime& hTime);
/// NDec: decimals of the seconds, 0 to 3.
std::string dHours_to_sHHMMSS(R8 dHours, I4 NDec);
ClockTime dHours_to_iHHMMSS(R8 dHours);

/// The real hhmmss.ss, and its text.
R8 NMEA_dHHMMSS_from_dHours(R8 dHours);
std::string NMEA_sHHMMSS_from_dHours(R8 dHours);

/// Fliegel and Van Flandern (1968), Communications of the ACM 11, 657, with truncating division.
I4 JDay_from_iYYYYMMDD(const CalendarDay& hDay);
CalendarDay JDay_to_iYYYYMMDD(I4 JDay);

/// From month/day/year and from year-month-day; "/" and "-" both separate. A year below 70 is of this century, below
/// 100 of the last. Month and day are not checked against the calendar. Status: 0, -1 missing, 1 unreadable.
[[nodiscard]] I4 JDay_from_sMMDDYYYY(std::string_view sMMDDYYYY, I4 iDefault, I4& iJDay);
[[nodiscard]] I4 JDay_from_sYYYYMMDD(std::string_view sYYYYMMDD, I4 iDefault, I4& iJDay);
/// From either: a text with "/" is month/day/year.
[[nodiscard]] I4 Str_to_JulianDay(std::string_view sDate, I4 iDefault, I4& iJDay);
/// "08/05/2004" and "2004-08-05"; "*" for a day below 1.
Text<16> JDay_to_sMMDDYYYY(I4 iJulianDay);
Text<16> JDay_to_sYYYYMMDD(I4 iJulianDay);

/// GPS calendar without leap seconds.
DayAndHour GPS_to_JDaydHour(const GpsTime& hTime);
/// UTC, with the leap seconds up to 2015-06-30.
DayAndHour GPS_to_UTC(const GpsTime& hTime);
GpsTime GPS_from_UTC(const DayAndHour& hTime);

/// Forgets the remembered dates.
void Date_Time_Initialize();

}  // namespace quillan
