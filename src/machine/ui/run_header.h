#pragma once

#include <QWidget>
#include <string>

class QLayout;

namespace morvane {
class ShownText;
class ShownValue;
}  // namespace morvane

namespace morvane::machine {

class MachineRun;

/// How the run stands: `txtStatus`, `lblProgress`, `txtDealTime`; and whose set it deals:
/// `txtFile`.
class RunHeader final : public QWidget {
 public:
  /// `status`: what the run is for.
  RunHeader(const QString& status, QWidget* parent);

  /// Repaints at once what has changed.
  void ShowState(const MachineRun& run);
  void ShowFile(const std::string& path);

 private:
  void MakeStatus();
  void MakeDealTime();
  QLayout* PlaceState(const QString& status);
  QLayout* PlaceFile();
  void ShowStatus(int state);

  ShownValue* txtStatus_ = nullptr;
  ShownValue* lblProgress_ = nullptr;
  ShownValue* txtDealTime_ = nullptr;
  ShownText* txtFile_ = nullptr;
};

}  // namespace morvane::machine
