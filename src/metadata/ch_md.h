// ch_md.h: metadata group CH: up to MXChn channels of one receiver, in parallel arrays.
//
//   $ Ch.Cmp= Hx, Hy, Hz        one field a channel
//   $ Ch.Gain= 12, 3A-1         gain code: up to three stages, "-" and the attenuator
//   $ Ch.Sensor= dBdt, 1234     kind of sensor, or the serial number of an antenna
//   $ Ch.RX1= 0,0,0, 10,0,0     x, y, z of channel 1, of channel 2, ...
//
// Gain characters: "0" to "6" amplify 1, 2, 4, .. 64 times, "A" 0.125 times.
#pragma once

#include <string_view>

#include "base/array.h"
#include "base/text.h"
#include "base/types.h"
#include "metadata/enm_data.h"
#include "metadata/md_engine.h"
#include "metadata/md_site.h"

namespace quillan {

inline constexpr I4 iCmpNone = 9;   // code of the blank component in CChnCmp
inline constexpr I4 MChTxXYZ = 32;  // transmitter vertices of a channel record
inline constexpr I4 MChRxXYZ = 4;   // receiver vertices of a channel

// One value a channel.
using ChnI4 = Array1<I4, MXChn>;
using ChnL4 = Array1<L4, MXChn>;
using ChnR4 = Array1<R4, MXChn>;
using ChnR8 = Array1<R8, MXChn>;
template <I4 NWidth>
using ChnText = Array1<Text<NWidth>, MXChn>;

/// The warnings so far about each keyword, and about keywords that are unknown.
struct ChWarnings {
  I4 NErrNChn = 0, NErrCmp = 0, NErrNumberType = 0, NErrNumber = 0, NErrStn = 0, NErrTxXYZ = 0, NErrRxXYZ = 0,
     NErrLat = 0, NErrLon = 0, NErrLength = 0, NErrArea = 0, NErrLabID = 0, NErrLabLength = 0, NErrLabArea = 0,
     NErrAzm = 0, NErrInc = 0, NErrAntNum = 0, NErrAntScale = 0, NErrPreAmp = 0, NErrStatus = 0, NErrGain = 0,
     NErrGainFactor = 0, NErrExtGain = 0, NErrFactor = 0, NErrKvrBox = 0, NErrKvrSlot = 0, NErrVmin = 0, NErrVmax = 0,
     NErrCRes = 0, NErrCCap = 0, NErrSP = 0, NErrSkip = 0, NErrFlip = 0, NErrUnknown = 0;
};

/// Array index: channel, from 1. One value a keyword, and the priority l... of the record that gave it (0: none).
struct ChGroup : ChWarnings {
  // What the channel measures.
  I4 NChn = 0;                                           // channels in use
  ChnText<4> sCmp;                                       // component as written
  ChnI4 iCmp = Filled<ChnI4>(iCmpNone);                  // component, code in CChnCmp
  Array1<I4, 2> iNumberType = Filled<Array1<I4, 2>>(1);  // what the two number columns count, code in CChNumberType

  // Where it stands.
  ChnR8 dNumber{};                                 // channel number
  ChnR8 dStn{};                                    // station
  ChnText<32> sStnName;                            // station name
  Array2<R8, 3, MChTxXYZ> dTxXYZ{};                // (coordinate, vertex) of the transmitter
  Array1<Array2<R8, 3, MChRxXYZ>, MXChn> dRxXYZ =  // (channel)(coordinate, vertex) of the receiver
      Filled<Array1<Array2<R8, 3, MChRxXYZ>, MXChn>>(Filled<Array2<R8, 3, MChRxXYZ>>(dDummy));
  ChnR8 dLat{}, dLon{};  // degrees, north and east positive

  // Antenna, and the calibration that belongs to it.
  ChnR4 fLength = Filled<ChnR4>(100.0f);     // m, antenna
  ChnR4 fArea = Filled<ChnR4>(1.0f);         // m^2, antenna
  ChnI4 iLabID{};                            // calibration number
  ChnText<32> sLabName;                      // calibration name
  ChnR4 fLabLength = Filled<ChnR4>(fDummy);  // m, of the calibration
  ChnR4 fLabArea = Filled<ChnR4>(fDummy);    // m^2, of the calibration

  // Attitude and sensor.
  ChnR4 fAzm{}, fInc{};                                         // degrees, azimuth and inclination
  ChnText<16> sSensor = Filled<ChnText<16>>(Text<16>("dBdt"));  // sensor as written
  ChnI4 iSensor = Filled<ChnI4>(iSensordBdt);                   // kind of sensor
  ChnI4 iAntSN{};                                               // serial number of the antenna
  ChnR4 fAntScale = Filled<ChnR4>(1.0f);                        // uT/V

  // The way of the signal: preamplifier, gain stages, filters.
  ChnText<8> sUnit;                                            // unit as written
  ChnR4 fPreAmp = Filled<ChnR4>(1.0f);                         // gain of the preamplifier
  ChnText<4> sGain = Filled<ChnText<4>>(Text<4>("000o"));      // gain code
  ChnR4 fGain = Filled<ChnR4>(1.0f);                           // gain of the channel
  ChnR4 fExtGain = Filled<ChnR4>(1.0f);                        // gain of what stands before the channel
  ChnText<8> sNotch = Filled<ChnText<8>>(Text<8>("NONE"));     // notch filter
  ChnText<8> sHighPass = Filled<ChnText<8>>(Text<8>("NONE"));  // high-pass filter
  ChnText<8> sLowPass;                                         // low-pass filter
  ChnText<8> sAlias = Filled<ChnText<8>>(Text<8>("24BIT"));    // anti-alias filter

  // The card, and the fields of its status code.
  ChnText<4> sStatus;                       // status code of the receiver
  ChnText<8> sADCardSN;                     // serial number of the analogue card
  ChnI4 iKvrBox{}, iKvrSlot{}, iCard{};     // box, slot and card of the receiver
  ChnI4 iRes = Filled<ChnI4>(24);           // bits, resolution
  Array2<I4, 3, MXChn> iGN{};               // (stage, channel) place of the gain character
  ChnI4 iAttn{}, iSat{}, iNotch{}, iDSF{};  // attenuator, saturation, notch, decimation of the status

  // From counts to volts.
  ChnR4 fFactor = Filled<ChnR4>(2.980230E-07f);  // volts a count
  ChnR4 fVmin{};                                 // volts, lowest reading
  ChnR4 fVmax = Filled<ChnR4>(1.0f);             // volts, highest reading

  // Contacts.
  ChnR4 fCRes = Filled<ChnR4>(1000.0f);   // ohm, contact resistance
  ChnR4 fCCap = Filled<ChnR4>(1.0E-12f);  // farads, contact capacitance
  ChnR4 fSP{};                            // mV, self potential

  // Channels to leave out or to turn over.
  ChnL4 bSkip{};  // the channel is dropped
  ChnL4 bFlip{};  // its polarity is reversed

  // Priorities.
  I4 lNChn = 0, lCmp = 0, lNumberType = 0, lNumber = 0, lStn = 0, lStnName = 0;
  Array1<I4, MChTxXYZ> lTxXYZ{};  // a priority for each vertex
  Array1<I4, MChRxXYZ> lRxXYZ{};
  I4 lLat = 0, lLon = 0, lLength = 0, lArea = 0, lLabID = 0, lLabName = 0, lLabLength = 0, lLabArea = 0, lAzm = 0,
     lInc = 0, lSensor = 0, lAntSN = 0, lAntScale = 0, lUnit = 0, lPreAmp = 0, lGain = 0, lGainFactor = 0, lExtGain = 0,
     lNotch = 0, lHighPass = 0, lLowPass = 0, lAlias = 0, lStatus = 0, lCardSN = 0, lFactor = 0, lKvrBox = 0,
     lKvrSlot = 0, lVmin = 0, lVmax = 0, lCRes = 0, lCCap = 0, lSP = 0, lSkip = 0, lFlip = 0;
};

// Module state. Ch_MD_Read fills it, Ch_MD_Initialize restores it.
inline ChGroup MdChn;

/// (hGroup, bResetError): every value gets its default, as MD_Initialize says.
inline constexpr auto Ch_MD_Initialize = MD_Initialize<ChGroup, ChWarnings>;

/// Applies one record, status as of MD_Read: field I is the value of channel I, up to MXChn. Lengths are plain numbers
/// here, in the unit of the file.
[[nodiscard]] I4 Ch_MD_Read(const MdRecord& hRecord, ChGroup& hChn);

/// A status number of the receiver.
struct ChnStatus {
  I4 IOERR = 0;  // 1 when the text is blank or no integer; then the fields are 0
  I4 iCard = 0, iRes = 0, iAttn = 0, iSat = 0, iNotch = 0, iDSF = 0, iFlag = 0;
};
/// Its bits, the lowest being 0: card 0-1, resolution 2-4, attenuator 5, saturation 6-7, notch 8-10, decimation 11,
/// flag 12-14.
ChnStatus Str_to_iChnStatus(std::string_view CFld);

/// A gain code such as "3A-1".
struct ChnGain {
  I4 IOERR = 0;         // 1 when the text is blank or has a "*"; then the factor is 1 and the places are 0
  R4 fGain = 1.0f;      // factor; a character that is no gain character amplifies once
  Array1<I4, 3> iGN{};  // places of its characters in "0123456A", from 1; 0 for any other
  I4 iAttn = 0;         // place of the attenuator, 0 for none and for the first place
};
ChnGain Str_to_fChnGain(std::string_view sChnGain);

}  // namespace quillan
