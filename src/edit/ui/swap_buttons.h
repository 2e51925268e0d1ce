#pragma once

#include <QGroupBox>

#include "edit/editor.h"

namespace morvane::edit {

/// `cmdSwap` 0..7, each where the hands that it exchanges sit.
class SwapButtons final : public QGroupBox {
 public:
  SwapButtons(Editor& editor, QWidget* parent);
};

}  // namespace morvane::edit
