// text_file.h: text files a record at a time, and their safe replacement.
//
// Reading takes any bytes: lines end in LF or CRLF, the last line may have no end, a UTF-8 byte-order mark at the
// start is dropped, and a record longer than the format allows loses the rest. Writing puts the new file in the place
// of the old one only when it is complete (see SafeFile).
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "base/types.h"
#include "platform/file_names.h"
#include "platform/input_file.h"
#include "platform/safe_file.h"

namespace quillan {

/// Records of a text file in turn. Memory use does not depend on the size of the file or of its lines.
class RecordReader {
 public:
  /// MRecord: the most characters that a record of this format has; the rest of a line is passed over.
  RecordReader(std::string_view sPath, I4 MRecord);

  /// False when there is no such file, it is no regular file, or it may not be read.
  bool Is_Open() const { return hFile.Is_Open(); }
  /// Whether there is no such file.
  bool Is_Missing() const { return hFile.Is_Missing(); }
  /// Why it is not open or reading stopped, in words: "Permission denied".
  std::string Reason() const { return hFile.Reason(); }

  /// Takes the next record; false at the end of the file or after a read error.
  bool Next();
  /// The record, cut to MRecord, without its line end; good until the next call of Next. A NUL stands after it.
  std::string_view Record() const { return sRecord; }
  /// Its number, from 1.
  I4 iRecord() const { return iLine; }
  /// Bytes up to its end.
  I8 NBytes() const { return NBefore + static_cast<I8>(iBlock); }
  /// Whether reading stopped at a read error.
  bool Has_Failed() const { return bFailed; }

 private:
  bool Fill();
  bool Next_Across_Blocks();
  void Take(char* sLine, std::size_t NLine, bool bCarriageReturn);

  InputFile hFile;
  std::unique_ptr<char[]> hBlock;
  std::size_t NBlock = 0;  // bytes in the block
  std::size_t iBlock = 0;  // of which taken
  I8 NBefore = 0;          // bytes of the blocks before it
  std::string sLong;       // a record that runs over the end of a block
  std::string_view sRecord;
  std::size_t MKept;  // bytes of a record
  I4 iLine = 0;
  bool bAtEnd = false;
  bool bFailed = false;
};

/// Lines of a text file that takes the place of an earlier one when Commit succeeds. After a failure further lines
/// are dropped, and the earlier file stays whole.
class TextWriter {
 public:
  explicit TextWriter(std::string_view sPath);

  bool Has_Failed() const { return hFile.Has_Failed(); }
  /// Why, in words: "No space left on device".
  std::string Reason() const { return hFile.Reason(); }

  /// Text without a line end.
  void Put(std::string_view sText) {
    sBuffer += sText;
    if (sBuffer.size() >= NFlush) Flush();
  }
  /// Text with the platform's line end after it.
  void Line(std::string_view sText) {
    sBuffer += sText;
    sBuffer += sLineEnd;
    if (sBuffer.size() >= NFlush) Flush();
  }

  /// Puts the file in its place. Look at Has_Failed afterwards.
  void Commit();

 private:
  static constexpr std::size_t NFlush = 1 << 18;  // bytes held back before they go to the file
  void Flush();

  SafeFile hFile;
  std::string sBuffer;
};

}  // namespace quillan
