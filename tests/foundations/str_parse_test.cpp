#include "foundations/str_parse.h"

#include <gtest/gtest.h>

#include "foundations/log_file.h"
#include "support/files.h"
#include "support/user_notebook.h"

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
    ASSERT_EQ(Log_Initialize("quillan"), 0);
  }
  static std::string Errors() { return Read_Whole_File(sErrFile); }
  static I4 Lines_with(std::string_view sWords) {
    I4 N = 0;
    for (const std::string& sLine : Read_Lines(sErrFile)) N += sLine.find(sWords) != std::string::npos;
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
      {"  , a",             {"", "a"},               "so it does after blanks"                      },
      {"\t,a",              {"", "a"},               "and after a tab"                              },
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
      {"\"a ,b\" , c", {"a, b", "c"},    "a blank in front of a quoted comma moves after it"           },
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

// A quadratic walk takes hours: the test would not come to its end.
TEST(StrParseFld, AHugeRecordTakesLinearTime) {
  std::string sRecord = "\"";
  for (int i = 0; i < 1500000; ++i) sRecord += "   ,\t,";
  sRecord += "\" x";
  FieldList hField(10000);
  Str_Parse_Fld(sRecord, hField);
  EXPECT_EQ(hField.NFld(), 2);
  Str_Parse_Fld(std::string_view(sRecord).substr(1, sRecord.size() - 4), hField);
  EXPECT_EQ(hField.NFld(), 10000);
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
      {"a,,",               ",",  {"a", ","},         "also after a comma"                      },
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
  Str_to_Fld("a,b,c,d", ",", hField);
  EXPECT_EQ(All(hField), (Fields{"a", "b"}));
  EXPECT_EQ(Lines_with("WARNING: more than 2 columns in csv file."), 1);
  EXPECT_EQ(Lines_with("Extra columns will be dropped."), 1);
  Str_to_Fld("a,b", ",", hField);
  EXPECT_EQ(Lines_with("WARNING"), 1) << "as many as the list holds are not too many";
}

TEST(ColumnLabels, TheEarliestVariableChoosesItsColumn) {
  ColumnMap hColumn;
  const Labels CID{"STN", "TX.STN", "STN", "NONE"};
  EXPECT_EQ(Str_Column_Labels("Rx.Stn,Tx.Stn Stn other", false, false, CID, 9, hColumn), 0);
  EXPECT_EQ(hColumn.NFC, 4);
  EXPECT_EQ(hColumn.KCol, (std::vector<I4>{1, 2, 3, 0})) << "the first column that holds the text and is free";
  EXPECT_EQ(hColumn.JCol, (std::vector<I4>{1, 2, 3, 0, 0, 0, 0, 0, 0}));
  EXPECT_EQ(hColumn.sLabel, (Fields{"Rx.Stn", "Tx.Stn", "Stn", "other"})) << "labels keep their case";
  EXPECT_EQ(Str_Column_Labels("STN.X stn", false, true, Labels{"STN  "}, 9, hColumn), 0);
  EXPECT_EQ(hColumn.KCol, (std::vector<I4>{2})) << "an exact match compares whole labels";
}

TEST(ColumnLabels, AliasesAreWholeLabels) {
  const AliasRow CAlias[] = {
      {"E", "EASTING"  },
      {"N", "NORTHING" },
      {"Z", "ELEVATION"}
  };
  const Labels CID{"EASTING", "NORTHING", "ELEVATION"};
  ColumnMap hColumn;
  EXPECT_EQ(Str_Column_Labels_Alias_List("n,e,ez,Elevation,E", false, true, CAlias, CID, 9, hColumn), 0);
  EXPECT_EQ(hColumn.KCol, (std::vector<I4>{2, 1, 4}));
  EXPECT_EQ(hColumn.JCol[4], 0) << "a variable that has its column takes no other";
  EXPECT_EQ(hColumn.sLabel[0], "n");
}

TEST_F(StrParse, AtMostThreeMissingColumnsAreNamed) {
  const Labels CID{"A ", "B", "C", "D"};
  ColumnMap hColumn;
  EXPECT_EQ(Str_Column_Labels("x", true, true, CID, 9, hColumn), 1);
  EXPECT_NE(Errors().find("  ERROR: Could not find A column.\n"), std::string::npos);  // one blank from the file
  EXPECT_EQ(Lines_with("Could not find"), 3);
  EXPECT_EQ(Str_Column_Labels_Alias_List("d,b,c", true, true, {}, CID, 9, hColumn), 1);
  EXPECT_NE(Errors().find("\n ERROR: Could not find A column.\n"), std::string::npos);
  EXPECT_EQ(Str_Column_Labels("a,b,c,d", true, true, CID, 9, hColumn), 0);
  EXPECT_EQ(Lines_with("Could not find"), 4);
}

TEST_F(StrParse, TheUserIsAskedForColumnsUntilEveryRequiredOneIsThere) {
  UserNotebook hBook;
  const auto Match = [](std::string_view sRecord, ColumnMap& hColumn) {
    const I4 JCheck[] = {1};
    return Str_Column_Labels_Dialog("f.stn ", sRecord, true, {}, Labels{"A", "B"}, Labels{"first", "second"}, JCheck, 9,
                                    hColumn);
  };
  ColumnMap hColumn;
  EXPECT_EQ(Match("a,b", hColumn), 0);
  EXPECT_TRUE(hBook.sNote.empty()) << "a complete match asks nobody";
  hBook.KChoice = {
      {3, 2},
      {1, 2}
  };
  EXPECT_EQ(Match("x,b", hColumn), 0);
  EXPECT_EQ(hColumn.KCol, (std::vector<I4>{1, 2}));
  EXPECT_EQ(hBook.sNote, Fields(2, "f.stn: first second: REQUIRED Optional: x b none"));
  EXPECT_TRUE(Errors().ends_with(" ERROR: Missing required data-column labels\n A in\n x,b\n"));
  EXPECT_EQ(Match("x,b", hColumn), 2);
  EXPECT_EQ(hColumn.KCol, (std::vector<I4>{0, 2})) << "cancelled, the match is the automatic one";
}

TEST(Enumeration, AWordIsFoundWholeThenAsAPart) {
  const Labels CTable{"EAST", "NORTH", "SOUTH", "NORTH-SOUTH"};
  const struct {
    const char* sField;
    I4 iMeant, iExpected, IOERR;
    const char* sWhy;
  } hCase[] = {
      {" south ",            0,  3, 0,  "without regard to case and blanks"},
      {"north-south",        0,  4, 0,  "a whole word goes first"          },
      {"to the north-south", 0,  2, 0,  "of parts the first in the table"  },
      {"",                   0,  7, -1, "blank"                            },
      {"north*",             0,  7, -1, "a star anywhere is missing"       },
      {"up",                 0,  7, 2,  "the question is cancelled"        },
      {"up",                 1,  1, 0,  "the user's choice"                },
      {"up",                 -1, 7, 0,  "a choice that cannot be used"     },
      {"up",                 5,  7, 0,  "a choice that is not in the table"},
  };
  UserNotebook hBook;
  for (const auto& h : hCase) {
    hBook.iWord = h.iMeant;
    I4 iFound = 7;
    EXPECT_EQ(Str_to_iEnumeration(h.sField, "LINE.DIRECTION ", CTable, iFound), h.IOERR) << h.sWhy;
    EXPECT_EQ(iFound, h.iExpected) << h.sWhy;
  }
  const std::string sQuestion = "UP of LINE.DIRECTION: EAST NORTH SOUTH NORTH-SOUTH at NORTH-SOUTH";
  EXPECT_EQ(hBook.sNote, Fields(4, sQuestion)) << "the question begins within the table";
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
  EXPECT_EQ(Str_UpCase("aZ\xC3\xA9{1"), "AZ\xC3\xA9{1") << "ASCII letters alone";
  EXPECT_EQ(Str_Squish(" a\tb  c "), "abc");
}

}  // namespace
}  // namespace quillan
