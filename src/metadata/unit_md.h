// unit_md.h: metadata group UNIT: the units in which a file states its numbers.
//
//   $ Unit.Length= ft
//   $ Unit.Time= msec
//   $ Unit.Phase= mrad, IP     the unit and the sign convention
//
// The length unit goes along with every record, so a Unit.Length record counts only for the lengths after it.
#pragma once

#include "base/types.h"
#include "metadata/enm_data.h"
#include "metadata/md_engine.h"

namespace quillan {

/// The warnings so far about each keyword, and about keywords that are unknown.
struct UnitWarnings {
  I4 NErrLength = 0, NErrTime = 0, NErrVmag = 0, NErrEfield = 0, NErrBfield = 0, NErrPhase = 0, NErrPhaseSign = 0,
     NErrdBdt = 0, NErrRes = 0, NErrIP = 0, NErrUnknown = 0;
};

/// One code a keyword, and the priority l... of the record that gave it (0: none).
struct UnitGroup : UnitWarnings {
  I4 iLength = iUnitMeters;  // length, code in CLengthUnit
  I4 iTime = 2;              // time, code in CTimeUnit: msec
  I4 iVmag = 3;              // voltage, code in CVUnit: mV/A
  I4 iEfield = 2;            // electric field, code in CEUnit: uV/Am
  I4 iBfield = 1;            // magnetic field, code in CBunit: pT/A
  I4 iPhase = 1;             // phase, code in CPhaseUnit: mrad
  I4 iPhaseSign = 1;         // sign convention of phase, code in CPhaseSign: EM
  I4 idBdt = 1;              // dB/dt, code in CdBdTUnit: uV/A
  I4 iRes = 1;               // resistivity, code in CResUnit
  I4 iIP = 1;                // polarisation, code in CIPUnit: mrad

  I4 lLength = 0, lTime = 0, lVmag = 0, lEfield = 0, lBfield = 0, lPhase = 0, lPhaseSign = 0, ldBdt = 0, lRes = 0,
     lIP = 0;
};

// Module state. Unit_MD_Read fills it, Unit_MD_Initialize restores it.
inline UnitGroup MdUnit;

/// (hGroup, bResetError): every value gets its default, as MD_Initialize says.
inline constexpr auto Unit_MD_Initialize = MD_Initialize<UnitGroup, UnitWarnings>;

/// Applies one record. Returns the status of MD_Read. A word that fits no unit leaves the code as it is.
[[nodiscard]] I4 Unit_MD_Read(const MdRecord& hRecord, UnitGroup& hUnit);

}  // namespace quillan
