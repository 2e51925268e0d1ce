#include "program/has_set.h"

#include "program/program.h"

namespace morvane {

bool HasSet(Program& program, const std::string& title) {
  if (program.Set.Exists()) return true;
  program.Status(program.Texts.Msg034);
  program.ShowMessage(program.Texts.Msg034, kOkCritical, title);
  return false;
}

}  // namespace morvane
