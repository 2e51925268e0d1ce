#include "platform/system_processes.h"

#include <algorithm>
#include <atomic>
#include <cwchar>
#include <system_error>
#include <thread>

#ifdef _WIN32
#include <windows.h>

#include "platform/windows/system_error.h"
#include "platform/windows/wide.h"
#else
#include <fcntl.h>
#include <pthread.h>
#include <signal.h>
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
  [[nodiscard]] bool Lives() override { return WaitForSingleObject(process_, 0) != WAIT_OBJECT_0; }

 private:
  HANDLE process_;
};

/// As a program of this system takes its command line apart: a quote, and the backslashes in front
/// of one, have a backslash each.
std::wstring Quoted(const std::wstring& argument) {
  if (!argument.empty() && argument.find_first_of(L" \t\"") == std::wstring::npos) return argument;
  std::wstring quoted = L"\"";
  std::size_t backslashes = 0;
  for (const wchar_t letter : argument) {
    if (letter == L'"') quoted.append(backslashes + 1, L'\\');
    backslashes = letter == L'\\' ? backslashes + 1 : 0;
    quoted += letter;
  }
  return quoted.append(backslashes, L'\\') + L'"';
}

std::wstring_view NameOf(std::wstring_view variable) {
  return variable.substr(0, variable.find(L'=', 1));  // the system's own begin with one
}

int Compare(std::wstring_view one, std::wstring_view other) {
  return CompareStringOrdinal(one.data(), static_cast<int>(one.size()), other.data(),
                              static_cast<int>(other.size()), TRUE);
}

std::vector<std::wstring> OurVariables() {
  std::vector<std::wstring> variables;
  wchar_t* const ours = GetEnvironmentStringsW();
  for (const wchar_t* at = ours; at != nullptr && *at != L'\0'; at += std::wcslen(at) + 1) {
    variables.emplace_back(at);
  }
  if (ours != nullptr) FreeEnvironmentStringsW(ours);
  return variables;
}

/// Our own variables with `own` over them, each ended with a null, and one behind all. The system
/// wants them in the order of their names.
std::wstring Environment(const std::vector<std::string>& own) {
  std::vector<std::wstring> variables;
  for (const std::string& variable : own) variables.push_back(Wide(variable));
  const std::size_t count = variables.size();
  for (std::wstring& variable : OurVariables()) {
    const auto end = variables.begin() + static_cast<std::ptrdiff_t>(count);
    const bool isReplaced = std::any_of(variables.begin(), end, [&](const std::wstring& mine) {
      return Compare(NameOf(mine), NameOf(variable)) == CSTR_EQUAL;
    });
    if (!isReplaced) variables.push_back(std::move(variable));
  }
  std::stable_sort(variables.begin(), variables.end(), [](const auto& one, const auto& other) {
    return Compare(NameOf(one), NameOf(other)) == CSTR_LESS_THAN;
  });
  std::wstring block;
  for (const std::wstring& variable : variables) block.append(variable) += L'\0';
  return block + L'\0';
}

#else

/// Signals are for the threads that are there already: one of them may wait to be woken.
class WithoutSignals {
 public:
  WithoutSignals() {
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before_);
  }
  ~WithoutSignals() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
  WithoutSignals(const WithoutSignals&) = delete;
  WithoutSignals& operator=(const WithoutSignals&) = delete;

 private:
  sigset_t before_{};
};

/// A thread waits for it: otherwise the system would keep what is left of it until somebody asks.
class SystemChild final : public ChildProcess {
 public:
  explicit SystemChild(pid_t process) : process_(process) {
    const WithoutSignals blocked;
    try {
      std::thread([process, gone = gone_] {
        waitpid(process, nullptr, 0);
        *gone = true;
      }).detach();
    } catch (const std::system_error&) {
      asks_ = true;  // there are too many threads
    }
  }
  [[nodiscard]] bool Lives() override {
    if (asks_ && !*gone_) *gone_ = waitpid(process_, nullptr, WNOHANG) != 0;
    return !*gone_;
  }

 private:
  pid_t process_;
  bool asks_ = false;
  std::shared_ptr<std::atomic<bool> > gone_ = std::make_shared<std::atomic<bool> >(false);
};

/// As the system's calls take texts. They stay those of `texts`.
std::vector<char*> Pointers(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  pointers.reserve(texts.size() + 1);
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
    const bool isReplaced = std::any_of(own.begin(), own.end(), [&](const std::string& mine) {
      return NameOf(mine) == NameOf(*variable);
    });
    if (!isReplaced) variables.emplace_back(*variable);
  }
  return variables;
}

/// It has no terminal: it says nothing there, and an interrupt there is not for it. Files of ours,
/// and those that whoever started us had open, are not its own.
struct Hidden {
  static constexpr int kFirstOther = 3;
  Hidden() {
    posix_spawn_file_actions_init(&Files);
    for (const int file : {0, 1, 2}) {
      posix_spawn_file_actions_addopen(&Files, file, "/dev/null", O_RDWR, 0);
    }
#ifdef __GLIBC__
    posix_spawn_file_actions_addclosefrom_np(&Files, kFirstOther);  // it may outlive us
#endif
    posix_spawnattr_init(&Attributes);
    posix_spawnattr_setflags(&Attributes, POSIX_SPAWN_SETPGROUP);
    posix_spawnattr_setpgroup(&Attributes, 0);
  }
  ~Hidden() {
    posix_spawn_file_actions_destroy(&Files);
    posix_spawnattr_destroy(&Attributes);
  }
  Hidden(const Hidden&) = delete;
  Hidden& operator=(const Hidden&) = delete;

  posix_spawn_file_actions_t Files{};
  posix_spawnattr_t Attributes{};
};

#endif

}  // namespace

#ifdef _WIN32

StartedProcess SystemProcesses::Start(const ProcessOrder& order) {
  std::wstring line = Quoted(Wide(order.Path));
  for (const std::string& argument : order.Arguments) line += L" " + Quoted(Wide(argument));
  std::wstring variables = Environment(order.Variables);
  STARTUPINFOW start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION made{};
  if (!CreateProcessW(Wide(order.Path).c_str(), line.data(), nullptr, nullptr, FALSE,
                      CREATE_NO_WINDOW | CREATE_UNICODE_ENVIRONMENT, variables.data(), nullptr,
                      &start, &made)) {
    return {nullptr, LastSystemError()};
  }
  CloseHandle(made.hThread);
  return {std::make_unique<SystemChild>(made.hProcess), std::nullopt};
}

#else

StartedProcess SystemProcesses::Start(const ProcessOrder& order) {
  std::vector<std::string> words{order.Path};
  words.insert(words.end(), order.Arguments.begin(), order.Arguments.end());
  std::vector<std::string> variables = Environment(order.Variables);
  const Hidden hidden;
  pid_t process = 0;
  const int error = posix_spawn(&process, order.Path.c_str(), &hidden.Files, &hidden.Attributes,
                                Pointers(words).data(), Pointers(variables).data());
  if (error != 0) return {nullptr, RuntimeError::OfNumber(error)};
  return {std::make_unique<SystemChild>(process), std::nullopt};
}

#endif

}  // namespace morvane
