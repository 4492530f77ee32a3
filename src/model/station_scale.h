// station_scale.h: station numbers: when two are one, and how recorded ones become those of the survey.
//
//   station = (recorded - Stn.KvrBeg) * Stn.Inc / Stn.KvrInc + Stn.Beg
//
// Files keep the last digit of these numbers, so the order of the product and the division is part of the rule. Rows
// of a file are rescaled product first. What the survey completes and what the writers state multiplies by the ratio of
// the increments: the numbers of a file that is opened and saved again then stay what they were.
#pragma once

#include <cmath>

#include "base/types.h"

namespace quillan {

/// Whether two numbers are those of one station: rescaling and printing change their last digits.
inline bool Is_Same_Stn(R8 dStn0, R8 dStn, R8 dSpacings = 100.0) {
  return dStn == dStn0 || std::abs(dStn - dStn0) <= dSpacings * Spacing(dStn0);
}

/// The scale of one survey: recorded numbers in, station numbers out.
struct StationScale {
  R8 dStnKvrBeg;   // recorded number of the first station
  R8 dStnBeg;      // its station number
  R8 dTimes;       // multiplies what lies between them
  R8 dOver = 1.0;  // divides the product; 1 changes no bit of it

  R8 operator()(R8 dKvrStn) const { return (dKvrStn - dStnKvrBeg) * dTimes / dOver + dStnBeg; }
};

/// Of hTemSurvey as rows are read: product first, and any recorded increment is taken, since the survey that the file
/// is opened with can still give another.
StationScale Stn_Scale_of_Rows();

/// Of hTemSurvey by the ratio of its increments. A recorded increment below dIncLeast either way counts as 1 with its
/// sign; without that limit it is taken as it stands.
StationScale Stn_Scale(R8 dIncLeast = 0.0);

}  // namespace quillan
