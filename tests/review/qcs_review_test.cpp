#include "review/qcs_review.h"

#include <gtest/gtest.h>

#include "metadata/enm_data.h"
#include "review/qcs_plot.h"
#include "support/survey_builder.h"

namespace quillan {
namespace {

struct Box {
  R4 fX1, fY1, fX2, fY2;
};

void Expect_Shaped(R4 fYXArea, Box h, const Box& hWanted) {
  QCS_Shape_Box(fYXArea, h.fX1, h.fY1, h.fX2, h.fY2);
  EXPECT_FLOAT_EQ(h.fX1, hWanted.fX1);
  EXPECT_FLOAT_EQ(h.fY1, hWanted.fY1);
  EXPECT_FLOAT_EQ(h.fX2, hWanted.fX2);
  EXPECT_FLOAT_EQ(h.fY2, hWanted.fY2);
}

TEST(SectionZoom, ABoxGetsTheShapeOfTheAreaAboutItsMiddle) {
  // In an area half as high as wide.
  Expect_Shaped(0.5f, {2, 2, 10, 6}, {2, 2, 10, 6});
  Expect_Shaped(0.5f, {2, 2, 10, 3}, {2, 0.5f, 10, 4.5f});
  Expect_Shaped(0.5f, {5, 2, 7, 8}, {0, 2, 12, 8});
  // At least 2 wide and 1.4 high: here the height makes it 2.8 wide, there the width 4 high.
  Expect_Shaped(0.5f, {5, 5, 5.1f, 5.1f}, {3.65f, 4.35f, 6.45f, 5.75f});
  Expect_Shaped(2.0f, {5, 5, 5.2f, 5.2f}, {4.1f, 3.1f, 6.1f, 7.1f});
}

void Expect_Zoomed(const Box& hBox, const Box& hWanted) {
  const PlotRange hFull{100.0f, 200.0f, -2.0f, 3.0f};
  const PlotRange h = QCS_Zoom_Range({hBox.fX1, hBox.fX2, hBox.fY1, hBox.fY2}, hFull);
  EXPECT_FLOAT_EQ(h.fXPmin, hWanted.fX1);
  EXPECT_FLOAT_EQ(h.fYPmin, hWanted.fY1);
  EXPECT_FLOAT_EQ(h.fXPmax, hWanted.fX2);
  EXPECT_FLOAT_EQ(h.fYPmax, hWanted.fY2);
}

TEST(SectionZoom, ABoxThatLeavesTheSectionIsShiftedBack) {
  Expect_Zoomed({120, -1, 150, 2}, {120, -1, 150, 2});
  Expect_Zoomed({100, -2, 200, 3}, {100, -2, 200, 3});
  Expect_Zoomed({90, -1, 120, 2}, {100, -1, 130, 2});
  Expect_Zoomed({180, -1, 210, 2}, {170, -1, 200, 2});
  Expect_Zoomed({120, -3, 150, 0}, {120, -2, 150, 1});
  Expect_Zoomed({120, 1, 150, 4}, {120, 0, 150, 3});
  Expect_Zoomed({90, -3, 120, -1}, {100, -2, 130, 0});
}

TEST(SectionZoom, ABoxLargerThanTheSection) {
  Expect_Zoomed({90, -1, 220, 2}, {100, -1, 200, 2});
  Expect_Zoomed({110, -1, 250, 2}, {100, -1, 200, 2});
  // Below, the top stops at the section's; above, the bottom goes where the height of the box takes it.
  Expect_Zoomed({120, -3, 150, 4}, {120, -2, 150, 3});
  Expect_Zoomed({120, -1, 150, 6}, {120, -4, 150, 3});
}

void Load_Sections(std::initializer_list<Transient> hTransient, I4 iTemArray) {
  Load(hTransient);
  QCS_Initialize();
  hTemSurvey.iTemArray = iTemArray;
  I4 iError = 0;
  QCS_Allocate(iError);
  ASSERT_EQ(iError, 0);
}

Transient At(R8 dStn) {
  return TransientBuilder().Station(dStn).Values({3, 2, 1}).Frequency(32.0f);
}

TEST(SectionTitle, NamesArrayLineSeparationAndFrequency) {
  Load_Sections({At(5), At(6)}, iArrayFXL);
  EXPECT_EQ(QCS_Section_Title(1), "FXL,  Tx.Freq=32");
  hTemSurvey.sLineName = "12N";
  EXPECT_EQ(QCS_Section_Title(1), "FXL Line 12N,  Tx.Freq=32");

  // The separation of a moving loop is that of the stations as recorded, at the section's first transient.
  Transient hMoving = At(5);
  hMoving.dTxKvrStn = 2.5;
  Load_Sections({hMoving, At(6)}, iArrayMVL);
  hTemSurvey.sLineName = "12N";
  EXPECT_EQ(QCS_Section_Title(1), "MVL Line 12N,  Rx.Stn-Tx.Stn=2.5,  Tx.Freq=32");
}

std::string Labels(const PlotRange& hRange, R4 fClear) {
  std::string sAll;
  for (const StationLabel& h : QCS_Station_Labels(1, hRange, fClear)) sAll += h.sLabel.empty() ? "- " : h.sLabel + " ";
  return sAll;
}

TEST(SectionLabels, EveryStationIsMarkedAndThoseWithRoomAreNamed) {
  Load_Sections({At(10), At(10), At(11.27), At(12), At(13), At(15)}, iArrayFXL);
  EXPECT_EQ(Labels({10, 15, 0, 1}, 0.5f), "10 - 11.3 12 13 15 ");
  EXPECT_EQ(Labels({10, 15, 0, 1}, 2.0f), "10 - - 12 - 15 ");
  EXPECT_EQ(Labels({10, 15, 0, 1}, 100.0f), "10 - - - - - ");
  // A zoom begins to name at its own first station.
  EXPECT_EQ(Labels({11, 13, 0, 1}, 1.0f), "11.3 - 13 ");
  EXPECT_EQ(Labels({16, 17, 0, 1}, 1.0f), "");
}

TEST(SectionLabels, EndAtTheFirstStationBeyondTheRange) {
  Load_Sections({At(10), At(20), At(11)}, iArrayFXL);
  EXPECT_EQ(Labels({10, 15, 0, 1}, 0.5f), "10 ");
}

}  // namespace
}  // namespace quillan
