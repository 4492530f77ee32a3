#include "platform/clock.h"

#include <charconv>
#include <ctime>
#include <optional>
#include <string>

#include "platform/arguments.h"

namespace quillan {

namespace {

Date Day_of(const std::tm& hTime) {
  return {hTime.tm_year + 1900, hTime.tm_mon + 1, hTime.tm_mday};
}

/// The moment that a reproducible run is to have; nothing where none is asked for.
std::optional<std::time_t> Fixed_Time() {
  const std::string sSeconds = IOsVariable("SOURCE_DATE_EPOCH");
  I8 NSeconds = 0;
  const char* sEnd = sSeconds.data() + sSeconds.size();
  const auto hRead = std::from_chars(sSeconds.data(), sEnd, NSeconds);
  if (sSeconds.empty() || hRead.ec != std::errc{} || hRead.ptr != sEnd) return std::nullopt;
  const std::time_t hSeconds = NSeconds;
  if (std::gmtime(&hSeconds) == nullptr) return std::nullopt;
  return hSeconds;
}

}  // namespace

Date IOsDate() {
  return IOsMoment(IOsTime()).hDate;
}

I8 IOsTime() {
  return Fixed_Time().value_or(std::time(nullptr));
}

Moment IOsMoment(I8 iTime) {
  const std::time_t hSeconds = iTime;
  const std::tm* hTime = Fixed_Time() ? std::gmtime(&hSeconds) : std::localtime(&hSeconds);
  if (hTime == nullptr) return {};
  return {Day_of(*hTime), hTime->tm_hour, hTime->tm_min, hTime->tm_sec};
}

}  // namespace quillan
