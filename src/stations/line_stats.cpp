#include "stations/line_stats.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "foundations/pn_intrp.h"
#include "foundations/sort_util.h"
#include "stations/rls_line.h"

namespace quillan {

namespace {

constexpr R4 fRadian = 0.0174532924f;  // radians in a degree
constexpr R4 fStepLeast = 0.001f;      // a smaller step of station numbers has no scale
constexpr R4 fScaleLeast = 1.0E-6f;    // of stations: points that differ in depth alone have no distance on the ground
constexpr R8 dLineNear = 0.001;        // line numbers that are one
constexpr R8 dLineSpacings = 100.0;    // the same for the quality of a look-up
constexpr R4 fMeanderNoise = 10.0f;    // percent
constexpr R4 fPointsScatter = 0.25f;   // of the scale of the stations

/// The points of a line.
struct LinePoints {
  I4 NSL;
  std::span<const R4> fStnS, fStnX, fStnY, fStnZ, fStnD;
};

LinePoints Points_of(I4 iLine) {
  const I4 I1 = hStn.iStnBeg(iLine), I2 = hStn.iStnEnd(iLine);
  const StationTable& h = hStn;
  return {I2 - I1 + 1,           h.fStnS.Items(I1, I2), h.fStnX.Items(I1, I2),
          h.fStnY.Items(I1, I2), h.fStnZ.Items(I1, I2), h.fStnD.Items(I1, I2)};
}

void Take_Fit(const LinePoints& hPoint, LineStat& h) {
  const LineFit hFit = LineFit_Get(hPoint.NSL, hPoint.fStnX, hPoint.fStnY);
  h.fStnX0 = hFit.fXS0;
  h.fStnY0 = hFit.fYS0;
  h.fStnUazm = hFit.fUazm;
  h.fUmin = hFit.fUmin;
  h.fUmax = hFit.fUmax;
  h.fVdev = hFit.fVdev;
  h.fVnsr = hFit.fVnsr;
}

void Take_Steps(const LinePoints& hPoint, LineStat& h) {
  const StepStats hStep = Stn_Inc_Stats(hPoint.NSL, hPoint.fStnS, hPoint.fStnX, hPoint.fStnY);
  h.fDSmed = hStep.fDSmed;
  h.fdUdSmed = hStep.fdUdSmed;
  h.fdUdSdev = hStep.fdUdSdev;
}

/// The median of the distance along the line, in stations.
R4 Median_Station(const LinePoints& hPoint, const LineStat& h) {
  const R4 fdUdX = std::sin(h.fStnUazm * fRadian);
  const R4 fdUdY = std::cos(h.fStnUazm * fRadian);
  const R4 fScale = std::max(h.fdUdSmed, fScaleLeast);
  std::vector<R4> fU;
  fU.reserve(hPoint.fStnX.size());
  for (std::size_t I = 0; I < hPoint.fStnX.size(); ++I)
    fU.push_back(((hPoint.fStnX[I] - h.fStnX0) * fdUdX + (hPoint.fStnY[I] - h.fStnY0) * fdUdY) / fScale);
  const I4 K = (hPoint.NSL + 1) / 2;
  return SelectK_R4(K, hPoint.NSL, fU) == 0 ? fU[static_cast<std::size_t>(K - 1)] : fDummy;
}

void Widen(std::span<const R4> fItem, R4& fMin, R4& fMax) {
  for (const R4 f : fItem) {
    fMin = std::min(fMin, f);
    fMax = std::max(fMax, f);
  }
}

void Take_Ranges(const LinePoints& hPoint, StationRanges& h) {
  Widen(hPoint.fStnS, h.fSSmin, h.fSSmax);
  Widen(hPoint.fStnX, h.fSXmin, h.fSXmax);
  Widen(hPoint.fStnY, h.fSYmin, h.fSYmax);
  Widen(hPoint.fStnZ, h.fSZmin, h.fSZmax);
  Widen(hPoint.fStnD, h.fSDmin, h.fSDmax);
}

/// Scatter of the distances says more than scatter about the line.
I4 Type_of(const LineStat& h) {
  if (h.fdUdSdev > fPointsScatter * h.fdUdSmed) return iLinePoints;
  return h.fVnsr > fMeanderNoise ? iLineMeander : iLineStraight;
}

bool Is_on_Line(R8 dLineK, I4 iLine) {
  return std::abs(dLineK - hStn.dStnLine(iLine)) < dLineSpacings * Spacing(dLineK);
}

/// The item of rank K, from 1; fItem is left in another order.
R4 Ranked(I4 K, std::vector<R4>& fItem) {
  static_cast<void>(SelectK_R4(K, static_cast<I4>(fItem.size()), fItem));
  return fItem[static_cast<std::size_t>(K - 1)];
}

R4 Mean_Deviation(std::span<const R4> fItem, R4 fCentre) {
  R4 fSum = 0.0f;
  for (const R4 f : fItem) fSum += std::abs(f - fCentre);
  return fSum / static_cast<R4>(fItem.size());
}

}  // namespace

void Stn_Line_Stats() {
  if (hStn.NStn < 2) return;
  for (I4 iLine = 1; iLine <= hStn.NStnLine; ++iLine) {
    const LinePoints hPoint = Points_of(iLine);
    LineStat& h = hStn.hLineStat(iLine);
    Take_Fit(hPoint, h);
    Take_Steps(hPoint, h);
    h.fStnS0 = Median_Station(hPoint, h);
    Take_Ranges(hPoint, h);
    h.iLineType = Type_of(h);
  }
  LineFit_Write_Steps();
}

StepStats Stn_Inc_Stats(I4 NSD, std::span<const R4> fSD, std::span<const R4> fXD, std::span<const R4> fYD) {
  StepStats hStep;
  const std::size_t N = Held_Count(NSD, fSD, fXD, fYD);
  if (N < 2) return hStep;
  std::vector<R4> fStep, fScale;
  fStep.reserve(N);
  fScale.reserve(N);
  for (std::size_t I = 0; I + 1 < N; ++I) {
    const R4 fDX = fXD[I + 1] - fXD[I], fDY = fYD[I + 1] - fYD[I];
    const R4 fDS = std::abs(fSD[I + 1] - fSD[I]);
    const R4 fDU = std::sqrt(fDX * fDX + fDY * fDY);
    fStep.push_back(fDS);
    if (fDS >= fStepLeast && std::isfinite(fDU)) fScale.push_back(fDU / fDS);
  }
  hStep.fDSmed = Ranked(static_cast<I4>(N + 1) / 2, fStep);
  if (fScale.empty()) return hStep;
  hStep.fdUdSmed = Ranked((static_cast<I4>(fScale.size()) + 1) / 2, fScale);
  hStep.fdUdSdev = Mean_Deviation(fScale, hStep.fdUdSmed);
  return hStep;
}

LineWeights Stn_Line_Wgt(R8 dLineK) {
  LineWeights h;
  const I4 NStnLine = hStn.NStnLine;
  if (NStnLine < 1) {
    h.iError = 1;
    return h;
  }
  h.iLine1 = 1;
  if (NStnLine == 1) {
    h.iQLine = Is_on_Line(dLineK, 1) ? iOnPoint : iBeyondTable;
    return h;
  }
  const I4 JLO = Hunt_Bracket_R8(NStnLine, std::as_const(hStn.dStnLine).Items(1, NStnLine), dLineK);
  h.iLine1 = std::clamp(JLO, 1, NStnLine - 1);
  h.iLine2 = h.iLine1 + 1;
  if (JLO < 1) {
    h.iQLine = Is_on_Line(dLineK, 1) ? iOnPoint : iBeyondTable;
  } else if (JLO >= NStnLine) {
    h.iQLine = Is_on_Line(dLineK, NStnLine) ? iOnPoint : iBeyondTable;
  } else {
    h.iQLine = Is_on_Line(dLineK, h.iLine1) || Is_on_Line(dLineK, h.iLine2) ? iOnPoint : iBetweenPoints;
  }
  const R8 dLine1 = hStn.dStnLine(h.iLine1);
  h.fWgtL2 = static_cast<R4>((dLineK - dLine1) / (hStn.dStnLine(h.iLine2) - dLine1));
  h.fWgtL1 = 1.0f - h.fWgtL2;
  return h;
}

I4 Stn_Line_Match(R8 dLineK) {
  for (I4 iLine = 1; iLine <= hStn.NStnLine; ++iLine) {
    if (std::abs(dLineK - hStn.dStnLine(iLine)) < dLineNear) return iLine;
  }
  return 0;
}

void Stn_Heading_Update() {
  if (hStn.NStn < 2) return;
  for (I4 iLine = 1; iLine <= hStn.NStnLine; ++iLine) {
    const LineStat& h = hStn.hLineStat(iLine);
    if (h.iLineType != iLineStraight) continue;
    for (R4& fStnH : hStn.fStnH.Items(hStn.iStnBeg(iLine), hStn.iStnEnd(iLine))) fStnH = h.fStnUazm;
  }
}

}  // namespace quillan
