// gps_md.h: metadata group GPS: the receiver of time and position.
//
//   $ Gps.Lat= -33.5                   degrees
//   $ Gps.UTMXYZ= 350100:6240020:120   or three fields: easting, northing, elevation
//   $ Gps.LocalTimeOffset= -7:30       hours, hours:minutes or hours:minutes:seconds
//
// A value out of range is not clamped but becomes 0: half a position is worse than none.
#pragma once

#include "base/array.h"
#include "base/text.h"
#include "base/types.h"
#include "metadata/md_engine.h"

namespace quillan {

/// The warnings so far about each keyword, and about keywords that are unknown.
struct GpsWarnings {
  I4 NErrLat = 0, NErrLon = 0, NErrAlt = 0, NErrUTMXYZ = 0, NErrUTMZone = 0, NErrWeek = 0, NErrSec = 0,
     NErrTimeOffset = 0, NErrLeapSec = 0, NErrNSat = 0, NErrPDOP = 0, NErrStatus = 0, NErrTCDAC = 0, NErrUnknown = 0;
};

/// One value a keyword, and the priority l... of the record that gave it (0: none).
struct GpsGroup : GpsWarnings {
  // Position.
  R8 dLat = 0.0;            // degrees, north positive
  R8 dLon = 0.0;            // degrees, east positive
  R8 dAlt = 0.0;            // m
  Text<32> sDatum;          // as written
  Text<32> sProj;           // projection, as written
  I4 iUTMZone = 0;          // zone; the sign is the hemisphere
  Array1<R8, 3> dUTMXYZ{};  // m, easting, northing, elevation

  // Time.
  I4 iWeek = 0;          // GPS week
  R8 dSec = 0.0;         // sec of the week
  R8 dTimeOffset = 0.0;  // hours, local time less UTC
  I4 iLeapSec = 16;      // sec, GPS time less UTC

  // Quality of both.
  I4 NSat = 0;       // satellites in use
  R4 fPDOP = 0.0f;   // dilution of precision
  I4 iStatus = 0;    // status word of the receiver
  R4 fTCDAC = 0.0f;  // control value of its clock

  // The instrument.
  Text<16> sSN;     // serial number
  Text<16> sFWVer;  // firmware version
  Text<16> sSWVer;  // program version

  // Priorities.
  I4 lLat = 0, lLon = 0, lAlt = 0, lDatum = 0, lProj = 0, lUTMZone = 0, lUTMXYZ = 0, lWeek = 0, lSec = 0,
     lTimeOffset = 0, lLeapSec = 0, lNSat = 0, lPDOP = 0, lStatus = 0, lTCDAC = 0, lSN = 0, lFWVer = 0, lSWVer = 0;
};

// Module state. Gps_MD_Read fills it, Gps_MD_Initialize restores it.
inline GpsGroup MdGps;

/// (hGroup, bResetError): every value gets its default, as MD_Initialize says.
inline constexpr auto Gps_MD_Initialize = MD_Initialize<GpsGroup, GpsWarnings>;

/// Applies one record. Returns the status of MD_Read.
[[nodiscard]] I4 Gps_MD_Read(const MdRecord& hRecord, GpsGroup& hGps);

}  // namespace quillan
