#pragma once

#include "machine/board_run.h"
#include "machine/ui/board_picture.h"
#include "machine/ui/run_dialog.h"

class QLayout;
class QPushButton;

namespace morvane {
class ShownText;
}

namespace morvane::machine {

class CopiesBox;
class DealButtons;
class HistoryBox;
class OptionsPanel;
class ReadModes;
class RunHeader;
class SubRangeBox;
class TestPanel;
class WalkButtons;

/// The window of a run that deals or reads boards, put together from its parts.
class DealinProg final : public RunDialog {
 public:
  DealinProg(Program& program, BoardRun& run, QWidget* parent);
  DealinProg(const DealinProg&) = delete;
  DealinProg& operator=(const DealinProg&) = delete;
  ~DealinProg() override;

  void ShowState() override;
  void ShowBoard() override;
  void ShowControls() override;
  void FocusNext() override;
  [[nodiscard]] std::optional<RangeTexts> Range() const override;

 private:
  void MakeParts();
  void PlaceParts();
  QLayout* PlaceBoardSide();
  QLayout* PlaceSettingsSide();
  QLayout* PlaceFile();
  QWidget* PlaceCommands();
  [[nodiscard]] BoardPicture::Fallen Fallen() const;

  BoardRun& run_;

  RunHeader* header_ = nullptr;
  BoardPicture* Picture1_ = nullptr;
  DealButtons* dealing_ = nullptr;
  WalkButtons* walk_ = nullptr;
  CopiesBox* copies_ = nullptr;
  SubRangeBox* subRange_ = nullptr;
  HistoryBox* history_ = nullptr;
  ReadModes* readModes_ = nullptr;  ///< only where boards are read
  ShownText* txtFile_ = nullptr;
  OptionsPanel* options_ = nullptr;
  QWidget* settings_ = nullptr;  ///< what depends on the machine, and scrolls
  QPushButton* Disp_boards_ = nullptr;
  TestPanel* test_ = nullptr;
};

}  // namespace morvane::machine
