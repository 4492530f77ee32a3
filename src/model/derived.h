// derived.h: what follows from the data of the store and the survey record: ranges, depths, window sets, stations,
// transmitter positions.
//
// The commands call these procedures when the data they follow from have changed: after a read, after an edit, before a
// save. Whatever reads the results (plots, writers) changes nothing.
#pragma once

#include <cmath>

#include "base/array.h"
#include "base/types.h"
#include "model/tmd_data.h"

namespace quillan {

/// The most that a resistivity or a B(t) may be and still count as none in a file.
inline constexpr R4 fNoValueLimit = 1.0E-20f;

inline constexpr R4 fDepthFactor = 28.0f;  // m per sqrt(msec ohm-m)

/// Image depth in m of a window centre in msec and its resistivity in ohm-m.
inline R4 Image_Depth(R4 fTWCen, R4 fARes) {
  return fDepthFactor * std::sqrt(fTWCen * fARes);
}

/// Whether window I is out of use, by its own flag or its transient's.
inline bool Is_Skipped(const Transient& h, I4 I) {
  return h.bSkip(I) || h.bSkipTrn;
}

/// Whether the transmitter stays while the receivers move, so that its centre is one place.
inline bool Has_Fixed_Transmitter(const Survey& h) {
  return h.iTemArray == iArrayFXL || h.iTemArray == iArrayLOT;
}

/// Completes the transients by what the data file left to the survey: rescaled station numbers; the survey's attitude
/// of the receivers, level along the line unless it is set; and the transmitter's station, which is 1 for a fixed loop
/// and else the receiver's.
void TEM_Complete_Transients();

/// Whether two transients have the same window centres: equal counts, and no difference above 0.01 msec.
bool TMD_Trns_TW_Compare(const Transient& hTrns1, const Transient& hTrns2);

/// Numbers the distinct window sets of the store in iTWCfg, from 1, in the order of first appearance.
/// Returns 0; 1 when the store is empty.
[[nodiscard]] I4 TMD_Trns_Set_iTWCfg();

/// The ranges of every transient over its windows, skipped ones included: fuVmin, fuVmax, fBmin, fBmax of present
/// values, fARmin, fARmax of values above 0.001 ohm-m; fTWCmin and fTWCmax are the first and the last centre. A range
/// without a value stays at 1.0E32 and -9.9E31.
void TEM_Trn_Data_Range();

/// Once before files are written: the depths that follow from the resistivities written beside them. bCurrentFormat: a
/// file of the current format is among them; its rows are in msec, which the survey's time unit then says, also in the
/// metadata file that is saved beside it.
void Prepare_Output(bool bCurrentFormat);

/// Transmitter positions from the wire loops, if a wire file is in use: the first loop gives the survey's transmitter
/// (centre, area, sides along and across the line), and each transient whose station has a loop gets its centre.
/// Returns 0; 1 there are no loops, or the last station looked up has no number, or, where none was, the first loop
/// has no sides.
[[nodiscard]] I4 TMD_TxUTMC_from_hTxw();

/// Corners of a rectangular loop about its centre, along and across an azimuth in degrees, anticlockwise.
/// fTxLength: sides in m. Returns (1..2, J): east and north of corner J in iLengthUnit.
Array2<R4, 2, 4> TMD_Get_fTxXYV(const Array1<R4, 2>& fTxLength, R4 fTxAzm, I4 iLengthUnit);

}  // namespace quillan
