#include "shell/ui/recent_entries.h"

#include <QAction>
#include <QMenu>
#include <QScreen>
#include <algorithm>

#include "platform/qt/qt_text.h"
#include "text/printable.h"

namespace morvane::shell {
namespace {

constexpr int kCharacters = 60;

/// The path on one line, without what a menu would take for more than text.
QString Line(const std::string& path) { return ToQt(PrintableLine(path)); }

QString Caption(const QMenu& menu, std::size_t place, const QString& line) {
  const QFontMetrics metrics = menu.fontMetrics();
  const int width = std::min(kCharacters * metrics.averageCharWidth(),
                             menu.screen()->availableGeometry().width() / 2);
  QString path = metrics.elidedText(line, Qt::ElideMiddle, width);
  return "&" + QString::number(place + 1) + " " + path.replace("&", "&&");
}

}  // namespace

RecentEntries::RecentEntries(Shell& shell, QMenu& menu)
    : QObject(&menu), shell_(shell), menu_(menu), above_(menu.addSeparator()) {
  above_->setObjectName("divRecent");
  for (std::size_t place = 0; place < RecentFiles::kMost; ++place) AddEntry(place);
  connect(&menu, &QMenu::aboutToShow, this, &RecentEntries::ShowFiles);
  ShowFiles();
}

void RecentEntries::AddEntry(std::size_t place) {
  QAction* entry = menu_.addAction("");
  entry->setObjectName("menuRecent" + QString::number(place + 1));
  entries_.push_back(entry);
  connect(entry, &QAction::triggered, this, [this, place] {
    const RecentFile file = files_.at(place);  // the list changes meanwhile
    shell_.MenuRecent(file);
  });
}

void RecentEntries::ShowFiles() {
  files_ = shell_.Recent();
  above_->setVisible(!files_.empty());
  for (std::size_t place = 0; place < entries_.size(); ++place) {
    QAction& entry = *entries_[place];
    entry.setVisible(place < files_.size());
    if (!entry.isVisible()) continue;
    const QString line = Line(files_[place].Path);
    entry.setText(Caption(menu_, place, line));
    // Otherwise a name with "<" and ">" could be taken for markup.
    entry.setToolTip("<span>" + line.toHtmlEscaped() + "</span>");
    entry.setStatusTip(line);
  }
}

}  // namespace morvane::shell
