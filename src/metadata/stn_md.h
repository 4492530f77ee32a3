// stn_md.h: metadata group STN: how station labels map to distance along the line.
//
//   $ Stn.KvrBeg= 100        the receiver's own labels: first, last, increment, metres a step
//   $ Stn.KvrInc= 50
//   $ Stn.Beg= 1000          the numbers that are plotted: first, increment, metres a step
//   $ Stn.Inc= -25
//
// An increment or a scale may be negative (a line recorded backwards), but not nearly zero.
#pragma once

#include "base/text.h"
#include "base/types.h"
#include "metadata/md_engine.h"

namespace quillan {

/// The warnings so far about each keyword, and about keywords that are unknown.
struct StnWarnings {
  I4 NErrNumber = 0, NErrStnKvrBeg = 0, NErrStnKvrEnd = 0, NErrStnKvrInc = 0, NErrStnKvrUnit = 0, NErrStnBeg = 0,
     NErrStnInc = 0, NErrStnUnit = 0, NErrStnLeft = 0, NErrStnRight = 0, NErrUnknown = 0;
};

/// One value a keyword, and the priority l... of the record that gave it (0: none).
struct StnGroup : StnWarnings {
  // The current station.
  R8 dNumber = 0.0;      // station number
  Text<16> sName = "0";  // station name

  // Labels as the receiver recorded them.
  R8 dStnKvrBeg = dDummy;   // first label of the receiver
  R8 dStnKvrEnd = 1.0E32;   // last label of the receiver; no end until one is read
  R8 dStnKvrInc = dDummy;   // label increment of the receiver
  R8 dStnKvrUnit = dDummy;  // m a label step of the receiver

  // Numbers as they are plotted.
  R8 dStnBeg = dDummy;    // first plotted station number
  R8 dStnInc = dDummy;    // plotted station increment
  R8 dStnUnit = dDummy;   // m a plotted station step
  R8 dStnLeft = dDummy;   // station at the left end of the plot
  R8 dStnRight = dDummy;  // station at the right end of the plot

  // Priorities.
  I4 lNumber = 0, lName = 0, lStnKvrBeg = 0, lStnKvrEnd = 0, lStnKvrInc = 0, lStnKvrUnit = 0, lStnBeg = 0, lStnInc = 0,
     lStnUnit = 0, lStnLeft = 0, lStnRight = 0;
};

// Module state. Stn_MD_Read fills it, Stn_MD_Initialize restores it.
inline StnGroup MdStn;

/// (hGroup, bResetError): every value gets its default, as MD_Initialize says.
inline constexpr auto Stn_MD_Initialize = MD_Initialize<StnGroup, StnWarnings>;

/// Applies one record. Returns the status of MD_Read.
[[nodiscard]] I4 Stn_MD_Read(const MdRecord& hRecord, StnGroup& hStn);

}  // namespace quillan
