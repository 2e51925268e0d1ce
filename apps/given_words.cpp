#include "given_words.h"

#include <QStringDecoder>
#include <algorithm>

namespace morvane {
namespace {

bool IsText(const char* word) {
  // Stateless: a character that is cut off at the end is an error, and not waited for.
  QStringDecoder decoder(QStringDecoder::System, QStringDecoder::Flag::Stateless);
  const QString text = decoder(word);
  return !decoder.hasError();
}

}  // namespace

GivenWords GivenWordsOf(int argc, char** argv) {
  GivenWords given;
  given.AreText = std::all_of(argv, argv + argc, IsText);
  for (int i = 0; i < argc; ++i) given.Words << QString::fromLocal8Bit(argv[i]);
  return given;
}

}  // namespace morvane
