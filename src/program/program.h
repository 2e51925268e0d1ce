#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "model/board_set.h"
#include "model/messages.h"
#include "platform/clock.h"
#include "platform/entropy.h"
#include "platform/event_loop.h"
#include "platform/lock_patience.h"
#include "platform/printer.h"
#include "platform/settings.h"
#include "platform/sound.h"
#include "platform/ui.h"
#include "program/log.h"
#include "program/setting_keys.h"

namespace morvane {

/// The service switch, fixed when the program is built: 0 plain, 1 service, 2 advance service.
#ifndef MORVANE_SERVICE_LEVEL
#define MORVANE_SERVICE_LEVEL 0
#endif
static_assert(MORVANE_SERVICE_LEVEL >= 0 && MORVANE_SERVICE_LEVEL <= 2);

/// The outside world, as `main` or a test chose it.
struct Ports {
  Ui& Operator;
  EventLoop& Loop;
  morvane::Clock& Time;
  Settings& Store;
  Entropy& Random;
  Sound& Speaker;
  Printer& ThePrinter;
};

/// Where the program stands on disk; both without a separator at the end.
struct ProgramPaths {
  std::string Application;    ///< the folder of the program file
  std::string Data;           ///< the folder of logs and history
  std::string Settings{};     ///< the file of the settings store; empty: the user's own, in none
  std::string SettingsKey{};  ///< of the registry, where no file has the settings
};

/// A request from outside, parked until somebody takes it up; further ones are ignored meanwhile.
struct LinkRequest {
  enum Kind : std::uint8_t { kNone = 0, kLoad = 1, kDownload = 2 };
  Kind Pending = kNone;  ///< `LinkPending`
  std::string File;
};

/// What became of a board file.
enum class FileUse : std::uint8_t { kLoaded, kImported, kSaved, kRefused };

/// What every procedure may lean on: the ports, the one board set, the texts and the log. `main`
/// makes one and it outlives everything else; it is passed by reference and never reached
/// otherwise.
class Program {
 public:
  Program(Ports ports, ProgramPaths paths);
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;
  ~Program();

  Ui& Operator;
  EventLoop& Loop;
  morvane::Clock& Time;
  Settings& Store;
  Entropy& Random;
  Sound& Speaker;
  Printer& ThePrinter;
  const ProgramPaths Paths;

  BoardSet Set;
  Messages Texts;
  LockPatience Locks;  ///< of the data folder and the store; each flow renews it
  morvane::Log Log;
  std::string VersionText;
  int ServiceLevel = MORVANE_SERVICE_LEVEL;
  bool AnalysisRunning = false;  ///< a double-dummy analysis runs beside the main window
  bool ShowStatistics = false;
  LinkRequest Link;
  /// Hears of each board file that was loaded, imported or saved, or that could not be taken.
  std::function<void(const std::string& path, FileUse use)> OnFileUsed =
      [](const std::string& /*path*/, FileUse /*use*/) {};
  std::int32_t ActivateTime = 0;  ///< milliseconds since midnight of the main window's activation

  /// A message box with an OK button, and its line in the log. Code that needs an answer asks
  /// `Ask`.
  void ShowMessage(const std::string& text, int flags, const std::string& title);
  /// The same of work beside the flows, which no box may hold up.
  void ShowBeside(const std::string& text, int flags, const std::string& title);
  /// A question; its answer is a `BoxAnswer`. Questions leave no line in the log.
  int Ask(const std::string& text, int flags, const std::string& title);
  void Status(const std::string& text) { Operator.Status(text); }
  /// Writes a setting; whether that went well. The operator is told of the first failure only, and
  /// the work goes on; and of a store that had to be put aside.
  bool StoreSetting(const SettingKey& key, std::string_view value);

 private:
  void TellPutAside();
  void LogBox(const std::string& text, const std::string& title);
  bool storeFailureShown_ = false;
};

}  // namespace morvane
