#include "metadata/metadata_fixture.h"

namespace quillan {
namespace {

class TxMd : public Metadata {};

TEST_F(TxMd, OneLengthMakesASquareInTheUnitOfTheRecord) {
  Expect({
      {"$ Tx.Length= 50, 100", MdTx.fLength, "50 100"},
      {"$ Tx.Length= 200 ft", MdTx.fLength, "60.96 60.96"},
      {"$ Tx.Length= 100, 10, ft", MdTx.fLength, "30.48 3.048"},
      {"$ Tx.LengthY= 20", MdTx.fLength, "30.48 20"},
      {"$ TXDX= 0", MdTx.fLength, "0.01 20", "TXDX = 0.0000E+00 < 1.0000E-02 or > 9.9000E+09 m"}, // the file's name
      {"$ Tx.Length= 40", MdTx.fLength, "40 40"},
      {"$ Tx.LengthY= 10", MdTx.fLength, "40 40", "", 0, iPriorityMde}, // the one length guards both sides
      {"$ Unit.Length= ft", MdTx.fLength, "40 40"},
      {"$ Tx.Length= 100", MdTx.fLength, "30.48 30.48"},
  });
}

TEST_F(TxMd, AVertexIsReplacedAsAWholeAndTheLastOneCounts) {
  Expect({
      {"$ Tx.XYZ3= 1, 2, 3", MdTx.NXYZN, "3"},
      {"$ TX1= 10:20", MdTx.NXYZN, "1"},
      {"", MdTx.dXYZN.hColumn(1), "10 20 0"},
      {"$ Tx.Point3= 4", MdTx.dXYZN.hColumn(3), "4 0 0"},
      {"", MdTx.dXYZN.hColumn(2), "-1e+32 -1e+32 0"},
      {"$ Tx.UTM0= 5, *, 7", MdTx.dUTMN.hColumn(0), "5 0 7", "", -1},
      {"", MdTx.NUTMN, "0"},
      {"$ Tx.XYZ3= 9, 9, 9", MdTx.dXYZN(1, 3), "4", "", 0, iPriorityMde},
      {"$ Tx.Point4= 1.0E10", MdTx.dXYZN(1, 4), "9.9e+09"}, // a point is held to the range of a station
      {"$ Tx.XYZ4= 1.0E10", MdTx.dXYZN(1, 4), "1e+10"}, // a vertex is not
  });
}

TEST_F(TxMd, ACoordinateOfJustTheAllowedSizeIsTaken) {
  Expect({
      {"$ Tx.XYZ1= 9.9E30, -9.9E30, 1", MdTx.dXYZN.hColumn(1), "9.9e+30 -9.9e+30 1"},
      {"$ Tx.Center= 9.9E9, -9.9E9, 1", MdTx.dUTMC,            "9.9e+09 -9.9e+09 1"},
  });
  EXPECT_EQ(Reported("WARNING"), 0);
}

TEST_F(TxMd, AVertexWithoutAGoodIndexIsReportedAndDropped) {
  Expect({
      {"$ Tx.XYZ33= 1,2,3", MdTx.NXYZN, "0", "Index = 33 < 0 or > 32", 1},
      {"$ Tx.UTM= 1,2,3", MdTx.dUTMN(1, 1), "-1e+32", "Tx_MD_READ.WARNING: unable to read index value from", -1},
  });
}

TEST_F(TxMd, CornersGiveCentreSideAndAzimuth) {
  for (const std::string_view s : {"$ Tx.UTM1= 100, 200, 10", "$ Tx.UTM2= 200, 300, 20", "$ Tx.UTM3= 0, 400, 0"}) {
    EXPECT_EQ(Take(s), 0) << s;
  }
  EXPECT_EQ(Tx_MD_UTMN_to_UTMC(MdTx), 0);
  EXPECT_EQ(Text_of(MdTx.dUTMC), "100 300 10");
  EXPECT_EQ(Text_of(MdTx.fLength), "141.421 141.421");
  EXPECT_NEAR(MdTx.fAzm, 45.0f, 1.0E-4f);
  EXPECT_EQ(MdTx.fHPR(1), MdTx.fAzm);
  EXPECT_EQ(MdTx.lUTMC, iPriorityData);
  EXPECT_EQ(MdTx.lLength(2), iPriorityData);
}

TEST_F(TxMd, CornersThatSayTooLittleLeaveTheCentreAlone) {
  EXPECT_EQ(Take("$ Tx.Center= 1, 2, 3"), 0);
  EXPECT_EQ(Take("$ Tx.UTM1= 100, 200"), 0);
  EXPECT_EQ(Tx_MD_UTMN_to_UTMC(MdTx), 0) << "one corner";
  EXPECT_EQ(Take("$ Tx.UTM3= 100, 200"), 0);
  EXPECT_EQ(Tx_MD_UTMN_to_UTMC(MdTx), 1) << "corner 2 is not known";
  EXPECT_EQ(MdTx.dUTMC(1), 1.0);

  EXPECT_EQ(Take("$ Tx.UTM2= 100.005, 200"), 0);
  EXPECT_EQ(Tx_MD_UTMN_to_UTMC(MdTx), 0);
  EXPECT_NEAR(MdTx.dUTMC(1), 100.0025, 1.0E-9) << "two corners on one point still have a mean";
  EXPECT_EQ(MdTx.fLength(1), 100.0f);
  EXPECT_EQ(MdTx.fAzm, 90.0f);

  EXPECT_EQ(Take("$ Tx.UTM2= 9.0E29, 200"), 0);
  EXPECT_EQ(Tx_MD_UTMN_to_UTMC(MdTx), 0);
  EXPECT_EQ(MdTx.fLength(1), 100.0f) << "a side whose square is no number";
}

}  // namespace
}  // namespace quillan
