// Pictures of lines and letters: SVG and PDF, and the strip below a picture.
#include <gtest/gtest.h>

#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "support/files.h"
#include "support/played_session.h"
#include "toolkit/draw/hardcopy.h"

namespace quillan {
namespace {

class PageHardcopy : public testing::Test {
 protected:
  void SetUp() override {
    Open_Window(900, 600);
    IGrHardCopySize(2400, 1780);
    IGrHardCopyFoot(0);
  }
  void TearDown() override { WindowClose(); }

  /// The file of a drawing in tenths of millimetres.
  static std::string Drawn(HardCopyDriver iDriver, const std::function<void()>& draw) {
    IGrHardCopySelect(iDriver);
    IGrHardCopy("a.out");
    IGrArea(0.0f, 0.0f, 1.0f, 1.0f);
    IGrUnits(0.0f, 0.0f, 2400.0f, 1780.0f);
    IGrColour("BLACK");
    IGrLineWidth(1.0f);
    draw();
    EXPECT_EQ(IGrHardCopyEnd().iError, 0);
    return Read_Whole_File("a.out");
  }

  /// What stands between two texts, at each place.
  static std::vector<std::string> Between(const std::string& sFile, const std::string& sBegin,
                                          const std::string& sEnd) {
    std::vector<std::string> sFound;
    for (auto i = sFile.find(sBegin); i != std::string::npos; i = sFile.find(sBegin, i)) {
      i += sBegin.size();
      sFound.push_back(sFile.substr(i, sFile.find(sEnd, i) - i));
    }
    return sFound;
  }
};

using Texts = std::vector<std::string>;

TEST_F(PageHardcopy, ACurveIsOnePathAndEndsAtTheEdge) {
  const std::string sSvg = Drawn(HardCopyDriver::Svg, [] {
    IGrMoveTo(0.0f, 0.0f);
    IGrLineTo(100.0f, 100.0f);
    IGrLineTo(200.0f, 100.0f);
    IGrSegment(2300.0f, 780.0f, 1.0e30f, 780.0f);
  });
  EXPECT_EQ(Between(sSvg, " d=\"", "\""), (Texts{"M0,1780 L100,1680 L200,1680 M2300,1000 L2400.01,1000"}))
      << "cut at the edge, with the slack of a clip";
  EXPECT_EQ(Between(sSvg, "stroke-width=\"", "\"").back(), "2.64583") << "a pixel is 1/96 inch";
  EXPECT_EQ(Between(sSvg, "<svg ", "\n"), Texts{"width=\"240mm\" height=\"178mm\""});
}

TEST_F(PageHardcopy, TextIsTextAndDiscsOfOneColourShareItsSetting) {
  const std::string sSvg = Drawn(HardCopyDriver::Svg, [] {
    WGrTextFont(0.01f, 0.02f);
    WGrTextOrientation(Justify::Left, 0.0f);
    WGrTextString(100.0f, 100.0f, "dBz/dt < 5 & more");
    for (I4 I = 1; I <= 20; ++I) IGrDisc(50.0f * static_cast<R4>(I), 500.0f, 4.0f);
  });
  EXPECT_NE(sSvg.find(">dBz/dt &lt; 5 &amp; more</text>"), std::string::npos) << sSvg;
  EXPECT_EQ(Between(sSvg, "<circle", "/>").size(), 20u);
  EXPECT_LT(Between(sSvg, "<g ", ">").size(), 6u) << "not one for each disc";
}

TEST_F(PageHardcopy, APdfIsAPageOfTheSameSizeWithItsLetters) {
  const std::string sPdf = Drawn(HardCopyDriver::Pdf, [] { WGrTextString(100.0f, 100.0f, "Line 12"); });
  EXPECT_TRUE(sPdf.starts_with("%PDF-1."));
  EXPECT_NE(sPdf.find("/Title "), std::string::npos);
  EXPECT_NE(sPdf.find("/FontFile2"), std::string::npos) << "letters of a font, not shapes";
  const auto sBox = Between(sPdf, "/MediaBox [", "]");
  ASSERT_EQ(sBox.size(), 1u);
  R4 fWidth = 0.0f, fHeight = 0.0f;
  EXPECT_EQ(std::sscanf(sBox[0].c_str(), "0 0 %f %f", &fWidth, &fHeight), 2) << sBox[0];
  EXPECT_NEAR(fWidth, 680.3f, 1.0f) << "points";
  EXPECT_NEAR(fHeight, 504.6f, 1.0f);
}

TEST_F(PageHardcopy, AStripBelowThePictureLeavesItAsItIs) {
  const auto draw = [] {
    IGrSegment(0.0f, 0.0f, 2400.0f, 1780.0f);
    IGrSegment(10.0f, -20.0f, 20.0f, -20.0f);
  };
  const Texts sWithout = Between(Drawn(HardCopyDriver::Svg, draw), " d=\"", "\"");
  IGrHardCopyFoot(50);
  const std::string sSvg = Drawn(HardCopyDriver::Svg, [&] {
    draw();
    IGrArea(0.0f, -50.0f / 1780.0f, 1.0f, 0.0f);
    IGrUnits(0.0f, 0.0f, 1.0f, 1.0f);
    IGrSegment(0.0f, 0.0f, 1.0f, 0.5f);
  });
  EXPECT_NE(sSvg.find("viewBox=\"0 0 2400 1830\""), std::string::npos);
  EXPECT_EQ(sWithout, Texts{"M0,1780 L2400,0"}) << "nothing of the plot reaches below it";
  EXPECT_EQ(Between(sSvg, " d=\"", "\""), Texts{"M0,1780 L2400,0 M0,1830 L2400,1805"});
  for (const I4 NFoot : {-1, 32000}) {
    IGrHardCopyFoot(NFoot);
    EXPECT_EQ(InfoError(), iErrBadArgument) << NFoot;
  }
}

TEST_F(PageHardcopy, OneThatIsGivenUpLeavesTheEarlierFile) {
  for (const HardCopyDriver iDriver : {HardCopyDriver::Svg, HardCopyDriver::Pdf}) {
    Write_File("a.out", "earlier");
    IGrHardCopySelect(iDriver);
    IGrHardCopy("a.out");
    IGrSegment(0.0f, 0.0f, 1.0f, 1.0f);
    IGrHardCopyDrop();
    EXPECT_EQ(Read_Whole_File("a.out"), "earlier");
  }
}

}  // namespace
}  // namespace quillan
