#pragma once

#include <QByteArray>
#include <QList>

namespace morvane {

/// The program's icon at these sizes as the one file that Windows programs carry.
[[nodiscard]] QByteArray IconIco(const QList<int>& sizes);

}  // namespace morvane
