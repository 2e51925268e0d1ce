#include "simulator/camera_organ.h"

#include <algorithm>

#include "simulator/agrees.h"
#include "simulator/card_rank.h"
#include "wire/picture_commands.h"

namespace morvane::simulator {
namespace {

using namespace wire;

constexpr std::uint8_t kFocusSince = 0x72;
constexpr std::uint8_t kTrialSince = 0x80;
constexpr std::uint16_t kCaptureTime = 318;
constexpr std::uint8_t kFocusMark1 = 23;
constexpr std::uint8_t kFocusMark2 = 11;
constexpr std::uint8_t kLastIndex = 2;
constexpr std::uint8_t kLastFont = 2;
constexpr std::uint8_t kLastCardType = 1;

bool HasIndex(const ParameterOrgan& parameters, std::uint8_t index) {
  return index <= kLastIndex && parameters.HasIndex(static_cast<CardIndex>(index));
}

CameraPlace PlaceOf(const StoredParameters& parameters, std::uint8_t index) {
  const PositionBlock& at = parameters.Records[index].Positions;
  return {at.PosX, at.PosY};
}

template <typename Reply>
bool PutLine(std::uint8_t line, const Picture& picture, Frame& frame) {
  if (line >= Picture::kHeight) return false;
  Reply reply;
  reply.Line = line;
  std::copy_n(picture.Pixels.begin() + Picture::Place(0, line), Picture::kWidth,
              reply.Pixels.begin());
  Put(reply, frame);
  return true;
}

}  // namespace

CameraOrgan::CameraOrgan(const Options& options) : options_(options), camera_(options) {}

bool CameraOrgan::Answer(const Frame& command, const ParameterOrgan& parameters, bool lit,
                         Frame& reply) {
  switch (CodeOf(command)) {
    case CmdPictureLine:
      return PutLine<PictureLineReply>(Get<PictureLineCommand>(command).Line,
                                       labelled_ ? recogniser_.Labels() : grey_, reply);
    case CmdErrorPictureLine:
      return PutLine<ErrorPictureLineReply>(Get<ErrorPictureLineCommand>(command).Line,
                                            error_.Grey(), reply);
    case CmdCapture:
      return Capture(command, parameters, lit, reply);
    case CmdSymbolMeasure:
      Put(recogniser_.SymbolMeasure(), reply);
      return true;
    case CmdSuitMeasure:
      Put(recogniser_.SuitMeasure(), reply);
      return true;
    case CmdRecognise:
      return Recognise(command, parameters, reply);
    case CmdTrial:
      return Try(command, parameters, lit, reply);
    case CmdErrorVerdict:
      Put(error_.Verdict(), reply);  // also behind a test deal, where all of it is random
      return true;
    default:
      return false;
  }
}

bool CameraOrgan::Capture(const Frame& command, const ParameterOrgan& parameters, bool lit,
                          Frame& reply) {
  const auto here = Get<PositionedCaptureCommand>(command);
  if (!HasIndex(parameters, here.Index)) return false;
  if (Agrees(CaptureCommand{here.Index}, command)) {
    Take(PlaceOf(parameters.Parameters(), here.Index), lit);
  } else if (Agrees(here, command) && options_.FirmwareSince(kTrialSince)) {
    Take({here.PosX, here.PosY}, lit);
  } else {
    return false;
  }
  CaptureReply taken{kCaptureTime, 0, 0, 0};
  if (options_.FirmwareSince(kFocusSince)) {
    taken.Focus = SharpnessOf(grey_);
    if (options_.MarksFocus) {
      taken.Marker1 = kFocusMark1;
      taken.Marker2 = kFocusMark2;
    }
  }
  Put(taken, reply);
  return true;
}

void CameraOrgan::Take(CameraPlace at, bool lit) {
  camera_.Take(at, lit, grey_);
  labelled_ = false;
}

bool CameraOrgan::Recognise(const Frame& command, const ParameterOrgan& parameters, Frame& reply) {
  const auto asked = Get<RecogniseCommand>(command);
  if (!Agrees(asked, command) || !HasIndex(parameters, asked.Index)) return false;
  if (asked.National >= kNationals || asked.CardType > kLastCardType) return false;
  if (asked.Threshold > kLastFont) return false;
  RecoTask task = TaskOf(parameters.Parameters(), static_cast<CardIndex>(asked.Index),
                         static_cast<CardFont>(asked.Threshold));
  task.National = asked.National;
  Recognise(task, reply);
  return true;
}

bool CameraOrgan::Try(const Frame& command, const ParameterOrgan& parameters, bool lit,
                      Frame& reply) {
  const auto asked = Get<TrialCommand>(command);
  if (!options_.FirmwareSince(kTrialSince) || !HasIndex(parameters, asked.Index)) return false;
  if (asked.Threshold > kLastFont) return false;
  RecoTask task = TaskOf(parameters.Parameters(), static_cast<CardIndex>(asked.Index),
                         static_cast<CardFont>(asked.Threshold));
  task.StartX = asked.StartX;
  Take({asked.PosX, asked.PosY}, lit);
  Recognise(task, reply);
  return true;
}

void CameraOrgan::Recognise(const RecoTask& task, Frame& reply) {
  VerdictReply verdict = recogniser_.Recognise(grey_, task);
  labelled_ = true;
  if (verdict.Error == Recogniser::kNone) Misread(verdict);
  Put(verdict, reply);
}

void CameraOrgan::Misread(VerdictReply& verdict) const {
  if (options_.Misread == 0) return;
  const CardRank card = RankOfCard(options_.Misread);
  verdict.Rank = static_cast<std::uint8_t>(card.Rank);
  verdict.Suit = static_cast<std::uint8_t>(card.Suit);
}

VerdictReply CameraOrgan::VerdictInPassing(int machineCard) const {
  const CardRank card = RankOfCard(options_.TakenFor(machineCard));
  VerdictReply verdict{Recogniser::kTime, static_cast<std::uint8_t>(card.Rank),
                       static_cast<std::uint8_t>(card.Suit), kNormalThreshold, Recogniser::kNone};
  if (card.Rank == 0) verdict.Error = Recogniser::kUnknownSymbol;
  return verdict;
}

void CameraOrgan::Note(const RunStop& stop, const ParameterOrgan& parameters) {
  error_.Keep(stop, camera_, parameters.Parameters(), options_);
}

void CameraOrgan::Forget() {
  grey_ = {};
  labelled_ = false;
  recogniser_ = {};
  error_.Forget();
}

}  // namespace morvane::simulator
