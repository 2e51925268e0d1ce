#pragma once

#include <QDialog>
#include <functional>
#include <optional>

#include "machine/dealing_run.h"
#include "machine/run_view.h"
#include "program/program.h"

class QCheckBox;
class QLabel;
class QLayout;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace morvane {
class NumberEdit;
}

namespace morvane::machine {

class BoardPicture;
class CardOptions;
class PocketGauge;

/// The window of a dealing run. Made in dealin_prog_layout.cpp.
class DealinProg final : public QDialog, public RunView {
 public:
  DealinProg(Program& program, DealingRun& run, QWidget* parent);
  DealinProg(const DealinProg&) = delete;
  DealinProg& operator=(const DealinProg&) = delete;
  ~DealinProg() override;

  void ShowState() override;
  void ShowBoard() override;
  void ShowControls() override;
  void FocusDealNext() override;
  void ShowError(ErrorDialog& dialog) override;
  void Close() override;

  /// Escape must not end a run.
  void reject() override {}

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void MakeControls();
  QPushButton* AddButton(const char* name, const char* caption, std::function<void()> press);
  QPushButton* AddWalkButton(const char* name, const char* caption, const char* tip,
                             std::function<void()> press);
  QCheckBox* AddCheckBox(const char* name, const char* caption, void (RunOptions::*set)(bool));
  NumberEdit* AddNumberBox(const char* name, const char* tip, int limit);
  QLayout* MakeHeader();
  QLayout* MakeBoardSide();
  QWidget* MakeCopies();
  QWidget* MakeSubRange();
  QLayout* MakeSettingsSide();
  QLayout* MakeCommands();
  void ConnectNumberBoxes();

  [[nodiscard]] const char* Progress() const;
  [[nodiscard]] std::optional<int> CountOf(int hand) const;
  void ShowNumbers();
  void ShowCounts();

  Program& program_;
  DealingRun& run_;

  QLabel* txtStatus_ = nullptr;
  QLabel* txtDealTime_ = nullptr;
  QLabel* lblProgress_ = nullptr;
  QLineEdit* txtFile_ = nullptr;
  BoardPicture* Picture1_ = nullptr;
  std::array<PocketGauge*, kHands + 1> pockets_{};
  QPushButton* cmdFirst_ = nullptr;
  QPushButton* cmdPrev_ = nullptr;
  QPushButton* cmdNext_ = nullptr;
  QPushButton* cmdLast_ = nullptr;
  QPushButton* cmdDeal_ = nullptr;
  QPushButton* Deal_next_ = nullptr;
  QPushButton* cmdBreak_ = nullptr;
  QPushButton* cmdExit_ = nullptr;
  QPushButton* Disp_boards_ = nullptr;
  QPushButton* PrevCopy_ = nullptr;
  QPushButton* NextCopy_ = nullptr;
  NumberEdit* NumberCopies_ = nullptr;
  NumberEdit* Subfrom_ = nullptr;
  NumberEdit* Subto_ = nullptr;
  QLabel* Subfirst_ = nullptr;
  QLabel* Sublast_ = nullptr;
  QWidget* copies_ = nullptr;
  QWidget* subRange_ = nullptr;
  CardOptions* cards_ = nullptr;
  QCheckBox* Start_from_box_ = nullptr;
  QCheckBox* Check_board_ = nullptr;
  QPushButton* Command1_ = nullptr;
  QPlainTextEdit* TestText_ = nullptr;
};

}  // namespace morvane::machine
