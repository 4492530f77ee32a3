// The rules around the configuration dialog, and the completion of the data after it.
#include "commands/survey_config.h"

#include <gtest/gtest.h>

#include "metadata/mdp_data.h"
#include "support/survey_builder.h"

namespace quillan {
namespace {

void Load_Survey() {
  Load({TransientBuilder().Values({5}).Station(4), TransientBuilder().Values({5}).Component(iCmpHx)});
  MDP_Initialize();
  iZPositive = 1;
  hTemSurvey.fLineAzimuth = -30.0f;
  hTemSurvey.dStnKvrBeg = 0.0;
  hTemSurvey.dStnKvrInc = 2.0;
  hTemSurvey.dStnBeg = 100.0;
  hTemSurvey.dStnInc = 10.0;
}

TEST(SurveyConfig, ContinueWithoutATouchChangesOnlyWhatTheRulesCompute) {
  Load_Survey();
  hTrn(1).fRxArea = 412.0917f;
  hTemSurvey.fTxLength = {
      {20.3f, 61.037f}
  };
  hTemSurvey.dTxXYZC = {
      {482310.123456789, 5.0, dDummy}
  };
  hTemSurvey.sJobName = "K\xF6nig";  // bytes of another encoding
  const Survey h0 = hTemSurvey;
  Config_to_Survey(Config_from_Survey());
  EXPECT_EQ(hTemSurvey.fLineAzimuth, 330.0f);
  EXPECT_EQ(hTemSurvey.fTxLength, h0.fTxLength);
  EXPECT_EQ(hTemSurvey.dTxXYZC, h0.dTxXYZC);
  EXPECT_EQ(hTemSurvey.sJobName, h0.sJobName);
  EXPECT_EQ(hTemSurvey.fRxHPR, h0.fRxHPR);
  EXPECT_EQ(hTrn(1).fRxArea, 412.0917f);
  EXPECT_EQ(hTemSurvey.fTxHPR(1), 330.0f);
  EXPECT_EQ(MdLine.fAzimuth, 330.0f);
}

TEST(SurveyConfig, LastTransientOfAnAxisGivesItsAreaToAll) {
  Load({TransientBuilder(), TransientBuilder(), TransientBuilder().Component(iCmpHx), TransientBuilder().Component(9)});
  hTrn(1).fRxArea = 100.0f;
  hTrn(2).fRxArea = 200.0f;
  hTrn(3).fRxArea = -1.0f;
  hTrn(4).fRxArea = fDummy;
  const SurveyConfig hConfig = Config_from_Survey();
  EXPECT_EQ(hConfig.fCmpArea(1), 10000.0f);
  EXPECT_EQ(hConfig.fCmpArea(3), 200.0f);
  Config_to_Survey(hConfig);
  EXPECT_EQ(hTrn(1).fRxArea, 200.0f);
  EXPECT_EQ(hTrn(3).fRxArea, 10000.0f);
}

TEST(SurveyConfig, YLiesToTheLeftOfXWithZUpAndToTheRightWithZDown) {
  EXPECT_EQ(Y_Azimuth(90.0f, 1), 0.0f);
  EXPECT_EQ(Y_Azimuth(90.0f, 2), 180.0f);
  EXPECT_EQ(Y_Azimuth(0.0f, 1), 270.0f);
  Load_Survey();
  SurveyConfig hConfig = Config_from_Survey();
  hConfig.fXazm = 45.0f;
  hConfig.iZPositive = 2;
  Config_to_Survey(hConfig);
  EXPECT_EQ(hTemSurvey.fRxHPR, (Array1<R4, 3>{
                                   {45.0f, 0.0f, 180.0f}
  }));
  EXPECT_EQ(hTemSurvey.fTxHPR(3), 180.0f);
  EXPECT_EQ(Config_from_Survey().iZPositive, 2);
  iZPositive = 1;
}

TEST(SurveyConfig, CodesAndSizesAreHeldToTheirTables) {
  Load_Survey();
  hTemSurvey.iTemArray = 0;
  hTemSurvey.iLengthUnit = 7;
  hTemSurvey.NTxTurn = 0;
  hTemSurvey.fTxLength = {
      {-5.0f, 1.0E20f}
  };
  hTemSurvey.fRxHPR(1) = -400.0f;
  const SurveyConfig h = Config_from_Survey();
  EXPECT_EQ(h.hSurvey.iTemArray, 1);
  EXPECT_EQ(h.hSurvey.iLengthUnit, 2);
  EXPECT_EQ(h.hSurvey.NTxTurn, 1);
  EXPECT_EQ(h.hSurvey.fTxLength, (Array1<R4, 2>{
                                     {1.0E-9f, 1.0E9f}
  }));
  EXPECT_EQ(h.fXazm, 330.0f);
}

}  // namespace
}  // namespace quillan
