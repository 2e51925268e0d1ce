#include "platform/shared_library.h"

#ifdef _WIN32
#include <windows.h>

#include "platform/files.h"
#include "platform/paths.h"
#include "platform/windows/system_error.h"
#else
#include <dlfcn.h>
#endif

namespace morvane {

#ifdef _WIN32

namespace {

/// A library of a path finds those that it needs beside itself.
DWORD PlacesFor(const std::string& name) {
  constexpr DWORD kOurs = LOAD_LIBRARY_SEARCH_APPLICATION_DIR | LOAD_LIBRARY_SEARCH_SYSTEM32;
  return IsAbsolutePath(name) ? kOurs | LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR : kOurs;
}

/// The system's own words for these two leave out what was looked for.
std::string WhyNotLoaded(DWORD error) {
  if (error == ERROR_BAD_EXE_FORMAT) return "it is not one for 64 bits, or damaged";
  if (error == ERROR_MOD_NOT_FOUND) return "it, or a library that it needs, is not there";
  return WordsOfSystem(error);
}

}  // namespace

SharedLibrary::SharedLibrary(const std::string& name) {
  const std::filesystem::path path = PathOfUtf8(name);
  library_.reset(LoadLibraryExW(path.c_str(), nullptr, PlacesFor(name)));
  if (IsLoaded()) return;
  trouble_ = WhyNotLoaded(GetLastError());
}

SharedLibrary::Function SharedLibrary::Find(const char* function) const {
  if (!IsLoaded()) return nullptr;
  return reinterpret_cast<Function>(GetProcAddress(static_cast<HMODULE>(library_.get()), function));
}

void SharedLibrary::LetGo::operator()(void* library) const {
  FreeLibrary(static_cast<HMODULE>(library));
}

#else

SharedLibrary::SharedLibrary(const std::string& name)
    : library_(dlopen(name.c_str(), RTLD_NOW | RTLD_LOCAL)) {
  if (IsLoaded()) return;
  const char* const words = dlerror();
  trouble_ = words != nullptr ? words : "unknown error";
}

SharedLibrary::Function SharedLibrary::Find(const char* function) const {
  if (!IsLoaded()) return nullptr;
  return reinterpret_cast<Function>(dlsym(library_.get(), function));
}

void SharedLibrary::LetGo::operator()(void* library) const { dlclose(library); }

#endif

}  // namespace morvane
