#pragma once

#include <deque>
#include <filesystem>
#include <functional>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "history/history.h"
#include "platform/entropy.h"
#include "platform/printer.h"
#include "platform/process_starter.h"
#include "platform/settings.h"
#include "platform/sound.h"
#include "platform/ui.h"
#include "program/program.h"
#include "support/recording_canvas.h"
#include "support/virtual_time.h"

namespace morvane::test {

/// An operator that notes every box and answers from a list. A question without an answer left is
/// answered by `Default`.
class FakeUi final : public Ui {
 public:
  struct Box {
    std::string Text;
    int Flags = 0;
    std::string Title;
    bool operator==(const Box&) const = default;
  };
  int MessageBox(const std::string& text, int flags, const std::string& title) override;
  void BoxBeside(const std::string& text, int flags, const std::string& title) override {
    Boxes.push_back({text, flags, title});
    ++Beside;
  }
  void Status(const std::string& text) override { Statuses.push_back(text); }
  std::optional<std::string> AskFile(const FileRequest& request) override;
  void RefreshSet() override { ++Refreshes; }
  void Busy(bool on) override {
    HourglassNow = on;
    if (on) ++Hourglasses;
  }
  void Waiting(const std::string& what) override {
    Waits.push_back(what);
    if (OnWaiting) OnWaiting(what);
  }
  [[nodiscard]] Point Mouse() const override { return MouseNow; }

  std::vector<Box> Boxes;
  int Beside = 0;  ///< as many of them waited for nobody
  std::vector<std::string> Statuses;
  std::vector<FileRequest> FileRequests;
  std::deque<int> Answers;
  int Default = kOk;
  std::deque<std::optional<std::string>> Files;  ///< answers of the file dialogs; none = cancelled
  std::function<void()> OnBox;                   ///< called while a box is open
  Point MouseNow;
  std::vector<std::string> Waits;                     ///< what was waited for; "" = no more
  std::function<void(const std::string&)> OnWaiting;  ///< called with the same
  int Refreshes = 0;
  bool HourglassNow = false;
  int Hourglasses = 0;  ///< how often it was put up
};

class MemorySettings final : public Settings {
 public:
  [[nodiscard]] std::string Get(const SettingKey& key) const override;
  bool Set(const SettingKey& key, std::string_view value) override;
  [[nodiscard]] bool Has(const SettingKey& key) const { return values_.contains(Name(key)); }
  bool Writable = true;

 private:
  static std::string Name(const SettingKey& key);
  std::map<std::string, std::string> values_;
};

/// Repeatable numbers: the "system's" bytes count up from `First`, the pseudo-random source has a
/// seed.
class FakeEntropy final : public Entropy {
 public:
  Answer SystemRandom(std::span<std::uint8_t> bytes) override;
  void Seed(std::uint64_t seed) override { engine_.seed(seed); }
  double Random() override;
  std::optional<Answer> Failure;
  bool AllZero = false;
  std::uint8_t First = 1;

 private:
  std::mt19937_64 engine_{1};
};

class FakeSound final : public Sound {
 public:
  void Play(const std::string& path) override { Played.push_back(path); }
  std::vector<std::string> Played;
};

/// A printer that notes its jobs and draws them on a canvas which takes everything.
class FakePrinter final : public Printer {
 public:
  struct Job {
    std::string Title;
    int Copies = 0;
    Paper Sheet = Paper::kPrinters;
    bool operator==(const Job&) const = default;
  };
  [[nodiscard]] std::string DeviceName() const override { return Device; }
  std::optional<int> Setup(int copies) override;
  [[nodiscard]] std::optional<RuntimeError> WhyNoSetup() const override { return NoSetup; }
  [[nodiscard]] std::optional<RuntimeError> Print(const PrintJob& job, const Draw& draw) override;
  void Preview(const PrintJob& job, const Draw& draw,
               const std::vector<PreviewAction>& actions) override;
  /// Text that tells the number of pages; nothing without fonts.
  [[nodiscard]] std::string Pdf(const PrintJob& job, const Draw& draw) override;

  std::string Device = "Office";
  std::vector<Job> Jobs;
  std::vector<Job> Pdfs;
  bool HasFonts = true;
  std::vector<int> SetupsFrom;          ///< the copies that the dialog started with
  std::optional<int> Confirmed;         ///< the answer of the dialog
  std::optional<RuntimeError> NoSetup;  ///< why the dialog does not come up
  std::optional<RuntimeError> Failure;  ///< of the next jobs, once they are drawn
  std::function<void(const std::vector<PreviewAction>&)> OnPreview;
  RecordingCanvas Drawn;  ///< of the last job, preview or PDF
};

/// Starts what a test scripts; nothing is there otherwise.
class FakeProcesses final : public ProcessStarter {
 public:
  [[nodiscard]] StartedProcess Start(const ProcessOrder& order) override {
    if (OnStart) return OnStart(order);
    return {nullptr, RuntimeError::OfNumber(ENOENT)};
  }
  std::function<StartedProcess(const ProcessOrder&)> OnStart;
};

/// Where a folder of files for a test stands: as the system has it, or in memory where there is
/// such a place with room, so that no busy disk holds up a program whose time is short.
enum class FolderPlace { kUsual, kMemory };

/// A folder of its own that goes with the test.
class TempFolder {
 public:
  explicit TempFolder(FolderPlace place = FolderPlace::kUsual);
  ~TempFolder();
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  [[nodiscard]] std::string operator/(const std::string& name) const;
  [[nodiscard]] std::string Path() const { return path_.string(); }

 private:
  std::filesystem::path path_;
};

/// A whole program on fakes and virtual time, with a data folder of its own.
class TestDesk {
 public:
  TestDesk();
  TempFolder Folder;
  VirtualClock Clock;
  VirtualEventLoop Loop{Clock};
  FakeUi Ui;
  MemorySettings Store;
  FakeEntropy Random;
  FakeSound Speaker;
  FakePrinter ThePrinter;
  Program Prog;
  history::History History;  ///< off until it is loaded

  /// The lines of the log so far, without their line ends.
  [[nodiscard]] std::vector<std::string> LogLines() const;
};

/// The content of a file; fails the test when it can't be read.
[[nodiscard]] std::string Content(const std::string& path);
void WriteContent(const std::string& path, std::string_view bytes);
/// Into the very file that is there, since a reader has it open: some systems put no other in its
/// place then.
void WriteInPlace(const std::string& path, std::string_view bytes);

/// A complete board `n` in which the cards go round from hand `first`: card 1 to it, card 2 to the
/// next.
[[nodiscard]] Board RoundBoard(int n, int first = kNorth);
/// A complete board in which each hand holds one suit: North the spades, and so on.
[[nodiscard]] Board SuitBoard(int n);
/// Puts boards `first`..`last` of `RoundBoard` into the set.
void FillSet(BoardSet& set, int first, int last);

}  // namespace morvane::test
