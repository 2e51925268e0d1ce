#include "morvane/seen_words.h"

#include <windows.h>

#include <iostream>
#include <sstream>
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

/// A box would keep who logs off waiting.
bool SessionEnds() { return GetSystemMetrics(SM_SHUTTINGDOWN) != 0; }

void ShowInBox(const std::wstring& text) {
  if (!SessionEnds()) MessageBoxW(nullptr, text.c_str(), L"Morvane", MB_OK | MB_SETFOREGROUND);
}

}  // namespace

class SeenWords::Kept {
 public:
  Kept()
      : out_(Keep(STD_OUTPUT_HANDLE, std::cout, text_)),
        error_(Keep(STD_ERROR_HANDLE, std::cerr, text_)) {}
  ~Kept() {
    GiveBack(std::cout, out_);
    GiveBack(std::cerr, error_);
  }
  Kept(const Kept&) = delete;
  Kept& operator=(const Kept&) = delete;

  std::string Take() {
    std::string text = text_.str();
    text_.str("");
    return text;
  }

 private:
  std::ostringstream text_;
  std::streambuf* out_;  ///< of the stream before; null: it is left as it was
  std::streambuf* error_;
};

SeenWords::SeenWords() : kept_(std::make_unique<Kept>()) {}

SeenWords::~SeenWords() { Show(); }

void SeenWords::Show() {
  const std::wstring text = Wide(kept_->Take());
  if (!text.empty() && !ShowOnConsole(text)) ShowInBox(text);
}

}  // namespace morvane
