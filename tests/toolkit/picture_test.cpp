// Drawing into a picture of a dialog, beside the main window.
#include "toolkit/dialog/picture.h"

#include <gtest/gtest.h>

#include <QImage>

#include "support/played_session.h"
#include "toolkit/dialog/dialog.h"

namespace quillan {
namespace {

constexpr I4 iDialog = 102, iPicture = 1015, iNoPicture = 1013;

I4 Red_Pixels(const QImage& hImage, const QRect& hPart) {
  I4 NRed = 0;
  for (int iY = hPart.top(); iY <= hPart.bottom(); ++iY) {
    for (int iX = hPart.left(); iX <= hPart.right(); ++iX)
      if (hImage.pixel(iX, iY) == qRgb(255, 0, 0)) ++NRed;
  }
  return NRed;
}

void Draw_Red_Line() {
  IGrColour("RED");
  IGrSegment(0.0f, 0.5f, 1.0f, 0.5f);
}

TEST(DialogPicture, TakesTheDrawingAndGivesItBack) {
  PlayedSession hSession("snapshot picture.png\n");
  WDialogLoad(iDialog);
  WDialogShow(0, 0, iShowTool);
  {
    const SelectedPicture picture(iPicture);
    WindowClear();
    IGrUnits(0.0f, 0.0f, 1.0f, 1.0f);
    Draw_Red_Line();
  }
  EXPECT_EQ(InfoGraphics(iUnitXMax), 10.0f) << "the units of the main window";
  EXPECT_EQ(hSession.Next().iType, MessageType::Close);
  const QImage hImage("picture.png");
  const I4 NWidth = WInfoDialog(iDialogWidth);
  EXPECT_EQ(Red_Pixels(hImage, QRect(0, 0, 900, 600)), 0);
  EXPECT_NEAR(Red_Pixels(hImage, QRect(900, 0, NWidth, 600)), NWidth, 30) << "from edge to edge of the picture";
}

TEST(DialogPicture, OneThatIsNotThereTakesNothing) {
  PlayedSession hSession("snapshot picture.png\n");
  WDialogLoad(iDialog);
  {
    const SelectedPicture picture(iNoPicture);
    EXPECT_EQ(InfoError(), iErrNoField);
    Draw_Red_Line();
    EXPECT_EQ(InfoError(), iErrNoWindow);
  }
  IGrUnits(0.0f, 0.0f, 1.0f, 1.0f);
  Draw_Red_Line();
  EXPECT_EQ(hSession.Next().iType, MessageType::Close);
  EXPECT_GT(Red_Pixels(QImage("picture.png"), QRect(0, 0, 900, 600)), 850) << "the main window is drawn on again";
}

}  // namespace
}  // namespace quillan
