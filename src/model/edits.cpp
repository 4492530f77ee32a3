#include "model/edits.h"

namespace quillan {
namespace {

void Flip_Range(R4& fMin, R4& fMax) {
  if (!Is_Present(fMax)) return;  // the marks of an empty range
  const R4 fMin0 = fMin;
  fMin = -fMax;
  fMax = -fMin0;
}

}  // namespace

void Edit_Polarity(I4 j) {
  Transient& h = hTrn(j);
  for (I4 I = 1; I <= h.NTW; ++I) {
    if (Is_Present(h.fuVmag(I))) h.fuVmag(I) = -h.fuVmag(I);
    if (Is_Present(h.fBmag(I))) h.fBmag(I) = -h.fBmag(I);
  }
  Flip_Range(h.fuVmin, h.fuVmax);
  Flip_Range(h.fBmin, h.fBmax);
}

}  // namespace quillan
