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
constexpr MdLimits hWaveform{4, dMostI4, "{name} = {value} < 4 or > {high}"};
constexpr MdLimits hMicroseconds{0, 10000};

// Corners.

struct TxVertices {
  Array2<R8, 3, 0, MTxXYZ>& dVertex;
  Array1<I4, 0, MTxXYZ>& lVertex;
  I4& NLast;
  I4& NWarn;
};

/// A corner is replaced as a whole: a coordinate that the record does not give becomes 0.
I4 Take_Vertex(const MdRecord& hRecord, const TxVertices& hTo, const MdLimits& hLimits) {
  I4 iVertex = 0;
  const I4 iStatus = MD_Vertex_Index(hRecord, "Tx_MD_READ", "index value", MTxXYZ, iVertex, hTo.NWarn);
  if (iStatus != 0 || !MD_Passes(hRecord, hTo.lVertex(iVertex))) return iStatus;
  hTo.NLast = iVertex;
  Array1<R8, 3>& dPoint = hTo.dVertex.hColumn(iVertex);
  dPoint.fill(0.0);
  return MD_Take_Point(hRecord, {.hLimits = hLimits}, dPoint, hTo.lVertex(iVertex), hTo.NWarn);
}

constexpr MdLimits hCoordinate{-9.9E30, 9.9E30};

I4 Read_XYZ(const MdRecord& hRecord, TxGroup& hTx) {
  return Take_Vertex(hRecord, {hTx.dXYZN, hTx.lXYZN, hTx.NXYZN, hTx.NErrXYZN}, hCoordinate);
}

/// Points come from programs that hold a coordinate to the range of a station.
I4 Read_Point(const MdRecord& hRecord, TxGroup& hTx) {
  return Take_Vertex(hRecord, {hTx.dXYZN, hTx.lXYZN, hTx.NXYZN, hTx.NErrXYZN}, hStation);
}

I4 Read_UTM(const MdRecord& hRecord, TxGroup& hTx) {
  return Take_Vertex(hRecord, {hTx.dUTMN, hTx.lUTMN, hTx.NUTMN, hTx.NErrUTMN}, hCoordinate);
}

I4 Read_Center(const MdRecord& hRecord, TxGroup& hTx) {
  return MD_Take_Point(hRecord, {.hLimits = hStation, .sLabel = "Tx.Center"}, hTx.dUTMC, hTx.lUTMC, hTx.NErrXYZC);
}

// Sizes and drive.

constexpr MdMore<Tx> hBothSides{.sLabel = "Tx.Length", .iParse = Meters};
constexpr MdRow<Tx> hLengthRow{"LENGTH", MD_Into<&Tx::fLength, &Tx::lLength, &Tx::NErrLength>, 1.0, hSide, hBothSides};

/// One length makes a square.
I4 Read_Length(const MdRecord& hRecord, TxGroup& hTx) {
  const bool bSquare = hRecord.NField() == 1 && hTx.lLength(1) <= hRecord.iPriority;
  const I4 iStatus = MD_Take_Row(hLengthRow, hRecord, hTx);
  if (bSquare) {
    hTx.fLength(2) = hTx.fLength(1);
    hTx.lLength(2) = hTx.lLength(1);
  }
  return iStatus;
}

constexpr R4 fMostFraction = 1.0001f;  // a duty cycle up to here is a fraction, not a percentage
constexpr MdLimits hDuty{0.01, 100};

I4 Read_Duty(const MdRecord& hRecord, TxGroup& hTx) {
  if (!MD_Passes(hRecord, hTx.lDuty)) return 0;
  const I4 iStatus = Fld_to_R4(hRecord.At(hRecord.sName), hRecord.sField(1), 1.0f, hTx.fDuty);
  if (hTx.fDuty <= fMostFraction) hTx.fDuty *= 100.0f;
  MD_Check_Range(hRecord, hRecord.sName, hDuty, hTx.fDuty, hTx.NErrDuty);
  return iStatus;
}

constexpr MdMore<Tx> hHPR{.sLabel = "Tx.HPR", .iParse = Azimuth};

/// One element of an array has a keyword of its own.
constexpr MdMore<Tx> One_of(I4 iElement, MdParse iParse = Plain) {
  return {.iParse = iParse, .iElement = iElement};
}

// clang-format off
constexpr MdRow<Tx> hTxRow[] = {
    // keyword            value           priority        warnings            words, or blank and limits
    // A vertex keyword is known by what it holds, before all others.
    {"*XYZ",      Read_XYZ},
    {"*POINT",    Read_Point},
    {"*UTM",      Read_UTM},
    {"KVRSTN",    MD_Into<&Tx::dKvrStn,   &Tx::lKvrStn,   &Tx::NErrKvrStn>,   0.0, hStation},
    {"STN",       MD_Into<&Tx::dStn,      &Tx::lStn,      &Tx::NErrStn>,      0.0, hStation},
    {"CENTER",    Read_Center},
    {"CENTERX",   MD_Into<&Tx::dUTMC,     &Tx::lUTMC,     &Tx::NErrXYZC>,     0.0, hStation, One_of(1)},
    {"CENTERY",   MD_Into<&Tx::dUTMC,     &Tx::lUTMC,     &Tx::NErrXYZC>,     0.0, hStation, One_of(2)},
    {"HPR",       MD_Into<&Tx::fHPR,      &Tx::lHPR,      &Tx::NErrHPR>,      90.0, hBearing, hHPR},
    {"XAZIMUTH",  MD_Into<&Tx::fHPR,      &Tx::lHPR,      &Tx::NErrHPR>,      90.0, hBearing, One_of(1, Azimuth)},
    {"AZIMUTH",   MD_Into<&Tx::fAzm,      &Tx::lAzm,      &Tx::NErrAzm>,      90.0, hBearing, {.iParse = Azimuth}},
    {"INCL",      MD_Into<&Tx::fIncl,     &Tx::lIncl,     &Tx::NErrIncl>,     0.0, {-90, 90}},
    {"LENGTH",    Read_Length},
    {"LENGTHX",   MD_Into<&Tx::fLength,   &Tx::lLength,   &Tx::NErrLength>,   1.0, hSide, One_of(1, Meters)},
    {"LENGTHY",   MD_Into<&Tx::fLength,   &Tx::lLength,   &Tx::NErrLength>,   1.0, hSide, One_of(2, Meters)},
    {"AREA",      MD_Into<&Tx::fArea,     &Tx::lArea,     &Tx::NErrArea>,     1.0, hArea},
    {"TURNS",     MD_Into<&Tx::NTurn,     &Tx::lTurn,     &Tx::NErrTurns>,    1, {1, 1000}},
    {"SENSE",     MD_Into<&Tx::fShunt,    &Tx::lShunt,    &Tx::NErrShunt>,    1.0, hSense, {.sLabel = "Tx.Sense"}},
    {"AMP",       MD_Into<&Tx::fAmp,      &Tx::lAmp,      &Tx::NErrAmp>,      1.0, {-10000, 10000}},
    {"FREQ",      MD_Into<&Tx::fFreq,     &Tx::lFreq,     &Tx::NErrFreq>,     1.0, {1.0E-6, 10000}},
    {"NWAVEFORM", MD_Into<&Tx::NWaveform, &Tx::lWaveform, &Tx::NErrWaveform>, 0, hWaveform},
    {"NCYCLE",    MD_Into<&Tx::NCycle,    &Tx::lCycle,    &Tx::NErrCycle>,    1, {1, dMostI4}},
    {"DUTY",      Read_Duty},
    {"DELAY",     MD_Into<&Tx::fDelay,    &Tx::lDelay,    &Tx::NErrDelay>,    1.0, hMicroseconds},
    {"RAMP",      MD_Into<&Tx::fRamp,     &Tx::lRamp,     &Tx::NErrRamp>,     1.0, hMicroseconds},
    {"TYPE",      MD_Into<&Tx::sType,     &Tx::lType>},
    {"SN",        MD_Into<&Tx::sSN,       &Tx::lSN>},
};
// clang-format on

// From corners to centre.

constexpr R4 fRadToDeg = 57.2957764f;  // degrees a radian, as the files of upstream programs were made with
constexpr R4 fLeastSide = 0.01f;       // m, corners nearer than this are one point

/// The least priority of the vertices 1..NUTMN, at most that of a derived value; 0 when one of them was never read.
I4 Vertex_Priority(const TxGroup& hTx) {
  I4 iPriority = iPriorityDerived;
  for (I4 J = 1; J <= hTx.NUTMN; ++J) iPriority = std::min(iPriority, hTx.lUTMN(J));
  return iPriority;
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

I4 Tx_MD_Read(const MdRecord& hRecord, TxGroup& hTx) {
  return MD_Read("Tx_MD_Read", hTxRow, hRecord, hTx);
}

I4 Tx_MD_UTMN_to_UTMC(TxGroup& hTx) {
  if (hTx.NUTMN < 2) return 0;
  const I4 iPriority = Vertex_Priority(hTx);
  if (iPriority < 1) return 1;
  Set_Center(hTx, iPriority);
  Set_Side_and_Azimuth(hTx, iPriority);
  return 0;
}

}  // namespace quillan
