#pragma once

#include <QGroupBox>
#include <array>

namespace morvane {
class ShownValue;
}

namespace morvane::maintenance {

class RecognitionBench;

/// What the machine has measured in the last picture, and which card is expected next.
class MeasurePanel final : public QGroupBox {
 public:
  static constexpr std::size_t kTexts = 7;
  MeasurePanel(RecognitionBench& bench, QWidget* parent);
  void Show();

 private:
  struct Hold {
    const char* Name;
    const char* Caption;
    const char* Spoken;
  };
  void AddHold(const Hold& hold, std::string& text, int column);

  RecognitionBench& bench_;
  std::array<ShownValue*, kTexts> texts_{};
};

}  // namespace morvane::maintenance
