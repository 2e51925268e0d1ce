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
      Paths(std::move(paths)),
      Texts(InitMessages()),
      Log(ports.Operator, ports.Time) {}

void Program::ShowMessage(const std::string& text, int flags, const std::string& title) {
  Operator.MessageBox(text, flags, title);
  Log.WriteLine("    " + title + ": " + OneLine(text));
}

int Program::Ask(const std::string& text, int flags, const std::string& title) {
  return Operator.MessageBox(text, flags, title);
}

bool Program::StoreSetting(const SettingKey& key, std::string_view value) {
  if (Store.Set(key, value)) return true;
  if (!storeFailureShown_) {
    storeFailureShown_ = true;
    ShowMessage(
        "      Settings cannot be saved      \r\n"
        "      Changes of settings will be lost when the program ends      ",
        kOkExclamation, "Settings Error");
  }
  return false;
}

}  // namespace morvane
