// review_bench.cpp: the plots of the reviews, each against its ready-made coordinates.
#include <limits>
#include <vector>

#include "benches.h"
#include "picture_floor.h"
#include "review/qcc_plot.h"
#include "review/qcs_plot.h"
#include "toolkit/draw/draw.h"
#include "toolkit/draw/plot_axes.h"
#include "toolkit/window/window.h"

namespace quillan {
namespace {

constexpr I4 iTypeDecay = 1;

struct AreaSize {
  I4 NWidth, NHeight;  // pixels
};
constexpr AreaSize hSmall{1200, 900};
constexpr AreaSize hLarge{3840, 2160};

// The section and what it shows. Show_Section fills it.
PlotRange hShown;

/// Puts the section on the screen, at a size.
bool Show_Section(const AreaSize& hSize) {
  Size_Drawing_Area(hSize.NWidth, hSize.NHeight);
  Put_Store(hBench.hSection);
  if (QCS_Allocate() != 0 || NSection != 1) return false;
  const auto hRange = QCS_Section_Initialize(1, iTypeDecay);
  if (!hRange) return false;
  hShown = *hRange;
  const I4 iError = QCS_Section_Plot(1, iTypeDecay, hShown);
  IGrFlush();
  return iError == 0;
}

/// Graphics units of the section in pixels.
struct PixelMap {
  AreaSize hSize;
  R8 X(R4 fXGr) const { return R8{fXGr} / R8{fXCMU} * hSize.NWidth; }
  R8 Y(R4 fYGr) const { return (1.0 - R8{fYGr} / R8{fYCMU}) * hSize.NHeight; }
};

void Add_Points(const PixelMap& hMap, PictureFloor& hFloor) {
  QCS_Visit_Points(hShown, [&](const SectionPoint& h) {
    const GrPoint hGr = IPgUnitsToGrUnits(h.fX, h.fY);
    hFloor.Add_Disc(hMap.X(hGr.fX), hMap.Y(hGr.fY), h.bSkip);
  });
}

void Add_Joins(const PixelMap& hMap, PictureFloor& hFloor) {
  R4 fXLast = std::numeric_limits<R4>::lowest();
  QCS_Visit_Joins(hShown, [&](R4 fX1, R4 fY1, R4 fX2, R4 fY2) {
    const GrPoint h1 = IPgUnitsToGrUnits(fX1, fY1), h2 = IPgUnitsToGrUnits(fX2, fY2);
    if (fX1 < fXLast) hFloor.Begin_Batch();
    fXLast = fX1;
    hFloor.Add_Line(hMap.X(h1.fX), hMap.Y(h1.fY), hMap.X(h2.fX), hMap.Y(h2.fY));
  });
}

void Floor_Section(benchmark::State& state, const AreaSize& hSize) {
  if (!Show_Section(hSize)) return state.SkipWithError("there is no section");
  WGrTextFont(0.0039249f, 0.0118921f);  // of the markers
  const R8 dEm = R8{InfoGraphics(iCharHeight)} / R8{fYCMU} * hSize.NHeight;
  PictureFloor hFloor(hSize.NWidth, hSize.NHeight, dDrawing_Ratio(), dEm);
  Add_Points({hSize}, hFloor);
  Add_Joins({hSize}, hFloor);
  for (auto _ : state) hFloor.Draw();
}

void Draw_Section(benchmark::State& state, const AreaSize& hSize) {
  if (!Show_Section(hSize)) return state.SkipWithError("there is no section");
  for (auto _ : state) {
    benchmark::DoNotOptimize(QCS_Section_Plot(1, iTypeDecay, hShown));
    IGrFlush();
  }
}

// ---- one transient

void Show_Curve() {
  QCC_Plot_Initialize(1, iTypeDecay);
  QCC_Plot_Trns();
}

bool Begin_Curve(const AreaSize& hSize) {
  Size_Drawing_Area(hSize.NWidth, hSize.NHeight);
  Put_Store(hBench.hSection);
  Show_Curve();
  return hCurve.NPobs == MTW;
}

/// A line to the next point, an error bar and a letter each.
void Add_Curve(const AreaSize& hSize, PictureFloor& hFloor) {
  constexpr R8 dBar = 0.005;  // of the height
  R8 dXLast = 0.0, dYLast = 0.0;
  for (I4 I = 1; I <= hCurve.NPobs; ++I) {
    const GrPoint h = IPgUnitsToGrUnits(hCurve.fXPobs(I), hCurve.fYPobs(I));
    const R8 dX = R8{h.fX - fCurveGrXMin} / R8{fCurveGrXMax - fCurveGrXMin} * hSize.NWidth;
    const R8 dY = R8{fCurveGrYMax - h.fY} / R8{fCurveGrYMax - fCurveGrYMin} * hSize.NHeight;
    if (I > 1) hFloor.Add_Line(dXLast, dYLast, dX, dY);
    hFloor.Add_Line(dX, dY - dBar * hSize.NHeight, dX, dY + dBar * hSize.NHeight);
    hFloor.Add_Letter(dX, dY);
    dXLast = dX;
    dYLast = dY;
  }
}

void Floor_Curve(benchmark::State& state, const AreaSize& hSize) {
  if (!Begin_Curve(hSize)) return state.SkipWithError("the curve is not whole");
  PictureFloor hFloor(hSize.NWidth, hSize.NHeight, dDrawing_Ratio(), 0.018816 * hSize.NHeight);
  Add_Curve(hSize, hFloor);
  for (auto _ : state) hFloor.Draw();
}

void Draw_Curve(benchmark::State& state, const AreaSize& hSize) {
  if (!Begin_Curve(hSize)) return state.SkipWithError("the curve is not whole");
  for (auto _ : state) Show_Curve();
}

}  // namespace

void Floor_Section_Small(benchmark::State& state) {
  Floor_Section(state, hSmall);
}

void Bench_Section_Small(benchmark::State& state) {
  Draw_Section(state, hSmall);
}

void Floor_Section_Large(benchmark::State& state) {
  Floor_Section(state, hLarge);
}

void Bench_Section_Large(benchmark::State& state) {
  Draw_Section(state, hLarge);
}

/// The least of the distances to ready-made points.
void Floor_Nearest(benchmark::State& state) {
  if (!Show_Section(hSmall)) return state.SkipWithError("there is no section");
  std::vector<R4> fX, fY;
  QCS_Visit_Points(hShown, [&](const SectionPoint& h) {
    fX.push_back(h.fX);
    fY.push_back(h.fY);
  });
  for (auto _ : state) {
    R4 fNearest = std::numeric_limits<R4>::max();
    for (std::size_t K = 0; K < fX.size(); ++K) {
      const R4 fDX = fX[K] - 1.0f, fDY = fY[K] - 1.0f;
      const R4 fDistance = fDX * fDX + fDY * fDY;
      if (fDistance < fNearest) fNearest = fDistance;
    }
    benchmark::DoNotOptimize(fNearest);
  }
}

void Bench_Nearest(benchmark::State& state) {
  if (!Show_Section(hSmall)) return state.SkipWithError("there is no section");
  PickedPoint hPicked;
  for (auto _ : state) {
    hPicked = QCS_Section_Point({0.5f * fXCMU, 0.5f * fYCMU}, 1, iTypeDecay, hShown, fXCMU);
  }
  if (hPicked.iTrn == 0) state.SkipWithError("no point was found");
}

/// A move of the pointer over the section: the point near it, its ring, its name.
void Bench_Read_Out(benchmark::State& state) {
  if (!Show_Section(hSmall)) return state.SkipWithError("there is no section");
  constexpr R4 fReach = 0.5f;
  I4 NFound = 0;
  R4 fXGr = 0.1f * fXCMU;
  for (auto _ : state) {
    fXGr = fXGr > 0.9f * fXCMU ? 0.1f * fXCMU : fXGr + 0.01f;
    const PickedPoint h = QCS_Section_Point({fXGr, 0.5f * fYCMU}, 1, iTypeDecay, hShown, fReach);
    const auto hAt = QCS_Point_in_Range(h, hShown);
    if (!hAt) continue;
    ++NFound;
    const GrPoint hGr = IPgUnitsToGrUnits(hAt->fX, hAt->fY);
    IGrRing(hGr.fX, hGr.fY);
    WindowOutStatusBar(iStatusProgress, Point_Words(hTrn(h.iTrn), h.iTwc, iTypeDecay));
  }
  IGrRingOff();
  if (NFound == 0) state.SkipWithError("no point was found");
}

void Floor_Curve_Small(benchmark::State& state) {
  Floor_Curve(state, hSmall);
}

void Bench_Curve_Small(benchmark::State& state) {
  Draw_Curve(state, hSmall);
}

void Floor_Curve_Large(benchmark::State& state) {
  Floor_Curve(state, hLarge);
}

void Bench_Curve_Large(benchmark::State& state) {
  Draw_Curve(state, hLarge);
}

}  // namespace quillan
