#include "review/plot/map_plot.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/played_session.h"

namespace quillan {
namespace {

TEST(MapRange, HoldsAllPointsAtOneScaleWithRoomAround) {
  struct Case {
    const char* sWhat;
    std::vector<MapPoint> hPoint;
    R8 dYXPlot;
    R8 dXC, dYC, dXW;  // worked out by hand, widened by 1.1 along X and again along Y
  };
  const Case hCases[] = {
      {"wide",           {{0, 0}, {100, 10}},   0.5, 50,      5,        1.21 * 50      },
      {"high",           {{0, 0}, {10, 100}},   0.5, 5,       50,       1.21 * 100     },
      {"one station",    {{500, 4000}},         1.0, 500,     4000,     1.21 * 0.1     },
      {"far from zero",  {{482310, 5176420}},   1.0, 482310,  5176420,  1.21 * 103.5284},
      {"south and west", {{-482310, -5176420}}, 2.0, -482310, -5176420, 1.21 * 0.1     },
  };
  for (const Case& c : hCases) {
    SCOPED_TRACE(c.sWhat);
    const MapRange h = Map_Range(c.hPoint, c.dYXPlot, 1.1);
    EXPECT_EQ(h.dXC, c.dXC);
    EXPECT_EQ(h.dYC, c.dYC);
    EXPECT_NEAR(h.dXW, c.dXW, 1.0E-9 * c.dXW);
    EXPECT_NEAR(h.dYW, h.dXW * c.dYXPlot, 1.0E-9 * h.dYW) << "a metre is as long along either axis";
  }
}

// A plot of 100 by 100; notes take its upper 0.2 and left 0.4, the bar 0.3 by 0.1.
constexpr MapBlock hNotes{0.4f, 0.2f}, hScale{0.3f, 0.1f};
constexpr MapRange hHundred{50, 50, 50, 50};

std::string Where(const std::optional<BlockPlace>& h) {
  if (!h) return "nowhere";
  return std::string(h->fY > 0.0f ? "upper " : "lower ") + (h->fX > 0.0f ? "right" : "left");
}

TEST(MapLayout, TextsStandInCornersWithoutPoints) {
  struct Case {
    const char* sWhat;
    std::vector<MapPoint> hPoint;
    const char *sNotes, *sScale;
  };
  const Case hCases[] = {
      {"no points",            {},                             "upper left",  "lower right"},
      {"a line up",            {{10, 10}, {50, 50}, {90, 90}}, "upper left",  "lower right"},
      {"a line down",          {{10, 90}, {50, 50}, {90, 10}}, "upper right", "lower left" },
      {"along the upper edge", {{10, 95}, {90, 95}},           "lower left",  "lower right"},
  };
  for (const Case& c : hCases) {
    SCOPED_TRACE(c.sWhat);
    const MapLayout h = Map_Layout(hHundred, c.hPoint, hNotes, hScale);
    EXPECT_EQ(Where(h.hNotes), c.sNotes);
    EXPECT_EQ(Where(h.hScale), c.sScale);
    EXPECT_EQ(h.hRange.dXW, 50.0) << "the map stays as it is";
  }
}

TEST(MapLayout, WherePointsAreEverywhereTheMapMakesRoomAboveThem) {
  std::vector<MapPoint> hPoint;
  for (I4 I = 0; I <= 20; ++I)
    for (I4 J = 0; J <= 20; ++J) hPoint.push_back({5.0 * I, 5.0 * J});
  const MapLayout h = Map_Layout(hHundred, hPoint, hNotes, hScale);
  EXPECT_EQ(Where(h.hNotes), "upper left");
  EXPECT_EQ(Where(h.hScale), "upper right");
  EXPECT_NEAR(h.hRange.dXW, 50 / 0.8, 1.0E-4);
  EXPECT_NEAR(h.hRange.dYC - h.hRange.dYW, 0.0, 1.0E-4) << "the lower edge stays";
  EXPECT_NEAR(h.hRange.dYC + h.hRange.dYW, 100 / 0.8, 1.0E-4);
  EXPECT_EQ(h.hRange.dXC, 50.0);

  // Notes that leave no room for the map are left out; the bar is not.
  for (const MapBlock& hLarge : {
           MapBlock{0.4f, 0.6f},
           MapBlock{0.8f, 0.1f},
           MapBlock{}
  }) {
    EXPECT_EQ(Where(Map_Layout(hHundred, {}, hLarge, hScale).hNotes), "nowhere");
    EXPECT_EQ(Where(Map_Layout(hHundred, {}, hLarge, hScale).hScale), "lower right");
    EXPECT_NEAR(Map_Layout(hHundred, hPoint, hLarge, hScale).hRange.dYW, 50 / 0.9, 1.0E-4);
  }
}

TEST(MapNotes, AreCutToTheRoomTheyHave) {
  PlayedSession hSession("");
  WGrTextFont(0.01f, 0.02f);
  EXPECT_EQ(Cut_to_Room("data from orrin.stn", 5.0f), "data from orrin.stn");
  const std::string sCut = Cut_to_Room("data from orrin.stn", 1.0f);
  EXPECT_LE(WGrTextLength(sCut), 1.0f);
  EXPECT_GT(WGrTextLength(sCut), 0.8f);
  EXPECT_TRUE(sCut.starts_with("data fr") && sCut.ends_with("...")) << sCut;
  EXPECT_EQ(Cut_to_Room("orrin", 0.0f), "...");
  const GrBox hPlot{1.0f, 1.0f, 9.0f, 9.0f};
  const MapFonts hFonts{
      {0.01f, 0.02f},
      {0.01f, 0.02f},
      {0.01f, 0.02f}
  };
  const std::vector<std::string> sLine =
      Notes_with_Room(hPlot, hFonts, std::vector{std::string(200, 'x'), std::string("y")});
  EXPECT_EQ(sLine[1], "y");
  EXPECT_LE(Notes_Block(hPlot, hFonts, sLine).fWidth + Scale_Block(hPlot, hFonts).fWidth, 1.0f) << "side by side";
}

TEST(ScaleBar, HasATidyLengthOfAtMostAFifthOfTheMap) {
  const struct {
    R8 dWidth, dBar;
  } hCases[] = {
      {1000,         200  },
      {999,          100  },
      {499,          50   },
      {0.26,         0.05 },
      {5.0E9,        1.0E9},
      {0,            0    },
      {std::nan(""), 0    },
  };
  for (const auto& c : hCases) EXPECT_DOUBLE_EQ(Scale_Bar_Length(c.dWidth), c.dBar) << c.dWidth;
}

}  // namespace
}  // namespace quillan
