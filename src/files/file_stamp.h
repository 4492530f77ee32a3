// file_stamp.h: what a file was when the program read or wrote it, so that a change by another program is known.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/types.h"

namespace quillan {

struct FileStamp {
  I8 NByte = -1;           // size; -1: there is no such file
  I8 iTime = 0;            // nsec since 1970 of the last change
  std::uint64_t iSum = 0;  // a number made of all its bytes
};

/// The stamp of a file as it is on the disk.
FileStamp Stamp_of(std::string_view sPath);

/// Whether two stamps are of the same bytes. A file that was only copied or touched has not changed.
bool Has_Same_Bytes(const FileStamp& h1, const FileStamp& h2);

// The files of the run, by path. What is read and written for the user is noted here.

/// No file has been read or written.
void Stamps_Forget();
/// The program has just read or written the file.
void Stamp_Note(std::string_view sPath);
/// What was noted of it; NByte -1 where nothing was.
FileStamp Noted_Stamp(std::string_view sPath);
/// Those of the files that were noted and that another program has changed since. One that is gone is none of them.
std::vector<std::string> Changed_on_Disk(std::span<const std::string> sPath);

}  // namespace quillan
