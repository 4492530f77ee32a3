// AMIRA files: golden files, window sets, and the question ahead of each pair of files.
#include "files/amr_file.h"

#include <gtest/gtest.h>

#include "export_survey.h"
#include "support/files.h"
#include "support/reports.h"

namespace quillan {
namespace {

std::string As_It_Is(const std::string& sTrnFile) {
  return sTrnFile;
}

/// A loop of three corners for the transmitter station of Load_Fixed_Loop.
void Load_Wire_Loop() {
  Load_Fixed_Loop();
  Txw_Initialize();
  hTxw.Add();
  NTxw = 1;
  hTxw(1).dTxStn = 1.0;
  hTxw(1).NTxUTMV = 3;
  for (I4 V = 1; V <= 3; ++V) {
    hTxw(1).dTxUTMV(1, V) = 482285.82 + V;
    hTxw(1).dTxUTMV(2, V) = 5176353.5 - V;
  }
  hTemSurvey.bTxwFile = true;
}

/// In turn a set of two windows, one of three, one of two again; no position, no line name.
void Load_Two_Sets() {
  std::vector<Transient> h{Sounding(1, {0.01f, 0.03f, 0.05f}, {1000, -0.5f}),
                           Sounding(1, {0.1f, 0.3f, 0.5f, 1.0f}, {90, 18, 3.25f}),
                           Sounding(2.125, {0.01f, 0.03f, 0.05f}, {900, fDummy})};
  h[1].fTxFreq = 4.0f;
  h[1].fTxRamp = 120.55f;
  h[2].iRxCmp = iCmpHx;
  h[2].dTxStn = 123456789.0;
  Load_Export(iArrayMVL, h);
  hTemSurvey.sLineName = "";
}

struct Written {
  void (*Load)();
  const char* sStem;
  std::vector<std::string> sFile;
};

TEST(AmrFile, IsRightToTheByte) {
  const Written hWritten[] = {
      {Load_Fixed_Loop, "fixed",  {"fixed.tem", "fixed.chn.tem"}                                      },
      {Load_Wire_Loop,  "wire",   {"wire.tem"}                                                        },
      {Load_Two_Sets,   "moving", {"moving1.tem", "moving1.chn.tem", "moving2.tem", "moving2.chn.tem"}},
  };
  for (const Written& h : hWritten) {
    h.Load();
    ASSERT_EQ(AMR_Write(std::string(h.sStem) + ".tem", As_It_Is), 0);
    for (const std::string& sFile : h.sFile) EXPECT_EQ(Read_Whole_File(sFile), Golden(sFile)) << sFile;
    Txw_Initialize();
  }
}

TEST(AmrFile, AChangeOfRampOrFrequencyIsSaidOnceASet) {
  Load_Fixed_Loop();
  ASSERT_EQ(AMR_Write("once.tem", As_It_Is), 0);
  EXPECT_EQ(Shown("WARNING: fTxRamp has changed from 5 to 0 us"), 1);
  EXPECT_EQ(Shown("has changed from"), 1) << "the frequency changes too";
  LogText_Reset();
  for (I4 j = 1; j <= NTrn; ++j) hTrn(j).fTxRamp = 5.0f;
  ASSERT_EQ(AMR_Write("once.tem", As_It_Is), 0);
  EXPECT_EQ(Shown("WARNING: Tx Frequency has changed from 16 to 4 Hz"), 1);
}

TEST(AmrFile, ArraysHaveTheWordsOfTheFormat) {
  constexpr const char* sConfig[] = {"FIXEDLOOP", "INOUT", "INLOOP", "COINCIDENT"};
  for (I4 iTemArray = 1; iTemArray <= 6; ++iTemArray) {
    Load_Export(iTemArray, {Sounding(1, {1, 2}, {5})});
    ASSERT_EQ(AMR_Write("config.tem", As_It_Is), 0);
    const std::string sText = Read_Whole_File("config.tem");
    const bool bHasLine = iTemArray <= 4 && sText.find(std::string("\nCONFIG:") + sConfig[iTemArray - 1] + "\nF:U\n") !=
                                                std::string::npos;
    EXPECT_EQ(bHasLine, sText.find("CONFIG") != std::string::npos) << iTemArray;
    EXPECT_EQ(bHasLine, iTemArray <= 4) << iTemArray;
  }
}

TEST(AmrFile, WhatTheLimitOfSetsLeavesOutIsNamed) {
  std::vector<Transient> h;
  for (R4 f = 1.0f; f <= 10.0f; ++f) h.push_back(Sounding(R8{f}, {f, 1.5f * f}, {5}));
  h.push_back(h[8]);
  h.push_back(h[9]);
  h.back().bSkipTrn = true;
  h.push_back(h[0]);
  Load_Export(iArrayFXL, h);
  EXPECT_EQ(AMR_TWCfg_List().NTWCfgList, 8);
  EXPECT_EQ(Shown("More than 8 distinct time-window sets at transient 9"), 1);
  EXPECT_EQ(Shown("Soundings left out: 3, those of the time-window sets 9, 10."), 1);
  EXPECT_EQ(Shown("Found 8 distinct time-window sets."), 1);
  std::string sAsked;
  EXPECT_EQ(AMR_Write("many.tem", [&](const std::string& s) { return sAsked += s + " ", s; }), 0);
  EXPECT_TRUE(sAsked.ends_with("many7.tem many8.tem ")) << sAsked;
  EXPECT_NE(Read_Whole_File("test.log").find("2 transients written to many1.tem"), std::string::npos);
}

TEST(AmrFile, AnotherNameIsTakenByTheChannelFileTooAndNoneWritesNothing) {
  Load_Fixed_Loop();
  EXPECT_EQ(AMR_Write("given.tem", [](const std::string&) { return "up.tem"; }), 0);
  EXPECT_NE(Read_Whole_File("up.tem").find("\nCHANNELFILE:up.chn.tem\n"), std::string::npos);
  EXPECT_NE(Read_Whole_File("up.chn.tem"), "");
  EXPECT_EQ(AMR_Write("given.tem", [](const std::string&) { return ""; }), 1);
  EXPECT_EQ(Read_Whole_File("given.tem") + Read_Whole_File("given.chn.tem"), "");
}

TEST(AmrFile, FailedSaveSaysWhatToDoAndAnEmptyStoreMakesNoFile) {
  Load_Fixed_Loop();
  EXPECT_EQ(AMR_Write("no such folder/a.tem", As_It_Is), 1);
  EXPECT_EQ(Shown("Error opening file no such folder/a.chn.tem"), 1);
  EXPECT_EQ(Shown("The data are not saved; choose Save again."), 1);
  Load({});
  EXPECT_EQ(AMR_Write("empty.tem", As_It_Is), 1);
  EXPECT_EQ(Shown("No valid data to save in empty.tem"), 1);
  EXPECT_EQ(Read_Whole_File("empty.tem"), "");
}

}  // namespace
}  // namespace quillan
