#include "maintenance/advance_form.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "text/box_text.h"
#include "wire/service_commands.h"

namespace morvane::maintenance {
namespace {

using wire::CounterPageCommand;
using wire::ManufacturingRecord;
using wire::ServiceIdentityCommand;

constexpr const char* kCaption = "Advance_Maintenance";

/// The part of the flash that the record stands in, as it is told to the factory.
constexpr int kBlock = 192;

constexpr std::size_t kCountersInLine = 4;

/// As the log has it.
std::string TextOf(const ManufacturingRecord& record) {
  return std::to_string(record.SerialNumber) + "," + std::to_string(record.HardwareId) + "," +
         std::to_string(record.Day) + "." + std::to_string(record.Month) + "." +
         std::to_string(record.Year);
}

/// So many blanks before it that it is `width` wide.
std::string Right(std::uint64_t number, std::size_t width) {
  const std::string digits = std::to_string(number);
  return std::string(width - std::min(width, digits.size()), ' ') + digits;
}

}  // namespace

bool IsDay(int day, int month, int year) {
  using namespace std::chrono;
  constexpr int kSameDaysAfter = 400;  // the calendar repeats itself, which `year` would not reach
  return year_month_day(std::chrono::year(year % kSameDaysAfter),
                        std::chrono::month(static_cast<unsigned>(month)),
                        std::chrono::day(static_cast<unsigned>(day)))
      .ok();
}

// Opening and leaving.

void AdvanceForm::Open(AdvanceView& view) {
  view_ = &view;
  Work([this] { return Read(); });
}

void AdvanceForm::Close() {
  if (busy_) {
    leaving_ = true;
    return;
  }
  closed_ = MayLeave();
  view_->ShowAll();
}

bool AdvanceForm::MayLeave() {
  const bool edited = known_ && (Record() != held_ || Boards_dealt.Edited());
  if (program_.Loop.Quitting() || !(torn_ || edited)) return true;
  const char* const text =
      torn_
          ? "      The machine may hold no manufacturing record: the log has the old one.      \r\n"
            "      Do you want to leave without writing one?      "
          : "      What has been changed here has not been written to the machine.      \r\n"
            "      Do you want to leave without writing it?      ";
  busy_ = true;
  const int answer = program_.Ask(text, kYesNoExclamationNo, kCaption);
  busy_ = leaving_ = false;
  return answer == kYes;
}

/// A lost link has closed the service, which the operator has been told.
bool AdvanceForm::Work(const std::function<bool()>& work) {
  if (!machineKnown_ || busy_ || closed_) return false;
  busy_ = true;
  const bool done = work();
  busy_ = false;
  closed_ = link_.LinkFailed();
  if (std::exchange(leaving_, false) && !closed_) Close();
  view_->ShowAll();
  return done;
}

// Reading. Each false: the link is lost.

bool AdvanceForm::Read() {
  for (std::uint8_t page = 0; page < kPages; ++page) {
    if (!ReadCounters(page)) return false;
    Pause();
  }
  return torn_ || ReadRecord();
}

bool AdvanceForm::ReadCounters(std::uint8_t page) {
  const auto read = link_.Ask(CounterPageCommand{page});
  if (!read) return false;
  const auto place = counters_.begin() + static_cast<std::ptrdiff_t>(page * read->Counters.size());
  std::copy(read->Counters.begin(), read->Counters.end(), place);
  Boards_dealt.Take(counters_[0]);
  return true;
}

bool AdvanceForm::ReadRecord() {
  const auto made = link_.Ask(ServiceIdentityCommand{1});
  if (!made) return false;
  Pause();
  const auto date = link_.Ask(ServiceIdentityCommand{2});
  if (!date) return false;
  Adv_SerialNumber.Take(made->High);
  hardware_ = made->Low;
  Adv_Day.Take(date->High >> 8U);
  Adv_month.Take(date->High & 0xFFU);
  Adv_Year.Take(date->Low);
  held_ = Record();
  known_ = true;
  return true;
}

void AdvanceForm::Pause() { program_.Loop.WaitMs(kPauseMs); }

// The record.

void AdvanceForm::Click(const HardwareBox& box, bool on) {
  std::uint16_t bits = 0;
  for (const HardwareBox& each : kHardwareBoxes) {
    if (each.Mask == box.Mask ? on : IsChecked(each)) bits |= each.Mask;
  }
  PutHardware(bits);
}

void AdvanceForm::PutHardware(std::uint16_t bits) {
  hardware_ = static_cast<std::uint16_t>((hardware_ & ~kHardwareBits) | (bits & kHardwareBits));
  view_->ShowAll();
}

ManufacturingRecord AdvanceForm::Record() const {
  return {.SerialNumber = static_cast<std::uint16_t>(Adv_SerialNumber.Value()),
          .HardwareId = hardware_,
          .Day = static_cast<std::uint8_t>(Adv_Day.Value()),
          .Month = static_cast<std::uint8_t>(Adv_month.Value()),
          .Year = static_cast<std::uint16_t>(Adv_Year.Value())};
}

bool AdvanceForm::Update() {
  if (!known_) return false;
  return Work([this] {
    for (ValueBox* box : {&Adv_SerialNumber, &Adv_Day, &Adv_month, &Adv_Year}) {
      if (box->Edited()) box->Leave();  // what nobody has typed stays as it was read
    }
    return WriteRecord();
  });
}

/// From the first frame on the machine may hold none: a record that was not written whole stays in
/// the boxes, to be written again.
bool AdvanceForm::WriteRecord() {
  const ManufacturingRecord record = Record();
  if (!IsDay(record.Day, record.Month, record.Year)) {
    Tell("      There is no day " + Adv_Day.Text() + "." + Adv_month.Text() + "." +
             Adv_Year.Text() + "      \r\n      Nothing has been written.      ",
         kOkExclamation);
    return false;
  }
  program_.Log.WriteLine("   Manufacturing record: " + TextOf(held_) + " to " + TextOf(record));
  torn_ = true;
  if (!IsProgrammed(link_.Ask(wire::EraseRecordCommand{}))) return false;
  if (!IsProgrammed(link_.Ask(wire::WriteRecordCommand{.Block = {}, .Record = record}))) {
    return false;
  }
  if (!ReadRecord() || !IsHeld(held_ == record)) return false;
  torn_ = false;
  Tell("         Parameters updated OK          ", kOkInformation);
  return true;
}

bool AdvanceForm::IsHeld(bool held) {
  if (!held) Tell("      The machine does not hold what was written      ", kOkCritical);
  return held;
}

template <typename Reply>
bool AdvanceForm::IsProgrammed(const std::optional<Reply>& reply) {
  if (reply && reply->Status != 0) {
    Tell("      Error " + std::to_string(reply->Status) + " during programming       at " +
             std::to_string(kBlock),
         kOkCritical);
  }
  return reply && reply->Status == 0;
}

// The counters.

bool AdvanceForm::Clear_boards() {
  if (!known_) return false;
  return Work([this] {
    Boards_dealt.Leave();
    return Asked("      Do you really want to set boards dealt ???       ") && SetBoards();
  });
}

/// The frame has no answer: what the machine has made of it is read.
bool AdvanceForm::SetBoards() {
  const auto boards = static_cast<std::uint32_t>(Boards_dealt.WideValue());
  return link_.Write(wire::SetCounterCommand{boards}) && ReadCounters(0) &&
         IsHeld(counters_[0] == boards);
}

bool AdvanceForm::ErrorClear() {
  if (!known_) return false;
  return Work([this] {
    return Asked("   Do you really want to clear all errors informations???   ") && EraseErrors();
  });
}

bool AdvanceForm::EraseErrors() {
  const auto erased = link_.Ask(wire::EraseErrorsCommand{});
  if (!erased) return false;
  if (erased->Status == 0) {
    Tell("            Errors cleared OK             ", kOkInformation);
  } else {
    Tell("            Error during erasing FRAM        ", kOkCritical);
  }
  return Read() && erased->Status == 0;
}

std::string AdvanceForm::Error_view() const {
  constexpr std::size_t kNumber = 2;
  constexpr std::size_t kValue = 11;
  std::string text;
  for (std::size_t i = 0; i < kCounters; ++i) {
    text += Right(i, kNumber) + ":" + Right(counters_[i], kValue);
    const bool ends = i % kCountersInLine == kCountersInLine - 1;
    text += !ends ? "  " : i + 1 < kCounters ? "\n" : "";
  }
  return text;
}

void AdvanceForm::Tell(const std::string& text, int flags) {
  program_.ShowMessage(text, flags, kCaption);
}

bool AdvanceForm::Asked(const std::string& text) {
  return program_.Ask(text, kYesNoSystem, kCaption) == kYes;
}

}  // namespace morvane::maintenance
