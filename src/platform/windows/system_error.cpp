#include "platform/windows/system_error.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <utility>

#include "platform/windows/wide.h"

namespace morvane {
namespace {

// winerror.h does not have all of them.
constexpr long kVirusInfected = 225;
constexpr long kVirusDeleted = 226;
constexpr long kElevationRequired = 740;
constexpr long kDiskQuotaExceeded = 1295;

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
                               std::pair{ERROR_SHARING_VIOLATION, EBUSY},
                               std::pair{ERROR_LOCK_VIOLATION, EBUSY},
                               std::pair{ERROR_DELETE_PENDING, EACCES},
                               std::pair{ERROR_NETWORK_ACCESS_DENIED, EACCES},
                               std::pair{ERROR_LOGON_FAILURE, EACCES},
                               std::pair{ERROR_CANT_ACCESS_FILE, EACCES},
                               std::pair{kVirusInfected, EACCES},
                               std::pair{kVirusDeleted, EACCES},
                               std::pair{kElevationRequired, EPERM},
                               std::pair{ERROR_USER_MAPPED_FILE, EBUSY},
                               std::pair{ERROR_NOT_READY, ENXIO},
                               std::pair{ERROR_DEV_NOT_EXIST, ENODEV},
                               std::pair{ERROR_BAD_EXE_FORMAT, ENOEXEC},
                               std::pair{ERROR_EXE_MACHINE_TYPE_MISMATCH, ENOEXEC},
                               std::pair{ERROR_WRITE_PROTECT, EROFS},
                               std::pair{ERROR_TOO_MANY_OPEN_FILES, EMFILE},
                               std::pair{ERROR_NOT_ENOUGH_MEMORY, ENOMEM},
                               std::pair{ERROR_OUTOFMEMORY, ENOMEM},
                               std::pair{ERROR_DISK_FULL, ENOSPC},
                               std::pair{ERROR_HANDLE_DISK_FULL, ENOSPC},
                               std::pair{kDiskQuotaExceeded, ENOSPC},
                               std::pair{ERROR_FILE_TOO_LARGE, EFBIG},
                               std::pair{ERROR_FILENAME_EXCED_RANGE, ENAMETOOLONG},
                               std::pair{ERROR_NOT_SUPPORTED, ENOTSUP},
                               std::pair{ERROR_INVALID_FUNCTION, ENOTSUP},
                               std::pair{ERROR_BROKEN_PIPE, EPIPE},
                               std::pair{ERROR_NO_DATA, EPIPE},
                               std::pair{ERROR_PIPE_NOT_CONNECTED, EPIPE}};

}  // namespace

int ErrnoOf(unsigned long number) {
  const auto* const at = std::find_if(
      kMeanings.begin(), kMeanings.end(),
      [number](const auto& meaning) { return meaning.first == static_cast<long>(number); });
  return at == kMeanings.end() ? EIO : at->second;
}

std::string WordsOfErrno(int number) {
  if (number == EBUSY) return "Device or resource busy";
  if (number == ENOTSUP) return "Operation not supported";
  if (number == ETIMEDOUT) return "Connection timed out";
  return std::generic_category().message(number);
}

void KeepLastError() { errno = ErrnoOf(GetLastError()); }

std::string WordsOfSystem(unsigned long number) {
  constexpr DWORD kPlain = FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
  std::array<wchar_t, 1000> text{};
  const DWORD size = FormatMessageW(kPlain, nullptr, number, 0, text.data(),
                                    static_cast<DWORD>(text.size()), nullptr);
  std::wstring words(text.data(), size);
  words.resize(words.find_last_not_of(L"\r\n ") + 1);
  return words.empty() ? "error " + std::to_string(number) : Utf8(words);
}

RuntimeError LastSystemError() { return RuntimeError::OfNumber(ErrnoOf(GetLastError())); }

}  // namespace morvane
