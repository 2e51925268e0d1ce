#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "maintenance/service_link.h"
#include "maintenance/value_box.h"
#include "wire/flash_commands.h"
#include "wire/replies.h"
#include "wire/service_replies.h"

namespace morvane::maintenance {

/// What the factory's form needs of its window. Everything shown is read from `AdvanceForm`; the
/// call says that it changed. As it stands here it shows nothing.
class AdvanceView {
 public:
  virtual ~AdvanceView() = default;
  virtual void ShowAll() {}
};

/// A check box of the hardware identifier.
struct HardwareBox {
  std::string_view Name;
  std::uint16_t Mask;   ///< what it sets and clears
  std::uint16_t Shown;  ///< the bit by which it is checked
  const char* Caption;
};
/// The bits of the identifier that have a check box; nothing here changes the others.
inline constexpr std::uint16_t kHardwareBits = 31;
/// In the order of the window. A caption's run of blanks is required.
inline constexpr std::array<HardwareBox, 4> kHardwareBoxes{{
    {"HID_bit0", 1, 1, "Machine has Flip Plate"},
    {"HID_bit1", 2, 2,
     "Machine has Sony Camera                  (with lens lock screw facing to the right)"},
    {"HID_bit2", 4, wire::IdentityReply::kBoardNumberReader,
     "Main pcb has Board Reader connector (pcb version 07 or later)"},
    {"HID_bit34", 24, wire::IdentityReply::kLargeIndexCards,
     "Machine can read jumbo cards (machine with small feeder roller)"},
}};

/// Whether there is such a day.
[[nodiscard]] bool IsDay(int day, int month, int year);

/// The window `Advance_form`, the factory's, without its looks: the manufacturing record, the
/// counter of dealt boards, the error counters. Whoever opens it has the link, and nothing else
/// takes it meanwhile. Each button answers whether its work was done; if not, and it was begun, the
/// operator has been told. While one is at work, another does nothing.
class AdvanceForm {
 public:
  static constexpr std::size_t kPages = 2;  ///< of counters that are shown
  static constexpr std::size_t kCounters = kPages * wire::CounterPageReply::kCounters;

  /// `machineKnown`: there is a machine that can be asked; otherwise nothing is.
  AdvanceForm(Program& program, ServiceLink& link, bool machineKnown)
      : program_(program), link_(link), machineKnown_(machineKnown) {}
  AdvanceForm(const AdvanceForm&) = delete;
  AdvanceForm& operator=(const AdvanceForm&) = delete;

  ValueBox Adv_SerialNumber{{.Upper = 65535}};
  ValueBox Adv_Day{{.Upper = 31, .Lower = 1}};
  ValueBox Adv_month{{.Upper = 12, .Lower = 1}};
  ValueBox Adv_Year{{.Upper = 65535}};
  ValueBox Boards_dealt{{.Upper = 4'294'967'295}};

  void Open(AdvanceView& view);
  /// At once, or with the end of what is at work. Asks where something would be lost.
  void Close();
  [[nodiscard]] bool Closed() const { return closed_; }

  bool Update();
  bool Clear_boards();
  bool ErrorClear();
  /// A click on one of `kHardwareBoxes`: all their bits are made anew.
  void Click(const HardwareBox& box, bool on);
  /// In place of the bits that have a check box.
  void PutHardware(std::uint16_t bits);

  /// The hardware identifier as `Update` would write it.
  [[nodiscard]] std::uint16_t Curr_HID() const { return hardware_; }
  [[nodiscard]] bool IsChecked(const HardwareBox& box) const {
    return (hardware_ & box.Shown) != 0;
  }
  /// What stands in the boxes.
  [[nodiscard]] wire::ManufacturingRecord Record() const;
  /// Every counter shown, the first being the boards dealt.
  [[nodiscard]] const std::array<std::uint32_t, kCounters>& Counters() const { return counters_; }
  /// The same as lines of four, each with its number.
  [[nodiscard]] std::string Error_view() const;

  [[nodiscard]] bool MachineKnown() const { return machineKnown_; }
  /// Its record is that of an erased flash.
  [[nodiscard]] bool HoldsNoRecord() const { return held_ == wire::kErasedRecord; }
  /// Record and counters have been read whole: the buttons can be pressed.
  [[nodiscard]] bool Known() const { return known_; }

 private:
  static constexpr int kPauseMs = 10;

  [[nodiscard]] bool MayLeave();
  bool Work(const std::function<bool()>& work);
  bool Read();
  bool ReadCounters(std::uint8_t page);
  bool ReadRecord();
  bool WriteRecord();
  template <typename Reply>
  [[nodiscard]] bool IsProgrammed(const std::optional<Reply>& reply);
  bool SetBoards();
  [[nodiscard]] bool IsHeld(bool held);
  bool EraseErrors();
  void Pause();
  void Tell(const std::string& text, int flags);
  [[nodiscard]] bool Asked(const std::string& text);

  Program& program_;
  ServiceLink& link_;
  const bool machineKnown_;
  AdvanceView* view_ = nullptr;
  std::uint16_t hardware_ = 0;
  wire::ManufacturingRecord held_;  ///< by the machine, as it was read
  std::array<std::uint32_t, kCounters> counters_{};
  bool known_ = false;
  /// The machine's record has been erased, and no other has been written whole.
  bool torn_ = false;
  bool busy_ = false;
  bool leaving_ = false;  ///< somebody wants to leave, once the work is done
  bool closed_ = false;
};

}  // namespace morvane::maintenance
