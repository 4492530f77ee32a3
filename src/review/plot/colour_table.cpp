#include "review/plot/colour_table.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "foundations/file_util.h"
#include "foundations/log_file.h"
#include "foundations/pn_intrp.h"
#include "foundations/str_parse.h"
#include "foundations/str_value.h"
#include "foundations/str_write.h"
#include "foundations/text_file.h"
#include "platform/file_names.h"
#include "platform/folders.h"

namespace quillan {
namespace {

constexpr I4 MClrRecord = 128;
constexpr std::string_view sCommentMark = "!\"\\/";

using ColourRow = Array1<R4, MCftColumn>;

// clang-format off
constexpr ColourRow hDefault[] = {
    // percent  red     green   blue
    {{  0.0f,   0.0f,   0.0f,   255.0f}},
    {{ 25.0f,   0.0f,   255.0f, 255.0f}},
    {{ 50.0f,   0.0f,   255.0f, 0.0f  }},
    {{ 75.0f,   255.0f, 255.0f, 0.0f  }},
    {{100.0f,   255.0f, 0.0f,   0.0f  }},
};
// clang-format on

constexpr EndSlopesR4 fLevelEnds{};  // beyond its ends the table keeps its colours

bool Is_Comment(std::string_view sRecord) {
  return sRecord.find("ColorMap") != std::string_view::npos ||
         sRecord.find_first_of(sCommentMark) != std::string_view::npos ||
         sRecord.find_first_not_of(" \t") == std::string_view::npos;
}

/// The four numbers of a row, held to their limits; nothing where one cannot be read. Between two commas a number
/// stays that of the row before.
std::optional<ColourRow> Parse_Row(std::string_view sRecord, ColourRow fValue) {
  FieldList hField(MCftColumn);
  Str_Parse_Fld(sRecord, hField);
  if (hField.NFld() < MCftColumn) return {};
  for (I4 K = 1; K <= MCftColumn; ++K) {
    if (!hField(K).empty() && !Free_Read(hField(K), fValue(K))) return {};
    fValue(K) = std::clamp(fValue(K), 0.0f, K == iCftPercent ? 100.0f : 255.0f);
  }
  return fValue;
}

/// The rows of a file. Of the lines that cannot be read the first is reported, for the others have the same reason most
/// of the time.
std::vector<ColourRow> Read_Rows(const std::string& sFile) {
  std::vector<ColourRow> hRow;
  bool bReported = false;
  RecordReader in(sFile, MClrRecord);
  if (!in.Is_Open()) LogErr({"CFT_Read.ERROR: unable to open " + sFile, in.Reason()});
  while (in.Next()) {
    if (Is_Comment(in.Record())) continue;
    if (const auto fValue = Parse_Row(in.Record(), hRow.empty() ? ColourRow{} : hRow.back())) {
      if (hRow.size() >= MCFT) break;
      hRow.push_back(*fValue);
    } else if (!bReported) {
      bReported = true;
      LogErr({"CFT_Read.ERROR while reading " + sFile,
              "reading (percent_range,red,green,blue) values from line " + Str_Write_I4(in.iRecord()).str(),
              std::string(in.Record())});
    }
  }
  return hRow;
}

/// Rows in rising order become the table; of equal percents the first.
template <class Rows>
void Take_Rows(const Rows& hRow) {
  NCFT = 0;
  for (const ColourRow& h : hRow) {
    if (NCFT > 0 && h(iCftPercent) <= fCFT(NCFT, iCftPercent)) continue;
    ++NCFT;
    for (I4 K = 1; K <= MCftColumn; ++K) fCFT(NCFT, K) = h(K);
  }
}

I4 Colour_Part(I4 K, R4 fXX) {
  return Nint(P1Intrp_R4(NCFT, fCFT.hColumn(iCftPercent).hItem, fCFT.hColumn(K).hItem, fLevelEnds, fXX));
}

}  // namespace

void CFT_Initialize(std::string_view sClrFile) {
  LogText("");
  LogText("Initializing color fill tables");
  Take_Rows(hDefault);
  static_cast<void>(CFT_Read(sClrFile));  // most users have no file of their own: the default rows will do
}

I4 CFT_Read(std::string_view sClrFile) {
  std::string sFile(Trimmed(sClrFile));
  if (!IOsFileExists(sFile)) sFile = Find_File(File_Name(sClrFile));
  if (sFile.empty()) sFile = Shared_File(File_Name(sClrFile));
  if (sFile.empty()) return 1;
  LogText("Reading color-fill RGB values from");
  LogText(sFile);
  std::vector<ColourRow> hRow = Read_Rows(sFile);
  if (hRow.empty()) {
    LogErr_File({"CFT_Read.ERROR: Did not find any valid color-fill values in", sFile});
    return 1;
  }
  std::stable_sort(hRow.begin(), hRow.end(),
                   [](const ColourRow& h1, const ColourRow& h2) { return h1(iCftPercent) < h2(iCftPercent); });
  Take_Rows(hRow);
  return 0;
}

Colour CFT_Get(R4 fXX) {
  return {Colour_Part(iCftRed, fXX), Colour_Part(iCftGreen, fXX), Colour_Part(iCftBlue, fXX)};
}

}  // namespace quillan
