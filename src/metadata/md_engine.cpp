#include "metadata/md_engine.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <type_traits>
#include <utility>

#include "foundations/str_write.h"

namespace quillan {

namespace {

constexpr std::size_t MReportedRecord = 128;  // characters of a record that a warning shows

/// The words of a pattern with their places filled: {name} by hWord's text of that name.
using PatternWord = std::pair<std::string_view, std::string>;
std::string Fill_Pattern(std::string_view sPattern, std::span<const PatternWord> hWord) {
  std::string sText;
  while (!sPattern.empty()) {
    const auto hPlace =
        std::ranges::find_if(hWord, [&](const PatternWord& h) { return sPattern.starts_with(h.first); });
    if (hPlace != hWord.end()) {
      sText += hPlace->second;
      sPattern.remove_prefix(hPlace->first.size());
    } else {
      sText += sPattern.front();
      sPattern.remove_prefix(1);
    }
  }
  return sText;
}

bool Is_Accepted(const MdLimits& hLimits, R8 dValue) {
  const R8 dTested = hLimits.iTest == MdTest::Magnitude ? std::abs(dValue) : dValue;
  const bool bLow = hLimits.iTest == MdTest::AboveLow ? dTested > hLimits.dTestLow : dTested >= hLimits.dTestLow;
  return bLow && dTested <= hLimits.dTestHigh;
}

R8 Repaired(const MdLimits& hLimits, R8 dValue) {
  if (hLimits.iRepair == MdRepair::Reset) return 0.0;
  if (hLimits.iTest != MdTest::Magnitude) return std::clamp(dValue, hLimits.dLow, hLimits.dHigh);
  return std::copysign(std::clamp(std::abs(dValue), hLimits.dLow, hLimits.dHigh), dValue);
}

/// The limits as values of type T: 1.0E-6 read as R4 is accepted where the limit is 1.0E-6.
template <class T>
MdLimits Rounded(MdLimits hLimits) {
  for (R8* dLimit : {&hLimits.dLow, &hLimits.dHigh, &hLimits.dTestLow, &hLimits.dTestHigh}) {
    *dLimit = static_cast<R8>(static_cast<T>(*dLimit));
  }
  return hLimits;
}

template <class T>
bool Check_Range(const MdRecord& hRecord, std::string_view sLabel, const MdLimits& hGiven, T& hValue, I4& NWarn) {
  if (!hGiven.Are_Set()) return true;
  const MdLimits hLimits = Rounded<T>(hGiven);
  if (Is_Accepted(hLimits, static_cast<R8>(hValue))) return true;

  std::array<PatternWord, 6> hWord{
      {{"{reader}", std::string(hRecord.sReader)},
       {"{record}", MD_Number(hRecord.iRecord)},
       {"{name}", std::string(Trimmed(sLabel))},
       {"{low}", MD_Number(static_cast<T>(hLimits.dLow))},
       {"{high}", MD_Number(static_cast<T>(hLimits.dHigh))},
       {"{value}", MD_Number(hValue)}}
  };
  ErrorLines sError{Fill_Pattern(hLimits.sHead, hWord), Fill_Pattern(hLimits.sWhat, hWord)};
  hValue = static_cast<T>(Repaired(hLimits, static_cast<R8>(hValue)));
  hWord.back().second = MD_Number(hValue);
  sError.push_back(Fill_Pattern(hLimits.sDone, hWord));
  MD_Warn(sError, NWarn);
  return false;
}

/// A field that is missing or unreadable leaves its status; one that was read leaves the status of those before it.
void Keep_Status(I4 IOERR, I4& IMERR) {
  if (IOERR != 0) IMERR = IOERR;
}

template <class Real>
std::string Real_Text(Real xValue) {
  static constexpr EditForm form("(ES12.4)");
  char sText[MFormText];
  return std::string(Left_Adjusted(Write_Form(xValue, form, sText)));
}

/// Takes the leading fields into the elements of an array, or the first field into a single value.
template <class T>
void Take_Elements(const MdRecord& hRecord, std::span<T> hValue, const MdTarget& hTarget, const MdRule& hRule,
                   I4& IMERR) {
  const I4 NValue = std::min(hRecord.NField(), static_cast<I4>(hValue.size()));
  const std::string_view sName = hRule.sLabel.empty() ? hRecord.sName : hRule.sLabel;
  for (I4 I = 1; I <= NValue; ++I) {
    const std::size_t K = static_cast<std::size_t>(I - 1);
    if (!MD_Passes(hRecord, hTarget.lPriority[std::min(K, hTarget.lPriority.size() - 1)])) continue;
    if constexpr (std::is_arithmetic_v<T>) {
      const std::string sLabel = hValue.size() > 1 ? MD_Label(sName, I) : std::string(sName);
      MD_Take_Value(hRecord, hRecord.sField(I), sLabel, hRule, hValue[K], hTarget.NWarn, IMERR);
    } else {
      hValue[K] = hRecord.sField(I);
    }
    if (hTarget.NSet != nullptr) *hTarget.NSet = NValue;
  }
}

}  // namespace

void MD_Take_Value(const MdRecord& hRecord, std::string_view sField, std::string_view sLabel, const MdRule& hRule,
                   R4& fValue, I4& NWarn, I4& IMERR) {
  const R4 fDefault = static_cast<R4>(hRule.dDefault);
  const FieldContext hAt = hRecord.At(sLabel);
  I4 IOERR = 0;
  switch (hRule.iParse) {
    case MdParse::Azimuth: Fld_to_R4Azimuth(hAt, sField, fDefault, fValue, IOERR); break;
    case MdParse::Meters: Fld_to_R4Meters(hAt, sField, hRecord.iLength, fDefault, fValue, IOERR); break;
    case MdParse::Time:
    case MdParse::Plain: Fld_to_R4(hAt, sField, fDefault, fValue, IOERR); break;
  }
  Keep_Status(IOERR, IMERR);
  MD_Check_Range(hRecord, sLabel, hRule.hLimits, fValue, NWarn);
}

void MD_Take_Value(const MdRecord& hRecord, std::string_view sField, std::string_view sLabel, const MdRule& hRule,
                   R8& dValue, I4& NWarn, I4& IMERR) {
  I4 IOERR = 0;
  if (hRule.iParse == MdParse::Time) {
    Fld_to_R8Time(hRecord.At(sLabel), sField, hRule.dDefault, dValue, IOERR);
  } else {
    Fld_to_R8(hRecord.At(sLabel), sField, hRule.dDefault, dValue, IOERR);
  }
  Keep_Status(IOERR, IMERR);
  MD_Check_Range(hRecord, sLabel, hRule.hLimits, dValue, NWarn);
}

void MD_Take_Value(const MdRecord& hRecord, std::string_view sField, std::string_view sLabel, const MdRule& hRule,
                   I4& iValue, I4& NWarn, I4& IMERR) {
  I4 IOERR = 0;
  if (!hRule.CEnum.empty()) {
    Str_to_iEnumeration(sField, sLabel, hRule.CEnum, iValue, IOERR);
    if (IOERR != 0) ++NWarn;
    return Keep_Status(IOERR, IMERR);
  }
  Fld_to_I4(hRecord.At(sLabel), sField, static_cast<I4>(hRule.dDefault), iValue, IOERR);
  Keep_Status(IOERR, IMERR);
  MD_Check_Range(hRecord, sLabel, hRule.hLimits, iValue, NWarn);
}

void MD_Take_Value(const MdRecord& hRecord, std::string_view sField, std::string_view sLabel, const MdRule& hRule,
                   L4& bValue, I4&, I4& IMERR) {
  I4 IOERR = 0;
  Fld_to_L4(hRecord.At(sLabel), sField, hRule.dDefault != 0.0, bValue, IOERR);
  Keep_Status(IOERR, IMERR);
}

bool MD_Check_Range(const MdRecord& hRecord, std::string_view sLabel, const MdLimits& hLimits, R4& fValue, I4& NWarn) {
  return Check_Range(hRecord, sLabel, hLimits, fValue, NWarn);
}

bool MD_Check_Range(const MdRecord& hRecord, std::string_view sLabel, const MdLimits& hLimits, R8& dValue, I4& NWarn) {
  return Check_Range(hRecord, sLabel, hLimits, dValue, NWarn);
}

bool MD_Check_Range(const MdRecord& hRecord, std::string_view sLabel, const MdLimits& hLimits, I4& iValue, I4& NWarn) {
  return Check_Range(hRecord, sLabel, hLimits, iValue, NWarn);
}

void MD_Warn(const ErrorLines& sError, I4& NWarn, I4 NShown) {
  ++NWarn;
  if (NWarn <= NShown) {
    LogErr(sError);
  } else {
    LogErr_File(sError);
  }
}

std::string MD_Number(R8 dValue) {
  return Real_Text(dValue);
}

std::string MD_Number(R4 fValue) {
  return Real_Text(fValue);
}

std::string MD_Number(I4 iValue) {
  return Str_Write_I4(iValue).str();
}

std::string MD_Label(std::string_view sName, I4 I) {
  return std::string(sName) + "[" + MD_Number(I) + "]";
}

std::string MD_Label(std::string_view sName, I4 I, I4 J) {
  return std::string(sName) + "[" + MD_Number(I) + "," + MD_Number(J) + "]";
}

I4 MD_Length_Unit(const MdRecord& hRecord, I4 iLength) {
  for (I4 I = 1; I <= hRecord.NField(); ++I) {
    if (hRecord.sField(I).find_first_of("mM") != std::string_view::npos) iLength = 1;
    if (hRecord.sField(I).find_first_of("fF") != std::string_view::npos) iLength = 2;
  }
  return iLength;
}

void MD_Split_Colon(const MdRecord& hRecord, FieldList& hPart) {
  if (hRecord.sField(1).find(':') != std::string_view::npos) return Str_to_Fld(hRecord.sField(1), ":", hPart);
  hPart.Clear();
  for (I4 I = 1; I <= hRecord.NField() && !hPart.Is_Full(); ++I) hPart.Add(hRecord.sField(I));
}

void MD_Take_Fields(const MdRecord& hRecord, const MdTarget& hTarget, const MdRule& hRule, I4& IMERR) {
  std::visit([&](auto hValue) { Take_Elements(hRecord, hValue, hTarget, hRule, IMERR); }, hTarget.hValue);
}

bool MD_Fits(std::string_view CRowKeyword, std::string_view CKeyword) {
  if (!CRowKeyword.starts_with('*')) return CRowKeyword == CKeyword;
  return CKeyword.find(CRowKeyword.substr(1)) != std::string_view::npos;
}

void MD_Warn_Unknown(const MdRecord& hRecord, I4& NErrUnknown, I4& IMERR) {
  MD_Warn({std::string(hRecord.sReader) + ".WARNING:",
           "Did not recognize keyword " + std::string(Trimmed(hRecord.sName)) + " in record # " +
               MD_Number(hRecord.iRecord),
           std::string(Cut_Text(hRecord.sRecord, MReportedRecord))},
          NErrUnknown, MMdUnknownShown);
  IMERR = iMdUnknownKeyword;
}

}  // namespace quillan
