#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "maintenance/firmware_file.h"
#include "maintenance/firmware_view.h"
#include "maintenance/service_link.h"

namespace morvane::maintenance {

/// The window `Firmware` without its looks: the transfer of a firmware into the machine's flash.
/// The first block of each piece, without which the machine takes nothing there for valid, goes
/// last, so that a transfer that ends early leaves no half firmware that would be started.
class FirmwareDownload {
 public:
  enum class Phase : std::uint8_t { kStart, kCode, kBitstream, kHeaders, kOver };
  /// What is known of the machine's flash when it is over.
  enum class Outcome : std::uint8_t {
    kNotBegun,   ///< nothing was sent
    kUnknown,    ///< the answer that would have told is missing
    kUntouched,  ///< the machine has refused the start
    kPartial,    ///< no whole firmware is there
    kDone,       ///< the last block was acknowledged
  };

  /// `leaving`: the service or the program is to end, which cancels.
  FirmwareDownload(Program& program, ServiceLink& link, const machine::Machine& machine,
                   const FirmwareFile& file, std::function<bool()> leaving)
      : program_(program),
        link_(link),
        machine_(machine),
        file_(file),
        leaving_(std::move(leaving)) {}

  /// The whole transfer; whoever calls has the link. What goes wrong has been told when it returns,
  /// in boxes and in the log.
  void Run(FirmwareView& view);
  /// The button `Command1`. Between the blocks, and not any more once the headers are on their way.
  void Cancel() { cancelRequested_ = true; }

  [[nodiscard]] const FirmwareFile& File() const { return file_; }
  [[nodiscard]] const machine::Machine& TheMachine() const { return machine_; }
  [[nodiscard]] Phase Now() const { return phase_; }
  [[nodiscard]] Outcome Result() const { return outcome_; }
  [[nodiscard]] bool CancelRequested() const { return cancelRequested_; }
  [[nodiscard]] bool LinkFailed() const { return link_.LinkFailed(); }
  [[nodiscard]] bool MayCancel() const { return phase_ < Phase::kHeaders; }

  [[nodiscard]] std::uint16_t FramesCount() const { return FramesCount_; }
  [[nodiscard]] std::uint16_t SumErrors() const { return SumErrors_; }
  [[nodiscard]] std::uint16_t CommErrors() const { return CommErrors_; }
  [[nodiscard]] std::uint16_t ProgErrors() const { return ProgErrors_; }
  /// Per cent of the file, at most 100.
  [[nodiscard]] int Download_bar() const;
  [[nodiscard]] int BlocksSent() const { return blocksSent_; }
  [[nodiscard]] int Blocks() const;
  /// The fault that has ended it, in the program's words; empty while there is none.
  [[nodiscard]] const std::string& Fault() const { return fault_; }
  /// Why it has ended without an acknowledged last block.
  [[nodiscard]] std::string Why() const;

 private:
  bool Transfer();
  bool Start();
  bool SendPiece(const FlashImage& image, Phase phase);
  bool SendHeaders();
  bool SendBlock(const FlashImage& image, int block);
  template <typename Command>
  bool Ask(const Command& command);
  void Count(machine::MachineLink::Receive received);
  void Enter(Phase phase);
  /// `with` stands for `place` in the box, `where` in our own words.
  void TellFault(std::string_view place, const std::string& with, const std::string& where);
  [[nodiscard]] bool Cancelled();
  void LogEnd();

  Program& program_;
  ServiceLink& link_;
  const machine::Machine& machine_;
  const FirmwareFile& file_;
  std::function<bool()> leaving_;
  FirmwareView* view_ = nullptr;
  Phase phase_ = Phase::kStart;
  Outcome outcome_ = Outcome::kNotBegun;
  std::uint16_t FramesCount_ = 0;
  std::uint16_t SumErrors_ = 0;
  std::uint16_t CommErrors_ = 0;
  std::uint16_t ProgErrors_ = 0;
  std::uint8_t ProgStatus_ = 0;  ///< of the last answer
  int blocksSent_ = 0;
  bool cancelRequested_ = false;
  std::string fault_;
};

}  // namespace morvane::maintenance
