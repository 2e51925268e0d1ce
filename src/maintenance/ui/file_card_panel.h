#pragma once

#include <QWidget>

#include "maintenance/ui/file_boxes.h"

namespace morvane::maintenance {

class OptionGroup;
class ReadService;

/// What a service file tells of the last card, and of the cards that the machine was set up for.
class FileCardPanel final : public QWidget {
 public:
  FileCardPanel(const ReadService& viewer, QWidget* parent);
  void Show();

 private:
  QWidget* MakeVerdict();
  QWidget* MakeMeasures();
  [[nodiscard]] OptionGroup* KeptReadOnly(OptionGroup* group) const;

  const ReadService& viewer_;
  FileBoxes boxes_;
  OptionGroup* index_ = nullptr;
  OptionGroup* national_ = nullptr;
  OptionGroup* cardType_ = nullptr;
  OptionGroup* threshold_ = nullptr;
};

}  // namespace morvane::maintenance
