#include "review/qcs_plot.h"

#include <gtest/gtest.h>

#include "foundations/str_write.h"
#include "support/survey_builder.h"

namespace quillan {
namespace {

void Load_Sections(std::initializer_list<Transient> hTransient, I4 iTemArray) {
  Load(hTransient);
  QCS_Initialize();
  hTemSurvey.iTemArray = iTemArray;
  ASSERT_EQ(QCS_Allocate(), 0);
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

/// The sizes of markers of 5 pixels at stations, as one text.
std::string Marker_Sizes(std::initializer_list<R4> fStn, R4 fPixelsAUnit) {
  hScaled = {};
  for (const R4 f : fStn) hScaled.hColumn.push_back({.fX = f, .NTW = 3});
  std::string sAll;
  for (const R4 f : QCS_Marker_Sizes(fPixelsAUnit, 5.0f)) sAll += Str_Write_R4(f, "(F8.2)").str() + " ";
  return sAll;
}

TEST(SectionMarkers, AreSmallOnlyWhereSoundingsCrowd) {
  EXPECT_EQ(Marker_Sizes({10}, 1.0f), "5 ");
  EXPECT_EQ(Marker_Sizes({10, 10, 10}, 0.001f), "5 5 5 ") << "repeats";
  EXPECT_EQ(Marker_Sizes({10, 11, 12}, 3.0f), "5 5 5 ");
  EXPECT_EQ(Marker_Sizes({10, 11, 12}, 2.9f), "1.45 1.45 1.45 ");
  EXPECT_EQ(Marker_Sizes({10, 11, 12}, 0.1f), "1 1 1 ") << "as wide as a line";
  EXPECT_EQ(Marker_Sizes({10, 20, 20.5, 30}, 1.0f), "5 5 5 5 ") << "two side by side";
  EXPECT_EQ(Marker_Sizes({10, 11, 12, 13, 23, 33}, 2.0f), "1 1 1 5 5 5 ") << "one end of a line";
}

}  // namespace
}  // namespace quillan
