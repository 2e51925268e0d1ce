#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "maintenance/board_calibration_view.h"
#include "maintenance/service_link.h"

namespace morvane::maintenance {

/// The window `Board_calibration` without its looks: lowers the sensitivity of the board switch
/// until it loses the board in the slot, raises it until the board is seen again, and asks whether
/// what follows from that is to be kept. Whoever runs it has the link.
class BoardCalibration {
 public:
  static constexpr int kHighest = 255;
  static constexpr int kLowest = 20;            ///< where the sweep down ends
  static constexpr int kMostRecommended = 200;  ///< a board lost above it is no problem

  enum class Sweep : std::uint8_t { kDown, kUp };
  /// What one trial has shown.
  struct Point {
    int Sensitivity = 0;
    bool Seen = false;
    Sweep Way = Sweep::kDown;
    bool operator==(const Point&) const = default;
  };

  /// `leaving`: the service or the program is to end, which cancels.
  BoardCalibration(Program& program, ServiceLink& link, std::function<bool()> leaving);

  /// Once.
  void Run(BoardCalibrationView& view);
  void Cancel() { cancelRequested_ = true; }

  /// What is to become `Board_Sen`; 0: nothing. While the operator is asked, what is recommended.
  [[nodiscard]] int RecommendedSensitivity() const { return recommendedSensitivity_; }

  // What the window shows.
  [[nodiscard]] int TrialSensitivity() const { return trialSensitivity_; }
  /// Where the sweep down has ended; 0: it has not.
  [[nodiscard]] int SensOn() const { return sensOn_; }
  [[nodiscard]] bool Over() const { return over_; }         ///< both sweeps are
  [[nodiscard]] int Progress() const { return progress_; }  ///< 0 to 100
  [[nodiscard]] const std::vector<Point>& Points() const { return points_; }
  /// The first sensitivity at which the board was not seen going down, and the first at which it
  /// was going up again.
  [[nodiscard]] std::optional<int> LostAt() const { return First(Sweep::kDown, false); }
  [[nodiscard]] std::optional<int> SeenAgainAt() const { return First(Sweep::kUp, true); }
  /// The switch has seen no board at any sensitivity: there may be none.
  [[nodiscard]] bool NeverSeen() const {
    return Over() && LostAt() == kHighest && SeenAgainAt() == std::nullopt;
  }
  [[nodiscard]] const std::string& Label1() const { return label1_; }
  [[nodiscard]] const std::string& Label2() const { return label2_; }
  [[nodiscard]] const std::string& Label3() const { return label3_; }

 private:
  // Each false: cancelled, or the link is lost.
  bool SweepDown(BoardCalibrationView& view);
  bool SweepUp(BoardCalibrationView& view);
  bool Step(Sweep way, BoardCalibrationView& view);

  [[nodiscard]] std::optional<int> First(Sweep way, bool seen) const;
  void TellOutcome();
  [[nodiscard]] bool Ask();

  Program& program_;
  ServiceLink& link_;
  std::function<bool()> leaving_;
  std::vector<Point> points_;
  int trialSensitivity_ = kHighest;
  int boardSeen_ = 1;  ///< as the machine said last: 1 is seen, 0 is not
  int sensOn_ = 0;
  int recommendedSensitivity_ = 0;
  int progress_ = 0;
  std::string label1_;
  std::string label2_;
  std::string label3_;
  bool over_ = false;
  bool cancelRequested_ = false;
};

}  // namespace morvane::maintenance
