// history_image.h: what an edit may change, and how a part of it is kept.
//
// The data are the transients of the store and the parts in the table of History_Parts: the survey record, the kept
// lines, the name of the data file, the wire loops, the metadata groups. Parts are kept as bytes and compared as bytes,
// so that a change which no comparison of numbers sees (the sign of a zero) is taken back as well.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/types.h"
#include "model/tmd_data.h"

namespace quillan {

/// A part of the data, transients apart. Several rows may have one name, which is what the user reads.
struct HistoryPart {
  std::string_view sName;
  std::string (*Bytes)();                // the part as it is
  void (*Put)(std::string_view sBytes);  // makes it what it was when Bytes gave that
};

/// One row a part. A new part of the data is a new row.
std::span<const HistoryPart> History_Parts();

/// The state of what a change touched.
struct DataChange {
  struct OneTransient {
    I4 j;
    Transient h;
  };
  struct OnePart {
    I4 K;  // row of History_Parts, from 1
    std::string sBytes;
  };

  I4 NTrn = 0;                     // transients in use
  std::vector<OneTransient> hTrn;  // rising j
  std::vector<OnePart> hPart;      // rising K

  /// Bytes that it holds.
  std::size_t Memory() const;
};

/// Puts it into the data.
void Put_Change(const DataChange& hChange);

/// Whether every field is the same, bit by bit.
bool Is_Same(const Transient& h1, const Transient& h2);

/// A number that differs where a field does.
std::uint64_t Fingerprint(const Transient& h);

}  // namespace quillan
