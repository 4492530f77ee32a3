// md_engine.h: the one shape of all metadata group readers, and the tables that make a reader of it.
//
// A group is a record of values, each with a priority l... and, where it is checked, a warning count NErr... . Its
// reader is a table with a row for each keyword:
//
//   constexpr MdRow<TxGroup> hTxRow[] = {
//       {"*XYZ", Read_Vertex, &TxGroup::NErrXYZN},                 // every keyword that holds XYZ, a procedure
//       {"AMP", &TxGroup::fAmp, &TxGroup::lAmp, &TxGroup::NErrAmp, 1.0, {-10000, 10000}},
//       {"HPR", &TxGroup::fHPR, &TxGroup::lHPR, &TxGroup::NErrHPR, 90.0, {-360, 360},
//        {.sLabel = "Tx.HPR", .iParse = MdParse::Azimuth}},        // array: the fields are its leading elements
//       {"XAZIMUTH", &TxGroup::fHPR, &TxGroup::lHPR, &TxGroup::NErrHPR, 90.0, {-360, 360},
//        {.iParse = MdParse::Azimuth, .iElement = 1}},             // one element of an array
//       {"CMP", &RxGroup::iCmp, &RxGroup::lCmp, &RxGroup::NErrCmp, CChnCmp, "Rx.Cmp"},  // enumeration
//       {"SN", &TxGroup::sSN, &TxGroup::lSN},                      // text
//       {"RXLOC"},                                                 // accepted and dropped
//   };
//
// For each record: the first row that fits its keyword; gate by priority; parse; range; repair, warn and count. A
// record of lower priority than the value in place is dropped in silence; one of equal priority replaces it, so the
// last record of a file wins.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "base/array.h"
#include "base/text.h"
#include "base/types.h"
#include "foundations/log_file.h"
#include "foundations/str_parse.h"
#include "foundations/str_value.h"

namespace quillan {

inline constexpr I4 iMdUnknownKeyword = 3;  // IMERR of a keyword that no row has
inline constexpr I4 MMdShown = 1;           // warnings of one keyword that show in a box; the others go to the file
inline constexpr I4 MMdUnknownShown = 3;    // unknown keywords of a group that show in a box

/// One metadata record on its way to a group. The views live as long as the record's line.
struct MdRecord {
  I4 iRecord;                     // its line number in the source
  std::string_view sRecord;       // the whole line
  std::string_view sName;         // the name as written, "Tx.Freq"
  std::string_view CKeyword;      // the keyword in upper case, aliases resolved, "FREQ"
  const FieldList& sField;        // the value cut into fields, 1..NField, at least one
  I4 iPriority;                   // 1 metadata file, 2 data file, 3 derived
  I4 iLength = 1;                 // code in CLengthUnit of a bare length; the group's reader sets it (MD_Length_Unit)
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
  R8 dTestLow = dLow, dTestHigh = dHigh;  // the test where it differs from the limits that are told and clamped to

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

/// The values that a row can fill: one or, of an array, all elements.
using MdValues =
    std::variant<std::span<R4>, std::span<R8>, std::span<I4>, std::span<L4>, std::span<Text<4>>, std::span<Text<8>>,
                 std::span<Text<16>>, std::span<Text<32>>, std::span<Text<64>>, std::span<Text<128>>>;

/// Where the values of one record go. lPriority: one for all values, or one for each.
struct MdTarget {
  MdValues hValue;
  std::span<I4> lPriority;
  I4& NWarn;           // warnings about the keyword
  I4* NSet = nullptr;  // takes the number of values, if there is such a count
};

/// The fields of a group record that a row can name.
template <class Group>
using MdField =
    std::variant<std::monostate, R4 Group::*, R8 Group::*, I4 Group::*, L4 Group::*, Text<4> Group::*, Text<8> Group::*,
                 Text<16> Group::*, Text<32> Group::*, Text<64> Group::*, Text<128> Group::*, Array1<R4, 2> Group::*,
                 Array1<R4, 3> Group::*, Array1<R4, 16> Group::*, Array1<R8, 2> Group::*, Array1<R8, 3> Group::*,
                 Array1<R8, 16> Group::*, Array1<I4, 2> Group::*, Array1<I4, 16> Group::*, Array1<L4, 16> Group::*,
                 Array1<Text<4>, 16> Group::*, Array1<Text<8>, 16> Group::*, Array1<Text<16>, 16> Group::*,
                 Array1<Text<32>, 16> Group::*>;

/// A priority: one, or one for each element of the value.
template <class Group>
using MdPriority = std::variant<I4 Group::*, Array1<I4, 2> Group::*, Array1<I4, 3> Group::*>;

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
  using Procedure = void (*)(const MdRecord&, Group&, I4& IMERR);
  using Count = I4 Group::*;

  /// Accepted and dropped.
  constexpr MdRow(std::string_view CWord) : CKeyword(CWord) {}
  /// A procedure of its own, with the count that it raises. It gates by itself (MD_Passes).
  constexpr MdRow(std::string_view CWord, Procedure Apply, Count NWarn = nullptr)
      : CKeyword(CWord), Take(Apply), NErr(NWarn) {}
  /// Text.
  constexpr MdRow(std::string_view CWord, MdField<Group> hValue, MdPriority<Group> lValue, MdMore<Group> hOdd = {})
      : CKeyword(CWord), hField(hValue), lField(lValue), hMore(hOdd) {
    hRule.sLabel = hOdd.sLabel;
  }
  /// A number or a logical.
  constexpr MdRow(std::string_view CWord, MdField<Group> hValue, MdPriority<Group> lValue, Count NWarn, R8 dDefault,
                  MdLimits hLimits = {}, MdMore<Group> hOdd = {})
      : CKeyword(CWord), hField(hValue), lField(lValue), NErr(NWarn), hMore(hOdd) {
    hRule = {dDefault, hLimits, {}, hOdd.sLabel, hOdd.iParse};
  }
  /// An enumeration.
  constexpr MdRow(std::string_view CWord, MdField<Group> hValue, MdPriority<Group> lValue, Count NWarn,
                  std::span<const std::string_view> CEnum, std::string_view sLabel, MdMore<Group> hOdd = {})
      : CKeyword(CWord), hField(hValue), lField(lValue), NErr(NWarn), hMore(hOdd) {
    hRule.CEnum = CEnum;
    hRule.sLabel = sLabel;
  }

  std::string_view CKeyword;  // upper case; with a leading "*" every keyword that holds the rest
  Procedure Take = nullptr;
  MdField<Group> hField;
  MdPriority<Group> lField = Count{};
  Count NErr = nullptr;
  MdRule hRule;
  MdMore<Group> hMore;
};

// The road of a record.

/// Applies a record to a group by its table. sReader: the reader's name, "Tx_MD_Read". IMERR: 0, also for a record
/// that a higher priority keeps out or whose value was clamped; the status of Str_Value where a field is missing or
/// unreadable; iMdUnknownKeyword.
template <class Group, std::size_t N>
void MD_Read(std::string_view sReader, const MdRow<Group> (&hRow)[N], const MdRecord& hRecord, Group& hGroup,
             I4& IMERR);

/// Every value of a group gets its default and every priority 0; with bResetError the warning counts get 0 too. Without
/// it they go on growing, so that a file read again does not fill the screen again.
template <class Group, std::size_t N>
void MD_Initialize(const MdRow<Group> (&hRow)[N], Group& hGroup, bool bResetError);

// Steps of it, for the procedures of rows.

/// Applies the record to one row, gate included: for a procedure that adds something to a plain row.
template <class Group>
void MD_Take_Row(const MdRow<Group>& hRow, const MdRecord& hRecord, Group& hGroup, I4& IMERR);

/// The gate: false when the value in place came with a higher priority, else the value now has the record's.
inline bool MD_Passes(const MdRecord& hRecord, I4& lField) {
  if (lField > hRecord.iPriority) return false;
  lField = hRecord.iPriority;
  return true;
}

/// Reads one field into one value: parse, range, repair, warn, count. IMERR changes only when the field is missing or
/// unreadable.
void MD_Take_Value(const MdRecord& hRecord, std::string_view sField, std::string_view sLabel, const MdRule& hRule,
                   R4& fValue, I4& NWarn, I4& IMERR);
void MD_Take_Value(const MdRecord& hRecord, std::string_view sField, std::string_view sLabel, const MdRule& hRule,
                   R8& dValue, I4& NWarn, I4& IMERR);
void MD_Take_Value(const MdRecord& hRecord, std::string_view sField, std::string_view sLabel, const MdRule& hRule,
                   I4& iValue, I4& NWarn, I4& IMERR);
void MD_Take_Value(const MdRecord& hRecord, std::string_view sField, std::string_view sLabel, const MdRule& hRule,
                   L4& bValue, I4& NWarn, I4& IMERR);

/// The range check alone: a value outside its limits is repaired, reported and counted. True when it was inside.
bool MD_Check_Range(const MdRecord& hRecord, std::string_view sLabel, const MdLimits& hLimits, R4& fValue, I4& NWarn);
bool MD_Check_Range(const MdRecord& hRecord, std::string_view sLabel, const MdLimits& hLimits, R8& dValue, I4& NWarn);
bool MD_Check_Range(const MdRecord& hRecord, std::string_view sLabel, const MdLimits& hLimits, I4& iValue, I4& NWarn);

/// Counts a warning and reports it: the first NShown in a box, the further ones in the error file alone.
void MD_Warn(const ErrorLines& sError, I4& NWarn, I4 NShown = MMdShown);

/// A number as warnings write it.
std::string MD_Number(R8 dValue);
std::string MD_Number(R4 fValue);
std::string MD_Number(I4 iValue);

/// "Tx.HPR[2]" and "Grid.Ref1[1,2]".
std::string MD_Label(std::string_view sName, I4 I);
std::string MD_Label(std::string_view sName, I4 I, I4 J);

/// The unit of the record's bare lengths: metres where a field holds an "m", feet where it holds an "f", the last field
/// that has one decides; iLength where none has.
I4 MD_Length_Unit(const MdRecord& hRecord, I4 iLength);

/// Coordinates that stand as "x:y:z" in the first field or as fields "x, y, z": the parts, as many as hPart keeps.
void MD_Split_Colon(const MdRecord& hRecord, FieldList& hPart);

// What the templates above are made of.

/// Takes the leading fields into the values of the target.
void MD_Take_Fields(const MdRecord& hRecord, const MdTarget& hTarget, const MdRule& hRule, I4& IMERR);
/// Whether a row's keyword fits.
bool MD_Fits(std::string_view CRowKeyword, std::string_view CKeyword);
/// The warning of a keyword that no row has.
void MD_Warn_Unknown(const MdRecord& hRecord, I4& NErrUnknown, I4& IMERR);

}  // namespace quillan

#include "metadata/md_engine_rows.h"
