#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/usb_xpress.h"

namespace morvane::bridges {

// A trace is a text file of UTF-8 lines that end in LF: its head, a line an operation, and "# end"
// when whoever wrote it has ended. A file that has grown to its limit goes on in a new one, its
// next part, with a head of its own; it has no "# end" then. A line of advice stands right behind
// the operation that it is about.

/// What was asked of the bridge. The last one is `UsbXpress::Advice`, noted where it has words.
enum class Operation : std::uint8_t {
  kGetDllVersion,
  kGetDriverVersion,
  kGetNumDevices,
  kGetProductString,
  kOpen,
  kSetTimeouts,
  kSetBaudRate,
  kSetLineControl,
  kFlushBuffers,
  kWrite,
  kRead,
  kWriteLatch,
  kClose,
  kAdvice,
};

/// The first lines of a part.
struct TraceHead {
  std::string Began;    ///< of the whole trace: "2026-03-03 15:04:05.123"
  std::string Machine;  ///< the text of `--machine`
  int Part = 1;
  bool HandsLeftOut = false;  ///< who has which card is not in it

  bool operator==(const TraceHead&) const = default;
};

/// One operation with its outcome:
///
///     12.345678 0.000720 Read 0 handle=1 asked=8 bytes=19F1... ; status: busy, 3 2 4 1
///
/// When it began, in seconds since the trace did, how long it took, its name, its status, its
/// numbers by name, what went over the line in hex, and behind a semicolon, for people only, what
/// that says.
struct TraceLine {
  std::chrono::microseconds At{0};
  std::chrono::microseconds Took{0};
  Operation What = Operation::kGetDllVersion;
  UsbXpress::Status Result = UsbXpress::kSuccess;
  /// Its arguments and results but for the bytes, in the order of the operation: Open has the index
  /// and the handle, Read the handle and how many bytes were asked for, Write the handle and how
  /// many were written. Those that it lacks are 0.
  std::array<std::uint32_t, 3> Numbers{};
  /// What was written or read; the serial string; the words of the advice.
  std::vector<std::uint8_t> Bytes;

  bool operator==(const TraceLine&) const = default;
};

/// The first line of every part, and what it begins with in every version.
inline constexpr std::string_view kTraceMark = "# Morvane link trace 1";
inline constexpr std::string_view kTraceMarkOfAny = kTraceMark.substr(0, kTraceMark.rfind(' ') + 1);
inline constexpr std::string_view kTraceEnd = "# end";
/// No line is longer, its end included.
inline constexpr std::size_t kLongestTraceLine = 16384;
/// Of more bytes than these a line has only the first.
inline constexpr std::size_t kMostTraceBytes = 7680;

/// "GetDllVersion".
[[nodiscard]] std::string_view NameOf(Operation what);

/// The head's lines, each with its end: the mark, and what `TakeHeadLine` takes.
[[nodiscard]] std::string TextOf(const TraceHead& head);
/// Takes a line of the head behind the mark into `head`. False: it is none.
[[nodiscard]] bool TakeHeadLine(std::string_view line, TraceHead& head);

/// The line with its end. What is `said`, UTF-8, stands behind the semicolon, of a long one the
/// beginning.
[[nodiscard]] std::string TextOf(const TraceLine& line, std::string_view said);
/// What is wrong with `text`, a line without its end, in words for who reads the trace; `line` is
/// then as it was. Blank lines and those of the head are none of an operation. A line that was cut
/// in the middle of a number or a byte may pass: whoever has the file looks for the line's end.
[[nodiscard]] std::optional<std::string> ParseTraceLine(std::string_view text, TraceLine& line);

}  // namespace morvane::bridges
