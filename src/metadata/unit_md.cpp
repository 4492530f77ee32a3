#include "metadata/unit_md.h"

namespace quillan {

namespace {

using Unit = UnitGroup;

/// The unit and, in a second field, the sign convention. The second field comes with the first, so it passes the gate
/// of the unit and has none of its own.
void Read_Phase(const MdRecord& hRecord, UnitGroup& hUnit, I4& IMERR) {
  if (!MD_Passes(hRecord, hUnit.lPhase)) return;
  MD_Take_Value(hRecord, hRecord.sField(1), "Unit.Phase", {.CEnum = CPhaseUnit}, hUnit.iPhase, hUnit.NErrPhase, IMERR);
  if (hRecord.NField() < 2) return;
  hUnit.iPhaseSign = Str_UpCase(hRecord.sField(2)).find("IP") != std::string::npos ? 2 : 1;
  hUnit.lPhaseSign = hRecord.iPriority;
}

// PHASESIGN shares the gate of PHASE: where a file of higher priority gave the unit, it has settled the sign as well.
// clang-format off
constexpr MdRow<Unit> hUnitRow[] = {
    // keyword     value              priority         warnings              words         label
    {"LENGTH",    &Unit::iLength,    &Unit::lLength,  &Unit::NErrLength,    CLengthUnit,  "Unit.Length"},
    {"TIME",      &Unit::iTime,      &Unit::lTime,    &Unit::NErrTime,      CTimeUnit,    "Unit.Time"},
    {"V",         &Unit::iVmag,      &Unit::lVmag,    &Unit::NErrVmag,      CVUnit,       "Unit.V"},
    {"E",         &Unit::iEfield,    &Unit::lEfield,  &Unit::NErrEfield,    CEUnit,       "Unit.E"},
    {"B",         &Unit::iBfield,    &Unit::lBfield,  &Unit::NErrBfield,    CBunit,       "Unit.B"},
    {"PHASE",     Read_Phase,                         &Unit::NErrPhase},
    {"PHASESIGN", &Unit::iPhaseSign, &Unit::lPhase,   &Unit::NErrPhaseSign, CPhaseSign,   "Unit.PhaseSign"},
    {"DBDT",      &Unit::idBdt,      &Unit::ldBdt,    &Unit::NErrdBdt,      CdBdTUnit,    "Unit.dBdt"},
    {"RES",       &Unit::iRes,       &Unit::lRes,     &Unit::NErrRes,       CResUnit,     "Unit.Res"},
    {"IP",        &Unit::iIP,        &Unit::lIP,      &Unit::NErrIP,        CIPUnit,      "Unit.IP"},
};
// clang-format on

}  // namespace

void Unit_MD_Initialize(UnitGroup& hUnit, bool bResetError) {
  MD_Initialize(hUnitRow, hUnit, bResetError);
}

void Unit_MD_Read(const MdRecord& hRecord, UnitGroup& hUnit, I4& IMERR) {
  MD_Read("Unit_MD_Read", hUnitRow, hRecord, hUnit, IMERR);
}

}  // namespace quillan
