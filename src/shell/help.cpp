#include "shell/help.h"

#include <utility>

#include "platform/files.h"
#include "shell/diagnosis.h"
#include "shell/help_pages.h"
#include "shell/start_up.h"

namespace morvane::shell {

Help::Help(Program& program, const machine::Machine& machine, Desktop& desktop, ProgramFacts facts)
    : program_(program),
      machine_(machine),
      desktop_(desktop),
      facts_(std::move(facts)),
      version_(VersionTextOf(program.ServiceLevel)),
      guide_(program, desktop) {}

void Help::OpenContents() { guide_.Open(kContentsPage); }

void Help::OpenErrorCodes() { guide_.Open(kErrorCodesPage); }

void Help::CopyDiagnosis() {
  Diagnosis diagnosis(program_);
  diagnosis.AddVersions(version_, facts_.Libraries);
  diagnosis.AddLines(desktop_.Facts());
  diagnosis.AddMachine(machine_, facts_.MachineName);
  diagnosis.AddSettings();
  diagnosis.AddLog();
  desktop_.Copy(diagnosis.Text());
  program_.Status("Diagnosis copied to the clipboard");
}

void Help::ShowDataFolder() { ShowFolder(DataFolder()); }

void Help::ShowSettingsFolder() { ShowFolder(FolderOf(SettingsFile())); }

void Help::ShowFolder(const std::string& path) {
  if (desktop_.Show(path)) return;
  program_.ShowBeside(
      "      No program could be started that shows the folder      \r\n      " + path + "      ",
      kOkInformation, "About Morvane");
}

}  // namespace morvane::shell
