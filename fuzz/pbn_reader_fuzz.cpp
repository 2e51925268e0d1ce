#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "files/pbn_reader.h"
#include "files/pbn_writer.h"
#include "model/text_encoding.h"
#include "support.h"

namespace {

using namespace morvane;
using namespace morvane::files;

/// A set that was read is written and read again; the boards must be the same.
void RequireSameAfterRoundTrip(const BoardSet& set, const Messages& texts) {
  const auto again = ClearSet();
  const std::string bytes = EncodeText(PbnText(set, "1.0", true));
  Require(!ParsePbn(DecodeText(bytes), *again, texts));
  Require(again->FirstBoard == set.FirstBoard && again->LastBoard == set.LastBoard);
  for (int n = set.FirstBoard; n <= set.LastBoard; ++n) {
    Require(again->At(n).Cards == set.At(n).Cards && again->At(n).Tricks == set.At(n).Tricks);
    Require(again->At(n).Dealer == BoardDealer(set.At(n), n));
    Require(again->At(n).Vul == BoardVul(set.At(n), n));
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
    Require(!FaultText(*fault).empty());
  } else {
    RequireSameAfterRoundTrip(*set, texts);
  }
  return 0;
}
