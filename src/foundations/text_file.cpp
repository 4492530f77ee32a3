#include "foundations/text_file.h"

#include <algorithm>

#include "base/text.h"

namespace quillan {

namespace {

constexpr std::size_t MBlock = 1 << 18;  // bytes; what is read stays in the cache until it is used
constexpr std::string_view sByteOrderMark = "\xEF\xBB\xBF";

}  // namespace

RecordReader::RecordReader(std::string_view sPath, I4 MRecord)
    : hFile(sPath), MKept(static_cast<std::size_t>(std::max(MRecord, 0))) {
  bAtEnd = !Is_Open();
  if (bAtEnd) return;
  hBlock = std::make_unique_for_overwrite<char[]>(MBlock);
  Fill();
  if (std::string_view(hBlock.get(), NBlock).starts_with(sByteOrderMark)) iBlock = sByteOrderMark.size();
}

bool RecordReader::Next() {
  if (iBlock == NBlock && !Fill()) return false;
  char* const sLine = hBlock.get() + iBlock;
  const std::string_view sRest(sLine, NBlock - iBlock);
  const std::size_t NLine = sRest.find('\n');
  if (NLine == std::string_view::npos) return Next_Across_Blocks();
  iBlock += NLine + 1;
  Take(sLine, NLine, NLine > 0 && sLine[NLine - 1] == '\r');
  return true;
}

/// The record that the block's end cuts, or the last one of a file without an end of its own. One byte more than the
/// longest record is kept: a carriage return may stand there, and only that byte shows whether a cut would split a
/// character.
bool RecordReader::Next_Across_Blocks() {
  sLong.clear();
  std::size_t NLine = 0;
  bool bEnded = false;
  char sLast = ' ';
  do {
    const std::string_view sRest(hBlock.get() + iBlock, NBlock - iBlock);
    const std::string_view sPart = sRest.substr(0, sRest.find('\n'));
    bEnded = sPart.size() < sRest.size();
    sLong.append(sPart.substr(0, MKept + 1 - sLong.size()));
    NLine += sPart.size();
    if (!sPart.empty()) sLast = sPart.back();
    iBlock += sPart.size() + (bEnded ? 1 : 0);
  } while (!bEnded && Fill());
  if (bFailed && !bEnded) return false;  // half a record would be read as another value
  Take(sLong.data(), sLong.size(), bEnded && sLast == '\r' && NLine == sLong.size());
  return true;
}

void RecordReader::Take(char* sLine, std::size_t NLine, bool bCarriageReturn) {
  sRecord = Cut_Text({sLine, bCarriageReturn ? NLine - 1 : NLine}, MKept);
  sLine[sRecord.size()] = '\0';  // in place of the line end, or of what was cut off
  ++iLine;
}

/// The next block; false when nothing is left. What came before an error is still given out.
bool RecordReader::Fill() {
  NBefore += static_cast<I8>(NBlock);
  NBlock = iBlock = 0;
  while (!bAtEnd && NBlock < MBlock) {
    const I8 NRead = hFile.Read(hBlock.get() + NBlock, MBlock - NBlock);
    bFailed = NRead < 0;
    bAtEnd = NRead <= 0;
    if (NRead > 0) NBlock += static_cast<std::size_t>(NRead);
  }
  return NBlock > 0;
}

TextWriter::TextWriter(std::string_view sPath) : hFile(sPath) {
  sBuffer.reserve(NFlush + NFlush / 8);
}

void TextWriter::Commit() {
  Flush();
  hFile.Commit();
}

void TextWriter::Flush() {
  hFile.Write(sBuffer);
  sBuffer.clear();
}

}  // namespace quillan
