#include <cstdint>
#include <string>
#include <string_view>

#include "bridges/trace/trace_line.h"
#include "support.h"
#include "text/text_lines.h"

namespace {

using namespace morvane;
using namespace morvane::bridges;

/// What parses is written as a line that parses to the same.
void RequireSame(const TraceLine& line, std::string_view said) {
  std::string text = TextOf(line, said);
  Require(text.size() <= kLongestTraceLine && text.find('\n') == text.size() - 1);
  text.pop_back();
  TraceLine again;
  Require(!ParseTraceLine(text, again) && again == line);
}

void ReadOperation(std::string_view text) {
  TraceLine line;
  line.Numbers = {1, 2, 3};
  const TraceLine before = line;
  if (const auto fault = ParseTraceLine(text, line)) {
    Require(line == before && !fault->empty() && fault->size() < 300);
  } else {
    RequireSame(line, "");
    RequireSame(line, text);
  }
}

void RequireSame(const TraceHead& head) {
  const std::string text = TextOf(head);
  Lines lines(text);
  std::string_view line;
  Require(lines.Next(line) && line == kTraceMark);
  TraceHead again;
  while (lines.Next(line)) Require(TakeHeadLine(line, again));
  Require(again == head);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(data, data + size);
  Lines lines(text);
  TraceHead head{.Began = "2026-03-03 15:04:05.000", .Machine = "usb"};
  for (std::string_view line; lines.Next(line);) {
    const TraceHead before = head;
    if (!TakeHeadLine(line, head)) Require(head == before);
    ReadOperation(line);
  }
  RequireSame(head);
  return 0;
}
