#pragma once

#include "wire/commands.h"
#include "wire/picture_replies.h"

// The commands of the camera and of the recogniser, in the manner of commands.h.

namespace morvane::wire {

enum PictureCode : std::uint8_t {
  CmdPictureLine = 0x01,
  CmdErrorPictureLine = 0x02,
  CmdCapture = 0x0A,
  CmdSymbolMeasure = 0x0F,
  CmdSuitMeasure = 0x10,
  CmdRecognise = 0x15,
  CmdTrial = 0x22,
  CmdErrorVerdict = 0x25,
};

struct PictureLineCommand {
  static constexpr std::uint8_t Code = CmdPictureLine;
  using Reply = PictureLineReply;
  std::uint8_t Line = 0;  ///< 0..191
  [[nodiscard]] bool IsEchoedBy(const Reply& reply) const { return reply.Line == Line; }

  static constexpr auto Fields = std::tuple(Byte(1, &PictureLineCommand::Line));
};

struct ErrorPictureLineCommand {
  static constexpr std::uint8_t Code = CmdErrorPictureLine;
  using Reply = ErrorPictureLineReply;
  std::uint8_t Line = 0;
  [[nodiscard]] bool IsEchoedBy(const Reply& reply) const { return reply.Line == Line; }

  static constexpr auto Fields = std::tuple(Byte(1, &ErrorPictureLineCommand::Line));
};

/// Takes a picture into the machine's buffer, at the position of the index's record.
struct CaptureCommand {
  static constexpr std::uint8_t Code = CmdCapture;
  using Reply = CaptureReply;
  std::uint8_t Index = 0;  ///< `CardIndex`

  static constexpr auto Fields = std::tuple(Byte(1, &CaptureCommand::Index), Zeros(2, 2));
};

/// The same at a position of its own.
struct PositionedCaptureCommand {
  static constexpr std::uint8_t Code = CmdCapture;
  using Reply = CaptureReply;
  static constexpr std::uint8_t kMarker = 0x17;
  std::uint8_t Index = 0;
  std::uint8_t PosX = 0;
  std::uint8_t PosY = 0;

  static constexpr auto Fields = std::tuple(
      Byte(1, &PositionedCaptureCommand::Index), Zeros(2), Always(3, kMarker),
      Byte(4, &PositionedCaptureCommand::PosX), Byte(5, &PositionedCaptureCommand::PosY));
};

struct SymbolMeasureCommand {
  static constexpr std::uint8_t Code = CmdSymbolMeasure;
  using Reply = SymbolMeasureReply;

  static constexpr auto Fields = std::tuple<>();
};

struct SuitMeasureCommand {
  static constexpr std::uint8_t Code = CmdSuitMeasure;
  using Reply = SuitMeasureReply;

  static constexpr auto Fields = std::tuple<>();
};

/// Recognises the card in the picture of the last capture. The numbers are those of
/// `machine::CardSettings`.
struct RecogniseCommand {
  static constexpr std::uint8_t Code = CmdRecognise;
  using Reply = VerdictReply;
  std::uint8_t National = 0;
  std::uint8_t CardType = 0;
  std::uint8_t Threshold = 0;
  std::uint8_t Index = 0;

  static constexpr auto Fields = std::tuple(
      Byte(1, &RecogniseCommand::National), Byte(2, &RecogniseCommand::CardType),
      Byte(3, &RecogniseCommand::Threshold), Byte(4, &RecogniseCommand::Index), Zeros(5, 2));
};

/// Takes a picture at this position and recognises the card in it, searching from this start point.
struct TrialCommand {
  static constexpr std::uint8_t Code = CmdTrial;
  using Reply = VerdictReply;
  std::uint8_t PosX = 0;
  std::uint8_t PosY = 0;
  std::uint8_t Threshold = 0;
  std::uint8_t Index = 0;
  std::uint8_t StartX = 0;
  std::uint8_t StartY = 0;

  static constexpr auto Fields =
      std::tuple(Byte(1, &TrialCommand::PosX), Byte(2, &TrialCommand::PosY),
                 Byte(3, &TrialCommand::Threshold), Byte(4, &TrialCommand::Index),
                 Byte(5, &TrialCommand::StartX), Byte(6, &TrialCommand::StartY));
};

/// The same behind a test deal: all filler.
struct TestVerdictCommand {
  static constexpr std::uint8_t Code = CmdErrorVerdict;
  using Reply = ErrorVerdictReply;

  static constexpr auto Fields = std::tuple<>();
};

struct ErrorVerdictCommand {
  static constexpr std::uint8_t Code = CmdErrorVerdict;
  using Reply = ErrorVerdictReply;

  static constexpr auto Fields = std::tuple(Zeros(1));
};

}  // namespace morvane::wire
