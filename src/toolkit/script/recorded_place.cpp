// Places in the drawing area as the words of a step.
#include <QMouseEvent>
#include <QWidget>
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>

#include "toolkit/draw/plot_axes.h"
#include "toolkit/script/private_script.h"
#include "toolkit/window/private_window.h"

namespace quillan::toolkit {
namespace {

constexpr int MDecimal = 12;  // finer than any pixel, in any units

/// The fewest decimals with which a number still leads to the same place: to fPlace, or, where rounding on the way
/// keeps the number itself from it, to the place beside it that the number leads to.
template <class Reached>
std::string Shortest(R8 dValue, R4 fPlace, const Reached& fReached) {
  std::array<char, 400> hBuffer;  // a large number has 309 digits before the point
  const R4 fBeside = fReached(dValue);
  for (int NDecimal = 0; NDecimal <= MDecimal; ++NDecimal) {
    const auto hEnd =
        std::to_chars(hBuffer.data(), hBuffer.data() + hBuffer.size(), dValue, std::chars_format::fixed, NDecimal);
    const std::string sText(hBuffer.data(), hEnd.ptr);
    const R4 fThere = fReached(Number(sText));
    if (fThere == fPlace || fThere == fBeside) return sText;
  }
  const auto hEnd = std::to_chars(hBuffer.data(), hBuffer.data() + hBuffer.size(), dValue);
  return {hBuffer.data(), hEnd.ptr};
}

/// The graphics units in which the program gets a place.
GrPoint As_Reported(QPointF hPixel) {
  const QPointF hUnit = Pixels_to_Units(hPixel);
  return {static_cast<R4>(hUnit.x()), static_cast<R4>(hUnit.y())};
}

QPointF Held_to_Area(QPointF hPixel) {
  const QSize hSize = Drawing_Area()->size();
  return {std::clamp(hPixel.x(), 0.0, R8(hSize.width())), std::clamp(hPixel.y(), 0.0, R8(hSize.height()))};
}

/// Graphics units as they come back from a step.
GrPoint After_Step(R8 dX, R8 dY) {
  return As_Reported(Step_Pixel(QPointF(dX, dY)));
}

/// A place by the numbers of the axes.
std::string Point_Words(GrPoint hUnit, AxisNumbers hPlot) {
  const auto After_Point = [](R8 dX, R8 dY) {
    const GrPoint h = IPgNumbersToGrUnits(dX, dY);
    return After_Step(R8{h.fX}, R8{h.fY});
  };
  const R8 dX0 = hPlot.dX, dY0 = hPlot.dY;
  const std::string sX = Shortest(dX0, hUnit.fX, [&](R8 dX) { return After_Point(dX, dY0).fX; });
  return sX + ' ' + Shortest(dY0, hUnit.fY, [&](R8 dY) { return After_Point(dX0, dY).fY; });
}

/// Whether the pointer says that a click sets a corner of a box.
bool Sets_Corner() {
  const Qt::CursorShape iShape = Drawing_Area()->cursor().shape();
  return iShape == Qt::CrossCursor || iShape == Qt::SizeHorCursor;
}

}  // namespace

std::optional<std::string> Plot_Words(QPointF hPixel) {
  if (!IPg_Is_Plotting()) return std::nullopt;
  const GrPoint hUnit = As_Reported(hPixel);
  const AxisNumbers hPlot = IPgNumbersFromGrUnits(hUnit.fX, hUnit.fY);
  if (!std::isfinite(hPlot.dX) || !std::isfinite(hPlot.dY)) return std::nullopt;
  return Point_Words(hUnit, hPlot);
}

std::string Place_Words(QPointF hPixel) {
  const GrPoint hUnit = As_Reported(Held_to_Area(hPixel));
  const R8 dX0 = R8{hUnit.fX}, dY0 = R8{hUnit.fY};
  const std::string sX = Shortest(dX0, hUnit.fX, [&](R8 dX) { return After_Step(dX, dY0).fX; });
  return sX + ' ' + Shortest(dY0, hUnit.fY, [&](R8 dY) { return After_Step(dX0, dY).fY; });
}

bool Spans_Box(QPointF hFrom, QPointF hTo) {
  const GrPoint h1 = As_Reported(hFrom), h2 = As_Reported(Held_to_Area(hTo));
  return std::abs(h2.fX - h1.fX) * std::abs(h2.fY - h1.fY) >= fLeastBox;
}

std::string Click_Words(const QMouseEvent& hPress) {
  const bool bPoints = hPress.button() == Qt::LeftButton || hPress.button() == Qt::RightButton;
  const auto sPlace = bPoints && !Sets_Corner() ? Plot_Words(hPress.position()) : std::nullopt;
  return (sPlace ? "point " + *sPlace : "click " + Place_Words(hPress.position())) + Hand_Words(hPress);
}

}  // namespace quillan::toolkit
