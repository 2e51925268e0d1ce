#include "platform/console/terminal.h"

#include <iostream>

#ifdef _WIN32
#include <conio.h>
#include <io.h>
#include <windows.h>
#else
#include <poll.h>
#include <unistd.h>
#endif

namespace morvane {
namespace {

#ifdef _WIN32
/// To `_isatty` the null device is one too, of which nothing ever comes.
bool IsTerminal(int file) {
  DWORD mode = 0;
  return GetConsoleMode(reinterpret_cast<HANDLE>(_get_osfhandle(file)), &mode) != 0;
}
bool LineWaits() { return _kbhit() != 0; }
#else
bool IsTerminal(int file) { return isatty(file) == 1; }
bool LineWaits() {
  pollfd input{0, POLLIN, 0};
  return poll(&input, 1, 0) == 1;
}
#endif

}  // namespace

void StandardTerminal::Out(const std::string& text) { std::cout << text << std::flush; }
void StandardTerminal::Error(const std::string& text) { std::cerr << text << std::flush; }
bool StandardTerminal::CanAsk() const { return IsTerminal(0); }
bool StandardTerminal::ShowsProgress() const { return IsTerminal(1); }

std::optional<std::string> StandardTerminal::ReadLine() {
  std::string line;
  if (std::getline(std::cin, line)) return line;
  ended_ = std::cin.eof();
  std::cin.clear();  // a read that a signal interrupted does not end the input
  return std::nullopt;
}

std::optional<std::string> StandardTerminal::ReadLineIfAny() {
  return LineWaits() ? ReadLine() : std::nullopt;
}

}  // namespace morvane
