// md_engine_rows.h: how md_engine.h walks a table of rows. It is included by that header alone.
#pragma once

#include <algorithm>
#include <type_traits>

#include "metadata/md_engine.h"

namespace quillan {

/// The elements of a field as values: all of them, or the one that iElement (from 1) names.
template <class T>
std::span<T> MD_Elements(T& hField, I4 = 0) {
  return {&hField, 1};
}
template <class T, I4 N>
std::span<T> MD_Elements(Array1<T, N>& hField, I4 iElement = 0) {
  const std::span<T> hAll(hField.data(), hField.size());
  return iElement > 0 ? hAll.subspan(static_cast<std::size_t>(iElement - 1), 1) : hAll;
}

/// Takes the leading fields into the values, each through the gate of its priority; a single priority gates them all.
/// NSet, where it is given, takes the number of values. Returns the status of the record.
template <class T>
[[nodiscard]] I4 MD_Take_Fields(const MdRecord& hRecord, std::span<T> hValue, std::span<I4> lPriority,
                                const MdRule& hRule, I4& NWarn, I4* NSet = nullptr) {
  const std::size_t NValue = std::min(static_cast<std::size_t>(hRecord.NField()), hValue.size());
  const std::string_view sName = hRule.sLabel.empty() ? hRecord.sName : hRule.sLabel;
  I4 iStatus = 0;
  for (std::size_t K = 0; K < NValue; ++K) {
    if (!MD_Passes(hRecord, lPriority[std::min(K, lPriority.size() - 1)])) continue;
    const I4 I = static_cast<I4>(K) + 1;
    if constexpr (std::is_arithmetic_v<T>) {
      const std::string sLabel = hValue.size() > 1 ? MD_Label(sName, I) : std::string(sName);
      iStatus = MD_Status(iStatus, MD_Take_Value(hRecord, hRecord.sField(I), sLabel, hRule, hValue[K], NWarn));
    } else {
      hValue[K] = hRecord.sField(I);
    }
    if (NSet != nullptr) *NSet = static_cast<I4>(NValue);
  }
  return iStatus;
}

template <auto hValue, auto lValue, auto NErr, class Group>
I4 MD_Into(const MdRecord& hRecord, Group& hGroup, const MdRow<Group>& hRow) {
  I4 NUncounted = 0;
  I4* NWarn = &NUncounted;
  if constexpr (NErr != nullptr) NWarn = &(hGroup.*NErr);
  const MdMore<Group>& hMore = hRow.hMore;
  return MD_Take_Fields(hRecord, MD_Elements(hGroup.*hValue, hMore.iElement),
                        MD_Elements(hGroup.*lValue, hMore.iElement), hRow.hRule, *NWarn,
                        hMore.NSet != nullptr ? &(hGroup.*hMore.NSet) : nullptr);
}

template <class Group>
I4 MD_Take_Row(const MdRow<Group>& hRow, const MdRecord& hRecord, Group& hGroup) {
  if (hRow.Take != nullptr) return hRow.Take(hRecord, hGroup);
  return hRow.Fill != nullptr ? hRow.Fill(hRecord, hGroup, hRow) : 0;
}

template <class Group, std::size_t N>
I4 MD_Read(std::string_view sReader, const MdRow<Group> (&hRow)[N], const MdRecord& hRecord, Group& hGroup) {
  MdRecord hHere = hRecord;
  hHere.sReader = sReader;
  for (const MdRow<Group>& hTry : hRow) {
    if (MD_Fits(hTry.CKeyword, hHere.CKeyword)) return MD_Take_Row(hTry, hHere, hGroup);
  }
  MD_Warn_Unknown(hHere, hGroup.NErrUnknown);
  return iMdUnknownKeyword;
}

}  // namespace quillan
