#include "platform/windows/system_error.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <utility>

namespace morvane {
namespace {

constexpr std::array kMeanings{std::pair{ERROR_FILE_NOT_FOUND, ENOENT},
                               std::pair{ERROR_PATH_NOT_FOUND, ENOENT},
                               std::pair{ERROR_INVALID_DRIVE, ENOENT},
                               std::pair{ERROR_BAD_NETPATH, ENOENT},
                               std::pair{ERROR_BAD_NET_NAME, ENOENT},
                               std::pair{ERROR_INVALID_NAME, ENOENT},
                               std::pair{ERROR_BAD_PATHNAME, ENOENT},
                               std::pair{ERROR_DIRECTORY, ENOTDIR},
                               std::pair{ERROR_FILE_EXISTS, EEXIST},
                               std::pair{ERROR_ALREADY_EXISTS, EEXIST},
                               std::pair{ERROR_ACCESS_DENIED, EACCES},
                               std::pair{ERROR_SHARING_VIOLATION, EACCES},
                               std::pair{ERROR_LOCK_VIOLATION, EACCES},
                               std::pair{ERROR_DELETE_PENDING, EACCES},
                               std::pair{ERROR_WRITE_PROTECT, EROFS},
                               std::pair{ERROR_TOO_MANY_OPEN_FILES, EMFILE},
                               std::pair{ERROR_NOT_ENOUGH_MEMORY, ENOMEM},
                               std::pair{ERROR_OUTOFMEMORY, ENOMEM},
                               std::pair{ERROR_DISK_FULL, ENOSPC},
                               std::pair{ERROR_HANDLE_DISK_FULL, ENOSPC},
                               std::pair{ERROR_FILENAME_EXCED_RANGE, ENAMETOOLONG},
                               std::pair{ERROR_NOT_SUPPORTED, ENOTSUP},
                               std::pair{ERROR_INVALID_FUNCTION, ENOTSUP},
                               std::pair{ERROR_BROKEN_PIPE, EPIPE},
                               std::pair{ERROR_NO_DATA, EPIPE}};

}  // namespace

int ErrnoOf(unsigned long number) {
  const auto* const at = std::find_if(
      kMeanings.begin(), kMeanings.end(),
      [number](const auto& meaning) { return meaning.first == static_cast<long>(number); });
  return at == kMeanings.end() ? EIO : at->second;
}

std::string WordsOfErrno(int number) {
  if (number == ENOTSUP) return "Operation not supported";
  if (number == ETIMEDOUT) return "Connection timed out";
  return std::generic_category().message(number);
}

void KeepLastError() { errno = ErrnoOf(GetLastError()); }

RuntimeError LastSystemError() { return RuntimeError::OfNumber(ErrnoOf(GetLastError())); }

}  // namespace morvane
