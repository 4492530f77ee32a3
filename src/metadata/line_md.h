// line_md.h: metadata group LINE: the line that the following data belong to.
//
//   $ Line.Name= L12N
//   $ Line.Number= 1200
//   $ Line.Azimuth= N45E     degrees clockwise from north, or a bearing
//   $ Line.Type= Straight
#pragma once

#include "base/text.h"
#include "base/types.h"
#include "metadata/md_engine.h"

namespace quillan {

/// One value a keyword, the priority l... of the record that gave it (0: none), and the warnings NErr... about it.
struct LineGroup {
  Text<16> sName = "0";  // line name
  Text<4> sDirection;    // direction letters as given
  Text<8> sSpread;       // spread identifier
  R8 dNumber = 0.0;      // line number
  R4 fAzimuth = 90.0f;   // degrees clockwise from north
  I4 iType = 1;          // shape of the line, code in CLineType

  I4 lName = 0, lDirection = 0, lNumber = 0, lSpread = 0, lAzimuth = 0, lType = 0;

  I4 NErrNumber = 0, NErrSpread = 0, NErrAzimuth = 0, NErrType = 0, NErrUnknown = 0;
};

// Module state. Line_MD_Read fills it, Line_MD_Initialize restores it.
inline LineGroup MdLine;

/// Every value gets its default and every priority 0; the warning counts only with bResetError.
void Line_MD_Initialize(LineGroup& hLine, bool bResetError);

/// Applies one record. IMERR: 0, also for a record that a higher priority keeps out; not 0 where a value is missing or
/// could not be read; 3 the keyword is unknown.
void Line_MD_Read(const MdRecord& hRecord, LineGroup& hLine, I4& IMERR);

}  // namespace quillan
