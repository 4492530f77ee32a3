#include "foundations/str_value.h"

#include <gtest/gtest.h>

#include <bit>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

#include "foundations/log_file.h"

namespace quillan {
namespace {

// ---- The table of tokens

/// A row of reads.txt, such as: r4 40400000 "2*3" refused: a repeat count is a missing value to us
struct ReadRow {
  std::string sKind, sResult, sText;
  bool bOnPurpose = false;  // the row ends in the reason of the refusal

  bool Is_Refused() const { return sResult == "fails" || sResult == "beyond" || bOnPurpose; }
};

bool Next_Row(std::istream& in, ReadRow& hRow) {
  std::string sRest;
  if (!(in >> hRow.sKind >> hRow.sResult) || !std::getline(in, sRest)) return false;
  const std::size_t KEnd = sRest.rfind('"');
  hRow.sText = sRest.substr(2, KEnd - 2);
  hRow.bOnPurpose = KEnd + 1 < sRest.size();
  return true;
}

template <class Integer>
std::string Written(Integer iValue) {
  return std::to_string(iValue);
}

std::string Written(R8 dValue) {
  char sBits[20];
  std::snprintf(sBits, sizeof sBits, "%016llX", static_cast<unsigned long long>(std::bit_cast<std::uint64_t>(dValue)));
  return sBits;
}

std::string Written(R4 fValue) {
  char sBits[20];
  std::snprintf(sBits, sizeof sBits, "%08X", std::bit_cast<std::uint32_t>(fValue));
  return sBits;
}

template <class Number>
std::string Result_of(const std::string& sText) {
  constexpr Number xBefore = Number{-7};
  Number x = xBefore;
  if (!Free_Read(sText, x)) return x == xBefore ? "fails" : "fails, but changes the target";
  return x == xBefore ? "null" : Written(x);
}

// reads.txt is what a Fortran program reads (reads.f90 makes it): the files that users bring were made for such
// programs.
TEST(StrValue, EveryTokenReadsAsAListDirectedRead) {
  std::ifstream in(QUILLAN_SOURCE_DIR "/tests/foundations/reads.txt");
  ReadRow hRow;
  I4 NRow = 0;
  for (; Next_Row(in, hRow); ++NRow) {
    const std::string sResult = hRow.sKind == "i4"   ? Result_of<I4>(hRow.sText)
                                : hRow.sKind == "i8" ? Result_of<I8>(hRow.sText)
                                : hRow.sKind == "r4" ? Result_of<R4>(hRow.sText)
                                                     : Result_of<R8>(hRow.sText);
    EXPECT_EQ(sResult, hRow.Is_Refused() ? "fails" : hRow.sResult) << hRow.sKind << " \"" << hRow.sText << '"';
  }
  EXPECT_GT(NRow, 250);
}

TEST(StrValue, ATokenEndsWhereItsTextEnds) {
  const std::string_view sRecord = "12.53";
  R4 fValue = 0.0f;
  EXPECT_TRUE(Free_Read(sRecord.substr(0, 4), fValue));
  EXPECT_EQ(fValue, 12.5f) << "the characters behind the view are another field's";
}

// ---- Quiet readers

/// What a reader makes of a field: the value, or the default where it gives none, and the sign of its status.
struct FieldCase {
  const char* sField;
  R8 dValue;
  I4 iSign;
};

constexpr R8 dDefault = -99.0;

using Reader = std::function<void(std::string_view, R8&, I4&)>;

template <class Number>
Reader Reader_of(void (*Read)(std::string_view, Number, Number&, I4&)) {
  return [Read](std::string_view sField, R8& dValue, I4& IOERR) {
    Number x{};
    Read(sField, static_cast<Number>(dDefault), x, IOERR);
    dValue = static_cast<R8>(x);
  };
}

void Expect_Cases(const Reader& Read, const std::vector<FieldCase>& hCase) {
  for (const FieldCase& h : hCase) {
    R8 dValue = 12345.0;
    I4 IOERR = 12345;
    Read(h.sField, dValue, IOERR);
    EXPECT_NEAR(dValue, h.dValue, 1.0E-9 * std::abs(h.dValue)) << '"' << h.sField << '"';
    EXPECT_EQ((IOERR > 0) - (IOERR < 0), h.iSign) << '"' << h.sField << '"';
  }
}

TEST(StrValue, PlainNumbers) {
  const std::vector<FieldCase> hCommon = {
      {" 12 m",         12.0,     0 },
      {"",              dDefault, -1},
      {"   ",           dDefault, -1},
      {"1*",            dDefault, -1},
      {"-inf",          dDefault, -1},
      {"INFINITY",      dDefault, -1},
      {"in",            dDefault, 1 },
      {"abc",           dDefault, 1 },
      {",5",            dDefault, 0 },
      {"5 information", dDefault, -1},
  };
  Expect_Cases(Reader_of(Str_to_I4), hCommon);
  Expect_Cases(Reader_of(Str_to_I8), hCommon);
  Expect_Cases(Reader_of(Str_to_R4), hCommon);
  Expect_Cases(Reader_of(Str_to_R8), hCommon);
  Expect_Cases(Reader_of(Str_to_I4), {
                                         {"1e3",        dDefault, 1},
                                         {"3000000000", dDefault, 1},
                                         {"12.5",       dDefault, 1}
  });
  Expect_Cases(Reader_of(Str_to_I8), {
                                         {"3000000000", 3.0E9, 0}
  });
  Expect_Cases(Reader_of(Str_to_R4), {
                                         {"1e3",   1000.0,   0},
                                         {"1e39",  dDefault, 1},
                                         {"-.5d1", -5.0,     0}
  });
}

TEST(StrValue, ARealBeyondTheWorkTextIsNotSeenAndAnIntegerIs) {
  const std::string sFar = std::string(32, ' ') + "5";
  R4 fValue = 0.0f;
  R8 dValue = 0.0;
  I4 iValue = 0;
  I4 IOERR = 0;
  Str_to_R4(sFar, -1.0f, fValue, IOERR);
  EXPECT_EQ(IOERR, 1);
  Str_to_R8("1.0000000000000000000000000000001e5", -1.0, dValue, IOERR);
  EXPECT_EQ(dValue, 1.0) << "cut before its exponent";
  Str_to_I4(sFar, -1, iValue, IOERR);
  EXPECT_EQ(iValue, 5);
  Str_to_I4(sFar + " inf", -1, iValue, IOERR);
  EXPECT_EQ(IOERR, 0) << "INF is looked for in the work text alone";
}

TEST(StrValue, LogicalsGoByTheFirstLetter) {
  for (const char* sYes : {"Yes", " true", "1", "t", "Tower"}) {
    L4 bValue = false;
    I4 IOERR = 9;
    Str_to_L4(sYes, false, bValue, IOERR);
    EXPECT_TRUE(bValue && IOERR == 0) << sYes;
  }
  for (const char* sNo : {"no", "FALSE", " 0", "off"}) {
    L4 bValue = true;
    I4 IOERR = 9;
    Str_to_L4(sNo, true, bValue, IOERR);
    const bool bUnknown = std::string_view(sNo) == "off";
    EXPECT_EQ(bValue, bUnknown) << sNo;
    EXPECT_EQ(IOERR, bUnknown ? 1 : 0) << sNo;
  }
}

TEST(StrValue, AzimuthsAreNumbersWordsOrBearings) {
  Expect_Cases(Reader_of(Str_to_R4Azimuth),
               {
                   {"123.5",     123.5,    0 },
                   {" n ",       0.0,      0 },
                   {"South",     180.0,    0 },
                   {"east",      90.0,     0 },
                   {"W",         270.0,    0 },
                   {"NORTHEAST", 0.0,      0 },
                   {"se",        135.0,    0 },
                   {"SW side",   225.0,    0 },
                   {"N45E",      45.0,     0 },
                   {"S 45 W",    225.0,    0 },
                   {"N90W",      270.0,    0 },
                   {"s30e",      150.0,    0 },
                   {"abc",       dDefault, 0 },
                   {"1D99",      dDefault, 0 },
                   {"N5E",       dDefault, 1 },
                   {"N91E",      dDefault, 1 },
                   {"Hello",     dDefault, 1 },
                   {"E45N",      dDefault, 1 },
                   {"1.5E2",     dDefault, 1 },
                   {"N,5E",      dDefault, 1 },
                   {"*",         dDefault, -1},
                   {"",          dDefault, -1},
  });
}

TEST(StrValue, LengthsTakeTheirUnitFromALetter) {
  const auto In_Unit = [](I4 iLength) {
    return [iLength](std::string_view sField, R8& dValue, I4& IOERR) {
      R4 fMeters = 0.0f;
      Str_to_R4Meters(sField, iLength, static_cast<R4>(dDefault), fMeters, IOERR);
      dValue = static_cast<R8>(fMeters);
    };
  };
  const R8 dHundredFeet = static_cast<R8>(100.0f * 0.3048f);
  Expect_Cases(In_Unit(1), {
                               {"100ft", dHundredFeet, 0},
                               {"100",   100.0,        0},
                               {"1 M",   1.0,          0},
                               {"m",     dDefault,     1}
  });
  Expect_Cases(In_Unit(2), {
                               {"100",  dHundredFeet, 0 },
                               {"100m", 100.0,        0 },
                               {",",    dDefault,     0 },
                               {"*",    dDefault,     -1}
  });
  Expect_Cases(In_Unit(7), {
                               {"100", dHundredFeet, 0}
  });
  Expect_Cases(In_Unit(-7), {
                                {"100", 100.0, 0}
  });
}

TEST(StrValue, NumbersAreFoundInNames) {
  const std::vector<FieldCase> hCommon = {
      {"L12N",                 12.0,     0 },
      {"Line -3.5 E",          -3.5,     0 },
      {"L 1 2",                12.0,     0 },
      {"7/2",                  7.0,      0 },
      {"L-A",                  dDefault, 1 },
      {"* 5",                  dDefault, -1},
      {"   ",                  dDefault, -1},
      {"Line number one 5",    5.0,      0 },
      {"Line number eleven 5", dDefault, 0 },
  };
  Expect_Cases(Reader_of(Str_to_R4Line), {hCommon.begin(), hCommon.end() - 1});
  Expect_Cases(Reader_of(Str_to_R4Line), {
                                             hCommon.back(), {"ABC", dDefault, 0}
  });
  Expect_Cases(Reader_of(Str_to_R8Line), {hCommon.begin(), hCommon.end() - 1});
  Expect_Cases(Reader_of(Str_to_R8Line), {
                                             {"ABC", 0.0,      1},
                                             {"  b", 1.0,      1},
                                             {"(#)", dDefault, 1}
  });
  Expect_Cases(Reader_of(Str_to_I4Version), {
                                                {"V3.20",                 320.0,      0 },
                                                {"3.30n",                 330.0,      0 },
                                                {"beta",                  dDefault,   0 },
                                                {"*",                     dDefault,   -1},
                                                {"1.2.3.4.5.6.7.8.9.0.1", 12345678.0, 0 },
                                                {"99999999999",           dDefault,   1 }
  });
}

TEST(StrValue, KeywordsCarryTheirIndexAtTheEnd) {
  const struct {
    const char* sKeyword;
    I4 iIndex, IOERR;
  } hCase[] = {
      {"Ch3",      3,  0 },
      {"Block12x", 12, 0 },
      {"A1B22",    22, 0 },
      {"007",      7,  0 },
      {"Ch",       1,  -1},
      {"",         1,  -1}
  };
  for (const auto& h : hCase) {
    I4 iIndex = 0;
    I4 IOERR = 9;
    Str_to_I4Index(h.sKeyword, iIndex, IOERR);
    EXPECT_EQ(iIndex, h.iIndex) << h.sKeyword;
    EXPECT_EQ(IOERR, h.IOERR) << h.sKeyword;
  }
  I4 iIndex = 0;
  I4 IOERR = 0;
  Str_to_I4Index("Ch99999999999", iIndex, IOERR);
  EXPECT_GT(IOERR, 0);
  EXPECT_EQ(iIndex, 1);
}

TEST(StrValue, TimesAreDecimalOrWithColons) {
  Expect_Cases(Reader_of(Str_to_R8Time), {
                                             {"12.5",       12.5,     0 },
                                             {"12:30:36",   12.51,    0 },
                                             {"1:00:00.36", 1.0001,   0 },
                                             {"115:00:00",  15.0,     0 },
                                             {"12:30",      dDefault, 1 },
                                             {":30:00",     dDefault, 1 },
                                             {"12::00",     dDefault, 1 },
                                             {"12:30:",     dDefault, 1 },
                                             {"1:2:3:4",    dDefault, 1 },
                                             {"xyz",        dDefault, 1 },
                                             {"*",          dDefault, -1}
  });
}

TEST(StrValue, ThreePartsNeedTextOnBothSidesOfTheSeparators) {
  ThreeParts h;
  EXPECT_TRUE(Cut_In_Three("2004-08-05 ", "/-", h));
  EXPECT_EQ(h.sFirst, "2004");
  EXPECT_EQ(h.sSecond, "08");
  EXPECT_EQ(h.sThird, "05");
  for (const char* sText : {"", "-", "--", "a-b", "-a-b", "a--b", "a-b-", "a-b-  "})
    EXPECT_FALSE(Cut_In_Three(sText, "/-", h)) << sText;
}

// ---- Reporting readers

/// A log of its own for each test; errors go there instead of into boxes.
class StrValueReports : public ::testing::Test {
 protected:
  StrValueReports() {
    I4 IOERR = 0;
    Log_Initialize("reports", IOERR);
    bAutoErr = true;
    Fld_Begin_File();
  }

  static std::string Content(const std::string& sFile) {
    std::ifstream in(sFile);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  static std::string Reported() { return Content(sErrFile); }

  const FieldContext hAt{17, "the record 12x", "Freq  "};
};

template <class Number>
Reader Reader_of(void (*Read)(const FieldContext&, std::string_view, Number, Number&, I4&)) {
  return [Read](std::string_view sField, R8& dValue, I4& IOERR) {
    Number x{};
    Read({17, "the record 12x", "Freq  "}, sField, static_cast<Number>(dDefault), x, IOERR);
    dValue = static_cast<R8>(x);
  };
}

TEST_F(StrValueReports, EachKindHasItsWords) {
  const auto Fld_to_Feet = [](const FieldContext& h, std::string_view sField, R4 fDefault, R4& fValue, I4& IOERR) {
    Fld_to_R4Meters(h, sField, 2, fDefault, fValue, IOERR);
  };
  const struct {
    Reader Read;
    const char *sField, *sReport;
  } hCase[] = {
      {Reader_of(Fld_to_I4),          "12x",         "ERROR reading integer Freq value from 12x"                       },
      {Reader_of(Fld_to_I8),          "12x ",        "ERROR reading integer Freq value from 12x"                       },
      {Reader_of(Fld_to_L4),          "maybe",       "ERROR reading Freq Yes/No, True/False or 1/0 response from maybe"},
      {Reader_of(Fld_to_R4),          "x",           "ERROR reading real*4 Freq value from x"                          },
      {Reader_of(Fld_to_R8),          "x",           "ERROR reading real*8 Freq value from x"                          },
      {Reader_of<R4>(Fld_to_Feet),    "x",           "ERROR reading real*4 Freq value from x"                          },
      {Reader_of(Fld_to_R4Line),      "L-",          "ERROR reading numeric Freq value from L-"                        },
      {Reader_of(Fld_to_R8Line),      "A",           "ERROR reading numeric Freq value from A"                         },
      {Reader_of(Fld_to_I4Version),   "99999999999", "ERROR reading numeric Freq value from 99999999999"               },
      {Reader_of(Fld_to_R8Time),      "1:2 ",        "ERROR reading hh:mm:ss Freq value from \"1:2\""                  },
      {Reader_of(Fld_to_R4Azimuth),   "N5E",         "ERROR reading azimuth or bearing Freq value from N5E"            },
      {Reader_of(Fld_to_R4Pitch),     "x",           "ERROR reading pitch Freq value from x"                           },
      {Reader_of(Fld_NMEA_to_R8Time), "12x",         "ERROR reading hhmmss.ss Freq value from 12x"                     },
      {Reader_of(Fld_NMEA_to_R8Deg),  "x205.1",      "ERROR reading NMEA-format ddmm.mmmFreq value from x205.1"        },
      {Reader_of(Fld_NMEA_to_R8Deg),  "11x05.1",     "ERROR reading NMEA-format dddmm.mmmFreq value from 11x05.1"      },
  };
  for (const auto& h : hCase) {
    I4 IOERR = 0;
    Log_Initialize("reports", IOERR);
    R8 dValue = 0.0;
    h.Read(h.sField, dValue, IOERR);
    EXPECT_GT(IOERR, 0) << h.sReport;
    EXPECT_NE(Reported().find(std::string("\n ") + h.sReport + "\n Record number 17\n the record 12x\n"),
              std::string::npos)
        << Reported();
  }
}

TEST_F(StrValueReports, MissingAndNullValuesAreQuiet) {
  R4 fValue = 0.0f;
  I4 IOERR = 0;
  for (const char* sField : {"", "*", "inf", ",", "5"}) Fld_to_R4(hAt, sField, 1.0f, fValue, IOERR);
  EXPECT_EQ(Reported(), "");
}

TEST_F(StrValueReports, TheFirstBadValueOfAFileIsShownAndTheOthersGoToTheErrorFile) {
  const auto Reports = [](const std::string& sText) {
    I4 N = 0;
    for (std::size_t K = sText.find("ERROR"); K != std::string::npos; K = sText.find("ERROR", K + 1)) ++N;
    return N;
  };
  R4 fValue = 0.0f;
  I4 IOERR = 0;
  for (I4 I = 1; I <= 3; ++I) Fld_to_R4(hAt, "x", 1.0f, fValue, IOERR);
  Fld_Begin_File();
  Fld_to_R4(hAt, "x", 1.0f, fValue, IOERR);
  EXPECT_EQ(Reports(Reported()), 4);
  Log_Close();
  EXPECT_EQ(Reports(Content(sLogFile)), 2) << "what would stand in boxes";
}

TEST_F(StrValueReports, LinesAreCutToTheWidthOfTheBox) {
  R4 fValue = 0.0f;
  I4 IOERR = 0;
  const std::string sLong(300, 'x');
  Fld_to_R4({1, sLong, "Freq"}, sLong, 1.0f, fValue, IOERR);
  EXPECT_NE(Reported().find("\n " + std::string(128, 'x') + "\n"), std::string::npos);
  EXPECT_EQ(Reported().find(std::string(129, 'x')), std::string::npos);
}

TEST_F(StrValueReports, PitchIsANumberOrAWord) {
  Expect_Cases(Reader_of(Fld_to_R4Pitch), {
                                              {"-12.5", -12.5,    0 },
                                              {"up",    90.0,     0 },
                                              {" Hrz",  0.0,      0 },
                                              {"Down",  -90.0,    0 },
                                              {"10 D",  dDefault, 1 },
                                              {"x",     dDefault, 1 },
                                              {"*",     dDefault, -1}
  });
}

TEST_F(StrValueReports, NmeaTimesAndDegrees) {
  Expect_Cases(Reader_of(Fld_NMEA_to_R8Time), {
                                                  {"123036.00",  12.51,    0 },
                                                  {" 000000.36", 0.0001,   0 },
                                                  {"-13000",     -1.5,     0 },
                                                  {"1230",       dDefault, 1 },
                                                  {"1x3036",     dDefault, 1 },
                                                  {"*",          dDefault, -1}
  });
  Expect_Cases(Reader_of(Fld_NMEA_to_R8Deg),
               {
                   {"11530.6",                 115.51,   0 },
                   {"3330.6",                  33.51,    0 },
                   {"-3330.6",                 -33.51,   0 },
                   {"-030.6",                  0.51,     0 }, // a sign without degrees is lost, as in the writer
                   {"3330",                    33.5,     0 },
                   {"30.6",                    dDefault, 1 },
                   {"123456789012345678901.5", dDefault, 1 },
                   {"",                        dDefault, -1}
  });
}

}  // namespace
}  // namespace quillan
