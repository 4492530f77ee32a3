#include "foundations/date_time.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <limits>

#include "base/array.h"
#include "foundations/log_file.h"
#include "foundations/str_value.h"

namespace quillan {
namespace {

constexpr I4 iGpsEpoch = 2444245;  // 1980-01-06
constexpr I8 NDaySec = 86400;
constexpr R8 dHourSec = 3600.0;
constexpr I8 NWeekDay = 7;

constexpr I4 MLeapSec = 17;
// The last day before each leap second from 1981-06-30 to 2015-06-30. Later ones are unknown, and instruments and
// programs that exchange times with ours count the same ones.
constexpr Array1<I4, MLeapSec> JDayLeapSec{2444786, 2445151, 2445516, 2446247, 2447161, 2447892,
                                           2448257, 2448804, 2449169, 2449534, 2450083, 2450630,
                                           2451179, 2453736, 2454832, 2456109, 2457204};

I4 Held_I4(I8 iValue) {
  return static_cast<I4>(std::clamp<I8>(iValue, std::numeric_limits<I4>::min(), std::numeric_limits<I4>::max()));
}

// ---- Clock times

void Report_Time(const std::string& sWhat) {
  LogErr({std::string(Cut_Text(sWhat, 128))});
}

void Report_No_Time(std::string_view sHHMMSS) {
  Report_Time("ERROR: Did not find expected hh:mm:ss.s format in \"" + std::string(Trimmed(sHHMMSS)) + '"');
}

/// False where a part cannot be read.
bool Hours_from_Parts(const ThreeParts& hTime, R8& dHours) {
  I8 iHour = 0;
  I4 iMin = 0;
  R8 dSec = 0.0;
  if (!Free_Read(hTime.sFirst, iHour) || !Free_Read(hTime.sSecond, iMin) || !Free_Read(hTime.sThird, dSec))
    return false;
  const R8 dMagnitude = ((dSec / 60.0) + iMin) / 60.0 + std::abs(static_cast<R8>(iHour));
  dHours = hTime.sFirst.find('-') != std::string_view::npos ? -dMagnitude : dMagnitude;
  return true;
}

void Carry(I4& iLow, I4& iHigh) {
  if (iLow <= 59) return;
  iLow -= 60;
  ++iHigh;
}

void Report_Wide_Time(I4 iHour, I4 iMin, I4 iSec, I4 MSec) {
  constexpr I4 iTooWide = 1;
  const auto Line = [](const char* sForm, I4 iFirst, I4 iSecond) {
    std::array<char, 64> sLine;
    std::snprintf(sLine.data(), sLine.size(), sForm, iFirst, iSecond);
    return std::string(sLine.data());
  };
  LogErr({Line("dHours_to_sHHMMSS.IOERR =%6d", iTooWide, 0), Line("iHour=%6d, iMin=%6d", iHour, iMin),
          Line("iSec=%6d, MSec=%6d", iSec, MSec)});
}

// ---- Calendar days

bool Is_Last(const RememberedDate& hLast, std::string_view sDate) {
  return !hLast.sDate.Is_Blank() && hLast.sDate == sDate;
}

/// A longer text would be remembered cut, and then stand for others.
void Remember_Day(std::string_view sDate, I4 iJDay, RememberedDate& hLast) {
  if (Trimmed(sDate).size() <= static_cast<std::size_t>(Text<16>::NWidth)) hLast = {sDate, iJDay};
}

/// The order of year, month and day in a text: places of the three in its parts.
struct DateOrder {
  I4 KYear, KMonth, KDay;
};

constexpr DateOrder hMonthDayYear{2, 0, 1};
constexpr DateOrder hYearMonthDay{0, 1, 2};

I8 Full_Year(I4 iYear) {
  I8 iYYYY = iYear;
  if (iYYYY < 70) iYYYY += 2000;
  if (iYYYY < 100) iYYYY += 1900;
  return iYYYY;
}

bool Day_of_Text(std::string_view sDate, const DateOrder& hOrder, I4& iJDay) {
  constexpr std::size_t NFirst = 4;  // characters before the first separator that count
  auto hPart = Cut_In_Three(sDate, "/-");
  if (!hPart) return false;
  if (hPart->sFirst.size() > NFirst) hPart->sFirst.remove_prefix(hPart->sFirst.size() - NFirst);
  std::array<I4, 3> iItem{};
  if (!Free_Read(hPart->sFirst, iItem[0]) || !Free_Read(hPart->sSecond, iItem[1]) ||
      !Free_Read(hPart->sThird, iItem[2]))
    return false;
  iJDay = JDay_from_iYYYYMMDD({Held_I4(Full_Year(iItem[hOrder.KYear])), iItem[hOrder.KMonth], iItem[hOrder.KDay]});
  return true;
}

I4 Day_from_Text(std::string_view sDate, const DateOrder& hOrder, I4 iDefault, RememberedDate& hLast, I4& iJDay) {
  iJDay = Is_Last(hLast, sDate) ? hLast.iJDay : iDefault;
  if (Is_Last(hLast, sDate)) return 0;
  if (Is_Missing(sDate)) return -1;
  if (!Day_of_Text(sDate, hOrder, iJDay)) return 1;
  Remember_Day(sDate, iJDay, hLast);
  return 0;
}

Text<16> Text_of_Day(I4 iJulianDay, const char* sForm, const DateOrder& hOrder) {
  if (iJulianDay < 1) return "*";
  std::array<I4, 3> iItem{};
  const CalendarDay hDay = JDay_to_iYYYYMMDD(iJulianDay);
  iItem[hOrder.KYear] = hDay.iYYYY;
  iItem[hOrder.KMonth] = hDay.iMM;
  iItem[hOrder.KDay] = hDay.iDD;
  std::array<char, 48> sText;
  std::snprintf(sText.data(), sText.size(), sForm, iItem[0], iItem[1], iItem[2]);
  return sText.data();
}

// ---- GPS time

/// Leap seconds before a day; 0 before the first.
I4 Leap_Seconds(I4 JDay) {
  I4 I = MLeapSec;
  while (I >= 1 && JDay <= JDayLeapSec(I)) --I;
  return I;
}

/// Seconds of the week, which may be negative, as a day and an hour.
DayAndHour Day_of_Week_Seconds(I4 iGpsWeek, I8 iSec) {
  const I8 iDayOfWeek = iSec / NDaySec;
  return {Held_I4(iGpsWeek * NWeekDay + iGpsEpoch + iDayOfWeek),
          static_cast<R8>(iSec - iDayOfWeek * NDaySec) / dHourSec};
}

}  // namespace

I4 dHours_from_sHHMMSS(std::string_view sHHMMSS, R8 dDefault, R8& dHours) {
  dHours = dDefault;
  if (Is_Missing(sHHMMSS)) return -1;
  if (sHHMMSS.find(':') == std::string_view::npos) {
    R8 dSec = 0.0;
    const Outcome iOutcome = List_Read(sHHMMSS, dSec);
    if (iOutcome == Outcome::Value) dHours = dSec / dHourSec;
    if (iOutcome == Outcome::Failed) Report_No_Time(sHHMMSS);
    return 0;
  }
  const auto hTime = Cut_In_Three(sHHMMSS, ":");
  if (hTime && Hours_from_Parts(*hTime, dHours)) return 0;
  if (hTime)
    Report_Time("ERROR reading hh:mm:ss.s value from " + std::string(Trimmed(sHHMMSS)) + '"');
  else
    Report_No_Time(sHHMMSS);
  return 1;
}

R8 dHours_from_iHHMMSS(const ClockTime& hTime) {
  const R4 fHours = (hTime.fSec / 60.0f + static_cast<R4>(hTime.iMin)) / 60.0f + static_cast<R4>(hTime.iHour);
  return static_cast<R8>(fHours * static_cast<R4>(hTime.iSgn));
}

std::string dHours_to_sHHMMSS(R8 dHours, I4 NDec) {
  constexpr I4 MHour = 999999;  // beyond it the text has no room for the parts
  if (!Is_Present(dHours)) return "*";
  ClockTime h = dHours_to_iHHMMSS(dHours);
  const I4 NMilli = Nint(h.fSec * 1000.0f);
  I4 iSec = NMilli / 1000;
  const I4 MSec = NMilli % 1000;
  Carry(iSec, h.iMin);
  if (h.iHour <= MHour) Carry(h.iMin, h.iHour);
  if (h.iHour > MHour) {
    Report_Wide_Time(h.iHour, h.iMin, iSec, MSec);
    return "*";
  }
  std::array<char, 64> sText;
  std::snprintf(sText.data(), sText.size(), "%s%02d:%02d:%02d.%03d", h.iSgn < 0 ? "-" : "", h.iHour, h.iMin, iSec,
                MSec);
  const std::string sHHMMSS = sText.data();
  const I4 NDropped = NDec <= 0 ? 4 : 3 - std::min(NDec, 3);  // without decimals the point goes too
  return sHHMMSS.substr(0, sHHMMSS.size() - static_cast<std::size_t>(NDropped));
}

ClockTime dHours_to_iHHMMSS(R8 dHours) {
  constexpr R8 dMicroSec = 1.6666667E-8;  // minutes, keeps 59.9999999 minutes from rounding badly
  const I4 iSgn = dHours < 0.0 ? -1 : 1;
  const R8 dAbs = std::abs(dHours);
  const R8 dWhole = std::floor(dAbs);
  const R8 dMin = 60.0 * (dAbs - dWhole);
  const R8 dMinute = std::floor(std::fmod(dMin + dMicroSec, 60.0) - dMicroSec);
  // Within a millionth of a second below an hour the minutes come round to that hour.
  if (dMinute < 0.0) return {iSgn, Nint(dWhole + 1.0), 0, 0.0f};
  return {iSgn, Nint(dWhole), Nint(dMinute), static_cast<R4>(60.0 * (dMin - dMinute))};
}

R8 NMEA_dHHMMSS_from_dHours(R8 dHours) {
  const R8 dHour = std::trunc(dHours);
  const R8 dMin = std::trunc(std::fmod(60.0 * dHours, 60.0));
  const R8 dSec = std::fmod(3600.0 * dHours, 60.0);
  return dSec + 100.0 * dMin + 10000.0 * dHour;
}

std::string NMEA_sHHMMSS_from_dHours(R8 dHours) {
  const R8 dHHMMSS = NMEA_dHHMMSS_from_dHours(dHours);
  if (!(dHHMMSS > -1.0E6 && dHHMMSS < 1.0E7)) return "*";  // seven places, one of them for the sign
  const R8 dWhole = std::trunc(dHHMMSS);
  std::array<char, 32> sDigits;
  std::array<char, 32> sText;
  std::snprintf(sDigits.data(), sDigits.size(), "%.6d", static_cast<I4>(dWhole));
  std::snprintf(sText.data(), sText.size(), "%7s", sDigits.data());
  std::string sHHMMSS = sText.data();
  // A fraction that rounds to a whole second does not carry.
  std::snprintf(sText.data(), sText.size(), "%.2f", std::abs(dHHMMSS - dWhole));
  return sHHMMSS.append(std::string_view(sText.data()).substr(1));
}

I4 JDay_from_iYYYYMMDD(const CalendarDay& hDay) {
  const I8 iMM = hDay.iMM;
  const I8 t = (iMM - 14) / 12;
  const I8 iYear = hDay.iYYYY + t;
  return Held_I4(hDay.iDD - I8{32075} + 1461 * (iYear + 4800) / 4 + 367 * (iMM - 2 - 12 * t) / 12 -
                 3 * ((iYear + 4900) / 100) / 4);
}

CalendarDay JDay_to_iYYYYMMDD(I4 JDay) {
  I8 L = I8{JDay} + 68569;
  const I8 N = 4 * L / 146097;
  L -= (146097 * N + 3) / 4;
  const I8 I = 4000 * (L + 1) / 1461001;
  L = L - 1461 * I / 4 + 31;
  const I8 J = 80 * L / 2447;
  const I8 K = J / 11;
  return {Held_I4(100 * (N - 49) + I + K), Held_I4(J + 2 - 12 * K), Held_I4(L - 2447 * J / 80)};
}

I4 JDay_from_sMMDDYYYY(std::string_view sMMDDYYYY, I4 iDefault, I4& iJDay) {
  return Day_from_Text(sMMDDYYYY, hMonthDayYear, iDefault, hLastMMDDYYYY, iJDay);
}

I4 JDay_from_sYYYYMMDD(std::string_view sYYYYMMDD, I4 iDefault, I4& iJDay) {
  return Day_from_Text(sYYYYMMDD, hYearMonthDay, iDefault, hLastYYYYMMDD, iJDay);
}

I4 Str_to_JulianDay(std::string_view sDate, I4 iDefault, I4& iJDay) {
  if (Is_Last(hLastJulianDay, sDate)) {
    iJDay = hLastJulianDay.iJDay;
    return 0;
  }
  const bool bSlash = sDate.find('/') != std::string_view::npos;
  const I4 IOERR = (bSlash ? JDay_from_sMMDDYYYY : JDay_from_sYYYYMMDD)(sDate, iDefault, iJDay);
  if (IOERR == 0) Remember_Day(sDate, iJDay, hLastJulianDay);
  return IOERR;
}

Text<16> JDay_to_sMMDDYYYY(I4 iJulianDay) {
  return Text_of_Day(iJulianDay, "%02d/%02d/%d", hMonthDayYear);
}

Text<16> JDay_to_sYYYYMMDD(I4 iJulianDay) {
  return Text_of_Day(iJulianDay, "%d-%02d-%02d", hYearMonthDay);
}

DayAndHour GPS_to_JDaydHour(const GpsTime& hTime) {
  return Day_of_Week_Seconds(hTime.iGpsWeek, hTime.iGpsSec);
}

DayAndHour GPS_to_UTC(const GpsTime& hTime) {
  // One pass: a correction that crosses the start of the week gives a negative hour. Days before the first leap
  // second give the start of their week.
  const I4 NLeap = Leap_Seconds(GPS_to_JDaydHour(hTime).JDay);
  return Day_of_Week_Seconds(hTime.iGpsWeek, NLeap > 0 ? I8{hTime.iGpsSec} - NLeap : 0);
}

GpsTime GPS_from_UTC(const DayAndHour& hTime) {
  I8 iGpsDay = I8{hTime.JDay} - iGpsEpoch;
  R8 dGpsHour = hTime.dHour + Leap_Seconds(hTime.JDay) / dHourSec;
  if (dGpsHour > 24.0) {
    ++iGpsDay;
    dGpsHour -= 24.0;
  }
  return {Held_I4(iGpsDay / NWeekDay), Held_I4(iGpsDay % NWeekDay * NDaySec + Nint(dGpsHour * dHourSec))};
}

void Date_Time_Initialize() {
  hLastMMDDYYYY = {};
  hLastYYYYMMDD = {};
  hLastJulianDay = {};
}

}  // namespace quillan
