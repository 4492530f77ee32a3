#include "review/qcs_export.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "review/qcs_sections.h"
#include "support/files.h"
#include "support/survey_builder.h"

namespace quillan {
namespace {

/// A transient without coordinates.
Transient At(R8 dStn, std::initializer_list<R4> fuVmag, I4 iRxCmp = iCmpHz) {
  return TransientBuilder().Station(dStn).Transmitter(dStn).Values(fuVmag).Component(iRxCmp);
}

void Load_Sections(std::initializer_list<Transient> hTransient) {
  Load(hTransient);
  QCS_Initialize();
  hTemSurvey.iTemArray = iArrayMVL;
  ASSERT_EQ(QCS_Allocate(), 0);
}

/// Three stations: windows in all units of time, a missing and a skipped value, no coordinates, more windows than the
/// first.
void Load_Line() {
  Transient hFirst = TransientBuilder()
                         .Times({0.1f, 0.5f, 2.5f, 999.9f, 1500.0f})
                         .Values({340.512f, fDummy, -0.00125f, 1.0E30f, 0.0f})
                         .Station(100)
                         .Transmitter(100);
  hFirst.bSkip(3) = true;
  hFirst.dRxXYZ = {
      {451020.25, 6012340.0, 12.5}
  };
  Transient hLast = At(200, {7, 6, 5, 4, 3, 2, 1});
  hLast.dRxXYZ = {
      {451120.5, 6012340.06, -3.0}
  };
  Load_Sections({hFirst, At(150.125, {1, 2, 3}), hLast});
  hTemSurvey.sJobName = "Orrin basin";
  hTemSurvey.sJobFor = "Northern Water";
  hTemSurvey.sLineName = "12N";
  hTemSurvey.fLineAzimuth = 90.0f;
}

I4 Write_CSV(std::string_view sFile, I4 iSection = 1, I4 iPlotType = 1) {
  return QCS_Section_Write_CSV(sFile, iSection, iPlotType);
}

/// The lines of a plot-control file that begin with a text, without that text.
std::string Records(const std::string& sFile, const std::string& sBegin) {
  std::string sFound;
  for (const std::string& sLine : Read_Lines(sFile)) {
    if (sLine.starts_with(sBegin)) sFound += sLine.substr(sBegin.size()) + " ";
  }
  return sFound;
}

TEST(SectionExport, TableAndPlotControlAsTheProfileProgramReadsThem) {
  Load_Line();
  Write_File("line1dBzdt.csv", "an earlier, longer export\n");
  EXPECT_EQ(Write_CSV("line1dBzdt.csv"), 0);
  EXPECT_EQ(Read_Whole_File("line1dBzdt.csv"), Golden("section_hz.csv"));
  EXPECT_EQ(Read_Whole_File("line1dBzdt.mde"), Golden("section_hz.mde"));
  Log_Close();
  const std::string sLog = Read_Whole_File(sLogFile);
  EXPECT_NE(sLog.find("line1dBzdt.mde plot-control export is complete."), std::string::npos) << sLog;
  EXPECT_NE(sLog.find("line1dBzdt.csv data export is complete."), std::string::npos) << sLog;
}

TEST(SectionExport, HasTheValuesOfThePlotTypeAndOfTheSectionAlone) {
  Transient hSecond = At(20, {5, 6});
  hSecond.fBmag(1) = 0.5f;
  hSecond.fARes(2) = 120.0f;
  Load_Sections({At(10, {1, 2}, iCmpHx), hSecond});
  const std::string sHeader = "Station,East,North,Elevation,TW01_1msec,TW02_2msec,";
  EXPECT_EQ(Write_CSV("b.csv", 2, 2), 0);
  EXPECT_EQ(Read_Lines("b.csv"), (std::vector<std::string>{sHeader, "20,*,*,*,5.00000E-01,*,"}));
  EXPECT_EQ(Write_CSV("r.csv", 2, 3), 0);
  EXPECT_EQ(Read_Lines("r.csv"), (std::vector<std::string>{sHeader, "20,*,*,*,*,1.20000E+02,"}));
}

TEST(SectionExport, TimesChangeTheirUnitAtOneMillisecondAndOneSecond) {
  Load_Sections({TransientBuilder()
                     .Times({fDummy, 0.00625f, 0.99f, 1.0f, 12.34f, 999.0f, 1000.0f, 12345.0f})
                     .Values({1, 1, 1, 1, 1, 1, 1, 1})});
  hTrn(1).fTWCen(1) = fDummy;
  EXPECT_EQ(Write_CSV("t.csv"), 0);
  EXPECT_EQ(Read_Lines("t.csv")[0],
            "Station,East,North,Elevation,TW01_*usec,TW02_6.2usec,TW03_990usec,TW04_1msec,TW05_12.3msec,TW06_999msec,"
            "TW07_1sec,TW08_12.3sec,");
}

TEST(SectionExport, PanelsHoldSevenWindowsEachAndAreSixAtMost) {
  const struct {
    I4 NTW;
    std::string sPanels;
  } hCases[] = {
      {0,  "1.TWBeg=1 1.TWEnd=0 "                                         },
      {7,  "1.TWBeg=1 1.TWEnd=7 "                                         },
      {8,  "1.TWBeg=1 2.TWBeg=8 1.TWEnd=7 2.TWEnd=8 "                     },
      {64,
       "1.TWBeg=1 2.TWBeg=8 3.TWBeg=15 4.TWBeg=22 5.TWBeg=29 6.TWBeg=36 "
       "1.TWEnd=7 2.TWEnd=14 3.TWEnd=21 4.TWEnd=28 5.TWEnd=35 6.TWEnd=42 "},
  };
  for (const auto& hCase : hCases) {
    Load_Sections({At(10, {1})});
    hTrn(1).NTW = hCase.NTW;
    EXPECT_EQ(QCS_Section_Write_MDE("p.mde", 1, 1), 0);
    EXPECT_EQ(Records("p.mde", "$Panel"), hCase.sPanels);
  }
}

TEST(SectionExport, LeftBearingIsTheOppositeOfTheLine) {
  const struct {
    R4 fAzimuth;
    std::string sBearings;
  } hCases[] = {
      {90,     "Left=W Right=E "      },
      {0,      "Left=S Right=N "      },
      {45,     "Left=S45W Right=N45E "},
      {270,    "Left=E Right=W "      },
      {-90,    "Left=E Right=270 "    },
      {fDummy, "Left=* Right=* "      },
  };
  for (const auto& hCase : hCases) {
    Load_Sections({At(10, {1})});
    hTemSurvey.fLineAzimuth = hCase.fAzimuth;
    EXPECT_EQ(QCS_Section_Write_MDE("b.mde", 1, 1), 0);
    EXPECT_EQ(Records("b.mde", "$Brg"), hCase.sBearings);
  }
}

TEST(SectionExport, FilesAreNamedByWhatIsPlotted) {
  Load_Sections({At(10, {1}, iCmpHx)});
  EXPECT_EQ(QCS_Export_Path("a.b/line1.avg", 1, 2, ".csv"), "a.b/line1Bx.csv");
}

TEST(SectionExport, WhatCannotBeWrittenIsReported) {
  Load_Line();
  EXPECT_EQ(Write_CSV("nowhere/line1.csv"), 1);
  EXPECT_EQ(Write_CSV("line1.csv", 2), 1);
  EXPECT_EQ(Write_CSV("line1.csv", 1, 4), 1);
  std::filesystem::create_directory("line1.mde");  // no table without its plot-control file
  EXPECT_EQ(Write_CSV("line1.csv"), 1);
  EXPECT_FALSE(std::filesystem::exists("line1.csv"));
  Log_Close();
  const std::string sErr = Read_Whole_File(sErrFile);
  EXPECT_NE(sErr.find("The export is not written; choose it again."), std::string::npos) << sErr;
}

}  // namespace
}  // namespace quillan
