#include "model/sound_data.h"

#include <algorithm>
#include <cmath>

#include "foundations/bytes.h"
#include "metadata/enm_data.h"

namespace quillan {
namespace {

/// Read as bytes: a flag that holds anything else must not even be looked at.
template <class Flags>
bool Are_Flags(const Flags& h) {
  return std::ranges::all_of(Bytes_of(h), [](char c) { return c == 0 || c == 1; });
}

/// A count from iLeast on, or a code, which counts from 1.
template <class Record>
struct WholeNumber {
  I4 Record::*hField;
  I4 iMost;
  I4 iLeast = 1;
};

template <class Record, std::size_t N>
bool Are_Within(const Record& h, const WholeNumber<Record> (&hRow)[N]) {
  return std::ranges::all_of(hRow, [&h](const WholeNumber<Record>& hOne) {
    return h.*hOne.hField >= hOne.iLeast && h.*hOne.hField <= hOne.iMost;
  });
}

template <class Values>
bool Are_Within(const Values& hValue, I4 iLeast, I4 iMost) {
  return std::ranges::all_of(hValue, [=](I4 iValue) { return iValue >= iLeast && iValue <= iMost; });
}

template <class Values>
bool Are_Numbers(const Values& hValue) {
  return std::ranges::none_of(hValue, [](auto dValue) { return std::isnan(dValue); });
}

constexpr WholeNumber<Transient> hTrnNumber[] = {
    {&Transient::NTW,        MTW,              0},
    {&Transient::iTWCfg,     MTrn,             0},
    {&Transient::iSection,   MTrn,             0},
    {&Transient::iRxCmp,     CChnCmp.iHigh,    1},
    {&Transient::iAcqMethod, CAcqMethod.iHigh, 1},
};

constexpr WholeNumber<Survey> hSurveyNumber[] = {
    {&Survey::iTemArray,   CTemArray.iHigh  },
    {&Survey::iLengthUnit, CLengthUnit.iHigh},
    {&Survey::iTimeUnit,   CTimeUnit.iHigh  },
    {&Survey::idBdtUnit,   CdBdTUnit.iHigh  },
    {&Survey::iBUnit,      CBunit.iHigh     },
    {&Survey::iEUnit,      CEUnit.iHigh     },
};

constexpr WholeNumber<AvgKeptLines> hKeptNumber[] = {
    {&AvgKeptLines::NAvgCmt, MAvgCmt, 0},
    {&AvgKeptLines::NAvgMde, MAvgMde, 0},
};

constexpr WholeNumber<WireLoop> hLoopNumber[] = {
    {&WireLoop::NTxUTMV, MTxUTMV, 0},
};

constexpr WholeNumber<SurveyGroup> hSurveyGroupNumber[] = {
    {&SurveyGroup::iAcqMethod,  CAcqMethod.iHigh },
    {&SurveyGroup::iType,       CSurveyType.iHigh},
    {&SurveyGroup::iTemArray,   CTemArray.iHigh  },
    {&SurveyGroup::iCsamtArray, CCsamtArray.iHigh},
    {&SurveyGroup::iIPArray,    CIPArray.iHigh   },
};

constexpr WholeNumber<UnitGroup> hUnitNumber[] = {
    {&UnitGroup::iLength,    CLengthUnit.iHigh},
    {&UnitGroup::iTime,      CTimeUnit.iHigh  },
    {&UnitGroup::iVmag,      CVUnit.iHigh     },
    {&UnitGroup::iEfield,    CEUnit.iHigh     },
    {&UnitGroup::iBfield,    CBunit.iHigh     },
    {&UnitGroup::iPhase,     CPhaseUnit.iHigh },
    {&UnitGroup::iPhaseSign, CPhaseSign.iHigh },
    {&UnitGroup::idBdt,      CdBdTUnit.iHigh  },
    {&UnitGroup::iRes,       CResUnit.iHigh   },
    {&UnitGroup::iIP,        CIPUnit.iHigh    },
};

constexpr WholeNumber<LineGroup> hLineNumber[] = {
    {&LineGroup::iType, CLineType.iHigh},
};

constexpr WholeNumber<KvrGroup> hKvrNumber[] = {
    {&KvrGroup::iType,         CKvrType.iHigh,   1},
    {&KvrGroup::NCard,         MKvrCard,         0},
    {&KvrGroup::iSignalSource, CKvrSigSrc.iHigh, 1},
    {&KvrGroup::iAcqMethod,    CAcqMethod.iHigh, 1},
    {&KvrGroup::iGainMode,     CGainMode.iHigh,  1},
};

constexpr WholeNumber<TxGroup> hTxNumber[] = {
    {&TxGroup::NXYZN, MTxXYZ, 0},
    {&TxGroup::NUTMN, MTxXYZ, 0},
};

constexpr WholeNumber<RxGroup> hRxNumber[] = {
    {&RxGroup::NXYZN, MRxXYZ, 0},
    {&RxGroup::NUTMN, MRxXYZ, 0},
};

constexpr WholeNumber<ChGroup> hChNumber[] = {
    {&ChGroup::NChn, MXChn, 0},
};

}  // namespace

bool Is_Sound(const Transient& h) {
  const R8 dSorted[] = {h.dRxKvrStn, h.dRxStn, h.dTxKvrStn, h.dTxStn, R8{h.fTxFreq}};
  return Are_Flags(h.bSkipTrn) && Are_Flags(h.bSkip) && Are_Within(h, hTrnNumber) && Are_Numbers(dSorted) &&
         Are_Numbers(h.fTWCen);
}

bool Is_Sound(const Survey& h) {
  return Are_Flags(h.bTxwFile) && Are_Within(h, hSurveyNumber);
}

bool Is_Sound(const AvgKeptLines& h) {
  return Are_Within(h, hKeptNumber);
}

bool Is_Sound(const WireLoop& h) {
  return Are_Within(h, hLoopNumber) && !std::isnan(h.dTxStn);
}

bool Is_Sound(const StationTable& h) {
  const auto Holds = [](I4 N, const auto&... hColumn) { return N >= 0 && ((N <= hColumn.NItem()) && ...); };
  if (!Holds(h.NStn, h.fStnS, h.fStnL, h.fStnX, h.fStnY, h.fStnZ, h.fStnH, h.fStnP, h.fStnR, h.fStnD, h.iMuxBox,
             h.iMuxChn) ||
      !Holds(h.NStnLine, h.dStnLine, h.iStnBeg, h.iStnEnd, h.hLineStat))
    return false;
  for (I4 K = 1; K <= h.NStnLine; ++K) {
    const I4 I1 = h.iStnBeg(K), I2 = h.iStnEnd(K), iType = h.hLineStat(K).iLineType;
    if (I1 < 1 || I2 < I1 || I2 > h.NStn || iType < iLineStraight || iType > iLinePoints) return false;
  }
  return true;
}

bool Is_Sound(const SurveyGroup& h) {
  return Are_Within(h, hSurveyGroupNumber);
}

bool Is_Sound(const UnitGroup& h) {
  return Are_Within(h, hUnitNumber);
}

bool Is_Sound(const LineGroup& h) {
  return Are_Within(h, hLineNumber);
}

bool Is_Sound(const KvrGroup& h) {
  return Are_Within(h, hKvrNumber);
}

bool Is_Sound(const TxGroup& h) {
  return Are_Within(h, hTxNumber);
}

bool Is_Sound(const RxGroup& h) {
  return Are_Within(h, hRxNumber) && Are_Within(h.NXYZNChn, 0, MXChn) && Are_Within(h.NUTMNChn, 0, MXChn);
}

bool Is_Sound(const ChGroup& h) {
  return Are_Within(h, hChNumber) && Are_Within(h.iCmp, 1, CChnCmp.iHigh) &&
         Are_Within(h.iNumberType, 1, CChNumberType.iHigh) && Are_Flags(h.bSkip) && Are_Flags(h.bFlip);
}

}  // namespace quillan
