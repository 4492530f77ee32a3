#include "platform/locked_file.h"

#include <gtest/gtest.h>

#include "platform/file_names.h"
#include "support/files.h"

namespace quillan {
namespace {

TEST(LockedFile, BelongsToOneAtATimeAndIsCutAndExtended) {
  LockedFile hFirst, hSecond;
  std::string sBytes;
  ASSERT_EQ(hFirst.Open("a.journal"), LockedFile::Opened::Yes);
  EXPECT_EQ(hFirst.Append("edit1edit2"), 0);
  EXPECT_EQ(hSecond.Open("a.journal"), LockedFile::Opened::InUse);
  hFirst.Close();
  ASSERT_EQ(hSecond.Open("a.journal"), LockedFile::Opened::Yes);
  EXPECT_EQ(hSecond.Read(sBytes), 0);
  EXPECT_EQ(sBytes, "edit1edit2");
  EXPECT_EQ(hSecond.Cut(5) + hSecond.Append("edit3") + hSecond.Flush(), 0);
  EXPECT_EQ(Read_Whole_File("a.journal"), "edit1edit3");
  Write_File("b.journal", "another's");
  EXPECT_EQ(hSecond.Set_Aside("b.journal"), 1);
  ASSERT_TRUE(hSecond.Is_Open());
  hSecond.Remove();
  EXPECT_FALSE(IOsFileExists("a.journal"));
  EXPECT_EQ(hFirst.Open("no such folder/a.journal"), LockedFile::Opened::Failed);
}

}  // namespace
}  // namespace quillan
