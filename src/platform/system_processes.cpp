#include "platform/system_processes.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace morvane {
namespace {

#ifdef _WIN32

class SystemChild final : public ChildProcess {
 public:
  explicit SystemChild(HANDLE process) : process_(process) {}
  ~SystemChild() override { CloseHandle(process_); }
  SystemChild(const SystemChild&) = delete;
  SystemChild& operator=(const SystemChild&) = delete;
  [[nodiscard]] bool Lives() override { return WaitForSingleObject(process_, 0) == WAIT_TIMEOUT; }

 private:
  HANDLE process_;
};

std::wstring Wide(const std::string& text) {
  const int size =
      MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(size), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), wide.data(), size);
  return wide;
}

#else

class SystemChild final : public ChildProcess {
 public:
  explicit SystemChild(pid_t process) : process_(process) {}
  [[nodiscard]] bool Lives() override {
    if (!gone_) gone_ = waitpid(process_, nullptr, WNOHANG) != 0;
    return !gone_;
  }

 private:
  pid_t process_;
  bool gone_ = false;
};

/// As the system's calls take texts. They stay those of `texts`.
std::vector<char*> Pointers(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

std::string_view NameOf(std::string_view variable) {
  return variable.substr(0, variable.find('='));
}

std::vector<std::string> Environment(const std::vector<std::string>& own) {
  std::vector<std::string> variables = own;
  for (char** variable = environ; *variable != nullptr; ++variable) {
    const bool isReplaced = [&] {
      for (const std::string& mine : own) {
        if (NameOf(mine) == NameOf(*variable)) return true;
      }
      return false;
    }();
    if (!isReplaced) variables.emplace_back(*variable);
  }
  return variables;
}

#endif

}  // namespace

#ifdef _WIN32

StartedProcess SystemProcesses::Start(const ProcessOrder& order) {
  std::wstring line = L"\"" + Wide(order.Path) + L"\"";
  for (const std::string& argument : order.Arguments) line += L" " + Wide(argument);
  for (const std::string& variable : order.Variables) {
    const std::size_t equals = variable.find('=');
    SetEnvironmentVariableW(Wide(variable.substr(0, equals)).c_str(),
                            Wide(variable.substr(equals + 1)).c_str());
  }
  STARTUPINFOW start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION made{};
  if (!CreateProcessW(Wide(order.Path).c_str(), line.data(), nullptr, nullptr, FALSE,
                      CREATE_NO_WINDOW, nullptr, nullptr, &start, &made)) {
    return {nullptr, RuntimeError::Of({static_cast<int>(GetLastError()), std::system_category()})};
  }
  CloseHandle(made.hThread);
  return {std::make_unique<SystemChild>(made.hProcess), std::nullopt};
}

#else

StartedProcess SystemProcesses::Start(const ProcessOrder& order) {
  std::vector<std::string> words{order.Path};
  words.insert(words.end(), order.Arguments.begin(), order.Arguments.end());
  std::vector<std::string> variables = Environment(order.Variables);
  pid_t process = 0;
  const int error = posix_spawn(&process, order.Path.c_str(), nullptr, nullptr,
                                Pointers(words).data(), Pointers(variables).data());
  if (error != 0) return {nullptr, RuntimeError::OfNumber(error)};
  return {std::make_unique<SystemChild>(process), std::nullopt};
}

#endif

}  // namespace morvane
