#include "model/tmd_exchange.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "foundations/log_file.h"
#include "metadata/mdp_data.h"
#include "model/tmd_data.h"
#include "model/txw_data.h"

namespace quillan {
namespace {

class SurveyExchange : public testing::Test {
 protected:
  void SetUp() override {
    bAutoErr = true;
    I4 iError = 0;
    Log_Initialize("quillan", iError);
    MDP_Initialize(iError);
    MdJob = JobGroup{};
    TMD_Initialize(iError);
    Txw_Initialize();
  }

  static void Read(std::string_view sLine) {
    I4 IOERR = -1;
    MDP_from_MDE(1, sLine, iPriorityData, IOERR);
    EXPECT_EQ(IOERR, 0) << sLine;
  }

  static void From_Metadata() {
    I4 iError = -1;
    TMD_Survey_from_MD(iError);
    EXPECT_EQ(iError, 0);
  }

  static std::string Written() {
    MdEntryList hEntry;
    I4 IOERR = -1;
    TMD_Survey_Append_MD(hEntry, IOERR);
    EXPECT_EQ(IOERR, 0);
    std::string sText;
    for (const MdEntry& h : hEntry) sText += MD_Entry_Line(h) + "\n";
    return sText;
  }
};

TEST_F(SurveyExchange, WhatHasNoValueLeavesTheLastGoodOne) {
  hTemSurvey.sJobName = "Orrin basin";
  hTemSurvey.dStnBeg = 1000.0;
  hTemSurvey.fTxArea = 400.0f;
  hTemSurvey.dTxXYZC = {
      {1.0, 2.0, 3.0}
  };
  MdTx.fArea = 0.0f;  // a number, but no area
  MdTx.dUTMC = {
      {dDummy, 350100.0, dDummy}
  };
  From_Metadata();
  EXPECT_EQ(hTemSurvey.sJobName, "Orrin basin");
  EXPECT_EQ(hTemSurvey.dStnBeg, 1000.0);
  EXPECT_EQ(hTemSurvey.fTxArea, 400.0f);
  EXPECT_EQ(hTemSurvey.dTxXYZC(2), 350100.0) << "an array with any value is taken whole";
  EXPECT_FALSE(Is_Present(hTemSurvey.dTxXYZC(1)));
}

TEST_F(SurveyExchange, FullSurveyGoesThroughTheGroupsAndBack) {
  for (const char* sLine : {"$ Job.Name= \"Orrin, basin\"",
                            "$ Job.Area= north",
                            "$ Job.For= client",
                            "$ Job.By= crew",
                            "$ Job.Number= 17",
                            "$ Job.Date= 2020-09-14",
                            "$ Survey.Array= LOT",
                            "$ Line.Name= L12N",
                            "$ Line.Number= 12.5",
                            "$ Line.Azimuth= 45",
                            "$ Tx.Turns= 2",
                            "$ Tx.Area= 10000",
                            "$ Tx.Length= 60.96,30.48 m",
                            "$ Tx.Center= 350100.25,2,3",
                            "$ Tx.HPR= 45,5,-0.5",
                            "$ Rx.HPR= 7,8,9",
                            "$ Stn.Beg= 1000",
                            "$ Stn.Inc= 50.125",
                            "$ Stn.KvrBeg= 100",
                            "$ Stn.KvrInc= 25",
                            "$ Stn.Left= -50",
                            "$ Stn.Right= 2000",
                            "$ Unit.Length= ft",
                            "$ Unit.Time= sec",
                            "$ Unit.dBdt= uV/A",
                            "$ Unit.E= V/m",
                            "$ Unit.B= T"}) {
    Read(sLine);
  }
  From_Metadata();
  const std::string sText = Written();
  EXPECT_EQ(sText,
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
            "$ Unit.dBdt = uV/A\n");

  I4 iError = -1;
  MDP_Initialize_MD(iError, true);
  MdJob = JobGroup{};
  TMD_Survey_to_MD(iError);
  hTemSurvey = Survey{};
  From_Metadata();
  EXPECT_EQ(Written(), sText);
  EXPECT_EQ(hTemSurvey.fRxHPR, (Array1<R4, 3>{
                                   {7.0f, 8.0f, 9.0f}
  }));
}

TEST_F(SurveyExchange, CornersGiveTheTransmitter) {
  Read("$ Tx.UTM1= 100:200:10");
  Read("$ Tx.UTM2= 100:300:20");
  From_Metadata();
  EXPECT_EQ(hTemSurvey.dTxXYZC, (Array1<R8, 3>{
                                    {100.0, 250.0, 15.0}
  }));
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
  I4 IOERR = 0;
  TMD_Survey_Append_MD(hEntry, IOERR, 32);
  EXPECT_EQ(IOERR, -1);
  EXPECT_EQ(hEntry.size(), 8U);
  hEntry.pop_back();
  TMD_Survey_Append_MD(hEntry, IOERR, 32);
  EXPECT_EQ(IOERR, 0);
  EXPECT_GT(hEntry.size(), 7U);
}

/// Loops with one triangle each, whose centre has the station as its east.
void Put_Loops(const std::vector<R8>& dTxStn) {
  NTxw = static_cast<I4>(dTxStn.size());
  I4 iError = 0;
  Txw_Allocate(iError);
  for (I4 K = 1; K <= NTxw; ++K) {
    WireLoop& h = hTxw(K);
    const R8 dEast = h.dTxStn = dTxStn[static_cast<std::size_t>(K - 1)];
    h.NTxUTMV = 3;
    h.dTxUTMV.hColumn(1) = {
        {dEast - 30.0, 0.0, 0.0}
    };
    h.dTxUTMV.hColumn(2) = {
        {dEast + 30.0, 0.0, 0.0}
    };
    h.dTxUTMV.hColumn(3) = {
        {dEast, 60.0, 0.0}
    };
    Txw_Get_Area(h, iError);
  }
}

TEST_F(SurveyExchange, WireLoopsPlaceTheTransmitters) {
  I4 iError = -1;
  TMD_TxUTMC_from_hTxw(iError);
  EXPECT_EQ(iError, 0) << "no wire file in use";
  hTemSurvey.bTxwFile = true;
  TMD_TxUTMC_from_hTxw(iError);
  EXPECT_EQ(iError, 1) << "no loops";

  Put_Loops({100.0, 200.0});
  hTemSurvey.fLineAzimuth = 90.0f;
  const std::vector<R8> dTxStn = {100.0, 200.0, 150.0, 150.0, 200.0, 100.0};
  for (const R8 dStn : dTxStn) hTrn(++NTrn).dTxStn = dStn;
  TMD_TxUTMC_from_hTxw(iError);

  EXPECT_EQ(iError, 0);
  for (I4 j = 1; j <= NTrn; ++j) {
    const R8 dStn = hTrn(j).dTxStn;
    EXPECT_EQ(hTrn(j).dTxXYZC(1), dStn == 150.0 ? dDummy : dStn) << "a station without a loop stays as it was: " << j;
  }
  EXPECT_EQ(hTemSurvey.dTxXYZC(1), 100.0);
  EXPECT_FLOAT_EQ(hTemSurvey.fTxArea, 1800.0f);
  EXPECT_NEAR(hTemSurvey.fTxLength(1) * hTemSurvey.fTxLength(2), 1800.0f, 0.1f);
  EXPECT_EQ(hTemSurvey.fTxHPR, (Array1<R4, 3>{
                                   {90.0f, 0.0f, 0.0f}
  }));
}

TEST_F(SurveyExchange, CornersOfARectangle) {
  struct Case {
    const char* sWhat;
    R4 fTxAzm;
    I4 iLengthUnit;
    R4 fEast1, fNorth1;  // of the first corner
  };
  const std::vector<Case> hCase = {
      {"along east",            90.0f, 1, -100.0f,           -50.0f          },
      {"along north",           0.0f,  1, 50.0f,             -100.0f         },
      {"feet",                  90.0f, 2, -100.0f / 0.3048f, -50.0f / 0.3048f},
      {"unit beyond the table", 90.0f, 9, -100.0f / 0.3048f, -50.0f / 0.3048f},
  };
  for (const Case& h : hCase) {
    I4 NTxXYV = 0, iError = -1;
    Array2<R4, 2, 4> fTxXYV{};
    TMD_Get_fTxXYV(
        {
            {200.0f, 100.0f}
    },
        h.fTxAzm, h.iLengthUnit, NTxXYV, fTxXYV, iError);
    EXPECT_EQ(iError, 0);
    EXPECT_EQ(NTxXYV, 4);
    EXPECT_NEAR(fTxXYV(1, 1), h.fEast1, 1.0E-3f) << h.sWhat;
    EXPECT_NEAR(fTxXYV(2, 1), h.fNorth1, 1.0E-3f) << h.sWhat;
    EXPECT_NEAR(fTxXYV(1, 3), -h.fEast1, 1.0E-3f) << h.sWhat << ": opposite corner";
    EXPECT_NEAR(fTxXYV(2, 3), -h.fNorth1, 1.0E-3f) << h.sWhat << ": opposite corner";
  }
}

}  // namespace
}  // namespace quillan
