#pragma once

#include <functional>

#include "maintenance/auto_setup_view.h"
#include "maintenance/search_map.h"
#include "maintenance/ui/work_dialog.h"
#include "platform/clock.h"

class QProgressBar;

namespace morvane {
class ShownValue;
}

namespace morvane::maintenance {

class AutoSetup;
class SearchMapView;

/// `AutoSetup`: the search as it goes, as a map. Escape and the close box cancel it.
class AutoSetupWindow final : public WorkDialog, public AutoSetupView {
 public:
  /// `picture` is told of each line of the final picture.
  AutoSetupWindow(const Clock& clock, AutoSetup& setup, std::function<void()> picture,
                  QWidget* parent);

  void ShowSearch() override;
  void ShowPicture() override { picture_(); }

  void reject() override;

 private:
  QWidget* MakeBody();
  QWidget* MakePlaces();
  void ShowAll();
  [[nodiscard]] QString Doing() const;
  [[nodiscard]] double Seconds() const;

  const Clock& clock_;
  AutoSetup& setup_;
  std::function<void()> picture_;
  SearchMap map_;
  ShownValue* doing_ = nullptr;
  ShownValue* left_ = nullptr;
  QProgressBar* ProgressBar1_ = nullptr;
  SearchMapView* mapView_ = nullptr;
  ShownValue* posx_ = nullptr;
  ShownValue* posy_ = nullptr;
  ShownValue* startx_ = nullptr;
  ShownValue* starty_ = nullptr;
  ShownValue* symy_ = nullptr;
  ShownValue* suity_ = nullptr;
};

}  // namespace morvane::maintenance
