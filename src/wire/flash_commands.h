#pragma once

#include <array>
#include <cstddef>

#include "wire/flash_replies.h"

// The commands that program the machine's flash and its FRAM, in the manner of commands.h.

namespace morvane::wire {

enum FlashCode : std::uint8_t {
  CmdStartDownload = 0x29,
  CmdEraseErrors = 0x2B,
  CmdEraseRecord = 0x2C,
  CmdFlashBlock = 0xAA,
  CmdWriteRecord = 0xAD,
};

/// Opens a download: from here on the firmware that is in the machine counts no more.
struct StartDownloadCommand {
  static constexpr std::uint8_t Code = CmdStartDownload;
  using Reply = DownloadReply;

  static constexpr auto Fields = std::tuple(Always(1, 95));
};

/// Writes one block of a firmware.
struct FlashBlockCommand {
  static constexpr std::uint8_t Code = CmdFlashBlock;
  using Reply = DownloadReply;
  static constexpr std::size_t kSize = 128;
  /// The first block of the bitstream; those of the code are counted from 0.
  static constexpr std::uint16_t kFirstOfBitstream = 0x200;

  std::uint16_t Block = 0;
  std::array<std::uint8_t, kSize> Content{};

  static constexpr auto Fields = std::tuple(Always(1, 98), Number(2, &FlashBlockCommand::Block),
                                            Array(8, &FlashBlockCommand::Content));
};

/// Which block the manufacturing record stands in.
struct RecordBlock {
  static constexpr auto Fields = std::tuple(Zeros(2), Always(3, 192), Zeros(4, 3));
};

struct EraseRecordCommand {
  static constexpr std::uint8_t Code = CmdEraseRecord;
  using Reply = EraseRecordReply;
  RecordBlock Block;

  static constexpr auto Fields = std::tuple(Always(1, 93), Part(&EraseRecordCommand::Block));
};

/// What the factory writes into a machine, once.
struct ManufacturingRecord {
  std::uint16_t SerialNumber = 0;
  std::uint16_t HardwareId = 0;  ///< bits of `IdentityReply`
  std::uint8_t Day = 0;
  std::uint8_t Month = 0;
  std::uint16_t Year = 0;

  static constexpr auto Fields =
      std::tuple(Number(8, &ManufacturingRecord::SerialNumber),
                 Number(10, &ManufacturingRecord::HardwareId), Byte(12, &ManufacturingRecord::Day),
                 Byte(13, &ManufacturingRecord::Month), Number(14, &ManufacturingRecord::Year));
  bool operator==(const ManufacturingRecord&) const = default;
};

/// As the block reads where none has been written since it was erased.
inline constexpr ManufacturingRecord kErasedRecord{0xFFFF, 0xFFFF, 0xFF, 0xFF, 0xFFFF};

/// The rest of the payload is random.
struct WriteRecordCommand {
  static constexpr std::uint8_t Code = CmdWriteRecord;
  using Reply = WriteRecordReply;
  static constexpr bool kRandomPayload = true;
  RecordBlock Block;
  ManufacturingRecord Record;

  static constexpr auto Fields = std::tuple(Always(1, 92), Part(&WriteRecordCommand::Block),
                                            Part(&WriteRecordCommand::Record));
};

/// Erases the error counters in the machine's FRAM.
struct EraseErrorsCommand {
  static constexpr std::uint8_t Code = CmdEraseErrors;
  using Reply = EraseErrorsReply;

  static constexpr auto Fields = std::tuple(Always(1, 90), Zeros(2), Always(3, 99), Always(4, 99),
                                            Always(5, 99), Always(6, 99));
};

}  // namespace morvane::wire
