// survey_builder.h: small surveys for tests, put straight into the store.
#pragma once

#include <initializer_list>
#include <string>

#include "foundations/log_file.h"
#include "model/tmd_data.h"

namespace quillan {

/// A transient with windows at 1, 2, 4 ... msec unless set otherwise.
class TransientBuilder {
 public:
  TransientBuilder() {
    h.dRxKvrStn = h.dRxStn = 1.0;
    h.dTxKvrStn = h.dTxStn = 1.0;
    h.fTxFreq = 16.0f;
    h.fRxArea = 1000.0f;
  }

  TransientBuilder& Times(std::initializer_list<R4> fTWCen) { return Set(&Transient::fTWCen, fTWCen); }
  TransientBuilder& Values(std::initializer_list<R4> fuVmag) { return Set(&Transient::fuVmag, fuVmag); }
  TransientBuilder& Errors_Percent(std::initializer_list<R4> fuVpct) { return Set(&Transient::fuVpct, fuVpct); }
  TransientBuilder& Resistivities(std::initializer_list<R4> fARes) { return Set(&Transient::fARes, fARes); }
  TransientBuilder& Station(R8 dStn) {
    h.dRxKvrStn = h.dRxStn = dStn;
    return *this;
  }
  TransientBuilder& Transmitter(R8 dStn) {
    h.dTxKvrStn = h.dTxStn = dStn;
    return *this;
  }
  TransientBuilder& Component(I4 iRxCmp) {
    h.iRxCmp = iRxCmp;
    return *this;
  }
  TransientBuilder& Frequency(R4 fTxFreq) {
    h.fTxFreq = fTxFreq;
    return *this;
  }

  operator Transient() const { return h; }

 private:
  TransientBuilder& Set(WindowValues Transient::*hValue, std::initializer_list<R4> fValue) {
    h.NTW = 0;
    for (const R4 f : fValue) (h.*hValue)(++h.NTW) = f;
    for (I4 I = 1; I <= h.NTW; ++I) {
      if (!Is_Present(h.fTWCen(I))) h.fTWCen(I) = static_cast<R4>(1 << (I - 1));
    }
    return *this;
  }

  Transient h;
};

/// An empty store, and reports that go to the log.
inline void Begin_Test() {
  bAutoErr = true;
  static_cast<void>(Log_Initialize("test"));
  TMD_Initialize();
}

/// Replaces the store.
inline void Load(std::initializer_list<Transient> hTransient) {
  Begin_Test();
  for (const Transient& h : hTransient) hTrn(++NTrn) = h;
}

/// The skip flags of transient j, "-" in use and "X" skipped.
inline std::string Skipped(I4 j) {
  std::string sFlags;
  for (I4 I = 1; I <= hTrn(j).NTW; ++I) sFlags += hTrn(j).bSkip(I) ? 'X' : '-';
  return sFlags;
}

}  // namespace quillan
