// stn_lookup.h: what the station table says of a station: where it is, how it is turned, how deep it lies.
//
// A station is found on the two lines around its line number, between the points on either side of it, and the two
// positions are blended by the distance of the lines. Beyond the ends of a line easting and northing go on along the
// last segment; elevation, attitude and depth keep the end value. Headings are blended as plain numbers.
#pragma once

#include "base/array.h"
#include "base/types.h"
#include "model/stn_data.h"

namespace quillan {

/// What a look-up found. What was not asked for, and everything where iError is 1, is missing.
struct StationFix {
  Array1<R8, 3> dXYZ = Filled<Array1<R8, 3>>(dDummy);  // iLengthUnit: east, north, elevation, in full
  Array1<R4, 3> fHPR = Filled<Array1<R4, 3>>(fDummy);  // degrees: heading, pitch, roll
  R4 fDepth = fDummy;                                  // iLengthUnit, zero or negative
  Array1<I4, 2> iQIntrp{0, 0};  // iNoTable, iBeyondTable, iBetweenPoints or iOnPoint: across lines, along the first
  I4 iError = 0;                // 1 there are no stations, or dStnSK or dLineK has no value; not reported
};

/// Station dStnSK on line dLineK. With one line in the table it is that one, whatever dLineK is.
[[nodiscard]] StationFix Stn_Get_dXYZ(R8 dStnSK, R8 dLineK);      // position
[[nodiscard]] StationFix Stn_Get_fHPR(R8 dStnSK, R8 dLineK);      // attitude
[[nodiscard]] StationFix Stn_Get_dXYZfHPR(R8 dStnSK, R8 dLineK);  // both
[[nodiscard]] StationFix Stn_Get_dXYZfD(R8 dStnSK, R8 dLineK);    // position and depth

/// Every transient takes the position and attitude of its receiver station dRxStn on line dLineNumber; one whose
/// station is not found keeps its own. Returns how many took one.
I4 Stn_Positions(R8 dLineNumber);

/// A multiplexer electrode and the point where it lies; missing, and depth 0, where iError is 1.
struct PellFix {
  R8 dStn = dDummy;                                    // station
  R8 dLine = dDummy;                                   // line
  Array1<R8, 3> dXYZ = Filled<Array1<R8, 3>>(dDummy);  // iLengthUnit: east, north, elevation, in full
  R4 fDepth = 0.0f;                                    // iLengthUnit, zero or negative
  I4 iMuxBox = 0;                                      // multiplexer box
  I4 iMuxChn = 0;                                      // electrode
  I4 iError = 0;                                       // 1 there are no stations, or it is not among them
};
/// Where an electrode lies: the first point with its numbers. Numbers out of 0 to 32, and an electrode that is not in
/// the table, are reported three times a run.
[[nodiscard]] PellFix Stn_Get_PellXYZ(I4 iMuxBoxK, I4 iMuxChnK);
/// The electrode at a station, which is a point within 0.001 of dStnK.
[[nodiscard]] PellFix Stn_Get_PellMux(R8 dStnK, R8 dLineK);

// Module state. The look-ups of electrodes count their reports; nothing clears them.
struct PellReports {
  I4 NErrBox = 0, NErrChn = 0;   // numbers out of range
  I4 NErrPell = 0, NErrStn = 0;  // electrodes and stations that are not in the table
};
inline PellReports hPellReports;

/// The origins of the table; 0, and iError 1, without stations.
struct StationOrigins {
  I4 iSoffset = 0, iLoffset = 0, iXoffset = 0, iYoffset = 0;
  I4 iError = 0;
};
[[nodiscard]] StationOrigins Stn_Get_XYOffset();

/// The fitted line of a line number; 0 throughout where there is no such line.
struct LineTrend {
  R8 dTrendS0 = 0.0;                        // station
  R8 dTrendX0 = 0.0, dTrendY0 = 0.0;        // iLengthUnit
  R4 fTrendAzm = 0.0f;                      // degrees
  R4 fTrendUmin = 0.0f, fTrendUmax = 0.0f;  // iLengthUnit, extent along the line
};
/// dTrendY0 is the easting of the line's point over the origin of northings; programs that take it rely on it.
[[nodiscard]] LineTrend Stn_Get_Trend(R8 dLineNumber);

/// The statistics of a line number; 0 throughout where there is no such line.
struct LineFigures {
  I4 iStnDist = 0;                            // iLineStraight, iLineMeander or iLinePoints
  R4 fStnVdev = 0.0f;                         // iLengthUnit, mean distance from the line
  R4 fStnVnsr = 0.0f;                         // percent
  R4 fStnDSmed = 0.0f;                        // median step of the station numbers
  R4 fStnDRDSmed = 0.0f, fStnDRDSdev = 0.0f;  // iLengthUnit a station, and its mean deviation
};
[[nodiscard]] LineFigures Stn_Get_Stats(R8 dLineNumber);

/// The ranges of a line number, in full; 0 to 1 where there is no such line.
struct LineRanges {
  R8 dStnSmin = 0.0, dStnSmax = 1.0;  // station
  R8 dStnXmin = 0.0, dStnXmax = 1.0;  // iLengthUnit, easting
  R8 dStnYmin = 0.0, dStnYmax = 1.0;  // iLengthUnit, northing
  R8 dStnZmin = 0.0, dStnZmax = 1.0;  // iLengthUnit, elevation
  R8 dStnDmin = 0.0, dStnDmax = 1.0;  // iLengthUnit, depth
};
[[nodiscard]] LineRanges Stn_Get_Range(R8 dLineNumber);

}  // namespace quillan
