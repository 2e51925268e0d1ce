#pragma once

#include "simulator/camera.h"
#include "simulator/error_picture.h"
#include "simulator/parameter_organ.h"
#include "simulator/recogniser.h"
#include "wire/frame.h"

namespace morvane::simulator {

/// Takes pictures, recognises the card in them, and tells line by line what there is to see.
class CameraOrgan {
 public:
  /// `options` as in `IdentityOrgan`.
  explicit CameraOrgan(const Options& options);

  /// As `RunOrgan::Answer`; `lit`: the camera has light and power.
  bool Answer(const wire::Frame& command, const ParameterOrgan& parameters, bool lit,
              wire::Frame& reply);
  /// A run may have stopped meanwhile; what its camera saw is kept then.
  void Note(const RunStop& stop, const ParameterOrgan& parameters);
  /// What it takes a card for that passes by itself, in the machine's own light.
  [[nodiscard]] wire::VerdictReply VerdictInPassing(int machineCard) const;
  /// The power has gone. The card stays.
  void Forget();

  [[nodiscard]] Camera& Eye() { return camera_; }
  [[nodiscard]] const Camera& Eye() const { return camera_; }

 private:
  bool Capture(const wire::Frame& command, const ParameterOrgan& parameters, bool lit,
               wire::Frame& reply);
  bool Recognise(const wire::Frame& command, const ParameterOrgan& parameters, wire::Frame& reply);
  bool Try(const wire::Frame& command, const ParameterOrgan& parameters, bool lit,
           wire::Frame& reply);
  void Take(CameraPlace at, bool lit);
  void Recognise(const RecoTask& task, wire::Frame& reply);
  void Misread(wire::VerdictReply& verdict) const;

  const Options& options_;
  Camera camera_;
  Recogniser recogniser_;
  Picture grey_;
  bool labelled_ = false;  ///< the buffer has been recognised
  ErrorPicture error_;
};

}  // namespace morvane::simulator
