// tx_md.h: metadata group TX: where the transmitter loop or wire lies, its size, and how it was driven.
//
//   $ Tx.Length= 200, 100         m, or with a unit letter: 200 ft; one field: a square loop
//   $ Tx.UTM1= 350100, 6240020    corner 1 in UTM; also 350100:6240020:120
//   $ Tx.XYZ1= 0, 0               the same on the local grid; Tx.Point1 is another name of it
//   $ Tx.Amp= 8.5
//
// Coordinate index: 1 east (x), 2 north (y), 3 elevation (z). Vertex index: 0..MTxXYZ, and 0 is a vertex as well.
#pragma once

#include "base/array.h"
#include "base/text.h"
#include "base/types.h"
#include "metadata/enm_data.h"
#include "metadata/md_engine.h"
#include "metadata/md_site.h"

namespace quillan {

inline constexpr I4 MTxSense = 16;  // current sensors of a transmitter

/// The warnings so far about each keyword, and about keywords that are unknown.
struct TxWarnings {
  I4 NErrKvrStn = 0, NErrStn = 0, NErrXYZC = 0, NErrXYZN = 0, NErrUTMN = 0, NErrHPR = 0, NErrAzm = 0, NErrIncl = 0,
     NErrLength = 0, NErrArea = 0, NErrTurns = 0, NErrShunt = 0, NErrAmp = 0, NErrFreq = 0, NErrWaveform = 0,
     NErrCycle = 0, NErrDuty = 0, NErrDelay = 0, NErrRamp = 0, NErrUnknown = 0;
};

/// One value a keyword, and the priority l... of the record that gave it (0: none).
struct TxGroup : TxWarnings {
  // Place. A vertex record replaces its vertex; NXYZN and NUTMN are no counts.
  R8 dKvrStn = 0.0;                                                 // station label as the receiver recorded it
  R8 dStn = 0.0;                                                    // station
  Array1<R8, 3> dUTMC{};                                            // centre
  I4 NXYZN = 0;                                                     // vertex of the last local record, not the highest
  Array2<R8, 3, 0, MTxXYZ> dXYZN = Unset_Local_Vertices<MTxXYZ>();  // corners on the local grid
  I4 NUTMN = 0;                                                     // vertex of the last UTM record, not the highest
  Array2<R8, 3, 0, MTxXYZ> dUTMN = Filled<Array2<R8, 3, 0, MTxXYZ>>(dDummy);  // corners in UTM

  // Attitude and size of the loop.
  Array1<R4, 3> fHPR = fHPRLevelEast;                     // degrees: heading of the x axis, pitch, roll
  R4 fAzm = 90.0f;                                        // degrees, azimuth
  R4 fIncl = 0.0f;                                        // degrees, inclination
  Array1<R4, 2> fLength = Filled<Array1<R4, 2>>(100.0f);  // m, side in x and in y
  R4 fArea = 10000.0f;                                    // m^2
  I4 NTurn = 1;                                           // turns of the loop

  // How it was driven.
  Array1<R4, MTxSense> fShunt = Filled<Array1<R4, MTxSense>>(0.1f);  // ohm, current sense resistors
  R4 fAmp = 1.0f;                                                    // amp
  R4 fFreq = 1.0f;                                                   // hertz, base frequency
  I4 NWaveform = 0;                                                  // samples of a waveform
  I4 NCycle = 0;                                                     // cycles stacked
  R4 fDuty = 50.0f;                                                  // percent, duty cycle
  R4 fDelay = 0.0f;                                                  // usec, delay of the transmitter
  R4 fRamp = 0.0f;                                                   // usec, turn-off ramp

  // The instrument.
  Text<16> sType;  // kind of transmitter
  Text<16> sSN;    // serial number

  // Priorities.
  I4 lKvrStn = 0, lStn = 0, lUTMC = 0;
  Array1<I4, 0, MTxXYZ> lXYZN{}, lUTMN{};  // a priority for each vertex
  I4 lHPR = 0, lAzm = 0, lIncl = 0;
  Array1<I4, 2> lLength{};
  I4 lArea = 0, lTurn = 0, lShunt = 0, lAmp = 0, lFreq = 0, lWaveform = 0, lCycle = 0, lDuty = 0, lDelay = 0, lRamp = 0,
     lType = 0, lSN = 0;
};

// Module state. Tx_MD_Read fills it, Tx_MD_Initialize restores it.
inline TxGroup MdTx;

/// (hGroup, bResetError): every value gets its default, as MD_Initialize says.
inline constexpr auto Tx_MD_Initialize = MD_Initialize<TxGroup, TxWarnings>;

/// Applies one record. Returns the status of MD_Read, or 1 for a vertex index beyond MTxXYZ, -1 for a vertex without
/// one.
[[nodiscard]] I4 Tx_MD_Read(const MdRecord& hRecord, TxGroup& hTx);

/// Centre, side and azimuth of the loop from its UTM vertices 1..NUTMN: dUTMC their mean; fLength, fAzm and fHPR(1)
/// from vertex 1 to vertex 2, unless those lie on one point or beyond all measure apart. They take the least priority
/// of the vertices, at most 3. Returns 0, also when fewer than two vertices leave everything as it was; 1 when one of
/// them was never read.
[[nodiscard]] I4 Tx_MD_UTMN_to_UTMC(TxGroup& hTx);

}  // namespace quillan
