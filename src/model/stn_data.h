// stn_data.h: surveyed stations: the points of each line, in the order of line and station, and what is known of a
// line.
//
// The reader of station files fills the table; positions, attitudes and the map are taken from it. Stations, lines and
// coordinates are kept as offsets from whole origins, so that R4 keeps them to the millimetre where a map grid has
// seven digits: station I is R8{hStn.fStnS(I)} + hStn.iStnS0. I runs over points and iLine over lines, both from 1.
//
// The points of a line are iStnBeg(iLine) .. iStnEnd(iLine), their stations rising. A point that repeats another is
// dropped by ending its line early: there are gaps between lines, so walk the table line by line, not from 1 to NStn.
#pragma once

#include <cassert>
#include <span>
#include <vector>

#include "base/types.h"
#include "model/tmd_data.h"

namespace quillan {

/// One value a point, or one a line.
template <class T>
class StationColumn {
 public:
  T& operator()(I4 I) {
    assert(I >= 1 && I <= NItem());
    return hItem[static_cast<std::size_t>(I - 1)];
  }
  const T& operator()(I4 I) const {
    assert(I >= 1 && I <= NItem());
    return hItem[static_cast<std::size_t>(I - 1)];
  }
  I4 NItem() const { return static_cast<I4>(hItem.size()); }
  /// Items I1 .. I2; none when I2 is before I1.
  std::span<T> Items(I4 I1, I4 I2) { return std::span(hItem).subspan(First(I1), Count(I1, I2)); }
  std::span<const T> Items(I4 I1, I4 I2) const { return std::span(hItem).subspan(First(I1), Count(I1, I2)); }
  /// Every item gets a value. With NHeld above what the column holds it grows to MItem.
  void Start(I4 NHeld, I4 MItem, const T& hValue) {
    hItem.assign(NHeld <= NItem() ? hItem.size() : static_cast<std::size_t>(MItem), hValue);
  }
  void Add(const T& hValue) { hItem.push_back(hValue); }

 private:
  static std::size_t First(I4 I1) { return static_cast<std::size_t>(I1 - 1); }
  static std::size_t Count(I4 I1, I4 I2) { return I2 < I1 ? 0 : static_cast<std::size_t>(I2 - I1 + 1); }

  std::vector<T> hItem;
};

/// Least and greatest values; stations and coordinates as offsets from the origins.
struct StationRanges {
  R4 fSSmin = fRangeMin0, fSSmax = fRangeMax0;  // station
  R4 fSXmin = fRangeMin0, fSXmax = fRangeMax0;  // iLengthUnit, easting
  R4 fSYmin = fRangeMin0, fSYmax = fRangeMax0;  // iLengthUnit, northing
  R4 fSZmin = fRangeMin0, fSZmax = fRangeMax0;  // iLengthUnit, elevation
  R4 fSDmin = fRangeMin0, fSDmax = fRangeMax0;  // iLengthUnit, depth, zero or negative
};

// How the points of a line lie, the codes of iLineType.
inline constexpr I4 iLineStraight = 1;
inline constexpr I4 iLineMeander = 2;  // they stray from the fitted line
inline constexpr I4 iLinePoints = 3;   // their distances do not follow the station numbers

/// The fitted line and the statistics of its points; stations and coordinates as offsets from the origins.
struct LineStat : StationRanges {
  R4 fStnS0 = fDummy;                   // median of the distance along the line over fdUdSmed
  R4 fStnX0 = fDummy, fStnY0 = fDummy;  // iLengthUnit, a point on the line
  R4 fStnUazm = 90.0f;                  // degrees clockwise from north, in the direction of rising stations
  R4 fUmin = 0.0f, fUmax = 0.0f;        // iLengthUnit, extent along the line from that point
  R4 fVdev = 0.0f;                      // iLengthUnit, mean distance of the points from the line
  R4 fVnsr = 0.0f;                      // percent, noise of the fit
  R4 fDSmed = 1.0f;                     // median step of the station numbers
  R4 fdUdSmed = 1.0f;                   // iLengthUnit a station, median
  R4 fdUdSdev = 0.0f;                   // the same, mean deviation from the median
  I4 iLineType = iLineStraight;
};

struct StationTable : StationRanges {
  I4 NStn = 0;      // points read, dropped ones included
  I4 NStnLine = 0;  // lines

  // Origins, multiples of 10000.
  I4 iStnS0 = 0, iStnL0 = 0;  // station, line
  I4 iStnX0 = 0, iStnY0 = 0;  // iLengthUnit, easting and northing

  // Of point I. Stations, lines, eastings and northings are offsets from the origins.
  StationColumn<R4> fStnS, fStnL;         // station, line
  StationColumn<R4> fStnX, fStnY, fStnZ;  // iLengthUnit, easting, northing, elevation
  StationColumn<R4> fStnH, fStnP, fStnR;  // degrees, heading, pitch, roll
  StationColumn<R4> fStnD;                // iLengthUnit, depth, zero or negative
  StationColumn<I4> iMuxBox, iMuxChn;     // multiplexer box and electrode

  // Of line iLine.
  StationColumn<R8> dStnLine;          // its number, in full
  StationColumn<I4> iStnBeg, iStnEnd;  // its first and last point
  StationColumn<LineStat> hLineStat;

  // Where a value comes from: 0 from the defaults, 2 from a column of the file.
  I4 lLine = 0, lDepth = 0, lStnAzm = 0, lPitch = 0, lRoll = 0, lMuxBox = 0, lMuxChn = 0;

  R4 fSLmin = fRangeMin0, fSLmax = fRangeMax0;  // range of the lines, as offsets
};

// Module state. Stn_Read fills it, Stn_Forget empties it.
inline StationTable hStn;

/// No stations: without points and lines, origins 0, ranges empty. What the columns held is out of reach.
void Stn_Forget();

/// Makes room for points and lines and gives every one its start value, and the flags and ranges theirs.
void Stn_Initialize(I4 NStn, I4 NStnLine);

/// One line more, of number dLine, which begins and ends at point I.
void Stn_Add_Line(R8 dLine, I4 I);

/// Point J becomes as point I.
void Stn_Copy_Point(I4 I, I4 J);

/// Puts the points in the order of line and station. Of equal ones the order is always the same.
void Stn_Sort();

}  // namespace quillan
