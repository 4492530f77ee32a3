// pn_intrp.h: values between the points of a table, by straight lines.
//
// A table is NP points, fXP(J) and fYP(J), J = 1..NP, the abscissae rising; NP is held to what the arrays hold. Beyond
// the table the value goes on along the slope that is given for that end, or along the end segment where none is.
//
// iQIntrp says, where the caller wants to know, how the value was found:
//
//   0  there is no table: the value is 0, and an error was reported
//   1  beyond the table
//   2  between points
//   3  on a point: within 100 units of the last place, or within a hundredth of the segment
#pragma once

#include <span>

#include "base/array.h"
#include "base/types.h"

namespace quillan {

inline constexpr I4 iNoTable = 0;
inline constexpr I4 iBeyondTable = 1;
inline constexpr I4 iBetweenPoints = 2;
inline constexpr I4 iOnPoint = 3;

/// Slopes at the first and at the last point; of 1.0E6 or more, either way, it means that none is given.
using EndSlopesR4 = Array1<R4, 2>;
inline constexpr EndSlopesR4 fNoEndSlopes{1.0E30f, 1.0E30f};

/// A value beyond the table on an end segment without a slope counts as iOnPoint: what is asked there is whether the
/// table can be trusted, and a line is as good as its end.
[[nodiscard]] R4 P1Intrp_R4(I4 NP, std::span<const R4> fXP, std::span<const R4> fYP, const EndSlopesR4& fdYdX, R4 fXX,
                            I4* iQIntrp = nullptr);

}  // namespace quillan
