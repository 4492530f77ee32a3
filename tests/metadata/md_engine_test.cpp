// The rules that the rows of all groups share, each by a row that has it.
#include "metadata/md_engine.h"

#include <gtest/gtest.h>

#include <string_view>

#include "metadata/enm_data.h"
#include "metadata/metadata_fixture.h"

namespace quillan {
namespace {

class MdEngine : public Metadata {};

TEST_F(MdEngine, AValueAtALimitIsAcceptedInSilenceAndOneJustBeyondItIsNot) {
  Expect({
      {"$ Tx.Turns= 1000",    MdTx.NTurn,    "1000"  },
      {"$ Tx.Freq= 1.0E-6",   MdTx.fFreq,    "1e-06" }, // the limit is rounded as the value is
      {"$ Stn.Inc= -1.0E-6",  MdStn.dStnInc, "-1e-06"},
      {"$ Kvr.Bat= 20",       MdKvr.fBat,    "20"    },
      {"$ Kvr.Setup= -99999", MdKvr.iSetup,  "-99999"}, // no limits
  });
  EXPECT_EQ(Reported("WARNING"), 0);
  Expect({
      {"$ Kvr.Bat= 20.0001", MdKvr.fBat, "20",   "Kvr.Bat will be set = 2.0000E+01"},
      {"$ Tx.Turns= 1001",   MdTx.NTurn, "1000", "Tx.Turns will be set = 1000"     },
  });
}

TEST_F(MdEngine, OnlyTheFirstWarningOfAKeywordAndThreeUnknownKeywordsShow) {
  for (I4 I = 1; I <= 30; ++I) {
    EXPECT_EQ(Take("$ Tx.Turns= 0"), 0);
    EXPECT_EQ(Take("$ Tx.Nonsense= 1"), iMdUnknownKeyword);
  }
  EXPECT_EQ(MdTx.NErrTurns, 30);
  EXPECT_EQ(MdTx.NErrUnknown, 30);
  EXPECT_EQ(Reported("Tx_MD_Read.WARNING:"), 60);
  EXPECT_EQ(Reported("Tx.Turns will be set = 1"), 30);
  EXPECT_EQ(Shown("Tx.Turns will be set = 1"), 1);
  EXPECT_EQ(Reported("Did not recognize keyword Tx.Nonsense in record # "), 30);
  EXPECT_EQ(Shown("Did not recognize keyword"), 3);
  EXPECT_EQ(Shown("$ Tx.Nonsense= 1"), 3);
}

TEST_F(MdEngine, AHigherPriorityKeepsARecordOutInSilenceAndAnEqualOneGivesWay) {
  Expect({
      {"$ Tx.Turns= 5", MdTx.NTurn, "5"},
      {"$ Tx.Turns= 0", MdTx.NTurn, "5", "", 0, iPriorityMde},
      {"", MdTx.NErrTurns, "0"},
      {"$ Tx.Turns= 8", MdTx.NTurn, "8"},
      {"", MdTx.lTurn, "2"},
 // Each element of a length has a priority of its own.
      {"$ Tx.LengthY= 100 ft", MdTx.fLength, "100 30.48"},
      {"$ Tx.Length= 10, 20", MdTx.fLength, "10 30.48", "", 0, iPriorityMde},
      {"", MdTx.lLength, "1 2"},
  });
}

TEST_F(MdEngine, AFieldThatCannotBeReadGivesTheDefaultAndAStatus) {
  Expect({
      {"$ Tx.Turns= many", MdTx.NTurn, "1", "", 1},
      {"$ Tx.NCycle= *, 4", MdTx.NCycle, "1", "", -1},
      {"$ Unit.Time= *, sec", MdUnit.iTime, "2", "", -1}, // a word that is missing leaves the code
      {"", MdUnit.NErrTime, "1"},
  });
}

TEST_F(MdEngine, TheFieldsOfARecordAreTheLeadingElementsOfAnArray) {
  Expect({
      {"$ Rx.HPR= N45E, 400", MdRx.fHPR, "45 360 0", "Rx.HPR[2] = 4.0000E+02 < -3.6000E+02 or > 3.6000E+02"},
      {"$ Rx.HPR= 1, *, 3, 4, 5", MdRx.fHPR, "1 90 3", "", -1}, // a later good field does not hide a missing one
      {"$ Ch.Number= 1, *, 3, x, 5", MdChn.NChn, "5", "", 1}, // of two bad ones the last tells the status
  });
}

TEST_F(MdEngine, TheLastUnitLetterOfARecordIsTheUnitOfItsBareLengths) {
  struct Case {
    std::string_view sValue;
    I4 iLength;
  };
  const Case hCase[] = {
      {"20, 30",      0          },
      {"20, 30 m",    iUnitMeters},
      {"20 FT, 30",   iUnitFeet  },
      {"20 ft, 30 m", iUnitMeters},
      {"20, 30 m/f",  iUnitFeet  },
  };
  for (const Case& h : hCase) {
    FieldList hField(MMdField, 128);
    Str_to_Fld(h.sValue, ",;", hField);
    EXPECT_EQ(MD_Length_Unit({1, "", "", "", hField, 1, 0}), h.iLength) << h.sValue;
  }
}

}  // namespace
}  // namespace quillan
