// coverage.h: antialiased lines and discs of one colour in an image.
//
// How much of each pixel is covered is worked out first, 0 to 256: by as much as the pixel's centre lies inside the
// edge. Where lines and discs meet or overlap the greatest counts, so that the joints of a curve are neither darker nor
// lighter than the rest of it. Painting puts the colour on and empties the coverage.
//
// Positions are in pixels from the upper left corner. Eight pixels side by side are worked out together, in numbers of
// 16 bits, so that compilers use the processor's vectors for it: a full section has half a million lines and discs.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

#include "base/types.h"

namespace quillan::toolkit {

/// The pixels of an image, each red, green and blue in its lower bytes: row i begins at iFirst + i * NStep.
struct Pixels {
  std::uint32_t* iFirst;
  std::ptrdiff_t NStep;
  I4 NWidth, NHeight;
};

/// Pixels from the first to before the end.
struct PixelBox {
  I4 iLeft, iTop, iRight, iBottom;
  bool Is_Empty() const { return iLeft >= iRight || iTop >= iBottom; }
  I8 Area() const { return I8{iRight - iLeft} * I8{iBottom - iTop}; }
};

class Coverage {
 public:
  static constexpr R4 MWidth = 72.0f;

  /// Makes room for an image; gives up what is not painted when the size changes.
  void Resize(I4 NWide, I4 NHigh);
  /// Adds a line with round ends, at most MWidth pixels wide. It may reach out of the image.
  void Add_Line(R4 fX1, R4 fY1, R4 fX2, R4 fY2, R4 fWidth);
  /// Adds a disc; its centre is held to a quarter of a pixel.
  void Add_Disc(R4 fX, R4 fY, R4 fRadius);
  /// Whether a disc lies so far from all the rest that to paint first is less work.
  bool Is_Far(R4 fX, R4 fY, R4 fRadius) const;

  bool Is_Empty() const { return NUsed == 0; }
  void Paint(const Pixels& hPixels, std::uint32_t iColour);

 private:
  using I2 = std::int16_t;
  static constexpr I4 NEight = 8;
  static constexpr I4 NPart = 256;  // parts of a pixel
  static constexpr I4 NPhase = 4;   // places of the centre of a disc across its pixel

  struct Stroke;
  struct Steps;
  struct First;

  PixelBox Reached(const Stroke& h) const;
  static Steps Steps_of(const Stroke& h);
  static First First_of(const Stroke& h, R4 fX, R4 fY);
  static void Cover_Eight(const Steps& h, First hFirst, I2* iPixel);
  void Add_Rows(const Stroke& h, const PixelBox& hBox);
  const I2* Stamp(I4 iPhaseX, I4 iPhaseY);
  std::vector<I2> New_Stamp(I4 iPhaseX, I4 iPhaseY) const;
  void Use(const PixelBox& hBox);
  void Use_Row(I4 iRow, I4 iLeft, I4 iRight) {
    Span& h = hSpan[static_cast<std::size_t>(iRow)];
    h = {std::min(h.iLeft, iLeft), std::max(h.iRight, iRight)};
  }
  PixelBox Box_With(const PixelBox& hBox) const;
  I2* Row(I4 iRow) { return iCover.data() + static_cast<std::size_t>(iRow) * NRow; }

  I4 NWidth = 0, NHeight = 0;
  std::size_t NRow = 0;  // of iCover: eight pixels may reach out of the image
  std::vector<I2> iCover;
  PixelBox hUsed{};  // holds all that is covered
  struct Span {
    I4 iLeft, iRight;  // pixels from the first to before the end
  };
  std::vector<Span> hSpan;  // the same row by row: a curve covers little of its box
  I8 NUsed = 0;             // pixels of the boxes of all that was added

  // Discs of one radius as they cover pixels, by the place of the centre.
  R4 fStamp = -1.0f;
  std::array<std::vector<I2>, NPhase * NPhase> iStamp;  // empty: not yet made
};

}  // namespace quillan::toolkit
