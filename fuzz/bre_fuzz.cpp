#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "board_files.h"
#include "files/bre_file.h"
#include "text/text_encoding.h"

namespace {

using namespace morvane;
using namespace morvane::files;

void RequireSound(const BoardSet& set) {
  RequireNumberedByPlace(set);
  for (const std::string& text : {set.EventName, set.EventSite}) {
    Require(FirstCharacters(text, 200) == text);
  }
  Require(FirstCharacters(set.EventDate, 40) == set.EventDate);
}

void RequireSameAfterRoundTrip(const BoardSet& set, const Messages& texts) {
  const auto again = ClearSet();
  const std::string bytes = BreBytes(set);
  Require(!ParseBre(bytes, *again, texts));
  Require(again->LastBoard == set.LastBoard && again->Boards == set.Boards);
  Require(again->EventName == set.EventName && again->EventSite == set.EventSite &&
          again->EventDate == set.EventDate);
  Require(BreBytes(*again) == bytes);
}

bool HasBlankFourthLine(std::string_view bytes) {
  for (int line = 1; line <= 3; ++line) {
    const std::size_t end = bytes.find('\n');
    if (end == std::string_view::npos) return false;
    bytes.remove_prefix(end + 1);
  }
  return bytes.starts_with("\n") || bytes.starts_with("\r\n");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Messages texts = InitMessages();
  const std::string bytes(data, data + size);
  const auto set = ClearSet();
  const auto fault = ParseBre(bytes, *set, texts);
  RequireSound(*set);
  if (!fault) {
    Require(set->Exists());
    RequireSameAfterRoundTrip(*set, texts);
  } else if (fault->Text.empty()) {
    // The one failure without a word.
    Require(HasBlankFourthLine(bytes) && !set->Exists());
  } else {
    RequireFormatError(*fault);
  }
  return 0;
}
