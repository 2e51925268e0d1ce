#pragma once

#include "support/scripted_bridge.h"

namespace morvane::maintenance {

/// A camera on paper that sees the ten of spades, where it belongs, in these columns.
struct PaperCamera {
  int SeenFrom = 20;  ///< from this position on
  std::uint8_t SymbolLeft = 54;
  std::uint8_t SymbolBottom = 80;
  std::uint8_t SuitBottom = 60;

  /// The wire bytes of the reply; empty: no command for a camera.
  [[nodiscard]] test::Bytes ReplyTo(const test::Bytes& plain) const {
    using test::OnTheWire;
    using test::Short;
    switch (plain[0]) {
      case 0x22:
        return plain[1] >= SeenFrom ? OnTheWire(Short({0x15, 0, 9, 10, 1, 46, 0}), 21)
                                    : OnTheWire(Short({0x15, 0, 9, 0, 0, 46, 25}), 21);
      case 0x0F:
        return OnTheWire(Short({0x0F, 0, 0, SymbolLeft, static_cast<std::uint8_t>(SymbolLeft + 40),
                                20, SymbolBottom}),
                         21);
      case 0x10:
        return OnTheWire(Short({0x10, 0, 0, 54, 94, 10, SuitBottom}), 21);
      case 0x0A:
        return OnTheWire(Short({0x0A, 0, 1}), 21);
      case 0x01:
        return OnTheWire(test::Long({0x81, plain[1]}), 21);
      default:
        return {};
    }
  }
};

}  // namespace morvane::maintenance
