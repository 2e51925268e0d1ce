#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "board_files.h"
#include "files/pbn_reader.h"
#include "files/pbn_writer.h"
#include "text/text_encoding.h"

namespace {

using namespace morvane;
using namespace morvane::files;

/// A reader takes one or two repeat marks off the front of an event text.
std::string_view WithoutMarks(std::string_view text) {
  for (int mark = 0; mark < 2 && text.starts_with('#'); ++mark) text.remove_prefix(1);
  return text;
}

/// A set that was read is written and read again; boards and event texts must be the same.
void RequireSameAfterRoundTrip(const BoardSet& set, const Messages& texts) {
  const auto again = ClearSet();
  const std::string bytes = EncodeText(PbnText(set, "1.0", true));
  Require(!ParsePbn(DecodeText(bytes), *again, texts));
  RequireSameBoards(set, *again);
  for (const auto text : {&BoardSet::EventName, &BoardSet::EventSite, &BoardSet::EventDate}) {
    Require((*again).*text == WithoutMarks(set.*text));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Messages texts = InitMessages();
  const std::string bytes(data, data + size);
  const std::string text = DecodeText(bytes);
  Require(DecodeText(EncodeText(text)) == text);
  const auto set = ClearSet();
  const auto fault = ParsePbn(text, *set, texts);
  if (fault) {
    RequireFormatError(*fault);
  } else {
    RequireSameAfterRoundTrip(*set, texts);
  }
  return 0;
}
