#include "toolkit/draw/coverage.h"

#include <cmath>
#include <cstring>

namespace quillan::toolkit {

namespace {

using I2 = std::int16_t;

constexpr I2 Short(I4 iValue) {
  return static_cast<I2>(iValue);
}

/// A colour, iCover parts of 255 of it, over what is there.
std::uint32_t Blend(std::uint32_t iBelow, std::uint32_t iColour, std::uint32_t iCover) {
  const std::uint32_t iRest = 255 - iCover;
  const std::uint32_t iRedBlue = (iColour & 0xFF00FF) * iCover + (iBelow & 0xFF00FF) * iRest + 0x800080;
  const std::uint32_t iGreen = ((iColour >> 8) & 0xFF) * iCover + ((iBelow >> 8) & 0xFF) * iRest + 0x80;
  return 0xFF000000 | (((iRedBlue + ((iRedBlue >> 8) & 0xFF00FF)) >> 8) & 0xFF00FF) |
         ((iGreen + (iGreen >> 8)) & 0xFF00);
}

}  // namespace

/// A line as its start, direction and length; half its width and half a pixel.
struct Coverage::Stroke {
  R4 fX, fY, fDX, fDY, fLength, fReach;
};

/// What rows of eight pixels have in common: the way along and across the line from the first pixel, in parts.
struct Coverage::Steps {
  I2 iAlong[NEight], iAcross[NEight];
  I2 iReach;
};

/// The first of eight pixels: how far before the start of the line, after its end, and beside it, in parts.
struct Coverage::First {
  I2 iBefore, iAfter, iAcross;
};

void Coverage::Resize(I4 NWide, I4 NHigh) {
  if (NWidth == NWide && NHeight == NHigh) return;
  NWidth = NWide;
  NHeight = NHigh;
  NRow = static_cast<std::size_t>(NWidth) + std::size_t{NEight};
  iCover.assign(NRow * static_cast<std::size_t>(NHeight), 0);
  hSpan.assign(static_cast<std::size_t>(NHeight), {NWidth, 0});
  hUsed = {NWidth, NHeight, 0, 0};
  NUsed = 0;
}

/// The pixels that a line can touch.
PixelBox Coverage::Reached(const Stroke& h) const {
  const R4 fXEnd = h.fX + h.fDX * h.fLength;
  const R4 fYEnd = h.fY + h.fDY * h.fLength;
  const auto iFirst = [&](R4 f1, R4 f2) { return static_cast<I4>(std::max(std::min(f1, f2) - h.fReach, 0.0f)); };
  const auto iEnd = [&](R4 f1, R4 f2, I4 N) {
    return std::min(static_cast<I4>(std::max(std::max(f1, f2) + h.fReach, -1.0f)) + 1, N);
  };
  return {iFirst(h.fX, fXEnd), iFirst(h.fY, fYEnd), iEnd(h.fX, fXEnd, NWidth), iEnd(h.fY, fYEnd, NHeight)};
}

Coverage::Steps Coverage::Steps_of(const Stroke& h) {
  Steps hSteps;
  for (I4 I = 0; I < NEight; ++I) {
    hSteps.iAlong[I] = Short(static_cast<I4>(static_cast<R4>(I * NPart) * h.fDX));
    hSteps.iAcross[I] = Short(static_cast<I4>(static_cast<R4>(I * NPart) * h.fDY));
  }
  hSteps.iReach = Short(static_cast<I4>(h.fReach * NPart));
  return hSteps;
}

/// fX, fY: the centre of the first pixel from the start of the line.
inline Coverage::First Coverage::First_of(const Stroke& h, R4 fX, R4 fY) {
  constexpr R4 fFar = 12000.0f;  // parts: more than the reach and eight pixels
  const auto iParts = [&](R4 f) { return Short(static_cast<I4>(std::max(std::min(f * NPart, fFar), -fFar))); };
  const R4 fAlong = fX * h.fDX + fY * h.fDY;
  return {iParts(-fAlong), iParts(fAlong - h.fLength), iParts(fX * h.fDY - fY * h.fDX)};
}

inline void Coverage::Cover_Eight(const Steps& h, First hFirst, I2* iPixel) {
  const I2 iOtherSide = Short(-hFirst.iAcross);
  for (I4 I = 0; I < NEight; ++I) {
    const I2 iBefore = Short(hFirst.iBefore - h.iAlong[I]);
    const I2 iAfter = Short(hFirst.iAfter + h.iAlong[I]);
    const I2 iBeyond = std::max(std::max(iBefore, iAfter), Short(0));
    const I2 iAcross = std::max(Short(hFirst.iAcross + h.iAcross[I]), Short(iOtherSide - h.iAcross[I]));
    // The ends are eight-sided: a root for every pixel would cost as much as all the rest.
    const I2 iSum = Short(iAcross + iBeyond);
    const I2 iCorner = Short(iSum - Short(iSum >> 2) - Short(iSum >> 5));
    const I2 iDistance = std::max(std::max(iAcross, iBeyond), iCorner);
    iPixel[I] = std::max(iPixel[I], std::min(Short(h.iReach - iDistance), Short(NPart)));
  }
}

/// Of each row, the pixels between both sides of the line.
void Coverage::Add_Rows(const Stroke& h, const PixelBox& hBox) {
  constexpr R4 fLevel = 1.0e-3f;
  const Steps hSteps = Steps_of(h);
  const R4 fInverse = std::abs(h.fDY) < fLevel ? 0.0f : 1.0f / h.fDY;
  const R4 fSide = fInverse == 0.0f ? static_cast<R4>(NWidth) : h.fReach * std::abs(fInverse);
  for (I4 iRow = hBox.iTop; iRow < hBox.iBottom; ++iRow) {
    const R4 fY = static_cast<R4>(iRow) + 0.5f - h.fY;
    const R4 fMiddle = h.fX + fY * h.fDX * fInverse;
    const I4 iLeft = std::max(hBox.iLeft, static_cast<I4>(std::max(fMiddle - fSide, 0.0f)));
    const I4 iRight = static_cast<I4>(std::min(static_cast<R4>(hBox.iRight), fMiddle + fSide + 1.0f));
    I2* iPixel = Row(iRow);
    I4 I = iLeft;
    for (; I < iRight; I += NEight) Cover_Eight(hSteps, First_of(h, static_cast<R4>(I) + 0.5f - h.fX, fY), iPixel + I);
    Use_Row(iRow, iLeft, std::min(I, NWidth));
  }
}

void Coverage::Add_Line(R4 fX1, R4 fY1, R4 fX2, R4 fY2, R4 fWidth) {
  constexpr R4 fShort = 1.0e-3f;  // pixels: a line without a direction
  const R4 fDX = fX2 - fX1;
  const R4 fDY = fY2 - fY1;
  const R4 fLength = std::sqrt(fDX * fDX + fDY * fDY);
  const R4 fInverse = 1.0f / std::max(fLength, fShort);
  Stroke h{fX1, fY1, fDX * fInverse, fDY * fInverse, fLength, 0.5f * (std::min(fWidth, MWidth) + 1.0f)};
  if (fLength < fShort) h = {fX1, fY1, 1.0f, 0.0f, 0.0f, h.fReach};
  const PixelBox hBox = Reached(h);
  if (hBox.Is_Empty()) return;
  Add_Rows(h, hBox);
  Use(hBox);
}

namespace {

void Stamp_Eight(const I2* iFrom, I2* iPixel) {
  constexpr I4 NEight = 8;
  for (I4 I = 0; I < NEight; ++I) iPixel[I] = std::max(iPixel[I], iFrom[I]);
}

/// Pixels of a stamp on each side of the one that the centre lies in, and in all, a multiple of eight. The centre is
/// at most three eighths from the middle of its pixel.
I4 Stamp_Reach(R4 fRadius) {
  return static_cast<I4>(fRadius + 0.875f);
}

I4 Stamp_Side(R4 fRadius) {
  return (2 * Stamp_Reach(fRadius) + 8) / 8 * 8;
}

}  // namespace

/// The pixels of a disc whose centre is at quarters iPhaseX, iPhaseY of its pixel.
std::vector<Coverage::I2> Coverage::New_Stamp(I4 iPhaseX, I4 iPhaseY) const {
  const I4 NSide = Stamp_Side(fStamp);
  const auto fWay = [&](I4 iPixel, I4 iPhase) {
    const R4 fCentre = static_cast<R4>(Stamp_Reach(fStamp)) + (static_cast<R4>(iPhase) + 0.5f) / NPhase;
    return static_cast<R4>(iPixel) + 0.5f - fCentre;
  };
  std::vector<I2> iNew;
  for (I4 iRow = 0; iRow < NSide; ++iRow) {
    for (I4 I = 0; I < NSide; ++I) {
      const R4 fInside = fStamp + 0.5f - std::hypot(fWay(I, iPhaseX), fWay(iRow, iPhaseY));
      iNew.push_back(Short(static_cast<I4>(std::clamp(fInside, 0.0f, 1.0f) * NPart)));
    }
  }
  return iNew;
}

const Coverage::I2* Coverage::Stamp(I4 iPhaseX, I4 iPhaseY) {
  std::vector<I2>& iWanted = iStamp[static_cast<std::size_t>(iPhaseY) * NPhase + static_cast<std::size_t>(iPhaseX)];
  if (iWanted.empty()) iWanted = New_Stamp(iPhaseX, iPhaseY);
  return iWanted.data();
}

void Coverage::Add_Disc(R4 fX, R4 fY, R4 fRadius) {
  if (fRadius != fStamp) {
    fStamp = fRadius;
    iStamp = {};
  }
  const I4 iX = static_cast<I4>(std::floor(fX * NPhase));
  const I4 iY = static_cast<I4>(std::floor(fY * NPhase));
  const I4 iPhaseX = iX & (NPhase - 1);
  const I4 iPhaseY = iY & (NPhase - 1);
  const I4 iLeft = (iX - iPhaseX) / NPhase - Stamp_Reach(fRadius);
  const I4 iTop = (iY - iPhaseY) / NPhase - Stamp_Reach(fRadius);
  const I4 NSide = Stamp_Side(fRadius);
  const PixelBox hBox{std::max(iLeft, 0), std::max(iTop, 0), std::min(iLeft + NSide, NWidth + NEight),
                      std::min(iTop + 2 * Stamp_Reach(fRadius) + 1, NHeight)};
  if (hBox.Is_Empty()) return;
  const bool bWhole = hBox.iLeft == iLeft && hBox.iRight == iLeft + NSide;
  const I2* iDisc = Stamp(iPhaseX, iPhaseY);
  for (I4 iRow = hBox.iTop; iRow < hBox.iBottom; ++iRow) {
    const I2* iFrom = iDisc + (iRow - iTop) * NSide - iLeft;
    I2* iPixel = Row(iRow);
    if (bWhole) {
      for (I4 I = iLeft; I < hBox.iRight; I += NEight) Stamp_Eight(iFrom + I, iPixel + I);
    } else {
      for (I4 I = hBox.iLeft; I < hBox.iRight; ++I) iPixel[I] = std::max(iPixel[I], iFrom[I]);
    }
    Use_Row(iRow, hBox.iLeft, std::min(hBox.iRight, NWidth));
  }
  Use({hBox.iLeft, hBox.iTop, std::min(hBox.iRight, NWidth), hBox.iBottom});
}

bool Coverage::Is_Far(R4 fX, R4 fY, R4 fRadius) const {
  constexpr I8 NSparse = 64;  // pixels that painting passes over for each one that is covered
  const I4 iX = static_cast<I4>(fX), iY = static_cast<I4>(fY);
  if (iX >= hUsed.iLeft && iX < hUsed.iRight && iY >= hUsed.iTop && iY < hUsed.iBottom) return false;
  const I8 NDisc = static_cast<I8>(4.0f * (fRadius + 1.0f) * (fRadius + 1.0f));
  return NUsed > 0 && Box_With({iX, iY, iX + 1, iY + 1}).Area() > NSparse * (NUsed + NDisc);
}

PixelBox Coverage::Box_With(const PixelBox& h) const {
  return {std::min(hUsed.iLeft, h.iLeft), std::min(hUsed.iTop, h.iTop), std::max(hUsed.iRight, h.iRight),
          std::max(hUsed.iBottom, h.iBottom)};
}

void Coverage::Use(const PixelBox& hBox) {
  hUsed = Box_With(hBox);
  NUsed += hBox.Area();
}

namespace {

/// Paints a row and empties it. After the last pixel of the image there is room for more.
void Paint_Row(I2* iRow, I4 NPixel, std::uint32_t* iPixel, std::uint32_t iColour) {
  constexpr I4 NFour = 4;
  for (I4 I = 0; I < NPixel; I += NFour) {
    std::uint64_t iFour;  // most pixels are empty: they are passed over four at a time
    std::memcpy(&iFour, iRow + I, sizeof iFour);
    if (iFour == 0) continue;
    for (I4 K = I; K < std::min(I + NFour, NPixel); ++K) {
      if (iRow[K] != 0) iPixel[K] = Blend(iPixel[K], iColour, static_cast<std::uint32_t>(iRow[K] - (iRow[K] >> 8)));
    }
    std::fill_n(iRow + I, NFour, I2{0});
  }
}

}  // namespace

void Coverage::Paint(const Pixels& hPixels, std::uint32_t iColour) {
  for (I4 iRow = hUsed.iTop; iRow < hUsed.iBottom && !Is_Empty(); ++iRow) {
    Span& h = hSpan[static_cast<std::size_t>(iRow)];
    Paint_Row(Row(iRow) + h.iLeft, h.iRight - h.iLeft, hPixels.iFirst + iRow * hPixels.NStep + h.iLeft, iColour);
    h = {NWidth, 0};
  }
  hUsed = {NWidth, NHeight, 0, 0};
  NUsed = 0;
}

}  // namespace quillan::toolkit
