#pragma once

#include <QImage>
#include <string>
#include <vector>

namespace morvane::test {

/// A PDF file as another program's library reads it: poppler's command line tools.
class PdfReader {
 public:
  explicit PdfReader(std::string file) : file_(std::move(file)) {}

  [[nodiscard]] int Pages() const;
  /// Width and height of the first page in points, as "595.28 x 841.89 pts".
  [[nodiscard]] std::string PageSize() const;
  [[nodiscard]] std::string Title() const;
  /// The text of a page 1.., laid out as on the page.
  [[nodiscard]] std::string Text(int page) const;
  [[nodiscard]] std::vector<std::string> Words(int page) const;

  struct Word {
    std::string Text;
    double Left = 0;  ///< in points from the page's upper left corner
    double Top = 0;
    double Right = 0;
    double Bottom = 0;
  };
  [[nodiscard]] std::vector<Word> Places(int page) const;
  /// The page as a picture, `dotsPerInch` fine.
  [[nodiscard]] QImage Picture(int page, int dotsPerInch) const;

 private:
  [[nodiscard]] std::string Info(const std::string& row) const;
  [[nodiscard]] std::string Run(const std::string& tool, int page) const;

  std::string file_;
};

}  // namespace morvane::test
