#pragma once

#include <QDialog>
#include <array>

#include "print/hand_record.h"
#include "print/ui/option_controls.h"

class QGridLayout;
class QGroupBox;
class QLabel;
class QProgressBar;
class QPushButton;

namespace morvane {
class FilteredEdit;
class ShownValue;
}  // namespace morvane

namespace morvane::print {

/// The window of a `HandRecord`. It hides when that is closed.
class HandRecordWindow final : public QDialog, public HandRecordView {
 public:
  HandRecordWindow(HandRecord& dialog, QWidget* parent);
  HandRecordWindow(const HandRecordWindow&) = delete;
  HandRecordWindow& operator=(const HandRecordWindow&) = delete;
  ~HandRecordWindow() override;

  void Show() override;
  void ShowProgress() override;
  void Correct(HandRecordBox box) override;

  /// Escape and the close box do what `cmdExit` does.
  void reject() override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* button, QEvent* event) override;

 private:
  using Command = void (HandRecord::*)();

  QWidget* MakeBody();
  QWidget* MakeFrames();
  QWidget* MakeRun();
  QWidget* MakeButtons();
  QGroupBox* MakeModes();
  QGroupBox* MakeBoards();
  QGroupBox* MakeLayouts();
  QGroupBox* MakeLooks();
  QGroupBox* MakeStatistics();
  QGroupBox* MakeTen();
  QGroupBox* MakeNational();
  QGroupBox* MakeScoreCards();
  QGroupBox* AddFrame(const char* name, const char* caption);
  FilteredEdit* AddBox(HandRecordBox which, const char* name, QWidget* parent);
  void AddNumber(QGridLayout& grid, int row, int column, const char* caption, QWidget* box);
  QPushButton* AddButton(const char* name, const char* caption, const char* tip, Command command);
  void ShowPictures();
  void ShowButtons();
  void HideFrames();
  void ShowFrames();

  HandRecord& dialog_;
  OptionControls options_;
  std::array<FilteredEdit*, 5> boxes_{};  ///< by `HandRecordBox`
  QWidget* frames_ = nullptr;
  QWidget* run_ = nullptr;
  QWidget* focus_ = nullptr;  ///< where the focus was when the frames were hidden
  QLabel* lblChoose_ = nullptr;
  ShownValue* lblPrinting_ = nullptr;
  QProgressBar* Printing_progress_ = nullptr;
  QPushButton* cmdPrint_ = nullptr;
  QPushButton* cmdPreview_ = nullptr;
  QPushButton* cmdPdf_ = nullptr;
  QPushButton* cmdPrinterSetup_ = nullptr;
  QPushButton* cmdExit_ = nullptr;
};

}  // namespace morvane::print
