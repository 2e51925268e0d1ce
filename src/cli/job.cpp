#include "cli/job.h"

#include "files/load_set.h"
#include "files/save_set.h"
#include "platform/instance.h"

namespace morvane::cli {

ExitStatus RunJob(Workplace& place, const std::string& raw,
                  const std::function<ExitStatus(Job& job)>& work) {
  ConsoleWindows windows(place);
  LoneInstance instance;  // a command may run beside the desktop
  shell::Shell shell(place.Prog, place.Usb, windows, instance);
  shell.StartUp(raw);
  Job job{place, windows, shell};
  const ExitStatus status = work(job);
  place.Prog.Set.BoardSetChanged = "0";  // what was not saved was not asked to be
  shell.Exit();
  return status;
}

bool Load(Job& job, const std::string& path) {
  const int before = job.Place.Operator.BoxesShown();
  std::string file = path;
  if (files::LoadBoardSet(job.Place.Prog, job.Shell.History(), job.Windows, file)) return true;
  // Some faults have no words of their own.
  if (job.Place.Operator.BoxesShown() == before) {
    job.Place.Screen.Error("Load operation aborted!\n");
  }
  return false;
}

bool Save(Job& job, const std::string& path) {
  job.Place.Operator.AnswerNextFile(path);
  return files::SaveBoardSet(job.Place.Prog, job.Shell.History());
}

bool IsInSet(Workplace& place, int number) {
  const BoardSet& set = place.Prog.Set;
  if (number >= set.FirstBoard && number <= set.LastBoard) return true;
  place.Screen.Error("Board " + std::to_string(number) + " is not in the set, which has " +
                     std::to_string(set.FirstBoard) + " to " + std::to_string(set.LastBoard) +
                     ".\n");
  return false;
}

}  // namespace morvane::cli
