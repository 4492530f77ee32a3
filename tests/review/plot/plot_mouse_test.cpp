#include "review/plot/plot_mouse.h"

#include <gtest/gtest.h>

#include "support/played_session.h"
#include "toolkit/dialog/dialog.h"

namespace quillan {
namespace {

// The mouse: scripts over a drawing area of 10 by 10 units, in which a pixel is less than fPixel.

constexpr R4 fPixel = 0.025f;

void Expect_Box(const GrBox& h, const GrBox& hWanted) {
  EXPECT_NEAR(h.fX1, hWanted.fX1, fPixel);
  EXPECT_NEAR(h.fY1, hWanted.fY1, fPixel);
  EXPECT_NEAR(h.fX2, hWanted.fX2, fPixel);
  EXPECT_NEAR(h.fY2, hWanted.fY2, fPixel);
}

TEST(MousePoint, IsTheNextClickWhateverElseComes) {
  PlayedSession hSession("wheel 1 5 5\nkey x\nclick 2 7 right\nkey Esc\n");
  const MousePoint h = IGr_GetMousePoint(iCursorPick);
  EXPECT_EQ(h.iError, 0);
  EXPECT_NEAR(h.hPoint.fX, 2.0f, fPixel);
  EXPECT_NEAR(h.hPoint.fY, 7.0f, fPixel);
  EXPECT_EQ(IGr_GetMousePoint(iCursorPick).iError, 1);
  EXPECT_EQ(hSession.Errors(), "");
}

TEST(ZoomBox, TwoClicksOrADragSetOppositeCorners) {
  PlayedSession hSession("click 6 2\nclick 3 8\ndrag 6 8 3 2\nkey Down\n");
  for (I4 I = 1; I <= 2; ++I) {
    const MouseBox h = IGr_ZoomMouseBox(iCursorCorner);
    EXPECT_EQ(h.iError, 0);
    Expect_Box(h.hBox, {3.0f, 2.0f, 6.0f, 8.0f});
  }
  EXPECT_EQ(hSession.Next().iType, MessageType::Key) << "the routine ended with the release";
}

TEST(ZoomBox, EscGivesTheBoxAsItStood) {
  PlayedSession hSession("key Esc\nclick 4 4\nkey Esc\n");
  MouseBox h = IGr_ZoomMouseBox(iCursorCorner);
  EXPECT_EQ(h.iError, 1);
  const R4 fDX = IGrPixelSize().fX, fDY = IGrPixelSize().fY;
  Expect_Box(h.hBox, {5.0f - 4.0f * fDX, 5.0f - 4.0f * fDY, 5.0f + 4.0f * fDX, 5.0f + 4.0f * fDY});
  h = IGr_ZoomMouseBox(iCursorCorner);
  EXPECT_EQ(h.iError, 1);
  EXPECT_NEAR(h.hBox.fX1, 4.0f, fPixel);
  EXPECT_NEAR(h.hBox.fY2, 4.0f, fPixel);
  EXPECT_NEAR(h.hBox.fX2 - h.hBox.fX1, 4.0f * fDX, 0.01f * fDX) << "it begins 4 pixels wide";
}

TEST(ZoomBox, ABoxThatIsNoWiderThanAPixelIsNone) {
  PlayedSession hSession("drag 4 4 4 8\nclick 3 3\nclick 3 3\n");
  EXPECT_EQ(IGr_ZoomMouseBox(iCursorCorner).iError, 1);
  EXPECT_EQ(IGr_ZoomMouseBox(iCursorCorner).iError, 1);
}

TEST(ZoomBox, ACloseRequestEndsItAndReachesTheLoopThatCalled) {
  PlayedSession hSession("click 4 4\n");  // and the end of the steps closes
  EXPECT_EQ(IGr_ZoomMouseBox(iCursorCorner).iError, 1);
  Message hMessage = WMessagePeek();
  while (hMessage.iType == MessageType::Expose || hMessage.iType == MessageType::Resize) hMessage = WMessagePeek();
  EXPECT_EQ(hMessage.iType, MessageType::Close);
}

TEST(ZoomBox, WhatIsChosenInTheToolWindowMeanwhileReachesTheLoopThatCalled) {
  PlayedSession hSession("click 4 4\nchoose 1090 2\nchoose 1090 3\nclick 6 6\n");
  WMessageEnable(MessageType::Field, true);
  WDialogLoad(118);
  WDialogShow(0, 0, iShowTool);
  EXPECT_EQ(IGr_ZoomMouseBox(iCursorCorner).iError, 0);
  const Message hField = hSession.Next();
  EXPECT_EQ(hField.iType, MessageType::Field);
  EXPECT_EQ(hField.VALUE1, 1090);
  EXPECT_NE(hSession.Next().iType, MessageType::Field);
  WMessageEnable(MessageType::Field, false);
}

TEST(SelectBox, FollowsTheDragOfThePressedButton) {
  PlayedSession hSession("drag 2 3 6 1 right\nclick 4 9\n");
  const MouseBox hDrag = IGr_SelectMouseBox(hSession.Next());
  EXPECT_EQ(hDrag.iError, 0);
  Expect_Box(hDrag.hBox, {2.0f, 1.0f, 6.0f, 3.0f});
  const MouseBox hClick = IGr_SelectMouseBox(hSession.Next());
  EXPECT_EQ(hClick.iError, 0);
  Expect_Box(hClick.hBox, {4.0f, 9.0f, 4.0f, 9.0f});
}

}  // namespace
}  // namespace quillan
