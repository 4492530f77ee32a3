#include "metadata/job_md.h"

namespace quillan {

namespace {

// clang-format off
constexpr MdRow<JobGroup> hJobRow[] = {
    // keyword    value                priority
    {"NAME",     MD_Into<&JobGroup::sName,    &JobGroup::lName>},
    {"AREA",     MD_Into<&JobGroup::sArea,    &JobGroup::lArea>},
    {"FOR",      MD_Into<&JobGroup::sFor,     &JobGroup::lFor>},
    {"BY",       MD_Into<&JobGroup::sBy,      &JobGroup::lBy>},
    {"NUMBER",   MD_Into<&JobGroup::sNumber,  &JobGroup::lNumber>},
    {"DATE",     MD_Into<&JobGroup::sDate,    &JobGroup::lDate>},
    {"COMMENT",  MD_Into<&JobGroup::sComment, &JobGroup::lComment>},
};
// clang-format on

}  // namespace

void Job_MD_Initialize(JobGroup& hJob, bool bResetError) {
  const Text<16> sNumber = hJob.sNumber;
  const Text<16> sDate = hJob.sDate;
  MD_Initialize<JobGroup, JobWarnings>(hJob, bResetError);
  hJob.sNumber = sNumber;
  hJob.sDate = sDate;
}

I4 Job_MD_Read(const MdRecord& hRecord, JobGroup& hJob) {
  return MD_Read("Job_MD_Read", hJobRow, hRecord, hJob);
}

}  // namespace quillan
