// types.h: the number types of the program, the missing value, and the questions asked of a number.
//
// R4 is binary32 and R8 is binary64. What is computed in R4 stays in float, for the last digits of the files
// that we write depend on it; a widening or a rounding is written out (R8{fStn}, static_cast<R4>(dStn)).
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

namespace quillan {

using I4 = std::int32_t;
using I8 = std::int64_t;
using R4 = float;
using R8 = double;
using L4 = bool;

/// A real without a value holds fDummy or dDummy; a real above the limit has a value.
inline constexpr R4 fDummy = -1.0E32f;
inline constexpr R4 fDummyLimit = -9.9E31f;
inline constexpr R8 dDummy = -1.0E32;
inline constexpr R8 dDummyLimit = -9.9E31;

/// Whether a real has a value. Where a rule says "at or above" the limit, compare in the open instead.
constexpr bool Is_Present(R4 fValue) {
  return fValue > fDummyLimit;
}
constexpr bool Is_Present(R8 dValue) {
  return dValue > dDummyLimit;
}

/// Distance from |x| to the next number of its size: 2**(exponent - digits), never below the smallest normal
/// number, which is also the answer for zero. Infinity and not-a-number give themselves.
template <class Real>
Real Spacing(Real x) {
  if (!std::isfinite(x)) return std::abs(x);
  if (x == Real{0}) return std::numeric_limits<Real>::min();
  int iExponent = 0;
  std::frexp(x, &iExponent);
  const Real fStep = std::ldexp(Real{1}, iExponent - std::numeric_limits<Real>::digits);
  return fStep < std::numeric_limits<Real>::min() ? std::numeric_limits<Real>::min() : fStep;
}

/// The nearest whole number, halves away from zero, held to the range of I4; not-a-number gives 0.
template <class Real>
I4 Nint(Real x) {
  if (std::isnan(x)) return 0;
  const R8 dWhole = std::round(static_cast<R8>(x));
  if (dWhole >= 2147483647.0) return 2147483647;
  if (dWhole <= -2147483648.0) return -2147483647 - 1;
  return static_cast<I4>(dWhole);
}

}  // namespace quillan
