#include "review/plot/igr_util.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/played_session.h"

namespace quillan {
namespace {

TEST(SignedLogScale, IsOddLinearNearZeroAndLogarithmicFarFromIt) {
  EXPECT_EQ(fAsinh10(0.0f, 0.1f), 0.0f);
  for (const R4 fX : {1.0E-6f, 0.02f, 1.0f, 345.0f, 1.0E30f}) EXPECT_EQ(fAsinh10(-fX, 0.1f), -fAsinh10(fX, 0.1f));
  EXPECT_NEAR(fAsinh10(0.01f, 1.0f), 0.01f / (2.0f * std::log(10.0f)), 1.0E-7f);
  EXPECT_FLOAT_EQ(fAsinh10(0.1f, 0.1f), 0.20898764f);
  EXPECT_NEAR(fAsinh10(1.0E5f, 0.1f), 6.0f, 1.0E-6f);
}

TEST(SignedLogScale, TheInverseGivesTheValueBackAndIsHeldFarOut) {
  for (const R4 fX : {-250.0f, -0.03f, 0.0f, 0.1f, 7.0E6f}) {
    EXPECT_NEAR(fSinh10(fAsinh10(fX, 0.1f), 0.1f), fX, 2.0E-6f * std::max(std::abs(fX), 0.1f)) << fX;
  }
  EXPECT_FLOAT_EQ(fSinh10(40.0f, 0.1f), 1.0E31f);
  EXPECT_FLOAT_EQ(fSinh10(-32.0f, 0.1f), -1.0E31f);
}

/// The texts of the ticks between two values; each position is checked against its text.
std::string Ticks(R4 fLow, R4 fHigh, R4 fYPscl, I4 MYTick = 32) {
  I4 NYTick = -1;
  std::vector<R4> fYTick{99.0f};  // left from an earlier plot
  std::vector<std::string> sYTick{"old"};
  Asinh10_Ticks(fAsinh10(fLow, fYPscl), fAsinh10(fHigh, fYPscl), fYPscl, MYTick, NYTick, fYTick, sYTick);
  EXPECT_EQ(NYTick, static_cast<I4>(fYTick.size()));
  EXPECT_EQ(NYTick, static_cast<I4>(sYTick.size()));
  std::string sAll;
  for (std::size_t I = 0; I < sYTick.size(); ++I) {
    EXPECT_NEAR(fYTick[I], fAsinh10(std::stof(sYTick[I]), fYPscl), 1.0E-5f) << sYTick[I];
    sAll += (I > 0 ? " " : "") + sYTick[I];
  }
  return sAll;
}

TEST(SignedLogTicks, StandAtZeroAndAtTheDecadesOnEitherSide) {
  EXPECT_EQ(Ticks(-20.0f, 20000.0f, 0.1f), "-10 -1 -0.1 0 0.1 1 10 100 1000 1.0E+04");
  EXPECT_EQ(Ticks(-20.0f, 20000.0f, 0.05f), "-10 -1 -0.1 0 0.1 1 10 100 1000 1.0E+04");
  EXPECT_EQ(Ticks(-2.0E-4f, 0.02f, 1.0E-5f), "-1.0E-04 -1.0E-05 0 1.0E-05 1.0E-04 0.001 0.01");
  EXPECT_EQ(Ticks(0.5f, 5000.0f, 0.1f), "1 10 100 1000");
  EXPECT_EQ(Ticks(-1.0E4f, -5.0f, 0.1f, 3), "-1.0E+04 -1000 -100") << "no more than there is room for";
  EXPECT_EQ(Ticks(-1.0f, 1.0E30f, 1.0f, 4), "-1 0 1 10");
}

TEST(SignedLogTicks, ASmallZoomGetsOneTwoFive) {
  EXPECT_EQ(Ticks(1.5f, 12.0f, 0.1f), "2 5 10");
  EXPECT_EQ(Ticks(-3.0f, 0.3f, 1.0f), "-2 -1 0");
  EXPECT_EQ(Ticks(4000.0f, 60000.0f, 0.1f), "5000 1.0E+04 2.0E+04 5.0E+04");
}

TEST(SignedLogTicks, ATinyZoomGetsTidySteps) {
  EXPECT_EQ(Ticks(2.9f, 4.1f, 0.1f), "3 3.2 3.4 3.6 3.8 4");
  EXPECT_EQ(Ticks(-6.5E-4f, -1.5E-4f, 1.0E-5f), "-6.0E-04 -5.0E-04 -4.0E-04 -3.0E-04 -2.0E-04");
  EXPECT_EQ(Ticks(300.05f, 301.05f, 0.1f), "300.2 300.4 300.6 300.8 301");
  EXPECT_EQ(Ticks(-0.45f, 0.25f, 1.0f), "-0.4 -0.2 0 0.2");
  EXPECT_EQ(Ticks(30500.0f, 31500.0f, 0.1f), "3.06E+04 3.08E+04 3.10E+04 3.12E+04 3.14E+04");
}

TEST(SignedLogTicks, HostileRangesEnd) {
  const R4 fInf = std::numeric_limits<R4>::infinity();
  I4 NYTick = 0;
  std::vector<R4> fYTick;
  std::vector<std::string> sYTick;
  for (const R4 fYPscl : {0.0f, 1.0E-38f, 1.0E30f, fInf, std::nanf("")}) {
    for (const R4 fEnd : {0.0f, 1.0f, 60.0f, fInf, std::nanf("")}) {
      Asinh10_Ticks(-fEnd, fEnd, fYPscl, 45, NYTick, fYTick, sYTick);
      EXPECT_LE(NYTick, 45);
    }
  }
}

// The mouse: scripts over a drawing area of 10 by 10 units, in which a pixel is less than fPixel.

constexpr R4 fPixel = 0.025f;

struct MouseBox {
  R4 fX1 = -1.0f, fY1 = -1.0f, fX2 = -1.0f, fY2 = -1.0f;
  I4 iError = -1;

  void Expect(R4 fX1Told, R4 fY1Told, R4 fX2Told, R4 fY2Told) const {
    EXPECT_NEAR(fX1, fX1Told, fPixel);
    EXPECT_NEAR(fY1, fY1Told, fPixel);
    EXPECT_NEAR(fX2, fX2Told, fPixel);
    EXPECT_NEAR(fY2, fY2Told, fPixel);
  }
};

MouseBox Zoom_Box() {
  MouseBox h;
  IGr_ZoomMouseBox(iCursorCorner, h.fX1, h.fY1, h.fX2, h.fY2, h.iError);
  return h;
}

TEST(MousePoint, IsTheNextClickWhateverElseComes) {
  PlayedSession hSession("wheel 1 5 5\nkey x\nclick 2 7 right\nkey Esc\n");
  R4 fX = 0.0f, fY = 0.0f;
  I4 iError = -1;
  IGr_GetMousePoint(iCursorPick, fX, fY, iError);
  EXPECT_EQ(iError, 0);
  EXPECT_NEAR(fX, 2.0f, fPixel);
  EXPECT_NEAR(fY, 7.0f, fPixel);
  IGr_GetMousePoint(iCursorPick, fX, fY, iError);
  EXPECT_EQ(iError, 1);
  EXPECT_NEAR(fX, 2.0f, fPixel) << "Esc leaves the point alone";
  EXPECT_EQ(hSession.Errors(), "");
}

TEST(ZoomBox, TwoClicksSetOppositeCorners) {
  PlayedSession hSession("click 6 2\nclick 3 8\n");
  const MouseBox h = Zoom_Box();
  EXPECT_EQ(h.iError, 0);
  h.Expect(3.0f, 2.0f, 6.0f, 8.0f);
}

TEST(ZoomBox, ADragSetsThemToo) {
  PlayedSession hSession("drag 6 8 3 2\nkey Down\n");
  const MouseBox h = Zoom_Box();
  EXPECT_EQ(h.iError, 0);
  h.Expect(3.0f, 2.0f, 6.0f, 8.0f);
  EXPECT_EQ(hSession.Next().iType, MessageType::Key) << "the routine ended with the release";
}

TEST(ZoomBox, EscGivesTheBoxAsItStood) {
  PlayedSession hSession("key Esc\nclick 4 4\nkey Esc\n");
  MouseBox h = Zoom_Box();
  EXPECT_EQ(h.iError, 1);
  R4 fDX = 0.0f, fDY = 0.0f;
  IGrPixelSize(fDX, fDY);
  h.Expect(5.0f - 4.0f * fDX, 5.0f - 4.0f * fDY, 5.0f + 4.0f * fDX, 5.0f + 4.0f * fDY);
  h = Zoom_Box();
  EXPECT_EQ(h.iError, 1);
  EXPECT_NEAR(h.fX1, 4.0f, fPixel);
  EXPECT_NEAR(h.fY2, 4.0f, fPixel);
  EXPECT_NEAR(h.fX2 - h.fX1, 4.0f * fDX, 0.01f * fDX) << "it begins 4 pixels wide";
}

TEST(ZoomBox, ABoxThatIsNoWiderThanAPixelIsNone) {
  PlayedSession hSession("drag 4 4 4 8\nclick 3 3\nclick 3 3\n");
  EXPECT_EQ(Zoom_Box().iError, 1);
  EXPECT_EQ(Zoom_Box().iError, 1);
}

TEST(ZoomBox, ACloseRequestEndsItAndReachesTheLoopThatCalled) {
  PlayedSession hSession("click 4 4\n");  // and the end of the steps closes
  EXPECT_EQ(Zoom_Box().iError, 1);
  MessageType iType = MessageType::None;
  Message hMessage;
  WMessagePeek(iType, hMessage);
  while (iType == MessageType::Expose || iType == MessageType::Resize) WMessagePeek(iType, hMessage);
  EXPECT_EQ(iType, MessageType::Close);
}

TEST(SelectBox, FollowsTheDragOfThePressedButton) {
  PlayedSession hSession("drag 2 3 6 1 right\nclick 4 9\n");
  const Came hDrag = hSession.Next();
  ASSERT_EQ(hDrag.iType, MessageType::MouseDown);
  MouseBox h;
  IGr_SelectMouseBox(hDrag.hMessage, h.fX1, h.fY1, h.fX2, h.fY2, h.iError);
  EXPECT_EQ(h.iError, 0);
  h.Expect(2.0f, 1.0f, 6.0f, 3.0f);

  const Came hClick = hSession.Next();
  ASSERT_EQ(hClick.iType, MessageType::MouseDown);
  IGr_SelectMouseBox(hClick.hMessage, h.fX1, h.fY1, h.fX2, h.fY2, h.iError);
  EXPECT_EQ(h.iError, 0);
  EXPECT_EQ(h.fX1, h.fX2) << "a click is a point";
  EXPECT_EQ(h.fY1, h.fY2);
}

}  // namespace
}  // namespace quillan
