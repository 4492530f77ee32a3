// signed_log.h: the signed logarithmic scale on which decays are plotted.
//
// Their values run over many decades and fall below zero in their noise; this scale holds both. With u = x / (2 b) it
// is sign(x) log10(|u| + sqrt(u**2 + 1)): nearly linear for |x| < b, nearly log10(|x| / b) above.
#pragma once

#include "base/types.h"

namespace quillan {

/// The scaled value of fX with base fXBase, computed in R8.
R4 fAsinh10(R4 fX, R4 fXBase);
/// Its inverse, computed in R4: fXBase * (v - 1 / v), v = 10**fY, held to 1.0E32 either way. The two need not undo
/// each other to the last digit.
R4 fSinh10(R4 fY, R4 fXBase);

}  // namespace quillan
