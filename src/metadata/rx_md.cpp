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
void Take_Vertex(const MdRecord& hRecord, const RxVertexTarget& hTo, std::string_view sIndex, I4& IMERR) {
  I4 iVertex = 0;
  if (!MD_Passes_Vertex(hRecord, "Rx_MD_READ", sIndex, hTo.lVertex, hTo.NLast, iVertex, IMERR)) return;
  for (auto& dChannel : hTo.dVertex) dChannel.hColumn(iVertex).fill(0.0);
  hTo.NChn(iVertex) =
      MD_Take_Channel_Points(hRecord, hRecord.sName, hVertexRule, iVertex, hTo.dVertex, hTo.NWarn, IMERR);
}

void Read_XYZ(const MdRecord& hRecord, RxGroup& hRx, I4& IMERR) {
  Take_Vertex(hRecord, {hRx.dXYZN, hRx.NXYZNChn, hRx.lXYZN, hRx.NXYZN, hRx.NErrXYZN}, "Rx.XYZ* index value", IMERR);
}

void Read_UTM(const MdRecord& hRecord, RxGroup& hRx, I4& IMERR) {
  Take_Vertex(hRecord, {hRx.dUTMN, hRx.NUTMNChn, hRx.lUTMN, hRx.NUTMN, hRx.NErrUTMN}, "Rx.UTM* index value", IMERR);
}

void Read_Center(const MdRecord& hRecord, RxGroup& hRx, I4& IMERR) {
  MD_Take_Point(hRecord, {.hLimits = hStation, .sLabel = "Rx.Center"}, hRx.dUTMC, hRx.lUTMC, hRx.NErrUTMC, IMERR);
}

// Antenna.

// A length out of range is worse than none: apparent resistivities divide by it.
constexpr MdRule hLengthRule{
    .dDefault = 1.0,
    .hLimits = {.dLow = 0.01, .dHigh = 9.9E9, .sDone = "Values will not be used."},
    .iParse = Meters,
};

/// Reads element I. False when it is out of range; then it keeps its value and its priority.
bool Take_Length(const MdRecord& hRecord, I4 I, RxGroup& hRx, I4& IMERR) {
  const I4 NWarn = hRx.NErrLength;
  R4 fLength = 0.0f;
  MD_Take_Value(hRecord, hRecord.sField(I), MD_Label("Rx.Length", I), hLengthRule, fLength, hRx.NErrLength, IMERR);
  if (hRx.NErrLength > NWarn) return false;
  hRx.fLength(I) = fLength;
  hRx.lLength(I) = hRecord.iPriority;
  if (I == 1) hRx.fLength0 = fLength;
  return true;
}

/// One length stands for both sides.
void Read_Length(const MdRecord& hRecord, RxGroup& hRx, I4& IMERR) {
  const I4 NLength = std::min(hRecord.NField(), 2);
  const bool bBoth = NLength == 1 && hRx.lLength(1) <= hRecord.iPriority;
  for (I4 I = 1; I <= NLength; ++I) {
    if (hRx.lLength(I) > hRecord.iPriority) continue;
    if (!Take_Length(hRecord, I, hRx, IMERR)) return;
  }
  if (!bBoth) return;
  hRx.fLength(2) = hRx.fLength(1);
  hRx.lLength(2) = hRx.lLength(1);
}

constexpr R4 fLeastArea = 1.0E-6f;  // m^2; areas divide, but a coil wound the other way has a negative one

void Note_Last_Area(const MdRecord& hRecord, R4 fArea, RxGroup& hRx) {
  hRx.fArea0 = fArea;
  hRx.lArea0 = hRecord.iPriority;
}

/// A field that begins with "m" is the unit of the areas beside it: "100, 100, m^2".
void Read_Areas(const MdRecord& hRecord, RxGroup& hRx, I4& IMERR) {
  for (I4 I = 1; I <= std::min(hRecord.NField(), 3); ++I) {
    if (hRecord.sField(I).starts_with('m') || !MD_Passes(hRecord, hRx.lArea(I))) continue;
    MD_Take_Value(hRecord, hRecord.sField(I), MD_Label("Rx.Area", I), {.dDefault = 1.0}, hRx.fArea(I), hRx.NErrArea,
                  IMERR);
    if (std::abs(hRx.fArea(I)) < fLeastArea) hRx.fArea(I) = fLeastArea;
    Note_Last_Area(hRecord, hRx.fArea(I), hRx);
  }
}

template <I4 iElement>
void Read_Area(const MdRecord& hRecord, RxGroup& hRx, I4& IMERR) {
  if (!MD_Passes(hRecord, hRx.lArea(iElement))) return;
  MD_Take_Value(hRecord, hRecord.sField(1), hRecord.sName, {.dDefault = 1.0, .hLimits = hArea}, hRx.fArea(iElement),
                hRx.NErrArea, IMERR);
  Note_Last_Area(hRecord, hRx.fArea(iElement), hRx);
}

void Read_Sensor(const MdRecord& hRecord, RxGroup& hRx, I4& IMERR) {
  if (!MD_Passes(hRecord, hRx.lSensor)) return;
  hRx.sSensor = hRecord.sField(1);
  MD_Take_Sensor(hRecord, hRecord.sField(1), "Rx.Sensor", hRx.iSensor, hRx.iAntSN, hRx.lAntSN, IMERR);
}

constexpr MdMore<Rx> hAzimuth{.iParse = Azimuth};
constexpr MdMore<Rx> hHPR{.sLabel = "Rx.HPR", .iParse = Azimuth};
constexpr MdMore<Rx> hAntSN{.sLabel = "Rx.AntSN"};
constexpr MdMore<Rx> hAntScale{.sLabel = "Rx.AntScale"};
constexpr MdMore<Rx> hMeters{.iParse = Meters};

/// One element of an array has a keyword of its own.
constexpr MdMore<Rx> One_of(I4 iElement, MdParse iParse = Plain) {
  return {.iParse = iParse, .iElement = iElement};
}

// clang-format off
constexpr MdRow<Rx> hRxRow[] = {
    // keyword      value              priority           warnings              words, or blank and limits
    // A vertex keyword is told by what it holds, before all others. Rx.PltXYZ and Rx.PltUTM hold such a word but no
    // index, and are reported as vertices without one.
    {"*XYZ",        Read_XYZ,                             &Rx::NErrXYZN},
    {"*UTM",        Read_UTM,                             &Rx::NErrUTMN},
    {"KVRSTN",      &Rx::dKvrStn,      &Rx::lKvrStn,      &Rx::NErrKvrStn,      0.0, hStation},
    {"STN",         &Rx::dStn,         &Rx::lStn,         &Rx::NErrStn,         0.0, hStation},
    {"CENTER",      Read_Center,                          &Rx::NErrUTMC},
    {"EAST",        &Rx::dUTMC,        &Rx::lUTMC,        &Rx::NErrUTMC,        0.0, hStation, One_of(1)},
    {"NORTH",       &Rx::dUTMC,        &Rx::lUTMC,        &Rx::NErrUTMC,        0.0, hStation, One_of(2)},
    {"ELEV",        &Rx::dUTMC,        &Rx::lUTMC,        &Rx::NErrUTMC,        0.0, hStation, One_of(3)},
    {"DEPTH",       &Rx::dDepth,       &Rx::lDepth,       &Rx::NErrDepth,       0.0, hStation},
    {"HPR",         &Rx::fHPR,         &Rx::lHPR,         &Rx::NErrHPR,         90.0, hBearing, hHPR},
    {"XAZIMUTH",    &Rx::fHPR,         &Rx::lHPR,         &Rx::NErrHPR,         90.0, hBearing, One_of(1, Azimuth)},
    {"AZIMUTH",     &Rx::fAzm,         &Rx::lAzm,         &Rx::NErrAzm,         90.0, hBearing, hAzimuth},
    {"INCL",        &Rx::fIncl,        &Rx::lIncl,        &Rx::NErrIncl,        0.0, {-90, 90}},
    {"ASPACE",      &Rx::fASpace,      &Rx::lASpace,      &Rx::NErrASpace,      1.0, hLength, hMeters},
    {"SSPACE",      &Rx::fSSpace,      &Rx::lSSpace,      &Rx::NErrSSpace,      1.0, hLength},  // always metres
    {"LENGTH",      Read_Length,                          &Rx::NErrLength},
    {"LENGTHX",     &Rx::fLength,      &Rx::lLength,      &Rx::NErrLength,      1.0, hLength, One_of(1, Meters)},
    {"LENGTHY",     &Rx::fLength,      &Rx::lLength,      &Rx::NErrLength,      1.0, hLength, One_of(2, Meters)},
    {"AREA",        Read_Areas,                           &Rx::NErrArea},
    {"AREAX",       Read_Area<1>,                         &Rx::NErrArea},
    {"AREAY",       Read_Area<2>,                         &Rx::NErrArea},
    {"AREAZ",       Read_Area<3>,                         &Rx::NErrArea},
    {"NSPACE",      &Rx::fNsp,         &Rx::lNsp,         &Rx::NErrNsp,         0.0, {-990000, 990000}},
    {"CMP",         &Rx::sCmp,         &Rx::lCmp},
    {"SENSOR",      Read_Sensor,                          &Rx::NErrAntNum},
    {"ANTSN",       &Rx::iAntSN,       &Rx::lAntSN,       &Rx::NErrAntNum,      0, hSerial, hAntSN},
    {"ANTSCALE",    &Rx::fAntScale,    &Rx::lAntScale,    &Rx::NErrAntScale,    1.0, hStation, hAntScale},
    {"CNTRES",      &Rx::fCntRes,      &Rx::lCntRes,      &Rx::NErrCntRes,      0.0, hOhm},
    {"SETUPSTN",    &Rx::dSetupStn,    &Rx::lSetupStn,    &Rx::NErrSetupStn,    0.0, hStation},
    {"SETUPLENGTH", &Rx::fSetupLength, &Rx::lSetupLength, &Rx::NErrSetupLength, 0.0, {0, 1.0E9}, hMeters},
    {"WIRECAP",     &Rx::fWireCap,     &Rx::lWireCap,     &Rx::NErrWireCap,     0.0, hCapacitance},
    {"ANTDELAY",    &Rx::fAntDelay,    &Rx::lAntDelay,    &Rx::NErrAntDelay,    0.0, Usec(0, 1000000)},
    {"ALIASDELAY",  &Rx::fAliasDelay,  &Rx::lAliasDelay,  &Rx::NErrAliasDelay,  0.0, Usec(0, 1000000)},
    {"ADDELAY",     &Rx::fADDelay,     &Rx::lADDelay,     &Rx::NErrADDelay,     0.0, Usec(0, 1000000)},
    {"ADRAMP",      &Rx::fADRamp,      &Rx::lADRamp,      &Rx::NErrADRamp,      0.0, Usec(0, 10000)},
    {"T0DELAY",     &Rx::fT0Delay,     &Rx::lT0Delay,     &Rx::NErrT0Delay,     0.0, Usec(-10000, 10000)},
    // Receivers write these for themselves.
    {"RXLOC"},
    {"RYLOC"},
};
// clang-format on

}  // namespace

void Rx_MD_Initialize(RxGroup& hRx, bool bResetError) {
  MD_Initialize(hRxRow, hRx, bResetError);
}

void Rx_MD_Read(const MdRecord& hRecord, RxGroup& hRx, const UnitGroup& hUnit, I4& IMERR) {
  MdRecord hHere = hRecord;
  hHere.iLength = MD_Length_Unit(hRecord, hUnit.iLength);
  MD_Read("Rx_MD_Read", hRxRow, hHere, hRx, IMERR);
}

}  // namespace quillan
