// busy_with.h: long work shows that it runs.
#pragma once

#include <string_view>

#include "toolkit/window/window.h"

namespace quillan {

/// The busy cursor and a word in the status bar for as long as it lives.
class BusyWith {
 public:
  explicit BusyWith(std::string_view sWork) {
    WindowBusy(true);
    WindowOutStatusBar(2, sWork);
  }
  ~BusyWith() {
    WindowBusy(false);
    WindowOutStatusBar(2, "");
  }
  BusyWith(const BusyWith&) = delete;
  BusyWith& operator=(const BusyWith&) = delete;
};

}  // namespace quillan
