#include "morvane_cli/console_words.h"

#include <windows.h>

#include <iostream>
#include <string>

#include "platform/windows/wide.h"

namespace morvane {
namespace {

/// How much of `text` is whole characters.
std::size_t WholePart(const std::string& text) {
  std::size_t start = text.size();
  while (start > 0 && text.size() - start < 4) {
    const auto lead = static_cast<unsigned char>(text[--start]);
    if (lead < 0x80) return text.size();
    if (lead < 0xC0) continue;
    const std::size_t size = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    return text.size() - start < size ? start : text.size();
  }
  return text.size();
}

/// Words for a console, which it gets in UTF-16 when they are flushed.
class ConsoleBuffer final : public std::streambuf {
 public:
  explicit ConsoleBuffer(HANDLE console) : console_(console) {}

 protected:
  std::streamsize xsputn(const char* text, std::streamsize size) override {
    kept_.append(text, static_cast<std::size_t>(size));
    return size;
  }
  int_type overflow(int_type character) override {
    if (!traits_type::eq_int_type(character, traits_type::eof())) {
      kept_ += traits_type::to_char_type(character);
    }
    return traits_type::not_eof(character);
  }
  int sync() override {
    const std::size_t whole = WholePart(kept_);
    const std::wstring words = Wide(std::string_view(kept_).substr(0, whole));
    kept_.erase(0, whole);
    return Write(words) ? 0 : -1;
  }

 private:
  /// Some consoles take no more than a part at once.
  [[nodiscard]] bool Write(std::wstring_view words) const {
    while (!words.empty()) {
      DWORD written = 0;
      if (WriteConsoleW(console_, words.data(), static_cast<DWORD>(words.size()), &written,
                        nullptr) == 0 ||
          written == 0) {
        return false;
      }
      words.remove_prefix(written);
    }
    return true;
  }

  HANDLE console_;
  std::string kept_;
};

std::unique_ptr<std::streambuf> BufferOf(DWORD stream) {
  const HANDLE handle = GetStdHandle(stream);
  DWORD mode = 0;
  if (GetConsoleMode(handle, &mode) == 0) return nullptr;
  return std::make_unique<ConsoleBuffer>(handle);
}

std::streambuf* Put(std::ostream& words, std::streambuf* buffer) {
  return buffer == nullptr ? nullptr : words.rdbuf(buffer);
}

void GiveBack(std::ostream& words, std::streambuf* before) {
  if (before == nullptr) return;
  words.flush();
  words.rdbuf(before);
}

}  // namespace

ConsoleWords::ConsoleWords()
    : out_(BufferOf(STD_OUTPUT_HANDLE)),
      error_(BufferOf(STD_ERROR_HANDLE)),
      outBefore_(Put(std::cout, out_.get())),
      errorBefore_(Put(std::cerr, error_.get())) {}

ConsoleWords::~ConsoleWords() {
  GiveBack(std::cout, outBefore_);
  GiveBack(std::cerr, errorBefore_);
}

}  // namespace morvane
