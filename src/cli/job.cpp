#include "cli/job.h"

#include <filesystem>
#include <memory>

#include "files/format_table.h"
#include "files/import_set.h"
#include "files/load_set.h"
#include "files/pbn_import.h"
#include "files/save_set.h"
#include "platform/files.h"
#include "platform/instance.h"
#include "text/text_encoding.h"

namespace morvane::cli {
namespace {

constexpr const char* kSaveTitle = "Save Board Set";

bool IsWhole(const Job& job) {
  return !job.Partly && job.Place.Prog.Log.On() &&
         (!job.KeepsHistory || job.Shell.History().HistoryEnabled());
}

void NameFileOfLoad(ConsoleUi& ui, const std::string& path) {
  for (const char* title : {"Load Error", "Incorrect value entered", "Import PBN"}) {
    ui.NameFile(title, path);
  }
}

void NameFileOfSave(ConsoleUi& ui, const std::string& path) {
  for (const char* title : {"Save Error", kSaveTitle, "Save Boards Set"}) ui.NameFile(title, path);
}

bool Import(Job& job, const std::string& path) {
  job.Place.Operator.AnswerNextFile(path);
  const auto report = files::ImportBoardSet(job.Place.Prog, job.Played());
  if (report && report->PassedOver.Count > 0) job.Partly = true;
  return report.has_value();
}

/// What more there is to say of a file that Load has refused.
std::string AboutRefused(const std::string& path) {
  constexpr std::uintmax_t kLargest = 1U << 24U;  // nobody waits for more only to be told
  std::error_code failure;
  const auto size = std::filesystem::file_size(PathOfUtf8(path), failure);
  std::string bytes;
  if (files::ExtensionOf(FileTitle(path)) != "PBN" || failure || size > kLargest ||
      ReadFile(path, bytes)) {
    return "";
  }
  const auto set = std::make_unique<BoardSet>();
  set->Clear();
  const files::ImportReport report = files::ImportPbn(DecodeAnyText(std::move(bytes)), *set);
  if (!report.IsPbn) return path + " is no PBN file.\n";
  if (report.Taken == 0) return "";
  return "--import would take " + std::to_string(report.Taken) +
         (report.Taken == 1 ? " board" : " boards") + " of " + path + "\n";
}

bool LoadStrictly(Job& job, const std::string& path) {
  const int before = job.Place.Operator.BoxesShown();
  std::string file = path;
  if (files::LoadBoardSet(job.Place.Prog, job.Played(), job.Windows, file)) return true;
  Terminal& screen = job.Place.Screen;
  // Some faults have no words of their own.
  if (job.Place.Operator.BoxesShown() == before) {
    screen.Error("Load Error: " + path + ": Load operation aborted!\n");
  }
  if (const std::string more = AboutRefused(path); !more.empty()) screen.Error(more);
  return false;
}

}  // namespace

ExitStatus RunJob(Workplace& place, const std::string& raw,
                  const std::function<ExitStatus(Job& job)>& work) {
  ConsoleWindows windows(place);
  place.Prog.Locks.BeOneFlow();
  LoneInstance instance;  // a command may run beside the desktop
  shell::Shell shell(place.Prog, place.Usb, place.Processes, windows, instance, place.Kind);
  shell.StartUp("", raw);  // a quoted path in it is none to load
  Job job{place, windows, shell};
  const ExitStatus status = work(job);
  place.Prog.Set.BoardSetChanged = "0";  // what was not saved was not asked to be
  shell.Exit();
  return status == kDone && !IsWhole(job) ? kPartly : status;
}

bool Load(Job& job, const std::string& path, bool import) {
  NameFileOfLoad(job.Place.Operator, path);
  // Of several files each has its own error.
  job.Place.Prog.Texts.Msg008 = InitMessages().Msg008;
  return import ? Import(job, path) : LoadStrictly(job, path);
}

bool Save(Job& job, const std::string& path) {
  NameFileOfSave(job.Place.Operator, path);
  job.Place.Operator.AnswerNextFile(path);
  return files::SaveBoardSet(job.Place.Prog, job.Played());
}

bool MaySave(Job& job, const BoardSet& coming, const std::string& path) {
  ConsoleUi& ui = job.Place.Operator;
  NameFileOfSave(ui, path);
  ui.KeepConsent(true);
  bool may = files::MaySaveFile(job.Place.Prog, coming, path);
  if (may) {
    FileRequest request;
    request.Title = kSaveTitle;
    request.Saving = true;
    ui.AnswerNextFile(path);
    may = ui.AskFile(request).has_value();
  }
  ui.KeepConsent(false);
  return may;
}

bool IsInSet(Workplace& place, int number) {
  const BoardSet& set = place.Prog.Set;
  if (number >= set.FirstBoard && number <= set.LastBoard) return true;
  place.Screen.Error("Board " + std::to_string(number) + " is not in " + set.BoardSetFile +
                     ", which has " + std::to_string(set.FirstBoard) + " to " +
                     std::to_string(set.LastBoard) + ".\n");
  return false;
}

}  // namespace morvane::cli
