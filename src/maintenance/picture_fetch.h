#pragma once

#include <functional>

#include "machine/card_settings.h"
#include "machine/gates.h"
#include "maintenance/picture_store.h"
#include "maintenance/service_link.h"
#include "wire/picture_commands.h"

namespace morvane::maintenance {

inline constexpr machine::VersionGate kFocusGate{0x72, nullptr};
/// The focus in the answer to a capture is one. A newer machine need not say so.
[[nodiscard]] inline bool TellsFocus(const machine::Machine& machine,
                                     const wire::CaptureReply& reply) {
  return machine.Version.FirmwareMajor > 2 ||
         (machine::Passes(machine, kFocusGate) && reply.IsMarked());
}

/// The recognition of a card of these.
[[nodiscard]] inline wire::RecogniseCommand RecognitionOf(const machine::CardSettings& cards) {
  const auto byte = [](int value) { return static_cast<std::uint8_t>(value); };
  return {byte(cards.National), byte(cards.CardType), byte(cards.Threshold), byte(cards.CardIndex)};
}

/// Fetches the picture in the machine line by line into `pictures`, as what its `ImageMode` says.
/// `goesOn` hears of each line 0..191 and says whether the picture is wanted any more. False: it is
/// not, or the link is lost, which the operator has been told.
/// With `Line` `wire::ErrorPictureLineCommand`: the picture that the machine kept at its last
/// error.
template <typename Line = wire::PictureLineCommand>
bool FetchPicture(Program& program, ServiceLink& link, PictureStore& pictures,
                  const std::function<bool(int line)>& goesOn) {
  for (int y = 0; y < PixelPlane::kHeight; ++y) {
    // What has come is painted while the next line is on its way, which costs no time so.
    const auto line =
        link.Ask(Line{static_cast<std::uint8_t>(y)}, [&program] { program.Loop.Paint(); });
    if (!line) return false;
    program.Loop.Pump();
    pictures.Take(y, line->Pixels);
    if (!goesOn(y)) return false;
  }
  return true;
}

}  // namespace morvane::maintenance
