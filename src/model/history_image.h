// history_image.h: what an edit may change, and how a change of it is kept.
//
// The data are the transients of the store and the parts of History_Parts: the survey record, the kept lines, the name
// of the data file, the wire loops, the metadata groups. Both are kept and compared as bytes, so that a change which no
// comparison of numbers sees (the sign of a zero) is taken back as well.
#pragma once

#include <cstddef>
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
  std::string (*Bytes)();                 // the part as it is
  bool (*Put)(std::string_view sBytes);   // makes it what it was when Bytes gave that; false: it never did
  bool (*Fits)(std::string_view sBytes);  // whether bytes from elsewhere can be put, and their counts and codes hold
};

/// One row a part. A new part of the data is a new row.
std::span<const HistoryPart> History_Parts();

/// The state of what a change touched. Of a transient that is there before and after, the bytes from the first to the
/// last that differ; of one that came or went, all of it.
struct DataChange {
  struct Run {
    I4 j;              // transient
    I4 iByte0, NByte;  // its bytes iByte0 .. iByte0 + NByte - 1, from 0
  };
  struct Part {
    I4 K;  // row of History_Parts, from 1
    std::string sBytes;
  };

  I4 NTrn = 0;                // transients in use
  std::vector<Run> hRun{};    // rising j
  std::string sRun{};         // the bytes of the runs, one after the other
  std::vector<Part> hPart{};  // rising K

  /// Bytes that it holds.
  std::size_t Memory() const;
};

/// The bytes of a transient that tell two of one place apart; NByte is 0 where every field is the same.
DataChange::Run Differing_Bytes(I4 j, const Transient& h1, const Transient& h2);

/// Whether no more differs than flags of windows.
bool Is_in_Flags(const DataChange::Run& hRun);

/// Adds the bytes of a run, taken from h.
void Add_Run(DataChange& hChange, const DataChange::Run& hRun, const Transient& h);

/// Whether a change from elsewhere fits the store and the parts, and leaves them with counts, codes and flags that the
/// program can work with.
bool Fits(const DataChange& hChange);

/// Puts the transients of a change that fits into hTarget, whose element 0 is transient 1.
void Put_Transients(const DataChange& hChange, Transient* hTarget);
/// Puts its parts into the data. False: the bytes of a part are none that it ever gave; the parts before it are put.
bool Put_Parts(const DataChange& hChange);

/// A number that differs where a field does.
std::uint64_t Fingerprint(const Transient& h);

}  // namespace quillan
