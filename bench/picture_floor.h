// picture_floor.h: the least that a plot of given pixels takes: ready-made coordinates, painted by the toolkit below.
#pragma once

#include <memory>

#include "base/types.h"

namespace quillan {

/// Gives the drawing area of the main window a size in pixels of its image.
void Size_Drawing_Area(I4 NWidth, I4 NHeight);

/// Pixels of its image that make a pixel of line width: the screen's scale factor.
R8 dDrawing_Ratio();

/// Lines, discs and letters of one picture, kept in pixels from its upper left corner.
class PictureFloor {
 public:
  PictureFloor(I4 NWidth, I4 NHeight, R8 dLineWidth, R8 dEm);
  ~PictureFloor();
  PictureFloor(const PictureFloor&) = delete;
  PictureFloor& operator=(const PictureFloor&) = delete;

  /// The lines from here on are drawn by a call of their own.
  void Begin_Batch();
  void Add_Line(R8 dX1, R8 dY1, R8 dX2, R8 dY2);
  /// A disc of half the em. bGrey: of those that are drawn first.
  void Add_Disc(R8 dX, R8 dY, bool bGrey);
  void Add_Letter(R8 dX, R8 dY);
  /// Clears the picture and draws it all, with smooth edges.
  void Draw();

 private:
  struct Kept;
  std::unique_ptr<Kept> hKept;
};

}  // namespace quillan
