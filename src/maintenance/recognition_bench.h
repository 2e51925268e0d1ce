#pragma once

#include <functional>
#include <string>

#include "machine/card_settings.h"
#include "maintenance/picture_store.h"
#include "maintenance/service_link.h"
#include "maintenance/verdict.h"
#include "wire/picture_commands.h"

namespace morvane::maintenance {

/// Pictures and recognition, as the console tries them out: what the machine's camera sees, what
/// the machine takes it for, and what it has measured. Whoever calls has the link.
class RecognitionBench {
 public:
  RecognitionBench(Program& program, ServiceLink& link, const machine::Machine& machine,
                   PictureStore& pictures)
      : program_(program), link_(link), machine_(machine), pictures_(pictures) {}

  // What the boxes show.
  maintenance::Verdict Verdict;
  std::string Cap_time;
  std::string Focus;
  std::string Symbol_size_x;
  std::string Symbol_size_y;
  std::string Suit_size_x;
  std::string Suit_size_y;
  std::string Reco_param1;
  std::string Reco_param2;
  wire::SymbolFrame SymbolBox;
  wire::SymbolFrame SuitBox;

  // What is expected of the next card; empty: anything.
  std::string HoldS;
  std::string HoldC;
  /// A card was another than expected: no further recognition until there is a new picture.
  bool HoldStop = false;
  bool RecoOn = true;  ///< the button `Reco`

  // Each false: the link is lost, which the operator has been told.

  bool Capture(const machine::CardSettings& cards);
  bool Reco(const machine::CardSettings& cards);
  /// Fetches what the last of the two has left in the machine. `goesOn` hears of each line, and
  /// says whether the next is wanted.
  bool Showb(const std::function<bool(int line)>& goesOn);
  /// Also of a verdict that nobody has asked for.
  void Take(const wire::VerdictReply& reply);

 private:
  void ClearResults();
  void Take(const wire::CaptureReply& reply);
  void Take(const wire::SymbolMeasureReply& reply);
  void Take(const wire::SuitMeasureReply& reply);

  Program& program_;
  ServiceLink& link_;
  const machine::Machine& machine_;
  PictureStore& pictures_;
  PictureStore::Kind lastPictureKind_ = PictureStore::Kind::kGrey;
};

}  // namespace morvane::maintenance
