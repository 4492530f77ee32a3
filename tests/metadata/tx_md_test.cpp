#include <gtest/gtest.h>

#include <string_view>

#include "metadata/metadata_fixture.h"

namespace quillan {
namespace {

class TxMd : public Metadata {
 protected:
  using Point = Array1<R8, 3>;
};

TEST_F(TxMd, EveryKeywordFillsItsOwnValue) {
  struct Case {
    std::string_view sLine;
    R4 TxGroup::*fValue;
    R4 fExpected;
  };
  const Case hCase[] = {
      {"$ TXAZM= N45E",     &TxGroup::fAzm,   45.0f  },
      {"$ Tx.Incl= -91",    &TxGroup::fIncl,  -90.0f },
      {"$ Tx.Area= 2500",   &TxGroup::fArea,  2500.0f},
      {"$ Tx.Amp= -8.5",    &TxGroup::fAmp,   -8.5f  },
      {"$ TXFRQ= 0",        &TxGroup::fFreq,  1.0E-6f},
      {"$ Tx.Delay= 3",     &TxGroup::fDelay, 3.0f   },
      {"$ Tx.Ramp= 250 us", &TxGroup::fRamp,  250.0f },
      {"$ Tx.Duty= 0.5",    &TxGroup::fDuty,  50.0f  },
      {"$ Tx.Duty= 1.0",    &TxGroup::fDuty,  100.0f },
      {"$ Tx.Duty= 1.5",    &TxGroup::fDuty,  1.5f   },
      {"$ Tx.Duty= -1",     &TxGroup::fDuty,  0.01f  },
  };
  for (const Case& h : hCase) {
    EXPECT_EQ(Take(h.sLine), 0) << h.sLine;
    EXPECT_EQ(MdTx.*h.fValue, h.fExpected) << h.sLine;
  }
  const std::string_view sLine[] = {
      "$ TXID= 3",       "$ Tx.Stn= 1200",        "$ Tx.Center= 1, 2, 3", "$ TXCX= 7",
      "$ TXCY= 8",       "$ Tx.HPR= east, 5, -5", "$ Tx.Turns= 0",        "$ Tx.NWaveform= 3",
      "$ TS.NCYCLE= 64", "$ Tx.Type= NT20",       "$ Tx.SN= 12",
  };
  for (const std::string_view s : sLine) EXPECT_EQ(Take(s), 0) << s;
  EXPECT_EQ(MdTx.dKvrStn, 3.0);
  EXPECT_EQ(MdTx.dStn, 1200.0);
  EXPECT_EQ(MdTx.dUTMC, (Point{
                            {7.0, 8.0, 3.0}
  }));
  EXPECT_EQ(MdTx.fHPR, (Array1<R4, 3>{
                           {90.0f, 5.0f, -5.0f}
  }));
  EXPECT_EQ(MdTx.NTurn, 1);
  EXPECT_EQ(MdTx.NWaveform, 4);
  EXPECT_EQ(Told("Tx.NWaveform = 3 < 4 or >2147483647"), 1);
  EXPECT_EQ(MdTx.NCycle, 64);
  EXPECT_EQ(MdTx.sType, "NT20");
  EXPECT_EQ(MdTx.sSN, "12");
  EXPECT_EQ(Take("$ Tx.XAzimuth= S"), 0);
  EXPECT_EQ(MdTx.fHPR(1), 180.0f);
}

TEST_F(TxMd, OneLengthMakesASquareInTheUnitOfTheRecord) {
  struct Case {
    std::string_view sLine;
    R4 fX, fY;
  };
  const Case hCase[] = {
      {"$ Tx.Length= 50, 100",     50.0f,  100.0f},
      {"$ Tx.Length= 200 ft",      60.96f, 60.96f},
      {"$ Tx.Length= 100, 10, ft", 30.48f, 3.048f},
      {"$ Tx.LengthY= 20",         30.48f, 20.0f },
      {"$ TXDX= 0",                0.01f,  20.0f },
      {"$ Tx.Length= 40",          40.0f,  40.0f },
  };
  for (const Case& h : hCase) {
    EXPECT_EQ(Take(h.sLine), 0) << h.sLine;
    EXPECT_FLOAT_EQ(MdTx.fLength(1), h.fX) << h.sLine;
    EXPECT_FLOAT_EQ(MdTx.fLength(2), h.fY) << h.sLine;
  }
  EXPECT_EQ(Told("Tx.LengthX"), 0) << "the name is the one that the file wrote";
  EXPECT_EQ(Told("TXDX = 0.0000E+00 < 1.0000E-02 or > 9.9000E+09 m"), 1);
  EXPECT_EQ(Take("$ Tx.LengthY= 10", iPriorityMde), 0);
  EXPECT_EQ(Take("$ Tx.Length= 70", iPriorityMde), 0);
  EXPECT_EQ(MdTx.fLength(2), 40.0f) << "the one length brought its priority to both sides";
  EXPECT_EQ(Take("$ Unit.Length= ft"), 0);
  EXPECT_EQ(Take("$ Tx.Length= 100"), 0);
  EXPECT_FLOAT_EQ(MdTx.fLength(1), 30.48f);
}

TEST_F(TxMd, LimitsThatDifferFromTheirWordsAreKept) {
  EXPECT_EQ(Take("$ Tx.Sense= 2.0E6, 1.0E13, 0.05"), 0);
  EXPECT_EQ(MdTx.fShunt(1), 2.0E6f);
  EXPECT_EQ(MdTx.fShunt(2), 1.0E12f);
  EXPECT_EQ(MdTx.fShunt(3), 0.05f);
  EXPECT_EQ(MdTx.fShunt(4), 0.1f);
  EXPECT_EQ(MdTx.NErrShunt, 2);
  EXPECT_EQ(Told("Tx.Sense[1] = 2.0000E+06 < 1.0000E-06 or > 1.0000E+12"), 1);
  EXPECT_EQ(Take("$ Tx.Area= 1.0E-6"), 0);
  EXPECT_EQ(Told("Tx.Area = 1.0000E-06 <= 1.0000E-06 or > 1.0000E+20 m^2"), 1);
}

TEST_F(TxMd, AVertexIsReplacedAsAWholeAndTheLastOneCounts) {
  EXPECT_EQ(Take("$ Tx.XYZ3= 1, 2, 3"), 0);
  EXPECT_EQ(MdTx.NXYZN, 3);
  EXPECT_EQ(Take("$ TX1= 10:20"), 0);
  EXPECT_EQ(MdTx.NXYZN, 1);
  EXPECT_EQ(MdTx.dXYZN.hColumn(1), (Point{
                                       {10.0, 20.0, 0.0}
  }));
  EXPECT_EQ(Take("$ Tx.Point3= 4"), 0);
  EXPECT_EQ(MdTx.dXYZN.hColumn(3), (Point{
                                       {4.0, 0.0, 0.0}
  }));
  EXPECT_EQ(MdTx.dXYZN.hColumn(2), (Point{
                                       {dDummy, dDummy, 0.0}
  }));
  EXPECT_EQ(Take("$ Tx.UTM0= 5, *, 7"), -1);
  EXPECT_EQ(MdTx.dUTMN.hColumn(0), (Point{
                                       {5.0, 0.0, 7.0}
  }));
  EXPECT_EQ(MdTx.NUTMN, 0);

  EXPECT_EQ(Take("$ Tx.XYZ3= 9, 9, 9", iPriorityMde), 0);
  EXPECT_EQ(MdTx.dXYZN(1, 3), 4.0);
  EXPECT_EQ(Take("$ Tx.Point4= 1.0E10"), 0);
  EXPECT_EQ(MdTx.dXYZN(1, 4), 9.9E9) << "a point is held to the range of a station";
  EXPECT_EQ(Take("$ Tx.XYZ4= 1.0E10"), 0);
  EXPECT_EQ(MdTx.dXYZN(1, 4), 1.0E10) << "a vertex is not";
}

TEST_F(TxMd, AVertexWithoutAGoodIndexIsReportedAndDropped) {
  EXPECT_EQ(Take("$ Tx.XYZ33= 1,2,3"), 1);
  EXPECT_EQ(Told("Tx_MD_READ.WARNING: out-of-range index value in"), 1);
  EXPECT_EQ(Told("Index=33 <0 or >32"), 1);
  EXPECT_EQ(Take("$ Tx.UTM= 1,2,3"), -1);
  EXPECT_EQ(Told("Tx_MD_READ.WARNING: unable to read index value from"), 1);
  EXPECT_EQ(MdTx.NXYZN, 0);
  EXPECT_EQ(MdTx.dUTMN.hColumn(1), (Point{
                                       {dDummy, dDummy, dDummy}
  }));
}

TEST_F(TxMd, CornersGiveCentreSideAndAzimuth) {
  for (const std::string_view s : {"$ Tx.UTM1= 100, 200, 10", "$ Tx.UTM2= 200, 300, 20", "$ Tx.UTM3= 0, 400, 0"}) {
    EXPECT_EQ(Take(s), 0) << s;
  }
  EXPECT_EQ(Tx_MD_UTMN_to_UTMC(MdTx), 0);
  EXPECT_EQ(MdTx.dUTMC, (Point{
                            {100.0, 300.0, 10.0}
  }));
  EXPECT_FLOAT_EQ(MdTx.fLength(2), 141.42136f);
  EXPECT_NEAR(MdTx.fAzm, 45.0f, 1.0E-4f);
  EXPECT_EQ(MdTx.fHPR(1), MdTx.fAzm);
  EXPECT_EQ(MdTx.lUTMC, iPriorityData);
  EXPECT_EQ(MdTx.lLength(2), iPriorityData);
}

TEST_F(TxMd, CornersThatSayTooLittleLeaveTheCentreAlone) {
  EXPECT_EQ(Take("$ Tx.Center= 1, 2, 3"), 0);
  EXPECT_EQ(Take("$ Tx.UTM1= 100, 200"), 0);
  EXPECT_EQ(Tx_MD_UTMN_to_UTMC(MdTx), 0) << "one corner";
  EXPECT_EQ(MdTx.dUTMC(1), 1.0);
  EXPECT_EQ(Take("$ Tx.UTM3= 100, 200"), 0);
  EXPECT_EQ(Tx_MD_UTMN_to_UTMC(MdTx), 1) << "corner 2 is not known";
  EXPECT_EQ(MdTx.dUTMC(1), 1.0);

  EXPECT_EQ(Take("$ Tx.UTM2= 100.005, 200", iPriorityMde), 0);
  EXPECT_EQ(Take("$ Tx.UTM2= 100.005, 200"), 0);
  EXPECT_EQ(Tx_MD_UTMN_to_UTMC(MdTx), 0);
  EXPECT_NEAR(MdTx.dUTMC(1), 100.0025, 1.0E-9) << "two corners on one point still have a mean";
  EXPECT_EQ(MdTx.fLength(1), 100.0f);
  EXPECT_EQ(MdTx.fAzm, 90.0f);

  EXPECT_EQ(Take("$ Tx.UTM2= 9.0E29, 200"), 0);
  EXPECT_EQ(Tx_MD_UTMN_to_UTMC(MdTx), 0);
  EXPECT_EQ(MdTx.fLength(1), 100.0f) << "a side whose square is no number";
}

}  // namespace
}  // namespace quillan
