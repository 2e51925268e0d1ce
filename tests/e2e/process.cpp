#include "e2e/process.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <string_view>

namespace morvane::e2e {
namespace {

using std::chrono::steady_clock;

constexpr std::chrono::seconds kPatience(60);
constexpr int kSliceMs = 10;

/// The test's own environment, but with another home, no folders of the user's, and UTF-8. Of two
/// variables with one name the first counts.
std::vector<std::string> EnvironmentOf(const Surroundings& around) {
  std::vector<std::string> variables = around.Variables;
  variables.insert(variables.end(), {"HOME=" + around.Folder, "LC_ALL=C.UTF-8"});
  for (char** variable = environ; *variable != nullptr; ++variable) {
    const std::string text = *variable;
    if (!text.starts_with("HOME=") && !text.starts_with("LC_ALL=") && !text.starts_with("XDG_")) {
      variables.push_back(text);
    }
  }
  return variables;
}

std::vector<char*> Pointers(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

/// Reads what is there; closes the end when nothing can come any more.
void Drain(const pollfd& ready, int& end, Written& written) {
  if (end < 0 || ready.revents == 0) return;
  std::array<char, 4096> block{};
  const ssize_t got = read(end, block.data(), block.size());
  if (got > 0) {
    written.Raw.append(block.data(), static_cast<std::size_t>(got));
    written.Text = InOurWords(written.Raw);
    return;
  }
  close(end);
  end = -1;
}

}  // namespace

std::string ProgramNamed(const std::string& name) {
  const char* others = std::getenv("MORVANE_PROGRAMS");
  return std::string(others != nullptr ? others : MORVANE_BUILT_PROGRAMS) + "/" + name;
}

bool ForWindows() {
  const char* system = std::getenv("MORVANE_PROGRAMS_OF");
  return system != nullptr && std::string_view(system) == "windows";
}

std::string InOurWords(const std::string& text) {
  if (!ForWindows()) return text;
  std::string ours;
  bool inPath = false;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const std::string_view rest = std::string_view(text).substr(at);
    if (rest.starts_with("\r\n")) continue;
    if (rest.starts_with("Z:\\") || rest.starts_with("Z:/")) {
      inPath = true;
      ++at;
      continue;
    }
    inPath = inPath && std::string_view("\n\"<>|?*:").find(text[at]) == std::string_view::npos;
    ours += inPath && text[at] == '\\' ? '/' : text[at];
  }
  return ours;
}

Process::Process(const std::vector<std::string>& arguments, const Surroundings& around) {
  std::vector<std::string> words{around.Program};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::vector<std::string> variables = EnvironmentOf(around);
  std::array<int, 2> out{};
  std::array<int, 2> err{};
  EXPECT_EQ(pipe2(out.data(), O_CLOEXEC), 0);
  EXPECT_EQ(pipe2(err.data(), O_CLOEXEC), 0);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addchdir_np(&actions, around.Folder.c_str());
  posix_spawn_file_actions_addopen(&actions, 0, around.Input.c_str(), O_RDWR | O_NOCTTY, 0);
  posix_spawn_file_actions_adddup2(&actions, out[1], 1);
  posix_spawn_file_actions_adddup2(&actions, err[1], 2);
  EXPECT_EQ(posix_spawn(&pid_, words.front().c_str(), &actions, nullptr, Pointers(words).data(),
                        Pointers(variables).data()),
            0);
  posix_spawn_file_actions_destroy(&actions);
  close(out[1]);
  close(err[1]);
  outEnd_ = out[0];
  errEnd_ = err[0];
}

void Process::Kill() {
  if (pid_ <= 0) return;
  kill(pid_, SIGKILL);
  Reap();
}

Process::~Process() {
  Kill();
  if (outEnd_ >= 0) close(outEnd_);
  if (errEnd_ >= 0) close(errEnd_);
}

bool Process::TakeIn(int ms) {
  std::array<pollfd, 2> ends{{{outEnd_, POLLIN, 0}, {errEnd_, POLLIN, 0}}};
  poll(ends.data(), ends.size(), ms);
  Drain(ends[0], outEnd_, out_);
  Drain(ends[1], errEnd_, err_);
  return outEnd_ >= 0 || errEnd_ >= 0;
}

bool Process::Until(const std::function<bool()>& condition) {
  const auto end = steady_clock::now() + kPatience;
  while (!condition()) {
    if (!TakeIn(kSliceMs) || steady_clock::now() > end) return condition();
  }
  return true;
}

void Process::Signal(int number) const {
  if (pid_ > 0) kill(pid_, number);
}

Outcome Process::Finish() {
  const auto end = steady_clock::now() + kPatience;
  while (TakeIn(kSliceMs)) {
    if (steady_clock::now() < end) continue;
    ADD_FAILURE() << "the program has not ended; it wrote\n" << Out() << Err();
    kill(pid_, SIGKILL);
    break;
  }
  Reap();
  return {WIFEXITED(status_) ? WEXITSTATUS(status_) : -WTERMSIG(status_), Out(), Err()};
}

void Process::Reap() {
  if (pid_ > 0) waitpid(pid_, &status_, 0);
  pid_ = -1;
}

}  // namespace morvane::e2e
