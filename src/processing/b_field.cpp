#include "processing/b_field.h"

#include "foundations/log_file.h"
#include "model/tmd_data.h"

namespace quillan {
namespace {

constexpr R4 fUsecPerMsec = 1000.0f;

bool Store_Is_Empty(std::string_view sRoutine) {
  if (NTrn >= 1) return false;
  LogErr({std::string(sRoutine) + ".ERROR: No valid data loaded."});
  return true;
}

void Integrate_Rectangles(Transient& h) {
  h.fBmag.fill(fDummy);
  R4 fBsum = 0.0f;
  for (I4 I = h.NTW; I >= 1; --I) {
    if (!(h.fuVmag(I) >= fDummyLimit)) continue;
    const R4 fTWW = fUsecPerMsec * (h.fTWEnd(I) - h.fTWBeg(I));
    const R4 fdBdt = h.fuVmag(I) / h.fRxArea;
    fBsum = fBsum + fdBdt * fTWW;
    h.fBmag(I) = fBsum;
  }
}

void Integrate_Trapezoids(Transient& h) {
  bool bFirst = true;
  I4 I0 = 0;  // the window integrated last
  for (I4 I = h.NTW; I >= 1; --I) {
    h.fBmag(I) = fDummy;
    if (h.fuVmag(I) < fDummyLimit || h.bSkip(I)) continue;
    if (bFirst) {
      h.fBmag(I) = (2000.0f * h.fuVmag(I) * h.fTWCen(I)) / (3.0f * h.fRxArea);
    } else {
      h.fBmag(I) = (500.0f * (h.fuVmag(I0) + h.fuVmag(I)) * (h.fTWCen(I0) - h.fTWCen(I))) / h.fRxArea + h.fBmag(I0);
    }
    bFirst = false;
    I0 = I;
  }
}

}  // namespace

I4 dBdt_2_B() {
  LogText("");
  LogText("Integrating dB/dt to get B(t).");
  if (Store_Is_Empty("dBdt_2_B")) return 1;
  for (I4 j = 1; j <= NTrn; ++j) Integrate_Rectangles(hTrn(j));
  LogText("Integration of dB/dt is finished.");
  return 0;
}

I4 dBzdt_2_Bz() {
  LogText_Reset();
  LogText("");
  LogText("Integrating dBz/dt to get Bz(t).");
  if (Store_Is_Empty("dBzdt_2_Bz")) return 1;
  for (I4 j = 1; j <= NTrn; ++j) {
    if (hTrn(j).iRxCmp == iCmpHz) Integrate_Trapezoids(hTrn(j));
  }
  LogText("Integration of dBz/dt is finished.");
  return 0;
}

}  // namespace quillan
