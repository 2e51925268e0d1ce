#include "files/load_number.h"

#include "files/number_allocation.h"
#include "program/program.h"
#include "text/text.h"

namespace morvane::files {
namespace {

constexpr int kTypedLimit = 999;

}  // namespace

LoadNumber::LoadNumber(Program& program, const Format& format)
    : lblBoardLoaded(Fill(program.Texts.Msg067, "***", std::to_string(program.Set.Count()))),
      // The set of a DUP file has numbers; they did not fit.
      lblFormat(format.BoardNumbers == Format::Numbers::kFirstAndLast
                    ? program.Texts.Msg072
                    : Fill(program.Texts.Msg068, "***", format.Name)),
      lblFirstBoard(program.Texts.Msg069),
      lblLastBoard(program.Texts.Msg070),
      lblChangeBoards(program.Texts.Msg071),
      txtFirstBoard(std::to_string(program.Set.FirstBoard)),
      txtLastBoard(std::to_string(program.Set.LastBoard)),
      program_(program) {}

FilteredBox LoadNumber::ChangeFirstBoard(FilteredBox box) {
  FilterNumber(box, previous_, kTypedLimit);
  txtFirstBoard = box.Text;
  txtLastBoard = std::to_string(Val(txtFirstBoard) + program_.Set.LastBoard - 1);
  return box;
}

bool LoadNumber::Command1() {
  const int most = kMaxBoards - program_.Set.Count() + 1;
  const int first = Val(txtFirstBoard);
  if (first < 1 || first > most) {
    program_.ShowMessage(Fill(program_.Texts.Msg073, "***", std::to_string(most)), kOkCritical,
                         "Incorrect value entered");
    return false;
  }
  MoveSet(program_.Set, first);
  closed_ = true;
  return true;
}

}  // namespace morvane::files
