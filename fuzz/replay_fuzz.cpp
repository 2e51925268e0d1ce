#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>

#include "bridges/trace/playback.h"
#include "support.h"

namespace {

using namespace morvane;
using namespace morvane::bridges;

/// In memory where there is such a place.
std::string TracePath() {
  const std::filesystem::path memory = "/dev/shm";
  const bool there = std::filesystem::is_directory(memory);
  return (there ? memory : std::filesystem::temp_directory_path()) / "morvane_replay_fuzz.trace";
}

/// What is said against a trace names its file, and is short.
bool IsWellSaid(const std::string& fault, const std::string& path) {
  return fault.starts_with(path) && fault.size() < path.size() + 300;
}

/// A program that does what the trace has gets what the trace has, to the end.
void PlayAgainstItself(TraceReader reader) {
  TraceReader asked;
  Require(!asked.Open(reader.Path()));
  const std::uint64_t count = reader.Lines();
  Playback playback(std::move(reader));
  for (; asked.Next() != nullptr; asked.Advance()) {
    if (asked.Next()->What == Operation::kAdvice) continue;
    const auto answer = playback.Answer(*asked.Next());
    Require(answer && *answer == *asked.Next() && playback.Trouble().empty());
  }
  Require(playback.Trace().Next() == nullptr && playback.Trace().Played() == count);
  TraceLine more;
  more.What = Operation::kClose;
  Require(!playback.Answer(more) && !playback.Trouble().empty());
}

/// One that does something else is told so, and hangs nowhere.
void PlayAnother(TraceReader reader) {
  Playback playback(std::move(reader));
  TraceLine asked;
  for (int operation = 0; operation < 50; ++operation) {
    asked.What = static_cast<Operation>(operation * 5 % static_cast<int>(Operation::kAdvice));
    static_cast<void>(playback.Answer(asked));
  }
  Require(!playback.Trouble().empty());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::string path = TracePath();
  std::ofstream(path, std::ios::binary)
      .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
  TraceReader reader;
  if (const auto fault = reader.Open(path)) {
    Require(IsWellSaid(*fault, path));
    return 0;
  }
  TraceReader again;
  Require(!again.Open(path));
  const bool hasHands = !reader.Head().HandsLeftOut;
  if (hasHands) PlayAgainstItself(std::move(reader));
  PlayAnother(std::move(again));
  return 0;
}
