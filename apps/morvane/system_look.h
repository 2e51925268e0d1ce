#pragma once

namespace morvane {

/// Has the windows look as the system says, where Qt does not by itself. Before the application is
/// made.
#ifdef _WIN32
void TakeSystemLook();
#else
inline void TakeSystemLook() {}
#endif

}  // namespace morvane
