// key_list.h: the keys of a review in a small window.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillan {

struct KeyRow {
  std::string sKeys;  // "N, Down, Right"
  std::string sHelp;
};

/// Adds a key; one without words goes with the row before it.
void Add_Key(std::vector<KeyRow>& hRow, std::string_view sKey, std::string_view sHelp);

/// Shows them until the user closes the window.
void Show_Keys(const std::vector<KeyRow>& hRow);

}  // namespace quillan
