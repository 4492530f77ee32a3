// pn_intrp.h: values between the points of a table, by straight lines or by smooth cubics.
//
// A table is NP points, fXP(J) and fYP(J), J = 1..NP, the abscissae rising. Members R4 and R8 differ in the type alone.
// Beyond the table the value goes on along the slope that is given for that end, or along the end segment where none
// is. NP is held to what the arrays hold.
//
// iQIntrp tells, where the caller wants to know, how the value was found:
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
using EndSlopesR8 = Array1<R8, 2>;
inline constexpr EndSlopesR4 fNoEndSlopes{
    {1.0E30f, 1.0E30f}
};
inline constexpr EndSlopesR8 dNoEndSlopes{
    {1.0E30, 1.0E30}
};

// Module state: the place that the last look-up found, where the next one begins to look. Any value is right; a near
// one is fast.
inline I4 JLoIntrp = 1;

/// Straight lines. A value beyond the table on an end segment without a slope counts as iOnPoint: what is asked there
/// is whether the table can be trusted, and a line is as good as its end.
void P1Intrp_R4(I4 NP, std::span<const R4> fXP, std::span<const R4> fYP, const EndSlopesR4& fdYdX, R4 fXX, R4& fYY,
                I4* iQIntrp = nullptr);
void P1Intrp_R8(I4 NP, std::span<const R8> dXP, std::span<const R8> dYP, const EndSlopesR8& ddYdX, R8 dXX, R8& dYY,
                I4* iQIntrp = nullptr);

/// Cubics (Hermite) whose slope at a point is that of the parabola through it and its neighbours; straight lines beyond
/// the table. A segment of at most 1.0E-5 gives the mean of its ends.
void P2Intrp_R4(I4 NP, std::span<const R4> fXP, std::span<const R4> fYP, const EndSlopesR4& fdYdX, R4 fXX, R4& fYY,
                I4* iQIntrp = nullptr);
void P2Intrp_R8(I4 NP, std::span<const R8> dXP, std::span<const R8> dYP, const EndSlopesR8& ddYdX, R8 dXX, R8& dYY,
                I4* iQIntrp = nullptr);

/// The cubics on the even grid fXP(J) = fX0 + (J - 1) * fDX; beyond it the end values go on, and iQIntrp speaks of the
/// place within the grid's step alone.
void P2Intrp0_DX_R4(I4 NP, R4 fX0, R4 fDX, std::span<const R4> fYP, R4 fXX, R4& fYY, I4* iQIntrp = nullptr);
void P2Intrp0_DX_R8(I4 NP, R8 dX0, R8 dDX, std::span<const R8> dYP, R8 dXX, R8& dYY, I4* iQIntrp = nullptr);

}  // namespace quillan
