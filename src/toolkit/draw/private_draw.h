// private_draw.h: what drawing is made of: the picture that is drawn into, and the back ends that carry out the
// primitives.
//
// draw.cpp turns graphics units into pixels of the picture (from its upper left corner, downward), clips and collects
// lines and cuts dashes, draw_text.cpp places text; a back end draws what is left: solid lines, filled rectangles,
// discs, letters. Coordinates that reach it lie in the picture, apart from the starts of text.
#pragma once

#include <QColor>
#include <QFont>
#include <QLineF>
#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/types.h"
#include "toolkit/draw/draw.h"

class QImage;
class QPainter;
class QWidget;

namespace quillan::toolkit {

// Text is bytes: UTF-8 where it is well formed, else Latin-1 (draw_text.cpp).
QString To_QString(std::string_view sBytes);
std::string To_Bytes(const QString& sText);

// The screen (screen.cpp).
/// The widget that shows what is drawn; null when no window is open. The window hands it over.
QWidget* Drawing_Area();
void Use_Drawing_Area(QWidget* hArea);
/// Brings what is held back onto the screen, if that is where drawing goes: while a picture is drawn into a file the
/// user may look at the window, and what is held back is the picture's.
void Flush_Screen();
/// The backing image of the drawing area, of its size at the screen's pixel ratio. Resize stretches what is drawn.
QImage& Backing_Image();
void Resize_Backing_Image();
void Drop_Backing_Image();
/// Another widget takes the place of the drawing area until Leave_Child_Area: with its own image, state and font. The
/// image below it keeps what is drawn.
void Enter_Child_Area(QWidget* hArea);
void Leave_Child_Area();
const QImage& Image_Below();
/// A position in the drawing area: pixels from its upper left corner to the graphics units in force, and back.
QPointF Pixels_to_Units(QPointF hPixel);
QPointF Units_to_Pixels(QPointF hUnit);

struct Pen {
  QRgb iColour = 0xFF000000;
  R8 dWidth = 1.0;  // pixels of the picture
  bool operator==(const Pen&) const = default;
};

inline constexpr int NFontPixels = 100;  // em of the font that all text is scaled from

/// A text that is placed: letters of NFontPixels, scaled along and across the reading direction.
struct Letters {
  QString sText;
  QFont hFont;
  QPointF hStart;    // left end of the baseline
  Justify iJustify;  // which point of the text hAnchor is
  QPointF hAnchor;   // left end, middle or right end of the baseline
  R8 dAngle;         // degrees clockwise
  R8 dXScale, dYScale;
  QRgb iColour;
  QRectF hClip;  // the area in use
};

class BackEnd {
 public:
  virtual ~BackEnd() = default;
  /// Lines with round ends; a line that begins where the one before it ends is its continuation.
  virtual void Lines(std::span<const QLineF> hLine, const Pen& hPen) = 0;
  virtual void Fill(const QRectF& hRectangle, QRgb iColour) = 0;
  virtual void Disc(QPointF hCentre, R8 dRadius, QRgb iColour) = 0;
  virtual void Write(const Letters& hLetters) = 0;
  /// Brings what is held back into the picture.
  virtual void Flush() {}
};

/// Paints into an image of format RGB32 (painter.cpp). The image may be replaced by another, but must not go before
/// the back end. dPixel: width in pixels of the picture of the lines that are drawn on pixel centres.
std::unique_ptr<BackEnd> New_Painter(QImage& hImage, R8 dPixel);

/// A page that ends up as a file of its own (page_file.cpp).
class PageFile : public BackEnd {
 public:
  /// Ends the page: the whole file, blank when it could not be made.
  virtual std::string Bytes() = 0;
};
struct PageSize {
  QSizeF hUnits;  // of the picture
  I4 NUnitsAnInch;
  std::string sTitle;  // of the document
};
std::unique_ptr<PageFile> New_Svg_Page(const PageSize& hSize);
std::unique_ptr<PageFile> New_Pdf_Page(const PageSize& hSize);

/// Records of a placeable metafile (metafile.cpp): the coordinates of the picture are those of the file.
class Metafile : public BackEnd {
 public:
  /// The size in units of the picture, at most 32767, and how many of them make an inch.
  Metafile(I4 NWidth, I4 NHeight, I4 NUnitsAnInch);

  void Lines(std::span<const QLineF> hLine, const Pen& hPen) override;
  void Fill(const QRectF& hRectangle, QRgb iColour) override;
  void Disc(QPointF hCentre, R8 dRadius, QRgb iColour) override;
  void Write(const Letters& hLetters) override;

  /// The whole file.
  std::string Bytes() const;

 private:
  using Words = std::vector<std::uint16_t>;
  enum class Kind { Pen, Brush, Font };

  void Record(std::uint16_t iFunction, const Words& hParameter);
  void Use(Kind iKind, std::uint16_t iFunction, const Words& hParameter);
  void Use_Fill(QRgb iColour);
  void Use_Background(std::uint16_t iMode);
  void Use_Font(const Letters& hLetters);
  void Use_Alignment(std::uint16_t iWanted);
  void Text_Out(const Letters& hLetters);

  I4 NWidth, NHeight, NInch;
  Words hRecord;             // all records so far
  std::size_t NLargest = 0;  // words of the largest record
  // Pens, brushes and fonts that were made, by function and parameters of their records, and their numbers.
  std::map<std::pair<std::uint16_t, Words>, std::uint16_t> hObject;
  std::map<Kind, std::uint16_t> hSelected;
  std::uint16_t iBackground = 0;  // modes that were set last
  std::uint16_t iAlignment = 0;
};

/// Whether a point lies in a rectangle or on its edge (line_cut.cpp).
bool Holds(const QRectF& hClip, QPointF hPoint);
/// The part of a line inside a rectangle; false: there is none, or a coordinate is not finite.
bool Clip_Line(QLineF& hLine, const QRectF& hClip);
/// The dashes of lines. The pattern runs on through a continuation.
std::vector<QLineF> Dashes_of(std::span<const QLineF> hLine, R8 dDash, R8 dGap);

/// Rubber bands over the drawing area, in its pixels (overlay.cpp). One that is there when the area changes its size
/// keeps its place over the plot.
struct OverlayShape {
  bool bRectangle;
  QPointF hPoint1, hPoint2;
};
/// Adds a shape, or takes away the one that is its equal.
void Toggle_Overlay(const OverlayShape& hShape);
void Clear_Overlay();
/// Paints what is in the overlay; the paint event calls it after the image.
void Paint_Overlay(QPainter& hPainter);
/// Where the ring is, in parts of the area's width and height; nothing while there is none.
std::optional<QPointF> Ring_Place();

inline constexpr R8 dMinScreenEm = 9.0;  // pixels on the screen: smaller letters cannot be read

/// Where drawing goes (screen.cpp).
struct Canvas {
  BackEnd* hBackEnd = nullptr;  // null: nowhere
  QSizeF hSize;                 // of the picture, in its pixels
  R8 dPixel = 1.0;              // pixels of the picture that make a pixel of line width
  R8 dMinEm = 1.0;              // the smallest letters, in pixels of the picture
  bool bScreen = false;
  R8 dFoot = 0.0;  // pixels at the lower edge that lie below the drawing area
};
/// Lets all drawing go into another picture until Leave_Picture, which gives the screen and its graphics state back.
void Enter_Picture(const Canvas& hPicture);
void Leave_Picture();

}  // namespace quillan::toolkit
