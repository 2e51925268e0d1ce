#include "cli/maintain_record_command.h"

#include <array>
#include <limits>
#include <memory>
#include <string>
#include <string_view>

#include "cli/console_service.h"
#include "cli/service_lines.h"
#include "maintenance/advance_form.h"
#include "text/text.h"

namespace morvane::cli {
namespace {

using maintenance::AdvanceForm;

/// The factory's form, filled in and pressed by what the options say.
class RecordService final : public ConsoleService {
 public:
  RecordService(maintenance::Maintenance& console, Job& job, const MaintainRecordOptions& options,
                bool& done)
      : ConsoleService(console), job_(job), options_(options), done_(done) {}

 private:
  void Known() override {
    if (HasFirmware()) {
      console_.Advance();
    } else {
      SayNoFirmware(job_.Place.Screen);
    }
    done_ = held_ && !console_.LinkFailed();
    console_.Exit();
  }
  void ShowAdvance(AdvanceForm& form) override {
    maintenance::AdvanceView nobody;
    form.Open(nobody);
    held_ = form.Known() && WriteRecord(form) && ClearErrors(form) && SetBoards(form);
    if (held_) job_.Place.Screen.Out(TextOf(RecordLines(form)));
  }
  [[nodiscard]] bool WriteRecord(AdvanceForm& form) {
    const wire::ManufacturingRecord before = form.Record();
    Type(form);
    const wire::ManufacturingRecord wanted = form.Record();
    if (wanted == before)
      return SayHeld("this record", options_.Serial || options_.Hardware || options_.Date);
    return MayGoOn() && form.Update();
  }
  void Type(AdvanceForm& form) const {
    if (options_.Serial) form.Adv_SerialNumber.Put(*options_.Serial);
    if (options_.Hardware) form.PutHardware(*options_.Hardware);
    if (!options_.Date) return;
    form.Adv_Day.Put(options_.Date->Day);
    form.Adv_month.Put(options_.Date->Month);
    form.Adv_Year.Put(options_.Date->Year);
  }
  [[nodiscard]] bool ClearErrors(AdvanceForm& form) const {
    return !options_.ClearErrors || (MayGoOn() && form.ErrorClear());
  }
  /// Behind the errors, which stand in the same store.
  [[nodiscard]] bool SetBoards(AdvanceForm& form) {
    if (!options_.BoardsDealt) return true;
    const std::int64_t wanted = *options_.BoardsDealt;
    if (form.Boards_dealt.WideValue() == wanted) return SayHeld("this number of boards", true);
    form.Boards_dealt.Put(wanted);
    return MayGoOn() && form.Clear_boards();
  }
  /// Nobody has interrupted it.
  [[nodiscard]] bool MayGoOn() const { return !job_.Place.Prog.Loop.Quitting(); }
  bool SayHeld(const std::string& what, bool asked) {
    if (asked) job_.Place.Screen.Error("The machine holds " + what + " already.\n");
    return true;
  }

  Job& job_;
  const MaintainRecordOptions& options_;
  bool held_ = false;  ///< what was asked for
  bool& done_;
};

/// "2026-03-09".
std::optional<MaintainRecordOptions::Day> DayOf(const std::string& text) {
  constexpr std::string_view kForm = "0000-00-00";
  if (text.size() != kForm.size()) return std::nullopt;
  for (std::size_t i = 0; i < kForm.size(); ++i) {
    const bool digit = text[i] >= '0' && text[i] <= '9';
    if (kForm[i] == '0' ? !digit : text[i] != kForm[i]) return std::nullopt;
  }
  const MaintainRecordOptions::Day day{Val(text), Val(text.substr(5)), Val(text.substr(8))};
  if (!maintenance::IsDay(day.Day, day.Month, day.Year)) return std::nullopt;
  return day;
}

template <typename Number>
std::optional<Number> NumberIn(OptionReader& given, std::string_view name,
                               std::int64_t highest = std::numeric_limits<Number>::max()) {
  const auto number = given.NumberUpTo(name, highest);
  if (!number) return std::nullopt;
  return static_cast<Number>(*number);
}

constexpr std::array kOptions{
    Option{"serial", "N", "write this serial number, 0 to 65535"},
    Option{"hardware", "N", "write bits 0 to 4 of the hardware identifier; the others stay"},
    Option{"date", "YYYY-MM-DD", "write this date of manufacture"},
    Option{"boards-dealt", "N", "set the counter of dealt boards"},
    Option{"clear-errors", "", "erase the error counters"},
};

}  // namespace

MaintainRecordOptions ReadMaintainRecordOptions(OptionReader& given) {
  MaintainRecordOptions options;
  options.Serial = NumberIn<std::uint16_t>(given, "serial");
  options.Hardware = NumberIn<std::uint16_t>(given, "hardware", maintenance::kHardwareBits);
  options.BoardsDealt = NumberIn<std::uint32_t>(given, "boards-dealt");
  options.ClearErrors = given.Has("clear-errors");
  const auto date = given.Text("date");
  if (!date) return options;
  options.Date = DayOf(*date);
  if (!options.Date) given.Refuse("--date " + *date + ": wanted a day as 2026-03-09");
  return options;
}

ExitStatus MaintainRecord(Job& job, const MaintainRecordOptions& options) {
  bool done = false;
  Serve(job, std::nullopt, [&](maintenance::Maintenance& console) {
    return std::make_unique<RecordService>(console, job, options, done);
  });
  // What the boxes before it have said is not the end of it.
  if (!done) TellBreak(job, job.Place.Operator.BoxesShown());
  return done ? kDone : kFailed;
}

constinit const Command kMaintainRecordCommand{
    .Name = "maintain record",
    .Options = kOptions,
    .Summary =
        "Shows the machine's manufacturing record and its counters. With options writes what they "
        "say first, and nothing else; the exit status is 0 only when the machine holds it then.",
    .Prepare = TaskOf<ReadMaintainRecordOptions, MaintainRecord>};

}  // namespace morvane::cli
