// Rows that are read where they stand against the same rows cut into fields.
#include <gtest/gtest.h>

#include "files/avg_reader.h"
#include "metadata/mdp_data.h"
#include "support/files.h"
#include "support/survey_builder.h"

namespace quillan {
namespace {

/// Reads labels and rows below a metadata line; gives the transient that they make, if they make one.
Transient Read_Rows(const std::string& sText) {
  Begin_Test();
  MDP_Initialize();
  Write_File("row.avg", "$ Tx.Freq= 16 hertz\n$ Rx.KvrStn= 7\n" + sText + "\n");
  const I4 iError = AVG_Read("row.avg");
  return iError == 0 && NTrn == 1 ? hTrn(1) : Transient();
}

Transient Read_Row(const std::string& sLabels, const std::string& sRow) {
  return Read_Rows(sLabels + "\n" + sRow);
}

constexpr const char* sValueLabels = "TWin.Center, dBdt.Mag, dBdt.%Err, ARes.Mag";

TEST(AvgRow, EverySpellingReadsAsItDoesAmongFields) {
  struct Case {
    const char* sValues;  // what stands after the index
    R4 fuVmag, fARes;     // fDummy: the row is dropped
  };
  for (const Case& h : {
           Case{"1.5, -2.5E-3, .5, 10",                                -2.5E-3f, 10.0f  },
           Case{"1.5 -2.5E-3 .5 10",                                   -2.5E-3f, 10.0f  },
           Case{"1.5 , 2. ,3,  4, 5, six,",                            2.0f,     4.0f   },
           Case{"1.5, *, *, *",                                        0.0f,     0.0f   },
           Case{"*, 2, 3, 4",                                          fDummy,   fDummy },
           Case{"1.5, 2",                                              2.0f,     0.0f   },
           Case{"1.5,,3,4",                                            0.0f,     4.0f   },
           Case{",1.5, 2, 3, 4",                                       fDummy,   fDummy },
           Case{"1.5, 12.5m, 1/2, 8/",                                 0.0f,     8.0f   },
           Case{"1.5, nan, -inf, infinity",                            0.0f,     0.0f   },
           Case{"1.5, +2, 1D3, 12+2",                                  2.0f,     1200.0f},
           Case{"1.5, -1E-60, 0x1, 1E60",                              -0.0f,    0.0f   },
           Case{"1.5, 2.00000000000000000000000000000001234567, 3, 4", 2.0f,     4.0f   },
           Case{"1.5, \"2\", 3, \"4\"",                                2.0f,     4.0f   },
           Case{"1.5,\t2,\t3\t,\t4",                                   2.0f,     4.0f   },
           Case{"1.5, 2*3, -, 4*",                                     0.0f,     0.0f   },
  }) {
    const Transient hPlain = Read_Row(std::string("TWin.Index, ") + sValueLabels, std::string("1, ") + h.sValues);
    EXPECT_EQ(hPlain.fuVmag(1), h.fuVmag) << h.sValues;
    EXPECT_EQ(hPlain.fARes(1), h.fARes) << h.sValues;
    // Quotes are cut off field by field.
    const Transient hCut =
        Read_Row(std::string("TWin.Index, Remark, ") + sValueLabels, std::string("1, \"a b\", ") + h.sValues);
    EXPECT_EQ(hCut.fTWCen(1), hPlain.fTWCen(1)) << h.sValues;
    EXPECT_EQ(hCut.fuVmag(1), hPlain.fuVmag(1)) << h.sValues;
    EXPECT_EQ(hCut.fuVpct(1), hPlain.fuVpct(1)) << h.sValues;
    EXPECT_EQ(hCut.fARes(1), hPlain.fARes(1)) << h.sValues;
  }
}

TEST(AvgRow, LabelsThatChangeWithinAFileChangeTheColumns) {
  const std::string sFirst = "TWin.Center, dBdt.Mag, ARes.Mag\n";
  const Transient h = Read_Rows(sFirst + "1, 20, 300\n" + sFirst + "2, 21, 301\n" +
                                "ARes.Mag, dBdt.Mag, TWin.Center\n302, 22, 3\n" + sFirst + "4, 23, 303");
  ASSERT_EQ(h.NTW, 4);
  for (I4 I = 1; I <= 4; ++I) {
    EXPECT_EQ(h.fTWCen(I), static_cast<R4>(I));
    EXPECT_EQ(h.fuVmag(I), static_cast<R4>(19 + I));
    EXPECT_EQ(h.fARes(I), static_cast<R4>(299 + I));
  }
}

}  // namespace
}  // namespace quillan
