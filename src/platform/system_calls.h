// system_calls.h: calls that each system names or makes in its own way. Only platform/ includes it: a port to another
// system is a port of its source file.
//
// A call that fails returns false or -1 and leaves the reason in errno. What a signal interrupts is done again.
#pragma once

#include <string>

#include "base/types.h"

namespace quillan {

/// A handle for reading, -1 where there is none. It never waits: a pipe without a writer holds nobody up.
int Sys_Open_to_Read(const std::string& sPath);
/// A handle for writing a file that must not be there yet (else EEXIST). iMode: permissions, before the user's mask.
/// For as long as it is open, the file is known to belong to a running process.
int Sys_Open_New(const std::string& sPath, I4 iMode);
/// Removes a file that Sys_Open_New made in a process that runs no more. One that is open stays, and so does one on a
/// file system that cannot tell.
void Sys_Remove_Left_Over(const std::string& sPath);
/// A handle for reading and writing a file that no other process has open in this way, else EWOULDBLOCK. The file is
/// made with iMode where it is not there yet. A link is not followed.
int Sys_Open_Alone(const std::string& sPath, I4 iMode);
/// A second handle of an open file; -1 where the system gives none.
int Sys_Duplicate(int iHandle);
bool Sys_Close(int iHandle);

/// What was opened; neither kind where the system does not say.
struct HandleStatus {
  bool bRegular = false;
  bool bFolder = false;
  I4 iMode = 0;  // permissions
  I8 NByte = 0;  // size
  I8 iTime = 0;  // nsec since 1970 of the last change, as exact as the system knows it
};
HandleStatus Sys_Status(int iHandle);
/// Bytes read, 0 at the end of the file.
I8 Sys_Read(int iHandle, char* sBytes, std::size_t NBytes);
/// Bytes written, fewer than NBytes where the disk has room for no more.
I8 Sys_Write(int iHandle, const char* sBytes, std::size_t NBytes);
/// Leaves the first NByte bytes of a file; what is written next follows them.
bool Sys_Cut(int iHandle, I8 NByte);
/// Brings what was written to the disk. File systems that cannot flush count as done: no more can be had there.
bool Sys_Flush(int iHandle);

/// Path of the running program, links resolved; blank where the system does not say.
std::string Sys_Program_Path();

/// A failure in words: "Permission denied". EINVAL stands for what is no regular file.
std::string Sys_Reason(I4 iOSError);

/// Where the file system keeps no modes nothing changes; the mode is then none that lets more users in.
void Sys_Set_Mode(int iHandle, I4 iMode);
bool Sys_May_Write(const std::string& sPath);
/// Renames a file over another one in one step, and makes the new name last.
bool Sys_Replace(const std::string& sFrom, const std::string& sTo);

}  // namespace quillan
