#include <gtest/gtest.h>

#include <string_view>

#include "metadata/metadata_fixture.h"

namespace quillan {
namespace {

class StnMd : public Metadata {};

TEST_F(StnMd, EveryKeywordFillsItsOwnValue) {
  struct Case {
    std::string_view sLine;
    R8 StnGroup::*dValue;
    R8 dExpected;
  };
  const Case hCase[] = {
      {"$ Stn.Number= 12.5",      &StnGroup::dNumber,     12.5  },
      {"$ Stn.KvrBeg= 100",       &StnGroup::dStnKvrBeg,  100.0 },
      {"$ STNHIGH= 900",          &StnGroup::dStnKvrEnd,  900.0 },
      {"$ Stn.KvrInc= -50",       &StnGroup::dStnKvrInc,  -50.0 },
      {"$ Stn.KvrUnitScale= 0.3", &StnGroup::dStnKvrUnit, 0.3   },
      {"$ Stn.Beg= -1.0E10",      &StnGroup::dStnBeg,     -9.9E9},
      {"$ Stn.Inc= 25 m",         &StnGroup::dStnInc,     25.0  },
      {"$ Stn.UnitScale= 1",      &StnGroup::dStnUnit,    1.0   },
      {"$ Stn.Left= 1000",        &StnGroup::dStnLeft,    1000.0},
      {"$ Stn.Right= 2000",       &StnGroup::dStnRight,   2000.0},
  };
  for (const Case& h : hCase) {
    EXPECT_EQ(Take(h.sLine), 0) << h.sLine;
    EXPECT_EQ(MdStn.*h.dValue, h.dExpected) << h.sLine;
  }
  EXPECT_EQ(Take("$ Stn.Name= Creek, west"), 0);
  EXPECT_EQ(MdStn.sName, "Creek");
}

TEST_F(StnMd, AStepKeepsItsSignWhenItIsClamped) {
  EXPECT_EQ(Take("$ Stn.KvrInc= -1.0E-9"), 0);
  EXPECT_EQ(MdStn.dStnKvrInc, -1.0E-6);
  EXPECT_EQ(Told("Abs|Stn.KvrInc| = -1.0000E-09 < 1.0000E-06 or > 9.9000E+09"), 1);
  EXPECT_EQ(Told("m/stn#"), 0);
  EXPECT_EQ(Take("$ Stn.UnitScale= -1.0E11"), 0);
  EXPECT_EQ(MdStn.dStnUnit, -9.9E9);
  EXPECT_EQ(Told("or > 9.9000E+09 m/stn#"), 1);
  EXPECT_EQ(Told("Stn.UnitScale will be set = -9.9000E+09 m/stn#"), 1);
}

}  // namespace
}  // namespace quillan
