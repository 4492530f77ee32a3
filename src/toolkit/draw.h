// draw.h: drawing in graphics units.
//
// A small state machine: the area in use (fractions of the drawing area), its units (lower left to upper right),
// colour, font and text orientation. Drawing goes into the backing image of the main window.
#pragma once

#include <string_view>

#include "base/types.h"
#include "toolkit/ids.h"

namespace quillan {

/// Part of the drawing area that is in use, as fractions 0 to 1 from its lower left corner.
void IGrArea(R4 fXMin, R4 fYMin, R4 fXMax, R4 fYMax);
/// Units of the corners of that part.
void IGrUnits(R4 fXMin, R4 fYMin, R4 fXMax, R4 fYMax);

/// Clears the whole drawing area to white.
void WindowClear();

/// Colour of what follows: "BLACK", "RED", "MAGENTA", "BLUE", "GREEN", "WHITE".
void IGrColour(std::string_view sName);

enum class Justify : I4 { Left = 0, Centre = 1, Right = 2 };

/// Font of what follows: the sans family; fWidth: advance of a digit, fHeight: the em, both as fractions of the
/// area in use. Glyphs are narrowed or widened to the width, not below 0.7 of their natural one; nothing is drawn
/// smaller than 9 pixels.
void WGrTextFont(R4 fWidth, R4 fHeight);
void WGrTextOrientation(Justify iJustify, R4 fAngle);
/// Text with its vertical middle at fY.
void WGrTextString(R4 fX, R4 fY, std::string_view sText);
/// Width of a text in graphics units, with the font in force.
R4 WGrTextLength(std::string_view sText);

/// Selectors iCharWidth, iCharHeight, iUnit... of ids.h.
R4 InfoGraphics(I4 iSelect);
R4 WInfoGrReal(I4 iSelect);

}  // namespace quillan
