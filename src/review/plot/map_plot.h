// map_plot.h: what maps share: limits at one scale, axes of coordinates, texts that keep clear of the points.
//
// East is to the right and north is up, and a metre is as long along either axis. Positions on the ground are in the
// length unit of the survey.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/types.h"
#include "review/plot/text_size.h"
#include "toolkit/draw/draw.h"

namespace quillan {

/// A position on the ground.
struct MapPoint {
  R8 dX = 0.0, dY = 0.0;  // east, north
};

/// What a map shows: the middle, and how far it reaches to either side of it.
struct MapRange {
  R8 dXC = 0.0, dYC = 0.0;
  R8 dXW = 1.0, dYW = 1.0;
};

/// The range that holds all points, in a plot of the shape dYXPlot (height over width). Each half width is at least 0.1
/// and 2.0E-5 of the middle's coordinate, and is widened by fWiden, first along X, then along Y.
[[nodiscard]] MapRange Map_Range(std::span<const MapPoint> hPoint, R8 dYXPlot, R8 dWiden);

// ---- texts over a map

/// Size of a block of text or of a scale bar, as parts of the plot, its margin included.
struct MapBlock {
  R4 fWidth = 0.0f, fHeight = 0.0f;
};
/// Where a block's lower left corner is, as parts of the plot from its lower left corner.
struct BlockPlace {
  R4 fX = 0.0f, fY = 0.0f;
};
struct MapLayout {
  MapRange hRange;
  std::optional<BlockPlace> hNotes, hScale;  // none: there is no room
};

/// Places a block of notes and a scale bar in corners of the plot under which no point lies: the notes in the upper
/// left one if possible, the bar in the lower right one. Where that cannot be done, the map gets a band above the
/// points for them, and a smaller scale. Notes that would take more than half of the height, or have no room beside the
/// bar, are left out.
[[nodiscard]] MapLayout Map_Layout(const MapRange& hRange, std::span<const MapPoint> hPoint, const MapBlock& hNotes,
                                   const MapBlock& hScale);

/// Length of the scale bar of a map that is dWidth wide: 1, 2 or 5 times a power of ten, at most a fifth of it.
[[nodiscard]] R8 Scale_Bar_Length(R8 dWidth);

// ---- drawing

/// Sizes of the texts of a map.
struct MapFonts {
  TextSize hNumbers, hLabels, hNotes;
};

/// Height over width of a box of graphics units, in pixels.
[[nodiscard]] R8 Shape_of(const GrBox& hPlot);

/// A plot whose lower and left edges are moved inward as far as it takes that the coordinates along them and the labels
/// have room. The points decide what the coordinates are.
[[nodiscard]] GrBox With_Room_for_Axes(GrBox hPlot, std::span<const MapPoint> hPoint, R8 dWiden,
                                       const MapFonts& hFonts);

/// Puts the plot and its plot units in force: positions are drawn at IPgNumbersToGrUnits.
void Set_Map_Units(const GrBox& hPlot, const MapRange& hRange);

/// Border, ticks on all sides, coordinates below and to the left, "Easting" and "Northing" with their unit in brackets
/// unless it is blank.
void Draw_Map_Axes(const MapFonts& hFonts, std::string_view sUnit);

/// A text cut to what has room with the font in force; "..." stands for what is cut.
[[nodiscard]] std::string Cut_to_Room(std::string_view sText, R4 fRoom);
/// Lines of notes cut to the room that the scale bar leaves beside it.
[[nodiscard]] std::vector<std::string> Notes_with_Room(const GrBox& hPlot, const MapFonts& hFonts,
                                                       std::span<const std::string> sLine);

/// The block that lines of text need with the font of notes, and the lines drawn in it from the top down.
[[nodiscard]] MapBlock Notes_Block(const GrBox& hPlot, const MapFonts& hFonts, std::span<const std::string> sLine);
void Draw_Notes(const GrBox& hPlot, const MapFonts& hFonts, const BlockPlace& hPlace,
                std::span<const std::string> sLine);

/// The same of the scale bar, with an arrow to the north beside it.
[[nodiscard]] MapBlock Scale_Block(const GrBox& hPlot, const MapFonts& hFonts);
void Draw_Scale_Bar(const GrBox& hPlot, const MapFonts& hFonts, const MapLayout& hLayout, std::string_view sUnit);

}  // namespace quillan
