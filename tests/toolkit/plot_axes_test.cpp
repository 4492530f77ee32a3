#include "toolkit/draw/plot_axes.h"

#include <gtest/gtest.h>

#include <QFontMetricsF>
#include <cmath>
#include <functional>
#include <limits>

#include "support/played_session.h"
#include "toolkit/draw/private_draw.h"

namespace quillan {
namespace {

using namespace toolkit;

constexpr R4 fInf = std::numeric_limits<R4>::infinity();

std::string Majors(const std::vector<Tick>& hTick) {
  std::ostringstream sAll;
  for (const Tick& h : hTick) {
    if (h.bMajor) sAll << (sAll.tellp() > 0 ? " " : "") << h.dValue;
  }
  return sAll.str();
}

TEST(Ticks, LinearStepsAreTidyAndAtLeastThree) {
  const struct {
    R8 dLow, dHigh;
    I4 MMajor;
    const char* sTicks;
  } hCases[] = {
      {0,    10,   5,  "0 2 4 6 8 10"         },
      {0.3,  9.7,  10, "1 2 3 4 5 6 7 8 9"    },
      {-1,   1,    4,  "-1 -0.5 0 0.5 1"      },
      {1100, 1900, 3,  "1200 1400 1600 1800"  },
      {0.1,  0.3,  5,  "0.1 0.15 0.2 0.25 0.3"},
      {9,    1,    4,  "2 4 6 8"              },
      {5,    5,    5,  "4.6 4.8 5 5.2 5.4"    },
      {0,    0,    2,  "-1 0 1"               },
  };
  for (const auto& c : hCases) {
    EXPECT_EQ(Majors(Linear_Ticks(c.dLow, c.dHigh, c.MMajor)), c.sTicks) << c.dLow << " to " << c.dHigh;
  }
}

TEST(Ticks, LogarithmicOnesAreDecadesThenOneTwoFiveThenTidySteps) {
  const struct {
    R8 dLow, dHigh;
    I4 MMajor;
    const char* sTicks;
  } hCases[] = {
      {0.005,   20,     10, "0.01 0.1 1 10"                 },
      {1.0E-12, 1.0E12, 5,  "1e-10 1e-05 1 100000 1e+10"    },
      {0.8,     30,     10, "1 2 5 10 20"                   },
      {3,       40,     10, "5 10 20"                       },
      {2.1,     4.9,    10, "2.5 3 3.5 4 4.5"               },
      {7,       7,      10, "5 10 20"                       },
      {100,     1,      10, "1 10 100"                      },
      {-3,      100,    10, "0.0001 0.001 0.01 0.1 1 10 100"},
  };
  for (const auto& c : hCases) {
    EXPECT_EQ(Majors(Logarithmic_Ticks(c.dLow, c.dHigh, c.MMajor)), c.sTicks) << c.dLow << " to " << c.dHigh;
  }
}

TEST(Ticks, MinorOnesStandBetweenMajorOnes) {
  EXPECT_EQ(Linear_Ticks(0, 4, 2).size(), 9U) << "four parts of a step of 2";
  EXPECT_EQ(Linear_Ticks(0, 5, 5).size(), 26U) << "five of a step of 1";
  EXPECT_EQ(Logarithmic_Ticks(1, 1000, 10).size(), 28U) << "2 to 9 of three decades";
  EXPECT_EQ(Logarithmic_Ticks(2, 20, 10).size(), 10U) << "every digit from 2 on";
}

TEST(Ticks, AnyRangeEnds) {
  for (const R8 dLow : {-1.0E38, -1.0, 0.0, 1.0E-38, 1.0, 1.0E30, std::nan(""), -HUGE_VAL}) {
    for (const R8 dHigh : {-1.0E30, 0.0, 1.0E-45, 1.0 + 1.0E-15, 3.0E38, std::nan(""), HUGE_VAL}) {
      EXPECT_LT(Linear_Ticks(dLow, dHigh, 10).size(), 200U) << dLow << " to " << dHigh;
      EXPECT_LT(Logarithmic_Ticks(dLow, dHigh, 10).size(), 200U) << dLow << " to " << dHigh;
    }
  }
}

/// A plot from 1 to 9 in X and 2 to 8 in Y of an area of 10 by 10 graphics units.
void Begin_Plot(Scaling iX, Scaling iY, R4 fXMin, R4 fYMin, R4 fXMax, R4 fYMax) {
  IGrArea(0.0f, 0.0f, 1.0f, 1.0f);
  IGrUnits(0.0f, 0.0f, 10.0f, 10.0f);
  IPgArea(0.1f, 0.2f, 0.9f, 0.8f);
  IPgScaling(iX, iY);
  IPgUnits(fXMin, fYMin, fXMax, fYMax);
}

TEST(PlotUnits, LieWhereTheScaleOfTheAxisPutsThem) {
  PlayedSession hSession("");
  Begin_Plot(Scaling::Logarithmic, Scaling::Linear, 0.01f, -3.0f, 100.0f, 7.0f);
  const struct {
    GrPoint hPg, hGr;
  } hCases[] = {
      {{0.01f, -3.0f}, {1.0f, 2.0f}},
      {{100.0f, 7.0f}, {9.0f, 8.0f}},
      {{0.1f, -1.0f},  {3.0f, 3.2f}},
  };
  for (const auto& [hPg, hGr] : hCases) {
    EXPECT_FLOAT_EQ(IPgUnitsToGrUnits(hPg.fX, hPg.fY).fX, hGr.fX);
    EXPECT_FLOAT_EQ(IPgUnitsToGrUnits(hPg.fX, hPg.fY).fY, hGr.fY);
    EXPECT_NEAR(IPgUnitsFromGrUnits(hGr.fX, hGr.fY).fX, hPg.fX, 1.0E-4f * hPg.fX);
    EXPECT_NEAR(IPgUnitsFromGrUnits(hGr.fX, hGr.fY).fY, hPg.fY, 1.0E-5f);
  }
  EXPECT_TRUE(std::isnan(IPgUnitsToGrUnits(0.0f, 1.0f).fX)) << "no place on a logarithmic axis";
  EXPECT_GT(IPgUnitsToGrUnits(0.0f, 1.0E30f).fY, 1.0E28f);
  EXPECT_TRUE(std::isfinite(IPgUnitsToGrUnits(1.0f, -fInf).fY)) << "far out, but a place to draw to";
}

TEST(PlotUnits, TheEndsOfTheRangeLieExactlyOnTheEdges) {
  PlayedSession hSession("");
  for (const R4 fEnd : {0.3f, 7.7f, 12345.678f, 1.0E30f}) {
    Begin_Plot(Scaling::Linear, Scaling::Linear, -0.1f, 1.0E-3f, fEnd, fEnd);
    EXPECT_EQ(IPgUnitsToGrUnits(-0.1f, 1.0E-3f).fX, 0.1f * 10.0f);
    EXPECT_EQ(IPgUnitsToGrUnits(-0.1f, 1.0E-3f).fY, 0.2f * 10.0f);
    EXPECT_EQ(IPgUnitsToGrUnits(fEnd, fEnd).fX, 0.9f * 10.0f);
    EXPECT_EQ(IPgUnitsToGrUnits(fEnd, fEnd).fY, 0.8f * 10.0f);
  }
}

TEST(PlotUnits, ARangeThatNoAxisCanHaveBecomesOneThatItCan) {
  PlayedSession hSession("");
  Begin_Plot(Scaling::Linear, Scaling::Logarithmic, 50.0f, -2.0f, 50.0f, 0.0f);
  EXPECT_FLOAT_EQ(InfoPgReal(iPlotXMin), 45.0f);
  EXPECT_FLOAT_EQ(InfoPgReal(iPlotXMax), 55.0f);
  EXPECT_FLOAT_EQ(InfoPgReal(iPlotYMin), 1.0f);
  EXPECT_FLOAT_EQ(InfoPgReal(iPlotYMax), 10.0f);
  Begin_Plot(Scaling::Linear, Scaling::Logarithmic, std::nanf(""), 8.0f, fInf, 8.0f);
  EXPECT_TRUE(std::isfinite(InfoPgReal(iPlotXMin)) && std::isfinite(InfoPgReal(iPlotXMax)));
  EXPECT_FLOAT_EQ(InfoPgReal(iPlotYMax), 8.0f * std::sqrt(10.0f));
}

/// A text as it is drawn: its ends and its baseline, in pixels of the picture, to the right and downward.
struct DrawnText {
  R8 dLeft, dRight, dBaseline;
  std::string sText;
};

/// A picture of which only the texts are kept.
class TextNotebook : public BackEnd {
 public:
  std::vector<DrawnText> hText;
  void Lines(std::span<const QLineF>, const Pen&) override {}
  void Fill(const QRectF&, QRgb) override {}
  void Disc(QPointF, R8, QRgb) override {}
  void Write(const Letters& h) override {
    const R8 dLength = QFontMetricsF(h.hFont).horizontalAdvance(h.sText) * h.dXScale;
    hText.push_back({h.hStart.x(), h.hStart.x() + dLength, h.hStart.y(), To_Bytes(h.sText)});
  }
};

/// The texts that are drawn into a picture of 2000 by 1500 pixels.
std::vector<DrawnText> Texts_of(const std::function<void()>& draw) {
  TextNotebook hNotebook;
  Enter_Picture({.hBackEnd = &hNotebook, .hSize = QSizeF(2000.0, 1500.0)});
  draw();
  Leave_Picture();
  return hNotebook.hText;
}

TEST(AxisTexts, NeitherCollideNorLeaveThePicture) {
  PlayedSession hSession("");
  const struct {
    Scaling iScaling;
    R4 fMin, fMax;
  } hCases[] = {
      {Scaling::Linear,      0.0f,       1.0f      },
      {Scaling::Linear,      -123456.0f, -123455.0f},
      {Scaling::Linear,      4.0E6f,     5.0E6f    },
      {Scaling::Linear,      1.0E30f,    3.0E30f   },
      {Scaling::Logarithmic, 0.005f,     30.0f     },
      {Scaling::Logarithmic, 1.0E-9f,    1.0E9f    },
      {Scaling::Logarithmic, 0.9f,       11.0f     },
      {Scaling::Logarithmic, 2.9f,       3.1f      },
  };
  for (const auto& c : hCases) {
    for (const R4 fSize : {0.02f, 0.04f, 0.08f}) {
      const std::vector<DrawnText> hText = Texts_of([&] {
        Begin_Plot(c.iScaling, Scaling::Linear, c.fMin, 0.0f, c.fMax, 1.0f);
        WGrTextFont(0.4f * fSize, fSize);
        IPgXScale("TN");
      });
      const testing::Message sWhat = testing::Message() << c.fMin << " to " << c.fMax << ", size " << fSize;
      EXPECT_GE(hText.size(), fSize < 0.05f ? 3U : 1U) << sWhat;
      for (const DrawnText& h : hText) {
        EXPECT_TRUE(h.dLeft > -0.5 && h.dRight < 2000.5 && h.dBaseline < 1500.5) << sWhat << ": " << h.sText;
        for (const DrawnText& hOther : hText) {
          EXPECT_TRUE(&h == &hOther || h.dRight < hOther.dLeft || hOther.dRight < h.dLeft)
              << sWhat << ": " << h.sText << " and " << hOther.sText;
        }
      }
    }
  }
}

TEST(AxisTexts, CoordinatesAreWrittenInFull) {
  PlayedSession hSession("");
  const struct {
    R8 dOrigin;
    R4 fHalf;
    const char* sTexts;
  } hCases[] = {
      {5176420.0,   60.0f,  "5176360 5176380 5176400 5176420 5176440 5176460 5176480"            },
      {16983400.25, 0.6f,   "16983399.8 16983400.0 16983400.2 16983400.4 16983400.6 16983400.8"  },
      {0.0,         2.0E6f, "-2000000 -1500000 -1000000 -500000 0 500000 1000000 1500000 2000000"},
  };
  for (const auto& c : hCases) {
    R4 fWidest = 0.0f;
    const std::vector<DrawnText> hText = Texts_of([&] {
      Begin_Plot(Scaling::Linear, Scaling::Linear, 0.0f, 0.0f, 1.0f, 1.0f);
      IPgCoordinates(c.dOrigin, c.dOrigin);
      IPgUnits(-c.fHalf, -c.fHalf, c.fHalf, c.fHalf);
      WGrTextFont(0.02f, 0.06f);
      IPgYScaleLeft("IN");
      IPgXScaleTop("I");
      IPgYScaleRight("I");
      fWidest = IPgYScaleWidth();
      const GrPoint h = IPgNumbersToGrUnits(c.dOrigin + 0.5 * R8{c.fHalf}, c.dOrigin);
      EXPECT_NEAR(h.fX, 7.0f, 1.0E-3f);
      EXPECT_NEAR(IPgNumbersFromGrUnits(h.fX, h.fY).dX, c.dOrigin + 0.5 * R8{c.fHalf}, 1.0E-5 * R8{c.fHalf});
    });
    std::string sAll;
    R8 dWidest = 0.0;
    for (const DrawnText& h : hText) {
      sAll += (sAll.empty() ? "" : " ") + h.sText;
      dWidest = std::max(dWidest, h.dRight - h.dLeft);
    }
    EXPECT_EQ(sAll, c.sTexts);
    EXPECT_NEAR(R8{fWidest} * 200.0, dWidest, 0.5);
  }
  Begin_Plot(Scaling::Linear, Scaling::Linear, 0.0f, 0.0f, 1.0f, 1.0f);
  EXPECT_EQ(IPgNumbersToGrUnits(1.0, 0.0).fX, 9.0f) << "the next plot has plot units again";
}

TEST(AxisTexts, OfTheCallerStandRightAlignedAndWithoutTheirBlanks) {
  PlayedSession hSession("");
  const R4 fYTick[] = {0.0f, 0.01f, 0.5f, 1.0f};
  const std::string sYTick[] = {"  -10 ", "crowded", "0", "1.0E+04"};
  const std::vector<DrawnText> hText = Texts_of([&] {
    Begin_Plot(Scaling::Linear, Scaling::Linear, 0.0f, 0.0f, 1.0f, 1.0f);
    IPgYUserScale(fYTick, sYTick, "T");
  });
  ASSERT_EQ(hText.size(), 3U);
  EXPECT_EQ(hText[0].sText + "," + hText[1].sText + "," + hText[2].sText, "-10,0,1.0E+04");
  EXPECT_NEAR(hText[0].dRight, hText[2].dRight, 2);
  EXPECT_LT(hText[0].dRight, 200) << "clear of the plot";
  EXPECT_GT(hText[0].dBaseline, hText[2].dBaseline);
}

TEST(AxisTexts, ATitleThatIsTooLongIsMadeSmaller) {
  PlayedSession hSession("");
  const std::vector<DrawnText> hText = Texts_of([] {
    Begin_Plot(Scaling::Linear, Scaling::Linear, 0.0f, 0.0f, 1.0f, 1.0f);
    WGrTextFont(0.02f, 0.05f);
    IPgTitle(std::string(70, 'm'), 0.8f);
  });
  ASSERT_EQ(hText.size(), 1U);
  EXPECT_GE(hText[0].dLeft, 0) << "it is centred: so far from the right edge, too";
  EXPECT_LT(hText[0].dLeft, 500);
}

}  // namespace
}  // namespace quillan
