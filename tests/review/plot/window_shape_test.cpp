#include "review/plot/window_shape.h"

#include <gtest/gtest.h>

#include <cmath>

#include "foundations/log_file.h"
#include "support/played_session.h"

namespace quillan {
namespace {

TEST(WindowShape, FillsTheScreenInOneDirection) {
  bAutoErr = true;
  PlayedSession hSession("");  // a screen of 1920 x 1200
  const struct {
    R4 fYXAspect;
    I4 NXPixel, NYPixel, iError;
  } hCase[] = {
      {1.0f,          1140, 1140, 0},
      {0.25f,         1824, 456,  0},
      {0.09f,         0,    0,    1},
      {10.1f,         0,    0,    1},
      {std::nanf(""), 0,    0,    1}
  };
  for (const auto& h : hCase) {
    const WindowShape hShape = IGr_WindowShape(h.fYXAspect);
    EXPECT_EQ(hShape.NXPixel, h.NXPixel) << h.fYXAspect;
    EXPECT_EQ(hShape.NYPixel, h.NYPixel) << h.fYXAspect;
    EXPECT_EQ(hShape.iError, h.iError) << h.fYXAspect;
  }
}

}  // namespace
}  // namespace quillan
