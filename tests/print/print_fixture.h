#pragma once

#include <gtest/gtest.h>

#include "print/document.h"
#include "support/fakes.h"

namespace morvane::print {

/// A set and what is printed of it, on paper that is looked at.
class PrintTest : public ::testing::Test {
 protected:
  PrintTest() {
    options.PerPage = 2;
    options.Header = "Autumn Teams";
  }
  /// Boards `first`..`last`, each with the cards going round, and all printed.
  void Boards(int first, int last) {
    test::FillSet(set, first, last);
    options.From = first;
    options.To = last;
  }
  [[nodiscard]] Document TheDocument() const { return {set, options}; }
  const test::DrawnPage& DrawFirst() {
    canvas.Begin();
    EXPECT_TRUE(TheDocument().Draw(canvas, [] { return true; }));
    return canvas.Pages.front();
  }

  BoardSet set;
  PrintOptions options;
  test::RecordingCanvas canvas;
};

}  // namespace morvane::print
