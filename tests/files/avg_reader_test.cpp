#include "files/avg_reader.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <system_error>

#include "metadata/mdp_data.h"
#include "support/files.h"
#include "support/reports.h"
#include "support/survey_builder.h"

namespace quillan {
namespace {

constexpr const char* sHead = "$ Stn.KvrBeg= 0\n$ Stn.KvrInc= 1\n$ Stn.Beg= 0\n$ Stn.Inc= 1\n$ Tx.Freq= 16 hertz\n";
constexpr const char* sLabels = "TWin.Center, dBdt.Mag, dBdt.%Err, ARes.Mag, Rx.KvrStn\n";

/// Reads a file with these bytes as a fresh survey.
I4 Read(const std::string& sBytes) {
  Begin_Test();
  MDP_Initialize();
  MdTx.dKvrStn = MdTx.dStn = dDummy;
  MdRx.dUTMC.fill(dDummy);
  MdRx.fHPR.fill(fDummy);
  Write_File("data.avg", sBytes);
  return AVG_Read("data.avg");
}

I4 Read_Rows(const std::string& sRows) {
  return Read(std::string(sHead) + sLabels + sRows);
}

TEST(AvgReader, RowsMakeOneTransientWhileStationsStayAndTimesRise) {
  ASSERT_EQ(
      Read_Rows("1, 90, 0.5, 12, 7\n2, 40, 0.6, 11, 7\n1, 91, 0.5, 12, 7\n2, 41, 0.6, 11, 7\n3, 20, 0.7, 10, 8\n"), 0);
  ASSERT_EQ(NTrn, 3);
  EXPECT_EQ(hTrn(1).NTW, 2);
  EXPECT_EQ(hTrn(2).fuVmag(2), 41.0f);
  EXPECT_EQ(hTrn(3).dRxKvrStn, 8.0);
  EXPECT_EQ(hTrn(3).fTxFreq, 16.0f);
  EXPECT_EQ(hTrn(3).fRxArea, 10000.0f);
  EXPECT_EQ(hTrn(3).iRxCmp, iCmpHz);
}

TEST(AvgReader, RowsOfOneTimeStayInOneTransient) {
  ASSERT_EQ(Read_Rows("1, 90, 1, 1, 7\n2, 40, 1, 1, 7\n2, 41, 1, 1, 7\n"), 0);
  EXPECT_EQ(NTrn, 1);
  EXPECT_EQ(hTrn(1).fuVmag(3), 41.0f);
}

TEST(AvgReader, StationsWithinAHundredSpacingsAreOne) {
  ASSERT_EQ(Read_Rows("1, 9, 1, 1, 7\n2, 8, 1, 1, 7.00000000000001\n3, 7, 1, 1, 7.000000001\n"), 0);
  EXPECT_EQ(NTrn, 2);
}

TEST(AvgReader, BlankAndStarFieldsGetTheDefaultOfTheirColumn) {
  ASSERT_EQ(Read_Rows("1, *, *, *, 7\n2,  , , , 7\n"), 0);
  for (const I4 I : {1, 2}) {
    EXPECT_EQ(hTrn(1).fuVmag(I), 0.0f);
    EXPECT_EQ(hTrn(1).fuVpct(I), 0.0f);
    EXPECT_EQ(hTrn(1).fARes(I), 0.0f);
    EXPECT_EQ(hTrn(1).fuVerr(I), fDummy);  // no such column
  }
}

TEST(AvgReader, UnusableRowsAreDroppedAndNamedInTheErrorFile) {
  ASSERT_EQ(Read_Rows("1, 90, 1, 1, 7\n*, 50, 1, 1, 7\n2, 40, 1, 1, *\n3, x, 1, 1, 7\n"), 0);
  ASSERT_EQ(NTrn, 3);
  EXPECT_EQ(hTrn(2).dRxKvrStn, 0.0);   // a row without a station of its own stands at the one of the metadata
  EXPECT_EQ(hTrn(3).fuVmag(1), 0.0f);  // a bad number is a blank one
  const std::string sErrors = Read_Whole_File("test.err");
  EXPECT_NE(sErrors.find("AVG_Read_Data.ERROR: TWIN.Center < -1.0E32 on record 8"), std::string::npos);
  EXPECT_NE(sErrors.find("Dropping this data record."), std::string::npos);
  const std::string sLog = Read_Whole_File("test.log");
  EXPECT_NE(sLog.find("ERROR reading real*4 DBDT.MAG value from x"), std::string::npos);
}

TEST(AvgReader, RowsNeedLabelsAndAMetadataLineAheadOfThem) {
  EXPECT_EQ(Read("1, 90, 1, 1, 7\n" + std::string(sHead) + "1, 90, 1, 1, 7\n"), 1);
  EXPECT_EQ(Read("TWin.Center, dBdt.Mag, Tx.Freq, Rx.KvrStn\n1, 90, 4, 7\n"), 1);
  EXPECT_EQ(Read("$ no record at all\nTWin.Center, dBdt.Mag, Tx.Freq, Rx.KvrStn\n1, 90, 4, 7\n"), 0);
  EXPECT_EQ(NTrn, 1);
}

TEST(AvgReader, BadLabelLineEndsItsSectionAndAGoodOneClearsTheError) {
  ASSERT_EQ(Read_Rows("1, 90, 1, 1, 7\nStation Time\n2, 80, 1, 1, 7\n" + std::string(sLabels) + "3, 70, 1, 1, 7\n"), 0);
  EXPECT_EQ(hTrn(1).NTW, 2);
  EXPECT_EQ(Read_Rows("1, 90, 1, 1, 7\nnonsense\n"), 1);
  EXPECT_EQ(NTrn, 1);
}

TEST(AvgReader, LegacyHeaderIsReadByItsAliasesAndKeepsSkipFlags) {
  ASSERT_EQ(Read("$ TEM: Array=FXL\n$ TEM: RxArea=100\n"
                 "skp     Tx   Station  Freq Cmp Amps Win Time   Magnitude  RampAppRes    Depth    %Mag\n"
                 "\\-++-------++-------++----++-++----++-++-----++---------++---------++---------++-----+\n"
                 " 2 1 25 32 Hx 5.5 1 0.03 1.5E+2 40.1 88.2 0.5\n"
                 " 1 1 25 32 Hx 5.5 2 0.05 * * * 0.7\n"),
            0);
  EXPECT_EQ(Skipped(1), "-X");
  EXPECT_EQ(hTrn(1).iRxCmp, iCmpHx);
  EXPECT_EQ(hTrn(1).fTxAmp, 5.5f);
  EXPECT_EQ(hTrn(1).fRxArea, 100.0f);
  EXPECT_EQ(hTrn(1).fDepth(1), 88.2f);
  EXPECT_EQ(hTrn(1).dTxStn, 1.0);
}

TEST(AvgReader, UsersCommentsAndForeignLinesAreKeptOursAreNot) {
  ASSERT_EQ(Read_Rows("\\ QUILLAN wrote this\n! quillan is a bird\n/ |------|\n$ Narvo: Foo= 1\n$ TEM: Odd.Key= 2\n"
                      "$ Tx.Odd= TEM: 3\n$ Header.Type= 4\n1, 90, 1, 1, 7\n"),
            0);
  ASSERT_EQ(hAvgKept.NAvgCmt, 1);
  EXPECT_EQ(hAvgKept.sAvgCmt(1), "! quillan is a bird");
  ASSERT_EQ(hAvgKept.NAvgMde, 3);
  EXPECT_EQ(hAvgKept.sAvgMde(1), "$ Narvo: Foo= 1");
  EXPECT_EQ(hAvgKept.sAvgMde(2), "$      Odd.Key= 2") << "the mark of legacy files is left out";
  EXPECT_EQ(hAvgKept.sAvgMde(3), "$ Tx.Odd= TEM: 3");
}

TEST(AvgReader, UnknownComponentsAreBlankAndNamesAreFoundInAnyCase) {
  const std::string sCmp = std::string(sHead) + "TWin.Center, dBdt.Mag, Rx.Cmp, Rx.KvrStn\n";
  ASSERT_EQ(Read(sCmp + "1, 5, hy, 1\n1, 5, xx, 2\n1, 5, , 3\n"), 0);
  EXPECT_EQ(hTrn(1).iRxCmp, 5);
  EXPECT_EQ(hTrn(2).iRxCmp, 9);
  EXPECT_EQ(hTrn(3).iRxCmp, iCmpHz);
}

TEST(AvgReader, MoreThanTheStoreHoldsStopsTheReadAndMoreWindowsAreDropped) {
  std::string sRows;
  for (int I = 0; I < 70; ++I) sRows += std::to_string(I + 1) + ", 5, 1, 1, 0\n";
  for (int j = 1; j < 5000; ++j) sRows += "1, 5, 1, 1, " + std::to_string(j) + "\n";
  ASSERT_EQ(Read_Rows(sRows), 0);
  EXPECT_EQ(NTrn, MTrn);
  EXPECT_EQ(hTrn(1).NTW, MTW);
}

TEST(AvgReader, HostileBytesNeitherStopNorSpoilTheRest) {
  const std::string sGood = "3, 70, 1, 1, 7\n";
  const std::string hHostile[] = {std::string("1, 9\0, 1, 1, 7\n", 15),
                                  std::string(10'000'000, '9') + "\n",
                                  std::string(10'000, ',') + "\n",
                                  "1, " + std::string(400, '8') + ", 1, 1, 7\n",
                                  "1, nan, inf, -inf, 7\n",
                                  "\"1, 2\n",
                                  "1\n",
                                  "-\xff\xfe\n"};
  for (const std::string& s : hHostile) {
    ASSERT_EQ(Read_Rows(s + sGood), 0) << s.substr(0, 40);
    EXPECT_EQ(hTrn(NTrn).fuVmag(hTrn(NTrn).NTW), 70.0f) << s.substr(0, 40);
  }
}

TEST(AvgReader, MissingFileIsTheCallersToReportOthersSayWhyTheyCannotBeOpened) {
  Begin_Test();
  EXPECT_EQ(AVG_Read("no such file.avg"), 1);
  EXPECT_EQ(NTrn, 0);
  EXPECT_EQ(Read_Whole_File("test.err"), "");
  EXPECT_EQ(AVG_Read("."), 1);
  EXPECT_EQ(Shown(std::generic_category().message(EISDIR)), 1);
}

}  // namespace
}  // namespace quillan
