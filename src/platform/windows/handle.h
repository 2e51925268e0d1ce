#pragma once

#include <windows.h>

#include <memory>

namespace morvane {

struct HandleCloser {
  using pointer = HANDLE;
  void operator()(HANDLE handle) const { CloseHandle(handle); }
};

/// A handle of the system that is closed with this object; none is null.
using OpenedHandle = std::unique_ptr<HANDLE, HandleCloser>;

/// Whoever has the file open meanwhile may do with it what he likes.
inline constexpr DWORD kSharedWithAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// Takes what `CreateFileW` answers.
[[nodiscard]] inline OpenedHandle TakeHandle(HANDLE handle) {
  return OpenedHandle(handle == INVALID_HANDLE_VALUE ? nullptr : handle);
}

}  // namespace morvane
