// tmd_avg.h: repeats of a sounding, and their average.
//
// In the field a sounding is recorded several times. Transients that stand next to each other in the store, with the
// frequency and the two stations of the first of them within 0.001 and with its component, are a group of repeats. A
// group becomes one transient, window by window, with weights w over the repeats:
//
//   v = sum(w x) / sum(w)                                 fuVmag, fBmag and fARes, each over the values it has
//   e = sqrt(sum(w (x - v)**2)) / sum(w)                  fuVerr; it falls like 1/sqrt(n) for n equal weights
//   100 e / v, at least 0.1                               fuVpct
//
// w is the fWgtTrns of the repeat in the store; 2.0E-6 where the repeat or its window is skipped, so that a window that
// is skipped in all repeats has their plain mean, and is skipped.
#pragma once

#include <optional>
#include <vector>

#include "base/array.h"
#include "base/types.h"
#include "model/tmd_data.h"

namespace quillan {

inline constexpr I4 MRepeat = 16;  // repeats of a group that are averaged

struct RepeatGroup {
  I4 NRepeat = 0;              // repeats in the group, K = 1..NRepeat
  I4 NLeftOut = 0;             // those beyond MRepeat; averaging drops them
  Array1<I4, MRepeat> iTrn{};  // transient in the store, rising
  Array1<L4, MRepeat>
      bSkipTrn{};  // out of the average: the transient's flag when the groups were found, then a dialog's
  Array1<R4, MRepeat> fWgtTrns{};  // weight on show; the average takes that of the store
};

/// Groups 1..NTrnRpt.
struct RepeatGroups {
  I4 NTrnRpt = 0;
  std::vector<RepeatGroup> hTrnRpt;  // at least NTrnRpt: a table that is long enough is used again
  I4 iGroup = 1;                     // the one on show, kept from run to run

  RepeatGroup& operator()(I4 K) { return hTrnRpt[static_cast<std::size_t>(K - 1)]; }
};

// Module state. TMD_Avg_Get_Groups fills it, a dialog edits the flags and weights in it.
inline RepeatGroups hRepeats;

/// Finds the groups. Only neighbours are compared, each with the first of its group: the store has to be in order
/// (sort_data.h).
/// Returns 0; 1 there are no repeats, or fewer than two transients, and then NTrnRpt stays what it was.
[[nodiscard]] I4 TMD_Avg_Get_Groups();

/// The average of a group. What has no average of its own (window edges, depths, ranges, blocks, skip flags of windows)
/// is that of the first repeat that is not skipped; the window centres are the longest set of the repeats up to that
/// one. A window of a repeat counts where its centre is that of the average. A window in which some repeats have no
/// value limits all later ones to as many repeats, counted from the first.
/// Nothing when no repeat has a value that is not skipped.
[[nodiscard]] std::optional<Transient> TMD_Avg_hTrnRptK(const RepeatGroup& hGroup);

/// Sets the skip flags of the groups in the store. A flag that is set there stays: other commands have their reasons.
/// Returns 0; 1 there are no groups or no transients.
[[nodiscard]] I4 TMD_Avg_Save_Skip();

/// Puts the average of each group in the place of its repeats. A group without an average disappears.
/// Returns 0; 1 the last group disappeared, or there are no groups or no transients, or the user stopped it half way.
[[nodiscard]] I4 TMD_Avg_Repeats();

/// Finds the groups and averages them, without a question. Returns 0; 1 as its two steps.
[[nodiscard]] I4 TMD_Average();

}  // namespace quillan
