#pragma once

#include <QWidget>
#include <string>

class QLayout;

namespace morvane {
class ShownText;
class ShownValue;
}  // namespace morvane

namespace morvane::machine {

class DealingRun;

/// How the run stands: `txtStatus`, `lblProgress`, `txtDealTime`; and whose set it deals:
/// `txtFile`.
class RunHeader final : public QWidget {
 public:
  explicit RunHeader(QWidget* parent);

  /// Repaints at once what has changed.
  void ShowState(const DealingRun& run);
  void ShowFile(const std::string& path);

 private:
  void MakeStatus();
  void MakeDealTime();
  QLayout* PlaceState();
  QLayout* PlaceFile();
  void ShowStatus(int state);

  ShownValue* txtStatus_ = nullptr;
  ShownValue* lblProgress_ = nullptr;
  ShownValue* txtDealTime_ = nullptr;
  ShownText* txtFile_ = nullptr;
};

}  // namespace morvane::machine
