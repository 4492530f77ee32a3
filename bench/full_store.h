// full_store.h: a survey that fills the store, for the benchmarks.
//
// 2048 stations of a central-loop survey with an Hz and an Hx transient each, all 64 windows in use, every column of an
// averaged file present. Values are decays with noise from a fixed seed, so that they have as many digits as measured
// ones.
#pragma once

#include <string>
#include <vector>

#include "model/tmd_data.h"

namespace quillan {

/// What a benchmark puts back before it runs.
struct KeptStore {
  std::vector<Transient> hTransient;
  Survey hSurvey;
};

/// Fills the store and the survey record.
void Make_Full_Store();

/// The same with one section: an Hz transient at each of 4096 stations, whose strength changes smoothly along the line,
/// and a tenth of the windows skipped.
void Make_Full_Section();

KeptStore Keep_Store();
void Put_Store(const KeptStore& hStore);

/// Folders that a run makes for itself and takes away at its end.
class OwnFolder {
 public:
  /// sParent: where it is made.
  explicit OwnFolder(const std::string& sParent);
  ~OwnFolder();
  OwnFolder(const OwnFolder&) = delete;
  OwnFolder& operator=(const OwnFolder&) = delete;

  std::string File(const std::string& sName) const { return sFolder + "/" + sName; }

 private:
  std::string sFolder;
};

}  // namespace quillan
