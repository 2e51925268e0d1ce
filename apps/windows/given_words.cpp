#include "given_words.h"

#include <windows.h>
// Behind the system's own header.
#include <shellapi.h>

#include <memory>
#include <string_view>

#include "platform/windows/wide.h"
#include "windows/typed_line.h"

namespace morvane {
namespace {

struct Free {
  void operator()(wchar_t** words) const { LocalFree(static_cast<HLOCAL>(words)); }
};

QStringList WordsOf(const std::wstring& line) {
  int count = 0;
  const std::unique_ptr<wchar_t*, Free> words(CommandLineToArgvW(line.c_str(), &count));
  QStringList result;
  for (int i = 0; words != nullptr && i < count; ++i) {
    result << QString::fromWCharArray(words.get()[i]);
  }
  return result;
}

/// The program's name ends at its second quote, or at a blank where it has none.
std::wstring_view BehindTheName(std::wstring_view line) {
  const bool quoted = line.starts_with(L'"');
  const std::size_t end = quoted ? line.find(L'"', 1) : line.find_first_of(L" \t");
  if (end == std::wstring_view::npos) return {};
  line.remove_prefix(quoted ? end + 1 : end);
  const std::size_t typed = line.find_first_not_of(L" \t");
  return typed == std::wstring_view::npos ? std::wstring_view() : line.substr(typed);
}

}  // namespace

GivenWords GivenWordsOfLine(const std::wstring& line) {
  GivenWords given;
  given.AreText = QString::fromStdWString(line).isValidUtf16();
  given.Words = WordsOf(line);
  given.Typed = Utf8(BehindTheName(line));
  return given;
}

/// The words of the C library are in the code page, which may lack their characters.
GivenWords GivenWordsOf(int /*argc*/, char** /*argv*/) {
  return GivenWordsOfLine(GetCommandLineW());
}

}  // namespace morvane
