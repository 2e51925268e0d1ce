#pragma once

#include <functional>
#include <string>

#include "machine/card_settings.h"
#include "maintenance/picture_store.h"
#include "maintenance/service_file_run.h"
#include "maintenance/service_file_view.h"
#include "maintenance/service_link.h"

namespace morvane::maintenance {

/// The window `Service_file` without its looks: fetches the two pictures of the problem card, a new
/// one or, behind a failed test deal, the one that the machine has kept. Whoever runs it has the
/// link.
class ServiceGathering {
 public:
  enum class Stage : std::uint8_t { kSettling, kPicture, kLabels, kOver };

  /// `leaving`: the service or the program is to end, which cancels.
  ServiceGathering(Program& program, ServiceLink& link, const machine::Machine& machine,
                   const machine::CardSettings& cards, PictureStore& pictures, ServiceFileRun& run,
                   std::function<bool()> leaving)
      : program_(program),
        link_(link),
        machine_(machine),
        cards_(cards),
        pictures_(pictures),
        run_(run),
        leaving_(std::move(leaving)) {}

  /// False: it was cancelled, which `run` says, or the link is lost, which the operator has been
  /// told.
  bool Run(ServiceFileView& view);
  /// The button `Command1`; heard at the next line, and not any more behind the last.
  void Cancel();

  /// The grey picture: in its store the labels stand over it.
  [[nodiscard]] const PixelPlane& Grey() const { return grey_; }

  // What the window shows.
  [[nodiscard]] Stage Now() const { return stage_; }
  [[nodiscard]] int ProgressBar1() const { return progress_; }  ///< 0..99
  [[nodiscard]] bool Cancelled() const { return run_.ServiceCancelled; }
  [[nodiscard]] bool MayCancel() const { return stage_ != Stage::kOver && !Cancelled(); }
  [[nodiscard]] bool OfTestDeal() const { return run_.TestDealError; }
  [[nodiscard]] const PictureStore& Pictures() const { return pictures_; }

 private:
  bool Settle(int progress);
  bool TakePictures();
  bool FetchErrorPictures();
  void Take(const wire::CaptureReply& reply);
  template <typename Line>
  bool Fetch(PictureStore::Kind kind, int from, int share);
  bool Labels();
  void Show(int progress);
  bool GoesOn();

  Program& program_;
  ServiceLink& link_;
  const machine::Machine& machine_;
  const machine::CardSettings& cards_;
  PictureStore& pictures_;
  ServiceFileRun& run_;
  std::function<bool()> leaving_;
  ServiceFileView* view_ = nullptr;
  PixelPlane grey_;
  Stage stage_ = Stage::kSettling;
  int progress_ = 0;
};

}  // namespace morvane::maintenance
