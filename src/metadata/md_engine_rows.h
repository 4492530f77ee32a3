// md_engine_rows.h: how md_engine.h walks a table of rows. It is included by that header alone.
#pragma once

#include <type_traits>

#include "metadata/md_engine.h"

namespace quillan {

/// The elements of a field as values: all of them, or the one that iElement (from 1) names.
template <class T>
std::span<T> MD_Elements(T& hField, I4) {
  return {&hField, 1};
}
template <class T, I4 N>
std::span<T> MD_Elements(Array1<T, N>& hField, I4 iElement) {
  const std::span<T> hAll(hField.data(), hField.size());
  return iElement > 0 ? hAll.subspan(static_cast<std::size_t>(iElement - 1), 1) : hAll;
}

template <class Group>
void MD_Take_Row(const MdRow<Group>& hRow, const MdRecord& hRecord, Group& hGroup, I4& IMERR) {
  if (hRow.Take != nullptr) return hRow.Take(hRecord, hGroup, IMERR);
  const auto Take_Field = [&](auto hMember) {
    if constexpr (!std::is_same_v<decltype(hMember), std::monostate>) {
      I4 NUncounted = 0;
      const auto Priority = [&](auto lMember) { return MD_Elements(hGroup.*lMember, hRow.hMore.iElement); };
      const MdTarget hTarget{MD_Elements(hGroup.*hMember, hRow.hMore.iElement), std::visit(Priority, hRow.lField),
                             hRow.NErr != nullptr ? hGroup.*hRow.NErr : NUncounted,
                             hRow.hMore.NSet != nullptr ? &(hGroup.*hRow.hMore.NSet) : nullptr};
      MD_Take_Fields(hRecord, hTarget, hRow.hRule, IMERR);
    }
  };
  std::visit(Take_Field, hRow.hField);
}

template <class Group, std::size_t N>
void MD_Read(std::string_view sReader, const MdRow<Group> (&hRow)[N], const MdRecord& hRecord, Group& hGroup,
             I4& IMERR) {
  IMERR = 0;
  MdRecord hHere = hRecord;
  hHere.sReader = sReader;
  for (const MdRow<Group>& hTry : hRow) {
    if (MD_Fits(hTry.CKeyword, hHere.CKeyword)) return MD_Take_Row(hTry, hHere, hGroup, IMERR);
  }
  MD_Warn_Unknown(hHere, hGroup.NErrUnknown, IMERR);
}

template <class Group, std::size_t N>
void MD_Initialize(const MdRow<Group> (&hRow)[N], Group& hGroup, bool bResetError) {
  Group hFresh{};
  if (!bResetError) {
    for (const MdRow<Group>& hKept : hRow) {
      if (hKept.NErr != nullptr) hFresh.*hKept.NErr = hGroup.*hKept.NErr;
    }
    hFresh.NErrUnknown = hGroup.NErrUnknown;
  }
  hGroup = hFresh;
}

}  // namespace quillan
