#include "audit/fingerprint.h"

#include <algorithm>
#include <vector>

namespace morvane::audit {

std::string SetFingerprint(std::span<const LoggedRecord> records) {
  std::vector<const LoggedRecord*> rising;
  for (const LoggedRecord& record : records) rising.push_back(&record);
  std::sort(rising.begin(), rising.end(),
            [](const LoggedRecord* a, const LoggedRecord* b) { return a->Number < b->Number; });
  generate::FingerprintText text;
  for (const LoggedRecord* record : rising) text.Add(record->Number, record->Hands());
  return text.Sha256();
}

}  // namespace morvane::audit
