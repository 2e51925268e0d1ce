#include "shell/help_pages.h"

#include <algorithm>

namespace morvane::shell {

std::string_view PageOnWindow(std::string_view name, std::string_view title) {
  const auto* row =
      std::find_if(kWindowPages.begin(), kWindowPages.end(), [&](const WindowPage& each) {
        return each.Window == name && title.find(each.TitleWord) != std::string_view::npos;
      });
  return row == kWindowPages.end() ? std::string_view() : row->Page;
}

std::string_view PageOnBox(std::string_view caption) {
  const auto* row = std::find_if(kBoxPages.begin(), kBoxPages.end(),
                                 [&](const BoxPage& each) { return each.Caption == caption; });
  return row == kBoxPages.end() ? kBoxesPage : row->Page;
}

}  // namespace morvane::shell
