#include <QString>
#include <QSysInfo>
#include <stdexcept>

// Loaded in front of the program's libraries: what a diagnosis asks the system throws.

QString QSysInfo::prettyProductName() { throw std::runtime_error("the system has no name"); }
