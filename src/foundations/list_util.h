// list_util.h: small lists of unique values in the caller's array: frequencies, window configurations, stations, names.
//
// A list is an array whose size is its capacity, and NList, the values in use; places count from 1. Two reals are the
// same value when they differ by less than 100 Spacing of the value looked up, so that a list of readings does not
// fill with near-copies. Whole numbers are the same when they are equal. Members Sn hold names: their difference is
// iStr_Fuzzy_Match, the same name is one that differs at most in the case of its letters, and their order is lexical.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "base/types.h"

namespace quillan {

/// Adds a value to a list in the order of arrival. iMatch: its place. iFlag: 0 it was there; 1 added; 2 the list was
/// full, and the value stands in place of the last one.
void List_Append_I4(I4 iValue, I4& NList, std::span<I4> iList, I4& iMatch, I4& iFlag);
void List_Append_R4(R4 fValue, I4& NList, std::span<R4> fList, I4& iMatch, I4& iFlag);
void List_Append_R8(R8 dValue, I4& NList, std::span<R8> dList, I4& iMatch, I4& iFlag);
void List_Append_Sn(std::string_view sValue, I4& NList, std::span<std::string> sList, I4& iMatch, I4& iFlag);

// The other families hold their lists in rising order.

/// Adds a value at its place. iFlag: 0 it was there; 1 added; 2 the list was full and has lost its last value.
void List_Insert_I4(I4 iValue, I4& NList, std::span<I4> iList, I4& iFlag);
void List_Insert_R4(R4 fValue, I4& NList, std::span<R4> fList, I4& iFlag);
void List_Insert_R8(R8 dValue, I4& NList, std::span<R8> dList, I4& iFlag);
void List_Insert_Sn(std::string_view sValue, I4& NList, std::span<std::string> sList, I4& iFlag);

/// iMatch: the place of the value, 0 when it is not there.
void List_Search_I4(I4 iValue, I4 NList, std::span<const I4> iList, I4& iMatch);
void List_Search_R4(R4 fValue, I4 NList, std::span<const R4> fList, I4& iMatch);
void List_Search_R8(R8 dValue, I4 NList, std::span<const R8> dList, I4& iMatch);
void List_Search_Sn(std::string_view sValue, I4 NList, std::span<const std::string> sList, I4& iMatch);

/// iMatch: the place of the nearest item, the lower one of two that are as near; its difference, never negative but
/// for a value below the whole list. An empty list gives iMatch 0 and a difference of 1.0E32, or 2147483646. Names
/// need no order here; of those as near the first is taken.
void List_Nearest_I4(I4 iValue, I4 NList, std::span<const I4> iList, I4& iMatch, I4& iDVmin);
void List_Nearest_R4(R4 fValue, I4 NList, std::span<const R4> fList, I4& iMatch, R4& fDVmin);
void List_Nearest_R8(R8 dValue, I4 NList, std::span<const R8> dList, I4& iMatch, R8& dDVmin);
void List_Nearest_Sn(std::string_view sValue, I4 NList, std::span<const std::string> sList, I4& iMatch, I4& iDVmin);

/// JLow: the item at or below the value, the next one being above it; 0 below the list, NList from its last item on. It
/// comes in as a starting place. DV1: the value less the lower item. DV2: the upper item less the value.
/// Outside the list one neighbour is missing. Above it DV2 is the larger of 2 DV1 and 1; below it DV2 is the value less
/// the first item, which is negative, and DV1 the smaller of 2 DV2 and -1: the missing neighbour is never the nearer
/// one. An empty list gives 0, -1, 0.
void List_Bracket_I4(I4 iValue, I4 NList, std::span<const I4> iList, I4& JLow, I4& iDV1, I4& iDV2);
void List_Bracket_R4(R4 fValue, I4 NList, std::span<const R4> fList, I4& JLow, R4& fDV1, R4& fDV2);
void List_Bracket_R8(R8 dValue, I4 NList, std::span<const R8> dList, I4& JLow, R8& dDV1, R8& dDV2);
void List_Bracket_Sn(std::string_view sValue, I4 NList, std::span<const std::string> sList, I4& JLow, I4& iDV1,
                     I4& iDV2);

}  // namespace quillan
