#pragma once

#include <QImage>
#include <QWidget>
#include <optional>

#include "program/program.h"

class QProgressBar;
class QPushButton;

namespace morvane::maintenance {

class Maintenance;
class MeasurePanel;
class PixelReadOut;
class PixelView;
class RecognitionBench;

/// What the machine's camera sees, and what the machine makes of it.
class PicturePanel final : public QWidget {
 public:
  PicturePanel(Program& program, Maintenance& maintenance, QWidget* parent);
  void Show();
  /// The picture alone has changed, or how far its fetch has come.
  void ShowPicture();
  /// What each poll may change.
  void ShowReadings();

 private:
  QWidget* MakeButtons();
  QWidget* MakeView();
  QWidget* MakeReadOuts();
  QPushButton* Add(const char* name, const char* caption, const char* tip,
                   std::function<void()> press);
  void Press(QPushButton* pressed, void (RecognitionBench::*work)(), QPushButton* then);
  void PointAt(std::optional<QPoint> pixel);
  void ShowPoint();
  void ShowProgress();
  void Save();
  void Copy();
  [[nodiscard]] QImage Picture() const;

  Program& program_;
  Maintenance& maintenance_;
  PixelView* Picture1_ = nullptr;
  QPushButton* Capture_ = nullptr;
  QPushButton* Reco_ = nullptr;
  QPushButton* Showb_ = nullptr;
  QPushButton* Start_draw_ = nullptr;
  QPushButton* AutoSetup_command_ = nullptr;
  QPushButton* Save_picture_ = nullptr;
  QProgressBar* fetched_ = nullptr;
  PixelReadOut* readOut_ = nullptr;
  MeasurePanel* measured_ = nullptr;
  int linesShown_ = 0;           ///< of the fetch that is under way
  std::optional<QPoint> point_;  ///< of the picture, at which the operator is
  bool done_ = false;            ///< what was pressed last has had the machine
};

}  // namespace morvane::maintenance
