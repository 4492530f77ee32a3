#include "metadata/ch_md.h"

#include <algorithm>

namespace quillan {

namespace {

using Ch = ChGroup;

constexpr R8 dMostI4 = 2147483647.0;

constexpr MdLimits hStation{-9.9E9, 9.9E9};
constexpr MdLimits hSerial{0, dMostI4};
constexpr MdLimits hChannels{1, MXChn, "{name} = {value} <{low} or >{high}"};
constexpr MdLimits hArea{1.0E-6, 9.9E9};
constexpr MdLimits hLength{0, 9.9E9};
constexpr MdLimits hBearing{-360, 360};
constexpr MdLimits hVolts{-10000, 10000};
constexpr MdLimits hAntScale{-9.9E9, 9.9E9, "{name} = {value} < {low} or > {high} uT/V"};
// Preamplifiers below 0.01 are told of only when they could not be real; sensors with a built-in divider lie between.
constexpr MdLimits hPreAmp{.dLow = 0.01, .dHigh = 9.9E9, .dTestLow = 1.0E-9};
constexpr MdLimits hGain{0.01, 9.9E9};
constexpr MdLimits hCodedGain{0.01, 1.0E9};
constexpr MdLimits hOhm{0, 1.0E9, "{name} = {value} < {low} or > {high} ohm"};
constexpr MdLimits hFarad{0, 1.0, "{name} = {value} < {low} or > {high} farads"};

I4 Channels_of(const MdRecord& hRecord) {
  return std::min(hRecord.NField(), MXChn);
}

bool Holds(std::string_view sText, char cWanted) {
  return sText.find(cWanted) != std::string_view::npos;
}

// Components and sensors.

constexpr MdRow<Ch> hCmpText{"CMP", &Ch::sCmp, &Ch::lCmp};
constexpr MdRow<Ch> hCmpCode{"CMP", &Ch::iCmp, &Ch::lCmp, &Ch::NErrCmp, CChnCmp, "Ch.Cmp"};

/// The number of components is the number of channels, unless a Ch.NumOn of a higher priority gave that.
void Read_Cmp(const MdRecord& hRecord, ChGroup& hChn, I4& IMERR) {
  if (hChn.lCmp > hRecord.iPriority) return;
  MD_Take_Row(hCmpText, hRecord, hChn, IMERR);
  MD_Take_Row(hCmpCode, hRecord, hChn, IMERR);
  if (MD_Passes(hRecord, hChn.lNChn)) hChn.NChn = Channels_of(hRecord);
}

/// The last sensor stands for the channels behind it too: a later record may count them again.
void Read_Sensor(const MdRecord& hRecord, ChGroup& hChn, I4& IMERR) {
  if (!MD_Passes(hRecord, hChn.lSensor)) return;
  const I4 NGiven = Channels_of(hRecord);
  for (I4 I = 1; I <= NGiven; ++I) {
    hChn.sSensor(I) = hRecord.sField(I);
    MD_Take_Sensor(hRecord, hRecord.sField(I), MD_Label("Ch.Sensor", I), hChn.iSensor(I), hChn.iAntSN(I), hChn.lAntSN,
                   IMERR);
  }
  for (I4 I = NGiven + 1; I <= hChn.NChn; ++I) hChn.iSensor(I) = hChn.iSensor(NGiven);
  hChn.NChn = NGiven;
}

constexpr MdRow<Ch> hAntScaleRow{
    "ANTSCALE",
    &Ch::fAntScale,
    &Ch::lAntScale,
    &Ch::NErrAntScale,
    1.0,
    hAntScale,
    {.sLabel = "Ch.AntScale", .NSet = &Ch::NChn}
};

/// A scale is a gain ahead of the preamplifier: its warnings count as warnings of that too.
void Read_AntScale(const MdRecord& hRecord, ChGroup& hChn, I4& IMERR) {
  const I4 NBefore = hChn.NErrAntScale;
  MD_Take_Row(hAntScaleRow, hRecord, hChn, IMERR);
  hChn.NErrPreAmp += hChn.NErrAntScale - NBefore;
}

// Places.

constexpr MdRule hPlaceRule{.hLimits = hStation};

template <I4 iVertex>
void Read_Tx(const MdRecord& hRecord, ChGroup& hChn, I4& IMERR) {
  if (!MD_Passes(hRecord, hChn.lTxXYZ(iVertex))) return;
  const std::string sLabel = "Ch.TX" + MD_Number(iVertex);
  for (I4 I = 1; I <= std::min(hRecord.NField(), 3); ++I) {
    MD_Take_Value(hRecord, hRecord.sField(I), MD_Label(sLabel, I), hPlaceRule, hChn.dTxXYZ(I, iVertex), hChn.NErrTxXYZ,
                  IMERR);
  }
}

template <I4 iVertex>
void Read_Rx(const MdRecord& hRecord, ChGroup& hChn, I4& IMERR) {
  if (!MD_Passes(hRecord, hChn.lRxXYZ(iVertex))) return;
  MD_Take_Channel_Points(hRecord, "Ch.RX" + MD_Number(iVertex), hPlaceRule, iVertex, hChn.dRxXYZ, hChn.NErrRxXYZ,
                         IMERR);
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
void Read_Gain(const MdRecord& hRecord, ChGroup& hChn, I4& IMERR) {
  if (!MD_Passes(hRecord, hChn.lGain)) return;
  hChn.lGainFactor = hRecord.iPriority;
  for (I4 I = 1; I <= Channels_of(hRecord); ++I) {
    I4 IOERR = 0;
    hChn.sGain(I) = hRecord.sField(I);
    Str_to_fChnGain(hRecord.sField(I), hChn.fGain(I), hChn.iGN.hColumn(I), hChn.iAttn(I), IOERR);
    if (IOERR != 0) IMERR = IOERR;
    MD_Check_Range(hRecord, MD_Label("Ch.Gain", I), hCodedGain, hChn.fGain(I), hChn.NErrGain);
  }
}

// Status codes.

I4 Bits(I4 iStatus, I4 iFirst, I4 NBit) {
  return static_cast<I4>((static_cast<std::uint32_t>(iStatus) >> iFirst) & ((1U << NBit) - 1U));
}

/// A channel whose status cannot be read keeps what it had.
void Read_Status(const MdRecord& hRecord, ChGroup& hChn, I4& IMERR) {
  if (!MD_Passes(hRecord, hChn.lStatus)) return;
  for (I4 I = 1; I <= Channels_of(hRecord); ++I) {
    I4 iFlag = 0, IOERR = 0;
    hChn.sStatus(I) = hRecord.sField(I);
    Str_to_iChnStatus(hRecord.sField(I), hChn.iCard(I), hChn.iRes(I), hChn.iAttn(I), hChn.iSat(I), hChn.iNotch(I),
                      hChn.iDSF(I), iFlag, IOERR);
    if (IOERR == 0) continue;
    IMERR = IOERR;
    MD_Warn({"Ch_MD_READ.Error while reading " + MD_Label("Ch.Status", I)}, hChn.NErrStatus);
  }
}

/// The name of the values of a channel keyword.
constexpr MdMore<Ch> Named(std::string_view sLabel) {
  return {.sLabel = sLabel};
}
/// The same for a keyword that tells the number of channels.
constexpr MdMore<Ch> Counting(std::string_view sLabel) {
  return {.sLabel = sLabel, .NSet = &Ch::NChn};
}

// clang-format off
constexpr MdRow<Ch> hChRow[] = {
    // keyword     value             priority          warnings             words, or blank and limits
    {"NUMON",      &Ch::NChn,        &Ch::lNChn,       &Ch::NErrNChn,       0, hChannels},
    {"CMP",        Read_Cmp,                           &Ch::NErrCmp},
    {"NUMBERTYPE", &Ch::iNumberType, &Ch::lNumberType, &Ch::NErrNumberType, CChNumberType, "Ch.NumberType"},
    {"STN",        &Ch::dStn,        &Ch::lStn,        &Ch::NErrStn,        0.0, hStation, Counting("Ch.Stn")},
    {"STNNAME",    &Ch::sStnName,    &Ch::lStnName},
    {"NUMBER",     &Ch::dNumber,     &Ch::lNumber,     &Ch::NErrNumber,     0.0, hStation, Counting("Ch.Number")},
    {"AREA",       &Ch::fArea,       &Ch::lArea,       &Ch::NErrArea,       0.0, hArea, Counting("Ch.Area")},
    {"LABID",      &Ch::iLabID,      &Ch::lLabID,      &Ch::NErrLabID,      0, hSerial, Named("Ch.LabID")},
    {"LABNAME",    &Ch::sLabName,    &Ch::lLabName},
    {"LABLENGTH",  &Ch::fLabLength,  &Ch::lLabLength,  &Ch::NErrLabLength,  1.0, hLength, Counting("Ch.LabLength")},
    {"LABAREA",    &Ch::fLabArea,    &Ch::lLabArea,    &Ch::NErrLabArea,    1.0, hLength, Counting("Ch.LabArea")},
    {"AZIMUTH",    &Ch::fAzm,        &Ch::lAzm,        &Ch::NErrAzm,        0.0, hBearing, Counting("Ch.Azimuth")},
    {"INCL",       &Ch::fInc,        &Ch::lInc,        &Ch::NErrInc,        0.0, {-90, 90}, Counting("Ch.Incl")},
    {"SENSOR",     Read_Sensor,                        &Ch::NErrAntNum},
    {"COIL",       &Ch::iAntSN,      &Ch::lAntSN,      &Ch::NErrAntNum,     0, hSerial, Counting("Ch.AntSN")},
    {"ANTSN",      &Ch::iAntSN,      &Ch::lAntSN,      &Ch::NErrAntNum,     0, hSerial, Counting("Ch.AntSN")},
    {"TX1",        Read_Tx<1>,                         &Ch::NErrTxXYZ},
    {"TX2",        Read_Tx<2>,                         &Ch::NErrTxXYZ},
    {"RX1",        Read_Rx<1>,                         &Ch::NErrRxXYZ},
    {"RX2",        Read_Rx<2>,                         &Ch::NErrRxXYZ},
    {"LAT",        &Ch::dLat,        &Ch::lLat,        &Ch::NErrLat,        0.0, {-90, 90}, Named("Ch.Lat")},
    {"LON",        &Ch::dLon,        &Ch::lLon,        &Ch::NErrLon,        0.0, {-180, 180}, Named("Ch.Lon")},
    {"LENGTH",     &Ch::fLength,     &Ch::lLength,     &Ch::NErrLength,     0.0, hLength, Counting("Ch.Length")},
    {"FACTOR",     &Ch::fFactor,     &Ch::lFactor,     &Ch::NErrFactor,     1.0, {1.0E-32, 9.9E9}, Named("Ch.Factor")},
    {"VMIN",       &Ch::fVmin,       &Ch::lVmin,       &Ch::NErrVmin,       0.0, hVolts, Named("Ch.Vmin")},
    {"VMAX",       &Ch::fVmax,       &Ch::lVmax,       &Ch::NErrVmax,       0.0, hVolts, Named("Ch.Vmax")},
    {"ANTSCALE",   Read_AntScale,                      &Ch::NErrAntScale},
    {"UNIT",       &Ch::sUnit,       &Ch::lUnit},
    {"PREAMP",     &Ch::fPreAmp,     &Ch::lPreAmp,     &Ch::NErrPreAmp,     1.0, hPreAmp, Named("Ch.PreAmp")},
    {"GAINFACTOR", &Ch::fGain,       &Ch::lGainFactor, &Ch::NErrGainFactor, 1.0, hGain, Named("Ch.GainFactor")},
    {"GAIN",       Read_Gain,                          &Ch::NErrGain},
    {"EXTGAIN",    &Ch::fExtGain,    &Ch::lExtGain,    &Ch::NErrExtGain,    1.0, {0.01, 10000}, Named("Ch.ExtGain")},
    {"STATUS",     Read_Status,                        &Ch::NErrStatus},
    {"NOTCH",      &Ch::sNotch,      &Ch::lNotch},
    {"HIGHPASS",   &Ch::sHighPass,   &Ch::lHighPass},
    {"LOWPASS",    &Ch::sLowPass,    &Ch::lLowPass},
    {"ALIAS",      &Ch::sAlias,      &Ch::lAlias,      Counting("Ch.Alias")},
    {"SP",         &Ch::fSP,         &Ch::lSP,         &Ch::NErrSP,         1.0, {-20000, 20000}, Named("Ch.SP")},
    {"CRES",       &Ch::fCRes,       &Ch::lCRes,       &Ch::NErrCRes,       1.0, hOhm, Named("Ch.CRes")},
    {"CCAP",       &Ch::fCCap,       &Ch::lCCap,       &Ch::NErrCCap,       1.0E-12, hFarad, Named("Ch.CCap")},
    {"SKIP",       &Ch::bSkip,       &Ch::lSkip,       &Ch::NErrSkip,       0, {}, Named("Ch.Skip")},
    {"FLIP",       &Ch::bFlip,       &Ch::lFlip,       &Ch::NErrFlip,       0, {}, Named("Ch.Flip")},
    {"KVRBOX",     &Ch::iKvrBox,     &Ch::lKvrBox,     &Ch::NErrKvrBox,     0, hSerial, Counting("Ch.KvrBox")},
    {"KVRSLOT",    &Ch::iKvrSlot,    &Ch::lKvrSlot,    &Ch::NErrKvrSlot,    0, hSerial, Named("Ch.KvrSlot")},
    {"ADCARDSN",   &Ch::sADCardSN,   &Ch::lCardSN},
};
// clang-format on

// Scale of a channel.

constexpr R4 fMostGain = 1.0E9f;

/// The code anew, with the attenuator mark that a status may have added to it; a channel without a readable code keeps
/// the gain that it has.
void Renew_Gain(ChGroup& hChn, I4 J) {
  if (hChn.iAttn(J) != 0 && !Holds(hChn.sGain(J).trimmed(), '-')) hChn.sGain(J) = hChn.sGain(J).str() + "-";
  R4 fGain = 1.0f;
  Array1<I4, 3> iGN{};
  I4 iAttn = 0, IOERR = 0;
  Str_to_fChnGain(hChn.sGain(J).trimmed(), fGain, iGN, iAttn, IOERR);
  if (IOERR == 0) hChn.fGain(J) = fGain;
}

}  // namespace

void Ch_MD_Initialize(ChGroup& hChn, bool bResetError) {
  MD_Initialize(hChRow, hChn, bResetError);
}

void Ch_MD_Read(const MdRecord& hRecord, ChGroup& hChn, const UnitGroup&, I4& IMERR) {
  MD_Read("Ch_MD_Read", hChRow, hRecord, hChn, IMERR);
}

void Ch_Set_fChnScale(ChGroup& hChn, std::span<R4> fChnScale, I4& IMERR) {
  IMERR = 0;
  std::ranges::fill(fChnScale, 1.0f);
  for (I4 J = 1; J <= std::min(hChn.NChn, static_cast<I4>(fChnScale.size())); ++J) {
    Renew_Gain(hChn, J);
    const R4 fGain = hChn.fGain(J);
    if (fGain > 0.0f && fGain <= fMostGain) {
      fChnScale[static_cast<std::size_t>(J - 1)] = hChn.fFactor(J) / (hChn.fPreAmp(J) * fGain * hChn.fExtGain(J));
    } else {
      LogErr({"Ch_Set_fChnScale.WARNING:",
              MD_Label("Ch.Gain", J) + " = " + MD_Number(fGain) + " <= 0 or > " + MD_Number(fMostGain)});
    }
  }
}

void Str_to_iChnStatus(std::string_view CFld, I4& iChCard, I4& iChRes, I4& iChAttn, I4& iChSat, I4& iChNotch,
                       I4& iChDSF, I4& iChFlag, I4& IOERR) {
  IOERR = 1;
  I4 iStatus = 0;
  if (Trimmed(CFld).empty() || !Free_Read(CFld, iStatus)) return;
  IOERR = 0;
  iChCard = Bits(iStatus, 0, 2);
  iChRes = Bits(iStatus, 2, 3);
  iChAttn = Bits(iStatus, 5, 1);
  iChSat = Bits(iStatus, 6, 2);
  iChNotch = Bits(iStatus, 8, 3);
  iChDSF = Bits(iStatus, 11, 1);
  iChFlag = Bits(iStatus, 12, 3);
}

void Str_to_fChnGain(std::string_view sChnGain, R4& fChnGain, Array1<I4, 3>& iGN, I4& iAttn, I4& IOERR) {
  IOERR = 0;
  fChnGain = 1.0f;
  iGN.fill(0);
  iAttn = 0;
  if (Trimmed(sChnGain).empty() || Holds(sChnGain, '*')) {
    IOERR = 1;
    return;
  }
  const Text<8> sCode = Str_UpCase(Left_Adjusted(sChnGain));
  const std::string_view CCode = sCode.trimmed();
  const std::size_t NStage = std::min(CCode.find('-'), CCode.size());
  for (I4 I = 1; I <= 3; ++I) {
    iGN(I) = Gain_Place(CCode.substr(0, NStage), I);
    fChnGain *= fRHEX(iGN(I));
  }
  const I4 iPlace = Gain_Place(CCode.substr(NStage), 2);  // place 1 is the "-"
  fChnGain /= fRHEX(iPlace);
  iAttn = iPlace == 1 ? 0 : iPlace;  // "-0" attenuates nothing
}

}  // namespace quillan
