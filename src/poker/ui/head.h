#pragma once

#include <QWidget>

class QProgressBar;

namespace morvane {
class ShownValue;
}

namespace morvane::machine {
class StateBox;
}

namespace morvane::poker {

class FittedLine;
class Poker;
class StepsPicture;
struct PokerStage;

/// How the work stands, to be read across the room: the state of the machine, `Label1` and
/// `Label3`, the steps, and how far the run is.
class Head final : public QWidget {
 public:
  Head(const Poker& poker, QWidget* parent);
  /// Repaints at once what has changed: a run does not wait for paint events.
  void Show();

 private:
  QLayout* PlaceLines();
  void ShowProgress(const QString& line);
  void ShowRun(const PokerStage& stage);

  const Poker& poker_;
  machine::StateBox* txtStatus_;
  FittedLine* Label1_;
  FittedLine* Label3_;
  ShownValue* lblProgress_;
  QProgressBar* bar_;
  StepsPicture* steps_;
};

}  // namespace morvane::poker
