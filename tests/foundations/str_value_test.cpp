#include "foundations/str_value.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <string>
#include <vector>

#include "foundations/log_file.h"
#include "support/files.h"

namespace quillan {
namespace {

// ---- Quiet readers

constexpr R8 dDefault = -99.0;

/// What a reader makes of a field: the status, and the value, or the default where it gives none.
using Reader = std::function<I4(std::string_view, R8&)>;

template <class Number>
Reader Reader_of(std::function<I4(std::string_view, Number, Number&)> Read) {
  return [Read](std::string_view sField, R8& dValue) {
    Number x{};
    const I4 IOERR = Read(sField, static_cast<Number>(dDefault), x);
    dValue = static_cast<R8>(x);
    return IOERR;
  };
}

struct FieldCase {
  const char* sField;
  R8 dValue;
  I4 IOERR;
};

void Expect_Cases(const Reader& Read, const std::vector<FieldCase>& hCase) {
  for (const FieldCase& h : hCase) {
    R8 dValue = 12345.0;
    EXPECT_EQ(Read(h.sField, dValue), h.IOERR) << '"' << h.sField << '"';
    EXPECT_NEAR(dValue, h.dValue, 1.0E-9 * std::abs(h.dValue)) << '"' << h.sField << '"';
  }
}

TEST(StrValue, PlainNumbers) {
  const auto Read_R8 = [](std::string_view sField, R8 d0, R8& dValue) { return Str_to_R8(sField, d0, dValue); };
  const std::string sFar = std::string(32, ' ') + "5", sFarInf = sFar + " inf";
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
  for (const Reader& Read : {Reader_of<I4>(Str_to_I4), Reader_of<R4>(Str_to_R4), Reader_of<R8>(Read_R8)})
    Expect_Cases(Read, hCommon);
  // A real beyond the characters that are searched is not seen, an integer is, and "INF" there counts for neither.
  Expect_Cases(Reader_of<I4>(Str_to_I4), {
                                             {"1e3",           dDefault, 1},
                                             {"3000000000",    dDefault, 1},
                                             {"12.5",          dDefault, 1},
                                             {sFar.c_str(),    5.0,      0},
                                             {sFarInf.c_str(), 5.0,      0}
  });
  Expect_Cases(Reader_of<R4>(Str_to_R4), {
                                             {"1e3",                                 1000.0,   0},
                                             {"1e39",                                dDefault, 1},
                                             {"-.5d1",                               -5.0,     0},
                                             {sFar.c_str(),                          dDefault, 1},
                                             {"1.0000000000000000000000000000001e5", 1.0,      0}
  });
}

TEST(StrValue, LogicalsGoByTheFirstLetter) {
  const struct {
    const char* sField;
    L4 bValue;
    I4 IOERR;
  } hCase[] = {
      {"Yes",   true,  0 },
      {" true", true,  0 },
      {"1",     true,  0 },
      {"t",     true,  0 },
      {"Tower", true,  0 },
      {"no",    false, 0 },
      {"FALSE", false, 0 },
      {" 0",    false, 0 },
      {"off",   true,  1 },
      {"*",     true,  -1},
  };
  for (const auto& h : hCase) {
    L4 bValue = !h.bValue;
    EXPECT_EQ(Str_to_L4(h.sField, h.IOERR != 0, bValue), h.IOERR) << h.sField;
    EXPECT_EQ(bValue, h.bValue) << h.sField;
  }
}

TEST(StrValue, AzimuthsAreNumbersWordsOrBearings) {
  Expect_Cases(Reader_of<R4>(Str_to_R4Azimuth),
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
  const R8 dHundredFeet = static_cast<R8>(100.0f * 0.3048f);
  const struct {
    I4 iLength;
    FieldCase hField;
  } hCase[] = {
      {1,  {"100ft", dHundredFeet, 0}},
      {1,  {"100", 100.0, 0}         },
      {1,  {"1 M", 1.0, 0}           },
      {1,  {"m", dDefault, 1}        },
      {2,  {"100", dHundredFeet, 0}  },
      {2,  {"100m", 100.0, 0}        },
      {2,  {",", dDefault, 0}        },
      {2,  {"*", dDefault, -1}       },
      {7,  {"100", dHundredFeet, 0}  },
      {-7, {"100", 100.0, 0}         },
  };
  for (const auto& h : hCase) {
    Expect_Cases(Reader_of<R4>([&](std::string_view sField, R4 fDefault, R4& fMeters) {
                   return Str_to_R4Meters(sField, h.iLength, fDefault, fMeters);
                 }),
                 {h.hField});
  }
}

TEST(StrValue, VersionsAndIndicesAreTheDigitsOfTheirText) {
  Expect_Cases(Reader_of<I4>(Str_to_I4Version), {
                                                    {"V3.20",                 320.0,      0 },
                                                    {"3.30n",                 330.0,      0 },
                                                    {"beta",                  dDefault,   0 },
                                                    {"* 5",                   dDefault,   -1},
                                                    {"   ",                   dDefault,   -1},
                                                    {"1.2.3.4.5.6.7.8.9.0.1", 12345678.0, 0 },
                                                    {"99999999999",           dDefault,   1 }
  });
  const Reader Index = [](std::string_view sField, R8& dValue) {
    I4 iIndex = 0;
    const I4 IOERR = Str_to_I4Index(sField, iIndex);
    dValue = iIndex;
    return IOERR;
  };
  Expect_Cases(Index, {
                          {"Ch3",           3.0,  0 },
                          {"Block12x",      12.0, 0 },
                          {"A1B22",         22.0, 0 },
                          {"007",           7.0,  0 },
                          {"Ch",            1.0,  -1},
                          {"",              1.0,  -1},
                          {"Ch99999999999", 1.0,  1 }
  });
}

TEST(StrValue, TimesAreDecimalOrWithColons) {
  Expect_Cases(Reader_of<R8>(Str_to_R8Time), {
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

// ---- Reporting readers

/// A log of its own for each test; errors go there instead of into boxes.
class StrValueReports : public ::testing::Test {
 protected:
  StrValueReports() {
    Begin();
    bAutoErr = true;
  }
  static void Begin() {
    EXPECT_EQ(Log_Initialize("reports"), 0);
    Fld_Begin_File();
  }
  static std::string Reported() { return Read_Whole_File(sErrFile); }
  I4 Read(std::string_view sField) const {
    R4 fValue = 0.0f;
    return Fld_to_R4(hAt, sField, 1.0f, fValue);
  }

  const FieldContext hAt{17, "the record 12x", "Freq  "};
};

TEST_F(StrValueReports, EachKindHasItsWords) {
  I4 iValue = 0;
  L4 bValue = false;
  R4 fValue = 0.0f;
  R8 dValue = 0.0;
  const struct {
    std::function<I4()> Read;
    const char* sReport;
  } hCase[] = {
      {[&] { return Fld_to_I4(hAt, "12x ", 0, iValue); },               "integer Freq value from 12x"                       },
      {[&] { return Fld_to_L4(hAt, "maybe", true, bValue); },           "Freq Yes/No, True/False or 1/0 response from maybe"},
      {[&] { return Fld_to_R4(hAt, "x", 0.0f, fValue); },               "real*4 Freq value from x"                          },
      {[&] { return Fld_to_R8(hAt, "x", 0.0, dValue); },                "real*8 Freq value from x"                          },
      {[&] { return Fld_to_R4Meters(hAt, "x", 2, 0.0f, fValue); },      "real*4 Freq value from x"                          },
      {[&] { return Fld_to_I4Version(hAt, "99999999999", 0, iValue); }, "numeric Freq value from 99999999999"               },
      {[&] { return Fld_to_R8Time(hAt, "1:2 ", 0.0, dValue); },         "hh:mm:ss Freq value from \"1:2\""                  },
      {[&] { return Fld_to_R4Azimuth(hAt, "N5E", 0.0f, fValue); },      "azimuth or bearing Freq value from N5E"            },
  };
  for (const auto& h : hCase) {
    Begin();
    EXPECT_EQ(h.Read(), 1) << h.sReport;
    EXPECT_TRUE(
        Reported().ends_with(std::string("\n ERROR reading ") + h.sReport + "\n Record number 17\n the record 12x\n"))
        << Reported();
  }
}

TEST_F(StrValueReports, DegreesOfSatelliteReceivers) {
  const auto Degrees = [](std::string_view sField, R8 dElse, R8& dDegrees) {
    return Fld_NMEA_to_R8Deg({1, sField, "Lat"}, sField, dElse, dDegrees);
  };
  Expect_Cases(Reader_of<R8>(Degrees), {
                                           {"11530.6",            115.51,              0 },
                                           {"-3330.6",            -33.51,              0 },
                                           {"-030.6",             0.51,                0 }, // a sign needs degrees
                                           {"3330",               33.5,                0 },
                                           {"11530.600000000060", 115.510000000000001, 0 }, // every digit counts
                                           {"30.6",               dDefault,            1 },
                                           {"x205.1",             dDefault,            1 },
                                           {"",                   dDefault,            -1}
  });
}

TEST_F(StrValueReports, MissingAndNullValuesAreQuiet) {
  for (const char* sField : {"", "*", "inf", ",", "5"}) EXPECT_LE(Read(sField), 0) << sField;
  EXPECT_EQ(Reported(), "");
}

TEST_F(StrValueReports, TheFirstBadValueOfAFileIsShownAndTheOthersGoToTheErrorFile) {
  const auto NReport = [](const std::string& sFile) {
    I4 N = 0;
    for (const std::string& sLine : Read_Lines(sFile)) N += sLine.find("ERROR") != std::string::npos;
    return N;
  };
  for (I4 I = 1; I <= 3; ++I) EXPECT_EQ(Read("x"), 1);
  Fld_Begin_File();
  EXPECT_EQ(Read("x"), 1);
  EXPECT_EQ(NReport(sErrFile), 4);
  EXPECT_EQ(NReport(sLogFile), 2) << "what would stand in boxes";
}

TEST_F(StrValueReports, LinesAreCutToTheWidthOfTheBox) {
  R4 fValue = 0.0f;
  const std::string sLong(300, 'x');
  EXPECT_EQ(Fld_to_R4({1, sLong, "Freq"}, sLong, 1.0f, fValue), 1);
  EXPECT_NE(Reported().find("\n " + std::string(128, 'x') + "\n"), std::string::npos);
  EXPECT_EQ(Reported().find(std::string(129, 'x')), std::string::npos);
}

}  // namespace
}  // namespace quillan
