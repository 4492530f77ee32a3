// Where the ticks of an axis stand: numbers alone, nothing is drawn.
#include <algorithm>
#include <cmath>

#include "base/array.h"
#include "toolkit/draw/private_plot.h"

namespace quillan {

using namespace toolkit;

namespace {

constexpr I4 NTickWanted = 3;      // an axis with fewer ticks cannot be read
constexpr R8 dOnTick = 1.0E-9;     // of a step: an end of the range that is a tick but for its last digits
constexpr R8 dOneValue = 1.0E-12;  // of the ends: closer ends are one value
constexpr R8 dLogSpan = 1.0E-6;    // from the one end of a logarithmic axis to an end that it cannot have

PlotRange Plottable_Linear(R8 dLow, R8 dHigh) {
  const R8 dSize = std::max(std::abs(dLow), std::abs(dHigh));
  if (std::abs(dHigh - dLow) > dOneValue * dSize) return {dLow, dHigh};
  const R8 dApart = dSize == 0.0 ? 1.0 : 0.1 * dSize;
  return {dLow - dApart, dLow + dApart};
}

PlotRange Plottable_Logarithmic(R8 dLow, R8 dHigh) {
  if (dLow <= 0.0 && dHigh <= 0.0) return {1.0, 10.0};
  if (dLow <= 0.0) dLow = dLogSpan * dHigh;
  if (dHigh <= 0.0) dHigh = dLogSpan * dLow;
  if (std::abs(dHigh - dLow) > dOneValue * std::max(dLow, dHigh)) return {dLow, dHigh};
  const R8 dHalfDecade = std::sqrt(10.0);
  return {dLow / dHalfDecade, dLow * dHalfDecade};
}

}  // namespace

PlotRange toolkit::Plottable(Scaling iScaling, R8 dLow, R8 dHigh) {
  if (!std::isfinite(dLow)) dLow = std::isfinite(dHigh) ? dHigh : 1.0;
  if (!std::isfinite(dHigh)) dHigh = dLow;
  return iScaling == Scaling::Linear ? Plottable_Linear(dLow, dHigh) : Plottable_Logarithmic(dLow, dHigh);
}

namespace {

/// Steps of 1, 2 and 5 times a power of ten, coarsest last; iStep counts through them, 0 is the step 1.
struct TidyStep {
  I4 iStep;

  I4 Place() const { return ((iStep % 3) + 3) % 3; }  // 0, 1, 2: a step of 1, 2, 5
  R8 Value() const {
    constexpr R8 dMantissa[] = {1.0, 2.0, 5.0};
    return dMantissa[Place()] * std::pow(10.0, (iStep - Place()) / 3);
  }
  /// Minor steps to a major one, so that a minor step is tidy as well.
  I8 NPart() const { return Place() == 1 ? 4 : 5; }
  /// The finest step of at least dStep.
  static TidyStep At_Least(R8 dStep) {
    TidyStep h{3 * static_cast<I4>(std::floor(std::log10(dStep)))};
    while (h.Value() < dStep * (1.0 - dOnTick)) ++h.iStep;
    return h;
  }
};

/// Multiples of a step within a range, both ends taken in.
struct Multiples {
  I8 iFirst, iLast;
  Multiples(PlotRange hRange, R8 dStep)
      : iFirst(static_cast<I8>(std::ceil(hRange.dLow / dStep - dOnTick))),
        iLast(static_cast<I8>(std::floor(hRange.dHigh / dStep + dOnTick))) {}
  I8 Count() const { return iLast - iFirst + 1; }
};

PlotRange Rising(PlotRange h) {
  return {std::min(h.dLow, h.dHigh), std::max(h.dLow, h.dHigh)};
}

std::vector<Tick> Even_Ticks(PlotRange hRange, I4 MMajor) {
  TidyStep hStep = TidyStep::At_Least((hRange.dHigh - hRange.dLow) / std::max(MMajor, 1));
  while (Multiples(hRange, hStep.Value()).Count() < NTickWanted) --hStep.iStep;
  const R8 dMinor = hStep.Value() / static_cast<R8>(hStep.NPart());
  const Multiples hMinor(hRange, dMinor);
  std::vector<Tick> hTick;
  for (I8 I = hMinor.iFirst; I <= hMinor.iLast; ++I) {
    hTick.push_back({static_cast<R8>(I) * dMinor, I % hStep.NPart() == 0});
  }
  return hTick;
}

/// The exponents of the decades within a range.
Multiples Decades(PlotRange hRange) {
  return Multiples({std::log10(hRange.dLow), std::log10(hRange.dHigh)}, 1.0);
}

/// 1 to 9 of each decade within a range; bMajor: whether a digit is a major one.
std::vector<Tick> Digit_Ticks(PlotRange hRange, bool (*bMajor)(I4 iDigit)) {
  std::vector<Tick> hTick;
  const Multiples hDecade = Decades(hRange);
  for (I8 I = hDecade.iFirst - 1; I <= hDecade.iLast; ++I) {
    for (I4 iDigit = 1; iDigit <= 9; ++iDigit) {
      const R8 dValue = iDigit * std::pow(10.0, static_cast<R8>(I));
      const bool bInside = dValue >= hRange.dLow * (1.0 - dOnTick) && dValue <= hRange.dHigh * (1.0 + dOnTick);
      if (bInside) hTick.push_back({dValue, bMajor(iDigit)});
    }
  }
  return hTick;
}

/// The decades alone, every NStride-th major.
std::vector<Tick> Decade_Ticks(PlotRange hRange, I8 NStride) {
  std::vector<Tick> hTick;
  const Multiples hDecade = Decades(hRange);
  for (I8 I = hDecade.iFirst; I <= hDecade.iLast; ++I) {
    hTick.push_back({std::pow(10.0, static_cast<R8>(I)), I % NStride == 0});
  }
  return hTick;
}

}  // namespace

std::vector<Tick> Linear_Ticks(R8 dLow, R8 dHigh, I4 MMajor) {
  return Even_Ticks(Rising(Plottable(Scaling::Linear, dLow, dHigh)), MMajor);
}

std::vector<Tick> Logarithmic_Ticks(R8 dLow, R8 dHigh, I4 MMajor) {
  const PlotRange hRange = Rising(Plottable(Scaling::Logarithmic, dLow, dHigh));
  const I8 NDecade = Decades(hRange).Count();
  const I8 NStride = NDecade / std::max(MMajor, NTickWanted);
  if (NStride > 1) return Decade_Ticks(hRange, NStride);
  if (NDecade >= NTickWanted) return Digit_Ticks(hRange, [](I4 iDigit) { return iDigit == 1; });

  const auto bOneTwoFive = [](I4 iDigit) { return iDigit == 1 || iDigit == 2 || iDigit == 5; };
  std::vector<Tick> hTick = Digit_Ticks(hRange, bOneTwoFive);
  const auto NMajor = std::count_if(hTick.begin(), hTick.end(), [](const Tick& h) { return h.bMajor; });
  return NMajor >= NTickWanted ? hTick : Even_Ticks(hRange, MMajor);
}

}  // namespace quillan
