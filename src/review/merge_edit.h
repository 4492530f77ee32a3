// merge_edit.h: the questions of a merge, dialog 102, with the taper beside them.
#pragma once

#include "base/types.h"
#include "processing/tmd_merge.h"

namespace quillan {

inline constexpr I4 iDlgMerge = 102;
inline constexpr I4 iGrdMergeCmp = 1012;
inline constexpr I4 iFldMask1 = 1013;
inline constexpr I4 iFldMask2 = 1014;
inline constexpr I4 iLblWindowLast = 1018;
inline constexpr I4 iTrkCenter = 1019;
inline constexpr I4 iTrkWidth = 1020;
inline constexpr I4 iLblCenter = 1021;
inline constexpr I4 iLblWidth = 1022;

inline constexpr I4 MMergeRow = 6;  // components that the dialog offers

/// What the store has to merge.
struct MergeChoice {
  I4 NTW = 2;                         // windows of the longest transient, at least 2
  I4 NMergeCmp = 0;                   // components
  Array1<I4, MMergeRow> iMergeCmp{};  // their codes, rising; those beyond six are not offered
};
[[nodiscard]] MergeChoice Merge_Choice();

/// Asks for hMerge: a tool window, whose taper follows the trackbars. Settings of the last run are held to the data
/// first. What the fields show is taken also where the user cancels: the dialog opens with it the next time. A field
/// that cannot be read keeps its old value. Returns 0; 2 on Cancel, 3 where the main window is to be closed.
[[nodiscard]] I4 MergeChnEdit();

}  // namespace quillan
