#include "toolkit/draw/draw.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QWidget>
#include <cmath>
#include <functional>

#include "support/played_session.h"
#include "toolkit/draw/private_draw.h"
#include "toolkit/window/private_window.h"

namespace quillan {
namespace {

using namespace toolkit;

constexpr QRgb iBlack = 0xFF000000, iWhite = 0xFFFFFFFF, iRed = 0xFFFF0000;
constexpr R4 fNone = std::numeric_limits<R4>::quiet_NaN();
constexpr R4 fFar = 1.0e30f;

/// A window whose drawing area has 400 x 300 pixels, each of them a graphics unit.
class Draw : public testing::Test {
 protected:
  void SetUp() override { Open(); }
  void TearDown() override { WindowClose(); }

  static void Open() {
    Open_Window(400, 300);
    Main_Window()->resize(400, 600 - Drawing_Area()->height());  // what the status bar took away is added
    ASSERT_EQ(Drawing_Area()->size(), QSize(400, 300));
    IGrUnits(0.0f, 0.0f, 400.0f, 300.0f);
    IGrColour("BLACK");
    WindowClear();
  }
  /// The image after a drawing on white.
  static QImage Drawn(const std::function<void()>& draw) {
    WindowClear();
    draw();
    return Backing_Image().copy();
  }
  static QImage On_Screen() { return Drawing_Area()->grab().toImage().convertToFormat(QImage::Format_RGB32); }
};

template <class Look>
void For_Each_Pixel(const QImage& hImage, Look look) {
  for (int iRow = 0; iRow < hImage.height(); ++iRow)
    for (int I = 0; I < hImage.width(); ++I) look(I, iRow);
}

/// The darkness of all pixels: 1 for each that is black.
R8 Ink(const QImage& h) {
  R8 dInk = 0.0;
  For_Each_Pixel(h, [&](int I, int iRow) { dInk += 1.0 - qGray(h.pixel(I, iRow)) / 255.0; });
  return dInk;
}

/// The smallest rectangle that holds all pixels that are not white.
QRect Drawn_Box(const QImage& h) {
  QRect hBox;
  For_Each_Pixel(h, [&](int I, int iRow) {
    if (h.pixel(I, iRow) != iWhite) hBox |= QRect(I, iRow, 1, 1);
  });
  return hBox;
}

int Largest_Difference(const QImage& h1, const QImage& h2) {
  int NLargest = 0;
  For_Each_Pixel(h1, [&](int I, int iRow) {
    NLargest = std::max(NLargest, std::abs(qGray(h1.pixel(I, iRow)) - qGray(h2.pixel(I, iRow))));
  });
  return NLargest;
}

TEST_F(Draw, LevelAndUprightLinesAreSharp) {
  const QImage hLevel = Drawn([] { IGrSegment(100.0f, 150.0f, 200.0f, 150.0f); });
  const QImage hUpright = Drawn([] { IGrSegment(300.3f, 20.7f, 300.3f, 80.2f); });
  for (int I = 101; I < 200; ++I) ASSERT_EQ(hLevel.pixel(I, 150), iBlack) << I;
  for (int iRow = 220; iRow < 279; ++iRow) ASSERT_EQ(hUpright.pixel(300, iRow), iBlack) << iRow;
  EXPECT_EQ(Drawn_Box(hLevel).height(), 1) << "nothing above or below";
  EXPECT_EQ(Drawn_Box(hUpright).width(), 1);
}

TEST_F(Draw, AFineScreenHasFineLinesOfTwoPixels) {
  WindowClose();
  qputenv("QT_SCALE_FACTOR", "2");
  Open();
  qunsetenv("QT_SCALE_FACTOR");
  const QImage hImage = Drawn([] { IGrSegment(100.0f, 150.0f, 200.0f, 150.0f); });
  EXPECT_EQ(hImage.size(), QSize(800, 600));
  for (const auto& [iRow, iColour] : {
           std::pair{298, iWhite},
           {299, iBlack},
           {300, iBlack},
           {301, iWhite}
  })
    EXPECT_EQ(hImage.pixel(300, iRow), iColour) << iRow;
}

TEST_F(Draw, TheOutlineOfTheWholeAreaIsInside) {
  const QImage hImage = Drawn([] { IGrRectangle(0.0f, 0.0f, 400.0f, 300.0f); });
  for (const QPoint& h : {QPoint(0, 0), QPoint(399, 0), QPoint(0, 299), QPoint(399, 299)})
    EXPECT_EQ(hImage.pixel(h), iBlack) << h.x() << ' ' << h.y();
  EXPECT_NEAR(Ink(hImage), 2.0 * 400 + 2.0 * 298, 0.01);
}

TEST_F(Draw, ALineHasItsWidthInAnyDirection) {
  for (const R4 fWidth : {1.0f, 1.5f, 4.0f}) {
    IGrLineWidth(fWidth);
    for (const R4 fTurn : {0.1f, 0.7f, 1.2f, 1.5f, 2.4f}) {
      const R4 fX = 100.0f * std::cos(fTurn), fY = 100.0f * std::sin(fTurn);
      const R8 dInk = Ink(Drawn([&] { IGrSegment(200.0f - fX, 150.0f - fY, 200.0f + fX, 150.0f + fY); }));
      EXPECT_NEAR(dInk / 200.0, R8{fWidth}, 0.25) << fWidth << " turned by " << fTurn;
    }
  }
}

TEST_F(Draw, LinesThatReachFarOutAreDrawnWhereTheyAreSeen) {
  struct Case {
    const char* sWhat;
    R4 fX1, fY1, fX2, fY2;  // what is drawn
    R4 fX3, fY3, fX4, fY4;  // what must be seen
  };
  for (const Case& h : {
           Case{"level, both ends out",  -fFar, 60.0f,  fFar,  60.0f, 0.0f,  60.0f,  400.0f, 60.0f },
           Case{"upright, one end out",  50.0f, 100.0f, 50.0f, fFar,  50.0f, 100.0f, 50.0f,  300.0f},
           Case{"slanting, one end out", 10.0f, 20.0f,  fFar,  fFar,  10.0f, 20.0f,  290.0f, 300.0f}
  }) {
    const QImage hWanted = Drawn([&] { IGrSegment(h.fX3, h.fY3, h.fX4, h.fY4); });
    const QImage hGot = Drawn([&] { IGrSegment(h.fX1, h.fY1, h.fX2, h.fY2); });
    EXPECT_LT(Largest_Difference(hWanted, hGot), 30) << h.sWhat;
  }
  const QImage hNothing = Drawn([] {
    IGrSegment(fNone, 10.0f, 100.0f, 10.0f);
    IGrSegment(10.0f, 10.0f, std::numeric_limits<R4>::infinity(), 10.0f);
    IGrSegment(-fFar, -fFar, fFar, -1.0f);
    IGrMoveTo(fNone, fNone);
    IGrLineTo(10.0f, 10.0f);
    IGrMarker(fNone, 10.0f, iMarkerDisc);
    IGrMarker(fFar, -fFar, iMarkerDisc);
    WGrTextString(fNone, 10.0f, "text");
  });
  EXPECT_EQ(Ink(hNothing), 0.0);
  EXPECT_EQ(InfoError(), iErrNone);
}

TEST_F(Draw, ALineInManyPiecesLooksLikeOne) {
  for (const LineType iType : {LineType::Solid, LineType::Dashed}) {
    IGrLineWidth(1.5f);
    IGrLineType(iType);
    const QImage hOne = Drawn([] { IGrSegment(20.0f, 20.0f, 360.0f, 190.0f); });
    const QImage hMany = Drawn([] {
      IGrMoveTo(20.0f, 20.0f);
      for (int I = 1; I <= 170; ++I) IGrLineTo(20.0f + 2.0f * static_cast<R4>(I), 20.0f + static_cast<R4>(I));
    });
    EXPECT_LT(Largest_Difference(hOne, hMany), 12);
  }
  const auto dInk_of = [](LineType iType) {
    IGrLineType(iType);
    return Ink(Drawn([] { IGrSegment(20.0f, 20.0f, 360.0f, 190.0f); }));
  };
  const R8 dPart = dInk_of(LineType::Dashed) / dInk_of(LineType::Solid);
  EXPECT_GT(dPart, 0.45) << "a dashed line has gaps";
  EXPECT_LT(dPart, 0.80);
}

TEST_F(Draw, WhatIsDrawnLaterLiesAbove) {
  WGrTextFont(0.02f, 0.1f);
  const std::function<void()> hShape[] = {
      [] { IGrSegment(100.0f, 150.0f, 200.0f, 150.0f); },
      [] { IGrSegment(150.0f, 100.0f, 150.0f, 200.0f); },
      [] { IGrMarker(150.0f, 150.0f, iMarkerDisc); },
  };
  for (const auto& Below : hShape) {
    for (const auto& Above : hShape) {
      const QImage hImage = Drawn([&] {
        IGrColour("BLACK");
        Below();
        IGrColourN(255);
        Above();
      });
      EXPECT_EQ(hImage.pixel(150, 150), iRed) << &Above - hShape << " on " << &Below - hShape;
    }
  }
}

TEST_F(Draw, MarkersAreDiscsOfHalfTheCharacterHeightAndNoneIsLost) {
  WGrTextFont(0.02f, 0.1f);  // letters of 30 pixels
  const QImage hOne = Drawn([] { IGrMarker(200.0f, 150.0f, iMarkerDisc); });
  EXPECT_NEAR(Ink(hOne), 3.14159 * 7.5 * 7.5, 3.0);
  EXPECT_LE((Drawn_Box(hOne).center() - QPoint(200, 150)).manhattanLength(), 2);
  IGrMarker(200.0f, 150.0f, 3);
  EXPECT_EQ(InfoError(), iErrBadArgument) << "there is no other marker";

  const QImage hMany = Drawn([] {  // far apart, in two colours by turns
    for (int I = 0; I < 100; ++I) {
      IGrColour(I % 2 == 0 ? "BLACK" : "GREY");
      IGrMarker(static_cast<R4>(I % 10) * 40.0f + 20.0f, static_cast<R4>(I * 7 % 10) * 30.0f + 15.0f, iMarkerDisc);
      IGrMarker(399.0f - static_cast<R4>(I), 299.0f, iMarkerDisc);
    }
  });
  for (int I = 0; I < 100; ++I) ASSERT_NE(hMany.pixel(I % 10 * 40 + 20, 285 - I * 7 % 10 * 30), iWhite) << I;
}

TEST_F(Draw, TheClipEndsLinesAndLeavesMarkersAndLettersOutsideOut) {
  const auto all = [](R4 fX) {
    IGrMarker(fX, 100.0f, iMarkerDisc);
    WGrTextString(fX, 200.0f, "X");
  };
  const QImage hImage = Drawn([&] {
    IGrClip(100.0f, 50.0f, 300.0f, 250.0f);
    IGrSegment(0.0f, 150.0f, 400.0f, 150.0f);
    IGrSegment(100.0f, 50.0f, 300.0f, 50.0f);
    all(99.0f);
    all(301.0f);
    IGrMarker(100.0f, 250.0f, iMarkerDisc);
  });
  const QRect hBox = Drawn_Box(hImage);
  EXPECT_EQ(hImage.pixel(200, 250), iBlack) << "a line on the edge of the clip is inside";
  EXPECT_EQ(hImage.pixel(100, 50), iBlack) << "so is a marker, which is whole";
  EXPECT_LE(hBox.right(), 301);
  EXPECT_GE(hBox.left(), 95);
  IGrUnits(0.0f, 0.0f, 400.0f, 300.0f);
  EXPECT_GT(Ink(Drawn([&] { all(20.0f); })), 10.0) << "other units end the clip";
  const QImage hNothing = Drawn([&] {
    IGrClip(500.0f, 50.0f, 600.0f, 250.0f);
    IGrSegment(-100.0f, 400.0f, 400.0f, -100.0f);
    IGrSegment(-100.0f, 300.0f, 500.0f, 300.0f);
    all(0.0f);
  });
  EXPECT_EQ(Ink(hNothing), 0.0) << "a clip beside the area leaves nothing";
}

TEST_F(Draw, TheAreaInUseAlwaysClips) {
  IGrArea(0.5f, 0.5f, 1.0f, 1.0f);
  IGrUnits(0.0f, 0.0f, 1.0f, 1.0f);
  const QImage hImage = Drawn([] {
    IGrSegment(-1.0f, 0.5f, 2.0f, 0.5f);
    WGrTextOrientation(Justify::Left, 0.0f);
    WGrTextString(-0.1f, 0.2f, "a text that begins to the left of the area");
  });
  EXPECT_GE(Drawn_Box(hImage).left(), 199);
  EXPECT_EQ(hImage.pixel(300, 75), iBlack);
}

TEST_F(Draw, TextStandsWhereItsOrientationPutsIt) {
  struct Case {
    Justify iJustify;
    R4 fAngle;
    R8 dX, dY;  // middle of the text from its place, in halves of its length: to the right and downward
  };
  WGrTextFont(0.02f, 0.06f);
  const R8 dHalf = 0.5 * R8{WGrTextLength("HHHHHHHHHH")};
  for (const Case& h : {
           Case{Justify::Left,   0.0f,   1.0,  0.0 },
           Case{Justify::Centre, 0.0f,   0.0,  0.0 },
           Case{Justify::Right,  0.0f,   -1.0, 0.0 },
           Case{Justify::Left,   -90.0f, 0.0,  -1.0},
           Case{Justify::Right,  -90.0f, 0.0,  1.0 },
           Case{Justify::Left,   90.0f,  0.0,  1.0 },
           Case{Justify::Left,   -30.0f, 0.87, -0.5}
  }) {
    const QRect hBox = Drawn_Box(Drawn([&] {
      WGrTextOrientation(h.iJustify, h.fAngle);
      WGrTextString(200.0f, 150.0f, "HHHHHHHHHH");
    }));
    EXPECT_NEAR(hBox.center().x(), 200.0 + h.dX * dHalf, 3.5) << static_cast<I4>(h.iJustify) << ' ' << h.fAngle;
    EXPECT_NEAR(hBox.center().y(), 150.0 + h.dY * dHalf, 3.5) << static_cast<I4>(h.iJustify) << ' ' << h.fAngle;
  }
}

TEST_F(Draw, LettersAreNeitherTooSmallNorTooNarrow) {
  WGrTextFont(0.001f, 0.001f);
  EXPECT_NEAR(InfoGraphics(iCharHeight), 9.0f, 1e-3f);
  const R4 fNarrow = InfoGraphics(iCharWidth);
  WGrTextFont(0.0f, 0.03f);
  EXPECT_NEAR(InfoGraphics(iCharWidth), fNarrow, 1e-3f) << "letters of 9 pixels at the least width";
  WGrTextFont(0.02f, 0.03f);
  EXPECT_NEAR(InfoGraphics(iCharWidth), 8.0f, 1e-3f);
  EXPECT_NEAR(WGrTextLength("0123456789"), 80.0f, 1e-2f) << "the width is the advance of a digit";
}

TEST_F(Draw, TheSameRubberBandTwiceTakesItAway) {
  const QImage hPlain = On_Screen();
  const auto band = [] {
    IGrPlotMode1("E");
    IGrRectangle(100.0f, 100.0f, 200.0f, 180.0f);
    IGrMoveTo(250.0f, 50.0f);
    IGrLineTo(350.0f, 50.0f);
    IGrPlotMode1("N");
  };
  band();
  const QImage hBand = On_Screen();
  EXPECT_EQ(hBand.pixel(150, 120), iRed) << "the upper edge";
  EXPECT_EQ(hBand.pixel(100, 150), iRed);
  EXPECT_EQ(hBand.pixel(300, 250), iRed);
  EXPECT_EQ(Backing_Image().pixel(150, 120), iWhite) << "the picture below is whole";
  band();
  EXPECT_EQ(On_Screen(), hPlain);

  band();
  WindowClear();
  EXPECT_EQ(On_Screen(), hPlain) << "a clear takes them away as well";
  IGrPlotMode1("E");
  IGrRectangle(-fFar, 50.0f, fFar, 100.0f);
  IGrRectangle(fNone, 50.0f, 10.0f, 100.0f);
  EXPECT_EQ(On_Screen().pixel(200, 200), iRed) << "what reaches out of the area ends at its edge";
}

TEST_F(Draw, TheKeeperGivesTheStateBack) {
  WGrTextFont(0.02f, 0.06f);
  IGrMoveTo(10.0f, 10.0f);
  const auto draw = [] {
    IGrLineTo(300.0f, 200.0f);
    IGrMarker(50.0f, 100.0f, iMarkerDisc);
    WGrTextString(200.0f, 50.0f, "text");
    IGrMoveTo(10.0f, 10.0f);
  };
  const QImage hBefore = Drawn(draw);
  {
    GraphicsKeeper hKeeper;
    IGrArea(0.1f, 0.1f, 0.5f, 0.5f);
    IGrUnits(5.0f, 5.0f, -5.0f, -5.0f);
    IGrClip(0.0f, 0.0f, 1.0f, 1.0f);
    IGrColour("MAGENTA");
    IGrLineType(LineType::Dashed);
    IGrLineWidth(3.0f);
    IGrPlotMode1("E");
    WGrTextFont(0.1f, 0.2f);
    WGrTextOrientation(Justify::Right, 45.0f);
    IGrMoveTo(1.0f, 1.0f);
  }
  EXPECT_EQ(Drawn(draw), hBefore);
}

TEST_F(Draw, WhatMakesNoSenseIsRefusedAndLeavesTheStateAsItWas) {
  WGrTextFont(0.02f, 0.06f);
  const auto draw = [] {
    IGrSegment(10.0f, 10.0f, 300.0f, 200.0f);
    WGrTextString(200.0f, 50.0f, "text");
  };
  const QImage hBefore = Drawn(draw);
  const std::function<void()> hBad[] = {
      [] { IGrArea(0.5f, 0.0f, 0.5f, 1.0f); },
      [] { IGrUnits(0.0f, fNone, 1.0f, 1.0f); },
      [] { IGrClip(0.0f, 0.0f, 0.0f, 1.0f); },
      [] { IGrColour("PUCE"); },
      [] { IGrLineWidth(0.0f); },
      [] { IGrLineWidth(fNone); },
      [] { IGrPlotMode1("X"); },
      [] { WGrTextFont(fNone, 0.1f); },
      [] { WGrTextOrientation(Justify::Left, fNone); },
      [] { InfoGraphics(99); },
  };
  for (const auto& bad : hBad) {
    bad();
    EXPECT_EQ(InfoError(), iErrBadArgument);
  }
  EXPECT_EQ(Drawn(draw), hBefore);
}

TEST_F(Draw, PixelsAreMeasuredInUnitsThatMayFall) {
  IGrArea(0.25f, 0.5f, 0.75f, 1.0f);
  IGrUnits(0.0f, 0.0f, 100.0f, -2.0f);
  EXPECT_EQ(Units_to_Pixels(QPointF(50.0, -1.0)), QPointF(200.0, 75.0));
  EXPECT_EQ(Pixels_to_Units(QPointF(200.0, 75.0)), QPointF(50.0, -1.0));
  EXPECT_NEAR(IGrPixelSize().fX, 0.5f, 1e-6f);
  EXPECT_NEAR(IGrPixelSize().fY, 2.0f / 150.0f, 1e-6f);
}

TEST_F(Draw, FilledRectanglesThatShareAnEdgeLeaveNoGap) {
  const QImage hImage = Drawn([] {
    IGrClip(0.0f, 0.0f, 200.0f, 300.0f);
    for (I4 I = 0; I < 37; ++I) {
      const R4 fY = 20.0f + 7.03f * static_cast<R4>(I);
      IGrFilledRectangle(180.4f, fY + 7.03f, 250.0f, fY);
    }
    IGrClipOff();
  });
  EXPECT_EQ(Drawn_Box(hImage), QRect(QPoint(180, 20), QPoint(199, 279))) << "as far as the clip goes";
  EXPECT_NEAR(Ink(hImage), 20.0 * 260, 0.01) << "all of it";
}

TEST_F(Draw, ArrowsHaveAHeadAtTheEndOrAtBoth) {
  const auto Shaft = [](const QImage& h, int iRow) { return qGray(h.pixel(200, iRow)) < 128; };
  const auto Head = [](const QImage& h, int iTop) { return Ink(h.copy(190, iTop, 20, 12)); };
  const QImage hOne = Drawn([] { IGrArrowJoin(200.0f, 50.0f, 200.0f, 250.0f, ArrowHeads::End); });
  EXPECT_TRUE(Shaft(hOne, 60) && Shaft(hOne, 150) && Shaft(hOne, 240));
  EXPECT_GT(Head(hOne, 49), 20.0) << "at the upper end";
  EXPECT_LT(Head(hOne, 240), 14.0);
  const QImage hBoth = Drawn([] { IGrArrowJoin(200.0f, 50.0f, 200.0f, 250.0f, ArrowHeads::Both); });
  EXPECT_NEAR(Head(hBoth, 49), Head(hBoth, 240), 4.0);
  for (const R4 fBad : {fNone, fFar * fFar}) {
    EXPECT_EQ(Ink(Drawn([&] {
                IGrArrowJoin(fBad, 50.0f, 200.0f, 250.0f, ArrowHeads::Both);
                IGrFilledRectangle(fBad, 1.0f, 2.0f, 3.0f);
              })),
              0.0);
  }
  EXPECT_EQ(Ink(Drawn([] { IGrArrowJoin(5.0f, 5.0f, 5.0f, 5.0f, ArrowHeads::Both); })) < 2.0, true) << "without length";
}

TEST_F(Draw, AChildWindowLeavesTheMainOneAsItIs) {
  IGrUnits(0.0f, 0.0f, 4.0f, 3.0f);
  IGrColour("RED");
  IGrSegment(1.0f, 1.0f, 3.0f, 2.0f);
  const QImage hBefore = Backing_Image().copy();
  const QWidget* hMainArea = Drawing_Area();
  WindowOpenChild2(500, 350, "child");
  EXPECT_NE(Drawing_Area(), hMainArea);
  EXPECT_EQ(Drawing_Area()->width(), 500);
  EXPECT_EQ(InfoGraphics(iUnitXMax), 1.0f) << "a state of its own";
  WindowClear();
  IGrSegment(0.0f, 0.0f, 1.0f, 1.0f);
  EXPECT_GT(Ink(Backing_Image()), 100.0);
  Main_Window()->resize(Main_Window()->width() + 100, Main_Window()->height());
  WindowOpenChild2(500, 350, "another");
  EXPECT_EQ(InfoError(), iErrBadArgument) << "one at a time";
  WindowCloseChild();
  WindowCloseChild();  // harmless
  EXPECT_EQ(Drawing_Area(), hMainArea);
  EXPECT_EQ(Backing_Image().size(), QSize(500, 300)) << "which has followed its window";
  EXPECT_EQ(InfoGraphics(iUnitXMax), 4.0f);
  Main_Window()->resize(Main_Window()->width() - 100, Main_Window()->height());
  EXPECT_LT(std::abs(Ink(Backing_Image()) - Ink(hBefore)), 40.0) << "what was drawn is still there";
  WindowOpenChild2(500, 350, "left open");
  WindowClose();
  Open();
  EXPECT_EQ(Ink(Backing_Image()), 0.0);
}

TEST_F(Draw, WhatIsCollectedGoesWithTheWindow) {
  IGrSegment(1.0f, 1.0f, 5.0f, 5.0f);
  WindowClose();
  IGrFlush();
  EXPECT_EQ(WGrTextLength("text") + InfoGraphics(iCharHeight), 0.0f);
  Open();
  EXPECT_EQ(Ink(Backing_Image()), 0.0);
}

}  // namespace
}  // namespace quillan
