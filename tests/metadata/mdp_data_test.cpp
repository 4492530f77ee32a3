#include "metadata/mdp_data.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "metadata/metadata_fixture.h"

namespace quillan {
namespace {

class MdpData : public Metadata {};

TEST_F(MdpData, ALineIsSplitAtItsSignsAndOnlyOurOwnIsRead) {
  struct Case {
    std::string_view sLine;
    I4 IOERR;
    bool bForeign;
    R8 dNumber;  // of the line, 7 where nothing was read
  };
  const Case hCase[] = {
      {"$ Line.Number= 1200",           0,                 false, 1200},
      {"$Line.Number=1200",             0,                 false, 1200},
      {"  $   LINE.number =   1200  ",  0,                 false, 1200},
      {"TEM $ Line.Number= 1200",       0,                 false, 1200},
      {"$ Line.Number= 1200 m, 7 : x",  0,                 false, 1200},
      {"Line.Number= 1200",             iMdpNoRecord,      false, 7   },
      {"$ Line.Number 1200",            iMdpNoRecord,      false, 7   },
      {"= $ Line.Number 1200",          iMdpNoRecord,      false, 7   },
      {"$ Line.Number=",                iMdpNoRecord,      false, 7   },
      {"$ Line.Number= *",              iMdpNoRecord,      false, 7   },
      {"$ Line.Number= *,*;:*",         iMdpNoRecord,      false, 7   },
      {"$ Dorval: Line.Number= 1200",   iMdpForeign,       true,  7   },
      {"$ : Line.Number= 1200",         iMdpForeign,       true,  7   },
      {": $ Line.Number= 1200",         iMdpForeign,       true,  7   },
      {"$ Quillan2: Line.Number= 1200", iMdpForeign,       true,  7   },
      {"$ Quillan: Line.Number= 1200",  0,                 true,  7   }, // a group of this name that is not there
      {"$ Nobody.Number= 1200",         0,                 true,  7   },
      {"$ Number= 1200",                0,                 true,  7   },
      {"$ .Number= 1200",               0,                 true,  7   },
      {"$ Line.Numbers= 1200",          iMdUnknownKeyword, true,  7   },
      {"$ Header.Type= Data",           0,                 false, 7   },
      {"$ Survey.Direction= N",         0,                 false, 7   },
      {"$ Line.= 1200",                 1,                 false, 7   },
      {"$ = 1200",                      1,                 false, 7   },
      {"$ Line.Number= x",              1,                 false, 0   },
  };
  for (const Case& h : hCase) {
    MdLine.dNumber = 7.0;
    EXPECT_EQ(Take(h.sLine), h.IOERR) << h.sLine;
    EXPECT_EQ(bForeign, h.bForeign) << h.sLine;
    EXPECT_EQ(MdLine.dNumber, h.dNumber) << h.sLine;
  }
}

TEST_F(MdpData, AnOlderNameIsTranslatedOnce) {
  Expect({
      {"$ fline= 1200",  MdLine.dNumber,  "1200"},
      {"$ LBLFRST= 30",  MdStn.dStnBeg,   "30"  },
      {"$ BRGLINE= 45",  MdLine.fAzimuth, "45"  },
      {"$ XMTR= 12",     MdTx.dKvrStn,    "12"  },
      {"$ TS.NCYCLE= 8", MdTx.NCycle,     "8"   },
      {"$ NCYCLE= 9",    MdTx.NCycle,     "8"   },
  });
  EXPECT_TRUE(bForeign) << "NCYCLE stops at the group TS, which nobody reads";
}

TEST_F(MdpData, AWithdrawnNameIsReportedAndNotRead) {
  const R8 dStnKvrEnd = MdStn.dStnKvrEnd;
  EXPECT_EQ(Take("$ Stn.KvrEnd= 10"), 1);
  EXPECT_FALSE(bForeign);
  EXPECT_EQ(MdStn.dStnKvrEnd, dStnKvrEnd);
  EXPECT_EQ(Shown("MDP_Read_Value.WARNING: No keyword name in Stn.KvrEnd from line"), 1);
  EXPECT_EQ(Shown("$ Stn.KvrEnd= 10"), 1);
}

TEST_F(MdpData, InitialisationForgetsTheRecordsAndKeepsJobNumberAndDate) {
  for (const std::string_view sLine : {"$ Job.Name= a", "$ Job.Number= 77", "$ Job.Date= 2018-03-07",
                                       "$ Line.Azimuth= 999", "$ Tx.Freq= 8", "$ Kvr.Nonsense= 1"}) {
    Take(sLine);
  }
  MDP_Initialize_MD(false);
  EXPECT_TRUE(MdJob.sName.Is_Blank());
  EXPECT_EQ(MdJob.sNumber, "77");
  EXPECT_EQ(MdJob.sDate, "2018-03-07");
  EXPECT_EQ(MdJob.lNumber, 0);
  EXPECT_EQ(MdLine.fAzimuth, 90.0f);
  EXPECT_EQ(MdTx.fFreq, 1.0f);
  EXPECT_EQ(MdTx.lFreq, 0);
  EXPECT_EQ(MdLine.NErrAzimuth, 1);
  EXPECT_EQ(MdKvr.NErrUnknown, 1);
  MDP_Initialize_MD(true);
  EXPECT_EQ(MdLine.NErrAzimuth, 0);
  EXPECT_EQ(MdKvr.NErrUnknown, 0);
}

TEST_F(MdpData, NoLineHarms) {
  const std::string sMuch(10'000'000, 'x');
  const std::string sNul("$ Line.Name= a\0b", 16);
  EXPECT_EQ(Take(sMuch), iMdpNoRecord);
  EXPECT_EQ(Take("$" + sMuch + "=1"), 0);
  EXPECT_TRUE(bForeign);
  EXPECT_EQ(Take("$ " + sMuch + ": Line.Number= 1"), iMdpForeign);
  EXPECT_EQ(Take("$ Line.Name= " + sMuch), 0);
  EXPECT_EQ(MdLine.sName, "xxxxxxxxxxxxxxxx");
  EXPECT_EQ(Take("$ Line.Spread= \"" + sMuch), 0) << "a quote that never closes loses its field";
  EXPECT_EQ(Take(sNul), 0);
  EXPECT_EQ(Take("$ Job.Name= " + std::string(300, ',') + "x"), 0);
  EXPECT_EQ(Take("$ Line.Number= 1e999"), 1);
  EXPECT_EQ(Take("$ \xff\xfe.\x01= \x80"), 0);
  EXPECT_EQ(MDP_Read_Value(1, sMuch, sMuch, sMuch, 1).IOERR, 0);
  EXPECT_EQ(MDP_Read_Value(1, {}, {}, {}, 1).IOERR, 0);
}

}  // namespace
}  // namespace quillan
