#pragma once

#include <csignal>
#include <memory>
#include <string>

#include "platform/files.h"
#include "platform/qt/qt_event_loop.h"
#include "platform/system_clock.h"
#include "platform/system_entropy.h"
#include "platform/system_settings.h"
#include "platform/user_folders.h"
#include "platform/utf8_of_path.h"
#include "program/program.h"

namespace morvane {

/// The ports that every program of ours has from the system; made once, in `main`.
struct SystemParts {
  /// Empty `data` or `settings`: the user's own.
  SystemParts(const std::string& argv0, const std::string& data, const std::string& settings)
      : Paths{ApplicationFolder(argv0), ""},
        SettingsFile(settings.empty() ? DefaultSettingsFile() : AbsolutePath(TypedPath(settings))),
        OpenedStore(OpenSettings(settings.empty() ? "" : SettingsFile)) {
    if (settings.empty()) Paths.SettingsKey = OwnSettingsKey();
    if (Paths.SettingsKey.empty()) Paths.Settings = SettingsFile;
    Paths.Data = data.empty() ? DefaultDataFolder(Paths.Application) : FolderPath(data);
#ifdef SIGXFSZ
    std::signal(SIGXFSZ, SIG_IGN);  // a file that grows too large is an error like others
#endif
  }
  /// `folder` as it was typed, made absolute, without a separator at its end.
  static std::string FolderPath(const std::string& folder) {
    return Utf8OfPath((PathOfUtf8(AbsolutePath(TypedPath(folder))) / "").parent_path());
  }

  ProgramPaths Paths;
  std::string SettingsFile;  ///< names the user's own store, too, where no file holds it
  SystemClock Time;
  SystemEntropy Random;
  QtEventLoop Loop;
  std::unique_ptr<Settings> OpenedStore;
  Settings& Store = *OpenedStore;
};

}  // namespace morvane
