#include "metadata/job_md.h"

namespace quillan {

namespace {

// clang-format off
constexpr MdRow<JobGroup> hJobRow[] = {
    // keyword    value                priority
    {"NAME",     &JobGroup::sName,    &JobGroup::lName},
    {"AREA",     &JobGroup::sArea,    &JobGroup::lArea},
    {"FOR",      &JobGroup::sFor,     &JobGroup::lFor},
    {"BY",       &JobGroup::sBy,      &JobGroup::lBy},
    {"NUMBER",   &JobGroup::sNumber,  &JobGroup::lNumber},
    {"DATE",     &JobGroup::sDate,    &JobGroup::lDate},
    {"COMMENT",  &JobGroup::sComment, &JobGroup::lComment},
};
// clang-format on

}  // namespace

void Job_MD_Initialize(JobGroup& hJob, bool bResetError) {
  const auto sNumber = hJob.sNumber;
  const auto sDate = hJob.sDate;
  MD_Initialize(hJobRow, hJob, bResetError);
  hJob.sNumber = sNumber;
  hJob.sDate = sDate;
}

void Job_MD_Read(const MdRecord& hRecord, JobGroup& hJob, I4& IMERR) {
  MD_Read("Job_MD_Read", hJobRow, hRecord, hJob, IMERR);
}

}  // namespace quillan
