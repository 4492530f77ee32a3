#include "metadata/tx_md.h"

#include <algorithm>
#include <cmath>

namespace quillan {

namespace {

using Tx = TxGroup;
using enum MdParse;

constexpr R8 dMostI4 = 2147483647.0;

constexpr MdLimits hStation{-9.9E9, 9.9E9};
constexpr MdLimits hBearing{-360, 360};
constexpr MdLimits hSide{0.01, 9.9E9, "{name} = {value} < {low} or > {high} m"};
constexpr MdLimits hArea{1.0E-6, 1.0E20, "{name} = {value} <= {low} or > {high} m^2", MdTest::AboveLow};
// Above a megohm a sense resistor is worth a look, but some files state an open circuit as 1.0E12, and it must stay.
constexpr MdLimits hSense{.dLow = 1.0E-6, .dHigh = 1.0E12, .dTestHigh = 1.0E6};
constexpr MdLimits hWaveform{4, dMostI4, "{name} = {value} < 4 or >{high}"};
constexpr MdLimits hMicroseconds{0, 10000};

// Corners.

struct TxVertices {
  Array2<R8, 3, 0, MTxXYZ>& dVertex;
  Array1<I4, 0, MTxXYZ>& lVertex;
  I4& NLast;
  I4& NWarn;
};

/// A corner is replaced as a whole: a coordinate that the record does not give becomes 0.
void Take_Vertex(const MdRecord& hRecord, const TxVertices& hTo, const MdLimits& hLimits, I4& IMERR) {
  I4 iVertex = 0;
  if (!MD_Passes_Vertex(hRecord, "Tx_MD_READ", "index value", hTo.lVertex, hTo.NLast, iVertex, IMERR)) return;
  Array1<R8, 3>& dPoint = hTo.dVertex.hColumn(iVertex);
  dPoint.fill(0.0);
  MD_Take_Point(hRecord, {.hLimits = hLimits}, dPoint, hTo.lVertex(iVertex), hTo.NWarn, IMERR);
}

constexpr MdLimits hCoordinate{-9.9E30, 9.9E30};

void Read_XYZ(const MdRecord& hRecord, TxGroup& hTx, I4& IMERR) {
  Take_Vertex(hRecord, {hTx.dXYZN, hTx.lXYZN, hTx.NXYZN, hTx.NErrXYZN}, hCoordinate, IMERR);
}

/// Points come from programs that hold a coordinate to the range of a station.
void Read_Point(const MdRecord& hRecord, TxGroup& hTx, I4& IMERR) {
  Take_Vertex(hRecord, {hTx.dXYZN, hTx.lXYZN, hTx.NXYZN, hTx.NErrXYZN}, hStation, IMERR);
}

void Read_UTM(const MdRecord& hRecord, TxGroup& hTx, I4& IMERR) {
  Take_Vertex(hRecord, {hTx.dUTMN, hTx.lUTMN, hTx.NUTMN, hTx.NErrUTMN}, hCoordinate, IMERR);
}

void Read_Center(const MdRecord& hRecord, TxGroup& hTx, I4& IMERR) {
  MD_Take_Point(hRecord, {.hLimits = hStation, .sLabel = "Tx.Center"}, hTx.dUTMC, hTx.lUTMC, hTx.NErrXYZC, IMERR);
}

// Sizes and drive.

constexpr MdRow<Tx> hLengthRow{
    "LENGTH", &Tx::fLength, &Tx::lLength, &Tx::NErrLength, 1.0, hSide, {.sLabel = "Tx.Length", .iParse = Meters}
};

/// One length makes a square.
void Read_Length(const MdRecord& hRecord, TxGroup& hTx, I4& IMERR) {
  const bool bSquare = hRecord.NField() == 1 && hTx.lLength(1) <= hRecord.iPriority;
  MD_Take_Row(hLengthRow, hRecord, hTx, IMERR);
  if (!bSquare) return;
  hTx.fLength(2) = hTx.fLength(1);
  hTx.lLength(2) = hTx.lLength(1);
}

constexpr R4 fMostFraction = 1.0001f;  // a duty cycle up to here is a fraction, not a percentage
constexpr MdLimits hDuty{0.01, 100};

void Read_Duty(const MdRecord& hRecord, TxGroup& hTx, I4& IMERR) {
  if (!MD_Passes(hRecord, hTx.lDuty)) return;
  Fld_to_R4(hRecord.At(hRecord.sName), hRecord.sField(1), 1.0f, hTx.fDuty, IMERR);
  if (hTx.fDuty <= fMostFraction) hTx.fDuty *= 100.0f;
  MD_Check_Range(hRecord, hRecord.sName, hDuty, hTx.fDuty, hTx.NErrDuty);
}

constexpr MdMore<Tx> hHPR{.sLabel = "Tx.HPR", .iParse = Azimuth};

/// One element of an array has a keyword of its own.
constexpr MdMore<Tx> One_of(I4 iElement, MdParse iParse = Plain) {
  return {.iParse = iParse, .iElement = iElement};
}

// clang-format off
constexpr MdRow<Tx> hTxRow[] = {
    // keyword    value           priority        warnings           words, or blank and limits
    // A vertex keyword is told by what it holds, before all others.
    {"*XYZ",      Read_XYZ,                       &Tx::NErrXYZN},
    {"*POINT",    Read_Point,                     &Tx::NErrXYZN},
    {"*UTM",      Read_UTM,                       &Tx::NErrUTMN},
    {"KVRSTN",    &Tx::dKvrStn,   &Tx::lKvrStn,   &Tx::NErrKvrStn,   0.0, hStation},
    {"STN",       &Tx::dStn,      &Tx::lStn,      &Tx::NErrStn,      0.0, hStation},
    {"CENTER",    Read_Center,                    &Tx::NErrXYZC},
    {"CENTERX",   &Tx::dUTMC,     &Tx::lUTMC,     &Tx::NErrXYZC,     0.0, hStation, One_of(1)},
    {"CENTERY",   &Tx::dUTMC,     &Tx::lUTMC,     &Tx::NErrXYZC,     0.0, hStation, One_of(2)},
    {"HPR",       &Tx::fHPR,      &Tx::lHPR,      &Tx::NErrHPR,      90.0, hBearing, hHPR},
    {"XAZIMUTH",  &Tx::fHPR,      &Tx::lHPR,      &Tx::NErrHPR,      90.0, hBearing, One_of(1, Azimuth)},
    {"AZIMUTH",   &Tx::fAzm,      &Tx::lAzm,      &Tx::NErrAzm,      90.0, hBearing, {.iParse = Azimuth}},
    {"INCL",      &Tx::fIncl,     &Tx::lIncl,     &Tx::NErrIncl,     0.0, {-90, 90}},
    {"LENGTH",    Read_Length,                    &Tx::NErrLength},
    {"LENGTHX",   &Tx::fLength,   &Tx::lLength,   &Tx::NErrLength,   1.0, hSide, One_of(1, Meters)},
    {"LENGTHY",   &Tx::fLength,   &Tx::lLength,   &Tx::NErrLength,   1.0, hSide, One_of(2, Meters)},
    {"AREA",      &Tx::fArea,     &Tx::lArea,     &Tx::NErrArea,     1.0, hArea},
    {"TURNS",     &Tx::NTurn,     &Tx::lTurn,     &Tx::NErrTurns,    1, {1, 1000}},
    {"SENSE",     &Tx::fShunt,    &Tx::lShunt,    &Tx::NErrShunt,    1.0, hSense, {.sLabel = "Tx.Sense"}},
    {"AMP",       &Tx::fAmp,      &Tx::lAmp,      &Tx::NErrAmp,      1.0, {-10000, 10000}},
    {"FREQ",      &Tx::fFreq,     &Tx::lFreq,     &Tx::NErrFreq,     1.0, {1.0E-6, 10000}},
    {"NWAVEFORM", &Tx::NWaveform, &Tx::lWaveform, &Tx::NErrWaveform, 0, hWaveform},
    {"NCYCLE",    &Tx::NCycle,    &Tx::lCycle,    &Tx::NErrCycle,    1, {1, dMostI4}},
    {"DUTY",      Read_Duty,                      &Tx::NErrDuty},
    {"DELAY",     &Tx::fDelay,    &Tx::lDelay,    &Tx::NErrDelay,    1.0, hMicroseconds},
    {"RAMP",      &Tx::fRamp,     &Tx::lRamp,     &Tx::NErrRamp,     1.0, hMicroseconds},
    {"TYPE",      &Tx::sType,     &Tx::lType},
    {"SN",        &Tx::sSN,       &Tx::lSN},
};
// clang-format on

// From corners to centre.

constexpr I4 iDerivedPriority = 3;     // of a value that the program works out itself
constexpr R4 fRadToDeg = 57.2957764f;  // degrees a radian, as the files of upstream programs were made with
constexpr R4 fLeastSide = 0.01f;       // m, corners nearer than this are one point

/// The least priority of the vertices 1..NUTMN; false when one of them was never read.
bool Vertex_Priority(const TxGroup& hTx, I4& iPriority) {
  iPriority = iDerivedPriority;
  for (I4 J = 1; J <= hTx.NUTMN; ++J) {
    if (hTx.lUTMN(J) < 1) return false;
    iPriority = std::min(iPriority, hTx.lUTMN(J));
  }
  return true;
}

void Set_Center(TxGroup& hTx, I4 iPriority) {
  for (I4 I = 1; I <= 3; ++I) {
    R8 dSum = 0.0;
    for (I4 J = 1; J <= hTx.NUTMN; ++J) dSum += hTx.dUTMN(I, J);
    hTx.dUTMC(I) = dSum / hTx.NUTMN;
  }
  hTx.lUTMC = iPriority;
}

void Set_Side_and_Azimuth(TxGroup& hTx, I4 iPriority) {
  const R4 fDX = static_cast<R4>(hTx.dUTMN(1, 2) - hTx.dUTMN(1, 1));
  const R4 fDY = static_cast<R4>(hTx.dUTMN(2, 2) - hTx.dUTMN(2, 1));
  const R4 fDR = std::sqrt(fDX * fDX + fDY * fDY);
  if (fDR <= fLeastSide || !std::isfinite(fDR)) return;  // nor can corners too far apart for the square be a loop
  const R4 fAzimuth = fRadToDeg * std::atan2(fDX, fDY);
  hTx.fLength.fill(fDR);
  hTx.lLength.fill(iPriority);
  hTx.fAzm = fAzimuth;
  hTx.lAzm = iPriority;
  hTx.fHPR(1) = fAzimuth;
  hTx.lHPR = iPriority;
}

}  // namespace

void Tx_MD_Initialize(TxGroup& hTx, bool bResetError) {
  MD_Initialize(hTxRow, hTx, bResetError);
}

void Tx_MD_Read(const MdRecord& hRecord, TxGroup& hTx, const UnitGroup& hUnit, I4& IMERR) {
  MdRecord hHere = hRecord;
  hHere.iLength = MD_Length_Unit(hRecord, hUnit.iLength);
  MD_Read("Tx_MD_Read", hTxRow, hHere, hTx, IMERR);
}

void Tx_MD_UTMN_to_UTMC(TxGroup& hTx, I4& IMERR) {
  IMERR = 0;
  if (hTx.NUTMN < 2) return;
  I4 iPriority = 0;
  if (!Vertex_Priority(hTx, iPriority)) {
    IMERR = 1;
    return;
  }
  Set_Center(hTx, iPriority);
  Set_Side_and_Azimuth(hTx, iPriority);
}

}  // namespace quillan
