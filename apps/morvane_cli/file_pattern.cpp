#include "morvane_cli/file_pattern.h"

#include <QRegularExpression>
#include <QStringList>
#include <algorithm>
#include <filesystem>

#include "platform/files.h"
#include "platform/utf8_of_path.h"

namespace morvane {
namespace {

namespace fs = std::filesystem;

QRegularExpression ExpressionOf(const QString& pattern) {
  QString text = QRegularExpression::escape(pattern);
  text.replace("\\*", ".*").replace("\\?", ".");
  return QRegularExpression(
      QRegularExpression::anchoredPattern(text),
      QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
}

/// The names of the files in `folder`.
QStringList NamesIn(const fs::path& folder) {
  QStringList names;
  std::error_code failure;
  fs::directory_iterator entry(folder.empty() ? fs::path(".") : folder, failure);
  for (; !failure && entry != fs::directory_iterator(); entry.increment(failure)) {
    std::error_code none;
    if (entry->is_directory(none)) continue;
    names << QString::fromStdString(Utf8OfPath(entry->path().filename()));
  }
  return names;
}

}  // namespace

std::vector<std::string> FilesThatFit(const std::string& pattern) {
  if (pattern.find_first_of("*?") == std::string::npos) return {pattern};
  const fs::path path = PathOfUtf8(pattern);
  const QString name = QString::fromStdString(Utf8OfPath(path.filename()));
  QStringList names = NamesIn(path.parent_path()).filter(ExpressionOf(name));
  if (names.isEmpty()) return {pattern};
  names.sort();
  std::stable_sort(names.begin(), names.end(), [](const QString& one, const QString& other) {
    return one.compare(other, Qt::CaseInsensitive) < 0;
  });
  std::vector<std::string> files;
  for (const QString& each : names) {
    files.push_back(Utf8OfPath(path.parent_path() / PathOfUtf8(each.toStdString())));
  }
  return files;
}

}  // namespace morvane
