#include "program/program.h"

#include <utility>

namespace morvane {

Program::Program(Ports ports, ProgramPaths paths)
    : Operator(ports.Operator),
      Loop(ports.Loop),
      Time(ports.Time),
      Store(ports.Store),
      Random(ports.Random),
      Speaker(ports.Speaker),
      ThePrinter(ports.ThePrinter),
      Paths(std::move(paths)),
      Texts(InitMessages()),
      Locks(ports.Operator, ports.Loop, ports.Time),
      Log(ports.Operator, ports.Time, Locks) {
  Store.UsePatience(&Locks);
}

Program::~Program() { Store.UsePatience(nullptr); }

void Program::ShowMessage(const std::string& text, int flags, const std::string& title) {
  Operator.MessageBox(text, flags, title);
  LogBox(text, title);
}

void Program::ShowBeside(const std::string& text, int flags, const std::string& title) {
  Operator.BoxBeside(text, flags, title);
  LogBox(text, title);
}

void Program::LogBox(const std::string& text, const std::string& title) {
  Log.WriteLine("    " + title + ": " + OneLine(text));
}

int Program::Ask(const std::string& text, int flags, const std::string& title) {
  return Operator.MessageBox(text, flags, title);
}

bool Program::StoreSetting(const SettingKey& key, std::string_view value) {
  const bool stored = Store.Set(key, value);
  TellPutAside();
  if (stored) return true;
  if (!storeFailureShown_) {
    storeFailureShown_ = true;
    ShowMessage(
        "      Settings cannot be saved      \r\n"
        "      Changes of settings will be lost when the program ends      ",
        kOkExclamation, "Settings Error");
  }
  return false;
}

void Program::TellPutAside() {
  const std::string path = Store.TakePutAside();
  if (path.empty()) return;
  ShowMessage(
      "      The settings file was too large or no text, and begins anew      \r\n"
      "      What it was is now: " +
          path + "      ",
      kOkExclamation, "Settings Error");
}

}  // namespace morvane
