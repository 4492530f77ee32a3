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

void Edit_Window_Flag(I4 j, I4 I, L4 bSkip) {
  hTrn(j).bSkip(I) = bSkip;
}

void Edit_Transient_Flag(I4 j, L4 bSkip) {
  hTrn(j).bSkipTrn = bSkip;
}

void Edit_Polarity(I4 j) {
  Transient& h = hTrn(j);
  for (I4 I = 1; I <= h.NTW; ++I) {
    if (Is_Present(h.fuVmag(I))) h.fuVmag(I) = -h.fuVmag(I);
    if (Is_Present(h.fBmag(I))) h.fBmag(I) = -h.fBmag(I);
  }
  Flip_Range(h.fuVmin, h.fuVmax);
  Flip_Range(h.fBmin, h.fBmax);
}

void Edit_Value(I4 j, I4 I, WindowValues Transient::*hValue, R4 fValue) {
  (hTrn(j).*hValue)(I) = fValue;
}

}  // namespace quillan
