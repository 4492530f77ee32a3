#include "platform/clock.h"

#include <charconv>
#include <ctime>
#include <string>

#include "platform/arguments.h"

namespace quillan {

namespace {

Date Day_of(const std::tm& hTime) {
  return {hTime.tm_year + 1900, hTime.tm_mon + 1, hTime.tm_mday};
}

/// The day that a reproducible run is to have; false where none is asked for.
bool Fixed_Date(Date& hDate) {
  const std::string sSeconds = IOsVariable("SOURCE_DATE_EPOCH");
  I8 NSeconds = 0;
  const char* sEnd = sSeconds.data() + sSeconds.size();
  const auto hRead = std::from_chars(sSeconds.data(), sEnd, NSeconds);
  if (sSeconds.empty() || hRead.ec != std::errc{} || hRead.ptr != sEnd) return false;
  const std::time_t hSeconds = NSeconds;
  const std::tm* hTime = std::gmtime(&hSeconds);
  if (hTime == nullptr) return false;
  hDate = Day_of(*hTime);
  return true;
}

}  // namespace

Date IOsDate() {
  Date hDate{};
  if (Fixed_Date(hDate)) return hDate;
  const std::time_t hNow = std::time(nullptr);
  return Day_of(*std::localtime(&hNow));
}

}  // namespace quillan
