#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <numeric>

#include "toolkit/draw/private_draw.h"

namespace quillan {

using namespace toolkit;

namespace {

using Word = std::uint16_t;

// Functions of the records.
constexpr Word iSaveDC = 0x001E;
constexpr Word iSetBkMode = 0x0102;
constexpr Word iSetMapMode = 0x0103;
constexpr Word iRestoreDC = 0x0127;
constexpr Word iSelectObject = 0x012D;
constexpr Word iSetTextAlign = 0x012E;
constexpr Word iSetTextColour = 0x0209;
constexpr Word iSetWindowOrg = 0x020B;
constexpr Word iSetWindowExt = 0x020C;
constexpr Word iLineTo = 0x0213;
constexpr Word iMoveTo = 0x0214;
constexpr Word iCreatePen = 0x02FA;
constexpr Word iCreateFont = 0x02FB;
constexpr Word iCreateBrush = 0x02FC;
constexpr Word iPolygon = 0x0324;
constexpr Word iIntersectClip = 0x0416;
constexpr Word iEllipse = 0x0418;
constexpr Word iTextOut = 0x0521;
constexpr Word iEndOfFile = 0x0000;

constexpr Word iAnisotropic = 8;
constexpr Word iTransparent = 1;
constexpr Word iOpaque = 2;
// Which point of the baseline the place of a text is: its left end, middle or right end, as Justify has them.
constexpr Word iAlignBaseline[] = {24, 30, 26};
constexpr Word iPenSolid = 0;
constexpr Word iPenNone = 5;
constexpr Word iBrushSolid = 0;
constexpr Word iWeightNormal = 400;

constexpr Word iPlaceableKeyLow = 0xCDD7;
constexpr Word iPlaceableKeyHigh = 0x9AC6;
constexpr Word NHeaderWords = 9;
constexpr Word iInMemory = 1;
constexpr Word iVersion = 0x0300;
constexpr std::size_t MObject = 0xFFFF;  // objects that a file can name

constexpr int MText = 1024;  // characters of a text
constexpr R8 dMaxCoordinate = 32767.0;

constexpr std::string_view sFace("Arial\0", 6);
constexpr Word iSwissFamily = 0x2200;
// Windows takes the width of a font as that of its average letter: of this face 904 / 2048 em, where a digit has
// 1139 / 2048.
constexpr R8 dAverageLetter = 904.0 / 2048.0;

/// A coordinate as a word of 16 bits.
Word Coordinate(R8 dValue) {
  return static_cast<Word>(static_cast<std::int16_t>(std::lround(std::clamp(dValue, -dMaxCoordinate, dMaxCoordinate))));
}

Word Low_Word(std::size_t iValue) {
  return static_cast<Word>(iValue & 0xFFFF);
}

Word High_Word(std::size_t iValue) {
  return static_cast<Word>((iValue >> 16) & 0xFFFF);
}

/// The colour as red, green, blue, 0 from the lowest byte up.
std::array<Word, 2> Colour_Words(QRgb iColour) {
  return {static_cast<Word>(qRed(iColour) | (qGreen(iColour) << 8)), static_cast<Word>(qBlue(iColour))};
}

void Add_Bytes(std::vector<Word>& hWord, std::string_view sBytes) {
  for (std::size_t I = 0; I < sBytes.size(); I += 2) {
    const auto iByte = [&](std::size_t K) { return K < sBytes.size() ? static_cast<unsigned char>(sBytes[K]) : 0; };
    hWord.push_back(static_cast<Word>(iByte(I) | (iByte(I + 1) << 8)));
  }
}

}  // namespace

Metafile::Metafile(I4 NXUnit, I4 NYUnit, I4 NUnitsAnInch) : NWidth(NXUnit), NHeight(NYUnit), NInch(NUnitsAnInch) {
  Record(iSetMapMode, {iAnisotropic});
  Record(iSetWindowOrg, {0, 0});
  Record(iSetWindowExt, {static_cast<Word>(NHeight), static_cast<Word>(NWidth)});
}

void Metafile::Record(std::uint16_t iFunction, const Words& hParameter) {
  const std::size_t NRecord = hParameter.size() + 3;
  hRecord.insert(hRecord.end(), {Low_Word(NRecord), High_Word(NRecord), iFunction});
  hRecord.insert(hRecord.end(), hParameter.begin(), hParameter.end());
  NLargest = std::max(NLargest, NRecord);
}

/// Makes a pen, brush or font at its first use, and selects it if another one is.
void Metafile::Use(Kind iKind, std::uint16_t iFunction, const Words& hParameter) {
  const auto hFound = hObject.find({iFunction, hParameter});
  const bool bNew = hFound == hObject.end();
  if (bNew && hObject.size() == MObject) return;  // what follows keeps the one in use
  const Word iObject = bNew ? static_cast<Word>(hObject.size()) : hFound->second;
  if (bNew) {
    Record(iFunction, hParameter);
    hObject[{iFunction, hParameter}] = iObject;
  }
  const auto hInUse = hSelected.find(iKind);
  if (hInUse != hSelected.end() && hInUse->second == iObject) return;
  Record(iSelectObject, {iObject});
  hSelected[iKind] = iObject;
}

/// The plot shows through between letters; some readers let it show through filled shapes as well.
void Metafile::Use_Background(std::uint16_t iMode) {
  if (iMode != iBackground) Record(iSetBkMode, {iMode});
  iBackground = iMode;
}

/// Filled shapes have no outline.
void Metafile::Use_Fill(QRgb iColour) {
  const auto [iRedGreen, iBlue] = Colour_Words(iColour);
  Use(Kind::Pen, iCreatePen, {iPenNone, 0, 0, 0, 0});
  Use(Kind::Brush, iCreateBrush, {iBrushSolid, iRedGreen, iBlue, 0});
  Use_Background(iOpaque);
}

/// As moves and lines: some readers fill a polyline with the brush that is in use.
void Metafile::Lines(std::span<const QLineF> hLine, const Pen& hPen) {
  const auto [iRedGreen, iBlue] = Colour_Words(hPen.iColour);
  Use(Kind::Pen, iCreatePen, {iPenSolid, Coordinate(std::max(hPen.dWidth, 1.0)), 0, iRedGreen, iBlue});
  for (const QLineF& h : hLine) {
    const bool bContinues = &h != hLine.data() && (&h)[-1].p2() == h.p1();
    if (!bContinues) Record(iMoveTo, {Coordinate(h.y1()), Coordinate(h.x1())});
    Record(iLineTo, {Coordinate(h.y2()), Coordinate(h.x2())});
  }
}

void Metafile::Fill(const QRectF& h, QRgb iColour) {
  Use_Fill(iColour);
  const Word iLeft = Coordinate(h.left()), iTop = Coordinate(h.top());
  const Word iRight = Coordinate(h.right()), iBottom = Coordinate(h.bottom());
  Record(iPolygon, {4, iLeft, iTop, iRight, iTop, iRight, iBottom, iLeft, iBottom});
}

/// All discs of one radius are of one size.
void Metafile::Disc(QPointF hCentre, R8 dRadius, QRgb iColour) {
  Use_Fill(iColour);
  const R8 dSize = std::round(2.0 * dRadius);
  const R8 dLeft = std::round(hCentre.x() - dRadius);
  const R8 dTop = std::round(hCentre.y() - dRadius);
  Record(iEllipse, {Coordinate(dTop + dSize), Coordinate(dLeft + dSize), Coordinate(dTop), Coordinate(dLeft)});
}

void Metafile::Use_Font(const Letters& h) {
  const R8 dEm = h.dYScale * NFontPixels;
  const R8 dWidth = dAverageLetter * h.dXScale * NFontPixels;
  const Word iTurn = Coordinate(-10.0 * h.dAngle);  // tenths of degrees, anticlockwise
  Words hFont{Coordinate(std::min(-dEm, -1.0)),
              Coordinate(std::max(dWidth, 1.0)),
              iTurn,
              iTurn,
              iWeightNormal,
              0,
              0,
              0,
              iSwissFamily};
  Add_Bytes(hFont, sFace);
  Use(Kind::Font, iCreateFont, hFont);
}

/// By the alignment of its own a text stands right also where a reader's letters are wider or narrower than ours.
void Metafile::Use_Alignment(std::uint16_t iWanted) {
  if (iWanted != iAlignment) Record(iSetTextAlign, {iWanted});
  iAlignment = iWanted;
}

/// Text in the code page of the format, as one piece: readers cut a text that comes with the place of each character.
void Metafile::Text_Out(const Letters& h) {
  const auto [iRedGreen, iBlue] = Colour_Words(h.iColour);
  Record(iSetTextColour, {iRedGreen, iBlue});
  const QByteArray sBytes = h.sText.left(MText).toLatin1();
  Words hParameter{static_cast<Word>(sBytes.size())};
  Add_Bytes(hParameter, {sBytes.data(), static_cast<std::size_t>(sBytes.size())});
  hParameter.insert(hParameter.end(), {Coordinate(h.hAnchor.y()), Coordinate(h.hAnchor.x())});
  Record(iTextOut, hParameter);
}

void Metafile::Write(const Letters& h) {
  const bool bOutside = std::abs(h.hAnchor.x()) > dMaxCoordinate || std::abs(h.hAnchor.y()) > dMaxCoordinate;
  if (h.sText.isEmpty() || bOutside) return;
  Use_Font(h);
  Use_Background(iTransparent);
  Use_Alignment(iAlignBaseline[static_cast<std::size_t>(h.iJustify)]);
  if (h.hClip.contains(QRectF(0.0, 0.0, NWidth, NHeight))) return Text_Out(h);
  Record(iSaveDC, {});
  Record(iIntersectClip, {Coordinate(h.hClip.bottom()), Coordinate(h.hClip.right()), Coordinate(h.hClip.top()),
                          Coordinate(h.hClip.left())});
  Text_Out(h);
  Record(iRestoreDC, {Word{0xFFFF}});  // -1: what was saved last
}

std::string Metafile::Bytes() const {
  constexpr Word NEndWords = 3;
  const std::size_t NFile = NHeaderWords + hRecord.size() + NEndWords;
  Words hFile{iPlaceableKeyLow,           iPlaceableKeyHigh,        0, 0, 0, static_cast<Word>(NWidth),
              static_cast<Word>(NHeight), static_cast<Word>(NInch), 0, 0};
  hFile.push_back(std::accumulate(hFile.begin(), hFile.end(), Word{0}, std::bit_xor<>()));
  hFile.insert(hFile.end(), {iInMemory, NHeaderWords, iVersion, Low_Word(NFile), High_Word(NFile),
                             static_cast<Word>(hObject.size()), Low_Word(NLargest), High_Word(NLargest), 0});
  hFile.insert(hFile.end(), hRecord.begin(), hRecord.end());
  hFile.insert(hFile.end(), {NEndWords, 0, iEndOfFile});

  std::string sBytes;
  sBytes.reserve(2 * hFile.size());
  for (const Word i : hFile) sBytes.append({static_cast<char>(i & 0xFF), static_cast<char>(i >> 8)});
  return sBytes;
}

}  // namespace quillan
