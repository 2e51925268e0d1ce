#pragma once

#include <QStringList>
#include <QTreeWidget>
#include <initializer_list>
#include <vector>

namespace morvane::shell {

/// A list of figures: a name in the first column, numbers in the others. Its rows can be selected
/// and copied as lines with tabs between the cells.
class StatisticsList final : public QTreeWidget {
 public:
  struct Column {
    const char* Caption;
    int Width;          ///< a column in which caption or cells would be cut is wider
    QStringList Cells;  ///< those among which the widest is
  };
  StatisticsList(const char* name, const char* tip, std::initializer_list<Column> columns,
                 QWidget* parent);

  /// So many rows are in sight without scrolling.
  void ShowAtLeast(int rows);
  /// What is selected stays so when nothing has changed.
  void Show(const std::vector<QStringList>& rows);
  /// The selected rows, or all when none is.
  void Copy() const;

 private:
  void AddColumns(std::initializer_list<Column> columns);
  void AddCopyEntry();

  std::vector<QStringList> rows_;
};

}  // namespace morvane::shell
