// USF files: golden files of both layouts, and what a reader of the format finds in them.
#include "files/usf_file.h"

#include <gtest/gtest.h>

#include <cmath>

#include "export_survey.h"
#include "support/files.h"
#include "support/reports.h"
#include "support/usf_reader.h"

namespace quillan {
namespace {

/// A moving loop: two stations, the second with two frequencies, one of them with other windows.
void Load_Moving_Loop() {
  std::vector<Transient> h{Sounding(100, {0.01f, 0.03f, 0.05f}, {1000, 200}),
                           Sounding(150, {0.01f, 0.03f, 0.05f}, {900, 180}),
                           Sounding(150, {0.1f, 0.3f, 0.5f, 1.0f}, {90, 18, -1.5f})};
  h[0].dRxXYZ = {1030.0, 2040.0, 7.0};
  h[1].dRxXYZ = {1080.0, fDummy, fDummy};
  h[2].fTxFreq = 4.0f;
  h[2].fTxRamp = 120.5f;
  h[2].bSkip(2) = true;
  Load_Export(iArrayMVL, h);
  hTemSurvey.fLineAzimuth = 30.0f;
}

struct Written {
  const char* sFile;
  void (*Load)();
  UsfLayout iLayout;
};
constexpr Written hWritten[] = {
    {"fixed.usf",         Load_Fixed_Loop,  UsfLayout::Soundings},
    {"moving.usf",        Load_Moving_Loop, UsfLayout::Soundings},
    {"fixed_sweeps.usf",  Load_Fixed_Loop,  UsfLayout::Sweeps   },
    {"moving_sweeps.usf", Load_Moving_Loop, UsfLayout::Sweeps   },
};

TEST(UsfFile, IsRightToTheByteAndAcceptedByTheRulesOfTheFormat) {
  for (const Written& h : hWritten) {
    h.Load();
    ASSERT_EQ(USF_Check(), 0);
    ASSERT_EQ(USF_Write(h.sFile, h.iLayout), 0);
    EXPECT_EQ(Read_Whole_File(h.sFile), Golden(h.sFile)) << h.sFile;
    EXPECT_EQ(UsfReader(h.sFile).Read().sFault, "") << h.sFile;
  }
}

TEST(UsfFile, SweepsHoldWhatTheOtherLayoutHoldsAndTheSkippedWindows) {
  Load_Moving_Loop();
  ASSERT_EQ(USF_Write("a.usf", UsfLayout::Soundings), 0);
  ASSERT_EQ(USF_Write("b.usf", UsfLayout::Sweeps), 0);
  const UsfReading h1 = UsfReader("a.usf").Read();
  UsfReading h2 = UsfReader("b.usf").Read();
  ASSERT_EQ(h1.hSection.size(), h2.hSection.size());
  EXPECT_EQ(h2.sKey["SOUNDINGS"], "2");
  for (std::size_t K = 0; K < h1.hSection.size(); ++K) {
    for (const auto& [sLabel, dValue] : h1.hSection[K].dColumn) {
      std::vector<double> dInUse;
      for (std::size_t I = 0; I < h2.hSection[K].dColumn[sLabel].size(); ++I) {
        if (h2.hSection[K].dColumn["QUALITY"][I] == 1.0) dInUse.push_back(h2.hSection[K].dColumn[sLabel][I]);
      }
      EXPECT_EQ(dInUse, dValue) << sLabel << " of table " << K;
    }
  }
  EXPECT_EQ(h2.hSection[2].sKey["SWEEP_NUMBER"], "2");
  EXPECT_EQ(h2.hSection[2].dColumn["QUALITY"], (std::vector<double>{1, 0, 1}));
}

TEST(UsfReader, RefusesAFileThatBreaksARule) {
  struct Case {
    const char *sFrom, *sTo;
  };
  for (const Case& h : {
           Case{"//SOUNDINGS: 4",     "//SOUNDINGS: 3"    },
           Case{"//NO_TX_CORNERS: 4", "//NO_TX_CORNERS: 5"},
           Case{"//END",              "! END"             },
           Case{"/POINTS: 3",         "/POINTS: 2"        },
           Case{"/FREQUENCY: 16",     "! 16"              },
           Case{"     ERROR_BAR",     "     ERROR_BAR,X"  },
           Case{"//DUMMY: *",         "//DUMMY: 9"        },
           Case{" 2.5000E-5",         " 4.5000E-5"        },
  }) {
    std::string sText = Golden("fixed.usf");
    ASSERT_NE(sText.find(h.sFrom), std::string::npos) << h.sFrom;
    Write_File("broken.usf", sText.replace(sText.find(h.sFrom), std::string(h.sFrom).size(), h.sTo));
    EXPECT_NE(UsfReader("broken.usf").Read().sFault, "") << h.sTo;
  }
}

TEST(UsfFile, ArraysHaveTheNamesOfTheFormat) {
  constexpr const char* sName[] = {"SEGMENTED LOOP TEM", "FIXED LOOP TEM", "CENTRAL LOOP TEM", "COINCIDENT LOOP TEM"};
  for (I4 iTemArray = 1; iTemArray <= 6; ++iTemArray) {
    Load_Export(iTemArray, {Sounding(1, {1, 2}, {5})});
    EXPECT_EQ(USF_Check(), iTemArray <= 4 ? 0 : 1);
    if (iTemArray > 4) continue;
    ASSERT_EQ(USF_Write("array.usf", UsfLayout::Soundings), 0);
    EXPECT_EQ(UsfReader("array.usf").Read().hSection[0].sKey["ARRAY"], sName[iTemArray - 1]);
  }
  EXPECT_EQ(Shown("USF_Write.Warning: TEM CNT data storage not implemented for USF files."), 1);
}

TEST(UsfFile, WithoutASoundingThereIsNothingToWrite) {
  Load({});
  EXPECT_EQ(USF_Check(), 1);
  EXPECT_EQ(Shown("USF_Write.ERROR: No valid data present, NTrn<1"), 1);
  Load_Export(iArrayMVL, {Sounding(1, {1, 2}, {5}), Sounding(2, {1, 2}, {5})});
  hTrn(1).iRxCmp = iCmpHx;
  hTrn(2).bSkipTrn = true;
  EXPECT_EQ(USF_Check(), 1);
  EXPECT_EQ(Shown("USF_Write.Warning: No dBz/dt transients available to save as TEM sounding data."), 1);
}

TEST(UsfFile, FailedSaveSaysWhatToDo) {
  Load_Fixed_Loop();
  EXPECT_EQ(USF_Write("no such folder/a.usf", UsfLayout::Soundings), 1);
  EXPECT_EQ(Shown("ERROR opening file no such folder/a.usf"), 1);
  EXPECT_EQ(Shown("The data are not saved; choose Save again."), 1);
}

}  // namespace
}  // namespace quillan
