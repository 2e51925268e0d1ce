#include "wire/same_command.h"

#include <algorithm>
#include <array>
#include <functional>

#include "wire/flash_commands.h"
#include "wire/picture_commands.h"
#include "wire/service_commands.h"

namespace morvane::wire {
namespace {

/// A bit is set where the rows of `fields` write it, whatever stood there.
template <typename F>
Frame Written(const F& fields) {
  Frame on0{};
  Frame on1{};
  on1.fill(0xFF);
  Put(fields, on0);
  Put(fields, on1);
  std::transform(
      on0.begin(), on0.end(), on1.begin(), on0.begin(),
      [](unsigned zeros, unsigned ones) { return static_cast<std::uint8_t>(~(zeros ^ ones)); });
  return on0;
}

template <typename F>
Frame Of(const Frame& command) {
  return Written(Get<F>(command));
}

Frame OfUnknown(const Frame& /*command*/) {
  Frame all{};
  all.fill(0xFF);
  ClearCheckByte(all);
  return all;
}

/// Other polls have no more than their flags.
bool IsTestPoll(const Frame& command) {
  constexpr unsigned kFlags =
      StatusCommand::kBreak | StatusCommand::kPedalAck | StatusCommand::kBoxAck;
  return CodeOf(command) == CmdStatus && (Get<StatusCommand>(command).Flags & ~kFlags) != 0;
}

/// In the poll of a test deal only the break counts.
Frame OfPoll(const Frame& command) {
  return IsTestPoll(command) ? Of<TestPollCommand>(command) : Of<StatusCommand>(command);
}

/// What some runs leave as it stood does not count: the places behind the pack's 52 cards, and the
/// last byte of the settings but for a small index, without which it is 0 or random.
Frame OfStart(const Frame& command) {
  constexpr unsigned kSmallIndex = 6;
  auto start = Get<StartCommand>(command);
  start.Places = kCards;
  if ((start.Settings.CardConfig & kSmallIndex) != kSmallIndex) {
    start.Settings.CardConfigExtra.reset();
  }
  return Written(start);
}

/// Every block of a record is of the same length.
Frame OfWrite(const Frame& command) {
  switch (SubCodeIn(command)) {
    case ThresholdBlock::kSubCode:
      return Of<WriteParametersCommand<ThresholdBlock>>(command);
    case VideoBlock::kSubCode:
      return Of<WriteParametersCommand<VideoBlock>>(command);
    default:
      return Of<WriteParametersCommand<PositionBlock>>(command);
  }
}

Frame OfCapture(const Frame& command) {
  const auto positioned = Get<PositionedCaptureCommand>(command);
  Frame again = command;
  Put(positioned, again);
  return again == command ? Written(positioned) : Of<CaptureCommand>(command);
}

struct Row {
  std::uint8_t Code;
  /// A bit is set where it is told what the machine is to do.
  Frame (*Told)(const Frame& command);
};

// Where several commands ask the same with more or less of the filler set, it is the one that sets
// least.
constexpr std::array<Row, 33> kRows{{{CmdIdentity, Of<IdentityCommand>},
                                     {CmdStatus, OfPoll},
                                     {CmdVersion, Of<ServiceVersionCommand>},
                                     {CmdSensor, Of<SensorCommand>},
                                     {CmdFetchBoard, Of<FetchBoardCommand>},
                                     {CmdTest, Of<TestCommand>},
                                     {CmdFetchLog, Of<FetchLogCommand>},
                                     {CmdCounter, Of<CounterCommand>},
                                     {CmdSort, Of<SortCommand>},
                                     {CmdDeal, OfStart},
                                     {CmdRead, OfStart},
                                     {CmdRoute, Of<RouteCommand>},
                                     {CmdReadParameters, Of<ReadParametersCommand<VideoBlock>>},
                                     {CmdWriteParameters, OfWrite},
                                     {CmdDieIdentity, Of<DieIdentityCommand>},
                                     {CmdOutputs, Of<OutputsCommand>},
                                     {CmdLogicVersion, Of<LogicVersionCommand>},
                                     {CmdTestWrite, Of<TestWriteCommand>},
                                     {CmdStoredData, Of<SetIdentityCommand>},
                                     {CmdSetCounter, Of<SetCounterCommand>},
                                     {CmdPictureLine, Of<PictureLineCommand>},
                                     {CmdErrorPictureLine, Of<ErrorPictureLineCommand>},
                                     {CmdCapture, OfCapture},
                                     {CmdSymbolMeasure, Of<SymbolMeasureCommand>},
                                     {CmdSuitMeasure, Of<SuitMeasureCommand>},
                                     {CmdRecognise, Of<RecogniseCommand>},
                                     {CmdTrial, Of<TrialCommand>},
                                     {CmdErrorVerdict, Of<TestVerdictCommand>},
                                     {CmdStartDownload, Of<StartDownloadCommand>},
                                     {CmdEraseErrors, Of<EraseErrorsCommand>},
                                     {CmdEraseRecord, Of<EraseRecordCommand>},
                                     {CmdFlashBlock, Of<FlashBlockCommand>},
                                     {CmdWriteRecord, Of<WriteRecordCommand>}}};

Frame Told(const Frame& command) {
  const auto* const row = std::find_if(
      kRows.begin(), kRows.end(), [&](const Row& each) { return each.Code == CodeOf(command); });
  return row == kRows.end() ? OfUnknown(command) : row->Told(command);
}

}  // namespace

void KeepTold(Frame& command) {
  if (IsTestPoll(command)) return KeepTestPoll(command);
  const Frame told = Told(command);
  std::transform(command.begin() + 1, command.end(), told.begin() + 1, command.begin() + 1,
                 std::bit_and<unsigned>());
}

void KeepTestPoll(Frame& command) {
  constexpr std::uint8_t kOfNoOtherPoll = 0x80;
  const auto poll = Get<TestPollCommand>(command);
  command = {};
  Put(StatusCommand{kOfNoOtherPoll}, command);
  Put(poll, command);
}

std::optional<std::size_t> FirstDifference(const Frame& one, const Frame& other) {
  if (CodeOf(one) != CodeOf(other)) return 0;
  const Frame told = Told(one);
  const Frame alsoTold = Told(other);
  for (std::size_t i = 0; i < FrameSize(CodeOf(one)); ++i) {
    // A bit that one of the two has at random tells nothing.
    const unsigned counts = told[i] & alsoTold[i];
    if (((one[i] ^ other[i]) & counts) != 0) return i;
  }
  return std::nullopt;
}

}  // namespace morvane::wire
