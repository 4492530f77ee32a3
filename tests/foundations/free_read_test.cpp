#include "foundations/free_read.h"

#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

namespace quillan {
namespace {

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
TEST(FreeRead, EveryTokenReadsAsAListDirectedRead) {
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

TEST(FreeRead, ATokenEndsWhereItsTextEnds) {
  const std::string_view sRecord = "12.53";
  R4 fValue = 0.0f;
  EXPECT_TRUE(Free_Read(sRecord.substr(0, 4), fValue));
  EXPECT_EQ(fValue, 12.5f) << "the characters after the view are another field's";
}

/// A number of few or many digits, its point anywhere, with an exponent or without.
std::string Random_Number(std::mt19937& hRandom) {
  std::string sText;
  for (auto K = hRandom() % 19 + 1; K > 0; --K) sText += static_cast<char>('0' + hRandom() % 10);
  if (hRandom() % 4 != 0) sText.insert(hRandom() % (sText.size() + 1), ".");
  if (hRandom() % 2 == 0) {
    constexpr const char* sExponent[] = {"E", "e", "E+", "E-", "E-0"};
    sText += sExponent[hRandom() % std::size(sExponent)] + std::to_string(hRandom() % 40);
  }
  return hRandom() % 3 == 0 ? "-" + sText : sText;
}

template <class Real>
void Expect_as_from_chars(const std::string& sText) {
  Real fRead{0}, fExpected{0};
  const auto hRead = std::from_chars(sText.data(), sText.data() + sText.size(), fExpected);
  const bool bNumber = hRead.ec == std::errc{};
  EXPECT_EQ(Read_Leading(sText, fRead), bNumber ? static_cast<std::size_t>(hRead.ptr - sText.data()) : 0) << sText;
  EXPECT_EQ(Written(fRead), Written(fExpected)) << sText;
}

TEST(FreeRead, NumbersAreTheNearestToTheLastBit) {
  std::mt19937 hRandom(1);
  for (I4 I = 0; I < 100000; ++I) {
    const std::string sText = Random_Number(hRandom);
    Expect_as_from_chars<R4>(sText);
    Expect_as_from_chars<R8>(sText);
  }
  // In the middle between two floats, or so near to it that an R8 does not tell.
  for (const char* const sText :
       {"16777217", "8388609.5", "5.61725883744657E-03", "-1.24034982919693", "16777217.000000001"})
    Expect_as_from_chars<R4>(sText);
  for (const char* const sText : {"", "-", ".", "-.", "-.E1", "1E", "1E+", "1e3x", "12.,", "1.2.3", "0", "-0.0", "-.5",
                                  "1E400", "1E-400", "1E00000000000000000003", "9007199254740993", "1E-22", "1E23"}) {
    Expect_as_from_chars<R4>(sText);
    Expect_as_from_chars<R8>(sText);
  }
}

TEST(FreeRead, WordsAndSignsThatNoFileHasBeginNoNumber) {
  R8 dRead = 7.0;
  for (const char* const sText : {"+1", " 1", "*", "inf", "-nan", ",1"}) EXPECT_EQ(Read_Leading(sText, dRead), 0U);
  EXPECT_EQ(dRead, 7.0);
}

}  // namespace
}  // namespace quillan
