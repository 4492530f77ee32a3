#include "foundations/str_parse.h"

#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <iterator>

#include "foundations/log_file.h"

namespace quillan {
namespace {

using Fields = std::vector<std::string>;
using Labels = std::vector<std::string_view>;

Fields All(const FieldList& hField) {
  Fields sAll;
  for (I4 K = 1; K <= hField.NFld(); ++K) sAll.emplace_back(hField(K));
  return sAll;
}

Fields Parsed(std::string_view sRecord, I4 MFld = 32, I4 NWidth = 0) {
  FieldList hField(MFld, NWidth);
  Str_Parse_Fld(sRecord, hField);
  return All(hField);
}

Fields Separated(std::string_view sRecord, std::string_view sSeparators, I4 MFld = 32) {
  FieldList hField(MFld);
  Str_to_Fld(sRecord, sSeparators, hField);
  return All(hField);
}

/// Reports go to files of the test's folder.
class StrParse : public testing::Test {
 protected:
  void SetUp() override {
    bAutoErr = true;
    I4 IOERR = 0;
    Log_Initialize("quillan", IOERR);
    ASSERT_EQ(IOERR, 0);
  }

  static std::string Errors() {
    std::ifstream in(sErrFile);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  static I4 Lines_with(std::string_view sWords) {
    std::ifstream in(sErrFile);
    I4 N = 0;
    for (std::string sLine; std::getline(in, sLine);) N += sLine.find(sWords) != std::string::npos;
    return N;
  }
};

TEST(StrParseFld, WhatSeparatesFields) {
  const struct {
    const char* sRecord;
    Fields sField;
    const char* sWhy;
  } hCase[] = {
      {"a b",               {"a", "b"},              "a blank separates"                            },
      {"a,b",               {"a", "b"},              "a comma separates"                            },
      {"a , b",             {"a", "b"},              "a comma with blanks about it is one separator"},
      {"a\tb",              {"a", "b"},              "a tab separates"                              },
      {" \t a \t , \t b  ", {"a", "b"},              "blanks and tabs in any mixture"               },
      {"a,,b",              {"a", "", "b"},          "an empty field between commas"                },
      {"a , , b",           {"a", "", "b"},          "a blank field between commas"                 },
      {",a",                {"", "a"},               "a leading comma gives a blank field"          },
      {"  , a",             {"", "a"},               "so it does behind blanks"                     },
      {"\t,a",              {"", "a"},               "and behind a tab"                             },
      {"a,",                {"a"},                   "a trailing comma adds nothing"                },
      {"a,, ",              {"a", ""},               "of two trailing commas one does"              },
      {",",                 {""},                    "a lone comma"                                 },
      {"",                  {},                      "an empty record"                              },
      {"   ",               {},                      "a blank record"                               },
      {"\t\t",              {},                      "a record of tabs"                             },
      {"1.5E+2 -3,*;/",     {"1.5E+2", "-3", "*;/"}, "nothing else separates"                       },
  };
  for (const auto& h : hCase) EXPECT_EQ(Parsed(h.sRecord), h.sField) << h.sWhy;
}

TEST(StrParseFld, QuotesProtectAndGo) {
  const struct {
    const char* sRecord;
    Fields sField;
    const char* sWhy;
  } hCase[] = {
      {"\"a b\",c",    {"a b", "c"},     "a blank inside quotes"                                       },
      {"\"a,b\" c",    {"a,b", "c"},     "a comma inside quotes"                                       },
      {"\"a\" \"b\"",  {"a", "b"},       "two quoted fields"                                           },
      {"\"a\"\"b\"",   {"a  b"},         "quotes inside a field become blanks"                         },
      {"x\"y z\"w u",  {"x y z w", "u"}, "quotes in the middle of a field"                             },
      {"\"\",a",       {"", "a"},        "empty quotes are a blank field"                              },
      {"\"  \" a",     {"", "a"},        "so are quoted blanks"                                        },
      {"\" a \",b",    {"a", "b"},       "blanks at the ends of a quoted text go"                      },
      {"\"a ,b\" , c", {"a, b", "c"},    "a blank in front of a quoted comma moves behind it"          },
      {"\"a\t,  ,b\"", {"a,,   b"},      "a run of quoted blanks, tabs and commas has its commas first"},
      {"\"a\tb\"",     {"a b"},          "a quoted tab is a blank"                                     },
      {"a \"b c",      {"a"},            "a quote that never closes loses its field"                   },
      {"a b\"c, d",    {"a"},            "even where it opens inside a field"                          },
      {"\"",           {},               "a lone quote"                                                },
  };
  for (const auto& h : hCase) EXPECT_EQ(Parsed(h.sRecord), h.sField) << h.sWhy;
}

TEST(StrParseFld, FieldsBeyondTheCapacityAreDropped) {
  EXPECT_EQ(Parsed("a,b c", 2), (Fields{"a", "b"}));
  EXPECT_EQ(Parsed("\"a\",,c", 2), (Fields{"a", ""}));
  EXPECT_EQ(Parsed("a", 0), Fields{});
}

TEST(StrParseFld, FieldsAreCutToTheWidthBeforeQuotesGo) {
  EXPECT_EQ(Parsed("abcdef,ab", 9, 4), (Fields{"abcd", "ab"}));
  EXPECT_EQ(Parsed("\"abcdef\"", 9, 4), (Fields{"abc"}));
  EXPECT_EQ(Parsed("abc\xC3\xA9 d", 9, 4), (Fields{"abc", "d"})) << "a cut never splits a character";
}

TEST(StrParseFld, AFieldIsAViewIntoTheRecordAndABlankBeyondTheLast) {
  const std::string sRecord = "one \"two\" three";
  FieldList hField(8);
  Str_Parse_Fld(sRecord, hField);
  EXPECT_EQ(hField(1).data(), sRecord.data());
  EXPECT_EQ(hField(2).data(), sRecord.data() + 5) << "quotes at the ends need no copy";
  EXPECT_EQ(hField(0), "");
  EXPECT_EQ(hField(4), "");
}

TEST(StrParseFld, FieldsThatTheListOwnsOutliveItsGrowth) {
  std::string sRecord;
  for (int i = 0; i < 2000; ++i) sRecord += "\"a\tb\"\"" + std::to_string(i) + "\" ";
  const FieldList hMoved = [&] {
    FieldList hField(5000);
    Str_Parse_Fld(sRecord, hField);
    return hField;
  }();
  ASSERT_EQ(hMoved.NFld(), 2000);
  EXPECT_EQ(hMoved(1), "a b  0");
  EXPECT_EQ(hMoved(2000), "a b  1999");
}

TEST(StrParseFld, AHugeRecordTakesLinearTime) {
  std::string sRecord = "\"";
  for (int i = 0; i < 1500000; ++i) sRecord += "   ,\t,";
  sRecord += "\" x";
  const auto hStart = std::chrono::steady_clock::now();
  FieldList hField(10000);
  Str_Parse_Fld(sRecord, hField);
  EXPECT_EQ(hField.NFld(), 2);
  Str_Parse_Fld(std::string_view(sRecord).substr(1, sRecord.size() - 4), hField);
  EXPECT_EQ(hField.NFld(), 10000);
  EXPECT_LT(std::chrono::steady_clock::now() - hStart, std::chrono::seconds(10)) << "a quadratic walk takes hours";
}

TEST(StrToFld, OnlyTheSeparatorsSeparate) {
  const struct {
    const char *sRecord, *sSeparators;
    Fields sField;
    const char* sWhy;
  } hCase[] = {
      {"a b, c",            ",",  {"a b", "c"},       "blanks do not separate"                  },
      {"a,\"b,c\",d",       ",",  {"a", "b,c", "d"},  "quotes protect a comma"                  },
      {"a,b,",              ",",  {"a", "b,"},        "the comma that ends the record stays"    },
      {"a,,",               ",",  {"a", ","},         "also behind a comma"                     },
      {",",                 ",",  {","},              "also alone"                              },
      {",a",                ",",  {"", "a"},          "a leading comma gives a blank field"     },
      {"a,,b",              ",",  {"a", "", "b"},     "an empty field"                          },
      {"a,\"b",             ",",  {"a"},              "open quotes lose the last field"         },
      {"a,\"b\"",           ",",  {"a", "b"},         "quotes that close the record do not"     },
      {" a\t, \"b\tc\" ,d", ",",  {"a", "b c", "d"},  "tabs and quotes become blanks in the end"},
      {"\t\t",              ",",  {""},               "a record of tabs is one blank field"     },
      {"   ",               ",",  {},                 "a blank record has none"                 },
      {"12:30;45",          ":;", {"12", "30", "45"}, "any of the separators"                   },
      {"a,b;",              ",;", {"a", "b;"},        "any of them stays at the end"            },
  };
  for (const auto& h : hCase) EXPECT_EQ(Separated(h.sRecord, h.sSeparators), h.sField) << h.sWhy;
}

TEST_F(StrParse, TooManyCommaFieldsAreReportedOnce) {
  FieldList hField(2);
  CSV_to_Fld("a,b,c,d", hField);
  EXPECT_EQ(All(hField), (Fields{"a", "b"}));
  EXPECT_EQ(Lines_with("WARNING: more than 2 columns in csv file."), 1);
  EXPECT_EQ(Lines_with("Extra columns will be dropped."), 1);
  CSV_to_Fld("a,b", hField);
  EXPECT_EQ(Lines_with("WARNING"), 1) << "as many as the list holds are not too many";
}

TEST(ColumnLabels, TheEarliestVariableChoosesItsColumn) {
  ColumnMap hColumn;
  I4 iError = 9;
  Str_Column_Labels("Rx.Stn,Tx.Stn Stn other", false, false, Labels{"STN", "TX.STN", "STN", "NONE"}, 9, hColumn,
                    iError);
  EXPECT_EQ(iError, 0);
  EXPECT_EQ(hColumn.NFC, 4);
  EXPECT_EQ(hColumn.KCol, (std::vector<I4>{1, 2, 3, 0})) << "the first column that holds the text and is free";
  EXPECT_EQ(hColumn.JCol, (std::vector<I4>{1, 2, 3, 0, 0, 0, 0, 0, 0}));
  EXPECT_EQ(hColumn.sLabel, (Fields{"Rx.Stn", "Tx.Stn", "Stn", "other"})) << "labels keep their case";
}

TEST(ColumnLabels, AnExactMatchComparesWholeLabels) {
  ColumnMap hColumn;
  I4 iError = 9;
  Str_Column_Labels("STN.X stn", false, true, Labels{"STN  "}, 9, hColumn, iError);
  EXPECT_EQ(hColumn.KCol, (std::vector<I4>{2}));
}

TEST(ColumnLabels, AnyOfSeveralSpellingsMatches) {
  const std::vector<Labels> CID{
      {"EAST",  "UTMX"},
      {"NORTH", "UTMY"}
  };
  ColumnMap hColumn;
  I4 iError = 9;
  Str_Column_Labels_Aliased("utmy,EAST,north", false, true, CID, 9, hColumn, iError);
  EXPECT_EQ(hColumn.KCol, (std::vector<I4>{2, 1}));
  EXPECT_EQ(hColumn.JCol[2], 0) << "a variable that has its column takes no other";
}

TEST(ColumnLabels, AliasesAreWholeLabels) {
  const AliasRow CAlias[] = {
      {"E", "EASTING"  },
      {"N", "NORTHING" },
      {"Z", "ELEVATION"}
  };
  ColumnMap hColumn;
  I4 iError = 9;
  Str_Column_Labels_Alias_List("n,e,ez,Elevation", false, true, CAlias, Labels{"EASTING", "NORTHING", "ELEVATION"}, 9,
                               hColumn, iError);
  EXPECT_EQ(hColumn.KCol, (std::vector<I4>{2, 1, 4}));
  EXPECT_EQ(hColumn.sLabel[0], "n");
}

TEST_F(StrParse, AtMostThreeMissingColumnsAreNamed) {
  const Labels CID{"A ", "B", "C", "D"};
  ColumnMap hColumn;
  I4 iError = 9;
  Str_Column_Labels("x", true, true, CID, 9, hColumn, iError);
  EXPECT_EQ(iError, 1);
  EXPECT_NE(Errors().find("  ERROR: Could not find A column.\n"), std::string::npos);  // one blank from the file
  EXPECT_EQ(Lines_with("Could not find"), 3);
  Str_Column_Labels_Alias_List("d,b,c", true, true, {}, CID, 9, hColumn, iError);
  EXPECT_EQ(iError, 1);
  EXPECT_NE(Errors().find("\n ERROR: Could not find A column.\n"), std::string::npos);
  Str_Column_Labels("a,b,c,d", true, true, CID, 9, hColumn, iError);
  EXPECT_EQ(iError, 0);
  EXPECT_EQ(Lines_with("Could not find"), 4);
}

TEST_F(StrParse, ACommaDelimitedHeaderNamesEveryMissingColumnAndCountsTheNeededOnes) {
  const Labels CID{"STN", "UTMX", "UTMY", "ELEV", "TIME", "SWP", "GAIN"};
  ColumnMap hColumn;
  I4 iError = 9;
  CSV_Column_Labels("line no,my stn,other", true, false, CID, 9, hColumn, iError);
  EXPECT_EQ(iError, 1);
  EXPECT_EQ(Lines_with("ERROR: Could not find"), 6);
  EXPECT_EQ(hColumn.KCol[0], 2);
  EXPECT_EQ(hColumn.NFC, 2) << "a data record need not reach the last label";
  CSV_Column_Labels("nothing", false, true, CID, 9, hColumn, iError);
  EXPECT_EQ(iError, 0);
  EXPECT_EQ(hColumn.NFC, 0);
}

TEST(ColumnValues, WhatCannotBeReadIsMissing) {
  const std::vector<I4> KCol{3, 1, 0, 2, 4, 5, 7};
  std::vector<R4> fValue(KCol.size(), 0.0f);
  I4 NFC = 0;
  Str_Column_R4Values("1.5,*,-2E1,abc,12345678901234567890", 6, NFC, KCol, fValue);
  EXPECT_EQ(NFC, 5);
  EXPECT_EQ(fValue, (std::vector<R4>{-20.0f, 1.5f, fDummy, fDummy, fDummy, 1234567890123456.0f, fDummy}))
      << "the last but one is cut to 16 characters, the last lies beyond the record";
  std::vector<R8> dValue(2, 0.0);
  Str_Column_R8Values("0.1,,7", 6, NFC, std::vector<I4>{1, 2}, dValue);
  EXPECT_EQ(dValue, (std::vector<R8>{0.1, dDummy}));
}

TEST(Enumeration, AWordIsFoundWholeThenAsAPart) {
  const Labels CTable{"EAST", "NORTH", "SOUTH", "NORTH-SOUTH"};
  const struct {
    const char* sField;
    I4 iExpected, IOERR;
    const char* sWhy;
  } hCase[] = {
      {" south ",            3, 0,  "without regard to case and blanks"},
      {"north-south",        4, 0,  "a whole word goes first"          },
      {"to the north-south", 2, 0,  "of parts the first in the table"  },
      {"",                   7, -1, "blank"                            },
      {"north*",             7, -1, "a star anywhere is missing"       },
      {"up",                 7, 2,  "there is no one to ask"           },
  };
  for (const auto& h : hCase) {
    I4 iFound = 7, IOERR = 9;
    Str_to_iEnumeration(h.sField, "LINE.DIRECTION", CTable, iFound, IOERR);
    EXPECT_EQ(iFound, h.iExpected) << h.sWhy;
    EXPECT_EQ(IOERR, h.IOERR) << h.sWhy;
  }
}

TEST(FuzzyMatch, CountsEditsAndSwaps) {
  const struct {
    const char *str1, *str2;
    I4 iDistance;
  } hCase[] = {
      {"ab",     "ba",      1},
      {"abc",    "acb",     1},
      {"CAT",    "cat",     0},
      {"cat  ",  "cat",     0},
      {"",       "abc",     3},
      {"abc",    "",        3},
      {"",       "",        0},
      {"abc",    "abd",     1},
      {"abc",    "abcd",    1},
      {"bcd",    "abcd",    1},
      {"ca",     "abc",     3},
      {"kitten", "sitting", 3},
      {"aabb",   "bbaa",    3},
      {"abcdef", "badcfe",  3},
  };
  for (const auto& h : hCase) EXPECT_EQ(iStr_Fuzzy_Match(h.str1, h.str2), h.iDistance) << h.str1 << " " << h.str2;
}

TEST(StrTrim0, TakesTrailingZerosFromPlainDecimals) {
  const struct {
    const char *sText, *sExpected;
  } hCase[] = {
      {"12.500", "12.5"  },
      {"12.000", "12"    },
      {".000",   "0"     },
      {"-.000",  "0"     },
      {"-0.000", "-0"    },
      {"  7.10", "7.1"   },
      {"100",    "100"   },
      {"100.",   "100"   },
      {"1.50E3", "1.50E3"},
      {"1.0e-3", "1.0e-3"},
      {"",       ""      },
      {"-.500",  "-.5"   },
      {"5.",     "5"     },
      {".",      "0"     },
  };
  for (const auto& h : hCase) EXPECT_EQ(Str_Trim0(h.sText).trimmed(), h.sExpected) << h.sText;
  EXPECT_EQ(Str_Trim0("1." + std::string(30, '0')).trimmed(), "1") << "a number that fills the text";
}

TEST(StrTexts, AreTidied) {
  EXPECT_EQ(Str_Strip_Quotes("\t\"a\" b\" "), "a  b");
  EXPECT_EQ(Str_Trim_Null_Bytes(std::string_view("ab\0cd", 5)), "ab");
  EXPECT_EQ(Str_Trim_Null_Bytes("ab\x80"), "ab");
  EXPECT_EQ(Str_Trim_Null_Bytes("ab\x7F"), "ab\x7F");
  EXPECT_EQ(Str_UpCase("aZ\xC3\xA9{1"), "AZ\xC3\xA9{1") << "ASCII letters alone";
  EXPECT_EQ(Str_DownCase("aZ\xC3\x89[1"), "az\xC3\x89[1");
  EXPECT_EQ(Str_Squish(" a\tb  c "), "abc");
  EXPECT_EQ(Str_Map("abcd", "xy", "abcab"), "xycxy") << "the shorter map counts";
  EXPECT_EQ(Str_Map("aa", "xy", "a"), "x");
  EXPECT_EQ(Str_Map("", "xy", "a"), "");
}

}  // namespace
}  // namespace quillan
