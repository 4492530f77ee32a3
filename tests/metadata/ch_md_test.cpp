#include <gtest/gtest.h>

#include <array>
#include <string_view>

#include "metadata/metadata_fixture.h"

namespace quillan {
namespace {

class ChMd : public Metadata {};

TEST_F(ChMd, ComponentsCountTheChannelsUnlessTheirNumberIsKnownBetter) {
  Expect({
      {"$ CHCMP= Hx, hy, Q", MdChn.sCmp(2), "hy"},
      {"", MdChn.iCmp(2), "5"},
      {"", MdChn.iCmp(3), "9"}, // no component
      {"", MdChn.NChn, "3"},
      {"$ Ch.NumOn= 17", MdChn.NChn, "16", "Ch.NumOn = 17 < 1 or > 16", 0, iPriorityDerived},
      {"$ Ch.Cmp= Ex", MdChn.iCmp(1), "1"},
      {"", MdChn.NChn, "16"},
  });
}

TEST_F(ChMd, TheLastSensorStandsForTheChannelsAfterIt) {
  Expect({
      {"$ Ch.NumOn= 4",             MdChn.NChn,      "4"   },
      {"$ Ch.Sensor= 1234, dipole", MdChn.NChn,      "2"   },
      {"",                          MdChn.iAntSN(1), "1234"},
  });
  EXPECT_EQ(MdChn.iSensor(1), iSensorAntenna);
  EXPECT_EQ(MdChn.iSensor(4), iSensorDipole);
  EXPECT_EQ(MdChn.iSensor(5), iSensordBdt);
}

TEST_F(ChMd, AScaleOfAnAntennaWarnsForThePreamplifierToo) {
  Expect({
      {"$ Ch.AntScale= 5, 1.0E10", MdChn.fAntScale(2), "9.9e+09",
       "Ch.AntScale[2] = 1.0000E+10 < -9.9000E+09 or > 9.9000E+09 uT/V"},
      {"$ Ch.AntScale= 5, 2.0E10", MdChn.fAntScale(2), "9.9e+09",
       "Ch.AntScale[2] = 2.0000E+10 < -9.9000E+09 or > 9.9000E+09 uT/V"}
  });
  EXPECT_EQ(MdChn.NChn, 2);
  Ch_MD_Initialize(MdChn, false);
  EXPECT_EQ(MdChn.NErrAntScale, 2);
  EXPECT_EQ(MdChn.NErrPreAmp, 2);
  EXPECT_EQ(MdChn.fAntScale(1), 1.0f);
}

TEST_F(ChMd, GainCodesBecomeFactors) {
  struct Case {
    std::string_view sCode;
    R4 fGain;
    Array1<I4, 3> iGN;
    I4 iAttn;
    I4 IOERR;
  };
  const Case hCase[] = {
      {"12",   8.0f,      {{2, 3, 0}}, 0, 0},
      {"3A-1", 0.5f,      {{4, 8, 0}}, 2, 0},
      {"3A-0", 1.0f,      {{4, 8, 0}}, 0, 0},
      {"3A-",  1.0f,      {{4, 8, 0}}, 0, 0},
      {" 666", 262144.0f, {{7, 7, 7}}, 0, 0},
      {"1116", 8.0f,      {{2, 2, 2}}, 0, 0}, // a fourth stage does not count
      {"000o", 1.0f,      {{1, 1, 1}}, 0, 0},
      {"a-a",  1.0f,      {{8, 0, 0}}, 8, 0},
      {"9x1",  2.0f,      {{0, 0, 2}}, 0, 0},
      {"-2",   0.25f,     {{0, 0, 0}}, 3, 0},
      {"",     1.0f,      {{0, 0, 0}}, 0, 1},
      {"1*",   1.0f,      {{0, 0, 0}}, 0, 1},
  };
  for (const Case& h : hCase) {
    const ChnGain hGain = Str_to_fChnGain(h.sCode);
    EXPECT_EQ(hGain.fGain, h.fGain) << h.sCode;
    EXPECT_EQ(hGain.iGN, h.iGN) << h.sCode;
    EXPECT_EQ(hGain.iAttn, h.iAttn) << h.sCode;
    EXPECT_EQ(hGain.IOERR, h.IOERR) << h.sCode;
  }
}

TEST_F(ChMd, AGainRecordGuardsTheFactorAndClampsIt) {
  Expect({
      {"$ CHGAIN= 12, AAA", MdChn.fGain(1), "8"},
      {"", MdChn.sGain(1), "12"},
      {"", MdChn.iGN.hColumn(1), "2 3 0"},
      {"$ CHGAIN= 12, AAA", MdChn.fGain(2), "0.01", "Ch.Gain[2] will be set = 1.0000E-02"},
      {"$ Ch.GainFactor= 77", MdChn.fGain(1), "8", "", 0, iPriorityMde},
      {"$ CHGAIN= 1, *, 2", MdChn.fGain(2), "1", "", 1},
      {"", MdChn.fGain(3), "4"},
  });
}

TEST_F(ChMd, StatusNumbersAreUnpackedChannelByChannel) {
  struct Case {
    std::string_view sText;
    std::array<I4, 8> iField;  // the status last
  };
  const Case hCase[] = {
      {"4096",  {0, 0, 0, 0, 0, 0, 1, 0}},
      {"32767", {3, 7, 1, 3, 7, 1, 7, 0}},
      {"2662",  {2, 1, 1, 1, 2, 1, 0, 0}},
      {" ",     {0, 0, 0, 0, 0, 0, 0, 1}},
      {"12.5",  {0, 0, 0, 0, 0, 0, 0, 1}},
  };
  for (const Case& hWant : hCase) {
    const ChnStatus h = Str_to_iChnStatus(hWant.sText);
    const std::array<I4, 8> iField{h.iCard, h.iRes, h.iAttn, h.iSat, h.iNotch, h.iDSF, h.iFlag, h.IOERR};
    EXPECT_EQ(iField, hWant.iField) << hWant.sText;
  }
  Expect({
      {"$ CHSTATUS= 2662, bad, 2", MdChn.iRes(1), "1", "Ch_MD_READ.Error while reading Ch.Status[2]", 1},
      {"", MdChn.iRes(2), "24"}, // as it was
      {"", MdChn.iCard(3), "2"},
      {"", MdChn.sStatus(1), "2662"},
  });
}

}  // namespace
}  // namespace quillan
