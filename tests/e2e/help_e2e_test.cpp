#include "e2e/e2e_fixture.h"

// What the programs say of themselves, where nobody can read it.

namespace morvane::e2e {
namespace {

struct Asked {
  std::string Program;
  int Failed;  ///< its exit status for what could not be done
};

class HelpEndToEnd : public EndToEnd {
 protected:
  /// Of those that there are here.
  [[nodiscard]] static std::vector<Asked> Programs() {
    std::vector<Asked> programs{{"morvane-cli", 1}, {"morvane", 4}};
    if (!ForWindows()) programs.push_back({"morvane-machine", 1});
    return programs;
  }
  [[nodiscard]] Outcome IntoFull(const std::string& program, const std::string& word) const {
    return Process({"-c", "exec " + ProgramNamed(program) + " " + word + " > /dev/full"},
                   {.Folder = folder.Path(), .Program = "/bin/sh"})
        .Finish();
  }
};

TEST_F(HelpEndToEnd, WhatCannotBeWrittenIsToldAndNoSuccess) {
  for (const Asked& asked : Programs()) {
    for (const char* word : {"help", "--help", "--version"}) {
      if (asked.Program == "morvane-machine" && std::string(word) == "help") continue;
      const Outcome outcome = IntoFull(asked.Program, word);
      EXPECT_EQ(outcome.Status, asked.Failed) << asked.Program << " " << word;
      EXPECT_EQ(outcome.Err, asked.Program + ": standard output cannot be written\n");
    }
  }
}

}  // namespace
}  // namespace morvane::e2e
