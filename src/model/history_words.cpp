#include "model/history_words.h"

#include <algorithm>
#include <cstring>

#include "foundations/str_write.h"
#include "model/history_image.h"

namespace quillan {
namespace {

constexpr WindowValues Transient::*hValueField[] = {
    &Transient::fTWCen, &Transient::fTWBeg, &Transient::fTWEnd, &Transient::fuVmag, &Transient::fuVerr,
    &Transient::fuVpct, &Transient::fARes,  &Transient::fDepth, &Transient::fBmag,
};

/// Bit by bit: a zero that has changed its sign has changed.
template <class Value>
bool Is_Other(const Value& h1, const Value& h2) {
  return std::memcmp(&h1, &h2, sizeof h1) != 0;
}

std::string Counted(I4 N, std::string_view sThing) {
  return Str_Write_I4(N).str() + " " + std::string(sThing) + (N == 1 ? "" : "s");
}

void Add_Word(std::string& sList, std::string_view sWord) {
  if (sList.find(sWord) != std::string::npos) return;
  sList.append(sList.empty() ? "" : ", ").append(sWord);
}

bool Begins_with_Number(std::string_view sText) {
  return !sText.empty() && sText[0] >= '0' && sText[0] <= '9';
}

std::string Joined(const EditWords& h) {
  if (h.sWhat.empty() || h.sWhere.empty()) return h.sWhat + h.sWhere;
  return h.sWhat + (Begins_with_Number(h.sWhat) && Begins_with_Number(h.sWhere) ? " in " : ", ") + h.sWhere;
}

}  // namespace

void EditTally::Count_Flags(const Transient& hBefore, const Transient& hAfter) {
  for (I4 I = 1; I <= std::max(hBefore.NTW, hAfter.NTW); ++I) {
    if (hBefore.bSkip(I) == hAfter.bSkip(I)) continue;
    ++(hAfter.bSkip(I) ? NSkipped : NCleared);
    IFlag = I;
  }
}

void EditTally::Count_Values(const Transient& hBefore, const Transient& hAfter) {
  Array1<L4, MTW> bOther{};
  for (const auto hField : hValueField) {
    if (!Is_Other(hBefore.*hField, hAfter.*hField)) continue;
    for (I4 I = 1; I <= std::max(hBefore.NTW, hAfter.NTW); ++I)
      bOther(I) = bOther(I) || Is_Other((hBefore.*hField)(I), (hAfter.*hField)(I));
  }
  NValue += static_cast<I4>(std::ranges::count(bOther, true));
}

void EditTally::Count(const Transient& hBefore, const Transient& hAfter, bool bInFlags) {
  ++NSounding;
  dStn = hAfter.dRxStn;
  Count_Flags(hBefore, hAfter);
  if (bInFlags) return;
  Count_Values(hBefore, hAfter);
  if (hAfter.bSkipTrn && !hBefore.bSkipTrn) ++NSkippedTrn;
  Transient hFlagged = hBefore;
  hFlagged.bSkipTrn = hAfter.bSkipTrn;
  hFlagged.bSkip = hAfter.bSkip;
  if (Differing_Bytes(1, hFlagged, hAfter).NByte != 0) bMore = true;
}

void EditTally::Count_Part(std::string_view sName) {
  Add_Word(sParts, sName);
  bMore = true;
}

void EditTally::Count_Store(I4 NBefore, I4 NAfter) {
  NTrnBefore = NBefore;
  NTrnAfter = NAfter;
  if (NBefore != NAfter) bMore = true;
}

std::string EditTally::What(bool bByHand) const {
  const I4 NFlag = NSkipped + NCleared;
  if (NTrnBefore != NTrnAfter) return Str_Write_I4(NTrnBefore).str() + " to " + Counted(NTrnAfter, "transient");
  if (NValue > 0) return Counted(NValue, "value");
  if (bByHand && NFlag == 1) return "window " + Str_Write_I4(IFlag).str();
  if (NFlag > 0) return Counted(NFlag, "window");
  return bByHand ? "sounding" : sParts;
}

std::string EditTally::Where() const {
  if (NTrnBefore != NTrnAfter || NSounding == 0) return {};
  return NSounding == 1 ? "Stn " + Str_Write_R8(dStn, "(F12.3)").str() : Counted(NSounding, "sounding");
}

EditWords EditTally::Words(std::string_view sEdit) const {
  const bool bByHand = sEdit.empty();
  const std::string_view sFlags = NSkipped + NSkippedTrn > 0 ? "Skip" : "Clear";
  return {std::string(bByHand ? sFlags : sEdit), What(bByHand), Where(), bByHand, 0};
}

std::string Edit_Name(const EditWords& h) {
  const std::string sDetail = Joined(h);
  if (sDetail.empty()) return h.sEdit;
  return h.sEdit + (h.bByHand ? " " + sDetail : " (" + sDetail + ")");
}

}  // namespace quillan
