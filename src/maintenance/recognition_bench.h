#pragma once

#include <optional>
#include <string>

#include "maintenance/console_host.h"
#include "maintenance/parameter_block.h"
#include "maintenance/picture_store.h"
#include "maintenance/service_file_run.h"
#include "maintenance/service_link.h"
#include "maintenance/verdict.h"
#include "wire/picture_commands.h"

namespace morvane::maintenance {

/// Pictures and recognition, as the console tries them out: what the machine's camera sees, what
/// the machine takes it for, and what it has measured. Each public procedure is a control's event.
class RecognitionBench {
 public:
  RecognitionBench(Program& program, ServiceLink& link, const machine::Machine& machine,
                   const ParameterBlock& parameters, PictureStore& pictures, ConsoleHost& host)
      : program_(program),
        link_(link),
        machine_(machine),
        parameters_(parameters),
        pictures_(pictures),
        host_(host) {}

  void Capture();
  void Reco();
  /// Fetches what the last of the two has left in the machine. Ends early when somebody leaves.
  void Showb();
  /// Something else is at work with the camera: the buttons are off.
  void Rest(bool on) { busy_ = on; }
  /// The machine starts anew: what it has measured is no more.
  void ForgetFrames() { symbolBox_ = suitBox_ = {}; }
  /// "Draw frames": what the machine has measured.
  void Frame_draw();
  /// "Draw start point": of the boxes as they stand.
  void Start_draw();
  /// Also a verdict that nobody has asked for.
  void Take(const wire::VerdictReply& reply);
  /// The verdict of the last error of a run.
  void TakeError(const wire::ErrorVerdictReply& reply) { texts_.Verdict.TakeError(reply); }

  // For who has the link and tries a card out by itself.
  void ClearResults();
  /// What was gathered for a service file.
  void ShowProblemCard(const ServiceFileRun& run);
  /// Asks for what the machine has measured. False: the link is lost, which the operator has been
  /// told.
  bool Measure();

  // What is expected of the next card; empty: anything.
  std::string HoldS;
  std::string HoldC;

  /// `Capture`, `Reco` and `Showb` are enabled, as far as the machine is known; `Reco` also needs
  /// `RecoOn`: after another card than expected there must be a new picture first.
  [[nodiscard]] bool ButtonsOn() const { return !busy_; }
  [[nodiscard]] bool RecoOn() const { return recoOn_; }
  /// How many lines have come of a fetch that is under way.
  [[nodiscard]] std::optional<int> LinesFetched() const { return linesFetched_; }
  [[nodiscard]] const PictureStore& Pictures() const { return pictures_; }

  /// What the boxes show.
  struct Texts {
    maintenance::Verdict Verdict;
    std::string Cap_time;
    std::string Focus;
    std::string Symbol_size_x;
    std::string Symbol_size_y;
    std::string Suit_size_x;
    std::string Suit_size_y;
    std::string Reco_param1;
    std::string Reco_param2;
  };
  [[nodiscard]] const Texts& Shown() const { return texts_; }
  [[nodiscard]] const wire::SymbolFrame& SymbolBox() const { return symbolBox_; }
  [[nodiscard]] const wire::SymbolFrame& SuitBox() const { return suitBox_; }
  [[nodiscard]] bool HoldStop() const { return holdStop_; }

 private:
  void AtMachine(void (RecognitionBench::*work)());
  void CapturePicture();
  void Recognise();
  void ShowPicture();
  void Take(const wire::CaptureReply& reply);
  void Take(const wire::SymbolMeasureReply& reply);
  void Take(const wire::SuitMeasureReply& reply);

  Program& program_;
  ServiceLink& link_;
  const machine::Machine& machine_;
  const ParameterBlock& parameters_;
  PictureStore& pictures_;
  ConsoleHost& host_;
  Texts texts_;
  wire::SymbolFrame symbolBox_;
  wire::SymbolFrame suitBox_;
  PictureStore::Kind lastPictureKind_ = PictureStore::Kind::kGrey;
  std::optional<int> linesFetched_;
  bool holdStop_ = false;  ///< the last good verdict was another than expected
  bool recoOn_ = true;
  bool busy_ = false;
};

}  // namespace morvane::maintenance
