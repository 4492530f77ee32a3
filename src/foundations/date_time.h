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

/// The last date text that was read, blank before the first, and its day.
struct RememberedDate {
  Text<16> sDate;
  I4 iJDay = 0;
};

// Module state. The readers of dates fill it, Date_Time_Initialize clears it.
inline RememberedDate hLastMMDDYYYY;
inline RememberedDate hLastYYYYMMDD;
inline RememberedDate hLastJulianDay;

/// From hh:mm:ss, or from seconds where there is no colon. Text that is neither gives the default, one line in the log
/// and IOERR 0, by design.
void dHours_from_sHHMMSS(std::string_view sHHMMSS, R8 dDefault, R8& dHours, I4& IOERR);
void dHours_from_iHHMMSS(I4 iSgn, I4 iHour, I4 iMin, R4 fSec, R8& dHours);
/// NDec: decimals of the seconds, 0 to 3.
void dHours_to_sHHMMSS(R8 dHours, I4 NDec, std::string& sHHMMSS);
void dHours_to_iHHMMSS(R8 dHours, I4& iSgn, I4& iHour, I4& iMin, R4& fSec);

/// The real hhmmss.ss, and its text.
void NMEA_dHHMMSS_from_dHours(R8 dHours, R8& dHHMMSS);
void NMEA_sHHMMSS_from_dHours(R8 dHours, std::string& sHHMMSS);

/// Fliegel and Van Flandern (1968), Communications of the ACM 11, 657, with truncating division.
I4 JDay_from_iYYYYMMDD(I4 iYYYY, I4 iMM, I4 iDD);
void JDay_to_iYYYYMMDD(I4 JDay, I4& iYYYY, I4& iMM, I4& iDD);

/// From month/day/year and from year-month-day; "/" and "-" both separate. A year below 70 is of this century, below
/// 100 of the last. Month and day are not checked against the calendar. IOERR: 0, -1 missing, 1 unreadable.
void JDay_from_sMMDDYYYY(std::string_view sMMDDYYYY, I4 iDefault, I4& iJDay, I4& IOERR);
void JDay_from_sYYYYMMDD(std::string_view sYYYYMMDD, I4 iDefault, I4& iJDay, I4& IOERR);
/// From either: a text with "/" is month/day/year.
void Str_to_JulianDay(std::string_view sDate, I4 iDefault, I4& iJDay, I4& IOERR);
/// "08/05/2004" and "2004-08-05"; "*" for a day below 1.
void JDay_to_sMMDDYYYY(I4 iJulianDay, Text<16>& sMMDDYYYY);
void JDay_to_sYYYYMMDD(I4 iJulianDay, Text<16>& sYYYYMMDD);

/// GPS calendar without leap seconds.
void GPS_to_JDaydHour(I4 iGpsWeek, I4 iGpsSec, I4& JDay, R8& dHour);
/// UTC, with the leap seconds up to 2015-06-30.
void GPS_to_UTC(I4 iGpsWeek, I4 iGpsSec, I4& JDay, R8& dHour);
void GPS_from_UTC(I4 JDay, R8 dHour, I4& iGpsWeek, I4& iGpsSec);

/// Forgets the remembered dates.
void Date_Time_Initialize();

}  // namespace quillan
