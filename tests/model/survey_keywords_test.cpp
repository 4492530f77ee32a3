#include "model/survey_keywords.h"

#include <gtest/gtest.h>

#include <string>

#include "metadata/mdp_data.h"
#include "support/survey_builder.h"

namespace quillan {
namespace {

class SurveyExchange : public testing::Test {
 protected:
  void SetUp() override {
    Begin_Test();
    MDP_Initialize();
    MdJob = JobGroup{};
  }

  static void Read(std::string_view sLine) { EXPECT_EQ(MDP_from_MDE(1, sLine, iPriorityData).IOERR, 0) << sLine; }

  static std::string Written() {
    MdEntryList hEntry;
    EXPECT_EQ(TMD_Survey_Append_MD(hEntry), 0);
    std::string sText;
    for (const MdEntry& h : hEntry) sText += MD_Entry_Line(h) + "\n";
    return sText;
  }
};

TEST_F(SurveyExchange, WhatHasNoValueLeavesTheLastGoodOne) {
  hTemSurvey.sJobName = "Orrin basin";
  hTemSurvey.dStnBeg = 1000.0;
  hTemSurvey.fTxArea = 400.0f;
  MdTx.fArea = 0.0f;  // a number, but no area
  MdTx.dUTMC.fill(dDummy);
  MdTx.dUTMC(2) = 350100.0;
  TMD_Survey_from_MD();
  EXPECT_EQ(hTemSurvey.sJobName, "Orrin basin");
  EXPECT_EQ(hTemSurvey.dStnBeg, 1000.0);
  EXPECT_EQ(hTemSurvey.fTxArea, 400.0f);
  EXPECT_EQ(hTemSurvey.dTxXYZC(2), 350100.0) << "an array with any value is taken whole";
  EXPECT_FALSE(Is_Present(hTemSurvey.dTxXYZC(1)));
}

TEST_F(SurveyExchange, FullSurveyComesOutAsItWasRead) {
  const std::string sText =
      "$ Job.Name = \"Orrin, basin\"\n"
      "$ Job.Area = \"north\"\n"
      "$ Job.For = \"client\"\n"
      "$ Job.By = \"crew\"\n"
      "$ Job.Number = \"17\"\n"
      "$ Job.Date = 2020-09-14\n"
      "$ Survey.Type = TEM\n"
      "$ Survey.Array = LOT\n"
      "$ Line.Name = \"L12N\"\n"
      "$ Line.Number = 12.5\n"
      "$ Line.Azimuth = 45\n"
      "$ Stn.KvrBeg = 100\n"
      "$ Stn.KvrInc = 25\n"
      "$ Stn.Beg = 1000\n"
      "$ Stn.Inc = 50.125\n"
      "$ Stn.Left = -50\n"
      "$ Stn.Right = 2000\n"
      "$ Tx.Turns = 2\n"
      "$ Tx.Length = 200,100 ft\n"
      "$ Tx.Area = 1.0000E+04 m^2\n"
      "$ Tx.Center = 350100.25,2,3 ft\n"
      "$ Tx.HPR = 45,5,-0.5\n"
      "$ Unit.Length = ft\n"
      "$ Unit.Time = sec\n"
      "$ Unit.E = V/m\n"
      "$ Unit.B = T\n"
      "$ Unit.dBdt = uV/A\n";
  for (std::size_t K = 0; K < sText.size(); K = sText.find('\n', K) + 1) Read(sText.substr(K, sText.find('\n', K) - K));
  Read("$ Rx.HPR = 7,8,9");
  TMD_Survey_from_MD();
  EXPECT_EQ(Written(), sText);

  MDP_Initialize_MD(true);
  MdJob = JobGroup{};
  TMD_Survey_to_MD();
  hTemSurvey = Survey{};
  TMD_Survey_from_MD();
  EXPECT_EQ(Written(), sText);
  EXPECT_EQ(hTemSurvey.fRxHPR(3), 9.0f) << "exchanged, but no record of the files";
}

TEST_F(SurveyExchange, CornersGiveTheTransmitter) {
  Read("$ Tx.UTM1= 100:200:10");
  Read("$ Tx.UTM2= 100:300:20");
  TMD_Survey_from_MD();
  EXPECT_EQ(hTemSurvey.dTxXYZC(2), 250.0);
  EXPECT_EQ(hTemSurvey.dTxXYZC(3), 15.0);
  EXPECT_FLOAT_EQ(hTemSurvey.fTxLength(1), 100.0f);
  EXPECT_FLOAT_EQ(hTemSurvey.fTxHPR(1), 0.0f);
}

TEST_F(SurveyExchange, RecordsOfAnEmptySurvey) {
  hTemSurvey.iTemArray = iArrayMVL;  // a moving transmitter has no place and no attitude
  hTemSurvey.NTxTurn = 0;
  hTemSurvey.fTxLength.fill(0.0f);
  hTemSurvey.iBUnit = 99;
  EXPECT_EQ(Written(),
            "$ Survey.Type = TEM\n"
            "$ Survey.Array = MVL\n"
            "$ Unit.Length = m\n"
            "$ Unit.Time = msec\n"
            "$ Unit.E = uV/Am\n"
            "$ Unit.B = T\n"
            "$ Unit.dBdt = nV/Am2\n");
}

TEST_F(SurveyExchange, MissingElementsAreStarsAndLongNamesKeepBothQuotes) {
  hTemSurvey.sJobName = std::string(128, 'x');
  hTemSurvey.fTxLength(1) = 0.0f;
  hTemSurvey.dTxXYZC.fill(dDummy);
  hTemSurvey.fTxHPR(2) = fDummy;
  const std::string sText = Written();
  EXPECT_TRUE(sText.starts_with("$ Job.Name = \"" + std::string(128, 'x') + "\"\n"));
  EXPECT_NE(sText.find("$ Tx.Length = *,100 m\n"), std::string::npos);
  EXPECT_EQ(sText.find("$ Tx.Center"), std::string::npos);
  EXPECT_NE(sText.find("$ Tx.HPR = 90,*,0\n"), std::string::npos);
}

TEST_F(SurveyExchange, ListWithoutRoomStaysAsItIs) {
  MdEntryList hEntry(8);
  EXPECT_EQ(TMD_Survey_Append_MD(hEntry, 32), -1);
  EXPECT_EQ(hEntry.size(), 8U);
  hEntry.pop_back();
  EXPECT_EQ(TMD_Survey_Append_MD(hEntry, 32), 0);
  EXPECT_GT(hEntry.size(), 7U);
}

}  // namespace
}  // namespace quillan
