// avg_columns.h: the columns of averaged data files: one table for the reader and for both writers.
//
//   TWin.Center, dBdt.Mag, dBdt.%Err, ARes.Mag         labels of the current format, read in any case
//   skp     Tx   Station  Freq Cmp ... RampAppRes      spellings of older files and of the legacy format
//
// A new column of the windows is a field of the store and a row of this table. The reader takes the columns of a row in
// the order of the table, and the current format writes its own in that order; the legacy format has an order of its
// own.
#pragma once

#include <iterator>
#include <span>
#include <string_view>

#include "base/edit_form.h"
#include "foundations/str_parse.h"
#include "model/derived.h"
#include "model/tmd_data.h"

namespace quillan {

inline constexpr I4 iSkipInUse = 2;  // what a skip column holds
inline constexpr I4 iSkipOut = 1;
inline constexpr std::size_t NLegacyCmp = 2;  // characters of a component in the legacy format: "Re" for "Ref"

/// What a column holds.
enum class AvgContent {
  Skip,       // iSkipInUse, or any other number for a skipped window
  TxStation,  // stations as recorded
  RxStation,
  Component,  // "Hz"
  Frequency,  // hertz
  Current,    // amp
  Index,      // number of the window; a file that is read tells it by the place of the row
  Window,     // the value of the window in a field of the store
  Weight,     // 1.0 for a window in use, 0.0 for a skipped one; read for its errors, without effect
};

/// A column as a format writes it.
struct AvgForm {
  I4 NWidth = 0;       // characters with what separates it from the next; 0: not in this format
  EditForm form = {};  // of its numbers
  I4 iMark = 0;        // place of the "*" that stands for no value
  I4 iPlace = 0;       // legacy format: of the column from the left
};

struct AvgColumn {
  std::string_view sLabel;  // as we write it
  AvgContent iContent = AvgContent::Window;
  WindowValues Transient::*hValue = nullptr;  // of AvgContent::Window
  R4 fBlank = 0.0f;                           // a blank or unreadable number; stations and flags follow the metadata
  R4 fAbsent = fDummy;                        // the value where a file has no such column
  bool bRequired = false;                     // rows without it are of no use
  std::string_view CAlias = {};               // other spellings that are read, upper case, blanks between
  WindowValues Transient::*hNeed = nullptr;   // written to a file in which any window has this above fNoValueLimit
  bool bNeedEach = false;                     // and so window by window; else a value is written if it is present
  AvgForm hCurrent = {}, hLegacy = {};        // a legacy time has no form: AVG_Write_TWC0 writes it
};

/// In the order in which the reader takes them and the current format writes them.
inline constexpr AvgColumn hAvgColumn[] = {
    {.sLabel = "Skip", .iContent = AvgContent::Skip, .CAlias = "SKP", .hLegacy = {.NWidth = 3, .iPlace = 1}},
    {.sLabel = "Tx.KvrStn",
     .iContent = AvgContent::TxStation,
     .CAlias = "TX TX-COORD",
     .hLegacy = {9, "(F14.2)", 0, 2}},
    {.sLabel = "Rx.KvrStn", .iContent = AvgContent::RxStation, .CAlias = "STATION", .hLegacy = {9, "(F14.2)", 0, 3}},
    {.sLabel = "Rx.Cmp", .iContent = AvgContent::Component, .CAlias = "CMP", .hLegacy = {.NWidth = 3, .iPlace = 5}},
    {.sLabel = "Tx.Freq", .iContent = AvgContent::Frequency, .CAlias = "FREQ", .hLegacy = {6, "(1P,G11.4E1)", 0, 4}},
    {.sLabel = "Tx.Amp",
     .iContent = AvgContent::Current,
     .fBlank = fDummy,
     .CAlias = "AMP AMPS",
     .hLegacy = {5, "(1P,G11.4E1)", 0, 6}},
    {.sLabel = "TWin.Index",
     .iContent = AvgContent::Index,
     .CAlias = "WIN",
     .hCurrent = {3},
     .hLegacy = {.NWidth = 3, .iPlace = 7}},
    {.sLabel = "TWin.Center",
     .hValue = &Transient::fTWCen,
     .fBlank = fDummy,
     .bRequired = true,
     .CAlias = "TIME",
     .hCurrent = {11, "ES10.4E1", 10},
     .hLegacy = {.NWidth = 7, .iPlace = 8}},
    {.sLabel = "TWin.Beg", .hValue = &Transient::fTWBeg, .fBlank = fDummy, .hCurrent = {11, "ES10.4E1", 10}},
    {.sLabel = "TWin.End", .hValue = &Transient::fTWEnd, .fBlank = fDummy, .hCurrent = {11, "ES10.4E1", 10}},
    {.sLabel = "dBdt.Mag",
     .hValue = &Transient::fuVmag,
     .bRequired = true,
     .CAlias = "E.MAG EFIELD.MAG MAGNITUDE REF.MAG TXAMP.MAG",
     .hCurrent = {13, "ES12.5", 12},
     .hLegacy = {11, "(ES12.4E1)", 5, 9}},
    {.sLabel = "dBdt.Err",
     .hValue = &Transient::fuVerr,
     .CAlias = "E.ERR EFIELD.ERR REF.ERR TXAMP.ERR",
     .hCurrent = {10, "ES9.2", 9}},
    {.sLabel = "dBdt.%Err",
     .hValue = &Transient::fuVpct,
     .fAbsent = 1.0f,
     .CAlias = "%MAG E.%ERR REF.%ERR TXAMP.%ERR",
     .hCurrent = {8, "F7.1", 7},
     .hLegacy = {6, "F6.1", 7, 12}},
    {.sLabel = "dBdt.Wgt",
     .iContent = AvgContent::Weight,
     .fBlank = 1.0f,
     .CAlias = "E.WGT EFIELD.WGT REF.WGT TXAMP.WGT",
     .hCurrent = {8}},
    {.sLabel = "ARes.Mag",
     .hValue = &Transient::fARes,
     .CAlias = "RAMPAPPRES RESISTIVITY",
     .hNeed = &Transient::fARes,
     .bNeedEach = true,
     .hCurrent = {11, "ES10.3", 12},
     .hLegacy = {11, "(ES10.3E1)", 4, 10}},
    {.sLabel = "Depth.Image",
     .hValue = &Transient::fDepth,
     .CAlias = "DEPTH",
     .hNeed = &Transient::fARes,
     .bNeedEach = true,
     .hCurrent = {10, "ES9.3E1", 11},
     .hLegacy = {11, "(ES9.3E1)", 4, 11}},
    {.sLabel = "B.Mag",
     .hValue = &Transient::fBmag,
     .CAlias = "BMAG",
     .hNeed = &Transient::fBmag,
     .hCurrent = {13, "ES12.5", 12}},
};
inline constexpr I4 MAvgColumn = static_cast<I4>(std::size(hAvgColumn));

/// Column J, from 1.
constexpr const AvgColumn& AVG_Column(I4 J) {
  return hAvgColumn[J - 1];
}

/// The number of the column with this content, of which there is one.
constexpr I4 AVG_Column_of(AvgContent iContent) {
  I4 J = 1;
  while (AVG_Column(J).iContent != iContent) ++J;
  return J;
}

/// Whether window I has a value to write in a column of AvgContent::Window.
inline bool AVG_Has_Value(const AvgColumn& hColumn, const Transient& h, I4 I) {
  if (hColumn.bNeedEach) return (h.*hColumn.hNeed)(I) > fNoValueLimit;
  return (h.*hColumn.hValue)(I) > fDummyLimit;
}

/// The labels of the columns in upper case, and their other spellings, ascending: what a line of labels is matched to.
extern const std::span<const std::string_view> CAvgLabel;
extern const std::span<const AliasRow> CAvgAlias;

}  // namespace quillan
