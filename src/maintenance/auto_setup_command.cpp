#include "maintenance/auto_setup_command.h"

#include <algorithm>

#include "machine/gates.h"
#include "text/box_text.h"

namespace morvane::maintenance {
namespace {

using wire::OutputsCommand;

constexpr const char* kCaption = "Auto Setup";

}  // namespace

void PutFound(const SearchPosition& found, const HeightLimits& kept, ParameterBoxes& boxes) {
  boxes.Box(Parameter::pos_x).Put(found.pos_x);
  boxes.Box(Parameter::pos_y).Put(found.pos_y);
  boxes.Box(Parameter::start_x).Put(found.start_x);
  boxes.Box(Parameter::start_y).Put(found.start_y);
  if (kept.Sym_y_max != 0) boxes.Box(Parameter::Sym_y_max).Put(kept.Sym_y_max);
  if (kept.Suit_y_max != 0) boxes.Box(Parameter::Suit_y_max).Put(kept.Suit_y_max);
}

void AutoSetupCommand::Run() {
  if (!Passes(machine_, machine::kAutoSetupGate)) {
    program_.ShowMessage(Fill(program_.Texts.Msg043, "***", machine_.FirmwareInHex()), kOkCritical,
                         kCaption);
    return;
  }
  if (!LightUp() || !CardIsIn() || !parameters_.ReadOver()) return;
  const HeightLimits old = Limits();
  if (RaiseLimits(old)) Search(old);
}

bool AutoSetupCommand::LightUp() {
  poll_.Outputs |= OutputsCommand::kCamLeds | OutputsCommand::kCamPower;
  return poll_.SendOutputs();
}

bool AutoSetupCommand::CardIsIn() {
  host_.View().ShowAll();
  const std::string name = CardIndexName(parameters_.CardSelection.CardIndex);
  const std::string text = Fill(program_.Texts.Msg109, "***", name);
  return program_.Ask(text, kOkCancelInformation, kCaption) == kOk;
}

HeightLimits AutoSetupCommand::Limits() const {
  return {parameters_.Boxes.Box(Parameter::Sym_y_max).Value(),
          parameters_.Boxes.Box(Parameter::Suit_y_max).Value()};
}

void AutoSetupCommand::Put(const HeightLimits& limits) {
  parameters_.Boxes.Box(Parameter::Sym_y_max).Put(limits.Sym_y_max);
  parameters_.Boxes.Box(Parameter::Suit_y_max).Put(limits.Suit_y_max);
}

/// The search is to see high symbols, too. False: the link is lost.
bool AutoSetupCommand::RaiseLimits(const HeightLimits& old) {
  if (parameters_.Index() != wire::CardIndex::Standard) return true;
  const HeightLimits raised{std::max(old.Sym_y_max, HeightLimits::kSymbol),
                            std::max(old.Suit_y_max, HeightLimits::kSuit)};
  if (raised == old) return true;
  Put(raised);
  return parameters_.Write(ParameterBlock::Mode::kAutoSetup);
}

/// From here on every way writes: the machine may hold the raised limits.
void AutoSetupCommand::Search(const HeightLimits& old) {
  AutoSetup setup(program_, link_, pictures_, parameters_.CardSelection, old);
  {
    const auto window = host_.View().OpenAutoSetup(setup);
    setup.Run(*window);
  }
  if (setup.Found()) {
    Keep(*setup.Found(), old, setup.Kept());
  } else {
    Put(old);
    parameters_.Write(ParameterBlock::Mode::kRevert);
  }
}

void AutoSetupCommand::Keep(const SearchPosition& found, const HeightLimits& old,
                            const HeightLimits& kept) {
  Put(old);
  PutFound(found, kept, parameters_.Boxes);
  parameters_.Write(ParameterBlock::Mode::kUpdate);
}

}  // namespace morvane::maintenance
