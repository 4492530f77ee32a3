#include "model/history.h"

#include <algorithm>
#include <deque>
#include <new>
#include <span>
#include <utility>

#include "model/saved_state.h"
#include "platform/clock.h"

namespace quillan {
namespace {

constexpr I4 iNowhere = -1;  // no position has the data of the file

// What is kept. History_Begin restores it.
struct History {
  std::vector<Transient> hTrn;  // the shadow: the data as the last edit left them
  std::vector<std::string> sPart =
      std::vector<std::string>(History_Parts().size());  // the same, by row of History_Parts
  std::deque<Edit> hEdit;                                // oldest first
  std::vector<EditWords> hGone;                          // the words of edits that had to go
  I4 iPosition = 0;                                      // edits in force
  I4 iSaved = 0;                                         // position at which the data are those of the file
  std::size_t NByte = 0;                                 // that the edits hold
};
History hHistory;

std::span<const Transient> Store() {
  return {hTrn.data(), static_cast<std::size_t>(NTrn)};
}

// ---- the difference from the shadow

struct Difference {
  DataChange hBefore, hAfter;
  EditTally hTally;
  bool Is_None() const { return hBefore.NTrn == hAfter.NTrn && hAfter.hRun.empty() && hAfter.hPart.empty(); }
};

/// Transients on both sides by what differs, those on one side alone as a whole.
void Add_Transients(Difference& h) {
  constexpr auto NWhole = static_cast<I4>(sizeof(Transient));
  const I4 NBoth = std::min(h.hBefore.NTrn, h.hAfter.NTrn);
  for (I4 j = 1; j <= NBoth; ++j) {
    const Transient& hBefore = hHistory.hTrn[static_cast<std::size_t>(j - 1)];
    const DataChange::Run hRun = Differing_Bytes(j, hBefore, hTrn(j));
    if (hRun.NByte == 0) continue;
    Add_Run(h.hBefore, hRun, hBefore);
    Add_Run(h.hAfter, hRun, hTrn(j));
    h.hTally.Count(hBefore, hTrn(j), Is_in_Flags(hRun));
  }
  for (I4 j = NBoth + 1; j <= h.hBefore.NTrn; ++j)
    Add_Run(h.hBefore, {j, 0, NWhole}, hHistory.hTrn[static_cast<std::size_t>(j - 1)]);
  for (I4 j = NBoth + 1; j <= h.hAfter.NTrn; ++j) Add_Run(h.hAfter, {j, 0, NWhole}, hTrn(j));
}

void Add_Parts(Difference& h) {
  const auto hPart = History_Parts();
  for (std::size_t K = 0; K < hPart.size(); ++K) {
    std::string sBytes = hPart[K].Bytes();
    if (sBytes == hHistory.sPart[K]) continue;
    h.hTally.Count_Part(hPart[K].sName);
    h.hBefore.hPart.push_back({static_cast<I4>(K) + 1, hHistory.sPart[K]});
    h.hAfter.hPart.push_back({static_cast<I4>(K) + 1, std::move(sBytes)});
  }
}

Difference From_Shadow() {
  Difference h;
  h.hBefore.NTrn = static_cast<I4>(hHistory.hTrn.size());
  h.hAfter.NTrn = NTrn;
  h.hTally.Count_Store(h.hBefore.NTrn, h.hAfter.NTrn);
  Add_Transients(h);
  Add_Parts(h);
  return h;
}

/// The shadow takes a change up. Its room was made by History_Begin.
void Shadow_Change(const DataChange& hChange) {
  hHistory.hTrn.resize(static_cast<std::size_t>(hChange.NTrn));
  Put_Transients(hChange, hHistory.hTrn.data());
  for (const DataChange::Run& h : hChange.hRun) Saved_Touch(h.j);
  for (const DataChange::Part& h : hChange.hPart) hHistory.sPart[static_cast<std::size_t>(h.K - 1)] = h.sBytes;
}

/// All of the data at once. The room for a full store is taken at the first call and kept.
void Shadow_All() {
  hHistory.hTrn.reserve(MTrn);
  hHistory.hTrn.assign(Store().begin(), Store().end());
  for (std::size_t K = 0; K < hHistory.sPart.size(); ++K) hHistory.sPart[K] = History_Parts()[K].Bytes();
}

// ---- the list of edits

std::size_t Memory(const Edit& h) {
  const std::size_t NWords = h.hWords.sEdit.capacity() + h.hWords.sWhat.capacity() + h.hWords.sWhere.capacity();
  return sizeof h + NWords + h.hBefore.Memory() + h.hAfter.Memory();
}

void Drop_Undone() {
  for (; History_Count() > hHistory.iPosition; hHistory.hEdit.pop_back())
    hHistory.NByte -= Memory(hHistory.hEdit.back());
  if (hHistory.iSaved > hHistory.iPosition) hHistory.iSaved = iNowhere;
}

void Drop_Oldest() {
  Edit& h = hHistory.hEdit.front();
  hHistory.NByte -= Memory(h);
  hHistory.hGone.push_back(std::move(h.hWords));
  hHistory.hEdit.pop_front();
  --hHistory.iPosition;
  hHistory.iSaved = std::max(hHistory.iSaved - 1, iNowhere);
}

void Add_Edit(Difference&& h, std::string_view sEdit) {
  Drop_Undone();
  hHistory.hEdit.push_back(
      {h.hTally.Words(sEdit), h.hTally.Has_Only_Flags(), std::move(h.hBefore), std::move(h.hAfter)});
  hHistory.hEdit.back().hWords.iTime = IOsTime();
  hHistory.NByte += Memory(hHistory.hEdit.back());
  ++hHistory.iPosition;
  while (hHistory.NByte > NHistoryLimit && History_Count() > 1) Drop_Oldest();
}

void Forget_Edits() {
  hHistory.hEdit.clear();
  hHistory.iPosition = 0;
  hHistory.iSaved = iNowhere;
  hHistory.NByte = 0;
}

void Tell(EditEvent iEvent, const Edit& h) {
  if (hOnEdit) hOnEdit(iEvent, h);
}

void Put(const DataChange& hChange) {
  NTrn = hChange.NTrn;
  Put_Transients(hChange, hTrn.data());
  static_cast<void>(Put_Parts(hChange));  // their bytes are the program's own
  Shadow_Change(hChange);
}

}  // namespace

void History_Begin() {
  Forget_Edits();
  hHistory.hGone.clear();
  hHistory.iSaved = 0;
  Shadow_All();
  Saved_Take(hHistory.hTrn, hHistory.sPart);
}

bool History_Keep(std::string_view sEdit) {
  try {
    Difference h = From_Shadow();
    if (h.Is_None()) return false;
    Shadow_Change(h.hAfter);
    Add_Edit(std::move(h), sEdit);
  } catch (const std::bad_alloc&) {
    Forget_Edits();
    History_Follow();
    Tell(EditEvent::Lost, {});
    return true;
  }
  Tell(EditEvent::Kept, hHistory.hEdit.back());
  return true;
}

void History_Follow() {
  const Difference h = From_Shadow();
  if (!h.Is_None()) Shadow_Change(h.hAfter);
}

void History_Saved() {
  Shadow_All();
  hHistory.iSaved = hHistory.iPosition;
  Saved_Take(hHistory.hTrn, hHistory.sPart);
}

const Edit* History_Undo() {
  if (hHistory.iPosition == 0) return nullptr;
  const Edit& h = History_Edit(hHistory.iPosition);
  Put(h.hBefore);
  --hHistory.iPosition;
  Tell(EditEvent::Undone, h);
  return &h;
}

const Edit* History_Redo() {
  if (hHistory.iPosition == History_Count()) return nullptr;
  const Edit& h = History_Edit(hHistory.iPosition + 1);
  Put(h.hAfter);
  ++hHistory.iPosition;
  Tell(EditEvent::Redone, h);
  return &h;
}

bool History_Apply(const DataChange& hAfter, std::string_view sEdit) {
  if (!Fits(hAfter)) return false;
  if (!Put_Parts(hAfter)) {
    History_Put_Back();
    return false;
  }
  NTrn = hAfter.NTrn;
  Put_Transients(hAfter, hTrn.data());
  static_cast<void>(History_Keep(sEdit));
  return true;
}

I4 Edit_Place(const Edit& hEdit, I4 jFrom, I4 jTo) {
  const auto Changed_from = [&hEdit](I4 jLeast, I4 jMost) {
    const auto& hRun = hEdit.hAfter.hRun.empty() ? hEdit.hBefore.hRun : hEdit.hAfter.hRun;
    const auto h = std::ranges::find_if(hRun, [=](const auto& hOne) { return hOne.j >= jLeast && hOne.j <= jMost; });
    return h == hRun.end() ? 0 : h->j;
  };
  if (const I4 j = Changed_from(jFrom, jTo); j != 0) return j;
  const I4 j = Changed_from(1, NTrn);
  return std::clamp(j == 0 ? jFrom : j, 1, std::max(NTrn, 1));
}

I4 History_Count() {
  return static_cast<I4>(hHistory.hEdit.size());
}

I4 History_Position() {
  return hHistory.iPosition;
}

const Edit& History_Edit(I4 K) {
  return hHistory.hEdit[static_cast<std::size_t>(K - 1)];
}

const std::vector<EditWords>& History_Gone() {
  return hHistory.hGone;
}

bool History_Differs_from_File() {
  return hHistory.iPosition != hHistory.iSaved && Saved_Differs(hHistory.hTrn, hHistory.sPart);
}

std::size_t History_Memory() {
  return hHistory.NByte;
}

void History_Put_Back() {
  NTrn = static_cast<I4>(hHistory.hTrn.size());
  std::ranges::copy(hHistory.hTrn, hTrn.begin());
  for (std::size_t K = 0; K < hHistory.sPart.size(); ++K) static_cast<void>(History_Parts()[K].Put(hHistory.sPart[K]));
}

std::size_t History_Put_Back_Room() {
  constexpr std::size_t NToSpare = std::size_t{1} << 16U;
  std::size_t NByte = NToSpare;
  for (const std::string& sBytes : hHistory.sPart) NByte += 2 * sBytes.size();
  return NByte;
}

}  // namespace quillan
