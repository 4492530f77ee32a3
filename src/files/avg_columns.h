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

/// A column of the legacy format.
struct AvgLegacyForm {
  I4 iPlace = 0;       // from the left; 0: not in this format
  I4 NWidth = 0;       // characters, the blank at the end included
  EditForm form = {};  // of a number; a time without a form is written by AVG_Write_TWC0
  I4 iMark = 0;        // place of the "*" that stands for no value
};

/// A column of the current format.
struct AvgForm {
  I4 NWidth = 0;  // characters, comma included; 0: not in this format
  EditForm form = {};
  I4 iMark = 0;
};

/// When there is something to write.
struct AvgNeed {
  WindowValues Transient::*hValue = nullptr;  // the column is in a file if this value is above fNoValueLimit in any
                                              // window of the store; in every file without it
  bool bEachWindow = false;  // and so in each window; else a window has a value if the column's own is present
};

struct AvgColumn {
  std::string_view sLabel;  // as we write it
  std::string_view CAlias;  // other spellings, upper case, blanks between
  AvgContent iContent;
  R4 fBlank;  // what a blank or unreadable field of a number means; stations and skip flags follow the metadata
  AvgLegacyForm hLegacy;
  AvgForm hForm = {};
  WindowValues Transient::*hValue = nullptr;  // of AvgContent::Window
  AvgNeed hNeed = {};
  R4 fAbsent = fDummy;     // the value where a file has no such column
  bool bRequired = false;  // without it the rows below a line of labels are of no use
};

/// In the order in which the reader takes them and the current format writes them.
inline constexpr AvgColumn hAvgColumn[] = {
    {"Skip", "SKP", AvgContent::Skip, 0.0f, {1, 3}},
    {"Tx.KvrStn", "TX TX-COORD", AvgContent::TxStation, 0.0f, {2, 9, "(F14.2)"}},
    {"Rx.KvrStn", "STATION", AvgContent::RxStation, 0.0f, {3, 9, "(F14.2)"}},
    {"Rx.Cmp", "CMP", AvgContent::Component, 0.0f, {5, 3}},
    {"Tx.Freq", "FREQ", AvgContent::Frequency, 0.0f, {4, 6, "(1P,G11.4E1)"}},
    {"Tx.Amp", "AMP AMPS", AvgContent::Current, fDummy, {6, 5, "(1P,G11.4E1)"}},
    {"TWin.Index", "WIN", AvgContent::Index, 0.0f, {7, 3}, {3}},
    {"TWin.Center",
     "TIME", AvgContent::Window,
     fDummy, {8, 7},
     {11, "ES10.4E1", 10},
     &Transient::fTWCen,
     {},
     fDummy, true},
    {"TWin.Beg", "", AvgContent::Window, fDummy, {}, {11, "ES10.4E1", 10}, &Transient::fTWBeg},
    {"TWin.End", "", AvgContent::Window, fDummy, {}, {11, "ES10.4E1", 10}, &Transient::fTWEnd},
    {"dBdt.Mag",
     "E.MAG EFIELD.MAG MAGNITUDE REF.MAG TXAMP.MAG", AvgContent::Window,
     0.0f, {9, 11, "ES12.4E1", 5},
     {13, "ES12.5", 12},
     &Transient::fuVmag,
     {},
     fDummy, true},
    {"dBdt.Err",
     "E.ERR EFIELD.ERR REF.ERR TXAMP.ERR", AvgContent::Window,
     0.0f, {},
     {10, "ES9.2", 9},
     &Transient::fuVerr},
    {"dBdt.%Err",
     "%MAG E.%ERR REF.%ERR TXAMP.%ERR", AvgContent::Window,
     0.0f, {12, 6, "F6.1", 7},
     {8, "F7.1", 7},
     &Transient::fuVpct,
     {},
     1.0f},
    {"dBdt.Wgt", "E.WGT EFIELD.WGT REF.WGT TXAMP.WGT", AvgContent::Weight, 1.0f, {}, {8}},
    {"ARes.Mag",
     "RAMPAPPRES RESISTIVITY", AvgContent::Window,
     0.0f, {10, 11, "ES10.3E1", 4},
     {11, "ES10.3", 12},
     &Transient::fARes,
     {&Transient::fARes, true}},
    {"Depth.Image",
     "DEPTH", AvgContent::Window,
     0.0f, {11, 11, "ES9.3E1", 4},
     {10, "ES9.3E1", 11},
     &Transient::fDepth,
     {&Transient::fARes, true}},
    {"B.Mag", "BMAG", AvgContent::Window, 0.0f, {}, {13, "ES12.5", 12}, &Transient::fBmag, {&Transient::fBmag}},
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
  if (hColumn.hNeed.bEachWindow) return (h.*hColumn.hNeed.hValue)(I) > fNoValueLimit;
  return (h.*hColumn.hValue)(I) > fDummyLimit;
}

/// The labels of the columns in upper case, and their other spellings, ascending: what a line of labels is matched to.
extern const std::span<const std::string_view> CAvgLabel;
extern const std::span<const AliasRow> CAvgAlias;

}  // namespace quillan
