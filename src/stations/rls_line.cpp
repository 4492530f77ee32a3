#include "stations/rls_line.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "foundations/digit_sort.h"
#include "foundations/log_file.h"
#include "foundations/sort_util.h"
#include "foundations/str_write.h"
#include "foundations/text_file.h"

namespace quillan {

namespace {

constexpr R4 fPi = 3.14159274f;
constexpr R4 fRadian = 0.0174532924f;  // radians in a degree
constexpr R4 fDegree = 57.2957764f;    // degrees in a radian

// Weights, in units of the scatter.
constexpr R4 fHampelA = 1.5f;  // Huber's limit as well
constexpr R4 fHampelB = 3.5f;
constexpr R4 fHampelC = 8.0f;

constexpr R4 fGoodFit = 0.01f;        // of the spacing of the points: a fit that needs no weights
constexpr R4 fScaleLeast = 0.1f;      // unit of the scatter
constexpr R4 fStepStop = 0.001f;      // a step this small, alone or of the parameters, ends a loop
constexpr R4 fSegmentLeast = 0.001f;  // a shorter one has no direction
constexpr R4 fFirstDamping = 1.0E-6f;
constexpr R4 fDampingGrowth = 10.0f;
constexpr I4 MDamping = 6;     // tries of a step
constexpr I4 MIteration = 16;  // steps with one kind of weight

constexpr const char* sStepsHeader = "iMIter,iWgtType,fXS0,fYS0,fUazm,fRMS_DV,fRMS_dPV,";
constexpr EditForm fStepForm("(1P,G14.6E2)");

// Three parameters: the offset of the line's point from the mean of the points, east and north, and the azimuth in
// radians. Symmetric matrices are lower triangles by rows: element (I, J) stands at I (I - 1) / 2 + J.
constexpr I4 NP = 3;
constexpr I4 NN2 = NP * (NP + 1) / 2;
using Parameters = Array1<R4, NP>;
using Packed = Array1<R4, NN2>;

/// One fit: the points, their distances from the line and their weights. Index 0 is the first point.
struct FitRun {
  std::size_t ND = 0;
  std::vector<R4> fXS1, fYS1;        // the points
  R4 fXSavg = 0.0f, fYSavg = 0.0f;   // their mean
  R4 fDUinc = 1.0f;                  // their typical spacing
  R4 fUazm = 90.0f;                  // degrees, where the fit begins
  Parameters fPV{0.0f, 0.0f, 0.0f};  // the line
  std::vector<R4> fWd;               // weights of squared distances
  std::vector<R4> fDV;               // distances from the last line that was tried
  R4 fRMS_DV = 0.0f;                 // weighted misfit of that line
  R4 fRMS_dPV = 0.0f;                // size of the last step
};

R4 Sum(std::span<const R4> fItem) {
  R4 fSum = 0.0f;
  for (const R4 f : fItem) fSum += f;
  return fSum;
}

/// Root of the mean square of the parameters.
R4 RMS(const Parameters& fPV) {
  R4 fSum = 0.0f;
  for (const R4 f : fPV) fSum += f * f;
  return std::sqrt(fSum / R4{NP});
}

// ---- where the fit begins

/// Lengths and direction cosines of the segments that have a direction.
struct Segments {
  std::vector<R4> fLength, fDX, fDY;
  R4 fPath = 0.0f;  // length of all
};

Segments Segments_of(const FitRun& h) {
  Segments hSegment;
  for (std::vector<R4>* f : {&hSegment.fLength, &hSegment.fDX, &hSegment.fDY}) f->reserve(h.ND);
  for (std::size_t I = 0; I + 1 < h.ND; ++I) {
    const R4 fDXi = h.fXS1[I + 1] - h.fXS1[I];
    const R4 fDYi = h.fYS1[I + 1] - h.fYS1[I];
    const R4 fDRi = std::sqrt(fDYi * fDYi + fDXi * fDXi);
    hSegment.fPath += fDRi;
    if (!(fDRi > fSegmentLeast)) continue;
    hSegment.fLength.push_back(fDRi);
    hSegment.fDX.push_back(fDXi / fDRi);
    hSegment.fDY.push_back(fDYi / fDRi);
  }
  return hSegment;
}

R4 Robust_Mean(std::span<const R4> fItem) {
  return TaperedAlphaMean(static_cast<I4>(fItem.size()), fItem);
}

/// Points without a finite position say nothing of the line.
void Take_Points(FitRun& h, std::span<const R4> fXS, std::span<const R4> fYS) {
  h.fXS1.reserve(fXS.size());
  h.fYS1.reserve(fXS.size());
  for (std::size_t I = 0; I < fXS.size(); ++I) {
    if (!std::isfinite(fXS[I]) || !std::isfinite(fYS[I])) continue;
    h.fXS1.push_back(fXS[I]);
    h.fYS1.push_back(fYS[I]);
  }
  h.ND = h.fXS1.size();
}

/// Mean, direction and spacing of the points. Returns the status of LineFit_Get.
I4 LineFit_Initialize(FitRun& h) {
  if (h.ND < 1) return 2;
  const R4 fND = static_cast<R4>(h.ND);
  h.fXSavg = Sum(h.fXS1) / fND;
  h.fYSavg = Sum(h.fYS1) / fND;
  if (h.ND == 1) return 1;
  const Segments hSegment = Segments_of(h);
  h.fDUinc = hSegment.fPath / (fND - 1.0f);
  if (hSegment.fLength.empty()) return 1;
  h.fUazm = fDegree * std::atan2(Robust_Mean(hSegment.fDX), Robust_Mean(hSegment.fDY));
  h.fDUinc = Robust_Mean(hSegment.fLength);
  return 0;
}

// ---- one step

/// Signed distances of the points from a line.
void LineFit_Forward(FitRun& h, const Parameters& fPV) {
  const R4 fXS0 = h.fXSavg + fPV(1), fYS0 = h.fYSavg + fPV(2);
  const R4 fDVX = -std::cos(fPV(3)), fDVY = std::sin(fPV(3));
  for (std::size_t I = 0; I < h.ND; ++I) h.fDV[I] = (fXS0 - h.fXS1[I]) * fDVX + (fYS0 - h.fYS1[I]) * fDVY;
}

R4 LineFit_Error(const FitRun& h) {
  R4 fSum = 0.0f;
  for (std::size_t I = 0; I < h.ND; ++I) fSum += h.fDV[I] * h.fDV[I] * h.fWd[I];
  return std::sqrt(fSum / static_cast<R4>(h.ND));
}

/// The normal equations: matrix and right side.
struct Normal {
  Packed fAtA;
  Parameters fAtD;
};

/// From the derivatives of the distances by the three parameters. The sums run side by side, each in the order of the
/// points: one after the other they would wait for their own additions.
Normal Normal_Equations(const FitRun& h) {
  const R4 fXS0 = h.fXSavg + h.fPV(1), fYS0 = h.fYSavg + h.fPV(2);
  const R4 fSin = std::sin(h.fPV(3)), fCos = std::cos(h.fPV(3));
  const R4 fA1 = -fCos, fA2 = fSin;
  Normal hNormal{};
  for (std::size_t I = 0; I < h.ND; ++I) {
    const R4 fA3 = (fXS0 - h.fXS1[I]) * fSin + (fYS0 - h.fYS1[I]) * fCos;
    const R4 fA1W = fA1 * h.fWd[I], fA2W = fA2 * h.fWd[I], fA3W = fA3 * h.fWd[I];
    hNormal.fAtA(1) += fA1W * fA1;
    hNormal.fAtA(2) += fA2W * fA1;
    hNormal.fAtA(3) += fA2W * fA2;
    hNormal.fAtA(4) += fA3W * fA1;
    hNormal.fAtA(5) += fA3W * fA2;
    hNormal.fAtA(6) += fA3W * fA3;
    hNormal.fAtD(1) += fA1W * h.fDV[I];
    hNormal.fAtD(2) += fA2W * h.fDV[I];
    hNormal.fAtD(3) += fA3W * h.fDV[I];
  }
  for (R4& f : hNormal.fAtD) f = -f;
  return hNormal;
}

constexpr I4 Diagonal(I4 J) {
  return J * (J + 1) / 2;
}

/// Cholesky factor in the place of its matrix, the diagonal as reciprocals. False: the matrix is singular.
bool dLLt(Packed& fAm) {
  I4 P = 0;
  for (I4 I = 1; I <= NP; ++I) {
    const I4 Q = P + 1;
    I4 R = 0;
    for (I4 J = 1; J <= I; ++J) {
      R4 fX = fAm(P + 1);
      for (I4 K = Q; K <= P; ++K) {
        ++R;
        fX -= fAm(K) * fAm(R);
      }
      ++R;
      ++P;
      if (I != J) {
        fAm(P) = fX * fAm(R);
      } else if (!(fX > 0.0f)) {
        return false;
      } else {
        fAm(P) = 1.0f / std::sqrt(fX);
      }
    }
  }
  return true;
}

/// Solves with the factor: forward, then backward.
Parameters bLLt(const Packed& fLm, const Parameters& fYv) {
  Parameters fXv{};
  I4 P = 1;
  for (I4 I = 1; I <= NP; ++I) {
    R4 fX = fYv(I);
    for (I4 K = 1; K < I; ++K) fX -= fLm(P++) * fXv(K);
    fXv(I) = fX * fLm(P++);
  }
  for (I4 I = NP; I >= 1; --I) {
    I4 S = --P;
    R4 fX = fXv(I);
    for (I4 K = NP; K > I; --K) {
      fX -= fLm(S) * fXv(K);
      S -= K - 1;
    }
    fXv(I) = fX * fLm(S);
  }
  return fXv;
}

// The weights of a distance that is not negative. Both sides of each limit are computed, for a branch on scattered
// distances is guessed wrongly half the time.
R4 Huber(R4 fU) {
  return fHampelA / std::max(fU, fHampelA);
}

R4 Hampel(R4 fU) {
  const R4 fFar = fHampelA * (fHampelC - std::min(fU, fHampelC)) / (std::max(fU, fHampelB) * (fHampelC - fHampelB));
  return fU <= fHampelB ? Huber(fU) : fFar;
}

std::string Figure(R4 fValue) {
  return Str_Write_R4(fValue, fStepForm).str();
}

void Report_Worse_Try(I4 iRDamp, const FitRun& h, R4 fRMS_DV0) {
  LogErr({"LineFit_Iteration:Debug report:", "iRDamp=" + Str_Write_I4(iRDamp).str() +
                                                 ", fRMS_dPV=" + Figure(h.fRMS_dPV) + ", fRMS_DV0=" + Figure(fRMS_DV0) +
                                                 ", fRMS_DV=" + Figure(h.fRMS_DV)});
}

/// Takes a step that does not make the misfit worse, with as little damping as it needs. Where no try is better the
/// line stays, and the distances are those of the last try. A matrix that stays singular gives a step and misfit of 0.
void LineFit_Iteration(FitRun& h) {
  LineFit_Forward(h, h.fPV);
  const R4 fRMS_DV0 = LineFit_Error(h);
  const Normal hNormal = Normal_Equations(h);
  R4 fRDamp = 0.0f;
  for (I4 J = 1; J <= NP; ++J) fRDamp = std::max(fRDamp, hNormal.fAtA(Diagonal(J)));
  fRDamp *= fFirstDamping;
  h.fRMS_DV = h.fRMS_dPV = 0.0f;
  for (I4 iRDamp = 1; iRDamp <= MDamping; ++iRDamp, fRDamp *= fDampingGrowth) {
    Packed fAtA = hNormal.fAtA;
    for (I4 J = 1; J <= NP; ++J) fAtA(Diagonal(J)) += fRDamp;
    if (!dLLt(fAtA)) continue;
    const Parameters fdPV = bLLt(fAtA, hNormal.fAtD);
    h.fRMS_dPV = RMS(fdPV);
    Parameters fPV1 = h.fPV;
    for (I4 J = 1; J <= NP; ++J) fPV1(J) += fdPV(J);
    LineFit_Forward(h, fPV1);
    h.fRMS_DV = LineFit_Error(h);
    if (h.fRMS_DV <= fRMS_DV0) {
      h.fPV = fPV1;
      return;
    }
    if (h.fRMS_dPV < fStepStop) return;
    Report_Worse_Try(iRDamp, h, fRMS_DV0);
  }
}

// ---- steps with weights

void Note_Step(const FitRun& h, I4 iMIter, I4 iWgtType) {
  sLineFitSteps.append(Str_Write_I4(iMIter).trimmed()).append(",").append(Str_Write_I4(iWgtType).trimmed());
  for (const R4 fValue : {h.fXSavg + h.fPV(1), h.fYSavg + h.fPV(2), fDegree * h.fPV(3), h.fRMS_DV, h.fRMS_dPV})
    sLineFitSteps.append(",").append(Figure(fValue));
  sLineFitSteps += sLineEnd;
}

template <R4 fWgt_of(R4)>
void Set_Weights(FitRun& h, R4 fDVscale) {
  for (std::size_t I = 0; I < h.ND; ++I) {
    const R4 fWX = fWgt_of(std::abs(h.fDV[I] / fDVscale)) / h.fDUinc;
    h.fWd[I] = fWX * fWX;
  }
}

/// The unit of the scatter and the size of the parameters stay those of the fit without weights.
void Fit_with_Weights(FitRun& h) {
  sLineFitSteps = std::string(sStepsHeader).append(sLineEnd);
  const R4 fDVscale = std::max(fScaleLeast, h.fRMS_DV);
  const R4 fRMS_PV = RMS(h.fPV);
  constexpr void (*Set_by_Type[])(FitRun&, R4) = {Set_Weights<Huber>, Set_Weights<Hampel>};
  for (I4 iWgtType = 1; iWgtType <= 2; ++iWgtType) {
    for (I4 iMIter = 1; iMIter <= MIteration; ++iMIter) {
      Set_by_Type[iWgtType - 1](h, fDVscale);
      LineFit_Iteration(h);
      Note_Step(h, iMIter, iWgtType);
      if (h.fRMS_dPV < fRMS_PV * fStepStop || h.fRMS_dPV < fStepStop) break;
    }
  }
}

void Fit(FitRun& h) {
  h.fPV = {0.0f, 0.0f, fRadian * h.fUazm};
  h.fWd.assign(h.ND, 1.0f / (h.fDUinc * h.fDUinc));
  h.fDV.resize(h.ND);
  LineFit_Iteration(h);
  if (h.fRMS_DV >= fGoodFit) Fit_with_Weights(h);
}

/// Extent along the line, scatter across it.
LineFit Results_of(const FitRun& h) {
  LineFit hFit{.fXS0 = h.fXSavg + h.fPV(1), .fYS0 = h.fYSavg + h.fPV(2), .fUazm = fDegree * h.fPV(3)};
  const R4 fDUX = std::sin(h.fPV(3)), fDUY = std::cos(h.fPV(3));
  const R4 fDVX = -fDUY, fDVY = fDUX;
  R4 fDRdev = 0.0f;
  for (std::size_t I = 0; I < h.ND; ++I) {
    const R4 fDX = h.fXS1[I] - hFit.fXS0, fDY = h.fYS1[I] - hFit.fYS0;
    const R4 fDUi = fDX * fDUX + fDY * fDUY;
    const R4 fDVi = fDX * fDVX + fDY * fDVY;
    hFit.fUmin = std::min(hFit.fUmin, fDUi);
    hFit.fUmax = std::max(hFit.fUmax, fDUi);
    fDRdev += std::sqrt(fDUi * fDUi + fDVi * fDVi);
    hFit.fVdev += std::abs(fDVi);
  }
  if (fDRdev > 0.0f) hFit.fVnsr = 100.0f * std::sqrt(hFit.fVdev / fDRdev);
  hFit.fVdev /= static_cast<R4>(h.ND);
  hFit.fUazm = std::fmod(360.0f + hFit.fUazm, 360.0f);
  if (hFit.fUazm < 0.0f) hFit.fUazm += 360.0f;  // where the fit has turned the line more than once
  return hFit;
}

/// Squares of points that lie farther apart than any on the earth can leave R4.
bool Is_Finite(const LineFit& h) {
  const R4 fItem[] = {h.fXS0, h.fYS0, h.fUazm, h.fUmin, h.fUmax, h.fVdev, h.fVnsr};
  return std::ranges::all_of(fItem, [](R4 f) { return std::isfinite(f); });
}

}  // namespace

LineFit LineFit_Get(I4 NS, std::span<const R4> fXS, std::span<const R4> fYS) {
  FitRun h;
  const std::size_t N = Held_Count(NS, fXS, fYS);
  Take_Points(h, fXS.first(N), fYS.first(N));
  const I4 iError = LineFit_Initialize(h);
  if (iError == 0) Fit(h);
  const LineFit hFit =
      iError == 0 ? Results_of(h) : LineFit{.fXS0 = h.fXSavg, .fYS0 = h.fYSavg, .fUazm = h.fUazm, .iError = iError};
  return Is_Finite(hFit) ? hFit : LineFit{.fUazm = 90.0f, .iError = 1};
}

void LineFit_Write_Steps() {
  if (sLineFitSteps.empty()) return;
  TextWriter out(sLineFitFile);
  out.Put(sLineFitSteps);
  out.Commit();
  if (out.Has_Failed()) LogErr_File({"LineFit_Get.ERROR: unable to write", std::string(sLineFitFile), out.Reason()});
  sLineFitSteps.clear();
}

R4 TaperedAlphaMean(I4 ND, std::span<const R4> fDV) {
  const auto fUsed = fDV.first(Held_Count(ND, fDV));
  std::vector<std::uint32_t> iItem;
  iItem.reserve(fUsed.size());
  for (const R4 f : fUsed) {
    if (!std::isnan(f)) iItem.push_back(Ordered_Bits(f));
  }
  const std::size_t N = iItem.size();
  if (N < 1) return 0.0f;
  Digit_Sort(iItem, [](std::uint32_t i) { return i; });
  const std::size_t iMedian = (N + 1) / 2, iBeg = N / 4 + 1, iEnd = N - N / 4;
  const R4 fMedian = Real_of_Bits(iItem[iMedian - 1]);
  if (N < 4) return fMedian;
  const R4 fI0 = static_cast<R4>(N + 1) / 2.0f;
  const R4 fScale = fPi / static_cast<R4>(iMedian - iBeg + 1);
  R4 fSumWgt = 0.0f, fSum = 0.0f;
  for (std::size_t I = iBeg; I <= iEnd; ++I) {
    const R4 fWgt = 0.5f * (1.0f + std::cos((static_cast<R4>(I) - fI0) * fScale));
    fSumWgt += fWgt;
    fSum += fWgt * Real_of_Bits(iItem[I - 1]);
  }
  return fSumWgt > 0.0f ? fSum / fSumWgt : fMedian;
}

void XY2UV_Rotate(I4 NS, R4 fXY2UVdeg, R4 fXS0, R4 fYS0, std::span<const R4> fXS, std::span<const R4> fYS, R4 fUS0,
                  R4 fVS0, std::span<R4> fUS, std::span<R4> fVS) {
  const R4 fCos = std::cos(fXY2UVdeg * fRadian), fSin = std::sin(fXY2UVdeg * fRadian);
  const std::size_t N = Held_Count(NS, fXS, fYS, fUS, fVS);
  for (std::size_t I = 0; I < N; ++I) {
    const R4 fXX = fXS[I] - fXS0, fYY = fYS[I] - fYS0;
    fUS[I] = fXX * fCos + fUS0 + fYY * fSin;
    fVS[I] = -fXX * fSin + fVS0 + fYY * fCos;
  }
}

R4 fWgt_Huber(R4 fXS) {
  return Huber(std::abs(fXS));
}

R4 fWgt_Hampel(R4 fXS) {
  return Hampel(std::abs(fXS));
}

}  // namespace quillan
