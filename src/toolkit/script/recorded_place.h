// recorded_place.h: places in the drawing area as the words of a step.
#pragma once

#include <QPointF>
#include <string>

#include "toolkit/draw/private_draw.h"

namespace quillan::toolkit {

/// A pixel of the drawing area in graphics units, held to the area, with as many digits as it takes to meet it again.
std::string Place_Words(QPointF hPixel);

/// A click as a step: `point` where there is a plot, else, and where a corner of a box is set, `click`.
std::string Click_Words(QPointF hPixel, Qt::MouseButton iButton);

}  // namespace quillan::toolkit
