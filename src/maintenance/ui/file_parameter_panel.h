#pragma once

#include <QWidget>
#include <array>

#include "maintenance/ui/file_boxes.h"

class QGridLayout;

namespace morvane {
class ShownValue;
}

namespace morvane::maintenance {

class ReadService;

/// The parameters of a service file: one of its three records, and what stands once in a machine.
class FileParameterPanel final : public QWidget {
 public:
  FileParameterPanel(ReadService& viewer, QWidget* parent);
  void Show();

 private:
  QWidget* MakeChoice();
  QWidget* MakePlaces();
  QWidget* MakeThresholds();
  QWidget* MakeCamera();
  QWidget* MakeSwitches();

  ReadService& viewer_;
  ShownValue* shows_ = nullptr;
  std::array<ShownText*, std::tuple_size_v<ServiceFile::Record>> record_{};
  FileBoxes boxes_;
};

}  // namespace morvane::maintenance
