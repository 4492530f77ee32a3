#include "metadata/ch_md.h"

#include <algorithm>

namespace quillan {

namespace {

using Ch = ChGroup;

constexpr MdLimits hStation{-9.9E9, 9.9E9};
constexpr MdLimits hSerial{0, 2147483647.0};
constexpr MdLimits hChannels{1, MXChn, "{name} = {value} < {low} or > {high}"};
constexpr MdLimits hArea{1.0E-6, 9.9E9};
constexpr MdLimits hLength{0, 9.9E9};
constexpr MdLimits hBearing{-360, 360};
constexpr MdLimits hVolts{-10000, 10000};
constexpr MdLimits hAntScale{-9.9E9, 9.9E9, "{name} = {value} < {low} or > {high} uT/V"};
// Preamplifiers below 0.01 are reported only when they could not be real; sensors with a built-in divider lie between.
constexpr MdLimits hPreAmp{.dLow = 0.01, .dHigh = 9.9E9, .dTestLow = 1.0E-9};
constexpr MdLimits hGain{0.01, 9.9E9};
constexpr MdLimits hCodedGain{0.01, 1.0E9};
constexpr MdLimits hOhm{0, 1.0E9, "{name} = {value} < {low} or > {high} ohm"};
constexpr MdLimits hFarad{0, 1.0, "{name} = {value} < {low} or > {high} farads"};

I4 Channels_of(const MdRecord& hRecord) {
  return std::min(hRecord.NField(), MXChn);
}

// Components and sensors.

constexpr MdRow<Ch> hCmpText{"CMP", MD_Into<&Ch::sCmp, &Ch::lCmp>};
constexpr MdRow<Ch> hCmpCode{"CMP", MD_Into<&Ch::iCmp, &Ch::lCmp, &Ch::NErrCmp>, CChnCmp, "Ch.Cmp"};

/// The number of components is the number of channels, unless a Ch.NumOn of a higher priority gave that.
I4 Read_Cmp(const MdRecord& hRecord, ChGroup& hChn) {
  if (hChn.lCmp > hRecord.iPriority) return 0;
  const I4 iText = MD_Take_Row(hCmpText, hRecord, hChn);
  if (MD_Passes(hRecord, hChn.lNChn)) hChn.NChn = Channels_of(hRecord);
  return MD_Status(iText, MD_Take_Row(hCmpCode, hRecord, hChn));
}

/// The last sensor stands for the channels after it too: a later record may count them again.
I4 Read_Sensor(const MdRecord& hRecord, ChGroup& hChn) {
  if (!MD_Passes(hRecord, hChn.lSensor)) return 0;
  I4 iStatus = 0;
  const I4 NGiven = Channels_of(hRecord);
  for (I4 I = 1; I <= NGiven; ++I) {
    hChn.sSensor(I) = hRecord.sField(I);
    iStatus = MD_Status(iStatus, MD_Take_Sensor(hRecord, hRecord.sField(I), MD_Label("Ch.Sensor", I), hChn.iSensor(I),
                                                hChn.iAntSN(I), hChn.lAntSN));
  }
  for (I4 I = NGiven + 1; I <= hChn.NChn; ++I) hChn.iSensor(I) = hChn.iSensor(NGiven);
  hChn.NChn = NGiven;
  return iStatus;
}

/// The name of the values of a keyword that tells the number of channels.
constexpr MdMore<Ch> Counts(std::string_view sLabel) {
  return {.sLabel = sLabel, .NSet = &Ch::NChn};
}

constexpr auto* hIntoAntScale = MD_Into<&Ch::fAntScale, &Ch::lAntScale, &Ch::NErrAntScale, ChGroup>;
constexpr MdRow<Ch> hAntScaleRow{"ANTSCALE", hIntoAntScale, 1.0, hAntScale, Counts("Ch.AntScale")};

/// A scale is a gain ahead of the preamplifier: its warnings count as warnings of that too.
I4 Read_AntScale(const MdRecord& hRecord, ChGroup& hChn) {
  const I4 NBefore = hChn.NErrAntScale;
  const I4 iStatus = MD_Take_Row(hAntScaleRow, hRecord, hChn);
  hChn.NErrPreAmp += hChn.NErrAntScale - NBefore;
  return iStatus;
}

// Places.

template <I4 iVertex>
I4 Read_Tx(const MdRecord& hRecord, ChGroup& hChn) {
  const std::string sLabel = "Ch.TX" + MD_Number(iVertex);
  return MD_Take_Fields(hRecord, MD_Elements(hChn.dTxXYZ.hColumn(iVertex)), MD_Elements(hChn.lTxXYZ, iVertex),
                        {.hLimits = hStation, .sLabel = sLabel}, hChn.NErrTxXYZ);
}

template <I4 iVertex>
I4 Read_Rx(const MdRecord& hRecord, ChGroup& hChn) {
  if (!MD_Passes(hRecord, hChn.lRxXYZ(iVertex))) return 0;
  const std::string sLabel = "Ch.RX" + MD_Number(iVertex);
  return MD_Take_Channel_Points(hRecord, sLabel, {.hLimits = hStation}, iVertex, hChn.dRxXYZ, hChn.NErrRxXYZ);
}

// Gain codes.

constexpr std::string_view CGainCode = "0123456A";
constexpr Array1<R4, 0, 8> fRHEX{
    {1.0f, 1.0f, 2.0f, 4.0f, 8.0f, 16.0f, 32.0f, 64.0f, 0.125f}
};

/// The place of a gain character, from 1; 0 for any other character, which amplifies once.
I4 Gain_Place(std::string_view CCode, I4 I) {
  if (I > static_cast<I4>(CCode.size())) return 0;
  const std::size_t K = CGainCode.find(CCode[static_cast<std::size_t>(I - 1)]);
  return K == std::string_view::npos ? 0 : static_cast<I4>(K) + 1;
}

/// The code also tells the gain that Ch.GainFactor would, so it takes that priority as well.
I4 Read_Gain(const MdRecord& hRecord, ChGroup& hChn) {
  if (!MD_Passes(hRecord, hChn.lGain)) return 0;
  hChn.lGainFactor = hRecord.iPriority;
  I4 iStatus = 0;
  for (I4 I = 1; I <= Channels_of(hRecord); ++I) {
    const ChnGain h = Str_to_fChnGain(hRecord.sField(I));
    hChn.sGain(I) = hRecord.sField(I);
    hChn.fGain(I) = h.fGain;
    hChn.iGN.hColumn(I) = h.iGN;
    hChn.iAttn(I) = h.iAttn;
    iStatus = MD_Status(iStatus, h.IOERR);
    MD_Check_Range(hRecord, MD_Label("Ch.Gain", I), hCodedGain, hChn.fGain(I), hChn.NErrGain);
  }
  return iStatus;
}

// Status codes.

I4 Bits(I4 iStatus, I4 iFirst, I4 NBit) {
  return static_cast<I4>((static_cast<std::uint32_t>(iStatus) >> iFirst) & ((1U << NBit) - 1U));
}

/// A channel whose status cannot be read keeps what it had.
I4 Read_Status(const MdRecord& hRecord, ChGroup& hChn) {
  if (!MD_Passes(hRecord, hChn.lStatus)) return 0;
  I4 iStatus = 0;
  for (I4 I = 1; I <= Channels_of(hRecord); ++I) {
    const ChnStatus h = Str_to_iChnStatus(hRecord.sField(I));
    hChn.sStatus(I) = hRecord.sField(I);
    if (h.IOERR != 0) {
      iStatus = h.IOERR;
      MD_Warn({"Ch_MD_READ.Error while reading " + MD_Label("Ch.Status", I)}, hChn.NErrStatus);
      continue;
    }
    hChn.iCard(I) = h.iCard;
    hChn.iRes(I) = h.iRes;
    hChn.iAttn(I) = h.iAttn;
    hChn.iSat(I) = h.iSat;
    hChn.iNotch(I) = h.iNotch;
    hChn.iDSF(I) = h.iDSF;
  }
  return iStatus;
}

// clang-format off
constexpr MdRow<Ch> hChRow[] = {
    // keyword             value             priority          warnings              words, or blank and limits
    {"NUMON",      MD_Into<&Ch::NChn,        &Ch::lNChn,       &Ch::NErrNChn>,       0, hChannels},
    {"CMP",        Read_Cmp},
    {"NUMBERTYPE", MD_Into<&Ch::iNumberType, &Ch::lNumberType, &Ch::NErrNumberType>, CChNumberType, "Ch.NumberType"},
    {"STN",        MD_Into<&Ch::dStn,        &Ch::lStn,        &Ch::NErrStn>,        0, hStation, Counts("Ch.Stn")},
    {"STNNAME",    MD_Into<&Ch::sStnName,    &Ch::lStnName>},
    {"NUMBER",     MD_Into<&Ch::dNumber,     &Ch::lNumber,     &Ch::NErrNumber>,     0, hStation, Counts("Ch.Number")},
    {"AREA",       MD_Into<&Ch::fArea,       &Ch::lArea,       &Ch::NErrArea>,       0, hArea, Counts("Ch.Area")},
    {"LABID",      MD_Into<&Ch::iLabID,      &Ch::lLabID,      &Ch::NErrLabID>,      0, hSerial, {"Ch.LabID"}},
    {"LABNAME",    MD_Into<&Ch::sLabName,    &Ch::lLabName>},
    {"LABLENGTH",  MD_Into<&Ch::fLabLength,  &Ch::lLabLength,  &Ch::NErrLabLength>,  1, hLength, Counts("Ch.LabLength")},
    {"LABAREA",    MD_Into<&Ch::fLabArea,    &Ch::lLabArea,    &Ch::NErrLabArea>,    1, hLength, Counts("Ch.LabArea")},
    {"AZIMUTH",    MD_Into<&Ch::fAzm,        &Ch::lAzm,        &Ch::NErrAzm>,        0, hBearing, Counts("Ch.Azimuth")},
    {"INCL",       MD_Into<&Ch::fInc,        &Ch::lInc,        &Ch::NErrInc>,        0, {-90, 90}, Counts("Ch.Incl")},
    {"SENSOR",     Read_Sensor},
    {"COIL",       MD_Into<&Ch::iAntSN,      &Ch::lAntSN,      &Ch::NErrAntNum>,     0, hSerial, Counts("Ch.AntSN")},
    {"ANTSN",      MD_Into<&Ch::iAntSN,      &Ch::lAntSN,      &Ch::NErrAntNum>,     0, hSerial, Counts("Ch.AntSN")},
    {"TX1",        Read_Tx<1>},
    {"TX2",        Read_Tx<2>},
    {"RX1",        Read_Rx<1>},
    {"RX2",        Read_Rx<2>},
    {"LAT",        MD_Into<&Ch::dLat,        &Ch::lLat,        &Ch::NErrLat>,        0, {-90, 90}, {"Ch.Lat"}},
    {"LON",        MD_Into<&Ch::dLon,        &Ch::lLon,        &Ch::NErrLon>,        0, {-180, 180}, {"Ch.Lon"}},
    {"LENGTH",     MD_Into<&Ch::fLength,     &Ch::lLength,     &Ch::NErrLength>,     0, hLength, Counts("Ch.Length")},
    {"FACTOR",     MD_Into<&Ch::fFactor,     &Ch::lFactor,     &Ch::NErrFactor>,     1, {1.0E-32, 9.9E9}, {"Ch.Factor"}},
    {"VMIN",       MD_Into<&Ch::fVmin,       &Ch::lVmin,       &Ch::NErrVmin>,       0, hVolts, {"Ch.Vmin"}},
    {"VMAX",       MD_Into<&Ch::fVmax,       &Ch::lVmax,       &Ch::NErrVmax>,       0, hVolts, {"Ch.Vmax"}},
    {"ANTSCALE",   Read_AntScale},
    {"UNIT",       MD_Into<&Ch::sUnit,       &Ch::lUnit>},
    {"PREAMP",     MD_Into<&Ch::fPreAmp,     &Ch::lPreAmp,     &Ch::NErrPreAmp>,     1, hPreAmp, {"Ch.PreAmp"}},
    {"GAINFACTOR", MD_Into<&Ch::fGain,       &Ch::lGainFactor, &Ch::NErrGainFactor>, 1, hGain, {"Ch.GainFactor"}},
    {"GAIN",       Read_Gain},
    {"EXTGAIN",    MD_Into<&Ch::fExtGain,    &Ch::lExtGain,    &Ch::NErrExtGain>,    1, {0.01, 10000}, {"Ch.ExtGain"}},
    {"STATUS",     Read_Status},
    {"NOTCH",      MD_Into<&Ch::sNotch,      &Ch::lNotch>},
    {"HIGHPASS",   MD_Into<&Ch::sHighPass,   &Ch::lHighPass>},
    {"LOWPASS",    MD_Into<&Ch::sLowPass,    &Ch::lLowPass>},
    {"ALIAS",      MD_Into<&Ch::sAlias,      &Ch::lAlias>, Counts("Ch.Alias")},
    {"SP",         MD_Into<&Ch::fSP,         &Ch::lSP,         &Ch::NErrSP>,         1, {-20000, 20000}, {"Ch.SP"}},
    {"CRES",       MD_Into<&Ch::fCRes,       &Ch::lCRes,       &Ch::NErrCRes>,       1, hOhm, {"Ch.CRes"}},
    {"CCAP",       MD_Into<&Ch::fCCap,       &Ch::lCCap,       &Ch::NErrCCap>,       1.0E-12, hFarad, {"Ch.CCap"}},
    {"SKIP",       MD_Into<&Ch::bSkip,       &Ch::lSkip,       &Ch::NErrSkip>,       0, {}, {"Ch.Skip"}},
    {"FLIP",       MD_Into<&Ch::bFlip,       &Ch::lFlip,       &Ch::NErrFlip>,       0, {}, {"Ch.Flip"}},
    {"KVRBOX",     MD_Into<&Ch::iKvrBox,     &Ch::lKvrBox,     &Ch::NErrKvrBox>,     0, hSerial, Counts("Ch.KvrBox")},
    {"KVRSLOT",    MD_Into<&Ch::iKvrSlot,    &Ch::lKvrSlot,    &Ch::NErrKvrSlot>,    0, hSerial, {"Ch.KvrSlot"}},
    {"ADCARDSN",   MD_Into<&Ch::sADCardSN,   &Ch::lCardSN>},
};
// clang-format on

}  // namespace

I4 Ch_MD_Read(const MdRecord& hRecord, ChGroup& hChn) {
  return MD_Read("Ch_MD_Read", hChRow, hRecord, hChn);
}

ChnStatus Str_to_iChnStatus(std::string_view CFld) {
  I4 iStatus = 0;
  if (Trimmed(CFld).empty() || !Free_Read(CFld, iStatus)) return {.IOERR = 1};
  return {.iCard = Bits(iStatus, 0, 2),
          .iRes = Bits(iStatus, 2, 3),
          .iAttn = Bits(iStatus, 5, 1),
          .iSat = Bits(iStatus, 6, 2),
          .iNotch = Bits(iStatus, 8, 3),
          .iDSF = Bits(iStatus, 11, 1),
          .iFlag = Bits(iStatus, 12, 3)};
}

ChnGain Str_to_fChnGain(std::string_view sChnGain) {
  if (Trimmed(sChnGain).empty() || sChnGain.find('*') != std::string_view::npos) return {.IOERR = 1};
  const Text<8> sCode = Str_UpCase(Left_Adjusted(sChnGain));
  const std::string_view CCode = sCode.trimmed();
  const std::size_t NStage = std::min(CCode.find('-'), CCode.size());
  ChnGain h;
  for (I4 I = 1; I <= 3; ++I) {
    h.iGN(I) = Gain_Place(CCode.substr(0, NStage), I);
    h.fGain *= fRHEX(h.iGN(I));
  }
  const I4 iPlace = Gain_Place(CCode.substr(NStage), 2);  // place 1 is the "-"
  h.fGain /= fRHEX(iPlace);
  h.iAttn = iPlace == 1 ? 0 : iPlace;  // "-0" attenuates nothing
  return h;
}

}  // namespace quillan
