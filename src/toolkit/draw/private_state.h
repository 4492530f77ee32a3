// private_state.h: the state that draw.cpp, draw_text.cpp and screen.cpp share.
#pragma once

#include <QFontMetricsF>
#include <QImage>
#include <QPointer>
#include <QWidget>
#include <memory>
#include <optional>
#include <vector>

#include "toolkit/draw/draw.h"
#include "toolkit/draw/last_error.h"
#include "toolkit/draw/private_draw.h"

namespace quillan {

struct Limits {
  R8 dXLow = 0.0, dYLow = 0.0, dXHigh = 1.0, dYHigh = 1.0;
  R8 dXSpan() const { return dXHigh - dXLow; }
  R8 dYSpan() const { return dYHigh - dYLow; }
};

struct GraphicsState {
  Limits hArea;  // fractions of the picture
  Limits hUnit;
  std::optional<Limits> hClip;  // in units
  QRgb iColour = 0xFF000000;
  LineType iType = LineType::Solid;
  R8 dWidth = 1.0;  // pixels of line width
  QPointF hPosition;
  bool bOverlay = false;
  R8 dCharWidth = 0.01, dCharHeight = 0.02;  // fractions of the area in use
  Justify iJustify = Justify::Left;
  R8 dAngle = 0.0;  // degrees clockwise: -90 reads upward
};

}  // namespace quillan

namespace quillan::toolkit {

/// From units to pixels of the picture, and what follows from the state for every line and marker. Place_Area fills it.
struct AreaPlace {
  QRectF hArea;                     // the area in use
  QRectF hVisible;                  // what is left of it by the clip
  R8 dPixelX = 1.0, dPixelY = 1.0;  // pixels a unit; negative where units fall
  R8 dEm = dMinScreenEm;
};

/// Segments that are not drawn yet, clipped.
struct Collected {
  std::vector<QLineF> hLine;
  Pen hPen;
  LineType iType = LineType::Solid;
};

struct Typeface {
  QFont hFont;
  QFontMetricsF hMetrics;
};

// Module state. The procedures of draw.h fill it, Drop_Backing_Image restores it.
struct Drawing {
  GraphicsState hState;
  AreaPlace hPlace;
  Canvas hCanvas;
  Collected hCollected;
  std::optional<Typeface> hTypeface;

  QPointer<QWidget> hScreen;  // the drawing area
  QImage hImage;              // the backing image
  QSizeF hScreenSize;         // of the drawing area, as the image has it
  std::unique_ptr<BackEnd> hPainter;
  bool bChanged = false;      // the drawing area knows that it must be painted
  void (*Draw_Later)() = {};  // what IGrLater was given

  std::optional<GraphicsState> hScreenState;  // while another picture is drawn: what to come back to
};
inline Drawing hDraw;

// What each line and marker passes through stands here, to be compiled into its callers: a full section has half a
// million of them.

/// A position in units in pixels of the picture.
inline QPointF To_Picture(QPointF hUnit) {
  const AreaPlace& h = hDraw.hPlace;
  return {h.hArea.left() + (hUnit.x() - hDraw.hState.hUnit.dXLow) * h.dPixelX,
          h.hArea.bottom() - (hUnit.y() - hDraw.hState.hUnit.dYLow) * h.dPixelY};
}

/// Draws what IGrLater was given.
void Draw_What_Is_Later();

/// Where drawing goes; null, with the error status set, when there is nothing to draw on.
inline BackEnd* Drawable() {
  if (hDraw.Draw_Later) Draw_What_Is_Later();
  if (!hDraw.hCanvas.hBackEnd) Set_Error(iErrNoWindow);
  return hDraw.hCanvas.hBackEnd;
}

/// Lets the drawing area know that it must be painted: once, not for every line.
inline void Mark_Changed() {
  if (!hDraw.hCanvas.bScreen || hDraw.bChanged || !hDraw.hScreen) return;
  hDraw.bChanged = true;
  hDraw.hScreen->update();
}

QRectF Whole_Picture();
/// Works out hPlace: after a change of area, units, clip, font or picture.
void Place_Area();
/// Hands the segments that are collected to the back end.
void Draw_Collected();

}  // namespace quillan::toolkit
