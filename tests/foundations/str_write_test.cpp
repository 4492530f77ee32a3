#include "foundations/str_write.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <fstream>
#include <limits>
#include <sstream>
#include <string>

namespace quillan {
namespace {

std::string Formed(R8 dValue, const EditForm& form) {
  std::array<char, MFormText> sOut;
  return std::string(Write_Form(dValue, form, sOut.data()));
}

std::string Formed(R4 fValue, const EditForm& form) {
  std::array<char, MFormText> sOut;
  return std::string(Write_Form(fValue, form, sOut.data()));
}

/// A row of forms.txt, such as: 1P,G14.4 r4 461C3E00 "    9.9995E+03"
struct FormRow {
  std::string sForm, sKind, sText;
  unsigned long long iBits = 0;
};

bool Next_Row(std::istream& in, FormRow& hRow) {
  std::string sQuoted;
  if (!(in >> hRow.sForm >> hRow.sKind >> std::hex >> hRow.iBits) || !std::getline(in, sQuoted)) return false;
  hRow.sText = sQuoted.substr(2, sQuoted.size() - 3);
  if (hRow.sText.find('*') != std::string::npos) hRow.sText.clear();
  return true;
}

// forms.txt is what a Fortran program prints for hard values (forms.f90 makes it): the readers downstream of our files
// were written against such programs.
TEST(StrWrite, EveryFormGivesTheCharactersOfAFortranWrite) {
  std::ifstream in(QUILLAN_SOURCE_DIR "/tests/foundations/forms.txt");
  FormRow hRow;
  I4 NRow = 0;
  for (; Next_Row(in, hRow); ++NRow) {
    const EditForm form{std::string_view(hRow.sForm)};
    const std::string sText = hRow.sKind == "r4"
                                  ? Formed(std::bit_cast<R4>(static_cast<std::uint32_t>(hRow.iBits)), form)
                                  : Formed(std::bit_cast<R8>(std::uint64_t{hRow.iBits}), form);
    EXPECT_EQ(sText, hRow.sText) << hRow.sForm << ' ' << hRow.sKind << ' ' << std::hex << hRow.iBits;
  }
  EXPECT_GT(NRow, 500);
}

TEST(StrWrite, WhatNoFormCanShowGivesNoText) {
  constexpr R8 dInfinity = std::numeric_limits<R8>::infinity();
  for (const char* sForm : {"(F0.3)", "(F12.3)", "ES12.4", "1P,G14.4"}) {
    EXPECT_EQ(Formed(dInfinity, sForm), "") << sForm;
    EXPECT_EQ(Formed(std::numeric_limits<R4>::quiet_NaN(), sForm), "") << sForm;
  }
  for (const char* sForm : {"", "F12", "(I5)", "F600.3", "F0.600", "ES12.600", "ES600.4", "ES12.4E600", "ES0.4",
                            "1P,G0.4", "1P,G600.4", "1P,G14.600"})
    EXPECT_EQ(Formed(-1.0E300, sForm), "") << sForm;
  EXPECT_EQ(Formed(1.0E300, "F0.100").size(), 402U);
}

TEST(StrWrite, TidyNumbersStartWithADigitAndEndWithoutZeros) {
  const struct {
    R8 dValue;
    const char* sForm;
    std::string_view sText;
  } hCase[] = {
      {0.5,                                  "(F0.3)",       "0.5"           },
      {-0.5,                                 "(F0.3)",       "-0.5"          },
      {0.0,                                  "(F0.3)",       "0"             },
      {-0.0001,                              "(F0.3)",       "-0"            },
      {-0.0,                                 "(F12.3)",      "-0"            },
      {1000.0,                               "(F0.1)",       "1000"          },
      {12.5,                                 "(F12.3)",      "12.5"          },
      {99999.95,                             "(F6.1)",       "*"             },
      {123456789012345.0,                    "(F0.1)",       "*"             }, // one character more than a field holds
      {12345678901234.0,                     "(F0.1)",       "12345678901234"},
      {0.5,                                  "(F20.3)",      "*"             },
      {100.0,                                "(1P,G14.4E1)", "100"           },
      {0.25,                                 "(1P,G14.4E1)", "0.25"          },
      {123456.0,                             "(1P,G14.4)",   "1.2346E+05"    },
      {1.0E10,                               "(1P,G11.4E1)", "*"             },
      {1.0E-100,                             "(1P,G14.4)",   "1.0000-100"    }, // these zeros belong to the number
      {1.0E100,                              "(ES14.5)",     "1.00000+100"   },
      {-1.0E32,                              "(F0.3)",       "*"             },
      {-9.9E31,                              "(ES9.1)",      "*"             },
      {-9.8E31,                              "(ES9.1)",      "-9.8E+31"      },
      {std::numeric_limits<R8>::quiet_NaN(), "(F0.3)",       "*"             },
      {std::numeric_limits<R8>::infinity(),  "(F0.3)",       "*"             },
  };
  for (const auto& h : hCase) EXPECT_EQ(Str_Write_R8(h.dValue, h.sForm).trimmed(), h.sText) << h.dValue << h.sForm;
  EXPECT_EQ(Str_Write_R4(0.1f, "(F12.3)").trimmed(), "0.1");
  EXPECT_EQ(Str_Write_R4(0.1f, "(F0.9)").trimmed(), "0.100000001") << "the digits are those of the 32-bit value";
  EXPECT_EQ(Str_Write_R4(fDummyLimit, "(F12.3)").trimmed(), "*");
}

TEST(StrWrite, IntegersHaveTheLeastWidthOrTwoPlaces) {
  EXPECT_EQ(Str_Write_I4(-2147483645).trimmed(), "-2147483645");
  EXPECT_EQ(Str_Write_I4(-2147483646).trimmed(), "*");
  const std::pair<I4, std::string_view> hCase[] = {
      {0,   "00" },
      {5,   "05" },
      {10,  "10" },
      {100, "100"},
      {-9,  "-9" },
      {-10, "-10"}
  };
  for (const auto& [iValue, sText] : hCase) EXPECT_EQ(Str_Write_I4F22(iValue).trimmed(), sText);
}

TEST(StrWrite, CoordinatesLoseDigitsAsTheyGrow) {
  const std::pair<R8, std::string_view> hCase[] = {
      {-1.0E32,                             "*"            },
      {0.0,                                 "0"            },
      {-1234.5678,                          "-1234.568"    },
      {99999999.0,                          "99999999"     },
      {1.0E8,                               "1.0000000E+08"},
      {999999986991103.0,                   "9.9999999E+14"},
      {999999986991104.0,                   "1.0E+15"      },
      {2.5E99,                              "2.5E+99"      },
      {std::numeric_limits<R8>::infinity(), "*"            },
  };
  for (const auto& [dValue, sText] : hCase) EXPECT_EQ(Str_Write_XYZR8(dValue).trimmed(), sText);
}

TEST(StrWrite, BearingsAreCardinalJustAboveAQuarter) {
  const std::pair<R4, std::string_view> hCase[] = {
      {0.0f,                                "N"   },
      {0.4f,                                "N"   },
      {0.5f,                                "N1E" },
      {45.0f,                               "N45E"},
      {89.8f,                               "N90E"},
      {90.2f,                               "E"   },
      {135.0f,                              "S45E"},
      {180.0f,                              "S"   },
      {225.4f,                              "S45W"},
      {270.0f,                              "W"   },
      {315.0f,                              "N45W"},
      {359.9f,                              "N0W" },
      {360.0f,                              "0"   },
      {405.0f,                              "45"  },
      {-45.0f,                              "315" },
      {fDummy,                              "*"   },
      {-400.0f,                             "-40" },
      {std::numeric_limits<R4>::infinity(), "*"   },
  };
  for (const auto& [fAzimuth, sText] : hCase) EXPECT_EQ(Str_Write_Brg(fAzimuth).trimmed(), sText) << fAzimuth;
}

TEST(StrWrite, StationDecimalsIgnoreTheThird) {
  const std::pair<R8, I4> hCase[] = {
      {100.0,   1},
      {100.5,   2},
      {100.25,  3},
      {100.05,  3},
      {100.004, 1},
      {1.0E20,  3}
  };
  for (const auto& [dValue, NDecimal] : hCase) EXPECT_EQ(NReqDecR8(dValue), NDecimal) << dValue;
}

}  // namespace
}  // namespace quillan
