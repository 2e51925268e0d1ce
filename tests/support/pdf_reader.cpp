#include "support/pdf_reader.h"

#include <gtest/gtest.h>

#include <QRegularExpression>
#include <cstdio>
#include <sstream>

namespace morvane::test {
namespace {

/// What a command of the shell writes; the test fails when it fails.
std::string Output(const std::string& command) {
  std::string text;
  FILE* pipe = popen(command.c_str(), "r");
  if (pipe == nullptr) {
    ADD_FAILURE() << command;
    return text;
  }
  char part[4096];
  for (std::size_t length = 0; (length = fread(part, 1, sizeof part, pipe)) > 0;) {
    text.append(part, length);
  }
  EXPECT_EQ(pclose(pipe), 0) << command;
  return text;
}

}  // namespace

std::string PdfReader::Info(const std::string& row) const {
  std::istringstream rows(Output("pdfinfo '" + file_ + "'"));
  for (std::string line; std::getline(rows, line);) {
    if (line.rfind(row + ":", 0) != 0) continue;
    return line.substr(line.find_first_not_of(' ', row.size() + 1));
  }
  return {};
}

int PdfReader::Pages() const { return std::atoi(Info("Pages").c_str()); }
std::string PdfReader::PageSize() const { return Info("Page size"); }
std::string PdfReader::Title() const { return Info("Title"); }

std::string PdfReader::Run(const std::string& tool, int page) const {
  const std::string number = std::to_string(page);
  return Output(tool + " -f " + number + " -l " + number + " '" + file_ + "' -");
}

std::string PdfReader::Text(int page) const { return Run("pdftotext -layout -nopgbrk", page); }

std::vector<std::string> PdfReader::Words(int page) const {
  std::istringstream text(Text(page));
  std::vector<std::string> words;
  for (std::string word; text >> word;) words.push_back(word);
  return words;
}

std::vector<PdfReader::Word> PdfReader::Places(int page) const {
  static const QRegularExpression kWord(
      R"re(<word xMin="([^"]+)" yMin="([^"]+)" xMax="([^"]+)" yMax="([^"]+)">([^<]*)</word>)re");
  const QString text = QString::fromStdString(Run("pdftotext -bbox", page));
  std::vector<Word> words;
  for (auto found = kWord.globalMatch(text); found.hasNext();) {
    const auto word = found.next();
    const auto number = [&word](int part) { return word.captured(part).toDouble(); };
    words.push_back({word.captured(5).toStdString(), number(1), number(2), number(3), number(4)});
  }
  return words;
}

QImage PdfReader::Picture(int page, int dotsPerInch) const {
  const std::string number = std::to_string(page);
  const std::string bytes = Output("pdftoppm -png -r " + std::to_string(dotsPerInch) + " -f " +
                                   number + " -l " + number + " '" + file_ + "'");
  return QImage::fromData(QByteArray::fromStdString(bytes), "PNG");
}

}  // namespace morvane::test
