#pragma once

#include <string>
#include <string_view>

#include "platform/desktop.h"
#include "program/program.h"

namespace morvane::shell {

/// The guide: pages in a folder of their own, which the user's browser shows.
class Guide {
 public:
  Guide(Program& program, Desktop& desktop) : program_(program), desktop_(desktop) {}

  /// Shows a page and says in the status where it is, or says in a box why that is not possible. It
  /// holds up nobody, and no flow: a machine may be dealing meanwhile.
  void Open(std::string_view page);

  /// The box that `Open` may bring up; no page tells more of it.
  static constexpr const char* kCaption = "Guide";

 private:
  /// The first of the places that has the guide; where an installation has it if none does.
  [[nodiscard]] std::string Folder() const;
  void Tell(const std::string& text);

  Program& program_;
  Desktop& desktop_;
};

}  // namespace morvane::shell
