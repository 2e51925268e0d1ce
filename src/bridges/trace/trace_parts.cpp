#include "bridges/trace/trace_parts.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string_view>
#include <system_error>

#include "bridges/trace/trace_line.h"
#include "platform/files.h"
#include "platform/write_check.h"
#include "text/text_lines.h"

namespace morvane::bridges {
namespace {

using Fault = std::optional<std::string>;

/// What is there in place of a plain file.
Fault NoPlainFile(std::filesystem::file_type type) {
  using std::filesystem::file_type;
  switch (type) {
    case file_type::regular:
    case file_type::not_found:
      return std::nullopt;
    case file_type::symlink:
      return "this is a link";
    case file_type::directory:
      return "this is a folder";
    default:
      return "this is no plain file";
  }
}

/// A trace of any version, or nothing yet: what may be moved on, and go in the end.
Fault NoTrace(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return RuntimeError::Last().Description;
  std::array<char, kTraceMarkOfAny.size()> start{};
  file.read(start.data(), start.size());
  const std::string_view got(start.data(), static_cast<std::size_t>(file.gcount()));
  if (got.empty() || got == kTraceMarkOfAny) return std::nullopt;
  return "there is a file of this name, and it is no trace";
}

/// What is wrong with the kind of what stands there; `isThere` says whether something does.
Fault WrongKind(const std::string& path, bool& isThere) {
  std::error_code failure;
  const auto status = std::filesystem::symlink_status(PathOfUtf8(path), failure);
  isThere = std::filesystem::exists(status);
  if (status.type() == std::filesystem::file_type::none) return failure.message();
  return NoPlainFile(status.type());
}

Fault WrongLock(const std::string& path) {
  bool isThere = false;
  return WrongKind(path, isThere);
}

Fault WrongPart(const std::string& path) {
  bool isThere = false;
  if (Fault fault = WrongKind(path, isThere)) return fault;
  return isThere ? NoTrace(PathOfUtf8(path)) : std::nullopt;
}

bool IsThere(const std::string& path) {
  std::error_code failure;
  return std::filesystem::exists(std::filesystem::symlink_status(PathOfUtf8(path), failure));
}

/// Nothing, or a head of this version and no operation.
bool HasNothing(const std::string& path) {
  std::string text;
  if (ReadFile(path, text, kLongestTraceLine)) return false;
  Lines lines(text);
  std::string_view line;
  if (!lines.Next(line)) return true;
  if (line != kTraceMark) return false;
  while (lines.Next(line)) {
    if (!line.starts_with('#')) return false;
  }
  return true;
}

bool Remove(const std::string& path) {
  std::error_code failure;
  return std::filesystem::remove(PathOfUtf8(path), failure);
}

/// What the system did not do.
Fault Rename(const std::string& from, const std::string& to) {
  std::error_code failure;
  std::filesystem::rename(PathOfUtf8(from), PathOfUtf8(to), failure);
  return failure ? Fault(failure.message()) : std::nullopt;
}

std::string Said(const std::string& path, const std::string& fault) { return path + ": " + fault; }

}  // namespace

std::string TraceParts::Name(int number) const {
  return number == 0 ? path_ : path_ + "." + std::to_string(number);
}

std::string TraceParts::NewestBeside(const std::string& path) {
  for (int number = 1; number <= kOld; ++number) {
    const std::string ending = "." + std::to_string(number);
    if (path.ends_with(ending)) return path.substr(0, path.size() - ending.size());
  }
  return path;
}

std::string TraceParts::Wrong() const {
  if (NewestBeside(path_) != path_)
    return Said(path_, "names that end in .1 to .4 are those of older parts");
  if (path_.ends_with(kLockEnding))
    return Said(path_, "names that end in .lock are those of locks");
  for (int number = 0; number <= kOld; ++number) {
    if (const Fault fault = WrongPart(Name(number))) return Said(Name(number), *fault);
  }
  if (const Fault fault = WrongLock(Lock())) return Said(Lock(), *fault);
  const auto error = CheckWritable(path_);
  return error ? Said(path_, error->Description) : "";
}

std::string TraceParts::MoveOn() {
  first_ = last_ = 0;
  if (std::string wrong = Wrong(); !wrong.empty()) return wrong;
  if (!IsThere(path_) || (HasNothing(path_) && Remove(path_))) return "";
  last_ = 1;
  while (last_ < kOld && IsThere(Name(last_))) ++last_;
  for (first_ = last_; first_ > 0; --first_) {
    MakePrivate(Name(first_ - 1));
    if (const Fault fault = Rename(Name(first_ - 1), Name(first_))) return Said(path_, *fault);
  }
  return "";
}

void TraceParts::MoveBack() {
  for (; first_ < last_ && !IsThere(Name(first_)); ++first_) {
    if (Rename(Name(first_ + 1), Name(first_))) return;
  }
}

}  // namespace morvane::bridges
