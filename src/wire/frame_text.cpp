#include "wire/frame_text.h"

#include <array>

#include "text/text.h"
#include "wire/board_labels.h"
#include "wire/flash_commands.h"
#include "wire/picture_commands.h"
#include "wire/service_commands.h"

namespace morvane::wire {
namespace {

std::string Hex(unsigned number) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  return {kDigits[number >> 4U & 15U], kDigits[number & 15U]};
}

// What stands behind the names.

std::string OfNothing(const Frame& /*frame*/) { return ""; }

std::string OfPoll(const Frame& command) {
  const std::uint8_t flags = Get<StatusCommand>(command).Flags;
  constexpr unsigned kKnown =
      StatusCommand::kBreak | StatusCommand::kPedalAck | StatusCommand::kBoxAck;
  // The poll of a test deal, of which the break alone means something.
  if ((flags & ~kKnown) != 0) return Get<TestPollCommand>(command).Break ? " break" : "";
  std::string text;
  if ((flags & StatusCommand::kBreak) != 0) text += " break";
  if ((flags & StatusCommand::kPedalAck) != 0) text += " pedal seen";
  if ((flags & StatusCommand::kBoxAck) != 0) text += " board seen";
  return text;
}

std::string OfStart(const Frame& command) {
  return Get<StartCommand>(command).Continue ? " go on" : " begin";
}

std::string OfRoute(const Frame& command) {
  const auto route = Get<RouteCommand>(command);
  const std::string cards =
      " " + std::to_string(route.Count) + (route.Count == 1 ? " card" : " cards");
  if (route.TestDeal) return cards + ", test deal";
  return cards + (route.Order == CardBytes{} ? ", any order" : " in order");
}

std::string OfPage(const Frame& command) {
  return " page " + std::to_string(Get<IdentityCommand>(command).Page);
}

std::string OfCounter(const Frame& command) {
  return " " + std::to_string(Get<CounterCommand>(command).Counter);
}

std::string OfSensor(const Frame& command) {
  const std::uint8_t selector = Get<SensorCommand>(command).Selector;
  if (selector == SensorCommand::kBoardLabel) return " label";
  return selector == BoardSensorCommand::kSelector ? " board" : " " + std::to_string(selector);
}

std::string OfSubCode(const Frame& command) { return " " + std::to_string(SubCodeIn(command)); }

std::string OfWrite(const Frame& command) {
  const std::uint8_t subCode = SubCodeIn(command);
  const auto video = Get<WriteParametersCommand<VideoBlock>>(command).Values;
  if (subCode != VideoBlock::kSubCode || !video.Trial) return OfSubCode(command);
  return " " + std::to_string(subCode) + " trial of " + std::to_string(video.BoardSen);
}

std::string OfHalf(const Frame& frame) {
  return " half " + std::to_string(Get<DieIdentityCommand>(frame).Half);
}

/// Command and reply name the area alike.
std::string OfArea(const Frame& frame) {
  const bool isIdentity = Get<SetIdentityReply>(frame).Area == SetIdentityCommand::kArea;
  return isIdentity ? " of the set's identity" : " of the boot area";
}

std::string OfOutputs(const Frame& command) {
  const auto outputs = Get<OutputsCommand>(command);
  return " 0x" + Hex(outputs.Outputs) + (outputs.Feed ? " feed" : "");
}

std::string StateText(std::uint8_t state) {
  if (state == StatusReply::kIdle) return "idle";
  return state > StatusReply::kLastError ? "busy" : "code " + std::to_string(state);
}

std::string OfStatus(const Frame& reply) {
  const auto status = Get<StatusReply>(reply);
  std::string text = ": " + StateText(status.State) + ",";
  for (std::size_t pocket = 1; pocket < status.Pocket.size(); ++pocket) {
    text += " " + std::to_string(status.Pocket[pocket]);
  }
  if (status.SlotActive) text += ", slot";
  if (status.Pedal) text += ", pedal";
  if (status.BoardInserted) text += ", board";
  return text;
}

std::string OfVersion(const Frame& reply) {
  const auto version = Get<VersionReply>(reply);
  return ": " + std::to_string(version.FirmwareMajor) + "." + Hex(version.FirmwareMinor);
}

std::string OfIdentity(const Frame& reply) {
  const auto identity = Get<IdentityReply>(reply);
  if (identity.Page != 1) return ": page " + std::to_string(identity.Page);
  return ": " + std::to_string(identity.High) + ", hardware 0x" + Hex(identity.Low >> 8U) +
         Hex(identity.Low);
}

std::string OfValue(const Frame& reply) {
  return ": " + std::to_string(Get<CounterReply>(reply).Value);
}

std::string OfLabel(const LabelReply& sensor) {
  const int board = BoardLabelTable[sensor.Label];
  return "0x" + Hex(sensor.Label) + (board != 0 ? ", board " + std::to_string(board) : "");
}

std::string OfMotors(const MotorReply& motors) {
  return std::to_string(MotorReply::kStill - motors.First) + " " +
         std::to_string(MotorReply::kStill - motors.Second);
}

std::string OfClimate(const ClimateReply& climate) {
  return std::to_string(climate.Temperature) + " " + std::to_string(climate.Supply);
}

std::string OfStatusFrame(const Frame& reply) {
  const auto head = Get<SpareSensorReply>(reply).Head;
  const std::string flip = head.FlipPlate ? ", flip plate" : "";
  switch (head.Selector) {
    case kMotors1And2.Selector:
    case kMotors3And4.Selector:
      return ": motors " + OfMotors(Get<MotorReply>(reply)) + flip;
    case kClimate.Selector:
      return ": climate " + OfClimate(Get<ClimateReply>(reply)) + flip;
    case kLabelSensor.Selector:
      return ": " + OfLabel(Get<LabelReply>(reply)) + flip;
    case BoardSensorCommand::kSelector:
      return (Get<BoardSensorReply>(reply).Seen == 1 ? ": board" : ": no board") + flip;
    default:
      return ": " + std::to_string(head.Selector) + flip;
  }
}

std::string OfPhotos(const Frame& reply) {
  const auto photos = Get<PhotoReply>(reply);
  std::string text = ":";
  for (std::size_t sensor = 1; sensor < photos.Photo.size(); ++sensor) {
    text += " " + std::to_string(photos.Photo[sensor]);
  }
  return text + ", switches 0x" + Hex(photos.Switches);
}

std::string OfBlock(const Frame& reply) {
  return " " + std::to_string(Get<ParametersReply<VideoBlock>>(reply).SubCode);
}

std::string OfVerdict(const Frame& reply) {
  const auto verdict = Get<VerdictReply>(reply);
  if (verdict.Error != 0) return ": code " + std::to_string(verdict.Error);
  return ": rank " + std::to_string(verdict.Rank) + ", suit " + std::to_string(verdict.Suit);
}

std::string OfLine(const Frame& command) {
  return " " + std::to_string(Get<PictureLineCommand>(command).Line);
}

std::string OfCapture(const Frame& command) {
  const auto here = Get<PositionedCaptureCommand>(command);
  std::string index = " index " + std::to_string(here.Index);
  Frame again = command;
  PutRows(here, again);
  if (again != command) return index;
  return index + " at " + std::to_string(here.PosX) + " " + std::to_string(here.PosY);
}

std::string OfTrial(const Frame& command) {
  const auto trial = Get<TrialCommand>(command);
  return " " + std::to_string(trial.PosX) + " " + std::to_string(trial.PosY);
}

std::string OfFlashBlock(const Frame& command) {
  const std::uint16_t block = Get<FlashBlockCommand>(command).Block;
  return " 0x" + Hex(block >> 8U) + Hex(block);
}

std::string OfProgramming(const Frame& reply) {
  return ": status " + std::to_string(Get<DownloadReply>(reply).Status);
}

std::string OfFrame(const Frame& reply) {
  const SymbolFrame box = Get<SymbolMeasureReply>(reply).Box;
  return ": " + std::to_string(box.XMin) + ".." + std::to_string(box.XMax) + " x " +
         std::to_string(box.YMin) + ".." + std::to_string(box.YMax);
}

struct Row {
  std::uint8_t Code;
  std::string_view Name;
  std::string (*Says)(const Frame& frame);
};

constexpr std::array<Row, 33> kCommands{{{CmdStartDownload, "CmdStartDownload", OfNothing},
                                         {CmdFlashBlock, "CmdFlashBlock", OfFlashBlock},
                                         {CmdEraseErrors, "CmdEraseErrors", OfNothing},
                                         {CmdEraseRecord, "CmdEraseRecord", OfNothing},
                                         {CmdWriteRecord, "CmdWriteRecord", OfNothing},
                                         {CmdReadParameters, "CmdReadParameters", OfSubCode},
                                         {CmdWriteParameters, "CmdWriteParameters", OfWrite},
                                         {CmdDieIdentity, "CmdDieIdentity", OfHalf},
                                         {CmdOutputs, "CmdOutputs", OfOutputs},
                                         {CmdLogicVersion, "CmdLogicVersion", OfNothing},
                                         {CmdPictureLine, "CmdPictureLine", OfLine},
                                         {CmdErrorPictureLine, "CmdErrorPictureLine", OfLine},
                                         {CmdCapture, "CmdCapture", OfCapture},
                                         {CmdSymbolMeasure, "CmdSymbolMeasure", OfNothing},
                                         {CmdSuitMeasure, "CmdSuitMeasure", OfNothing},
                                         {CmdRecognise, "CmdRecognise", OfNothing},
                                         {CmdTrial, "CmdTrial", OfTrial},
                                         {CmdErrorVerdict, "CmdErrorVerdict", OfNothing},
                                         {CmdTestWrite, "CmdTestWrite", OfNothing},
                                         {CmdStoredData, "CmdStoredData", OfArea},
                                         {CmdSetCounter, "CmdSetCounter", OfNothing},
                                         {CmdIdentity, "CmdIdentity", OfPage},
                                         {CmdStatus, "CmdStatus", OfPoll},
                                         {CmdVersion, "CmdVersion", OfNothing},
                                         {CmdSensor, "CmdSensor", OfSensor},
                                         {CmdFetchBoard, "CmdFetchBoard", OfNothing},
                                         {CmdTest, "CmdTest", OfNothing},
                                         {CmdFetchLog, "CmdFetchLog", OfNothing},
                                         {CmdCounter, "CmdCounter", OfCounter},
                                         {CmdSort, "CmdSort", OfStart},
                                         {CmdDeal, "CmdDeal", OfStart},
                                         {CmdRead, "CmdRead", OfStart},
                                         {CmdRoute, "CmdRoute", OfRoute}}};

constexpr std::array<Row, 27> kReplies{{{DownloadReply::Code, "download", OfProgramming},
                                        {DownloadReply::kBlockCode, "block", OfProgramming},
                                        {EraseErrorsReply::Code, "errors erased", OfProgramming},
                                        {EraseRecordReply::Code, "record erased", OfProgramming},
                                        {WriteRecordReply::Code, "record written", OfProgramming},
                                        {ParametersReply<VideoBlock>::Code, "parameters", OfBlock},
                                        {DieIdentityReply::Code, "die identity", OfHalf},
                                        {PhotoReply::Code, "photo sensors", OfPhotos},
                                        {LogicVersionReply::Code, "logic version", OfNothing},
                                        {PictureLineReply::Code, "picture line", OfLine},
                                        {ErrorPictureLineReply::Code, "error line", OfLine},
                                        {CaptureReply::Code, "picture", OfNothing},
                                        {SymbolMeasureReply::Code, "symbol", OfFrame},
                                        {SuitMeasureReply::Code, "suit", OfFrame},
                                        {ErrorVerdictReply::Code, "error verdict", OfVerdict},
                                        {BootAreaReply::Code, "stored data", OfArea},
                                        {VerdictReply::Code, "verdict", OfVerdict},
                                        {StatusReply::Code, "status", OfStatus},
                                        {StatusReply::LongCode, "status", OfStatus},
                                        {AcceptedReply::Code, "accepted", OfNothing},
                                        {VersionReply::Code, "version", OfVersion},
                                        {IdentityReply::Code, "identity", OfIdentity},
                                        {CounterReply::Code, "counter", OfValue},
                                        {SensorReply::Code, "sensor", OfStatusFrame},
                                        {BoardReply::Code, "board", OfNothing},
                                        {CardLogReply::Code, "card log", OfNothing},
                                        {TestReply::Code, "test text", OfNothing}}};

template <std::size_t N>
const Row* Find(const std::array<Row, N>& rows, std::uint8_t code) {
  for (const Row& row : rows) {
    if (row.Code == code) return &row;
  }
  return nullptr;
}

std::string TextOf(const Row* row, const Frame& frame) {
  if (row == nullptr) return "frame 0x" + Hex(CodeOf(frame));
  return std::string(row->Name) + row->Says(frame);
}

}  // namespace

std::string_view CommandName(std::uint8_t code) {
  const Row* const row = Find(kCommands, code);
  return row != nullptr ? row->Name : std::string_view();
}

std::string_view ReplyName(std::uint8_t code) {
  const Row* const row = Find(kReplies, code);
  return row != nullptr ? row->Name : std::string_view();
}

std::string CommandText(const Frame& command) {
  return TextOf(Find(kCommands, CodeOf(command)), command);
}

std::string ReplyText(const Frame& reply) { return TextOf(Find(kReplies, CodeOf(reply)), reply); }

}  // namespace morvane::wire
