#include "shell/unsaved_copy.h"

#include <filesystem>
#include <utility>

#include "files/unsaved_set.h"
#include "platform/files.h"
#include "platform/put_aside.h"
#include "program/data_folder.h"
#include "text/box_text.h"

namespace morvane::shell {
namespace {

constexpr const char* kCaption = "Unsaved Board Set";
constexpr const char* kUnreadable = "The copy of an unsaved Board Set cannot be read.";
constexpr const char* kNothingLost =
    "The program ended unexpectedly last time. No unsaved Board Set was found.";
constexpr std::uintmax_t kLargestCopy = 1U << 24U;  // 640 boards take 120 kB

bool Exists(const std::string& path) {
  std::error_code none;
  return std::filesystem::exists(PathOfUtf8(path), none);
}

/// Whether it is gone.
bool RemoveFile(const std::string& path) {
  std::error_code failure;
  std::filesystem::remove(PathOfUtf8(path), failure);
  return !failure;
}

std::string MarkOf(const std::string& path) { return path + ".running"; }

std::string InBox(const std::string& line) { return "      " + line + "      \r\n"; }

std::string LineOf(const char* name, const std::string& value) {
  return value.empty() ? "" : InBox(name + value);
}

std::string OfferText(const files::UnsavedSet& found, bool unexpected) {
  const BoardSet& set = found.Set;
  const char* how = unexpected ? "unexpectedly " : "";
  return InBox(std::string("The program ended ") + how + "before this Board Set was saved:") +
         "\r\n" +
         InBox("Boards: " + std::to_string(set.FirstBoard) + " to " +
               std::to_string(set.LastBoard)) +
         LineOf("Last change: ", found.When) + LineOf("Event Name: ", set.EventName) +
         LineOf("File Name: ", set.BoardSetFile) + "\r\n" + InBox("Do you want to load it?") +
         InBox("Yes loads it, No deletes it, Cancel leaves it for the next start.");
}

void TakeSet(Program& program, BoardSet&& set, const std::string& heading) {
  program.Set = std::move(set);
  program.Log.Boards(program.Set, program.Set.FirstBoard, program.Set.LastBoard, false, heading);
  program.Operator.RefreshSet();
  program.Status("Unsaved boards loaded: " + std::to_string(program.Set.Count()));
}

}  // namespace

std::string UnsavedCopy::PathOf(int place) const {
  return JoinPath(program_.Paths.Data, "Unsaved_" + std::to_string(place) + ".txt");
}

void UnsavedCopy::Open() {
  FindPlace();
  if (!lock_) return;
  // Without a mark the next start says nothing; no more is lost.
  static_cast<void>(
      WriteLockedFile(MarkOf(path_), DateTimeText(program_.Time.Now()), NewFile::kPrivate));
}

void UnsavedCopy::FindPlace() {
  failure_ = WhyNoDataFolder(program_.Paths.Data);
  if (failure_) return;
  for (int place = 1; place <= kPlaces; ++place) {
    const std::string path = PathOf(place);
    if (lock_ && !Exists(path) && !Exists(MarkOf(path))) continue;
    auto lock = FileLock::Try(path + ".lock");
    if (!lock) {
      if (!lock_) failure_ = RuntimeError::Last();
      continue;
    }
    const Outcome outcome = Look(path);
    if (outcome == Outcome::kLeft || (lock_ && outcome == Outcome::kGone)) continue;
    lock_ = std::move(lock);
    path_ = path;
    RemoveFile(path + ".new");  // of a program that was killed while it wrote
    failure_.reset();
    if (outcome == Outcome::kTaken) return;
  }
}

UnsavedCopy::Outcome UnsavedCopy::Look(const std::string& path) {
  const bool unexpected = TakeMark(path);
  unexpected_ = unexpected_ || unexpected;
  if (!Exists(path)) return Outcome::kGone;
  found_ = true;
  return Offer(path, unexpected);
}

void UnsavedCopy::TellNothingLost() {
  if (unexpected_ && !found_) program_.Status(kNothingLost);
}

bool UnsavedCopy::TakeMark(const std::string& path) {
  std::string begun;
  constexpr std::uintmax_t kLongest = 100;
  if (ReadFile(MarkOf(path), begun, kLongest)) return false;
  if (!RemoveFile(MarkOf(path))) return false;  // or every start would say it
  program_.Log.WriteLine(" Unexpected end of the program that began " + begun);
  return true;
}

UnsavedCopy::Outcome UnsavedCopy::Offer(const std::string& path, bool unexpected) {
  std::string text;
  if (const auto error = ReadFile(path, text, kLargestCopy)) {
    program_.ShowMessage(
        InBox(kUnreadable) + InBox("File Name: " + path) +
            InBox("Error: " + std::to_string(error->Number) + ", " + error->Description),
        kOkCritical, kCaption);
    return Outcome::kLeft;
  }
  auto found = files::ReadUnsavedText(text);
  if (!found) return TellDamaged(path);
  const std::string heading = " Unsaved Board Set of " + found->When + ": ";
  switch (program_.Ask(OfferText(*found, unexpected), kYesNoCancelExclamation, kCaption)) {
    case kYes:
      kept_ = files::UnsavedText(found->Set, "");
      TakeSet(program_, std::move(found->Set), heading + "loaded");
      return Outcome::kTaken;
    case kNo:
      program_.Log.WriteLine(heading + "deleted");
      RemoveFile(path);
      return Outcome::kGone;
    default:
      program_.Log.WriteLine(heading + "left");
      return Outcome::kLeft;
  }
}

UnsavedCopy::Outcome UnsavedCopy::TellDamaged(const std::string& path) {
  const std::string aside = PutAside(path);
  program_.ShowMessage(InBox(kUnreadable) + InBox("File Name: " + (aside.empty() ? path : aside)),
                       kOkCritical, kCaption);
  return aside.empty() ? Outcome::kLeft : Outcome::kGone;
}

void UnsavedCopy::Keep() {
  const BoardSet& set = program_.Set;
  if (set.IsSaved()) {
    Remove();
    return;
  }
  if (!set.Exists()) return;
  std::string now = files::UnsavedText(set, "");
  if (now == kept_ || !lock_) return;
  failure_ = WriteLockedFile(path_, files::UnsavedText(set, DateTimeText(program_.Time.Now())),
                             NewFile::kPrivate);
  if (!failure_) kept_ = std::move(now);
}

UnsavedCopy::State UnsavedCopy::Kept() const {
  if (kept_.empty()) return State::kNone;
  return failure_ ? State::kOlder : State::kLast;
}

void UnsavedCopy::Remove() {
  if (!kept_.empty() && RemoveFile(path_)) kept_.clear();
}

void UnsavedCopy::End() {
  if (lock_) RemoveFile(MarkOf(path_));
}

bool UnsavedCopy::FailureToTell() const {
  return failure_ && !failureTold_ && !program_.Set.IsSaved() && program_.Set.Exists();
}

void UnsavedCopy::TellFailure() {
  failureTold_ = true;
  program_.ShowMessage(
      InBox("The changes of the Board Set cannot be kept in the data folder.") +
          InBox("Please save the Board Set soon.") +
          InBox("Error: " + std::to_string(failure_->Number) + ", " + failure_->Description),
      kOkExclamation, kCaption);
}

}  // namespace morvane::shell
