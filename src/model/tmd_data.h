// tmd_data.h: the transient store and the survey record: all measured data of the run.
//
// A transient is one decay curve of up to MTW time windows for one receiver station, transmitter position, base
// frequency and field component. Readers fill the store, commands change it in place, writers and plots read it. It
// is a fixed array of plain records: whole transients are copied by assignment, and nothing is allocated for one.
// j runs over transients, I over windows, both from 1; windows stand in the order of rising time.
#pragma once

#include <string>

#include "base/array.h"
#include "base/text.h"
#include "base/types.h"

namespace quillan {

inline constexpr I4 MTrn = 4096;   // transients in the store
inline constexpr I4 MTW = 64;      // time windows in a transient
inline constexpr I4 MAvgCmt = 8;   // comment lines kept from an averaged file
inline constexpr I4 MAvgMde = 16;  // $ lines kept that no metadata group takes

// m^2, receiver area: below the least no area was given, and the default stands for it.
inline constexpr R4 fRxAreaLeast = 0.001f;
inline constexpr R4 fRxAreaDefault = 10000.0f;

/// Where the search for a least and a greatest value begins.
inline constexpr R4 fRangeMin0 = 1.0E32f;
inline constexpr R4 fRangeMax0 = -9.9E31f;

// Components, the codes of CChnCmp that rules name.
inline constexpr I4 iCmpHx = 4;
inline constexpr I4 iCmpHz = 6;

// Arrays, the codes of CTemArray that rules name.
inline constexpr I4 iArrayFXL = 1;  // fixed loop
inline constexpr I4 iArrayMVL = 2;  // moving loop
inline constexpr I4 iArrayLOT = 5;  // long offset

using WindowValues = Array1<R4, MTW>;

struct Transient {
  L4 bSkipTrn = false;                                     // the whole transient is skipped
  R4 fWgtTrns = 1.0f;                                      // weight when repeats are averaged
  R8 dRxKvrStn = dDummy;                                   // receiver station as the receiver recorded it
  R8 dRxStn = dDummy;                                      // the same on the survey's rescaled numbering
  Array1<R8, 3> dRxXYZ = Filled<Array1<R8, 3>>(dDummy);    // iLengthUnit: east, north, elevation
  Array1<R4, 3> fRxHPR = Filled<Array1<R4, 3>>(fDummy);    // degrees: heading, pitch, roll
  R4 fRxArea = fDummy;                                     // m^2, effective receiver area
  I4 iRxCmp = iCmpHz;                                      // component, code in CChnCmp
  R8 dTxKvrStn = dDummy;                                   // transmitter station as recorded
  R8 dTxStn = dDummy;                                      // the same rescaled
  Array1<R8, 3> dTxXYZC = Filled<Array1<R8, 3>>(dDummy);   // iLengthUnit: centre of the transmitter
  R4 fTxFreq = fDummy;                                     // hertz, base frequency
  R4 fTxAmp = 1.0f;                                        // amp
  R4 fTxRamp = 0.0f;                                       // usec, turn-off ramp
  I4 NCycle = 0;                                           // cycles stacked
  I4 iTWCfg = 0;                                           // number of its time-window configuration, from 1
  R4 fAntDelay = 0.0f;                                     // usec, receiver antenna
  R4 fAliasDelay = 0.0f;                                   // usec, anti-alias filter
  R4 fADDelay = 0.0f;                                      // usec, analogue-to-digital
  R4 fADRamp = 0.0f;                                       // usec
  R4 fTxDelay = 0.0f;                                      // usec, transmitter
  R4 fT0Delay = 0.0f;                                      // usec, time zero
  Array1<R8, 2> dKvrBlk = Filled<Array1<R8, 2>>(dDummy);   // first and last block of the receiver's file
  Text<16> sKvrDate;                                       // as recorded
  Text<16> sKvrTime;                                       // as recorded
  I4 iAcqMethod = 4;                                       // code in CAcqMethod
  I4 iSection = 0;                                         // pseudosection that it belongs to
  I4 NTW = 0;                                              // windows in use
  Array1<L4, MTW> bSkip = Filled<Array1<L4, MTW>>(false);  // the window is skipped
  WindowValues fTWCen = Filled<WindowValues>(fDummy);      // msec, centre of the window
  WindowValues fTWBeg = Filled<WindowValues>(fDummy);      // msec, start
  WindowValues fTWEnd = Filled<WindowValues>(fDummy);      // msec, end
  WindowValues fuVmag = Filled<WindowValues>(fDummy);      // idBdtUnit, decay value dB/dt
  WindowValues fuVerr = Filled<WindowValues>(fDummy);      // idBdtUnit, its error
  WindowValues fuVpct = Filled<WindowValues>(fDummy);      // percent, its error
  WindowValues fARes = Filled<WindowValues>(fDummy);       // ohm-m, apparent resistivity
  WindowValues fDepth = Filled<WindowValues>(fDummy);      // iLengthUnit, image depth
  WindowValues fBmag = Filled<WindowValues>(fDummy);       // iBUnit, integrated field B(t)
  R4 fTWCmin = fRangeMin0, fTWCmax = fRangeMax0;           // msec, first and last centre
  R4 fuVmin = fRangeMin0, fuVmax = fRangeMax0;             // range of fuVmag
  R4 fBmin = fRangeMin0, fBmax = fRangeMax0;               // range of fBmag
  R4 fARmin = fRangeMin0, fARmax = fRangeMax0;             // range of fARes
};

struct Survey {
  Text<128> sJobName, sJobArea, sJobFor, sJobBy;
  Text<16> sJobNumber, sJobDate;
  I4 iTemArray = iArrayFXL;  // code in CTemArray
  Text<16> sLineName;
  R8 dLineNumber = dDummy;
  R4 fLineAzimuth = fDummy;  // degrees
  R8 dStnBeg = dDummy;       // rescaled number of the first station
  R8 dStnInc = dDummy;       // rescaled increment
  R8 dStnKvrBeg = dDummy;    // recorded number of the first station
  R8 dStnKvrInc = dDummy;    // recorded increment
  R8 dStnLeft = dDummy;      // station at the left end of the line
  R8 dStnRight = dDummy;     // station at the right end
  I4 NTxTurn = 1;
  R4 fTxArea = fDummy;                                      // m^2
  Array1<R4, 2> fTxLength = Filled<Array1<R4, 2>>(100.0f);  // m, along and across the line
  Array1<R8, 3> dTxXYZC = Filled<Array1<R8, 3>>(0.0);       // centre of the loop
  Array1<R4, 3> fTxHPR{
      {90.0f, 0.0f, 0.0f}
  };  // degrees
  L4 bTxwFile = false;       // a transmitter wire file is in use
  std::string sTxwFile;      // its path
  Array1<R4, 3> fRxHPR{
      {90.0f, 0.0f, 0.0f}
  };  // degrees, default attitude of the receivers
  I4 iLengthUnit = 1;        // codes in sLengthUnit, sTimeUnit, sdBdtUnit, sBUnit, sEUnit
  I4 iTimeUnit = 2;
  I4 idBdtUnit = 2;
  I4 iBUnit = 2;
  I4 iEUnit = 2;
};

/// Lines of the averaged file in the store that are written back into the next one.
struct AvgKeptLines {
  I4 NAvgCmt = 0;
  Array1<Text<128>, MAvgCmt> sAvgCmt{};  // comments, written first
  I4 NAvgMde = 0;
  Array1<Text<256>, MAvgMde> sAvgMde{};  // $ lines that no metadata group takes
};

// Module state. Readers fill it, TMD_Initialize restores it.
inline I4 NTrn = 0;                    // transients in use
extern Array1<Transient, MTrn>& hTrn;  // the store; what lies beyond NTrn means nothing
inline Survey hTemSurvey;
inline AvgKeptLines hAvgKept;

inline std::string sAvgFile;  // path of the current data file; the main program's, no initialiser clears it

/// Every field of the survey gets its default; NTrn becomes 0, and no lines are kept.
void TMD_Initialize();

/// One transient more, every field its default. There must be room: NTrn is below MTrn.
Transient& TMD_Add_Transient();

}  // namespace quillan
