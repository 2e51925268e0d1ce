#include "history/history.h"

#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <utility>

#include "platform/files.h"
#include "program/data_folder.h"
#include "text/text.h"

namespace morvane::history {
namespace {

/// Of a ring that is full; a file with more is none.
constexpr std::uint64_t kMostBytes = std::uint64_t{kRingSize} * kRecordBytes;

std::string RingFile(const Program& program) {
  return JoinPath(program.Paths.Data, "history1.dat");
}

/// Reads the file; one that is not there has no bytes.
std::optional<RuntimeError> ReadIfThere(const std::string& path, std::string& bytes) {
  MakePrivate(path);
  const auto error = ReadFile(path, bytes, kMostBytes);
  return error && error->Number == ENOENT ? std::nullopt : error;
}

/// After a lock that could not be had.
RuntimeError WhyNotLocked() {
  RuntimeError error = RuntimeError::Last();
  if (error.Number == ETIMEDOUT) error.Description = "Another program keeps the history locked";
  return error;
}

}  // namespace

History::Failure History::Unreadable(const Program& program, RuntimeError error) {
  return {program.Texts.Msg084, BasePathOf(program.Paths.Data), std::move(error)};
}

History::Failure History::Unwritable(const Program& program, RuntimeError error) {
  return {program.Texts.Msg085, BasePathOf(program.Paths.Data), std::move(error)};
}

bool History::LoadHistory(Program& program) {
  enabled_ = true;
  if (auto error = EnterDataFolder(program.Paths.Data)) {
    TurnOff(program, {program.Texts.Msg083, BasePathOf(program.Paths.Data), *std::move(error)});
  } else if (const auto failure = Read(program)) {
    TurnOff(program, *failure);
  }
  return enabled_;
}

std::optional<History::Failure> History::Read(Program& program) {
  const auto lock = LockDataFolder(program.Paths.Data, program.Locks);
  std::string bytes;
  if (auto error = ReadIfThere(RingFile(program), bytes)) {
    return Unreadable(program, *std::move(error));
  }
  if (bytes.empty()) {
    if (auto failure = TakeOverOldFile(program, bytes)) return failure;
  }
  ring_.Load(std::move(bytes));
  return std::nullopt;
}

std::optional<History::Failure> History::TakeOverOldFile(Program& program, std::string& bytes) {
  const std::string oldPath = JoinPath(program.Paths.Application, "history.dat");
  std::error_code none;
  if (!std::filesystem::is_regular_file(PathOfUtf8(oldPath), none)) return std::nullopt;
  std::string oldBytes;
  if (auto error = ReadFile(oldPath, oldBytes, kMostBytes)) {
    return Unreadable(program, *std::move(error));
  }
  if (oldBytes.empty()) return std::nullopt;
  program.Status("Copy old history file...");
  bytes = ConvertedHistory(oldBytes);
  if (auto error = WriteLockedFile(RingFile(program), bytes, NewFile::kPrivate)) {
    return Unwritable(program, *std::move(error));
  }
  program.Status("Old history file copied    ");
  return std::nullopt;
}

void History::AddToHistory(Program& program, std::string_view name) {
  Add(program, name, Known::kAgain);
}

void History::AddUnlessKnown(Program& program, std::string_view name) {
  Add(program, name, Known::kOnce);
}

void History::Add(Program& program, std::string_view name, Known known) {
  if (!program.Set.Exists() || !enabled_ || Trim(name).empty()) return;
  if (const auto failure = Append(program, name, known)) TurnOff(program, *failure);
}

std::optional<History::Failure> History::Append(Program& program, std::string_view name,
                                                Known known) {
  const auto lock = LockDataFolder(program.Paths.Data, program.Locks);
  if (!lock) return Unwritable(program, WhyNotLocked());
  std::string bytes;
  if (auto error = ReadIfThere(RingFile(program), bytes)) {
    return Unreadable(program, *std::move(error));
  }
  // A file that somebody took away comes back with all that this program knows.
  if (!bytes.empty() && bytes != ring_.Bytes()) ring_.Load(std::move(bytes));
  if (known == Known::kOnce && ring_.IsInHistory(name) != 0) return std::nullopt;
  ring_.Append(program.Set, name);
  if (auto error = WriteLockedFile(RingFile(program), ring_.Bytes(), NewFile::kPrivate)) {
    return Unwritable(program, *std::move(error));
  }
  return std::nullopt;
}

void History::TurnOff(Program& program, const Failure& failure) {
  enabled_ = false;
  ring_ = HistoryRing();
  const std::string text = Fill(failure.Text, "***", failure.Path);
  program.ShowMessage(Fill(text, "###", failure.Error.Description), kOkCritical, "History Error");
}

}  // namespace morvane::history
