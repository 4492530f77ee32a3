#include "metadata/md_engine.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <type_traits>
#include <utility>

#include "foundations/str_write.h"
#include "metadata/enm_data.h"

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

I4 Parse(const MdRecord& hRecord, const FieldContext& hAt, std::string_view sField, const MdRule& hRule, R4& fValue) {
  const R4 fDefault = static_cast<R4>(hRule.dDefault);
  switch (hRule.iParse) {
    case MdParse::Azimuth: return Fld_to_R4Azimuth(hAt, sField, fDefault, fValue);
    case MdParse::Meters: return Fld_to_R4Meters(hAt, sField, MD_Length_Unit(hRecord), fDefault, fValue);
    case MdParse::Time:
    case MdParse::Plain: break;
  }
  return Fld_to_R4(hAt, sField, fDefault, fValue);
}

I4 Parse(const MdRecord&, const FieldContext& hAt, std::string_view sField, const MdRule& hRule, R8& dValue) {
  if (hRule.iParse == MdParse::Time) return Fld_to_R8Time(hAt, sField, hRule.dDefault, dValue);
  return Fld_to_R8(hAt, sField, hRule.dDefault, dValue);
}

I4 Parse(const MdRecord&, const FieldContext& hAt, std::string_view sField, const MdRule& hRule, I4& iValue) {
  if (!hRule.CEnum.empty()) return Str_to_iEnumeration(sField, hAt.sLabel, hRule.CEnum, iValue);
  return Fld_to_I4(hAt, sField, static_cast<I4>(hRule.dDefault), iValue);
}

I4 Parse(const MdRecord&, const FieldContext& hAt, std::string_view sField, const MdRule& hRule, L4& bValue) {
  return Fld_to_L4(hAt, sField, hRule.dDefault != 0.0, bValue);
}

}  // namespace

template <class T>
I4 MD_Take_Value(const MdRecord& hRecord, std::string_view sField, std::string_view sLabel, const MdRule& hRule,
                 T& hValue, I4& NWarn) {
  const I4 iStatus = Parse(hRecord, hRecord.At(sLabel), sField, hRule, hValue);
  if (!hRule.CEnum.empty() && iStatus != 0) ++NWarn;
  if constexpr (!std::is_same_v<T, L4>) MD_Check_Range(hRecord, sLabel, hRule.hLimits, hValue, NWarn);
  return iStatus;
}
template I4 MD_Take_Value(const MdRecord&, std::string_view, std::string_view, const MdRule&, R4&, I4&);
template I4 MD_Take_Value(const MdRecord&, std::string_view, std::string_view, const MdRule&, R8&, I4&);
template I4 MD_Take_Value(const MdRecord&, std::string_view, std::string_view, const MdRule&, I4&, I4&);
template I4 MD_Take_Value(const MdRecord&, std::string_view, std::string_view, const MdRule&, L4&, I4&);

template <class T>
void MD_Check_Range(const MdRecord& hRecord, std::string_view sLabel, const MdLimits& hGiven, T& hValue, I4& NWarn) {
  if (!hGiven.Are_Set()) return;
  const MdLimits hLimits = Rounded<T>(hGiven);
  if (Is_Accepted(hLimits, static_cast<R8>(hValue))) return;

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
}

template void MD_Check_Range(const MdRecord&, std::string_view, const MdLimits&, R4&, I4&);
template void MD_Check_Range(const MdRecord&, std::string_view, const MdLimits&, R8&, I4&);
template void MD_Check_Range(const MdRecord&, std::string_view, const MdLimits&, I4&, I4&);

void MD_Warn(const ErrorLines& sError, I4& NWarn, I4 NShown) {
  ++NWarn;
  if (NWarn <= NShown) {
    LogErr(sError);
  } else {
    LogErr_File(sError);
  }
}

template <class T>
std::string MD_Number(T hValue) {
  if constexpr (std::is_integral_v<T>) {
    return Str_Write_I4(hValue).str();
  } else {
    static constexpr EditForm form("(ES12.4)");
    char sText[MFormText];
    return std::string(Left_Adjusted(Write_Form(hValue, form, sText)));
  }
}
template std::string MD_Number(R4);
template std::string MD_Number(R8);
template std::string MD_Number(I4);

std::string MD_Label(std::string_view sName, I4 I) {
  return std::string(sName) + "[" + MD_Number(I) + "]";
}

std::string MD_Label(std::string_view sName, I4 I, I4 J) {
  return std::string(sName) + "[" + MD_Number(I) + "," + MD_Number(J) + "]";
}

I4 MD_Length_Unit(const MdRecord& hRecord) {
  I4 iLength = hRecord.iLength;
  for (I4 I = 1; I <= hRecord.NField(); ++I) {
    if (hRecord.sField(I).find_first_of("mM") != std::string_view::npos) iLength = iUnitMeters;
    if (hRecord.sField(I).find_first_of("fF") != std::string_view::npos) iLength = iUnitFeet;
  }
  return iLength;
}

void MD_Warn_Unknown(const MdRecord& hRecord, I4& NErrUnknown) {
  MD_Warn({std::string(hRecord.sReader) + ".WARNING:",
           "Did not recognize keyword " + std::string(Trimmed(hRecord.sName)) + " in record # " +
               MD_Number(hRecord.iRecord),
           std::string(Cut_Text(hRecord.sRecord, MReportedRecord))},
          NErrUnknown, MMdUnknownShown);
}

}  // namespace quillan
