#pragma once

#include <iosfwd>
#include <optional>
#include <string>

namespace morvane {

/// Standard input and output as a person at a terminal, or a script, sees them.
class Terminal {
 public:
  virtual ~Terminal() = default;
  virtual void Out(const std::string& text) = 0;
  virtual void Error(const std::string& text) = 0;
  /// Whether there is somebody to answer a question.
  [[nodiscard]] virtual bool CanAsk() const = 0;
  /// Whether a line may be written over and over.
  [[nodiscard]] virtual bool ShowsProgress() const = 0;
  /// The next line of input, waiting for it; nothing at the end of the input.
  virtual std::optional<std::string> ReadLine() = 0;
  /// The same, but nothing also when there is no line yet.
  virtual std::optional<std::string> ReadLineIfAny() = 0;
  /// The last read found the end of the input: there will be no more lines.
  [[nodiscard]] virtual bool InputEnded() const = 0;
};

class StandardTerminal final : public Terminal {
 public:
  void Out(const std::string& text) override;
  void Error(const std::string& text) override;
  [[nodiscard]] bool CanAsk() const override;
  [[nodiscard]] bool ShowsProgress() const override;
  std::optional<std::string> ReadLine() override;
  std::optional<std::string> ReadLineIfAny() override;
  [[nodiscard]] bool InputEnded() const override { return ended_; }

 private:
  bool ended_ = false;
};

}  // namespace morvane
