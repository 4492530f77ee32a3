// What UNIT, SURVEY, JOB and GRID do beyond their keywords.
#include "metadata/metadata_fixture.h"

namespace quillan {
namespace {

class SurveyGroups : public Metadata {};

TEST_F(SurveyGroups, APhaseUnitMayBringItsSignAndGuardsIt) {
  Expect({
      {"$ Unit.Phase= mrad, -ip-", MdUnit.iPhaseSign, "2", "", 0, iPriorityMde},
      {"", MdUnit.lPhaseSign, "1"},
      {"$ Unit.Phase= deg, EM", MdUnit.iPhaseSign, "1"},
      {"", MdUnit.iPhase, "2"},
      {"$ Unit.PhaseSign= IP", MdUnit.iPhaseSign, "1", "", 0, iPriorityMde},
  });
}

TEST_F(SurveyGroups, TheSurveyTypeBringsItsVersionAndChoosesTheArrays) {
  Expect({
      {"$ Survey.Type= TEM2",    MdSurvey.sType,       "TEM2"},
      {"",                       MdSurvey.iType,       "2"   },
      {"",                       MdSurvey.iVersion,    "2"   },
      {"$ Survey.Array= col",    MdSurvey.iTemArray,   "4"   },
      {"",                       MdSurvey.sArray,      "col" },
      {"$ Survey.Type= amt",     MdSurvey.iType,       "4"   },
      {"",                       MdSurvey.iVersion,    "2"   }, // no digits: the version stays
      {"$ Survey.Array= Tensor", MdSurvey.iCsamtArray, "3"   },
      {"$ SURVEYTYPE= TDIP",     MdSurvey.iType,       "5"   },
      {"$ ARRAY= Sch",           MdSurvey.iIPArray,    "5"   },
      {"",                       MdSurvey.iTemArray,   "4"   },
  });
}

TEST_F(SurveyGroups, AnArrayOfAnotherSurveyTypeIsAskedForAndStaysWhenNobodyAnswers) {
  Expect({
      {"$ Survey.Array= Scalar", MdSurvey.iTemArray, "3", "", 2},
      {"", MdSurvey.sArray, "Scalar"},
      {"", MdSurvey.NErrArray, "1"},
  });
}

TEST_F(SurveyGroups, TextsEndAtACommaUnlessQuoted) {
  Expect({
      {"$ Job.Area= Chiapas, Mexico",     MdJob.sArea, "Chiapas"        },
      {"$ Job.Area= \"Chiapas, Mexico\"", MdJob.sArea, "Chiapas, Mexico"},
  });
}

TEST_F(SurveyGroups, GridPairsComeWithColonsOrCommasAndALabel) {
  Expect({
      {"$ Grid.Ref1= 0:1, 645.07:189.78, \"Peg A\"", MdGrid.sRef1, "Peg A"},
      {"", MdGrid.dRef1.hColumn(1), "0 1"},
      {"", MdGrid.dRef1.hColumn(2), "645.07 189.78"},
      {"$ Grid.Calc= 1, 2; 3", MdGrid.dCalc.hColumn(2), "3 0"},
      {"", MdGrid.sCalc, ""},
      {"$ Grid.XYOffset= 500: 1E10: Shore", MdGrid.dXYOffset, "500 9.9e+09",
       "Grid.XYOffset[2] = 1.0000E+10 < -9.9000E+09 or > 9.9000E+09"},
      {"", MdGrid.sXYOffset, "Shore"},
      {"$ Grid.Ref2= 1, x", MdGrid.dRef2.hColumn(1), "1 0", "Grid.Ref2[2,1]", 1},
      {"$ Grid.Ref2= 1:2:3:4:5:6:7:8:9:10:11:12:13:14:15:16", MdGrid.sRef2, "5"},
      {"$ Grid.Ref2= 1,, 3", MdGrid.dRef2.hColumn(2), "3 4", "", -1},
  });
}

}  // namespace
}  // namespace quillan
