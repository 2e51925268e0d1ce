#pragma once

#include <QWidget>
#include <functional>

#include "edit/editor.h"

namespace morvane::edit {

/// `cmdCard` 0..12: a button for each rank. `pressed` is called after each press.
class RankButtons final : public QWidget {
 public:
  RankButtons(Editor& editor, const std::function<void()>& pressed, QWidget* parent);
};

}  // namespace morvane::edit
