#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "program/program.h"
#include "text/number_filter.h"

namespace morvane::shell {

/// The window `Preferences`: the section "Setup" of the settings, which is written when the window
/// closes and not before.
class Preferences {
 public:
  enum class Frame : std::uint8_t { kGenerate, kLoad, kSave, kDeal, kSound };
  /// A check box that is "1" or "0" in the store.
  struct Switch {
    SettingKey Key;
    const char* Control;
    const char* Caption;
    Frame Where;
  };
  static constexpr std::array<Switch, 12> kSwitches{{
      {kNewShapes, "Setup_New_Shapes", "Reject Odd Shapes", Frame::kGenerate},
      {kNewInner, "Setup_New_Inner", "Check Inner Similarity", Frame::kGenerate},
      {kNewHistory, "Setup_New_History", "Check History File", Frame::kGenerate},
      {kLoadAllocation, "Setup_Load_Allocation",
       "Show Board Number Allocation option for BRI, DGE, BRE, DUP and ALL formats", Frame::kLoad},
      {kSaveEvent, "Setup_Save_Event",
       "Show warning about Event Information save for BRI, DGE, DUP, ALL and CSV formats",
       Frame::kSave},
      {kSaveIncomplete, "Setup_Save_Incomplete",
       "Show warning about incomplete boards for PBN and BRE  formats", Frame::kSave},
      {kSaveNumbers, "Setup_Save_Numbers",
       "Show warning about board numbers save for BRI, BRE, DGE, DUP and ALL formats",
       Frame::kSave},
      {kSaveAnalyze, "Setup_Save_Analyze",
       "Save makeable contacts analyze (if available) for PBN format", Frame::kSave},
      {kDealShow, "Show_boards", "Show Boards and Statistics", Frame::kDeal},
      {kDealSub, "Setup_Deal_Sub", "Enable dealing subset of current Board Set", Frame::kDeal},
      {kDealCopy, "Setup_Deal_Copy", "Enable dealing multiple copy of the same board",
       Frame::kDeal},
      {kErrorSound, "Setup_Error_sound", "Play a sound when the machine stops on a fault",
       Frame::kSound},
  }};

  explicit Preferences(Program& program);

  std::string Setup_New_FirstBoard;
  std::string Setup_New_LastBoard;
  std::array<bool, kSwitches.size()> On{};  ///< by `kSwitches`
  int Generator = 2;                        ///< which of `Gen0`, `Gen1`, `Gen2` is set
  int Analyzer = 0;                         ///< 0 `Analize1`, 1 `Analize2`

  /// The boxes after every change by the operator. What the box is to show.
  FilteredBox ChangeFirstBoard(FilteredBox box);
  FilteredBox ChangeLastBoard(FilteredBox box);
  /// The boxes when the focus leaves them. False: the number was refused, and the focus goes back.
  [[nodiscard]] bool LeaveFirstBoard();
  [[nodiscard]] bool LeaveLastBoard();

  /// `Restore`: the defaults of the whole section are written at once and shown, but for
  /// `Deal_Sub`, which stays as it stands: required.
  void Restore();

  /// `Hear`: plays the sound of a fault, whether it is switched on or not.
  void Hear();

  enum class Wrong : std::uint8_t { kNone, kFirstBoard, kLastBoard };
  /// `Exit`, Escape and the close box: writes all and closes. Or the box whose number was refused.
  Wrong Close();
  [[nodiscard]] bool Closed() const { return closed_; }

 private:
  void Read();
  void Write();
  bool Refuse(const std::string& text);

  Program& program_;
  std::string previousFirst_;
  std::string previousLast_;
  bool closed_ = false;
};

/// Brings up the window.
class PreferencesDialog {
 public:
  virtual ~PreferencesDialog() = default;
  /// Shows it modally and returns when it is closed, or the program ends: nothing is written then.
  /// A program without such a window does nothing.
  virtual void ShowPreferences(Preferences& /*preferences*/) {}
};

}  // namespace morvane::shell
