#include <gtest/gtest.h>

#include <string_view>

#include "metadata/metadata_fixture.h"

namespace quillan {
namespace {

class KvrMd : public Metadata {};

TEST_F(KvrMd, EveryKeywordFillsItsOwnValue) {
  const std::string_view sLine[] = {
      "$ Kvr.File= raw01.tdx",   "$ Kvr.ProgVer= 3.1", "$ Kvr.SN= 117",         "$ Kvr.FPSN= 12",
      "$ Kvr.Oper= Ada",         "$ TCARDSN= 7F",      "$ Kvr.Sync= GPS",       "$ Kvr.Date= 2004-08-05",
      "$ Kvr.GainMethod= Auto",  "$ Kvr.Type= kvrb",   "$ Kvr.SigSource= ISys", "$ Kvr.AcqMethod= Stack",
      "$ Kvr.GainMode= Quiet",   "$ Kvr.CalVolts= 2",  "$ Kvr.Amp= 1.5",        "$ Kvr.Temp= -5",
      "$ Kvr.Humid= 40",         "$ Kvr.Setup= 12",    "$ Kvr.Blk= 4, 7, 9",    "$ Kvr.Ch= 1, 2, 3",
      "$ Kvr.Number= 5, 6",      "$ Kvr.ADCardVer= A", "$ Kvr.ADCardFeat= F",   "$ Kvr.CardType= T, U, V",
      "$ Kvr.ADCardSND= 11, 12", "$ Kvr.NumCard= 4",
  };
  for (const std::string_view s : sLine) EXPECT_EQ(Take(s), 0) << s;
  EXPECT_EQ(MdKvr.sFile, "raw01.tdx");
  EXPECT_EQ(MdKvr.sSWVersion, "3.1");
  EXPECT_EQ(MdKvr.sSN, "117");
  EXPECT_EQ(MdKvr.sFPSN, "12");
  EXPECT_EQ(MdKvr.sOperator, "Ada");
  EXPECT_EQ(MdKvr.sTCardSN, "7F");
  EXPECT_EQ(MdKvr.sSync, "GPS");
  EXPECT_EQ(MdKvr.sDate, "2004-08-05");
  EXPECT_EQ(MdKvr.sGainMethod, "Auto");
  EXPECT_EQ(MdKvr.iType, 2);
  EXPECT_EQ(MdKvr.iSignalSource, 2);
  EXPECT_EQ(MdKvr.iAcqMethod, 2);
  EXPECT_EQ(MdKvr.iGainMode, 2);
  EXPECT_EQ(MdKvr.fCalVolt, 2.0f);
  EXPECT_EQ(MdKvr.fAmp, 1.5f);
  EXPECT_EQ(MdKvr.fTemp, -5.0f);
  EXPECT_EQ(MdKvr.fHumid, 40.0f);
  EXPECT_EQ(MdKvr.iSetup, 12);
  EXPECT_EQ(MdKvr.dBlk(1), 4.0);
  EXPECT_EQ(MdKvr.dBlk(2), 7.0);
  EXPECT_EQ(MdKvr.iChn(3), 3);
  EXPECT_EQ(MdKvr.iBox(2), 6);
  EXPECT_EQ(MdKvr.sADCardVR(1), "A");
  EXPECT_EQ(MdKvr.sADCardFE(1), "F");
  EXPECT_EQ(MdKvr.sCardType(3), "V");
  EXPECT_EQ(MdKvr.iADCardSN(2), 12);
  EXPECT_EQ(MdKvr.NCard, 4);
}

TEST_F(KvrMd, TheLastRecordOfCardsTellsTheirNumber) {
  EXPECT_EQ(Take("$ ADCARDSN= 0A01, 0A02, 0A03"), 0);
  EXPECT_EQ(MdKvr.NCard, 3);
  EXPECT_EQ(MdKvr.sADCardSN(3), "0A03");
  EXPECT_EQ(Take("$ Kvr.ADCardVer= 2, 2"), 0);
  EXPECT_EQ(MdKvr.NCard, 2);
  EXPECT_EQ(MdKvr.sADCardSN(3), "0A03") << "fewer fields leave the other cards as they were";
  EXPECT_EQ(Take("$ Kvr.Blk= 8"), 0);
  EXPECT_EQ(MdKvr.NCard, 2) << "blocks are no cards";
  EXPECT_EQ(Take("$ Kvr.CardType= 1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17"), 0);
  EXPECT_EQ(MdKvr.NCard, 16);
}

TEST_F(KvrMd, AStarAmongTheCardsStoresTheDefault) {
  EXPECT_EQ(Take("$ Kvr.Number= 5, 6, 7"), 0);
  EXPECT_EQ(Take("$ Kvr.Number= 8, *, 9"), -1);
  EXPECT_EQ(MdKvr.iBox(1), 8);
  EXPECT_EQ(MdKvr.iBox(2), 0);
  EXPECT_EQ(MdKvr.iBox(3), 9);
}

TEST_F(KvrMd, LimitsAreWarnedAboutInTheWordsOfTheirRow) {
  struct Case {
    std::string_view sLine;
    std::string_view sWarning;
    R4 KvrGroup::*fValue;
    R4 fExpected;
  };
  const Case hCase[] = {
      {"$ Kvr.Bat= 0",       "Kvr.Bat = 0.0000E+00 <= 0 or > 2.0000E+01 volts",            &KvrGroup::fBat,     0.0f   },
      {"$ Kvr.CalVolts= 21", "Kvr.CalVolts = 2.1000E+01 < 0 or > 2.0000E+01 volts",        &KvrGroup::fCalVolt, 20.0f  },
      {"$ Kvr.Amp= -1",      "Kvr.Amp = -1.0000E+00 < 0 or > 1.0000E+02 amp",              &KvrGroup::fAmp,     0.0f   },
      {"$ Kvr.Temp= -300",   "Kvr.Temp = -3.0000E+02 < -1.0000E+02 or > 1.0000E+02 deg C", &KvrGroup::fTemp,    -100.0f},
      {"$ Kvr.Humid= 101",   "Kvr.Humid = 1.0100E+02 < 0.0000E+00 or > 1.0000E+02 %",      &KvrGroup::fHumid,   100.0f },
  };
  for (const Case& h : hCase) {
    EXPECT_EQ(Take(h.sLine), 0) << h.sLine;
    EXPECT_EQ(Told(h.sWarning), 1) << h.sWarning;
    EXPECT_EQ(MdKvr.*h.fValue, h.fExpected) << h.sLine;
  }
  EXPECT_EQ(Take("$ Kvr.NumCard= 17"), 0);
  EXPECT_EQ(MdKvr.NCard, 16);
  EXPECT_EQ(Take("$ Kvr.Blk= 0, 3"), 0);
  EXPECT_EQ(Told("KVR.Blk[1] = 0.0000E+00 <= 0 or >"), 1);
  EXPECT_EQ(MdKvr.dBlk(2), 3.0);
}

TEST_F(KvrMd, ATimeIsKeptAsTextAndAsHours) {
  EXPECT_EQ(Take("$ Kvr.Time= 13:30:00"), 0);
  EXPECT_EQ(MdKvr.sTime, "13:30:00");
  EXPECT_EQ(MdKvr.dHour, 13.5);
  EXPECT_EQ(Take("$ Kvr.Time= 12:00:00", iPriorityMde), 0);
  EXPECT_EQ(MdKvr.sTime, "13:30:00");
  EXPECT_EQ(MdKvr.dHour, 13.5);
  EXPECT_GT(Take("$ Kvr.Time= noon"), 0);
  EXPECT_EQ(Told("ERROR reading hh:mm:ss Gps.Time value from \"noon\""), 1);
  EXPECT_EQ(MdKvr.dHour, 0.0);
}

}  // namespace
}  // namespace quillan
