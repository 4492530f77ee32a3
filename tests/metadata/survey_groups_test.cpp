#include <gtest/gtest.h>

#include <string_view>

#include "metadata/metadata_fixture.h"

namespace quillan {
namespace {

class SurveyGroups : public Metadata {};

TEST_F(SurveyGroups, UnitsAreKnownByTheirWords) {
  struct Case {
    std::string_view sLine;
    I4 UnitGroup::*iUnit;
    I4 iCode;
  };
  const Case hCase[] = {
      {"$ Unit.Length= feet",  &UnitGroup::iLength,    2},
      {"$ LENGTHUNITS= m",     &UnitGroup::iLength,    1},
      {"$ Unit.Time= usec",    &UnitGroup::iTime,      1},
      {"$ Unit.V= nV/A",       &UnitGroup::iVmag,      1},
      {"$ Unit.E= uV/m",       &UnitGroup::iEfield,    6},
      {"$ Unit.E= mV/Am",      &UnitGroup::iEfield,    4}, // the table's own spelling keeps it from its place
      {"$ Unit.B= nT",         &UnitGroup::iBfield,    5},
      {"$ Unit.Phase= deg",    &UnitGroup::iPhase,     2},
      {"$ Unit.PhaseSign= IP", &UnitGroup::iPhaseSign, 2},
      {"$ Unit.dBdt= nV/Am2",  &UnitGroup::idBdt,      2},
      {"$ Unit.Res= ohm-m",    &UnitGroup::iRes,       1},
      {"$ Unit.IP= PFE",       &UnitGroup::iIP,        3},
  };
  for (const Case& h : hCase) {
    MdUnit.*h.iUnit = 0;
    EXPECT_EQ(Take(h.sLine), 0) << h.sLine;
    EXPECT_EQ(MdUnit.*h.iUnit, h.iCode) << h.sLine;
  }
}

TEST_F(SurveyGroups, APhaseUnitMayBringItsSignAndGuardsIt) {
  EXPECT_EQ(Take("$ Unit.Phase= mrad, -ip-", iPriorityMde), 0);
  EXPECT_EQ(MdUnit.iPhase, 1);
  EXPECT_EQ(MdUnit.iPhaseSign, 2);
  EXPECT_EQ(MdUnit.lPhaseSign, iPriorityMde);
  EXPECT_EQ(Take("$ Unit.Phase= deg, EM", iPriorityData), 0);
  EXPECT_EQ(MdUnit.iPhaseSign, 1);
  EXPECT_EQ(Take("$ Unit.PhaseSign= IP", iPriorityMde), 0);
  EXPECT_EQ(MdUnit.iPhaseSign, 1) << "the unit came with a higher priority";
}

TEST_F(SurveyGroups, TheSurveyTypeBringsItsVersionAndChoosesTheArrays) {
  EXPECT_EQ(Take("$ Survey.Type= TEM2"), 0);
  EXPECT_EQ(MdSurvey.sType, "TEM2");
  EXPECT_EQ(MdSurvey.iType, iSurveyTEM);
  EXPECT_EQ(MdSurvey.iVersion, 2);
  EXPECT_EQ(Take("$ Survey.Array= col"), 0);
  EXPECT_EQ(MdSurvey.sArray, "col");
  EXPECT_EQ(MdSurvey.iTemArray, 4);

  EXPECT_EQ(Take("$ Survey.Type= amt"), 0);
  EXPECT_EQ(MdSurvey.iType, iSurveyNSAMT);
  EXPECT_EQ(MdSurvey.iVersion, 2) << "no digits: the version stays";
  EXPECT_EQ(Take("$ Survey.Array= Tensor"), 0);
  EXPECT_EQ(MdSurvey.iCsamtArray, 3);

  EXPECT_EQ(Take("$ SURVEYTYPE= TDIP"), 0);
  EXPECT_EQ(Take("$ ARRAY= Sch"), 0);
  EXPECT_EQ(MdSurvey.iIPArray, 5);
  EXPECT_EQ(MdSurvey.iTemArray, 4);
}

TEST_F(SurveyGroups, AnArrayOfAnotherSurveyTypeIsAskedForAndStaysWhenNobodyAnswers) {
  EXPECT_EQ(Take("$ Survey.Array= Scalar"), 2);
  EXPECT_EQ(MdSurvey.sArray, "Scalar");
  EXPECT_EQ(MdSurvey.iTemArray, 3);
  EXPECT_EQ(MdSurvey.NErrArray, 1);
}

TEST_F(SurveyGroups, AZoneKeepsItsSignAndABadOneBecomesZero) {
  EXPECT_EQ(Take("$ Survey.UTMZone= -13"), 0);
  EXPECT_EQ(MdSurvey.iUTMZone, -13);
  EXPECT_EQ(Take("$ Survey.UTMZone= 61"), 0);
  EXPECT_EQ(MdSurvey.iUTMZone, 0);
  EXPECT_EQ(Told("Survey_MD_Read.WARNING: at record 2"), 1);
  EXPECT_EQ(Told("Survey.UTMZone = abs|61| < 1 or > 60"), 1);
  EXPECT_EQ(Told("Survey.UTMZone will be set = 0"), 1);
  EXPECT_EQ(Take("$ Survey.UTMZone= 0"), 0);
  EXPECT_EQ(MdSurvey.NErrUTMZone, 2);
}

TEST_F(SurveyGroups, JobAndLineTextsEndAtACommaUnlessQuoted) {
  EXPECT_EQ(Take("$ Job.Area= Chiapas, Mexico"), 0);
  EXPECT_EQ(MdJob.sArea, "Chiapas");
  EXPECT_EQ(Take("$ Job.Area= \"Chiapas, Mexico\""), 0);
  EXPECT_EQ(MdJob.sArea, "Chiapas, Mexico");
  EXPECT_EQ(Take("$ Line.Direction= NNEast"), 0);
  EXPECT_EQ(MdLine.sDirection, "NNEa");
  EXPECT_EQ(Take("$ Line.Type= meander"), 0);
  EXPECT_EQ(MdLine.iType, 2);
}

TEST_F(SurveyGroups, AnAzimuthBeyondTheCircleIsClamped) {
  EXPECT_EQ(Take("$ Line.Azimuth= 400"), 0);
  EXPECT_EQ(MdLine.fAzimuth, 360.0f);
  EXPECT_EQ(Shown("Line_MD_Read.WARNING:"), 1);
  EXPECT_EQ(Shown("Line.Azimuth = 4.0000E+02 < -3.6000E+02 or > 3.6000E+02"), 1);
  EXPECT_EQ(Shown("Line.Azimuth will be set = 3.6000E+02"), 1);
}

TEST_F(SurveyGroups, GridPairsComeWithColonsOrCommasAndALabel) {
  EXPECT_EQ(Take("$ Grid.Ref1= 0:1, 645308.07:1894488.78, \"Peg A\""), 0);
  EXPECT_EQ(MdGrid.sRef1, "Peg A");
  EXPECT_EQ(MdGrid.dRef1(1, 1), 0.0);
  EXPECT_EQ(MdGrid.dRef1(2, 1), 1.0);
  EXPECT_EQ(MdGrid.dRef1(1, 2), 645308.07);
  EXPECT_EQ(MdGrid.dRef1(2, 2), 1894488.78);

  EXPECT_EQ(Take("$ Grid.Calc= 1, 2; 3"), 0);
  EXPECT_EQ(MdGrid.dCalc(1, 2), 3.0);
  EXPECT_EQ(MdGrid.dCalc(2, 2), 0.0);
  EXPECT_TRUE(MdGrid.sCalc.Is_Blank());

  EXPECT_EQ(Take("$ Grid.XYOffset= 500: 1E10: Shore"), 0);
  EXPECT_EQ(MdGrid.dXYOffset, (Array1<R8, 2>{
                                  {500.0, 9.9E9}
  }));
  EXPECT_EQ(MdGrid.sXYOffset, "Shore");
  EXPECT_EQ(Told("Grid.XYOffset[2] = 1.0000E+10 < -9.9000E+09 or > 9.9000E+09"), 1);

  EXPECT_GT(Take("$ Grid.Ref2= 1, x"), 0);
  EXPECT_EQ(Told("Grid.Ref2[2,1]"), 1);
  EXPECT_EQ(Take("$ Grid.Ref2= 1:2:3:4:5:6:7:8:9:10:11:12:13:14:15:16"), 0);
  EXPECT_EQ(MdGrid.sRef2, "5");
  EXPECT_EQ(Take("$ Grid.XAzimuth= N45E"), 0);
  EXPECT_EQ(MdGrid.fXAzimuth, 45.0f);
}

}  // namespace
}  // namespace quillan
