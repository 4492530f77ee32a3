// Pictures in files: metafiles record by record, PNG, and what becomes of the screen and of earlier files.
#include <gtest/gtest.h>

#include <sys/resource.h>

#include <QImage>
#include <QWidget>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <numeric>

#include "foundations/user.h"
#include "support/files.h"
#include "support/played_session.h"
#include "toolkit/draw/hardcopy.h"
#include "toolkit/draw/private_draw.h"
#include "toolkit/window/private_window.h"

namespace quillan {
namespace {

using namespace toolkit;
namespace fs = std::filesystem;

using Words = std::vector<I4>;  // as signed numbers of 16 bits

struct Record {
  I4 iFunction;
  Words hParameter;
};

constexpr I4 iMoveTo = 0x0214, iLineTo = 0x0213, iTextAlign = 0x012E, iEllipse = 0x0418, iTextOut = 0x0521,
             iCreatePen = 0x02FA, iCreateFont = 0x02FB, iCreateBrush = 0x02FC, iSelect = 0x012D;
constexpr std::size_t NPlaceable = 11, NHeader = 9;  // words

Words Words_of(const std::string& sBytes) {
  Words hWord;
  for (std::size_t I = 0; I + 1 < sBytes.size(); I += 2) {
    const unsigned iLow = static_cast<unsigned char>(sBytes[I]), iHigh = static_cast<unsigned char>(sBytes[I + 1]);
    hWord.push_back(static_cast<std::int16_t>(iLow | (iHigh << 8)));
  }
  return hWord;
}

std::size_t Long(const Words& h, std::size_t I) {
  return static_cast<std::size_t>(h[I] & 0xFFFF) | (static_cast<std::size_t>(h[I + 1] & 0xFFFF) << 16);
}

/// All records of a metafile; the walk must end at its last word.
std::vector<Record> Records(const Words& hFile) {
  std::vector<Record> hAll;
  std::size_t I = NPlaceable + NHeader;
  while (I + 3 <= hFile.size()) {
    const std::size_t NRecord = Long(hFile, I);
    if (NRecord < 3 || I + NRecord > hFile.size()) break;
    const auto iFirst = hFile.begin() + static_cast<std::ptrdiff_t>(I);
    hAll.push_back({hFile[I + 2], Words(iFirst + 3, iFirst + static_cast<std::ptrdiff_t>(NRecord))});
    I += NRecord;
  }
  EXPECT_EQ(I, hFile.size()) << "the records fill the file";
  return hAll;
}

class Hardcopy : public testing::Test {
 protected:
  void SetUp() override {
    Open_Window(900, 600);
    IGrUnits(0.0f, 0.0f, 10.0f, 10.0f);
  }
  void TearDown() override { WindowClose(); }

  /// Draws into a file; the units of a metafile are centimetres: 24 by 17.8.
  static HardCopyStatus Drawn(HardCopyDriver iDriver, const std::string& sPath, const std::function<void()>& draw) {
    IGrHardCopySelect(iDriver);
    const bool bPng = iDriver == HardCopyDriver::Png;
    IGrHardCopySize(bPng ? 3780 : 2880, bPng ? 2803 : 2136);
    IGrHardCopy(sPath);
    IGrArea(0.0f, 0.0f, 1.0f, 1.0f);
    IGrUnits(0.0f, 0.0f, 24.0f, 17.8f);
    IGrColour("BLACK");
    draw();
    return IGrHardCopyEnd();
  }
  static Words Metafile_of(const std::function<void()>& draw) {
    EXPECT_EQ(Drawn(HardCopyDriver::Metafile, "a.wmf", draw).iError, 0);
    return Words_of(Read_Whole_File("a.wmf"));
  }
  static std::vector<Words> Of_Kind(I4 iFunction, const std::function<void()>& draw) {
    std::vector<Words> hFound;
    for (const Record& h : Records(Metafile_of(draw)))
      if (h.iFunction == iFunction) hFound.push_back(h.hParameter);
    return hFound;
  }
};

void Small_Plot() {
  WindowClear();
  WGrTextFont(0.00872f, 0.0264f);
  IGrRectangle(3.0f, 2.0f, 22.0f, 16.0f);
  for (I4 I = 0; I < 40; ++I) {
    const R4 fX = 3.5f + 0.45f * static_cast<R4>(I);
    const R4 fY = 9.0f + 5.0f * std::sin(0.2f * static_cast<R4>(I));
    if (I == 0) IGrMoveTo(fX, fY);
    IGrLineTo(fX, fY);
    IGrColourN(I % 4 == 0 ? 200 + 256 * 200 + 65536 * 200 : 0);
    IGrMarker(fX, fY, iMarkerDisc);
    IGrColour("BLACK");
  }
  WGrTextOrientation(Justify::Centre, 0.0f);
  WGrTextString(12.5f, 17.0f, "Loop Line 12, Tx.Freq=32");
  WGrTextOrientation(Justify::Left, -90.0f);
  WGrTextString(5.0f, 16.2f, "12500.0");
}

TEST_F(Hardcopy, HeadersOfAMetafileAgreeWithItsRecords) {
  const Words hFile = Metafile_of(Small_Plot);
  EXPECT_EQ(Long(hFile, 0), 0x9AC6CDD7u);
  EXPECT_EQ(Words(hFile.begin() + 3, hFile.begin() + 8), (Words{0, 0, 2880, 2136, 305})) << "box, and units an inch";
  const I4 iSum = std::accumulate(hFile.begin(), hFile.begin() + 11, 0, std::bit_xor<>());
  EXPECT_EQ(iSum & 0xFFFF, 0) << "checksum";

  const std::vector<Record> hAll = Records(hFile);
  std::size_t NLargest = 0;
  I4 NObject = 0;
  for (const Record& h : hAll) {
    NLargest = std::max(NLargest, h.hParameter.size() + 3);
    if (h.iFunction == iCreatePen || h.iFunction == iCreateFont || h.iFunction == iCreateBrush) ++NObject;
    EXPECT_FALSE(h.iFunction == iSelect && h.hParameter[0] >= NObject) << "what is selected is there";
  }
  const Words hHeader(hFile.begin() + NPlaceable, hFile.begin() + NPlaceable + NHeader);
  EXPECT_EQ(hHeader[0], 1);
  EXPECT_EQ(hHeader[1], 9) << "words of the header";
  EXPECT_EQ(hHeader[2], 0x0300);
  EXPECT_EQ(Long(hHeader, 3), hFile.size() - NPlaceable);
  EXPECT_EQ(hHeader[5], NObject);
  EXPECT_EQ(Long(hHeader, 6), NLargest);
  EXPECT_EQ(hAll.back().iFunction, 0) << "the end";
}

TEST_F(Hardcopy, LinesAreMovesAndLinesWhichNoReaderFills) {
  std::string sAll;
  const Words hFile = Metafile_of([] {
    IGrMoveTo(0.0f, 0.0f);
    IGrLineTo(1.0f, 1.0f);
    IGrSegment(1.0f, 1.0f, 2.0f, 17.8f);
    IGrSegment(5.0f, 5.0f, 6.0f, 5.0f);
    IGrSegment(23.0f, 8.9f, 1.0e30f, 8.9f);
    IGrSegment(-5.0f, -5.0f, 30.0f, -1.0f);
  });
  for (const Record& h : Records(hFile)) {
    if (h.iFunction != iMoveTo && h.iFunction != iLineTo) continue;
    sAll += h.iFunction == iMoveTo ? " M " : " L ";
    sAll += std::to_string(h.hParameter[1]) + "," + std::to_string(h.hParameter[0]);
  }
  EXPECT_EQ(sAll, " M 0,2136 L 120,2016 L 240,0 M 600,1536 L 720,1536 M 2760,1068 L 2880,1068")
      << "the last is cut at the edge of the picture";
}

TEST_F(Hardcopy, PensHaveTheirColourAndOnePixelIsAnInchBy96) {
  const auto hPen = Of_Kind(iCreatePen, [] {
    IGrSegment(1.0f, 1.0f, 2.0f, 2.0f);
    IGrColourN(0x00112233);
    IGrLineWidth(2.0f);
    IGrSegment(1.0f, 1.0f, 2.0f, 2.0f);
    IGrColour("BLACK");
    IGrLineWidth(1.0f);
    IGrSegment(1.0f, 1.0f, 2.0f, 2.0f);
  });
  ASSERT_EQ(hPen.size(), 2u) << "a pen is made once";
  EXPECT_EQ(hPen[0], (Words{0, 3, 0, 0, 0}));
  EXPECT_EQ(hPen[1], (Words{0, 6, 0, 0x2233, 0x11}));
  const auto hDash = Of_Kind(iMoveTo, [] {
    IGrLineType(LineType::Dashed);
    IGrSegment(2.0f, 5.0f, 12.0f, 5.0f);
  });
  EXPECT_NEAR(static_cast<R8>(hDash.size()), 1200.0 / (9.0 * 3.175), 1.0) << "a dash of 5 and a gap of 4 pixels";
}

TEST_F(Hardcopy, MarkersAreEllipsesAndThoseOutsideAreLeftOut) {
  const auto hDisc = Of_Kind(iEllipse, [] {
    WGrTextFont(0.02f, 0.1f);  // 213.6 units
    IGrClip(2.0f, 2.0f, 20.0f, 15.0f);
    IGrMarker(10.0f, 7.8f, iMarkerDisc);
    IGrMarker(2.0f, 2.0f, iMarkerDisc);
    IGrMarker(1.9f, 5.0f, iMarkerDisc);
    IGrMarker(5.0f, 1.0e30f, iMarkerDisc);
  });
  ASSERT_EQ(hDisc.size(), 2u);
  const Words& h = hDisc[0];  // lower, right, upper, left
  EXPECT_NEAR(0.5 * (h[3] + h[1]), 1200.0, 1.0);
  EXPECT_NEAR(0.5 * (h[2] + h[0]), 1200.0, 1.0);
  EXPECT_EQ(h[1] - h[3], 107);
  EXPECT_EQ(h[0] - h[2], 107);
}

TEST_F(Hardcopy, TextStandsByItsOwnAlignmentAndIsTurned) {
  const auto draw = [] {
    WGrTextFont(0.02f, 0.1f);
    WGrTextOrientation(Justify::Right, -90.0f);
    WGrTextString(12.0f, 8.9f, "Caf\xC3\xA9");
    WGrTextOrientation(Justify::Centre, 0.0f);
    WGrTextString(12.0f, 8.9f, "a");
    WGrTextString(12.0f, 8.9f, "a");
    WGrTextOrientation(Justify::Left, 0.0f);
    WGrTextString(12.0f, 8.9f, "a");
  };
  const auto hText = Of_Kind(iTextOut, draw);
  ASSERT_EQ(hText.size(), 4u);
  const Words& h = hText[0];  // characters, two a word; lower and right
  EXPECT_EQ(Words(h.begin(), h.begin() + 3), (Words{4, 'C' | 'a' << 8, static_cast<std::int16_t>('f' | 0xE9 << 8)}));
  EXPECT_EQ(h[3], 1068) << "it ends at its place, upward";
  EXPECT_NEAR(h[4], 1440.0 + 0.35 * 213.6, 12.0) << "the baseline is to the right of the middle";
  EXPECT_EQ(hText[1][3], 1440) << "a reader with other letters centres it there";
  EXPECT_EQ(Of_Kind(iTextAlign, draw), (std::vector<Words>{{26}, {30}, {24}}))
      << "right, centred, left, on the baseline";
  const Words hFont = Of_Kind(iCreateFont, draw).at(0);
  EXPECT_EQ(hFont[0], -214);
  EXPECT_EQ(hFont[2], 900) << "tenths of degrees, anticlockwise";
}

TEST_F(Hardcopy, TextHasTheSameWidthOnTheScreenAndInFiles) {
  const auto fPart = [](R4 fUnits) {
    WGrTextFont(0.02f, 0.04f);
    return WGrTextLength("Line 12, Station 1250.0") / fUnits;
  };
  IGrUnits(0.0f, 0.0f, 24.0f, 16.0f);
  const R4 fScreen = fPart(24.0f);
  for (const HardCopyDriver iDriver : {HardCopyDriver::Png, HardCopyDriver::Metafile})
    (void)Drawn(iDriver, "a.out", [&] { EXPECT_NEAR(fPart(24.0f), fScreen, 1e-4f); });
  WGrTextFont(0.001f, 0.001f);
  const R4 fSmallest = InfoGraphics(iCharHeight) / 16.0f;
  (void)Drawn(HardCopyDriver::Png, "a.out", [&] {
    WGrTextFont(0.001f, 0.001f);
    EXPECT_NEAR(InfoGraphics(iCharHeight) / 17.8f, fSmallest, 1e-4f) << "what is enlarged on the screen is so in a PNG";
  });
  (void)Drawn(HardCopyDriver::Metafile, "a.out", [&] {
    WGrTextFont(0.001f, 0.001f);
    EXPECT_NEAR(InfoGraphics(iCharHeight), 0.0178f, 1e-4f) << "on paper letters may be small";
  });
}

TEST_F(Hardcopy, LibwmfReadsAMetafile) {
  if (std::system("command -v wmf2svg > /dev/null") != 0) GTEST_SKIP() << "wmf2svg is not installed";
  Metafile_of(Small_Plot);
  ASSERT_EQ(std::system("wmf2svg a.wmf > a.svg 2> complaints.txt"), 0);
  EXPECT_EQ(Read_Whole_File("complaints.txt"), "");
  const std::string sSvg = Read_Whole_File("a.svg");
  for (const char* sWanted : {">Loop Line 12, Tx.Freq=32<", ">12500.0<", "<ellipse", "fill:black"})
    EXPECT_NE(sSvg.find(sWanted), std::string::npos) << sWanted;
}

TEST_F(Hardcopy, PngIsAPictureOf400DotsAnInch) {
  const HardCopyStatus hStatus = Drawn(HardCopyDriver::Png, "a.png", [] {
    WindowClear();
    IGrSegment(6.0f, 8.9f, 18.0f, 8.9f);
    IGrPlotMode1("E");
    IGrRectangle(2.0f, 2.0f, 22.0f, 16.0f);
  });
  ASSERT_EQ(hStatus.iError, 0);
  const QImage hImage("a.png");
  EXPECT_EQ(hImage.size(), QSize(3780, 2803));
  EXPECT_EQ(hImage.dotsPerMeterX(), 15748);
  EXPECT_EQ(hImage.dotsPerMeterY(), 15748);
  I4 NDark = 0, NOther = 0;
  for (int iRow = 0; iRow < hImage.height(); ++iRow) {
    if (hImage.pixel(1890, iRow) == 0xFF000000) ++NDark;
    if (hImage.pixel(1890, iRow) != 0xFFFFFFFF && std::abs(iRow - 1401) > 3) ++NOther;
  }
  EXPECT_EQ(NDark, 4) << "a line of one pixel is 1/96 inch wide";
  EXPECT_EQ(NOther, 0) << "a rubber band never reaches a file";
}

TEST_F(Hardcopy, TheScreenAndItsStateStayAsTheyAre) {
  const auto draw = [] {
    IGrColour("RED");
    IGrSegment(1.0f, 1.0f, 9.0f, 8.0f);
    IGrSegment(1.0f, 1.0f, 9.0f, 3.0f);
  };
  IGrSegment(1.0f, 1.0f, 9.0f, 3.0f);  // not yet flushed when the file is opened
  const QImage hBefore = Backing_Image().copy();
  for (const HardCopyDriver iDriver : {HardCopyDriver::Png, HardCopyDriver::Metafile}) {
    const HardCopyStatus hStatus = Drawn(iDriver, "a.out", [&] {
      Small_Plot();
      IGrClip(1.0f, 1.0f, 2.0f, 2.0f);
      draw();
      EXPECT_EQ(WInfoGrReal(iUnitYMax), 17.8f);
    });
    EXPECT_EQ(hStatus.iError, 0);
    EXPECT_EQ(Backing_Image(), hBefore);
    EXPECT_EQ(WInfoGrReal(iUnitYMax), 10.0f);
  }
  draw();
  EXPECT_NE(Backing_Image(), hBefore);
}

/// Step and reason.
std::string Words_of(const HardCopyStatus& h) {
  return h.iError == 0 ? "done" : std::string(h.sStep).append(": ").append(h.sReason);
}

TEST_F(Hardcopy, AFailureLeavesTheEarlierFileWhole) {
  const auto Broken_Plot = [] {
    IGrLineWidth(-1.0f);
    Small_Plot();
  };
  fs::create_directory("folder.wmf");
  const struct {
    const char* sPath;
    std::function<void()> draw;
    const char* sStatus;
  } hCases[] = {
      {"missing/a.wmf", Small_Plot,            "open: No such file or directory"                 },
      {"folder.wmf",    Small_Plot,            "open: Is a directory"                            },
      {"earlier.wmf",   Broken_Plot,           "draw: A call had an argument that makes no sense"},
      {"earlier.wmf",   [] { WindowClose(); }, "open: No picture is open"                        },
  };
  for (const auto& hCase : hCases) {
    Write_File("earlier.wmf", "earlier");
    EXPECT_EQ(Words_of(Drawn(HardCopyDriver::Metafile, hCase.sPath, hCase.draw)), hCase.sStatus) << hCase.sPath;
    EXPECT_EQ(Read_Whole_File("earlier.wmf"), "earlier") << hCase.sPath;
    InfoError();
  }
  for (const auto& hEntry : fs::directory_iterator("."))
    EXPECT_EQ(hEntry.path().string().find("earlier.wmf."), std::string::npos) << "no temporary file is left";
}

TEST_F(Hardcopy, WhatIsStoppedLeavesTheEarlierFileWhole) {
  const struct {
    HardCopyDriver iDriver;
    const char* sWork;  // in which the user stops it
  } hCases[] = {
      {HardCopyDriver::Metafile, "Drawing"},
      {HardCopyDriver::Png,      "Drawing"},
      {HardCopyDriver::Png,      "Writing"},
      {HardCopyDriver::Pdf,      "Writing"},
      {HardCopyDriver::Svg,      "Writing"},
  };
  for (const auto& hCase : hCases) {
    hUser.Look = [&](const WorkDone& h) { return !h.sWork.starts_with(hCase.sWork); };
    Write_File("earlier", "earlier");
    EXPECT_EQ(Drawn(hCase.iDriver, "earlier", Small_Plot).iError, 2) << hCase.sWork;
    EXPECT_EQ(Read_Whole_File("earlier"), "earlier") << hCase.sWork;
  }
  hUser = No_User();
}

TEST_F(Hardcopy, AWindowThatIsPaintedMeanwhileLeavesThePictureAlone) {
  (void)Drawn(HardCopyDriver::Metafile, "alone.wmf", Small_Plot);
  hUser.Look = [](const WorkDone&) {
    Main_Window()->resize(Main_Window()->width(), Main_Window()->height() - 10);
    Drawing_Area()->repaint();
    return WMessagePeek().iType != MessageType::Close;
  };
  EXPECT_EQ(Drawn(HardCopyDriver::Metafile, "watched.wmf", Small_Plot).iError, 0);
  hUser = No_User();
  EXPECT_EQ(Read_Whole_File("watched.wmf"), Read_Whole_File("alone.wmf"));
}

#ifndef __SANITIZE_ADDRESS__  // which ends a program that gets no memory
TEST_F(Hardcopy, APictureWithoutMemoryReplacesNothing) {
  Write_File("earlier.png", "earlier");
  IGrHardCopySelect(HardCopyDriver::Png);
  IGrHardCopySize(32000, 32000);
  rlimit hBefore;
  getrlimit(RLIMIT_AS, &hBefore);
  const rlimit hScarce{rlim_t{2} << 30, hBefore.rlim_max};
  setrlimit(RLIMIT_AS, &hScarce);
  IGrHardCopy("earlier.png");
  Small_Plot();
  const HardCopyStatus hStatus = IGrHardCopyEnd();
  setrlimit(RLIMIT_AS, &hBefore);
  EXPECT_EQ(Words_of(hStatus), "open: Not enough memory");
  EXPECT_EQ(Read_Whole_File("earlier.png"), "earlier");
  EXPECT_EQ(InfoError(), iErrNone) << "the status has said it";
}
#endif

TEST_F(Hardcopy, CallsThatMakeNoSenseAreRefused) {
  EXPECT_EQ(IGrHardCopyEnd().iError, 1);
  EXPECT_EQ(InfoError(), iErrBadArgument) << "nothing is open";
  for (const auto& [NWidth, NHeight] : {
           std::pair{0,     100},
           {100,   -1 },
           {40000, 100}
  }) {
    IGrHardCopySize(NWidth, NHeight);
    EXPECT_EQ(InfoError(), iErrBadArgument);
  }
  WindowClose();
  IGrHardCopy("none.wmf");
  EXPECT_EQ(InfoError(), iErrNoWindow);
  Small_Plot();
  EXPECT_EQ(IGrHardCopyEnd().iError, 1);
  EXPECT_FALSE(fs::exists("none.wmf"));
}

}  // namespace
}  // namespace quillan
