#include <gmock/gmock.h>

#include "bridges/trace/trace_reader.h"
#include "bridges/written_trace.h"

namespace morvane::bridges {
namespace {

using ::testing::StartsWith;

/// A small whole trace, damaged at one place after the other.
class DamagedTrace : public ::testing::Test {
 protected:
  test::TempFolder folder;
  std::string path = folder / "run.trace";
  std::string whole = WrittenTrace({"2026-03-03 15:04:05.123", "usb", 1, true})
                          .Opening()
                          .Poll()
                          .Send(test::Short({0x20}))
                          .Reply(test::Long({0xA0}))
                          .Leaving()
                          .End()
                          .Text();

  /// What is said of it; empty when it is played.
  [[nodiscard]] std::string Said(const std::string& text) {
    test::WriteContent(path, text);
    TraceReader reader;
    const auto wrong = reader.Open(path);
    return wrong ? *wrong : "";
  }
  [[nodiscard]] std::string At(std::size_t line) const {
    return path + ", line " + std::to_string(line) + ": ";
  }
};

TEST_F(DamagedTrace, AGarbledLineIsNamed) {
  std::size_t line = 1;
  for (std::size_t start = 0; start < whole.size(); start = whole.find('\n', start) + 1, ++line) {
    std::string garbled = whole;
    garbled[start] = '?';
    EXPECT_THAT(Said(garbled), StartsWith(At(line)));
  }
  EXPECT_EQ(line - 1, 22U) << "the head 5, the opening 9, poll 2, log 3, leaving 2, the end";
}

TEST_F(DamagedTrace, ALineThatLacksItsLastWordIsNamed) {
  std::size_t line = 1;
  for (std::size_t start = 0; start < whole.size(); ++line) {
    const std::size_t end = whole.find('\n', start);
    const std::size_t blank = whole.rfind(' ', end);
    const std::string garbled = whole.substr(0, blank) + whole.substr(end);
    EXPECT_THAT(Said(garbled), StartsWith(At(line)));
    start = end + 1;
  }
}

TEST_F(DamagedTrace, CutInTheMiddleOfALineItIsRefused) {
  EXPECT_EQ(Said(""), path + ": the file is empty");
  std::size_t line = 1;
  for (std::size_t start = 0; start < whole.size(); ++line) {
    const std::size_t end = whole.find('\n', start);
    for (const std::size_t size : {start + 1, (start + end) / 2, end}) {
      EXPECT_THAT(Said(whole.substr(0, size)), StartsWith(At(line)));
    }
    start = end + 1;
  }
}

TEST_F(DamagedTrace, CutBehindALineItIsPlayedFromTheFirstOperationOn) {
  std::size_t line = 1;
  for (std::size_t end = whole.find('\n'); end + 1 < whole.size();
       end = whole.find('\n', end + 1)) {
    const std::string said = Said(whole.substr(0, end + 1));
    EXPECT_EQ(said.empty(), line > 5) << line;
    ++line;
  }
}

}  // namespace
}  // namespace morvane::bridges
