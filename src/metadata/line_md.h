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

/// The warnings so far about each keyword, and about keywords that are unknown.
struct LineWarnings {
  I4 NErrNumber = 0, NErrAzimuth = 0, NErrType = 0, NErrUnknown = 0;
};

/// One value a keyword, and the priority l... of the record that gave it (0: none).
struct LineGroup : LineWarnings {
  Text<16> sName = "0";  // line name
  Text<4> sDirection;    // direction letters as given
  Text<8> sSpread;       // spread identifier
  R8 dNumber = 0.0;      // line number
  R4 fAzimuth = 90.0f;   // degrees clockwise from north
  I4 iType = 1;          // shape of the line, code in CLineType

  I4 lName = 0, lDirection = 0, lNumber = 0, lSpread = 0, lAzimuth = 0, lType = 0;
};

// Module state. Line_MD_Read fills it, Line_MD_Initialize restores it.
inline LineGroup MdLine;

/// (hGroup, bResetError): every value gets its default, as MD_Initialize says.
inline constexpr auto Line_MD_Initialize = MD_Initialize<LineGroup, LineWarnings>;

/// Applies one record. Returns the status of MD_Read.
[[nodiscard]] I4 Line_MD_Read(const MdRecord& hRecord, LineGroup& hLine);

}  // namespace quillan
