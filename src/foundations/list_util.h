// list_util.h: rising lists of values in the caller's array: times of windows, stations of a line.
#pragma once

#include <span>

#include "base/types.h"

namespace quillan {

/// An item of a list, counted from 1, and how far it is from the value that was looked up.
struct NearestItem {
  I4 iMatch = 0;        // 0: the list is empty
  R4 fDVmin = 1.0E32f;  // never negative but for a value below the whole list
};

/// The nearest of the first NList items, the lower one of two that are as near.
[[nodiscard]] NearestItem List_Nearest_R4(R4 fValue, I4 NList, std::span<const R4> fList);

}  // namespace quillan
