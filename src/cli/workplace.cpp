#include "cli/workplace.h"

#include "files/save_set.h"

namespace morvane::cli {

bool Save(Workplace& place, const Request& request, shell::Shell& shell) {
  place.Operator.AnswerNextFile(request.Out);
  return files::SaveBoardSet(place.Prog, shell.History());
}

}  // namespace morvane::cli
