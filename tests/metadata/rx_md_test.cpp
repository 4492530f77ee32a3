#include "metadata/metadata_fixture.h"

namespace quillan {
namespace {

class RxMd : public Metadata {};

TEST_F(RxMd, ALengthOutOfRangeIsNotUsed) {
  Expect({
      {"$ Rx.Length= 50", MdRx.fLength, "50 50", "", 0, iPriorityMde},
      {"", MdRx.fLength0, "50"},
      {"$ Rx.Length= 60, 0", MdRx.fLength, "60 50", "Values will not be used."},
      {"$ Rx.Length= 70, 80", MdRx.fLength, "60 80", "", 0, iPriorityMde}, // only the used length took the priority
      {"$ Rx.Length= 0", MdRx.fLength, "60 80", "Rx.Length[1] = 0.0000E+00 < 1.0000E-02 or > 9.9000E+09"},
      {"$ Rx.LengthY= 10 ft", MdRx.fLength, "60 3.048"},
  });
}

TEST_F(RxMd, AreasSkipTheirUnitAndAreNeverNearZero) {
  Expect({
      {"$ Rx.Area= 100, m^2, 1.0E-9", MdRx.fArea, "100 -1e+32 1e-06"},
      {"", MdRx.fArea0, "1e-06"},
      {"$ Rx.Area= -300", MdRx.fArea(1), "-300"}, // a coil wound the other way
      {"$ RXAREAY= 20", MdRx.fArea(2), "20"},
      {"", MdRx.fArea0, "20"},
      {"$ Rx.AreaZ= -5", MdRx.fArea(3), "1e-06", "Rx.AreaZ = -5.0000E+00 < 1.0000E-06 or > 9.9000E+09 m^2"},
  });
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
  EXPECT_EQ(Reported("ERROR reading integer Rx.Sensor value from 12-34"), 1);
}

TEST_F(RxMd, AVertexHoldsAPointForEachChannel) {
  std::string sMany = "$ Rx.UTM4= 1";
  for (I4 I = 2; I <= 60; ++I) sMany += "," + std::to_string(I);
  Expect({
      {"$ RX2= 1,2,3, 4,5,6, 7", MdRx.NXYZN, "2"},
      {"", MdRx.NXYZNChn(2), "3"},
      {"", MdRx.dXYZN(2).hColumn(2), "4 5 6"},
      {"", MdRx.dXYZN(3).hColumn(2), "7 0 0"},
      {"$ Rx.XYZ2= 8:9, 10", MdRx.NXYZNChn(2), "2"},
      {"", MdRx.dXYZN(1).hColumn(2), "8 9 0"},
      {"", MdRx.dXYZN(2).hColumn(2), "10 0 0"},
      {"", MdRx.dXYZN(16).hColumn(2), "0 0 0"}, // the vertex of all channels is replaced
      {"", MdRx.dXYZN(16).hColumn(1), "-1e+32 -1e+32 0"},
      {sMany, MdRx.NUTMNChn(4), "16"},
      {"", MdRx.dUTMN(16)(3, 4), "48"},
  });
}

TEST_F(RxMd, AVertexWithoutAGoodIndexIsReportedAndDropped) {
  Expect({
      {"$ Rx.UTM9= 1",     MdRx.NUTMN, "0", "out-of-range index value in",                                 1 },
      {"$ Rx.XYZ5= 1,2,3", MdRx.NXYZN, "0", "Rx_MD_READ.WARNING: out-of-range index value in",             1 },
      {"$ Rx.PltUTM= 1",   MdRx.NUTMN, "0", "Rx_MD_READ.WARNING: unable to read Rx.UTM* index value from", -1},
  });
  EXPECT_EQ(Reported("Index = 5 < 0 or > 4"), 1);
  EXPECT_EQ(Shown("Rx_MD_READ.WARNING"), 2) << "the second one of Rx.UTM goes to the file alone";
}

}  // namespace
}  // namespace quillan
