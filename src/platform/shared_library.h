#pragma once

#include <memory>
#include <string>

namespace morvane {

/// A library of the system's that is loaded while the program runs, and let go with this object.
class SharedLibrary {
 public:
  /// Any function of a library; whoever asks for one knows its signature.
  using Function = void (*)();

  /// `name` is a path, or the bare name of a file. That one is looked for where the system keeps
  /// its libraries, on Windows beside the program first, and never in the working directory.
  explicit SharedLibrary(const std::string& name);

  [[nodiscard]] bool IsLoaded() const { return library_ != nullptr; }
  /// Why it is not loaded, in the system's own words where those tell enough.
  [[nodiscard]] const std::string& Trouble() const { return trouble_; }
  /// The function that the library has under this name; null without one.
  [[nodiscard]] Function Find(const char* function) const;

 private:
  struct LetGo {
    void operator()(void* library) const;
  };
  std::unique_ptr<void, LetGo> library_;
  std::string trouble_;
};

}  // namespace morvane
