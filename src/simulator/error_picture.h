#pragma once

#include "simulator/camera.h"
#include "simulator/card_way.h"
#include "simulator/picture.h"
#include "simulator/stored_parameters.h"
#include "wire/picture_replies.h"

namespace morvane::simulator {

/// What the camera saw, and the recogniser made of it, when the last run stopped with an error. All
/// 0 before that.
class ErrorPicture {
 public:
  /// Keeps what is seen of the card of `stop`, once: in the machine's own light, and by the record
  /// of the cards' `index`. The verdict on it is that of the run where this was why it stopped.
  void Keep(const RunStop& stop, Camera& camera, const StoredParameters& parameters,
            const Options& cards);
  /// The power has gone.
  void Forget();

  [[nodiscard]] const Picture& Grey() const { return grey_; }
  [[nodiscard]] const wire::ErrorVerdictReply& Verdict() const { return verdict_; }

 private:
  Picture grey_;
  wire::ErrorVerdictReply verdict_;
  int times_ = 0;  ///< of the stop that was kept
};

}  // namespace morvane::simulator
