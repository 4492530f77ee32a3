#include "files/file_stamp.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <memory>

#include "foundations/bytes.h"
#include "platform/file_names.h"
#include "platform/input_file.h"

namespace quillan {
namespace {

// What Stamp_Note has seen, by full path.
std::map<std::string, FileStamp> hNoted;

constexpr std::size_t MBlock = std::size_t{1} << 18U;  // bytes read at a time, whole words

/// Fills the block as far as the file goes: a short read in the middle would shift the words of the sum.
std::string_view Read_Block(InputFile& in, char* sBlock) {
  std::size_t N = 0;
  for (I8 NRead = 1; NRead > 0 && N < MBlock; N += static_cast<std::size_t>(NRead))
    NRead = std::max<I8>(in.Read(sBlock + N, MBlock - N), 0);
  return {sBlock, N};
}

bool Is_Changed(const std::string& sPath) {
  const auto h = hNoted.find(IOsFullPath(sPath));
  if (h == hNoted.end()) return false;
  const InputFile in(sPath);
  if (in.Is_Missing() || (in.Size() == h->second.NByte && in.Time() == h->second.iTime)) return false;
  return !Has_Same_Bytes(Stamp_of(sPath), h->second);
}

}  // namespace

FileStamp Stamp_of(std::string_view sPath) {
  InputFile in(sPath);
  if (!in.Is_Open()) return {};
  FileStamp h{in.Size(), in.Time(), 1};
  const auto hBlock = std::make_unique_for_overwrite<char[]>(MBlock);
  for (std::string_view s = Read_Block(in, hBlock.get()); !s.empty(); s = Read_Block(in, hBlock.get()))
    h.iSum = Mixed(h.iSum, s);
  return h;
}

bool Has_Same_Bytes(const FileStamp& h1, const FileStamp& h2) {
  return h1.NByte == h2.NByte && h1.iSum == h2.iSum;
}

void Stamps_Forget() {
  hNoted.clear();
}

void Stamp_Note(std::string_view sPath) {
  hNoted[IOsFullPath(sPath)] = Stamp_of(sPath);
}

FileStamp Noted_Stamp(std::string_view sPath) {
  const auto h = hNoted.find(IOsFullPath(sPath));
  return h == hNoted.end() ? FileStamp{} : h->second;
}

std::vector<std::string> Changed_on_Disk(std::span<const std::string> sPath) {
  std::vector<std::string> sChanged;
  std::ranges::copy_if(sPath, std::back_inserter(sChanged), Is_Changed);
  return sChanged;
}

}  // namespace quillan
