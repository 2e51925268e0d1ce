#include "morvane/seen_words.h"

#include <windows.h>

#include <iostream>
#include <string>

#include "platform/windows/handle.h"
#include "platform/windows/wide.h"

namespace morvane {
namespace {

bool IsRead(DWORD stream) { return GetFileType(GetStdHandle(stream)) != FILE_TYPE_UNKNOWN; }

std::streambuf* Keep(DWORD stream, std::ostream& words, std::ostream& kept) {
  return IsRead(stream) ? nullptr : words.rdbuf(kept.rdbuf());
}

void GiveBack(std::ostream& words, std::streambuf* before) {
  if (before != nullptr) words.rdbuf(before);
}

/// In its own characters, whatever its code page is. The prompt stands there already.
bool ShowOnConsole(const std::wstring& text) {
  if (AttachConsole(ATTACH_PARENT_PROCESS) == 0) return false;
  const OpenedHandle console =
      TakeHandle(CreateFileW(L"CONOUT$", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_WRITE, nullptr,
                             OPEN_EXISTING, 0, nullptr));
  const std::wstring below = L"\r\n" + text;
  DWORD written = 0;
  return console != nullptr &&
         WriteConsoleW(console.get(), below.data(), static_cast<DWORD>(below.size()), &written,
                       nullptr) != 0;
}

}  // namespace

SeenWords::SeenWords()
    : out_(Keep(STD_OUTPUT_HANDLE, std::cout, kept_)),
      error_(Keep(STD_ERROR_HANDLE, std::cerr, kept_)) {}

SeenWords::~SeenWords() {
  GiveBack(std::cout, out_);
  GiveBack(std::cerr, error_);
  const std::wstring text = Wide(kept_.str());
  if (text.empty() || ShowOnConsole(text)) return;
  MessageBoxW(nullptr, text.c_str(), L"Morvane", MB_OK | MB_SETFOREGROUND);
}

}  // namespace morvane
