#include <gtest/gtest.h>

#include <array>
#include <string_view>

#include "metadata/metadata_fixture.h"

namespace quillan {
namespace {

class ChMd : public Metadata {};

TEST_F(ChMd, EveryKeywordFillsItsOwnChannels) {
  struct Case {
    std::string_view sLine;
    ChnR4 ChGroup::*fValue;
    R4 fSecond;
    I4 NChn;  // after the record, which had two channels; 9 where it tells no count
  };
  const Case hCase[] = {
      {"$ Ch.Area= 5, 10000",     &ChGroup::fArea,      10000.0f,  2},
      {"$ LAB.LENGTH= 5, 6",      &ChGroup::fLabLength, 6.0f,      2},
      {"$ Ch.LabArea= 5, 7",      &ChGroup::fLabArea,   7.0f,      2},
      {"$ Ch.Azimuth= 5, 400",    &ChGroup::fAzm,       360.0f,    2},
      {"$ Ch.Incl= 5, -90",       &ChGroup::fInc,       -90.0f,    2},
      {"$ Ch.Length= 5, 100 ft",  &ChGroup::fLength,    100.0f,    2},
      {"$ Ch.AntScale= 5, -2",    &ChGroup::fAntScale,  -2.0f,     2},
      {"$ CHFACTOR= 5, 0.1",      &ChGroup::fFactor,    0.1f,      9},
      {"$ Ch.Vmin= 5, -3",        &ChGroup::fVmin,      -3.0f,     9},
      {"$ Ch.Vmax= 5, 20000",     &ChGroup::fVmax,      10000.0f,  9},
      {"$ Ch.PreAmp= 5, 0.001",   &ChGroup::fPreAmp,    0.001f,    9},
      {"$ Ch.PreAmp= 5, 1.0E-10", &ChGroup::fPreAmp,    0.01f,     9},
      {"$ Ch.GainFactor= 5, 0",   &ChGroup::fGain,      0.01f,     9},
      {"$ Ch.ExtGain= 5, 10",     &ChGroup::fExtGain,   10.0f,     9},
      {"$ CHSP= 5, -25000",       &ChGroup::fSP,        -20000.0f, 9},
      {"$ CH.RES= 5, 250",        &ChGroup::fCRes,      250.0f,    9},
      {"$ Ch.CCap= 1, 2",         &ChGroup::fCCap,      1.0f,      9},
  };
  for (const Case& h : hCase) {
    MdChn.NChn = 9;
    EXPECT_EQ(Take(h.sLine), 0) << h.sLine;
    EXPECT_EQ((MdChn.*h.fValue)(2), h.fSecond) << h.sLine;
    EXPECT_EQ((MdChn.*h.fValue)(3), (ChGroup{}.*h.fValue)(3)) << h.sLine << ": no field";
    EXPECT_EQ(MdChn.NChn, h.NChn) << h.sLine;
  }
  EXPECT_EQ(Told("Ch.PreAmp[2] = 1.0000E-10 < 1.0000E-02 or > 9.9000E+09"), 1);
  EXPECT_EQ(Told("Ch.CCap[2] = 2.0000E+00 < 0.0000E+00 or > 1.0000E+00 farads"), 1);
}

TEST_F(ChMd, TextsNumbersAndFlagsFillTheirChannels) {
  const std::string_view sLine[] = {
      "$ Ch.NumberType= Antenna #, stn # offset",
      "$ Ch.Number= 11, 12",
      "$ Ch.Stn= 100, 150",
      "$ Ch.StnName= A, B",
      "$ LAB.ID= 3, 4",
      "$ Ch.LabName= La, Lb",
      "$ CH.COIL= 21, 22",
      "$ Ch.Lat= 1, 91",
      "$ Ch.Lon= 1, -121",
      "$ Ch.Unit= uV, mV",
      "$ Ch.Notch= 60, 50",
      "$ Ch.HighPass= h1, h2",
      "$ Ch.LowPass= l1, l2",
      "$ Ch.Alias= 24BIT, 16BIT-LONG",
      "$ Ch.Skip= no, yes",
      "$ Ch.Flip= 1, 0",
      "$ Ch.KvrBox= 1, 2",
      "$ Ch.KvrSlot= 5, 6",
      "$ Ch.ADCardSN= c1, c2",
      "$ Ch.Tx2= 1, 2, 3, 4",
      "$ Ch.Rx2= 1,2,3, 4,5",
  };
  for (const std::string_view s : sLine) EXPECT_EQ(Take(s), 0) << s;
  EXPECT_EQ(MdChn.iNumberType, (Array1<I4, 2>{
                                   {3, 2}
  }));
  EXPECT_EQ(MdChn.dNumber(2), 12.0);
  EXPECT_EQ(MdChn.dStn(2), 150.0);
  EXPECT_EQ(MdChn.sStnName(2), "B");
  EXPECT_EQ(MdChn.iLabID(2), 4);
  EXPECT_EQ(MdChn.sLabName(2), "Lb");
  EXPECT_EQ(MdChn.iAntSN(2), 22);
  EXPECT_EQ(MdChn.dLat(2), 90.0);
  EXPECT_EQ(MdChn.dLon(2), -121.0);
  EXPECT_EQ(MdChn.sUnit(2), "mV");
  EXPECT_EQ(MdChn.sNotch(2), "50");
  EXPECT_EQ(MdChn.sHighPass(2), "h2");
  EXPECT_EQ(MdChn.sLowPass(2), "l2");
  EXPECT_EQ(MdChn.sAlias(2), "16BIT-LO");
  EXPECT_TRUE(!MdChn.bSkip(1) && MdChn.bSkip(2));
  EXPECT_TRUE(MdChn.bFlip(1) && !MdChn.bFlip(2));
  EXPECT_EQ(MdChn.iKvrBox(2), 2);
  EXPECT_EQ(MdChn.iKvrSlot(2), 6);
  EXPECT_EQ(MdChn.sADCardSN(2), "c2");
  EXPECT_EQ(MdChn.dTxXYZ.hColumn(2), (Array1<R8, 3>{
                                         {1.0, 2.0, 3.0}
  }));
  EXPECT_EQ(MdChn.dTxXYZ(1, 1), 0.0);
  EXPECT_EQ(MdChn.dRxXYZ(2).hColumn(2), (Array1<R8, 3>{
                                            {4.0, 5.0, dDummy}
  }));
}

TEST_F(ChMd, ComponentsCountTheChannelsUnlessTheirNumberIsKnownBetter) {
  EXPECT_EQ(Take("$ CHCMP= Hx, hy, Q"), 0);
  EXPECT_EQ(MdChn.iCmp(2), 5);
  EXPECT_EQ(MdChn.sCmp(2), "hy");
  EXPECT_EQ(MdChn.iCmp(3), iCmpNone);
  EXPECT_EQ(MdChn.NChn, 3);
  EXPECT_EQ(Take("$ Ch.NumOn= 17", iPriorityDerived), 0);
  EXPECT_EQ(MdChn.NChn, 16);
  EXPECT_EQ(Told("Ch.NumOn = 17 <1 or >16"), 1);
  EXPECT_EQ(Take("$ Ch.Cmp= Ex"), 0);
  EXPECT_EQ(MdChn.iCmp(1), 1);
  EXPECT_EQ(MdChn.NChn, 16);
}

TEST_F(ChMd, TheLastSensorStandsForTheChannelsBehindIt) {
  EXPECT_EQ(Take("$ Ch.NumOn= 4"), 0);
  EXPECT_EQ(Take("$ Ch.Sensor= 1234, dipole"), 0);
  EXPECT_EQ(MdChn.iSensor(1), iSensorAntenna);
  EXPECT_EQ(MdChn.iAntSN(1), 1234);
  EXPECT_EQ(MdChn.iSensor(4), iSensorDipole);
  EXPECT_EQ(MdChn.iSensor(5), iSensordBdt);
  EXPECT_EQ(MdChn.NChn, 2);
}

TEST_F(ChMd, AScaleOfAnAntennaWarnsForThePreamplifierToo) {
  EXPECT_EQ(Take("$ Ch.AntScale= 1.0E10"), 0);
  EXPECT_EQ(Told("Ch.AntScale[1] = 1.0000E+10 < -9.9000E+09 or > 9.9000E+09 uT/V"), 1);
  EXPECT_EQ(MdChn.NErrAntScale, 1);
  EXPECT_EQ(MdChn.NErrPreAmp, 1);
  Ch_MD_Initialize(MdChn, false);
  EXPECT_EQ(MdChn.NErrPreAmp, 1);
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
  EXPECT_EQ(Take("$ CHGAIN= 12, AAA"), 0);
  EXPECT_EQ(MdChn.sGain(1), "12");
  EXPECT_EQ(MdChn.fGain(1), 8.0f);
  EXPECT_EQ(MdChn.iGN.hColumn(1), (Array1<I4, 3>{
                                      {2, 3, 0}
  }));
  EXPECT_EQ(MdChn.fGain(2), 0.01f);
  EXPECT_EQ(Told("Ch.Gain[2] will be set = 1.0000E-02"), 1);
  EXPECT_EQ(Take("$ Ch.GainFactor= 77", iPriorityMde), 0);
  EXPECT_EQ(MdChn.fGain(1), 8.0f);
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

  EXPECT_GT(Take("$ CHSTATUS= 2662, bad, 2"), 0);
  EXPECT_EQ(MdChn.iRes(1), 1);
  EXPECT_EQ(MdChn.iRes(2), 24);
  EXPECT_EQ(MdChn.iCard(3), 2);
  EXPECT_EQ(MdChn.sStatus(1), "2662");
  EXPECT_EQ(Told("Ch_MD_READ.Error while reading Ch.Status[2]"), 1);
}

}  // namespace
}  // namespace quillan
