#include "bridges/trace_reader.h"

#include <algorithm>
#include <utility>

namespace morvane::bridges {

std::optional<std::string> TraceReader::Open(const std::string& path) {
  if (auto wrong = FindParts(path)) return wrong;
  if (auto wrong = LookThrough()) return wrong;
  Rewind();
  return std::nullopt;
}

std::optional<std::string> TraceReader::FindParts(const std::string& path) {
  *this = {};
  path_ = path;
  TracePart part(path);
  if (auto wrong = part.Open()) return wrong;
  head_ = part.Head();
  paths_ = {path};
  FindOlderParts();
  whole_ = static_cast<std::size_t>(head_.Part) == paths_.size();
  std::reverse(paths_.begin(), paths_.end());
  return std::nullopt;
}

/// Another trace may have left its parts beside this one's.
void TraceReader::FindOlderParts() {
  for (int older = 1; older < head_.Part; ++older) {
    TracePart part(path_ + "." + std::to_string(older));
    if (part.Open()) return;
    if (part.Head().Began != head_.Began || part.Head().Part != head_.Part - older) return;
    paths_.push_back(path_ + "." + std::to_string(older));
  }
}

std::optional<std::string> TraceReader::LookThrough() {
  std::uint64_t count = 0;
  for (const std::string& path : paths_) {
    TracePart part(path);
    auto wrong = part.Open();
    if (!wrong) wrong = LookThrough(part, count);
    if (wrong) return wrong;
    count = last_;
    ended_ = part.Ended();
  }
  if (last_ == 0) return path_ + ": there is nothing in this trace but its head";
  if (whole_) return std::nullopt;
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
    if (line.At < at_) return part.Place() + ": its time lies before the part above";
    if (!opening_ && line.What == Operation::kGetDllVersion) opening_ = number;
  }
  if (got == TracePart::Got::kFault) return part.Fault();
  at_ = std::max(at_, line.At);
  last_ = number;
  return std::nullopt;
}

void TraceReader::Rewind() {
  taken_ = 0;
  if (OpenPart(0)) ReadNext();
  while (next_ && taken_ < first_) Advance();
}

bool TraceReader::OpenPart(std::size_t at) {
  partAt_ = at;
  part_ = std::make_unique<TracePart>(paths_[at]);
  if (auto wrong = part_->Open()) fault_ = *wrong;
  return fault_.empty();
}

void TraceReader::Advance() {
  if (!next_) return;
  ++taken_;
  ReadNext();
}

void TraceReader::ReadNext() {
  TraceLine line;
  TracePart::Got got = part_->Next(line);
  while (got == TracePart::Got::kEnd && partAt_ + 1 < paths_.size() && OpenPart(partAt_ + 1)) {
    got = part_->Next(line);
  }
  if (got == TracePart::Got::kFault) fault_ = part_->Fault();
  next_.reset();
  if (got == TracePart::Got::kLine) next_ = std::move(line);
}

}  // namespace morvane::bridges
