#include "metadata/rx_md.h"

#include <algorithm>
#include <cmath>

namespace quillan {

namespace {

using Rx = RxGroup;
using enum MdParse;

constexpr MdLimits hStation{-9.9E9, 9.9E9};
constexpr MdLimits hBearing{-360, 360};
constexpr MdLimits hLength{0.01, 9.9E9};
constexpr MdLimits hArea{1.0E-6, 9.9E9, "{name} = {value} < {low} or > {high} m^2"};
constexpr MdLimits hSerial{0, 2147483647.0};
constexpr MdLimits hOhm{0, 1.0E32, "{name} = {value} < {low} or > {high} ohm"};
constexpr MdLimits hCapacitance{-10000, 10000, "{name} = {value} < {low} or > {high} pF/m"};

/// A time, in the unit that its warning names.
constexpr MdLimits Usec(R8 dLow, R8 dHigh) {
  return {dLow, dHigh, "{name} = {value} < {low} or > {high} usec"};
}

// Places.

struct RxVertexTarget {
  RxVertices& dVertex;
  Array1<I4, 0, MRxXYZ>& NChn;
  Array1<I4, 0, MRxXYZ>& lVertex;
  I4& NLast;
  I4& NWarn;
};

constexpr MdRule hVertexRule{
    .hLimits = {-9.9E30, 9.9E30}
};

/// A vertex is replaced for all channels: what the record does not give becomes 0.
I4 Take_Vertex(const MdRecord& hRecord, const RxVertexTarget& hTo, std::string_view sIndex) {
  I4 iVertex = 0;
  const I4 iStatus = MD_Vertex_Index(hRecord, "Rx_MD_READ", sIndex, MRxXYZ, iVertex, hTo.NWarn);
  if (iStatus != 0 || !MD_Passes(hRecord, hTo.lVertex(iVertex))) return iStatus;
  hTo.NLast = iVertex;
  hTo.NChn(iVertex) = MD_Channels_of_Points(hRecord);
  for (auto& dChannel : hTo.dVertex) dChannel.hColumn(iVertex).fill(0.0);
  return MD_Take_Channel_Points(hRecord, hRecord.sName, hVertexRule, iVertex, hTo.dVertex, hTo.NWarn);
}

I4 Read_XYZ(const MdRecord& hRecord, RxGroup& hRx) {
  return Take_Vertex(hRecord, {hRx.dXYZN, hRx.NXYZNChn, hRx.lXYZN, hRx.NXYZN, hRx.NErrXYZN}, "Rx.XYZ* index value");
}

I4 Read_UTM(const MdRecord& hRecord, RxGroup& hRx) {
  return Take_Vertex(hRecord, {hRx.dUTMN, hRx.NUTMNChn, hRx.lUTMN, hRx.NUTMN, hRx.NErrUTMN}, "Rx.UTM* index value");
}

I4 Read_Center(const MdRecord& hRecord, RxGroup& hRx) {
  return MD_Take_Point(hRecord, {.hLimits = hStation, .sLabel = "Rx.Center"}, hRx.dUTMC, hRx.lUTMC, hRx.NErrUTMC);
}

// Antenna.

// A length out of range is worse than none: apparent resistivities divide by it.
constexpr MdRule hLengthRule{
    .dDefault = 1.0,
    .hLimits = {.dLow = 0.01, .dHigh = 9.9E9, .sDone = "Values will not be used."},
    .iParse = Meters,
};

/// One length stands for both sides. A length out of range ends the record: it, and what follows it, keep their values
/// and their priorities.
I4 Read_Length(const MdRecord& hRecord, RxGroup& hRx) {
  const I4 NLength = std::min(hRecord.NField(), 2);
  const bool bBoth = NLength == 1 && hRx.lLength(1) <= hRecord.iPriority;
  I4 iStatus = 0;
  for (I4 I = 1; I <= NLength; ++I) {
    if (hRx.lLength(I) > hRecord.iPriority) continue;
    const I4 NWarn = hRx.NErrLength;
    R4 fLength = 0.0f;
    iStatus = MD_Status(iStatus, MD_Take_Value(hRecord, hRecord.sField(I), MD_Label("Rx.Length", I), hLengthRule,
                                               fLength, hRx.NErrLength));
    if (hRx.NErrLength > NWarn) return iStatus;
    hRx.fLength(I) = fLength;
    hRx.lLength(I) = hRecord.iPriority;
    if (I == 1) hRx.fLength0 = fLength;
  }
  if (bBoth) {
    hRx.fLength(2) = hRx.fLength(1);
    hRx.lLength(2) = hRx.lLength(1);
  }
  return iStatus;
}

constexpr R4 fLeastArea = 1.0E-6f;  // m^2; areas divide, but a coil wound the other way has a negative one

void Note_Last_Area(const MdRecord& hRecord, R4 fArea, RxGroup& hRx) {
  hRx.fArea0 = fArea;
  hRx.lArea0 = hRecord.iPriority;
}

/// A field that begins with "m" is the unit of the areas beside it: "100, 100, m^2".
I4 Read_Areas(const MdRecord& hRecord, RxGroup& hRx) {
  I4 iStatus = 0;
  for (I4 I = 1; I <= std::min(hRecord.NField(), 3); ++I) {
    if (hRecord.sField(I).starts_with('m') || !MD_Passes(hRecord, hRx.lArea(I))) continue;
    iStatus = MD_Status(iStatus, MD_Take_Value(hRecord, hRecord.sField(I), MD_Label("Rx.Area", I), {.dDefault = 1.0},
                                               hRx.fArea(I), hRx.NErrArea));
    if (std::abs(hRx.fArea(I)) < fLeastArea) hRx.fArea(I) = fLeastArea;
    Note_Last_Area(hRecord, hRx.fArea(I), hRx);
  }
  return iStatus;
}

template <I4 iElement>
I4 Read_Area(const MdRecord& hRecord, RxGroup& hRx) {
  if (!MD_Passes(hRecord, hRx.lArea(iElement))) return 0;
  R4& fArea = hRx.fArea(iElement);
  const MdRule hRule{.dDefault = 1.0, .hLimits = hArea};
  const I4 iStatus = MD_Take_Value(hRecord, hRecord.sField(1), hRecord.sName, hRule, fArea, hRx.NErrArea);
  Note_Last_Area(hRecord, fArea, hRx);
  return iStatus;
}

I4 Read_Sensor(const MdRecord& hRecord, RxGroup& hRx) {
  if (!MD_Passes(hRecord, hRx.lSensor)) return 0;
  hRx.sSensor = hRecord.sField(1);
  return MD_Take_Sensor(hRecord, hRecord.sField(1), "Rx.Sensor", hRx.iSensor, hRx.iAntSN, hRx.lAntSN);
}

constexpr MdMore<Rx> hXAzimuth{.iParse = Azimuth, .iElement = 1};
constexpr MdMore<Rx> hAzimuth{.iParse = Azimuth};
constexpr MdMore<Rx> hHPR{.sLabel = "Rx.HPR", .iParse = Azimuth};
constexpr MdMore<Rx> hAntSN{.sLabel = "Rx.AntSN"};
constexpr MdMore<Rx> hAntScale{.sLabel = "Rx.AntScale"};
constexpr MdMore<Rx> hMeters{.iParse = Meters};
constexpr MdMore<Rx> hInX{.iParse = Meters, .iElement = 1};
constexpr MdMore<Rx> hInY{.iParse = Meters, .iElement = 2};

/// One element of an array has a keyword of its own.
constexpr MdMore<Rx> One_of(I4 iElement, MdParse iParse = Plain) {
  return {.iParse = iParse, .iElement = iElement};
}

// clang-format off
constexpr MdRow<Rx> hRxRow[] = {
    // keyword              value              priority           warnings               words, or blank and limits
    // A vertex keyword is known by what it holds, before all others. Rx.PltXYZ and Rx.PltUTM hold such a word but no
    // index, and are reported as vertices without one.
    {"*XYZ",        Read_XYZ},
    {"*UTM",        Read_UTM},
    {"KVRSTN",      MD_Into<&Rx::dKvrStn,      &Rx::lKvrStn,      &Rx::NErrKvrStn>,      0.0, hStation},
    {"STN",         MD_Into<&Rx::dStn,         &Rx::lStn,         &Rx::NErrStn>,         0.0, hStation},
    {"CENTER",      Read_Center},
    {"EAST",        MD_Into<&Rx::dUTMC,        &Rx::lUTMC,        &Rx::NErrUTMC>,        0.0, hStation, One_of(1)},
    {"NORTH",       MD_Into<&Rx::dUTMC,        &Rx::lUTMC,        &Rx::NErrUTMC>,        0.0, hStation, One_of(2)},
    {"ELEV",        MD_Into<&Rx::dUTMC,        &Rx::lUTMC,        &Rx::NErrUTMC>,        0.0, hStation, One_of(3)},
    {"DEPTH",       MD_Into<&Rx::dDepth,       &Rx::lDepth,       &Rx::NErrDepth>,       0.0, hStation},
    {"HPR",         MD_Into<&Rx::fHPR,         &Rx::lHPR,         &Rx::NErrHPR>,         90.0, hBearing, hHPR},
    {"XAZIMUTH",    MD_Into<&Rx::fHPR,         &Rx::lHPR,         &Rx::NErrHPR>,         90.0, hBearing, hXAzimuth},
    {"AZIMUTH",     MD_Into<&Rx::fAzm,         &Rx::lAzm,         &Rx::NErrAzm>,         90.0, hBearing, hAzimuth},
    {"INCL",        MD_Into<&Rx::fIncl,        &Rx::lIncl,        &Rx::NErrIncl>,        0.0, {-90, 90}},
    {"ASPACE",      MD_Into<&Rx::fASpace,      &Rx::lASpace,      &Rx::NErrASpace>,      1.0, hLength, hMeters},
    {"SSPACE",      MD_Into<&Rx::fSSpace,      &Rx::lSSpace,      &Rx::NErrSSpace>,      1.0, hLength},  // always metres
    {"LENGTH",      Read_Length},
    {"LENGTHX",     MD_Into<&Rx::fLength,      &Rx::lLength,      &Rx::NErrLength>,      1.0, hLength, hInX},
    {"LENGTHY",     MD_Into<&Rx::fLength,      &Rx::lLength,      &Rx::NErrLength>,      1.0, hLength, hInY},
    {"AREA",        Read_Areas},
    {"AREAX",       Read_Area<1>},
    {"AREAY",       Read_Area<2>},
    {"AREAZ",       Read_Area<3>},
    {"NSPACE",      MD_Into<&Rx::fNsp,         &Rx::lNsp,         &Rx::NErrNsp>,         0.0, {-990000, 990000}},
    {"CMP",         MD_Into<&Rx::sCmp,         &Rx::lCmp>},
    {"SENSOR",      Read_Sensor},
    {"ANTSN",       MD_Into<&Rx::iAntSN,       &Rx::lAntSN,       &Rx::NErrAntNum>,      0, hSerial, hAntSN},
    {"ANTSCALE",    MD_Into<&Rx::fAntScale,    &Rx::lAntScale,    &Rx::NErrAntScale>,    1.0, hStation, hAntScale},
    {"CNTRES",      MD_Into<&Rx::fCntRes,      &Rx::lCntRes,      &Rx::NErrCntRes>,      0.0, hOhm},
    {"SETUPSTN",    MD_Into<&Rx::dSetupStn,    &Rx::lSetupStn,    &Rx::NErrSetupStn>,    0.0, hStation},
    {"SETUPLENGTH", MD_Into<&Rx::fSetupLength, &Rx::lSetupLength, &Rx::NErrSetupLength>, 0.0, {0, 1.0E9}, hMeters},
    {"WIRECAP",     MD_Into<&Rx::fWireCap,     &Rx::lWireCap,     &Rx::NErrWireCap>,     0.0, hCapacitance},
    {"ANTDELAY",    MD_Into<&Rx::fAntDelay,    &Rx::lAntDelay,    &Rx::NErrAntDelay>,    0.0, Usec(0, 1000000)},
    {"ALIASDELAY",  MD_Into<&Rx::fAliasDelay,  &Rx::lAliasDelay,  &Rx::NErrAliasDelay>,  0.0, Usec(0, 1000000)},
    {"ADDELAY",     MD_Into<&Rx::fADDelay,     &Rx::lADDelay,     &Rx::NErrADDelay>,     0.0, Usec(0, 1000000)},
    {"ADRAMP",      MD_Into<&Rx::fADRamp,      &Rx::lADRamp,      &Rx::NErrADRamp>,      0.0, Usec(0, 10000)},
    {"T0DELAY",     MD_Into<&Rx::fT0Delay,     &Rx::lT0Delay,     &Rx::NErrT0Delay>,     0.0, Usec(-10000, 10000)},
    // Receivers write these for themselves.
    {"RXLOC"},
    {"RYLOC"},
};
// clang-format on

}  // namespace

I4 Rx_MD_Read(const MdRecord& hRecord, RxGroup& hRx) {
  return MD_Read("Rx_MD_Read", hRxRow, hRecord, hRx);
}

}  // namespace quillan
