#include "metadata/gps_md.h"

#include "metadata/md_site.h"

namespace quillan {

namespace {

using Gps = GpsGroup;

constexpr std::string_view sGpsHead = "{reader}.WARNING: at record {record}";
constexpr R8 dMostI4 = 2147483646.0;

/// Limits of this group: a value beyond them becomes 0.
constexpr MdLimits Within(R8 dLow, R8 dHigh, std::string_view sWhat, std::string_view sHead = sGpsHead) {
  return {.dLow = dLow, .dHigh = dHigh, .sWhat = sWhat, .iRepair = MdRepair::Reset, .sHead = sHead};
}

constexpr MdLimits hLatitude = Within(-90, 90, "{name} = {value} < -90 or > 90 deg");
// Longitudes go to 180, but the words of latitudes are kept for them: scripts that sort the error files know these.
constexpr MdLimits hLongitude = Within(-180, 180, hLatitude.sWhat);
constexpr MdLimits hAltitude = Within(-1.0E6, 1.0E6, "{name} = {value} < -1.0E6 or > 1.0E6 m");
constexpr MdLimits hCount = Within(0, dMostI4, "{name} = {value} < 0 or > {high}");
constexpr MdLimits hSatellites = Within(0, 64, "{name} = {value} < 0 or > 64");
constexpr MdLimits hPdop = Within(0, 1000, hSatellites.sWhat);  // the words of the satellites, for the same reason
constexpr MdLimits hStatus = Within(-dMostI4, dMostI4, MdLimits{}.sWhat);
constexpr MdLimits hSeconds = Within(0, 1.0E32, "{name} = {value} < 0.0D0 or > 1.0E32 sec");
constexpr MdLimits hClock = Within(0, 1.0E32, "{name} = {value} < 0.0 or > 1.0E32 TCDAC");

// The sign of a zone is its hemisphere, so the test is on its size.
constexpr MdLimits hZone{.dLow = 1,
                         .dHigh = 60,
                         .sWhat = "{name} = {value} = abs|{value}| < 1 or > 60",
                         .iTest = MdTest::Magnitude,
                         .iRepair = MdRepair::Reset,
                         .sHead = sGpsHead};

constexpr MdRule hPositionRule{
    .hLimits = Within(-9.9E9, 9.9E9, MdLimits{}.sWhat, "GPS_MD_Read.WARNING: at record {record}"),
    .sLabel = "GPS.UTMXYZ",
};

I4 Read_Position(const MdRecord& hRecord, GpsGroup& hGps) {
  return MD_Take_Point(hRecord, hPositionRule, hGps.dUTMXYZ, hGps.lUTMXYZ, hGps.NErrUTMXYZ);
}

constexpr MdRule hOffsetRule{
    .hLimits = Within(-12, 12, "{name} = {value} < {low} or > {high} hours"),
    .iParse = MdParse::Time,
};

/// Hours or hours:minutes completed to hours:minutes:seconds.
std::string Complete_Time(std::string_view sField) {
  FieldList hPart(3);
  Str_to_Fld(sField, ":", hPart);
  const std::string_view sMissing = hPart.NFld() == 1 ? ":00:00" : hPart.NFld() == 2 ? ":00" : "";
  return std::string(sField).append(sMissing);
}

I4 Read_Time_Offset(const MdRecord& hRecord, GpsGroup& hGps) {
  if (!MD_Passes(hRecord, hGps.lTimeOffset)) return 0;
  const std::string sTime = Complete_Time(hRecord.sField(1));
  return MD_Take_Value(hRecord, sTime, hRecord.sName, hOffsetRule, hGps.dTimeOffset, hGps.NErrTimeOffset);
}

// clang-format off
constexpr MdRow<Gps> hGpsRow[] = {
    // keyword                  value             priority        warnings            words, or blank and limits
    {"LAT",             MD_Into<&Gps::dLat,       &Gps::lLat,     &Gps::NErrLat>,     0.0, hLatitude},
    {"LON",             MD_Into<&Gps::dLon,       &Gps::lLon,     &Gps::NErrLon>,     0.0, hLongitude},
    {"ALT",             MD_Into<&Gps::dAlt,       &Gps::lAlt,     &Gps::NErrAlt>,     0.0, hAltitude},
    {"DATUM",           MD_Into<&Gps::sDatum,     &Gps::lDatum>},
    {"PROJ",            MD_Into<&Gps::sProj,      &Gps::lProj>},
    {"UTMZONE",         MD_Into<&Gps::iUTMZone,   &Gps::lUTMZone, &Gps::NErrUTMZone>, 0, hZone},
    {"UTMXYZ",          Read_Position},
    {"WEEK",            MD_Into<&Gps::iWeek,      &Gps::lWeek,    &Gps::NErrWeek>,    0, hCount},
    {"SEC",             MD_Into<&Gps::dSec,       &Gps::lSec,     &Gps::NErrSec>,     0.0, hSeconds},
    {"LOCALTIMEOFFSET", Read_Time_Offset},
    {"LEAPSECOND",      MD_Into<&Gps::iLeapSec,   &Gps::lLeapSec, &Gps::NErrLeapSec>, 0, hCount},
    {"NUMSAT",          MD_Into<&Gps::NSat,       &Gps::lNSat,    &Gps::NErrNSat>,    0, hSatellites},
    {"PDOP",            MD_Into<&Gps::fPDOP,      &Gps::lPDOP,    &Gps::NErrPDOP>,    0.0, hPdop},
    {"STATUS",          MD_Into<&Gps::iStatus,    &Gps::lStatus,  &Gps::NErrStatus>,  0, hStatus},
    {"TCDAC",           MD_Into<&Gps::fTCDAC,     &Gps::lTCDAC,   &Gps::NErrTCDAC>,   0.0, hClock},
    {"SN",              MD_Into<&Gps::sSN,        &Gps::lSN>},
    {"FW",              MD_Into<&Gps::sFWVer,     &Gps::lFWVer>},
    {"SW",              MD_Into<&Gps::sSWVer,     &Gps::lSWVer>},
};
// clang-format on

}  // namespace

I4 Gps_MD_Read(const MdRecord& hRecord, GpsGroup& hGps) {
  return MD_Read("Gps_MD_Read", hGpsRow, hRecord, hGps);
}

}  // namespace quillan
