// tmd_merge.h: early-time and late-time records of one station become one transient over a smooth taper.
//
// A crew records a sounding twice, with one set of settings for early times and one for late times, and tells the two
// records apart by the tenths digit of the station number: 100.0 early, 100.1 late. Window by window the merged value
// is
//
//   fWgt1 * early + (1 - fWgt1) * late      fWgt1: 1 before the taper, 0 after it, one half at its centre
//
// Both records must have one numbering of the windows: window I goes with window I, whatever their times.
#pragma once

#include "base/array.h"
#include "base/types.h"
#include "metadata/enm_data.h"

namespace quillan {

inline constexpr I4 MChnCmp = sChnCmp.NSize;  // codes of components

/// Which records are merged, and how.
struct MergeSettings {
  I4 iMergeMask1 = 0;               // tenths digit of the stations of early-time records
  I4 iMergeMask2 = 1;               // tenths digit of those of late-time records
  I4 iMergeFltCenter = 14;          // time window at the middle of the taper
  I4 iMergeFltWidth = 10;           // windows, at least 1
  I4 NMergeCmp = 0;                 // components to merge
  Array1<I4, MChnCmp> iMergeCmp{};  // their codes in CChnCmp
};

// Module state. The dialog fills it; digits and taper stay in force for the next run.
inline MergeSettings hMerge;

/// Weight of the early-time record at window ITW: 1 up to half a width before the centre, 0 from half a width after it
/// on, between them the fall of a sine. A width of 1 is a step with one half at the centre.
[[nodiscard]] R4 fMergeFilter(I4 ITW, I4 iMergeFltCenter, I4 iMergeFltWidth);

/// Merges the late-time records of the components into the early-time ones; they leave the store.
///
/// Component by component, in the order of the store, each transient with the tenths digit iMergeMask1 takes the first
/// other one of its component at the same whole station with iMergeMask2, within 0.001. Transmitter and frequency are
/// not looked at. What finds no partner stays as it is, and so does a transient without a station.
/// The early record keeps its station, window edges, absolute errors, flags and B(t). It gets the greater base
/// frequency and, of a longer late record, the further centres, which have no edges then. A missing dB/dt is not looked
/// for: the sum has the mark in it. Of percent errors one stands for a missing other. Resistivities are averaged by
/// their logarithms, and the depth follows, where both records have one.
void TMD_Merge(const MergeSettings& hSettings);

}  // namespace quillan
