#pragma once

#include <string>
#include <vector>

#include "machine/machine.h"
#include "platform/desktop.h"
#include "program/program.h"
#include "shell/guide.h"

namespace morvane::shell {

/// A library that the program stands on.
struct Library {
  std::string Name;
  std::string Version;
};

/// What `main` knows of the program that the help tells.
struct ProgramFacts {
  std::string MachineName;  ///< the way to the machine, as the command line names it
  std::vector<Library> Libraries;
};

/// The menu Help and the window About without their looks. None of it is a flow: it works while one
/// is open.
class Help {
 public:
  Help(Program& program, const machine::Machine& machine, Desktop& desktop, ProgramFacts facts);

  void OpenContents();
  void OpenErrorCodes();
  /// The page on the window that has the keyboard.
  void OpenPage(std::string_view page) { guide_.Open(page); }
  /// Puts onto the clipboard what helps to find a fault, and says so in the status.
  void CopyDiagnosis();

  [[nodiscard]] const std::vector<Library>& Libraries() const { return facts_.Libraries; }
  [[nodiscard]] const std::string& Version() const { return version_; }
  [[nodiscard]] const std::string& DataFolder() const { return program_.Paths.Data; }
  /// Empty where a key of the registry has the settings.
  [[nodiscard]] const std::string& SettingsFile() const { return program_.Paths.Settings; }
  [[nodiscard]] const std::string& SettingsKey() const { return program_.Paths.SettingsKey; }
  void ShowDataFolder();
  /// The folder in which the settings file lies.
  void ShowSettingsFolder();

 private:
  void ShowFolder(const std::string& path);

  Program& program_;
  const machine::Machine& machine_;
  Desktop& desktop_;
  ProgramFacts facts_;
  std::string version_;
  Guide guide_;
};

}  // namespace morvane::shell
