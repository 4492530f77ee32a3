// text_size.h: sizes of text in plots, as fractions of the drawing area.
#pragma once

#include "base/types.h"
#include "toolkit/draw/draw.h"

namespace quillan {

struct TextSize {
  R4 fWidth, fHeight;
};

inline void Use_Font(const TextSize& h) {
  WGrTextFont(h.fWidth, h.fHeight);
}

}  // namespace quillan
