#include "bridges/trace/trace_reader.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

#include "bridges/trace/poll_memory.h"
#include "bridges/trace/trace_question.h"
#include "platform/files.h"

namespace morvane::bridges {
namespace {

bool IsThere(const std::string& path) {
  std::error_code failure;
  return std::filesystem::exists(PathOfUtf8(path), failure);
}

std::string NumberedPath(const std::string& newest, int number) {
  return newest + "." + std::to_string(number);
}

/// The number behind the name of an older part, 1 to 9; 0 for the newest.
int NumberOf(const std::string& path) {
  const std::size_t size = path.size();
  if (size < 3 || path[size - 2] != '.' || path[size - 1] < '1' || path[size - 1] > '9') return 0;
  return path[size - 1] - '0';
}

bool IsPollIn(const TraceLine& write) {
  const auto command = CommandIn(write);
  return command && IsPoll(*command);
}

std::string HasChanged(const std::string& place) {
  return place + ": it has changed since it was looked through";
}

/// What goes over a line, and is all that there is at the machine's end of one.
bool PassesTheLine(Operation what) {
  return what == Operation::kWrite || what == Operation::kRead || what == Operation::kWriteLatch ||
         what == Operation::kClose;
}

}  // namespace

std::optional<std::string> TraceReader::Open(const std::string& path) {
  if (auto wrong = FindParts(path)) return wrong;
  if (auto wrong = LookThrough()) return wrong;
  Rewind();
  return std::nullopt;
}

std::optional<std::string> TraceReader::FindParts(const std::string& path) {
  *this = {};
  path_ = IsThere(path) || !IsThere(NumberedPath(path, 1)) ? path : NumberedPath(path, 1);
  TracePart part(path_);
  if (auto wrong = part.Open()) return wrong;
  head_ = part.Head();
  parts_ = {{path_, head_}};
  const int number = NumberOf(path_);
  FindOlderParts(number == 0 ? path_ : path_.substr(0, path_.size() - 2), number);
  whole_ = static_cast<std::size_t>(head_.Part) == parts_.size();
  std::reverse(parts_.begin(), parts_.end());
  return std::nullopt;
}

/// Another trace may have left its parts beside this one's.
void TraceReader::FindOlderParts(const std::string& newest, int number) {
  bool missing = false;
  for (int wanted = head_.Part - 1; wanted > 0; --wanted) {
    ++number;
    if (!IsThere(NumberedPath(newest, number)) && !std::exchange(missing, true)) ++number;
    TracePart part(NumberedPath(newest, number));
    if (part.Open() || part.Head().Began != head_.Began || part.Head().Part != wanted) return;
    parts_.push_back({NumberedPath(newest, number), part.Head()});
  }
}

std::optional<std::string> TraceReader::LookThrough() {
  std::uint64_t count = 0;
  for (const Part& each : parts_) {
    TracePart part(each.Path);
    auto wrong = part.Open();
    if (!wrong) wrong = LookThrough(part, count);
    if (wrong) return wrong;
    count = last_;
    ended_ = part.Ended();
  }
  if (last_ == 0) return path_ + ": there is nothing in this trace but its head";
  return FindBeginning();
}

std::optional<std::string> TraceReader::FindBeginning() {
  if (whole_ && ofAProgram_) return std::nullopt;
  if (whole_) {
    return path_ + ": this trace was written at the machine's end, and is for reading";
  }
  if (!opening_) {
    return path_ +
           ": the beginning of this trace is gone, and the link is not opened in what is left";
  }
  first_ = *opening_;
  return std::nullopt;
}

std::optional<std::string> TraceReader::LookThrough(TracePart& part, std::uint64_t number) {
  TraceLine line;
  TracePart::Got got = part.Next(line);
  for (; got == TracePart::Got::kLine; got = part.Next(line), ++number) {
    if (line.At < at_) return part.Place() + ": its time lies before the end of the part above";
    LookAt(line, number);
  }
  if (got == TracePart::Got::kFault) return part.Fault();
  at_ = std::max(at_, part.At());
  last_ = number;
  return std::nullopt;
}

void TraceReader::LookAt(const TraceLine& line, std::uint64_t number) {
  if (!opening_ && line.What == Operation::kGetDllVersion) opening_ = number;
  ofAProgram_ = ofAProgram_ || !PassesTheLine(line.What);
  switch (line.What) {
    case Operation::kFlushBuffers:
    case Operation::kWriteLatch:
    case Operation::kClose:
    case Operation::kAdvice:
      return;
    case Operation::kWrite:
      polls_ = IsPollIn(line);
      break;
    default:
      polls_ = polls_ && line.What == Operation::kRead;
  }
  if (!polls_) needed_ = number + 1;
}

void TraceReader::Rewind() {
  taken_ = 0;
  if (OpenPart(0)) ReadNext();
  while (next_ && taken_ < first_) Advance();
}

bool TraceReader::OpenPart(std::size_t at) {
  partAt_ = at;
  part_ = std::make_unique<TracePart>(parts_[at].Path);
  if (auto wrong = part_->Open()) fault_ = *wrong;
  if (fault_.empty() && part_->Head() != parts_[at].Head) fault_ = HasChanged(parts_[at].Path);
  return fault_.empty();
}

void TraceReader::Advance() {
  if (!next_) return;
  ++taken_;
  ReadNext();
}

void TraceReader::LookAhead(const std::function<bool(const TraceLine&)>& look) {
  const auto ahead = part_->Fork();
  TraceLine line;
  while (ahead && ahead->Next(line) == TracePart::Got::kLine && look(line)) {
  }
}

void TraceReader::ReadNext() {
  next_.reset();
  if (taken_ == last_) return;  // what has been written since is another matter
  TraceLine line;
  TracePart::Got got = part_->Next(line);
  while (got == TracePart::Got::kEnd && partAt_ + 1 < parts_.size() && OpenPart(partAt_ + 1)) {
    got = part_->Next(line);
  }
  if (got == TracePart::Got::kLine) next_ = std::move(line);
  if (got == TracePart::Got::kFault) fault_ = part_->Fault();
  if (got == TracePart::Got::kEnd && fault_.empty()) fault_ = HasChanged(part_->Place());
}

}  // namespace morvane::bridges
