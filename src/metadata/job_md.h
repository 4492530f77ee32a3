// job_md.h: metadata group JOB: what the survey was done for and by whom.
//
//   $ Job.Name= Lake survey
//   $ Job.For= Water board
//
// A value ends at its first comma or semicolon unless it stands in double quotes.
#pragma once

#include "base/text.h"
#include "base/types.h"
#include "metadata/md_engine.h"

namespace quillan {

/// The warnings so far about unknown keywords.
struct JobWarnings {
  I4 NErrUnknown = 0;
};

/// One text a keyword, and the priority l... of the record that gave it (0: none).
struct JobGroup : JobWarnings {
  Text<128> sName;     // job name
  Text<128> sArea;     // where
  Text<128> sFor;      // client
  Text<128> sBy;       // company
  Text<16> sNumber;    // job number
  Text<16> sDate;      // date of the job, as written
  Text<128> sComment;  // remark

  I4 lName = 0, lArea = 0, lFor = 0, lBy = 0, lNumber = 0, lDate = 0, lComment = 0;
};

// Module state. Job_MD_Read fills it, Job_MD_Initialize restores it.
inline JobGroup MdJob;

/// Texts become blank and priorities 0, but job number and date stay: the files of one job often leave them out. The
/// warning count becomes 0 only with bResetError.
void Job_MD_Initialize(JobGroup& hJob, bool bResetError);

/// Applies one record. Returns the status of MD_Read.
[[nodiscard]] I4 Job_MD_Read(const MdRecord& hRecord, JobGroup& hJob);

}  // namespace quillan
