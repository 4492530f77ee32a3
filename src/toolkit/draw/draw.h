// draw.h: drawing in graphics units.
//
// A small state machine: the area in use (fractions of the drawing area), its units (lower left to upper right), clip,
// colour, line type and width, font and text orientation. Everything comes down to five primitives: batched line
// segments, filled shapes, markers, text, clip. They go into the backing image of the main window or, while a hardcopy
// is open (hardcopy.h), into its file.
//
// Segments of one colour, type and width are collected and drawn in one call; markers are stamped from a small image.
// What is collected reaches the image when the colour or another part of the state changes, with IGrFlush, and before
// the program waits. Lines are clipped in 64 bits before they are drawn: any finite coordinates will do, and a segment
// with a coordinate that is not finite is left out.
#pragma once

#include <memory>
#include <string_view>

#include "base/types.h"
#include "toolkit/draw/last_error.h"

namespace quillan {

/// A place and a box, in graphics units or, where it is said so, in plot units.
struct GrPoint {
  R4 fX = 0.0f, fY = 0.0f;
};
struct GrBox {
  R4 fX1 = 0.0f, fY1 = 0.0f, fX2 = 0.0f, fY2 = 0.0f;
};

/// Part of the drawing area that is in use, as fractions 0 to 1 from its lower left corner.
void IGrArea(R4 fXMin, R4 fYMin, R4 fXMax, R4 fYMax);
/// Units of the corners of that part.
void IGrUnits(R4 fXMin, R4 fYMin, R4 fXMax, R4 fYMax);
/// Limits, in graphics units, until the next IGrArea, IGrUnits or IGrClipOff: lines end there, and a marker or text is
/// left out when its position lies outside. The area in use clips always.
void IGrClip(R4 fXMin, R4 fYMin, R4 fXMax, R4 fYMax);
void IGrClipOff();

/// All that is in force. The mouse routines, and whoever draws something aside, leave it as they found it.
struct GraphicsState;
class GraphicsKeeper {
 public:
  GraphicsKeeper();
  ~GraphicsKeeper();
  GraphicsKeeper(const GraphicsKeeper&) = delete;
  GraphicsKeeper& operator=(const GraphicsKeeper&) = delete;

 private:
  std::unique_ptr<GraphicsState> hKept;
};

/// Clears the whole drawing area to white.
void WindowClear();

/// Colour of what follows: "BLACK", "RED", "MAGENTA", "GREY", "GREEN".
void IGrColour(std::string_view sName);
/// Colour by number: red + 256 green + 65536 blue.
void IGrColourN(I4 iColour);

enum class LineType : I4 { Solid = 0, Dashed = 1 };
void IGrLineType(LineType iType);
/// In pixels before the screen's scale factor; 1 is drawn on pixel centres where a line is level or upright. In a file
/// one pixel is 1/96 inch.
void IGrLineWidth(R4 fPixels);

void IGrMoveTo(R4 fX, R4 fY);
void IGrLineTo(R4 fX, R4 fY);
/// A segment by itself; the current position stays.
void IGrSegment(R4 fX1, R4 fY1, R4 fX2, R4 fY2);
/// The outline of a rectangle.
void IGrRectangle(R4 fX1, R4 fY1, R4 fX2, R4 fY2);
/// A rectangle filled with the colour in force. Two of them that share an edge leave no gap.
void IGrFilledRectangle(R4 fX1, R4 fY1, R4 fX2, R4 fY2);

enum class ArrowHeads : I4 { End, Both };
/// A segment with a head at its second end or at both. Heads of short arrows are smaller.
void IGrArrowJoin(R4 fX1, R4 fY1, R4 fX2, R4 fY2, ArrowHeads iHeads);

inline constexpr I4 iMarkerDisc = 14;  // a filled disc of half the character height
/// A marker, left out when its centre is clipped away.
void IGrMarker(R4 fX, R4 fY, I4 iMarker);
/// A filled disc of a diameter in pixels before the screen's scale factor, left out when its centre is clipped away.
void IGrDisc(R4 fX, R4 fY, R4 fPixels);

/// "N": what is drawn stays. "E": lines and rectangles go into an overlay above the image, in red; the same call twice
/// takes one away. An overlay never reaches a file.
void IGrPlotMode1(std::string_view sMode);

/// A thin red ring around a point of the screen, over the image, in the place of the one before. It goes with
/// IGrRingOff and WindowClear, and never reaches a file.
void IGrRing(R4 fX, R4 fY);
void IGrRingOff();

enum class Justify : I4 { Left = 0, Centre = 1, Right = 2 };

/// Font of what follows: the sans family; fWidth: advance of a digit, fHeight: the em, both as fractions of the
/// area in use. Glyphs are narrowed or widened to the width, not below 0.7 of their natural one; nothing is drawn
/// smaller than 9 pixels.
void WGrTextFont(R4 fWidth, R4 fHeight);
/// fAngle: degrees clockwise; -90 reads upward.
void WGrTextOrientation(Justify iJustify, R4 fAngle);
/// Text with its vertical middle at fY (turned text: its middle across the reading direction at fX).
void WGrTextString(R4 fX, R4 fY, std::string_view sText);
/// Width of a text in graphics units along X, with the font in force.
R4 WGrTextLength(std::string_view sText);

/// Brings what is collected into the image.
void IGrFlush();

// Selectors of InfoGraphics, in graphics units; for units falling, Min lies above Max.
inline constexpr I4 iCharWidth = 3;
inline constexpr I4 iCharHeight = 4;
inline constexpr I4 iUnitXMin = 11;
inline constexpr I4 iUnitYMin = 12;
inline constexpr I4 iUnitXMax = 13;
inline constexpr I4 iUnitYMax = 14;
R4 InfoGraphics(I4 iSelect);
inline R4 WInfoGrReal(I4 iSelect) {
  return InfoGraphics(iSelect);
}
/// Size of a pixel, in a file of 1/96 inch, in graphics units.
[[nodiscard]] GrPoint IGrPixelSize();

}  // namespace quillan
