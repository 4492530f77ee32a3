#include "review/plot/ticks.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "foundations/str_write.h"
#include "review/plot/signed_log.h"
#include "toolkit/draw/plot_axes.h"

namespace quillan {

namespace {

constexpr I4 MExponent = 45;   // of any R4
constexpr I4 MDecade = 20;     // decades on either side of zero
constexpr I4 NTickWanted = 3;  // an axis with fewer ticks cannot be read
constexpr I4 NTickTidy = 6;    // about so many tidy steps
constexpr R4 fDecades[] = {1.0f};
constexpr R4 fOneTwoFive[] = {1.0f, 2.0f, 5.0f};

R4 Power_of_Ten(I4 iExponent) {
  return static_cast<R4>(std::pow(10.0, iExponent));
}

/// Exponent of the first digit of a value or a step.
I4 First_Digit(R4 fValue) {
  constexpr R4 fRounding = 0.001f;  // 1000 is 10**3, though its logarithm may fall short
  return static_cast<I4>(std::floor(std::log10(std::abs(fValue)) + fRounding));
}

std::string By_Form(R4 fValue, const EditForm& form) {
  char sOut[MFormText];
  return std::string(Left_Adjusted(Write_Form(fValue, form, sOut)));
}

/// A tick's text by its magnitude, as short as the decades need.
std::string Tick_Text(R4 fValue) {
  const R4 fMagnitude = std::abs(fValue);
  if (fMagnitude < 9.0E-13f) return "0";
  if (fMagnitude < 9.0E-4f) return By_Form(fValue, "(ES8.1)");
  if (fMagnitude < 0.9f) return Str_Write_R4(fValue, "(F12.3)").str();
  if (fMagnitude < 9000.0f) return Str_Write_I4(Nint(fValue)).str();
  return By_Form(fValue, "(ES8.1)");
}

/// The same with as many more digits as tell values fStep apart.
std::string Tick_Text(R4 fValue, R4 fStep) {
  constexpr I4 MDigits = 7;  // a R4 has no more
  const R4 fMagnitude = std::abs(fValue);
  if (fMagnitude < 0.5f * fStep) return "0";
  const bool bPlain = fMagnitude >= 9.0E-4f && fMagnitude < 9000.0f;
  EditForm form(bPlain ? "(F16.0)" : "(ES16.1)");
  form.NDecimal = std::clamp((bPlain ? 0 : First_Digit(fValue)) - First_Digit(fStep), form.NDecimal, MDigits);
  return bPlain ? Str_Write_R4(fValue, form).str() : By_Form(fValue, form);
}

/// The ticks that are being collected.
struct TickList {
  R4 fYPmin, fYPmax, fYPscl;
  I4 MYTick;
  Ticks hTicks{};

  I4 NYTick() const { return static_cast<I4>(hTicks.fYTick.size()); }
  /// False when the walk upward ends: beyond the range, or with the last tick that there is room for.
  bool Add(R4 fValue, const std::string& sText) {
    const R4 fYP = fAsinh10(fValue, fYPscl);
    if (!(fYP <= fYPmax) || NYTick() >= MYTick) return false;
    if (fYP < fYPmin) return true;
    hTicks.fYTick.push_back(fYP);
    hTicks.sYTick.push_back(sText);
    return NYTick() < MYTick;
  }
};

/// From the lowest negative decade over zero to the highest positive one, at fMantissa of each.
void Walk_Decades(std::span<const R4> fMantissa, TickList& hTick) {
  hTick.hTicks = {};
  const I4 iBase = std::clamp(Nint(std::log10(std::abs(hTick.fYPscl))), -MExponent, MExponent);
  const auto Add = [&](R4 fMant, I4 iDecade, R4 fSign) {
    const R4 fValue = fSign * fMant * Power_of_Ten(iDecade + iBase);
    return hTick.Add(fValue, Tick_Text(fValue));
  };
  for (I4 iDecade = MDecade; iDecade >= 0; --iDecade) {
    for (auto fMant = fMantissa.rbegin(); fMant != fMantissa.rend(); ++fMant) {
      if (!Add(*fMant, iDecade, -1.0f)) return;
    }
  }
  if (!hTick.Add(0.0f, "0")) return;
  for (I4 iDecade = 0; iDecade <= MDecade; ++iDecade) {
    for (const R4 fMant : fMantissa) {
      if (!Add(fMant, iDecade, 1.0f)) return;
    }
  }
}

/// At even steps of the value: in so small a range the scale is nearly linear.
void Walk_Tidy_Steps(TickList& hTick) {
  const R8 dLow = R8{fSinh10(hTick.fYPmin, hTick.fYPscl)};
  const R8 dHigh = R8{fSinh10(hTick.fYPmax, hTick.fYPscl)};
  std::vector<Tick> hEven = Linear_Ticks(dLow, dHigh, NTickTidy);
  std::erase_if(hEven, [](const Tick& h) { return !h.bMajor; });
  if (hEven.size() < 2 || static_cast<I4>(hEven.size()) <= hTick.NYTick()) return;
  hTick.hTicks = {};
  const R4 fStep = static_cast<R4>(hEven[1].dValue - hEven[0].dValue);
  for (const Tick& h : hEven) {
    const R4 fValue = static_cast<R4>(h.dValue);
    if (!hTick.Add(fValue, Tick_Text(fValue, fStep))) return;
  }
}

}  // namespace

Ticks Asinh10_Ticks(R4 fYPmin, R4 fYPmax, R4 fYPscl, I4 MYTick) {
  TickList hTick{fYPmin, fYPmax, fYPscl, MYTick};
  const I4 NWanted = std::min(NTickWanted, MYTick);  // decades that fill what room there is are kept
  Walk_Decades(fDecades, hTick);
  if (hTick.NYTick() < NWanted) Walk_Decades(fOneTwoFive, hTick);
  if (hTick.NYTick() < NWanted) Walk_Tidy_Steps(hTick);
  return hTick.hTicks;
}

Ticks Zero_First(Ticks h) {
  const auto KZero = std::find(h.fYTick.begin(), h.fYTick.end(), 0.0f) - h.fYTick.begin();
  if (KZero == std::ssize(h.fYTick)) return h;
  std::rotate(h.fYTick.begin(), h.fYTick.begin() + KZero, h.fYTick.begin() + KZero + 1);
  std::rotate(h.sYTick.begin(), h.sYTick.begin() + KZero, h.sYTick.begin() + KZero + 1);
  return h;
}

}  // namespace quillan
