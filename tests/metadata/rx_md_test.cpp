#include <gtest/gtest.h>

#include <string_view>

#include "metadata/metadata_fixture.h"

namespace quillan {
namespace {

class RxMd : public Metadata {
 protected:
  using Point = Array1<R8, 3>;
};

TEST_F(RxMd, EveryKeywordFillsItsOwnValue) {
  struct Case {
    std::string_view sLine;
    R4 RxGroup::*fValue;
    R4 fExpected;
  };
  const Case hCase[] = {
      {"$ RXAZM= W",            &RxGroup::fAzm,         270.0f    },
      {"$ Rx.Incl= 30",         &RxGroup::fIncl,        30.0f     },
      {"$ Rx.ASpace= 100 ft",   &RxGroup::fASpace,      30.48f    },
      {"$ Rx.SSpace= 100 ft",   &RxGroup::fSSpace,      100.0f    },
      {"$ Rx.NSpace= -1.0E6",   &RxGroup::fNsp,         -990000.0f},
      {"$ Rx.AntScale= 2",      &RxGroup::fAntScale,    2.0f      },
      {"$ Rx.CntRes= 1500",     &RxGroup::fCntRes,      1500.0f   },
      {"$ Rx.SetupLength= 10f", &RxGroup::fSetupLength, 3.048f    },
      {"$ Rx.WireCap= 90",      &RxGroup::fWireCap,     90.0f     },
      {"$ DELAY.ANT= 3",        &RxGroup::fAntDelay,    3.0f      },
      {"$ Rx.AliasDelay= -1",   &RxGroup::fAliasDelay,  0.0f      },
      {"$ Rx.ADDelay= 2.0E6",   &RxGroup::fADDelay,     1000000.0f},
      {"$ Rx.ADRamp= 20000",    &RxGroup::fADRamp,      10000.0f  },
      {"$ Rx.T0Delay= -20",     &RxGroup::fT0Delay,     -20.0f    },
  };
  for (const Case& h : hCase) {
    EXPECT_EQ(Take(h.sLine), 0) << h.sLine;
    EXPECT_FLOAT_EQ(MdRx.*h.fValue, h.fExpected) << h.sLine;
  }
  EXPECT_EQ(Told("Rx.ADDelay = 2.0000E+06 < 0.0000E+00 or > 1.0000E+06 usec"), 1);

  const std::string_view sLine[] = {
      "$ STATION= 400", "$ RXSTN= 1400", "$ Rx.Center= 1:2:3", "$ EAST= 7",     "$ ELEV= 9",        "$ Rx.Depth= 4",
      "$ Rx.HPR= S, 1", "$ CMP= Hz",     "$ Rx.AntSN= -4",     "$ Rx.RxLoc= 5", "$ Rx.SetupStn= 6",
  };
  for (const std::string_view s : sLine) EXPECT_EQ(Take(s), 0) << s;
  EXPECT_EQ(MdRx.dKvrStn, 400.0);
  EXPECT_EQ(MdRx.dStn, 1400.0);
  EXPECT_EQ(MdRx.dUTMC, (Point{
                            {7.0, 2.0, 9.0}
  }));
  EXPECT_EQ(MdRx.dDepth, 4.0);
  EXPECT_EQ(MdRx.fHPR, (Array1<R4, 3>{
                           {180.0f, 1.0f, 0.0f}
  }));
  EXPECT_EQ(MdRx.sCmp, "Hz");
  EXPECT_EQ(MdRx.iAntSN, 0) << "serial numbers count from 0";
  EXPECT_EQ(MdRx.dSetupStn, 6.0);
  EXPECT_EQ(MdRx.NErrUnknown, 0);
}

TEST_F(RxMd, ALengthOutOfRangeIsNotUsed) {
  EXPECT_EQ(Take("$ Rx.Length= 50", iPriorityMde), 0);
  EXPECT_EQ(MdRx.fLength, (Array1<R4, 2>{
                              {50.0f, 50.0f}
  }));
  EXPECT_EQ(MdRx.fLength0, 50.0f);
  EXPECT_EQ(Take("$ Rx.Length= 60, 0"), 0);
  EXPECT_EQ(MdRx.fLength, (Array1<R4, 2>{
                              {60.0f, 50.0f}
  }));
  EXPECT_EQ(Told("Rx.Length[2] = 0.0000E+00 < 1.0000E-02 or > 9.9000E+09"), 1);
  EXPECT_EQ(Told("Values will not be used."), 1);
  EXPECT_EQ(Take("$ Rx.Length= 70, 80", iPriorityMde), 0);
  EXPECT_EQ(MdRx.fLength, (Array1<R4, 2>{
                              {60.0f, 80.0f}
  }))
      << "only the length that was used took the priority";
  EXPECT_EQ(Take("$ Rx.Length= 0"), 0);
  EXPECT_EQ(MdRx.fLength, (Array1<R4, 2>{
                              {60.0f, 80.0f}
  }));
  EXPECT_EQ(MdRx.NErrLength, 2);
}

TEST_F(RxMd, AreasSkipTheirUnitAndAreNeverNearZero) {
  EXPECT_EQ(Take("$ Rx.Area= 100, m^2, 1.0E-9"), 0);
  EXPECT_EQ(MdRx.fArea, (Array1<R4, 3>{
                            {100.0f, fDummy, 1.0E-6f}
  }));
  EXPECT_EQ(MdRx.fArea0, 1.0E-6f);
  EXPECT_EQ(Take("$ Rx.Area= -300"), 0);
  EXPECT_EQ(MdRx.fArea(1), -300.0f) << "a coil wound the other way";
  EXPECT_EQ(Take("$ RXAREAY= 20"), 0);
  EXPECT_EQ(MdRx.fArea(2), 20.0f);
  EXPECT_EQ(MdRx.fArea0, 20.0f);
  EXPECT_EQ(Take("$ Rx.AreaZ= -5"), 0);
  EXPECT_EQ(MdRx.fArea(3), 1.0E-6f);
  EXPECT_EQ(Told("Rx.AreaZ = -5.0000E+00 < 1.0000E-06 or > 9.9000E+09 m^2"), 1);
}

TEST_F(RxMd, ASensorIsAWordOrASerialNumber) {
  struct Case {
    std::string_view sLine;
    I4 iSensor;
    I4 iAntSN;
  };
  const Case hCase[] = {
      {"$ Rx.Sensor= dipole",    iSensorDipole,  0   },
      {"$ Rx.Sensor= dBdt coil", iSensordBdt,    0   },
      {"$ Rx.Sensor= Bfield",    iSensorB,       0   },
      {"$ Rx.Sensor= dB/dt",     iSensorB,       0   },
      {"$ Rx.Sensor= ant/4",     iSensorAntenna, 0   },
      {"$ Rx.Sensor= TxRef",     iSensorTxRef,   0   },
      {"$ Rx.Sensor= 1234",      iSensorAntenna, 1234},
      {"$ Rx.Sensor= loop",      iSensordBdt,    1234},
  };
  for (const Case& h : hCase) {
    EXPECT_EQ(Take(h.sLine), 0) << h.sLine;
    EXPECT_EQ(MdRx.iSensor, h.iSensor) << h.sLine;
    EXPECT_EQ(MdRx.iAntSN, h.iAntSN) << h.sLine;
  }
  EXPECT_EQ(MdRx.lAntSN, iPriorityData);
  EXPECT_GT(Take("$ Rx.Sensor= 12-34"), 0);
  EXPECT_EQ(MdRx.iAntSN, 1234);
  EXPECT_EQ(Told("ERROR reading integer Rx.Sensor value from 12-34"), 1);
}

TEST_F(RxMd, AVertexHoldsAPointForEachChannel) {
  EXPECT_EQ(Take("$ RX2= 1,2,3, 4,5,6, 7"), 0);
  EXPECT_EQ(MdRx.NXYZN, 2);
  EXPECT_EQ(MdRx.NXYZNChn(2), 3);
  EXPECT_EQ(MdRx.dXYZN(2).hColumn(2), (Point{
                                          {4.0, 5.0, 6.0}
  }));
  EXPECT_EQ(MdRx.dXYZN(3).hColumn(2), (Point{
                                          {7.0, 0.0, 0.0}
  }));
  EXPECT_EQ(Take("$ Rx.XYZ2= 8:9, 10"), 0);
  EXPECT_EQ(MdRx.NXYZNChn(2), 2);
  EXPECT_EQ(MdRx.dXYZN(1).hColumn(2), (Point{
                                          {8.0, 9.0, 0.0}
  }));
  EXPECT_EQ(MdRx.dXYZN(2).hColumn(2), (Point{
                                          {10.0, 0.0, 0.0}
  }));
  EXPECT_EQ(MdRx.dXYZN(16).hColumn(2), (Point{
                                           {0.0, 0.0, 0.0}
  }))
      << "the vertex of all channels is replaced";
  EXPECT_EQ(MdRx.dXYZN(16).hColumn(1), (Point{
                                           {dDummy, dDummy, 0.0}
  }));

  std::string sMany = "$ Rx.UTM4= 1";
  for (I4 I = 2; I <= 60; ++I) sMany += "," + std::to_string(I);
  EXPECT_EQ(Take(sMany), 0);
  EXPECT_EQ(MdRx.NUTMNChn(4), 16);
  EXPECT_EQ(MdRx.dUTMN(16)(3, 4), 48.0);
}

TEST_F(RxMd, AVertexWithoutAGoodIndexIsReportedAndDropped) {
  EXPECT_EQ(Take("$ Rx.XYZ5= 1,2,3"), 1);
  EXPECT_EQ(Told("Rx_MD_READ.WARNING: out-of-range index value in"), 1);
  EXPECT_EQ(Told("Index=5 <0 or >4"), 1);
  EXPECT_EQ(Take("$ Rx.PltUTM= 1,2,3"), -1);
  EXPECT_EQ(Told("Rx_MD_READ.WARNING: unable to read Rx.UTM* index value from"), 1);
  EXPECT_EQ(MdRx.NXYZN, 0);
  EXPECT_EQ(MdRx.NUTMN, 0);
}

}  // namespace
}  // namespace quillan
