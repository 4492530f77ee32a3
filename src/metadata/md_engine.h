// md_engine.h: the one shape of all metadata group readers, and the tables that make a reader of it.
//
// A group is a record of values, each with a priority l... and, where it is checked, a warning count NErr... . Its
// reader is a table with a row for each keyword:
//
//   constexpr MdRow<TxGroup> hTxRow[] = {
//       {"*XYZ", Read_Vertex},                                        // every keyword that holds XYZ, a procedure
//       {"AMP", MD_Into<&TxGroup::fAmp, &TxGroup::lAmp, &TxGroup::NErrAmp>, 1.0, {-10000, 10000}},
//       {"HPR", MD_Into<&TxGroup::fHPR, &TxGroup::lHPR, &TxGroup::NErrHPR>, 90.0, {-360, 360},
//        {.sLabel = "Tx.HPR", .iParse = MdParse::Azimuth}},           // array: the fields are its leading elements
//       {"XAZIMUTH", MD_Into<&TxGroup::fHPR, &TxGroup::lHPR, &TxGroup::NErrHPR>, 90.0, {-360, 360},
//        {.iParse = MdParse::Azimuth, .iElement = 1}},                // one element of an array
//       {"CMP", MD_Into<&RxGroup::iCmp, &RxGroup::lCmp, &RxGroup::NErrCmp>, CChnCmp, "Rx.Cmp"},  // enumeration
//       {"SN", MD_Into<&TxGroup::sSN, &TxGroup::lSN>},                // text
//       {"RXLOC"},                                                    // accepted and dropped
//   };
//
// For each record: the first row that fits its keyword; gate by priority; parse; range; repair, warn and count. A
// record of lower priority than the value in place is dropped in silence; one of equal priority replaces it, so the
// last record of a file wins. The counts of a group are the record <Group>Warnings that it is derived from: they
// outlive the values, so that a file read again does not fill the screen again.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "base/array.h"
#include "base/text.h"
#include "base/types.h"
#include "foundations/log_file.h"
#include "foundations/str_parse.h"
#include "foundations/str_value.h"

namespace quillan {

inline constexpr I4 iMdUnknownKeyword = 3;  // status of a keyword that no row has
inline constexpr I4 MMdShown = 1;           // warnings of one keyword that show in a box; the others go to the file
inline constexpr I4 MMdUnknownShown = 3;    // unknown keywords of a group that show in a box

// Where a record comes from: its iPriority. The greater one wins, whichever is read first.
inline constexpr I4 iPriorityMde = 1;      // metadata file
inline constexpr I4 iPriorityData = 2;     // data file
inline constexpr I4 iPriorityDerived = 3;  // computed

/// One metadata record on its way to a group. The views live as long as the record's line.
struct MdRecord {
  I4 iRecord;                     // its line number in the source
  std::string_view sRecord;       // the whole line
  std::string_view sName;         // the name as written, "Tx.Freq"
  std::string_view CKeyword;      // the keyword in upper case, aliases resolved, "FREQ"
  const FieldList& sField;        // the value cut into fields, 1..NField, at least one
  I4 iPriority;                   // where it comes from
  I4 iLength = 1;                 // code in CLengthUnit of the survey's lengths
  std::string_view sReader = {};  // the reader as warnings name it; MD_Read sets it

  I4 NField() const { return sField.NFld(); }
  FieldContext At(std::string_view sLabel) const { return {iRecord, sRecord, sLabel}; }
};

/// How a field becomes a number. Plain: by the type of the value; an enumeration where its row has a table of words.
enum class MdParse { Plain, Azimuth, Meters, Time };

/// Inside: low and high are accepted. AboveLow: low itself is refused. Magnitude: the test is on |value|.
enum class MdTest { Inside, AboveLow, Magnitude };

/// What becomes of a refused value. Clamp: the nearer limit, a magnitude with its sign kept. Reset: 0.
enum class MdRepair { Clamp, Reset };

/// Limits of a value and the words of the warning. The words hold {reader}, {record} (its number), {name} (the label),
/// {value}, {low} and {high}; reals are written in the form ES12.4.
struct MdLimits {
  R8 dLow = 0.0, dHigh = 0.0;  // no test where both are 0; a 32-bit value is compared with the rounded limits
  std::string_view sWhat = "{name} = {value} < {low} or > {high}";
  MdTest iTest = MdTest::Inside;
  MdRepair iRepair = MdRepair::Clamp;
  std::string_view sHead = "{reader}.WARNING:";
  std::string_view sDone = "{name} will be set = {value}";  // {value} after the repair
  R8 dTestLow = dLow;    // the test where it differs from the limits that are named and clamped to
  R8 dTestHigh = dHigh;  // of it, the upper limit

  constexpr bool Are_Set() const { return dLow < dHigh; }
};

/// How a value is read and checked.
struct MdRule {
  R8 dDefault = 0.0;  // stored when the field is "*", blank or unreadable; not for enumerations, which stay as they are
  MdLimits hLimits = {};
  std::span<const std::string_view> CEnum = {};  // words of an enumeration
  std::string_view sLabel = {};  // name in warnings, "[I]" is added for arrays; blank: the record's own name
  MdParse iParse = MdParse::Plain;
};

/// What few rows need.
template <class Group>
struct MdMore {
  std::string_view sLabel = {};  // as MdRule.sLabel
  MdParse iParse = MdParse::Plain;
  I4 iElement = 0;            // the one element of an array that the keyword means; 0 all
  I4 Group::*NSet = nullptr;  // the count that becomes the number of values
};

/// A keyword of a group.
template <class Group>
struct MdRow {
  using Procedure = I4 (*)(const MdRecord&, Group&);             // returns the status of the record
  using Filler = I4 (*)(const MdRecord&, Group&, const MdRow&);  // MD_Into

  /// Accepted and dropped.
  constexpr MdRow(std::string_view CWord) : CKeyword(CWord) {}
  /// A procedure of its own. It gates by itself (MD_Passes).
  constexpr MdRow(std::string_view CWord, Procedure Apply) : CKeyword(CWord), Take(Apply) {}
  /// Text.
  constexpr MdRow(std::string_view CWord, Filler Into, MdMore<Group> hOdd = {})
      : CKeyword(CWord), Fill(Into), hMore(hOdd) {}
  /// A number or a logical.
  constexpr MdRow(std::string_view CWord, Filler Into, R8 dDefault, MdLimits hLimits = {}, MdMore<Group> hOdd = {})
      : CKeyword(CWord), Fill(Into), hRule{dDefault, hLimits, {}, hOdd.sLabel, hOdd.iParse}, hMore(hOdd) {}
  /// An enumeration.
  constexpr MdRow(std::string_view CWord, Filler Into, std::span<const std::string_view> CEnum, std::string_view sLabel)
      : CKeyword(CWord), Fill(Into), hRule{.CEnum = CEnum, .sLabel = sLabel} {}

  std::string_view CKeyword;  // upper case; with a leading "*" every keyword that holds the rest
  Procedure Take = nullptr;
  Filler Fill = nullptr;
  MdRule hRule;
  MdMore<Group> hMore;
};

/// What a row fills: a field of the group, or the elements of an array; its priority, one for all elements or one for
/// each; and its warning count, where it has one.
template <auto hValue, auto lValue, auto NErr = nullptr, class Group>
[[nodiscard]] I4 MD_Into(const MdRecord& hRecord, Group& hGroup, const MdRow<Group>& hRow);

// A group.

/// Applies a record to a group by its table. sReader: the reader's name, "Tx_MD_Read". Returns 0, also for a record
/// that a higher priority keeps out or whose value was clamped; not 0 where a field is missing (-1) or unreadable, the
/// last such field deciding; iMdUnknownKeyword.
template <class Group, std::size_t N>
[[nodiscard]] I4 MD_Read(std::string_view sReader, const MdRow<Group> (&hRow)[N], const MdRecord& hRecord,
                         Group& hGroup);

/// Every value of a group gets its default and every priority 0; with bResetError the warning counts get 0 too.
template <class Group, class Warnings>
void MD_Initialize(Group& hGroup, bool bResetError) {
  Group hFresh{};
  if (!bResetError) static_cast<Warnings&>(hFresh) = hGroup;
  hGroup = hFresh;
}

// Steps of a reader, for the procedures of rows.

/// Applies the record to one row, gate included: for a procedure that adds something to a plain row.
template <class Group>
[[nodiscard]] I4 MD_Take_Row(const MdRow<Group>& hRow, const MdRecord& hRecord, Group& hGroup);

/// The gate: false when the value in place came with a higher priority, else the value now has the record's.
inline bool MD_Passes(const MdRecord& hRecord, I4& lField) {
  if (lField > hRecord.iPriority) return false;
  lField = hRecord.iPriority;
  return true;
}

/// Reads one field into one value (R4, R8, I4 or L4): parse, range, repair, warn, count. Returns 0, or the status of a
/// field that is missing (-1) or unreadable.
template <class T>
[[nodiscard]] I4 MD_Take_Value(const MdRecord& hRecord, std::string_view sField, std::string_view sLabel,
                               const MdRule& hRule, T& hValue, I4& NWarn);

/// The status of a record after one more of its fields: a field that was read leaves that of the fields before it.
[[nodiscard]] inline I4 MD_Status(I4 iBefore, I4 iField) {
  return iField != 0 ? iField : iBefore;
}

/// The range check alone (R4, R8 or I4): a value outside its limits is repaired, reported and counted.
template <class T>
void MD_Check_Range(const MdRecord& hRecord, std::string_view sLabel, const MdLimits& hLimits, T& hValue, I4& NWarn);

/// Counts a warning and reports it: the first NShown in a box, the further ones in the error file alone.
void MD_Warn(const ErrorLines& sError, I4& NWarn, I4 NShown = MMdShown);

/// A number (R4, R8 or I4) as warnings write it.
template <class T>
std::string MD_Number(T hValue);

/// "Tx.HPR[2]" and "Grid.Ref1[1,2]".
std::string MD_Label(std::string_view sName, I4 I);
std::string MD_Label(std::string_view sName, I4 I, I4 J);

/// The unit of the record's bare lengths: metres where a field holds an "m", feet where it holds an "f", the last field
/// that has one decides; where none has, the survey's.
I4 MD_Length_Unit(const MdRecord& hRecord);

// What the templates above are made of.

/// Whether a row's keyword fits.
inline bool MD_Fits(std::string_view CRowKeyword, std::string_view CKeyword) {
  if (!CRowKeyword.starts_with('*')) return CRowKeyword == CKeyword;
  return CKeyword.find(CRowKeyword.substr(1)) != std::string_view::npos;
}
/// The warning of a keyword that no row has.
void MD_Warn_Unknown(const MdRecord& hRecord, I4& NErrUnknown);

}  // namespace quillan

#include "metadata/md_engine_rows.h"
