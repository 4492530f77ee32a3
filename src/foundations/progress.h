// progress.h: a loop that may run long: the user sees how far it has come and may stop it.
//
//   Progress work("Reading line7.avg", "kB", NAll);
//   for (...) {
//     if (!work.Goes_On(NDone)) return 1;
//     ...
//   }
//
// What was stopped is half done: the loop ends with a status of failure and without a report, and whoever called it
// looks at bWorkStopped. A command puts the data back (whole_command.h), a writer drops its file.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "base/types.h"
#include "foundations/user.h"

namespace quillan {

// Module state: whether the user has stopped the work that was begun last. Progress sets and clears it.
inline L4 bWorkStopped = false;

enum class Stoppable { Yes, No };

class Progress {
 public:
  /// sWhat: what is done, for the user; NInAll: how many there are of sOf, 0 where nobody knows. NBetween: how many are
  /// done from one look at the clock to the next, at least.
  Progress(std::string sWhat, std::string_view sOf, I8 NInAll, I8 NBetween = 1, Stoppable iWhether = Stoppable::Yes);
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  /// NDone is done, never less than before. False when the user has stopped the work.
  [[nodiscard]] bool Goes_On(I8 NDone) { return NDone < NNext ? !bWorkStopped : Look(NDone); }

 private:
  using Clock = std::chrono::steady_clock;
  bool Look(I8 NDone);

  std::string sWork;
  std::string_view sUnit;
  I8 NAll, NStep;
  Stoppable iStoppable;
  I8 NNext = 0;  // done at the next look
  Clock::time_point hBegin = Clock::now(), hNext = hBegin;
};

/// The work of reading a file, by NBytes of a RecordReader.
class ReadProgress {
 public:
  explicit ReadProgress(std::string_view sFile);
  [[nodiscard]] bool Goes_On(I8 NBytes) { return work.Goes_On(NBytes / NKilo); }

 private:
  static constexpr I8 NKilo = 1000;  // bytes
  Progress work;
};

}  // namespace quillan
