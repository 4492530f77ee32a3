#include "foundations/text_file.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <functional>
#include <system_error>

#include "support/files.h"

namespace {
bool bKillAtRename = false;
}

// The linker puts these before the library's calls: a save can be ended at the last moment before it takes effect.
extern "C" {
int __real_rename(const char* sFrom, const char* sTo);
int __real_renameat(int iFrom, const char* sFrom, int iTo, const char* sTo);
int __wrap_rename(const char* sFrom, const char* sTo);
int __wrap_renameat(int iFrom, const char* sFrom, int iTo, const char* sTo);

int __wrap_rename(const char* sFrom, const char* sTo) {
  if (bKillAtRename) ::raise(SIGKILL);
  return __real_rename(sFrom, sTo);
}
int __wrap_renameat(int iFrom, const char* sFrom, int iTo, const char* sTo) {
  if (bKillAtRename) ::raise(SIGKILL);
  return __real_renameat(iFrom, sFrom, iTo, sTo);
}
}

namespace quillan {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t NMegabyte = 1 << 20;

std::vector<std::string> Names_in(const std::string& sFolder) {
  std::vector<std::string> sName;
  for (const auto& hEntry : fs::directory_iterator(sFolder)) sName.push_back(hEntry.path().filename().string());
  std::ranges::sort(sName);
  return sName;
}

using Names = std::vector<std::string>;

std::vector<std::string> Records_of(const std::string& sBytes, I4 MRecord = 80) {
  Write_File("records.txt", sBytes);
  std::vector<std::string> sRecord;
  RecordReader in("records.txt", MRecord);
  EXPECT_TRUE(in.Is_Open());
  while (in.Next()) {
    sRecord.emplace_back(in.Record());
    EXPECT_EQ(in.Record().data()[in.Record().size()], '\0') << "ends every loop over a record";
    EXPECT_EQ(in.iRecord(), static_cast<I4>(sRecord.size()));
  }
  EXPECT_FALSE(in.Has_Failed());
  return sRecord;
}

TEST(RecordReader, TakesEveryKindOfLineEnd) {
  using namespace std::string_literals;
  struct Case {
    const char* sWhat;
    std::string sBytes;
    std::vector<std::string> sRecord;
  };
  const Case hCase[] = {
      {"an empty file has no record",                     "",              {}               },
      {"a byte-order mark alone is no record",            "\xEF\xBB\xBF",  {}               },
      {"a byte-order mark is dropped once, at the start",
       "\xEF\xBB\xBF\xEF\xBB\xBF"
       "a\n\xEF\xBB\xBF"
       "b\n",                                                              {"\xEF\xBB\xBF"
        "a",
        "\xEF\xBB\xBF"
        "b"}                                                                   },
      {"half a mark is text",                             "\xEF\xBB",      {"\xEF\xBB"}     },
      {"the last line needs no end",                      "a\nb",          {"a", "b"}       },
      {"an empty line is a record",                       "\n\r\n\na\n",   {"", "", "", "a"}},
      {"LF and CRLF mix",                                 "a\r\nb\nc\r\n", {"a", "b", "c"}  },
      {"a lone CR is text",                               "a\rb\r\r\nc\r", {"a\rb\r", "c\r"}},
      {"a NUL byte is text",                              "a\0b\n\0"s,     {"a\0b"s, "\0"s} },
  };
  for (const Case& h : hCase) EXPECT_EQ(Records_of(h.sBytes), h.sRecord) << h.sWhat;
}

TEST(RecordReader, CutsALongRecordBetweenCharacters) {
  const std::string sMicro = "\xC2\xB5";
  EXPECT_EQ(Records_of("abcde\nabcd\r\nabcd\n", 4), (Names{"abcd", "abcd", "abcd"}));
  EXPECT_EQ(Records_of("abc" + sMicro + "\nx", 4), (Names{"abc", "x"})) << "in a block";
  EXPECT_EQ(Records_of("abc" + sMicro, 4), (Names{"abc"})) << "without a line end";
  EXPECT_EQ(Records_of("ab" + sMicro, 4), (Names{"ab" + sMicro}));
  EXPECT_EQ(Records_of("a\nb\n", 0), (Names{"", ""}));
}

// Wherever a block ends, within a line, before its end, within its end, after it, nothing is lost or doubled.
TEST(RecordReader, ReadsAcrossTheEndsOfBlocks) {
  for (const std::string_view sEnd : {"\n", "\r\n"}) {
    for (std::size_t NFirst = NMegabyte - 5; NFirst <= NMegabyte + 2; ++NFirst) {
      const std::string sFirst = std::string(NFirst - 2, 'a') + "\xC2\xB5";
      const std::string sBytes = sFirst + std::string(sEnd) + "next" + std::string(sEnd) + "last";
      const I4 MAll = 2 * static_cast<I4>(NMegabyte);
      EXPECT_TRUE((Records_of(sBytes, MAll) == Names{sFirst, "next", "last"})) << NFirst << " bytes";
      EXPECT_TRUE((Records_of(sBytes, static_cast<I4>(NFirst)) == Names{sFirst, "next", "last"})) << NFirst << " exact";
      const Names sCut{sFirst.substr(0, NFirst - 2), "next", "last"};
      EXPECT_TRUE((Records_of(sBytes, static_cast<I4>(NFirst) - 1) == sCut)) << NFirst << " cut";
      EXPECT_EQ(Records_of(sBytes, 6), (Names{"aaaaaa", "next", "last"})) << NFirst << " short";
    }
  }
}

TEST(RecordReader, PassesOverTheRestOfAHugeLine) {
  const std::string sHuge(10 * NMegabyte, 'x');
  EXPECT_EQ(Records_of(sHuge + "\r\nnext", 5), (Names{"xxxxx", "next"}));
  EXPECT_EQ(Records_of(sHuge, 5), (Names{"xxxxx"}));
}

TEST(RecordReader, RefusesWhatIsNoFile) {
  fs::create_directory("no_file");
  ASSERT_EQ(::mkfifo("no_file/pipe", 0600), 0);
  for (const char* sPath : {"no_file", "no_file/missing", "no_file/pipe", ""}) {
    RecordReader in(sPath, 80);
    EXPECT_FALSE(in.Is_Open()) << sPath;
    EXPECT_FALSE(in.Next()) << sPath;
  }
  fs::remove_all("no_file");
}

/// What a child process says about its deed; blank where it does not live to say it.
std::string Told_by_Child(const std::function<std::string()>& Deed) {
  int hPipe[2];
  EXPECT_EQ(::pipe(hPipe), 0);
  const pid_t iChild = ::fork();
  if (iChild == 0) {
    const std::string sTold = Deed();
    ::_exit(::write(hPipe[1], sTold.data(), sTold.size()) < 0 ? 1 : 0);
  }
  ::close(hPipe[1]);
  std::string sTold;
  char sBytes[256];
  for (ssize_t N = 0; (N = ::read(hPipe[0], sBytes, sizeof sBytes)) > 0;) sTold.append(sBytes, sBytes + N);
  ::close(hPipe[0]);
  ::waitpid(iChild, nullptr, 0);
  return sTold;
}

/// Saves text over a file; "saved", or why not.
std::string Save(const std::string& sPath, std::string_view sText) {
  TextWriter out(sPath);
  out.Put(sText);
  out.Commit();
  return out.Has_Failed() ? out.Reason() : "saved";
}

/// The system tells a failure in the user's language.
std::string Words_of(std::errc iFailure) {
  return std::make_error_condition(iFailure).message();
}

// A folder that other users of the machine may enter, since the test's own may be closed to them.
class TextWriterTest : public testing::Test {
 protected:
  void SetUp() override {
    std::string sPattern = (fs::temp_directory_path() / "text_writer.XXXXXX").string();
    ASSERT_NE(::mkdtemp(sPattern.data()), nullptr);
    sFolder = sPattern;
    fs::permissions(sFolder, fs::perms{0777});
    sFile = sFolder + "/survey.avg";
    Write_File(sFile, "earlier");
  }
  void TearDown() override { fs::remove_all(sFolder); }

  void Expect_Only_the_Earlier_File() const {
    EXPECT_EQ(Read_Whole_File(sFile), "earlier");
    EXPECT_EQ(Names_in(sFolder), Names{"survey.avg"});
  }

  std::string sFolder, sFile;
};

TEST_F(TextWriterTest, ReplacesTheFileOnlyAtTheEnd) {
  const std::string sBulk(2 * NMegabyte, 'x');
  {
    TextWriter out(sFile);
    out.Line("first");
    out.Put(sBulk);
    EXPECT_EQ(Read_Whole_File(sFile), "earlier");
    const Names sName = Names_in(sFolder);
    ASSERT_EQ(sName.size(), 2U);
    EXPECT_TRUE(sName[0].starts_with(".survey.avg.")) << "the temporary file is hidden: " << sName[0];
    out.Commit();
    EXPECT_FALSE(out.Has_Failed()) << out.Reason();
  }
  EXPECT_TRUE(Read_Whole_File(sFile) == "first\n" + sBulk);
  EXPECT_EQ(Names_in(sFolder), Names{"survey.avg"});
}

TEST_F(TextWriterTest, LeavesTheFileWhenItIsNotCommitted) {
  { TextWriter(sFile).Line("half"); }
  Expect_Only_the_Earlier_File();
}

TEST_F(TextWriterTest, LeavesTheFileWhenItIsKilledBeforeTheRename) {
  const auto Killed_Save = [&] {
    bKillAtRename = true;
    return Save(sFile, "new");
  };
  EXPECT_EQ(Told_by_Child(Killed_Save), "");
  EXPECT_EQ(Read_Whole_File(sFile), "earlier");
  EXPECT_EQ(Names_in(sFolder).size(), 2U) << "the new file was written under another name";
  EXPECT_EQ(Save(sFile, "new"), "saved") << "what a killed run left is in nobody's way";
  EXPECT_EQ(Read_Whole_File(sFile), "new");
}

// A size limit ends a write as a full disk does: some bytes still fit, then none.
TEST_F(TextWriterTest, LeavesTheFileWhenTheDiskIsFull) {
  const auto Limited_Save = [&] {
    ::signal(SIGXFSZ, SIG_IGN);
    const rlimit hLimit{300000, 300000};
    ::setrlimit(RLIMIT_FSIZE, &hLimit);
    return Save(sFile, std::string(NMegabyte, 'x'));
  };
  EXPECT_EQ(Told_by_Child(Limited_Save), Words_of(std::errc::file_too_large));
  Expect_Only_the_Earlier_File();
}

TEST_F(TextWriterTest, FailsWhenTheFolderGoesAway) {
  TextWriter out(sFile);
  out.Put(std::string(NMegabyte, 'x'));
  fs::remove_all(sFolder);
  out.Commit();
  EXPECT_TRUE(out.Has_Failed());
  EXPECT_EQ(out.Reason(), Words_of(std::errc::no_such_file_or_directory));
  EXPECT_EQ(Save(sFile, "new"), Words_of(std::errc::no_such_file_or_directory));
  EXPECT_FALSE(fs::exists(sFolder));
}

std::string Save_Unprivileged(const std::string& sPath) {
  return Told_by_Child([&] {
    if (::geteuid() == 0 && ::setuid(65534) != 0) return std::string("no other user");
    return Save(sPath, "new");
  });
}

TEST_F(TextWriterTest, RefusesWhatTheUserMayNotWrite) {
  fs::permissions(sFile, fs::perms{0666});
  if (Save_Unprivileged(sFile) != "saved") GTEST_SKIP() << "no user without privileges can be had here";
  fs::remove(sFile);
  Write_File(sFile, "earlier");

  fs::permissions(sFile, fs::perms{0444});
  EXPECT_EQ(Save_Unprivileged(sFile), Words_of(std::errc::permission_denied)) << "a read-only file";
  Expect_Only_the_Earlier_File();
  fs::permissions(sFile, fs::perms{0666});
  fs::permissions(sFolder, fs::perms{0555});
  EXPECT_EQ(Save_Unprivileged(sFile), Words_of(std::errc::permission_denied)) << "a read-only folder";
  EXPECT_EQ(Save_Unprivileged(sFolder + "/new.avg"), Words_of(std::errc::permission_denied)) << "a new file in it";
  fs::permissions(sFolder, fs::perms{0755});
  Expect_Only_the_Earlier_File();
}

TEST_F(TextWriterTest, RefusesWhatIsNoRegularFile) {
  const std::string sPipe = sFolder + "/pipe", sLoop = sFolder + "/loop";
  ASSERT_EQ(::mkfifo(sPipe.c_str(), 0600), 0);
  fs::create_symlink("loop", sLoop);
  const Names sBefore = Names_in(sFolder);
  EXPECT_EQ(Save(sFolder, "new"), Words_of(std::errc::is_a_directory));
  EXPECT_EQ(Save(sPipe, "new"), "Not a regular file");
  EXPECT_EQ(Save(sLoop, "new"), Words_of(std::errc::too_many_symbolic_link_levels));
  EXPECT_EQ(Save(sFile + "/below", "new"), Words_of(std::errc::not_a_directory));
  EXPECT_TRUE(fs::is_fifo(sPipe));
  EXPECT_EQ(Names_in(sFolder), sBefore);
}

TEST_F(TextWriterTest, WritesThroughLinks) {
  fs::create_directory(sFolder + "/links");
  fs::create_symlink("../survey.avg", sFolder + "/links/b.avg");
  fs::create_symlink("b.avg", sFolder + "/links/a.avg");
  fs::create_symlink("../later.avg", sFolder + "/links/later.avg");
  EXPECT_EQ(Save(sFolder + "/links/a.avg", "new"), "saved");
  EXPECT_EQ(Save(sFolder + "/links/later.avg", "later"), "saved") << "a link to what is not there yet";
  EXPECT_TRUE(fs::is_symlink(sFolder + "/links/a.avg"));
  EXPECT_TRUE(fs::is_symlink(sFolder + "/links/later.avg"));
  EXPECT_EQ(Read_Whole_File(sFile), "new");
  EXPECT_EQ(Read_Whole_File(sFolder + "/later.avg"), "later");
}

TEST_F(TextWriterTest, KeepsTheModeOfTheFile) {
  const auto Mode_of = [](const std::string& sPath) { return fs::status(sPath).permissions(); };
  const mode_t iOldMask = ::umask(027);
  for (const fs::perms iMode : {fs::perms{0600}, fs::perms{0664}, fs::perms{0755}}) {
    fs::permissions(sFile, iMode);
    EXPECT_EQ(Save(sFile, "new"), "saved");
    EXPECT_EQ(Mode_of(sFile), iMode);
  }
  EXPECT_EQ(Save(sFolder + "/new.avg", "new"), "saved");
  EXPECT_EQ(Mode_of(sFolder + "/new.avg"), fs::perms{0640}) << "a new file follows the user's mask";
  ::umask(iOldMask);
}

TEST_F(TextWriterTest, TakesTheLongestNameThatAFolderHolds) {
  std::string sName;
  while (sName.size() < 250) sName += "\xC2\xB5";
  sName += ".avgx";
  EXPECT_EQ(Save(sFolder + "/" + sName, "new"), "saved");
  EXPECT_EQ(Read_Whole_File(sFolder + "/" + sName), "new");
}

}  // namespace
}  // namespace quillan
