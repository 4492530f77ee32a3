#include "shell/command_loop.h"

#include <gtest/gtest.h>

namespace quillan {
namespace {

TEST(WindowSize, IsHeldToAShapeOnWideAndOnPortraitScreens) {
  struct Case {
    I4 NXScreen, NYScreen;
    WindowSize hSize;
  };
  for (const Case& h : {
           Case{1920, 1200, {1275, 1020}},
           Case{3840, 1080, {1147, 918} },
           Case{1080, 1920, {1080, 864} }
  }) {
    EXPECT_EQ(Window_Size(h.NXScreen, h.NYScreen), h.hSize) << h.NXScreen;
  }
}

}  // namespace
}  // namespace quillan
