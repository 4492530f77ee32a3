// kvr_md.h: metadata group KVR: the receiver of the survey, its cards, and how it was set up.
//
//   $ Kvr.Type= KVRC
//   $ Kvr.ADCardSN= 0A01, 0A02, 0A03     one field a card, up to 16
//   $ Kvr.Bat= 12.3                      volts
//   $ Kvr.Blk= 4, 7                      first and last block of the raw data file
//
// The fields are carried to the written files; the program computes with few of them.
#pragma once

#include "base/array.h"
#include "base/text.h"
#include "base/types.h"
#include "metadata/md_engine.h"

namespace quillan {

inline constexpr I4 MKvrCard = 16;             // cards of a receiver
inline constexpr I4 iSetupNone = -2147483647;  // no setup number was read

/// The warnings so far about each keyword, and about keywords that are unknown.
struct KvrWarnings {
  I4 NErrType = 0, NErrNCard = 0, NErrBox = 0, NErrChn = 0, NErrSigSrc = 0, NErrCalVolt = 0, NErrBat = 0, NErrAmp = 0,
     NErrTemp = 0, NErrHumid = 0, NErrBlk = 0, NErrSetup = 0, NErrAcqMethod = 0, NErrGainMode = 0, NErrTime = 0,
     NErrUnknown = 0;
};

/// Array index: card, or channel of a card, from 1. One value a keyword, and the priority l... of the record that gave
/// it (0: none).
struct KvrGroup : KvrWarnings {
  // The instrument.
  I4 iType = 3;         // model, code in CKvrType
  Text<64> sFile;       // raw data file
  Text<32> sOperator;   // who ran the receiver
  Text<16> sSWVersion;  // version of the receiver's program
  Text<16> sSN;         // serial number of the receiver
  Text<16> sFPSN;       // of its front panel
  Text<16> sTCardSN;    // of its timing card

  // Its cards. Records with fewer fields than cards leave the others as they were.
  I4 NCard = 0;                          // cards in use; the last record that lists cards decides
  Array1<I4, MKvrCard> iBox{};           // box that holds the card
  Array1<I4, MKvrCard> iChn{};           // channel of the card
  Array1<Text<16>, MKvrCard> sADCardSN;  // serial number of the analogue card as text
  Array1<I4, MKvrCard> iADCardSN{};      // the same as a number
  Array1<Text<16>, MKvrCard> sADCardVR;  // version of the analogue card
  Array1<Text<16>, MKvrCard> sADCardFE;  // its features
  Array1<Text<16>, MKvrCard> sCardType;  // its kind

  // State while recording.
  I4 iSignalSource = 1;  // code in CKvrSigSrc
  R4 fCalVolt = 1.0f;    // volts, calibration signal
  Text<16> sSync;        // synchronisation mode
  R4 fBat = 0.0f;        // volts, battery
  R4 fAmp = 0.0f;        // amp, current drawn
  R4 fTemp = 20.0f;      // deg C
  R4 fHumid = 0.0f;      // percent

  // The measurement.
  Array1<R8, 2> dBlk{};    // first and last block of the raw data file
  I4 iSetup = iSetupNone;  // setup number
  I4 iAcqMethod = 4;       // code in CAcqMethod
  I4 iGainMode = 1;        // code in CGainMode
  Text<16> sGainMethod;    // how gains were chosen
  Text<16> sDate;          // as written
  Text<16> sTime;          // as written
  R8 dHour = 0.0;          // hours, sTime as a number

  // Priorities.
  I4 lType = 0, lFile = 0, lOperator = 0, lSWVersion = 0, lSN = 0, lFPSN = 0, lTCardSN = 0, lNCard = 0, lBox = 0,
     lChn = 0, lADCardSN = 0, lADCardVR = 0, lADCardAT = 0, lCardType = 0, lSigSrc = 0, lCalVolt = 0, lSync = 0,
     lBat = 0, lAmp = 0, lTemp = 0, lHumid = 0, lBlk = 0, lSetup = 0, lAcqMethod = 0, lGainMode = 0, lGainMethod = 0,
     lDate = 0, lTime = 0, lHour = 0;
};

// Module state. Kvr_MD_Read fills it, Kvr_MD_Initialize restores it.
inline KvrGroup MdKvr;

/// (hGroup, bResetError): every value gets its default, as MD_Initialize says.
inline constexpr auto Kvr_MD_Initialize = MD_Initialize<KvrGroup, KvrWarnings>;

/// Applies one record. Returns the status of MD_Read.
[[nodiscard]] I4 Kvr_MD_Read(const MdRecord& hRecord, KvrGroup& hKvr);

}  // namespace quillan
