#include "machine/board_hand.h"

#include "machine/board_check.h"

namespace morvane::machine {
namespace {

bool Start(RunParts& run, bool goOn, std::uint8_t rotation, wire::StartCommand start) {
  ShowBreakOnly(run);
  start.Continue = goOn;
  start.Settings = StartSettings(run, rotation);
  run.TheMachine.Exchange(start);
  return run.Run.Step();
}

RunEnd RunBoard(RunParts& run, std::uint8_t rotation, const HandJob& job) {
  const RunEnd end =
      RunToIdle(run, {[&](bool goOn) { return Start(run, goOn, rotation, job.Start); }, job.Fetch,
                      [&] { return AnswerFault(run, PlaceOfStop(run)); }});
  return end == RunEnd::kDone ? job.Judge() : end;
}

}  // namespace

RunEnd RunHand(RunParts& run, std::uint8_t rotation, const HandJob& job) {
  const auto digit = [](bool on) { return std::string(on ? "1" : "0"); };
  run.Run.RunLogLine =
      digit(run.Options.AutoStartEnabled) + "," + digit(run.Options.Check_board) + " ";
  const BoardCheck check = run.Options.Check_board ? VerifyInsertedBoard(run) : BoardCheck::kDeal;
  if (check == BoardCheck::kLinkLost) return RunEnd::kLinkLost;
  if (check == BoardCheck::kStop) return RunEnd::kGivenUp;
  return RunBoard(run, rotation, job);
}

}  // namespace morvane::machine
