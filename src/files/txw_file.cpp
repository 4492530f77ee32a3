#include "files/txw_file.h"

#include <array>
#include <cmath>

#include "base/array.h"
#include "files/column_file.h"
#include "foundations/file_util.h"
#include "foundations/log_file.h"
#include "foundations/str_parse.h"
#include "foundations/str_value.h"
#include "foundations/str_write.h"
#include "foundations/text_file.h"
#include "model/station_scale.h"
#include "model/txw_data.h"

namespace quillan {

namespace {

// The variables of a row: identifier, east, north, elevation, depth.
constexpr I4 NVariable = 5;
constexpr I4 NRequired = 3;
constexpr std::array<std::string_view, NVariable> CTxwLabel = {"LOOP", "EAST", "NORTH", "ELEV", "DEPTH"};
constexpr std::array<std::string_view, NVariable> sTxwWord = {"Station", "Easting", "Northing", "Elevation", "Depth"};

constexpr AliasRow CTxwAlias[] = {
    {"ELEVATION", "ELEV"},
    {"TX",        "LOOP"},
    {"TX.ID",     "LOOP"},
    {"TX.KVRSTN", "LOOP"},
    {"TX.STN",    "LOOP"},
    {"TXID",      "LOOP"},
};

constexpr R8 dStnSpacings = 10.0;  // within so many spacings two rows belong to one loop

ColumnMap Columns_without_Labels() {
  ColumnMap hColumn;
  hColumn.KCol = {1, 2, 3, 0, 0};  // identifier, east, north
  return hColumn;
}

/// What is known of the file so far.
struct TxwImport {
  std::string_view sFileName;
  L4 bAuto = false;
  L4 bValidLabels = true;  // the columns of the rows are known
  ColumnMap hColumn = Columns_without_Labels();
  FieldList hField{MTxwCol};
  R8 dTxStn0 = dDummy;  // identifier in the first row of the loop in hand
  L4 bTooMany = false;  // the table is full
  I4 NErrLimit = 0;     // rows with a value beyond the limit
};

/// The file that is to be read. False when there is none.
bool Locate(std::string& sTxwFile, L4 bAuto) {
  return Find_Optional_File(sTxwFile, bAuto,
                            {
                                .sMissing = {"Did not find txw file", sTxwFile},
                                .sFilter = "Select optional txw file or select Cancel|*.txw|",
                                .sTitle = "Select optional Tx wire endpoints file",
                                .sCanceled = "Txw file import canceled."
  });
}

/// "LOOP, EAST": the required labels without a column.
std::string Missing_Labels(const ColumnMap& hColumn) {
  std::string sMissing;
  for (std::size_t iVariable = 0; iVariable < NRequired; ++iVariable) {
    if (hColumn.KCol[iVariable] > 0) continue;
    if (!sMissing.empty()) sMissing += ", ";
    sMissing += CTxwLabel[iVariable];
  }
  return sMissing;
}

void Take_Labels(TxwImport& hImport, I4 iRecord, std::string_view sRecord) {
  // One report names all labels that are missing, so the matching itself is silent.
  static_cast<void>(
      Str_Column_Labels_Alias_List(sRecord, false, false, CTxwAlias, CTxwLabel, MTxwCol, hImport.hColumn));
  const std::string sMissing = Missing_Labels(hImport.hColumn);
  hImport.bValidLabels = sMissing.empty();
  if (!hImport.bValidLabels) {
    LogErr_or_File(hImport.bAuto,
                   {"Txw_Read.ERROR missing data column label(s) on record " + Str_Write_I4(iRecord).str(),
                    "Missing: " + sMissing});
    return;
  }
  LogText("Have found correct column labels, now reading numerical data.");
  LogText(sSpuriousDropped);
}

/// Value of variable J (from 1) of the row; an optional one without a value is 0. False when the row cannot be used.
bool Read_Value(const TxwImport& hImport, I4 iRecord, std::string_view sRecord, I4 J, R8& dValue) {
  const auto iVariable = static_cast<std::size_t>(J - 1);
  const std::string_view sField = hImport.hField(hImport.hColumn.KCol[iVariable]);
  const I4 IOERR = hImport.bAuto ? Str_to_R8(sField, 0.0, dValue)
                                 : Fld_to_R8({iRecord, sRecord, CTxwLabel[iVariable]}, sField, 0.0, dValue);
  if (IOERR == 0 || (IOERR < 0 && J > NRequired)) return true;
  // What cannot be read was reported by the field reader, unless it was the quiet one.
  if (IOERR < 0 || hImport.bAuto) {
    LogErr_File(No_Value(sTxwWord[iVariable], hImport.sFileName, iRecord));
  }
  return false;
}

bool Is_Within_Limit(TxwImport& hImport, I4 iRecord, I4 J, R8 dValue) {
  if (std::abs(dValue) <= dColumnValueMax) return true;
  // One box tells the user; a thousand such rows would be a thousand boxes.
  LogErr_or_File(hImport.bAuto || ++hImport.NErrLimit > 1,
                 Beyond_Limit(sTxwWord[static_cast<std::size_t>(J - 1)], dValue, hImport.sFileName, iRecord));
  return false;
}

/// Adds a corner to the loop in hand or, as its first, to a new one.
void Keep_Corner(TxwImport& hImport, const Array1<R8, NVariable>& dValue) {
  if (NTxw == 0 || !Is_Same_Stn(hImport.dTxStn0, dValue(1), dStnSpacings)) {
    hImport.bTooMany = NTxw == MTxwLoop;
    if (hImport.bTooMany) return;
    hTxw.Add();
    ++NTxw;
    hImport.dTxStn0 = dValue(1);
  }
  WireLoop& h = hTxw(NTxw);
  if (h.NTxUTMV == MTxUTMV) return;
  h.dTxStn = dValue(1);
  h.dTxUTMV.hColumn(++h.NTxUTMV) = {
      {dValue(2), dValue(3), dValue(4)}
  };
  h.fTxDepth.fill(0.0f - static_cast<R4>(std::abs(dValue(5))));  // no negative zero
}

void Take_Row(TxwImport& hImport, I4 iRecord, std::string_view sRecord) {
  Str_Parse_Fld(sRecord, hImport.hField);
  Array1<R8, NVariable> dValue{};
  for (I4 J = 1; J <= NVariable; ++J) {
    if (!Read_Value(hImport, iRecord, sRecord, J, dValue(J))) return;
  }
  for (I4 J = 1; J <= NVariable; ++J) {
    if (!Is_Within_Limit(hImport, iRecord, J, dValue(J))) return;
  }
  Keep_Corner(hImport, dValue);
}

void Take_Record(TxwImport& hImport, I4 iRecord, std::string_view sRecord) {
  switch (Kind_of_Column_Record(sRecord)) {
    case ColumnRecord::Labels: Take_Labels(hImport, iRecord, sRecord); break;
    case ColumnRecord::Row:
      if (hImport.bValidLabels) Take_Row(hImport, iRecord, sRecord);
      break;
    case ColumnRecord::Ignored: break;
  }
}

void Take_Records(TxwImport& hImport, RecordReader& in) {
  while (!hImport.bTooMany && in.Next()) Take_Record(hImport, in.iRecord(), in.Record());
  if (in.Has_Failed()) {
    LogErr_or_File(hImport.bAuto, {"ERROR while reading file near line " + Str_Write_I4(in.iRecord()).str(),
                                   std::string(hImport.sFileName)});
  }
  if (hImport.bTooMany) {
    LogErr_or_File(hImport.bAuto, {"WARNING: more than " + Str_Write_I4(MTxwLoop).str() + " Tx loops in",
                                   std::string(hImport.sFileName), "Further loops will be dropped."});
  }
}

}  // namespace

I4 Txw_Read(std::string& sTxwFile, L4 bAuto) {
  Txw_Initialize();  // loops of an earlier file must not stand under the name of this one
  if (!Locate(sTxwFile, bAuto)) return 1;
  RecordReader in(sTxwFile, MTxwRecord);
  if (!in.Is_Open()) {
    LogErr_or_File(bAuto, {"Txw_Read.ERROR: unable to open", sTxwFile, in.Reason()});
    return 1;
  }

  Fld_Begin_File();
  LogText("Counting Tx wire endpoint data in");
  LogText(sTxwFile);
  TxwImport hImport;
  hImport.sFileName = File_Name(sTxwFile);
  hImport.bAuto = bAuto;
  Take_Records(hImport, in);
  if (NTxw == 0) {
    LogErr_or_File(bAuto, {"ERROR: No valid Tx loop wire endpoint coordinates recovered from", sTxwFile,
                           "Expecting space or comma separated columns of Tx.ID,easting,northing,[elevation],[depth]"});
    return 1;
  }
  LogText("Reading Tx wire endpoint data.");
  Txw_Sort();
  // A loop of one or two corners is kept without an area, and reports itself.
  for (I4 K = 1; K <= NTxw; ++K) static_cast<void>(Txw_Get_Area(hTxw(K)));
  LogText("Tx wire endpoint coordinates for " + Str_Write_I4(NTxw).str() + " loops read from " +
          std::string(hImport.sFileName));
  return 0;
}

}  // namespace quillan
