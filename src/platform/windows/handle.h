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

/// Takes what `CreateFileW` answers.
[[nodiscard]] inline OpenedHandle TakeHandle(HANDLE handle) {
  return OpenedHandle(handle == INVALID_HANDLE_VALUE ? nullptr : handle);
}

}  // namespace morvane
