#pragma once

#include "simulator/options.h"
#include "simulator/parameter_store.h"
#include "wire/frame.h"

namespace morvane::simulator {

/// The numbers of the camera, kept in the file of `store=`. Blocks that the firmware or the
/// hardware is too old for do not exist.
class ParameterOrgan {
 public:
  explicit ParameterOrgan(const Options& options)
      : options_(options), store_(options.Store), parameters_(store_.Load()) {}

  /// As `RunOrgan::Answer`, for what is read.
  bool Answer(const wire::Frame& command, wire::Frame& reply) const;
  /// Whether the plain write frame has been obeyed.
  bool Write(const wire::Frame& command);

  [[nodiscard]] const StoredParameters& Parameters() const { return parameters_; }
  /// Whether there is a record for it.
  [[nodiscard]] bool HasIndex(wire::CardIndex index) const {
    return Has(wire::SubCodeOf<wire::PositionBlock>(index));
  }
  /// As `ParameterStore::Trouble`.
  [[nodiscard]] const std::string& Trouble() const { return store_.Trouble(); }

 private:
  [[nodiscard]] bool Has(std::uint8_t subCode) const;

  Options options_;
  ParameterStore store_;
  StoredParameters parameters_;
};

}  // namespace morvane::simulator
