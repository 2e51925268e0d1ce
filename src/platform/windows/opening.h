#pragma once

#include <string>

#include "platform/file_beside.h"
#include "platform/files.h"
#include "platform/windows/handle.h"

namespace morvane {

/// False, and `errno`, for a name that no file can have: a device's (ENOTSUP), one that is too
/// long.
[[nodiscard]] bool MayBeNamed(const std::string& path);

/// How `CreateFileW` is called for `path`: `rights` are those of the handle, `disposition` says
/// what may be there. Others may read, write, rename and remove the file while we have it. A file
/// made or opened as private is this user's alone then, unless it belongs to another. None, and
/// `errno` and the system's error, when it fails; ENOTSUP for a device or a pipe.
[[nodiscard]] OpenedHandle OpenShared(const std::string& path, DWORD rights, DWORD disposition,
                                      NewFile access = NewFile::kOpen);

/// Whether the file may be written, if not now, then when whoever keeps it to himself lets go;
/// `errno` says why not.
[[nodiscard]] bool MayOpenToWrite(const std::string& path);

/// A stream of the C library on the handle; `mode` as `fopen` has it.
[[nodiscard]] OpenedFile StreamOf(OpenedHandle handle, const char* mode);

/// Takes a lock that hinders nobody's reading or writing, without waiting, until the handle is
/// closed. False, and the system's error, when it cannot be had.
[[nodiscard]] bool TakeLock(HANDLE file);
/// After `TakeLock` has failed.
[[nodiscard]] bool IsHeldByAnother();

}  // namespace morvane
