#pragma once

#include "wire/fields.h"

// The replies to flash_commands.h, in the manner of replies.h.

namespace morvane::wire {

/// The answer to one step of programming, with `Status` 0 for one that went well.
template <std::uint8_t kCode>
struct ProgrammingReply {
  static constexpr std::uint8_t Code = kCode;
  std::uint8_t Status = 0;

  static constexpr auto Fields = std::tuple(Byte(1, &ProgrammingReply::Status));
};
using EraseErrorsReply = ProgrammingReply<0x2B>;
using EraseRecordReply = ProgrammingReply<0x2C>;
using WriteRecordReply = ProgrammingReply<0x2D>;

/// The answer to a frame of a download, which comes under any of four codes.
struct DownloadReply {
  static constexpr std::uint8_t Code = 0x29;
  static constexpr std::uint8_t kBlockCode = 0x2A;  ///< what a block is usually answered under
  [[nodiscard]] static constexpr bool IsCode(std::uint8_t code) {
    return code == Code || code == kBlockCode || code == EraseRecordReply::Code ||
           code == WriteRecordReply::Code;
  }
  static constexpr std::uint8_t kGood = 0;
  static constexpr std::uint8_t kFault1 = 1;  ///< this and the next end the download
  static constexpr std::uint8_t kFault2 = 2;
  static constexpr std::uint8_t kPassedOver =
      3;  ///< this block is at fault, and the download goes on

  std::uint8_t Status = kGood;

  static constexpr auto Fields = std::tuple(Byte(1, &DownloadReply::Status));
};

}  // namespace morvane::wire
