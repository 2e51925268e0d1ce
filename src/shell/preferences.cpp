#include "shell/preferences.h"

#include "machine/error_sound.h"
#include "text/text.h"

namespace morvane::shell {
namespace {

constexpr int kTypedLimit = 999;
constexpr int kBothGenerators = 2;

}  // namespace

Preferences::Preferences(Program& program) : program_(program) { Read(); }

void Preferences::Read() {
  const Settings& store = program_.Store;
  Setup_New_FirstBoard = previousFirst_ = store.Get(kNewFirstBoard);
  Setup_New_LastBoard = previousLast_ = store.Get(kNewLastBoard);
  for (std::size_t i = 0; i < kSwitches.size(); ++i) On[i] = store.IsOn(kSwitches[i].Key);
  const std::string generator = store.Get(kGenerator);
  Generator = generator == "0" ? 0 : generator == "1" ? 1 : kBothGenerators;
  Analyzer = store.Get(kAnalyzer) == "0" ? 0 : 1;
}

FilteredBox Preferences::ChangeFirstBoard(FilteredBox box) {
  FilterNumber(box, previousFirst_, kTypedLimit);
  Setup_New_FirstBoard = box.Text;
  return box;
}

FilteredBox Preferences::ChangeLastBoard(FilteredBox box) {
  FilterNumber(box, previousLast_, kTypedLimit);
  Setup_New_LastBoard = box.Text;
  return box;
}

bool Preferences::LeaveFirstBoard() {
  const int first = Val(Setup_New_FirstBoard);
  return (first >= 1 && first <= kMaxBoards) || Refuse(program_.Texts.Msg106);
}

bool Preferences::LeaveLastBoard() {
  const int last = Val(Setup_New_LastBoard);
  const bool fits = last >= 1 && last <= kMaxBoards && last >= Val(Setup_New_FirstBoard);
  return fits || Refuse(program_.Texts.Msg107);
}

bool Preferences::Refuse(const std::string& text) {
  program_.ShowMessage(text, kOkCritical, "Preferences Error");
  return false;
}

void Preferences::Restore() {
  const auto restore = [this](const SettingKey& key) { program_.StoreSetting(key, key.Default); };
  restore(kNewFirstBoard);
  restore(kNewLastBoard);
  for (const Switch& each : kSwitches) {
    if (each.Key.Name != kDealSub.Name) restore(each.Key);
  }
  restore(kGenerator);
  restore(kAnalyzer);
  program_.StoreSetting(kDealNumberCopies, "1");
  Read();
}

void Preferences::Hear() { machine::PlayErrorSound(program_); }

Preferences::Wrong Preferences::Close() {
  if (!LeaveFirstBoard()) return Wrong::kFirstBoard;
  if (!LeaveLastBoard()) return Wrong::kLastBoard;
  closed_ = true;
  Write();
  return Wrong::kNone;
}

void Preferences::Write() {
  program_.StoreSetting(kNewFirstBoard, Setup_New_FirstBoard);
  program_.StoreSetting(kNewLastBoard, Setup_New_LastBoard);
  for (std::size_t i = 0; i < kSwitches.size(); ++i) {
    program_.StoreSetting(kSwitches[i].Key, On[i] ? "1" : "0");
  }
  program_.StoreSetting(kGenerator, std::to_string(Generator));
  program_.StoreSetting(kAnalyzer, std::to_string(Analyzer));
}

}  // namespace morvane::shell
