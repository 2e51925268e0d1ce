#pragma once

#include <functional>
#include <vector>

#include "model/board_set.h"
#include "platform/canvas.h"
#include "print/print_options.h"

namespace morvane::print {

/// What stands on one sheet: boards by their numbers, or the statistics of all boards printed.
struct Page {
  std::vector<int> Boards;
  bool HasStatistics = false;
  bool operator==(const Page&) const = default;
};

/// The boards `From`..`To` of a set on pages: hand records or score cards, as the options say.
class Document {
 public:
  /// Hand records need a layout (`PerPage` 1..4), and the boards are in the set, which outlives the
  /// document.
  Document(const BoardSet& set, PrintOptions options);

  [[nodiscard]] const std::vector<Page>& Pages() const { return pages_; }
  [[nodiscard]] const PrintOptions& Options() const { return options_; }
  /// Draws all pages, on small paper in proportion. `boardDone` is called behind each board and
  /// says whether to go on; false when it or the canvas has ended it.
  bool Draw(Canvas& page, const std::function<bool()>& boardDone) const;

 private:
  using BoardDone = std::function<bool()>;
  bool DrawRecords(std::size_t index, Canvas& canvas, const BoardDone& boardDone) const;
  bool DrawCards(const Page& page, Canvas& canvas, const BoardDone& boardDone) const;

  const BoardSet& set_;
  PrintOptions options_;
  std::vector<Page> pages_;
};

}  // namespace morvane::print
