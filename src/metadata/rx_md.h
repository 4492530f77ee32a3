// rx_md.h: metadata group RX: the receiver site as a whole: place, antenna, sensor, delays.
//
//   $ Rx.Center= 350100, 6240020, 120    or 350100:6240020:120
//   $ Rx.Length= 50                      m, or with a unit letter; one field: both sides
//   $ Rx.XYZ1= 0, 0, 0, 10, 0, 0         vertex 1 of channels 1, 2, ...; or a field a channel: 0:0:0, 10:0:0
//   $ Rx.Sensor= dBdt                    or dipole, Bfield, an antenna's serial number, TxRef
//
// Coordinate index: 1 east (x), 2 north (y), 3 elevation (z). Vertex index: 0..MRxXYZ, and 0 is a vertex as well.
#pragma once

#include "base/array.h"
#include "base/text.h"
#include "base/types.h"
#include "metadata/enm_data.h"
#include "metadata/md_engine.h"
#include "metadata/md_site.h"

namespace quillan {

/// Coordinates by channel: dXYZN(channel)(coordinate, vertex).
using RxVertices = Array1<Array2<R8, 3, 0, MRxXYZ>, MXChn>;

/// The warnings so far about each keyword, and about keywords that are unknown.
struct RxWarnings {
  I4 NErrKvrStn = 0, NErrStn = 0, NErrUTMC = 0, NErrDepth = 0, NErrXYZN = 0, NErrUTMN = 0, NErrHPR = 0, NErrAzm = 0,
     NErrIncl = 0, NErrASpace = 0, NErrSSpace = 0, NErrLength = 0, NErrArea = 0, NErrNsp = 0, NErrCmp = 0,
     NErrAntNum = 0, NErrAntScale = 0, NErrCntRes = 0, NErrSetupStn = 0, NErrSetupLength = 0, NErrWireCap = 0,
     NErrAntDelay = 0, NErrAliasDelay = 0, NErrADDelay = 0, NErrADRamp = 0, NErrT0Delay = 0, NErrUnknown = 0;
};

/// One value a keyword, and the priority l... of the record that gave it (0: none).
struct RxGroup : RxWarnings {
  // The site.
  R8 dKvrStn = 0.0;                                     // station label as the receiver recorded it
  R8 dStn = 0.0;                                        // station
  Array1<R8, 3> dUTMC = Filled<Array1<R8, 3>>(dDummy);  // centre
  R8 dDepth = 0.0;                                      // m, depth

  // Vertices of the antennas. A record replaces its vertex for all channels; NXYZN and NUTMN are no counts.
  I4 NXYZN = 0;                      // vertex of the last local record
  Array1<I4, 0, MRxXYZ> NXYZNChn{};  // channels that the record of each vertex gave
  RxVertices dXYZN = Filled<RxVertices>(Unset_Local_Vertices<MRxXYZ>());  // vertices on the local grid
  I4 NUTMN = 0;                                                           // vertex of the last UTM record
  Array1<I4, 0, MRxXYZ> NUTMNChn{};  // channels that the record of each UTM vertex gave
  RxVertices dUTMN = Filled<RxVertices>(Filled<Array2<R8, 3, 0, MRxXYZ>>(dDummy));  // vertices in UTM

  // Attitude and size of the antenna.
  Array1<R4, 3> fHPR = fHPRLevelEast;                     // degrees: heading of the x axis, pitch, roll
  R4 fAzm = 90.0f;                                        // degrees, azimuth
  R4 fIncl = 0.0f;                                        // degrees, inclination
  R4 fASpace = fDummy;                                    // m, dipole spacing
  R4 fSSpace = fDummy;                                    // m, station spacing
  Array1<R4, 2> fLength = Filled<Array1<R4, 2>>(fDummy);  // m, antenna in x and in y
  R4 fLength0 = fDummy;                                   // m, first length of the last record
  Array1<R4, 3> fArea = Filled<Array1<R4, 3>>(fDummy);    // m^2, antenna in x, y, z
  R4 fArea0 = fDummy;                                     // m^2, area that was read last
  R4 fNsp = fDummy;                                       // dipole spacings between transmitter and receiver

  // Component and sensor.
  Text<8> sCmp;              // component
  Text<16> sSensor;          // sensor as written
  I4 iSensor = iSensordBdt;  // kind of sensor
  I4 iAntSN = 0;             // serial number of the antenna
  R4 fAntScale = 1.0f;       // uT/V
  R4 fCntRes = fDummy;       // ohm, contact resistance

  // Setup.
  R8 dSetupStn = dDummy;   // station of the setup
  R4 fSetupLength = 0.0f;  // m
  R4 fWireCap = 0.0f;      // pF/m

  // Delays of the times of the windows.
  R4 fAntDelay = 0.0f;    // usec, antenna
  R4 fAliasDelay = 0.0f;  // usec, anti-alias filter
  R4 fADDelay = 0.0f;     // usec, analogue-to-digital
  R4 fADRamp = 0.0f;      // usec
  R4 fT0Delay = 0.0f;     // usec, time zero

  // Priorities.
  I4 lKvrStn = 0, lStn = 0, lUTMC = 0, lDepth = 0;
  Array1<I4, 0, MRxXYZ> lXYZN{}, lUTMN{};  // a priority for each vertex
  I4 lHPR = 0, lAzm = 0, lIncl = 0, lASpace = 0, lSSpace = 0;
  Array1<I4, 2> lLength{};
  I4 lArea0 = 0;
  Array1<I4, 3> lArea{};
  I4 lNsp = 0, lCmp = 0, lSensor = 0, lAntSN = 0, lAntScale = 0, lCntRes = 0, lSetupStn = 0, lSetupLength = 0,
     lWireCap = 0, lAntDelay = 0, lAliasDelay = 0, lADDelay = 0, lADRamp = 0, lT0Delay = 0;
};

// Module state. Rx_MD_Read fills it, Rx_MD_Initialize restores it.
inline RxGroup MdRx;

/// (hGroup, bResetError): every value gets its default, as MD_Initialize says.
inline constexpr auto Rx_MD_Initialize = MD_Initialize<RxGroup, RxWarnings>;

/// Applies one record. Returns the status of MD_Read, or 1 for a vertex index beyond MRxXYZ, -1 for a vertex without
/// one.
[[nodiscard]] I4 Rx_MD_Read(const MdRecord& hRecord, RxGroup& hRx);

}  // namespace quillan
