#include "metadata/unit_md.h"

namespace quillan {

namespace {

using Unit = UnitGroup;

/// The unit and, in a second field, the sign convention. The second field comes with the first, so it passes the gate
/// of the unit and has none of its own.
I4 Read_Phase(const MdRecord& hRecord, UnitGroup& hUnit) {
  if (!MD_Passes(hRecord, hUnit.lPhase)) return 0;
  if (hRecord.NField() > 1) {
    hUnit.iPhaseSign = Str_UpCase(hRecord.sField(2)).find("IP") != std::string::npos ? 2 : 1;
    hUnit.lPhaseSign = hRecord.iPriority;
  }
  return MD_Take_Value(hRecord, hRecord.sField(1), "Unit.Phase", {.CEnum = CPhaseUnit}, hUnit.iPhase, hUnit.NErrPhase);
}

// PHASESIGN shares the gate of PHASE: where a file of higher priority gave the unit, it has settled the sign as well.
// clang-format off
constexpr MdRow<Unit> hUnitRow[] = {
    // keyword            value              priority         warnings               words label
    {"LENGTH",    MD_Into<&Unit::iLength,    &Unit::lLength,  &Unit::NErrLength>,    CLengthUnit,  "Unit.Length"},
    {"TIME",      MD_Into<&Unit::iTime,      &Unit::lTime,    &Unit::NErrTime>,      CTimeUnit,    "Unit.Time"},
    {"V",         MD_Into<&Unit::iVmag,      &Unit::lVmag,    &Unit::NErrVmag>,      CVUnit,       "Unit.V"},
    {"E",         MD_Into<&Unit::iEfield,    &Unit::lEfield,  &Unit::NErrEfield>,    CEUnit,       "Unit.E"},
    {"B",         MD_Into<&Unit::iBfield,    &Unit::lBfield,  &Unit::NErrBfield>,    CBunit,       "Unit.B"},
    {"PHASE",     Read_Phase},
    {"PHASESIGN", MD_Into<&Unit::iPhaseSign, &Unit::lPhase,   &Unit::NErrPhaseSign>, CPhaseSign,   "Unit.PhaseSign"},
    {"DBDT",      MD_Into<&Unit::idBdt,      &Unit::ldBdt,    &Unit::NErrdBdt>,      CdBdTUnit,    "Unit.dBdt"},
    {"RES",       MD_Into<&Unit::iRes,       &Unit::lRes,     &Unit::NErrRes>,       CResUnit,     "Unit.Res"},
    {"IP",        MD_Into<&Unit::iIP,        &Unit::lIP,      &Unit::NErrIP>,        CIPUnit,      "Unit.IP"},
};
// clang-format on

}  // namespace

I4 Unit_MD_Read(const MdRecord& hRecord, UnitGroup& hUnit) {
  return MD_Read("Unit_MD_Read", hUnitRow, hRecord, hUnit);
}

}  // namespace quillan
