#include "simulator/flash_organ.h"

#include <algorithm>
#include <utility>

#include "simulator/agrees.h"

namespace morvane::simulator {
namespace {

using namespace wire;

constexpr std::uint8_t kGood = DownloadReply::kGood;

/// What a block was told to answer that did not get into the flash.
bool IsNotStored(std::uint8_t status) {
  return status == DownloadReply::kFault1 || status == DownloadReply::kFault2 ||
         status == DownloadReply::kPassedOver;
}

}  // namespace

FlashOrgan::FlashOrgan(Options& kind, MachineMemory& memory)
    : kind_(kind),
      memory_(memory),
      plan_(kind.FlashFaults),
      bootMajor_(kind.HasFirmware() ? kind.BootMajor : Options{}.BootMajor),
      bootMinor_(kind.HasFirmware() ? kind.BootMinor : Options{}.BootMinor) {
  if (memory_.Record) Keep(*memory_.Record);
  if (memory_.Firmware) Run(*memory_.Firmware);
}

bool FlashOrgan::Answer(const Frame& command, Frame& reply) {
  switch (CodeOf(command)) {
    case CmdStartDownload:
      return Start(command, reply);
    case CmdFlashBlock:
      return TakeBlock(command, reply);
    case CmdEraseRecord:
      return EraseRecord(command, reply);
    case CmdWriteRecord:
      return WriteRecord(command, reply);
    default:
      return false;
  }
}

bool FlashOrgan::Start(const Frame& command, Frame& reply) {
  if (!Agrees(StartDownloadCommand{}, command)) return false;
  const std::uint8_t status = TakePlanned(FlashFault::kStart);
  if (status == kGood) {
    flash_.Erase();
    loading_ = true;
    Run({});
  }
  Put(DownloadReply{status}, reply);
  return true;
}

bool FlashOrgan::TakeBlock(const Frame& command, Frame& reply) {
  const auto block = Get<FlashBlockCommand>(command);
  if (!Agrees(block, command)) return false;
  Put(DownloadReply{Program(block)}, reply);
  SetCode(reply, DownloadReply::kBlockCode);
  return true;
}

// Behind no start the flash is not erased, so that nothing can be programmed.
std::uint8_t FlashOrgan::Program(const FlashBlockCommand& block) {
  if (!loading_ || block.Block >= Flash::kBlocks) return DownloadReply::kFault1;
  const std::uint8_t status = TakePlanned(block.Block);
  if (!IsNotStored(status)) flash_.Write(block.Block, block.Content);
  return status;
}

bool FlashOrgan::EraseRecord(const Frame& command, Frame& reply) {
  if (!Agrees(EraseRecordCommand{}, command)) return false;
  const std::uint8_t status = TakePlanned(FlashFault::kEraseRecord);
  if (status == kGood) Keep(kErasedRecord);
  Put(EraseRecordReply{status}, reply);
  return true;
}

bool FlashOrgan::WriteRecord(const Frame& command, Frame& reply) {
  const auto write = Get<WriteRecordCommand>(command);
  if (!Agrees(write, command)) return false;
  Put(WriteRecordReply{Program(write.Record)}, reply);
  return true;
}

// The same once more, because the answer was lost, changes no bit and can be programmed.
std::uint8_t FlashOrgan::Program(const ManufacturingRecord& record) {
  constexpr std::uint8_t kNotErased = 1;
  if (memory_.Record != kErasedRecord && memory_.Record != record) return kNotErased;
  const std::uint8_t status = TakePlanned(FlashFault::kWriteRecord);
  if (status == kGood) Keep(record);
  return status;
}

std::uint8_t FlashOrgan::TakePlanned(int step) {
  const auto due = std::find_if(plan_.begin(), plan_.end(),
                                [&](const FlashFault& fault) { return fault.Step == step; });
  if (due == plan_.end()) return kGood;
  const std::uint8_t status = due->Status;
  plan_.erase(due);
  return status;
}

void FlashOrgan::Boot() {
  if (std::exchange(loading_, false)) Run(flash_.Boot());
}

void FlashOrgan::Run(const LoadedFirmware& firmware) {
  memory_.Firmware = firmware;
  kind_.BootMajor = firmware.Runs ? bootMajor_ : std::uint8_t{0};
  kind_.BootMinor = firmware.Runs ? bootMinor_ : std::uint8_t{0};
  if (!firmware.Runs) return;
  kind_.FirmwareMajor = firmware.Major;
  kind_.FirmwareMinor = firmware.Minor;
}

void FlashOrgan::Keep(const ManufacturingRecord& record) {
  memory_.Record = record;
  kind_.Serial = record.SerialNumber;
  kind_.Hardware = record.HardwareId;
  kind_.Day = record.Day;
  kind_.Month = record.Month;
  kind_.Year = record.Year;
}

}  // namespace morvane::simulator
