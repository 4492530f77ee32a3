// plot_axes.h: axes and plot units on top of draw.h.
//
// A plot lies in a part of the graphics area (IPgArea) and has a range in plot units (IPgUnits); each axis is linear or
// logarithmic. Axes, ticks, labels and titles are drawn in graphics units around that part with the colour and the font
// in force; points in plot units are drawn inside it.
//
// Logarithmic ticks are at decades, then at 2 and 5, then at tidy steps, until at least three labels fit, with minor
// ticks between them; labels that would collide are thinned first, and one that would leave the graphics area is
// shifted inside it. A range of one value is widened. A value at or below 0 has no place on a logarithmic axis.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/types.h"
#include "toolkit/draw/draw.h"

namespace quillan {

enum class Scaling : I4 { Linear, Logarithmic };

/// The plot's part of the graphics area, as fractions of it from its lower left corner.
void IPgArea(R4 fXMin, R4 fYMin, R4 fXMax, R4 fYMax);
void IPgScaling(Scaling iX, Scaling iY);
/// In the place of IPgScaling: two linear axes of map coordinates, easting and northing. Plot units count from an
/// origin, so that 32 bits hold every metre of a map far from the equator; the numbers along the axes are the
/// coordinates themselves, in full.
void IPgCoordinates(R8 dX0, R8 dY0);
/// The range in plot units; call after IPgScaling.
void IPgUnits(R4 fXMin, R4 fYMin, R4 fXMax, R4 fYMax);

/// What is drawn afterwards is clipped to the plot ("P") or to the graphics area ("G").
void IPgClipRectangle(std::string_view sWhat);

/// The outline of the plot.
void IPgBorder();

/// A title centred above the plot, its middle fRise graphics units above the upper edge.
void IPgTitle(std::string_view sTitle, R4 fRise);
/// The X label, centred below the tick labels, and the Y label, turned, centred to the left of the plot at fPlace of
/// the way from the plot (0) to the edge of the graphics area (1).
void IPgXLabel(std::string_view sLabel);
void IPgYLabelLeft(std::string_view sLabel, R4 fPlace);

/// Ticks and numbers of the X axis along the lower edge, and of the Y axis along the left one. Letters of sStyle: T
/// ticks outward, I ticks inward, N numbers.
void IPgXScale(std::string_view sStyle);
void IPgYScaleLeft(std::string_view sStyle);
/// The same ticks along the opposite edge, without numbers.
void IPgXScaleTop(std::string_view sStyle);
void IPgYScaleRight(std::string_view sStyle);
/// Width in graphics units of the widest number that the Y axis has, with the font in force.
[[nodiscard]] R4 IPgYScaleWidth();
/// Ticks of the Y axis on the left at positions given by the caller, with their texts. The letter I draws the ticks
/// inward, T outward. A text that would collide with the one before it is left out; its tick stays.
void IPgYUserScale(std::span<const R4> fYTick, std::span<const std::string> sYTick, std::string_view sStyle);

/// A line and a marker in plot units, clipped; with the state of draw.h.
void IPgJoin2(R4 fX1, R4 fY1, R4 fX2, R4 fY2);
void IPgMarker(R4 fX, R4 fY, I4 iMarker);
/// A disc of a diameter in pixels.
void IPgDisc(R4 fX, R4 fY, R4 fPixels);

/// Between plot units and graphics units. On a logarithmic axis a value at or below 0 gives not-a-number.
[[nodiscard]] GrPoint IPgUnitsToGrUnits(R4 fXPg, R4 fYPg);
[[nodiscard]] GrPoint IPgUnitsFromGrUnits(R4 fXGr, R4 fYGr);

/// A place by the numbers that the axes show: plot units, or coordinates where the axes have them.
struct AxisNumbers {
  R8 dX = 0.0, dY = 0.0;
};
[[nodiscard]] GrPoint IPgNumbersToGrUnits(R8 dX, R8 dY);
[[nodiscard]] AxisNumbers IPgNumbersFromGrUnits(R4 fXGr, R4 fYGr);

// Selectors of InfoPgReal.
inline constexpr I4 iPlotXMin = 5;
inline constexpr I4 iPlotYMin = 6;
inline constexpr I4 iPlotXMax = 8;
inline constexpr I4 iPlotYMax = 9;
R4 InfoPgReal(I4 iSelect);

/// Whether plot units are in force: since the last IPgUnits, until the next IPgForget or WMenu.
bool IPg_Is_Plotting();
void IPgForget();

// The ticks themselves, apart from drawing.
struct Tick {
  R8 dValue;
  bool bMajor;
};
/// Ticks of a linear and of a logarithmic axis over a range, at most about MMajor major ones.
std::vector<Tick> Linear_Ticks(R8 dLow, R8 dHigh, I4 MMajor);
std::vector<Tick> Logarithmic_Ticks(R8 dLow, R8 dHigh, I4 MMajor);

}  // namespace quillan
