#include "seen_words.h"

namespace morvane {

class SeenWords::Kept {};

SeenWords::SeenWords() = default;
SeenWords::~SeenWords() = default;
void SeenWords::Show() {}

}  // namespace morvane
