#include "maintenance/recognition_bench.h"

#include "machine/gates.h"
#include "maintenance/picture_fetch.h"

namespace morvane::maintenance {
namespace {

/// The pixels between the two.
std::string Between(std::uint8_t low, std::uint8_t high) { return std::to_string(high - low - 1); }

}  // namespace

void RecognitionBench::Capture() { AtMachine(&RecognitionBench::CapturePicture); }
void RecognitionBench::Reco() {
  if (recoOn_) AtMachine(&RecognitionBench::Recognise);
}
void RecognitionBench::Showb() { AtMachine(&RecognitionBench::ShowPicture); }

/// The window stays alive meanwhile: its buttons are off.
void RecognitionBench::AtMachine(void (RecognitionBench::*work)()) {
  host_.AtMachine([this, work] {
    busy_ = true;
    (this->*work)();
    busy_ = false;
  });
}

void RecognitionBench::CapturePicture() {
  ClearResults();
  lastPictureKind_ = PictureStore::Kind::kGrey;
  host_.View().ShowAll();
  const std::uint8_t index = RecognitionOf(parameters_.CardSelection).Index;
  if (const auto reply = link_.Ask(wire::CaptureCommand{index})) Take(*reply);
  recoOn_ = true;  // whatever stopped it
}

void RecognitionBench::Recognise() {
  ClearResults();
  lastPictureKind_ = PictureStore::Kind::kLabels;
  host_.View().ShowAll();
  const auto verdict = link_.Ask(RecognitionOf(parameters_.CardSelection));
  if (verdict) Take(*verdict);
  Measure();
  recoOn_ = !holdStop_;
}

void RecognitionBench::ShowProblemCard(const ServiceFileRun& run) {
  texts_.Cap_time = std::to_string(run.ServiceCaptureTime);
  if (!run.TestDealError) return texts_.Verdict.Take(run.LastVerdict);
  texts_.Verdict.TakeError(run.LastVerdict);
  if (run.LastVerdict.Rank == wire::ErrorVerdictReply::kNotTaken) {
    texts_.Verdict.Reco_error = std::to_string(run.LastVerdict.Rank);
  }
}

bool RecognitionBench::Measure() {
  if (const auto symbol = link_.Ask(wire::SymbolMeasureCommand{})) Take(*symbol);
  if (const auto suit = link_.Ask(wire::SuitMeasureCommand{})) Take(*suit);
  return !link_.LinkFailed();
}

void RecognitionBench::ShowPicture() {
  pictures_.ImageMode = lastPictureKind_;
  linesFetched_ = 0;
  host_.View().ShowAll();
  FetchPicture(program_, link_, pictures_, [this](int line) {
    linesFetched_ = line + 1;
    host_.View().ShowPicture();
    return !host_.Leaving();
  });
  linesFetched_.reset();
}

void RecognitionBench::Frame_draw() {
  pictures_.DrawFrames(symbolBox_, suitBox_);
  host_.View().ShowPicture();
}

void RecognitionBench::Start_draw() {
  pictures_.DrawStart(parameters_.Boxes.Box(Parameter::start_x).Value(),
                      parameters_.Boxes.Box(Parameter::start_y).Value());
  host_.View().ShowPicture();
}

void RecognitionBench::ClearResults() {
  texts_.Verdict = {};
  texts_.Cap_time.clear();
  texts_.Symbol_size_x.clear();
  texts_.Symbol_size_y.clear();
  texts_.Suit_size_x.clear();
  texts_.Suit_size_y.clear();
}

void RecognitionBench::Take(const wire::CaptureReply& reply) {
  texts_.Cap_time = std::to_string(reply.Time);
  if (program_.ServiceLevel == 0) return;
  texts_.Focus = TellsFocus(machine_, reply) ? std::to_string(reply.Focus) : "N/A";
}

void RecognitionBench::Take(const wire::VerdictReply& reply) {
  texts_.Verdict.Take(reply);
  if (reply.Error != 0) return;
  const auto differs = [](const std::string& expected, const std::string& seen) {
    return !expected.empty() && expected != seen;
  };
  holdStop_ = differs(HoldS, texts_.Verdict.Symbol) || differs(HoldC, texts_.Verdict.Suit);
  if (holdStop_) recoOn_ = false;
}

void RecognitionBench::Take(const wire::SymbolMeasureReply& reply) {
  texts_.Reco_param1 = std::to_string(reply.Param1);
  texts_.Reco_param2 = std::to_string(reply.Param2);
  symbolBox_ = reply.Box;
  texts_.Symbol_size_x = Between(symbolBox_.XMin, symbolBox_.XMax);
  texts_.Symbol_size_y = Between(symbolBox_.YMin, symbolBox_.YMax);
}

void RecognitionBench::Take(const wire::SuitMeasureReply& reply) {
  texts_.Verdict.Threshold += "," + std::to_string(reply.Threshold);
  suitBox_ = reply.Box;
  texts_.Suit_size_x = Between(suitBox_.XMin, suitBox_.XMax);
  texts_.Suit_size_y = Between(suitBox_.YMin, suitBox_.YMax);
}

}  // namespace morvane::maintenance
