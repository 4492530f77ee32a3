#include "review/plot/cft_data.h"

#include <algorithm>
#include <span>
#include <string>

#include "foundations/file_util.h"
#include "foundations/log_file.h"
#include "foundations/pn_intrp.h"
#include "foundations/sort_util.h"
#include "foundations/str_parse.h"
#include "foundations/str_value.h"
#include "foundations/str_write.h"
#include "foundations/text_file.h"
#include "platform/file_names.h"

namespace quillan {
namespace {

constexpr I4 MClrRecord = 128;
constexpr std::string_view sCommentMark = "!\"\\/";

constexpr I4 NDefault = 5;
constexpr Array1<Array1<R4, MCftColumn>, NDefault> fDefault{{{
    // percent red green blue
    {{0.0f, 0.0f, 0.0f, 255.0f}},
    {{25.0f, 0.0f, 255.0f, 255.0f}},
    {{50.0f, 0.0f, 255.0f, 0.0f}},
    {{75.0f, 255.0f, 255.0f, 0.0f}},
    {{100.0f, 255.0f, 0.0f, 0.0f}},
}}};

constexpr EndSlopesR4 fLevelEnds{};  // beyond its ends the table keeps its colours

// What is read from a file.
struct ClrImport {
  std::string sFile;
  Array2<R4, MCFT, MCftColumn> fRow{};
  I4 NRow = 0;
  I4 NErr = 0;  // lines that could not be read

  std::span<R4> Column(I4 K) { return fRow.hColumn(K).hItem; }
};

bool Is_Comment(std::string_view sRecord) {
  return sRecord.find("ColorMap") != std::string_view::npos ||
         sRecord.find_first_of(sCommentMark) != std::string_view::npos ||
         sRecord.find_first_not_of(" \t") == std::string_view::npos;
}

/// The four numbers of a row, held to their limits; false where one cannot be read.
bool Parse_Row(std::string_view sRecord, Array1<R4, MCftColumn>& fValue) {
  FieldList hField(MCftColumn);
  Str_Parse_Fld(sRecord, hField);
  for (I4 K = 1; K <= MCftColumn; ++K) {
    if (!Free_Read(hField(K), fValue(K))) return false;
    fValue(K) = std::clamp(fValue(K), 0.0f, K == iCftPercent ? 100.0f : 255.0f);
  }
  return true;
}

void Report_Line(ClrImport& hClr, const RecordReader& in) {
  if (++hClr.NErr > 1) return;  // the others have the same reason most of the time
  LogErr({"CFT_Read.ERROR while reading " + hClr.sFile,
          "reading (percent_range,red,green,blue) values from line " + Str_Write_I4(in.iRecord()).str(),
          std::string(in.Record())});
}

void Read_Rows(ClrImport& hClr) {
  RecordReader in(hClr.sFile, MClrRecord);
  while (in.Next()) {
    if (Is_Comment(in.Record())) continue;
    Array1<R4, MCftColumn> fValue{};
    if (!Parse_Row(in.Record(), fValue)) {
      Report_Line(hClr, in);
      continue;
    }
    if (hClr.NRow >= MCFT) return;
    ++hClr.NRow;
    for (I4 K = 1; K <= MCftColumn; ++K) hClr.fRow(hClr.NRow, K) = fValue(K);
  }
}

/// The sort keeps the order of equal percents, so that the first in the file is the one that stays.
void Sort_Rows(ClrImport& hClr) {
  Array1<I4, MCFT> JSort{};
  InsertSort_R4(hClr.NRow, hClr.Column(iCftPercent), JSort.hItem);
  for (I4 K = 1; K <= MCftColumn; ++K) Reorder_R4(hClr.NRow, JSort.hItem, hClr.Column(K));
}

void Take_Rows(const ClrImport& hClr) {
  NCFT = 0;
  for (I4 J = 1; J <= hClr.NRow; ++J) {
    if (NCFT > 0 && hClr.fRow(J, iCftPercent) <= fCFT(NCFT, iCftPercent)) continue;
    ++NCFT;
    for (I4 K = 1; K <= MCftColumn; ++K) fCFT(NCFT, K) = hClr.fRow(J, K);
  }
}

I4 Colour_Part(I4 K, R4 fXX) {
  R4 fPart = 0.0f;
  P1Intrp_R4(NCFT, fCFT.hColumn(iCftPercent).hItem, fCFT.hColumn(K).hItem, fLevelEnds, fXX, fPart);
  return Nint(fPart);
}

}  // namespace

void CFT_Initialize(std::string_view sClrFile) {
  LogText("");
  LogText("Initializing color fill tables");
  NCFT = NDefault;
  for (I4 J = 1; J <= NDefault; ++J) {
    for (I4 K = 1; K <= MCftColumn; ++K) fCFT(J, K) = fDefault(J)(K);
  }
  I4 iError = 0;
  CFT_Read(sClrFile, iError);  // most users have no file of their own: the default rows will do
}

void CFT_Read(std::string_view sClrFile, I4& iError) {
  iError = 0;
  ClrImport hClr;
  hClr.sFile = Trimmed(sClrFile);
  if (!IOsFileExists(hClr.sFile)) Find_File(File_Name(sClrFile), hClr.sFile, iError);
  if (iError != 0) return;
  LogText("Reading color-fill RGB values from");
  LogText(hClr.sFile);
  Read_Rows(hClr);
  if (hClr.NRow == 0) {
    LogErr_File({"CFT_Read.ERROR: Did not find any valid color-fill values in", hClr.sFile});
    iError = 1;
    return;
  }
  Sort_Rows(hClr);
  Take_Rows(hClr);
}

void CFT_Get(R4 fXX, I4& iRed, I4& iGreen, I4& iBlue) {
  iRed = Colour_Part(iCftRed, fXX);
  iGreen = Colour_Part(iCftGreen, fXX);
  iBlue = Colour_Part(iCftBlue, fXX);
}

}  // namespace quillan
