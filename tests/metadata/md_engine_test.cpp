#include "metadata/md_engine.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "metadata/enm_data.h"
#include "metadata/metadata_fixture.h"

namespace quillan {
namespace {

struct ProbeWarnings {
  I4 NErrVolt = 0, NErrInc = 0, NErrTurn = 0, NErrZone = 0, NErrCmp = 0, NErrHPR = 0, NErrLength = 0, NErrOwn = 0,
     NErrUnknown = 0;
};

/// A group with one keyword of each kind.
struct ProbeGroup : ProbeWarnings {
  R4 fVolt = 7.0f, fInc = 7.0f, fSense = 7.0f, fWide = 7.0f;
  I4 NTurn = 7, iZone = 7, iSetup = 7;
  R8 dHour = 7.0;
  Text<4> sShort = "x";
  I4 iCmp = 7;
  Array1<R4, 3> fHPR{
      {1.0f, 2.0f, 3.0f}
  };
  Array1<R4, 2> fLength{
      {1.0f, 2.0f}
  };
  Array1<Text<16>, 16> sCard;
  Array1<L4, 16> bSkip{};
  I4 NCard = 0;

  I4 lVolt = 0, lTurn = 0, lText = 0, lCmp = 0, lHPR = 0, lCard = 0, lSkip = 0, lOther = 0;
  Array1<I4, 2> lLength{};
};

I4 Read_Own(const MdRecord&, ProbeGroup& hProbe) {
  ++hProbe.NErrOwn;
  return 0;
}

using P = ProbeGroup;
// clang-format off
constexpr MdRow<P> hProbeRow[] = {
    {"*OWN",    Read_Own},
    {"VOLT",    MD_Into<&P::fVolt,   &P::lVolt, &P::NErrVolt>, 1.0, {0, 20, "{name} = {value} <= 0 or >{high} volts", MdTest::AboveLow}},
    {"INC",     MD_Into<&P::fInc,    &P::lOther, &P::NErrInc>, 1.0, {1.0E-6, 9.9E9, "Abs|{name}| = {value} < {low} or > {high}", MdTest::Magnitude}},
    {"SENSE",   MD_Into<&P::fSense,  &P::lOther>, 1.0, {.dLow = 1.0E-6, .dHigh = 1.0E12, .dTestHigh = 1.0E6}},
    {"WIDE",    MD_Into<&P::fWide,   &P::lOther>, 1.0, {-9.9E9, 9.9E9}},
    {"TURNS",   MD_Into<&P::NTurn,   &P::lTurn, &P::NErrTurn>, 1,   {1, 1000}},
    {"ZONE",    MD_Into<&P::iZone,   &P::lOther, &P::NErrZone>, 0,  {1, 60, "{name} = abs|{value}| < 1 or > 60", MdTest::Magnitude, MdRepair::Reset, "{reader}.WARNING: at record {record}"}},
    {"SETUP",   MD_Into<&P::iSetup,  &P::lOther>, -5},
    {"TIME",    MD_Into<&P::dHour,   &P::lOther>, 0.0, {}, {.sLabel = "Gps.Time", .iParse = MdParse::Time}},
    {"TEXT",    MD_Into<&P::sShort,  &P::lText>},
    {"CMP",     MD_Into<&P::iCmp,    &P::lCmp,  &P::NErrCmp>,  CChnCmp, "Probe.Cmp"},
    {"HPR",     MD_Into<&P::fHPR,    &P::lHPR,  &P::NErrHPR>,  90.0, {-360, 360}, {.sLabel = "Probe.HPR", .iParse = MdParse::Azimuth}},
    {"LENGTH",  MD_Into<&P::fLength, &P::lLength, &P::NErrLength>, 1.0, {0.01, 9.9E9}, {.sLabel = "Probe.Length", .iParse = MdParse::Meters}},
    {"LENGTHY", MD_Into<&P::fLength, &P::lLength, &P::NErrLength>, 1.0, {0.01, 9.9E9}, {.iParse = MdParse::Meters, .iElement = 2}},
    {"CARD",    MD_Into<&P::sCard,   &P::lCard>, {.NSet = &P::NCard}},
    {"SKIP",    MD_Into<&P::bSkip,   &P::lSkip>, false, {}, {.sLabel = "Probe.Skip"}},
    {"OLD"},
};
// clang-format on

class MdEngine : public Metadata {
 protected:
  /// One record "Probe.<keyword>= <value>" of record number 12.
  I4 Read(std::string_view CKeyword, std::string_view sValue, I4 iPriority = iPriorityData) {
    FieldList hField(MMdField, 128);
    Str_to_Fld(sValue, ",;", hField);
    const std::string sName = "Probe." + std::string(CKeyword);
    const std::string sLine = "$ " + sName + "= " + std::string(sValue);
    const MdRecord hRecord{12, sLine, sName, CKeyword, hField, iPriority};
    return MD_Read("Probe_MD_Read", hProbeRow, hRecord, hProbe);
  }

  ProbeGroup hProbe;
};

TEST_F(MdEngine, ValuesOutsideTheirLimitsAreRepairedAndToldInTheWordsOfTheRow) {
  struct Case {
    std::string_view CKeyword, sValue;
    R8 dValue;
    std::string_view sTold;  // blank: accepted
    std::string_view sDone;
  };
  const Case hCase[] = {
      {"VOLT",  "12.5",    12.5,    "",                                                          ""                                   },
      {"VOLT",  "0",       0,       "Probe.VOLT = 0.0000E+00 <= 0 or >2.0000E+01 volts",         "Probe.VOLT will be set = 0.0000E+00"},
      {"VOLT",  "20.0001", 20,      "Probe.VOLT = 2.0000E+01 <= 0 or >2.0000E+01 volts",
       "Probe.VOLT will be set = 2.0000E+01"                                                                                          },
      {"INC",   "-50",     -50,     "",                                                          ""                                   },
      {"INC",   "1.0E-6",  1.0E-6,  "",                                                          ""                                   },
      {"INC",   "-1.0E-9", -1.0E-6, "Abs|Probe.INC| = -1.0000E-09 < 1.0000E-06 or > 9.9000E+09",
       "Probe.INC will be set = -1.0000E-06"                                                                                          },
      {"SENSE", "1.0E7",   1.0E7,   "Probe.SENSE = 1.0000E+07 < 1.0000E-06 or > 1.0000E+12",
       "Probe.SENSE will be set = 1.0000E+07"                                                                                         },
      {"WIDE",  "-1E20",   -9.9E9,  "Probe.WIDE = -1.0000E+20 < -9.9000E+09 or > 9.9000E+09",
       "Probe.WIDE will be set = -9.9000E+09"                                                                                         },
      {"TURNS", "0",       1,       "Probe.TURNS = 0 < 1 or > 1000",                             "Probe.TURNS will be set = 1"        },
      {"TURNS", "1000",    1000,    "",                                                          ""                                   },
      {"ZONE",  "-13",     -13,     "",                                                          ""                                   },
      {"ZONE",  "-61",     0,       "Probe.ZONE = abs|-61| < 1 or > 60",                         "Probe.ZONE will be set = 0"         },
      {"SETUP", "-99999",  -99999,  "",                                                          ""                                   },
  };
  for (const Case& h : hCase) {
    hProbe = ProbeGroup{};
    EXPECT_EQ(Log_Initialize("quillan"), 0);
    const std::string sCase = std::string(h.CKeyword) + " " + std::string(h.sValue);
    EXPECT_EQ(Read(h.CKeyword, h.sValue), 0) << sCase;
    const R8 dRead = h.CKeyword == "VOLT"    ? R8{hProbe.fVolt}
                     : h.CKeyword == "INC"   ? R8{hProbe.fInc}
                     : h.CKeyword == "SENSE" ? R8{hProbe.fSense}
                     : h.CKeyword == "WIDE"  ? R8{hProbe.fWide}
                     : h.CKeyword == "TURNS" ? hProbe.NTurn
                     : h.CKeyword == "ZONE"  ? hProbe.iZone
                                             : hProbe.iSetup;
    EXPECT_FLOAT_EQ(static_cast<R4>(dRead), static_cast<R4>(h.dValue)) << sCase;
    EXPECT_EQ(Told("Probe_MD_Read.WARNING:"), h.sTold.empty() ? 0 : 1) << sCase;
    if (!h.sTold.empty()) {
      EXPECT_EQ(Told(h.sTold), 1) << sCase;
      EXPECT_EQ(Told(h.sDone), 1) << sCase;
    }
  }
}

TEST_F(MdEngine, ARowMayNameTheRecordInTheHeadOfItsWarning) {
  Read("ZONE", "99");
  EXPECT_EQ(Told("Probe_MD_Read.WARNING: at record 12"), 1);
}

TEST_F(MdEngine, OnlyTheFirstWarningOfAKeywordAndThreeUnknownKeywordsShow) {
  for (I4 I = 1; I <= 30; ++I) {
    EXPECT_EQ(Read("TURNS", "0"), 0);
    EXPECT_EQ(Read("NONSENSE", "1"), iMdUnknownKeyword);
  }
  EXPECT_EQ(hProbe.NErrTurn, 30);
  EXPECT_EQ(hProbe.NErrUnknown, 30);
  EXPECT_EQ(Told("Probe.TURNS will be set = 1"), 30);
  EXPECT_EQ(Shown("Probe.TURNS will be set = 1"), 1);
  EXPECT_EQ(Told("Did not recognize keyword Probe.NONSENSE in record # 12"), 30);
  EXPECT_EQ(Shown("Did not recognize keyword"), 3);
  EXPECT_EQ(Shown("$ Probe.NONSENSE= 1"), 3);
}

TEST_F(MdEngine, AHigherPriorityKeepsARecordOutInSilenceAndAnEqualOneGivesWay) {
  EXPECT_EQ(Read("TURNS", "5", iPriorityData), 0);
  EXPECT_EQ(Read("TURNS", "0", iPriorityMde), 0);
  EXPECT_EQ(hProbe.NTurn, 5);
  EXPECT_EQ(Told("WARNING"), 0);
  EXPECT_EQ(Read("TURNS", "8", iPriorityData), 0);
  EXPECT_EQ(hProbe.NTurn, 8);
  EXPECT_EQ(hProbe.lTurn, iPriorityData);
}

TEST_F(MdEngine, AFieldThatCannotBeReadGivesTheDefaultAndAStatus) {
  EXPECT_GT(Read("TURNS", "many"), 0);
  EXPECT_EQ(hProbe.NTurn, 1);
  EXPECT_EQ(Read("SETUP", "*, 4"), -1);
  EXPECT_EQ(hProbe.iSetup, -5);
  EXPECT_EQ(Read("CMP", "*, Hz"), -1);
  EXPECT_EQ(hProbe.iCmp, 7);
  EXPECT_EQ(hProbe.NErrCmp, 1);
}

TEST_F(MdEngine, TheFieldsOfARecordAreTheLeadingElementsOfAnArray) {
  EXPECT_EQ(Read("HPR", "N45E, 400"), 0);
  EXPECT_EQ(hProbe.fHPR, (Array1<R4, 3>{
                             {45.0f, 360.0f, 3.0f}
  }));
  EXPECT_EQ(Told("Probe.HPR[2] = 4.0000E+02 < -3.6000E+02 or > 3.6000E+02"), 1);
  EXPECT_EQ(Read("HPR", "1, *, 3, 4, 5"), -1);
  EXPECT_EQ(hProbe.fHPR, (Array1<R4, 3>{
                             {1.0f, 90.0f, 3.0f}
  }));

  EXPECT_EQ(Read("CARD", "0A01; 0A02, 0A03"), 0);
  EXPECT_EQ(hProbe.NCard, 3);
  EXPECT_EQ(hProbe.sCard(3), "0A03");
  EXPECT_EQ(Read("SKIP", "no, yes"), 0);
  EXPECT_FALSE(hProbe.bSkip(1));
  EXPECT_TRUE(hProbe.bSkip(2));
}

TEST_F(MdEngine, EachElementMayHaveAPriorityOfItsOwn) {
  EXPECT_EQ(Read("LENGTHY", "100 ft", iPriorityData), 0);
  EXPECT_EQ(Read("LENGTH", "10, 20", iPriorityMde), 0);
  EXPECT_FLOAT_EQ(hProbe.fLength(1), 10.0f);
  EXPECT_FLOAT_EQ(hProbe.fLength(2), 30.48f);
  EXPECT_EQ(hProbe.lLength, (Array1<I4, 2>{
                                {iPriorityMde, iPriorityData}
  }));
}

TEST_F(MdEngine, TextsAreCutTimesAreHoursAndRowsWithoutATargetAreDropped) {
  EXPECT_EQ(Read("TEXT", "\"a, b\" c, rest"), 0);
  EXPECT_EQ(hProbe.sShort, "a, b");
  EXPECT_EQ(Read("TIME", "06:30:00"), 0);
  EXPECT_EQ(hProbe.dHour, 6.5);
  EXPECT_EQ(Read("OLD", "1"), 0);
  EXPECT_EQ(Read("MYOWN3", "1"), 0);
  EXPECT_EQ(hProbe.NErrOwn, 1);
  EXPECT_EQ(Told("WARNING"), 0);
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

TEST_F(MdEngine, InitialisationKeepsTheWarningCountsOfEveryRowUnlessToldOtherwise) {
  Read("TURNS", "0");
  Read("OWN", "1");
  Read("NONSENSE", "1");
  MD_Initialize<ProbeGroup, ProbeWarnings>(hProbe, false);
  EXPECT_EQ(hProbe.NTurn, 7);
  EXPECT_EQ(hProbe.lTurn, 0);
  EXPECT_EQ(hProbe.NErrTurn, 1);
  EXPECT_EQ(hProbe.NErrOwn, 1);
  EXPECT_EQ(hProbe.NErrUnknown, 1);
  MD_Initialize<ProbeGroup, ProbeWarnings>(hProbe, true);
  EXPECT_EQ(hProbe.NErrTurn + hProbe.NErrOwn + hProbe.NErrUnknown, 0);
}

}  // namespace
}  // namespace quillan
