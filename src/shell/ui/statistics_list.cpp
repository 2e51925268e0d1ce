#include "shell/ui/statistics_list.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <algorithm>

namespace morvane::shell {
namespace {

constexpr int kTextMargins = 14;  // of a caption in a list header
constexpr int kRowMargins = 3;
constexpr Qt::Alignment kNumbers = Qt::AlignRight | Qt::AlignVCenter;

QString LineOf(const QTreeWidgetItem& row) {
  QStringList cells;
  for (int column = 0; column < row.columnCount(); ++column) cells << row.text(column).trimmed();
  return cells.join('\t');
}

}  // namespace

StatisticsList::StatisticsList(const char* name, const char* tip,
                               std::initializer_list<Column> columns, QWidget* parent)
    : QTreeWidget(parent) {
  setObjectName(name);
  setToolTip(tip);
  setRootIsDecorated(false);
  setUniformRowHeights(true);
  setSelectionMode(ExtendedSelection);
  setTabKeyNavigation(false);
  AddColumns(columns);
  AddCopyEntry();
  setMinimumWidth(header()->length() + 2 * frameWidth() + kTextMargins);
}

void StatisticsList::AddColumns(std::initializer_list<Column> columns) {
  header()->setStretchLastSection(false);
  setColumnCount(static_cast<int>(columns.size()));
  int at = 0;
  for (const Column& column : columns) {
    headerItem()->setText(at, column.Caption);
    if (at > 0) headerItem()->setTextAlignment(at, kNumbers);
    int text = header()->fontMetrics().horizontalAdvance(column.Caption);
    for (const QString& cell : column.Cells) {
      text = std::max(text, fontMetrics().horizontalAdvance(cell));
    }
    setColumnWidth(at++, std::max(column.Width, text + kTextMargins));
  }
}

void StatisticsList::AddCopyEntry() {
  auto* copy = new QAction("&Copy", this);
  copy->setShortcut(QKeySequence::Copy);
  copy->setShortcutContext(Qt::WidgetShortcut);
  connect(copy, &QAction::triggered, this, [this] { Copy(); });
  addAction(copy);
  setContextMenuPolicy(Qt::ActionsContextMenu);
}

void StatisticsList::ShowAtLeast(int rows) {
  const int row = fontMetrics().lineSpacing() + kRowMargins;
  setMinimumHeight(header()->sizeHint().height() + rows * row + 2 * frameWidth());
}

void StatisticsList::Show(const std::vector<QStringList>& rows) {
  if (rows == rows_) return;
  rows_ = rows;
  clear();
  for (const QStringList& row : rows) {
    auto* item = new QTreeWidgetItem(row);
    for (int column = 1; column < columnCount(); ++column) item->setTextAlignment(column, kNumbers);
    addTopLevelItem(item);
  }
}

void StatisticsList::Copy() const {
  const bool all = selectedItems().isEmpty();
  QStringList lines;
  for (int row = 0; row < topLevelItemCount(); ++row) {
    const QTreeWidgetItem& item = *topLevelItem(row);
    if (all || item.isSelected()) lines << LineOf(item);
  }
  if (!lines.isEmpty()) QGuiApplication::clipboard()->setText(lines.join('\n') + '\n');
}

}  // namespace morvane::shell
