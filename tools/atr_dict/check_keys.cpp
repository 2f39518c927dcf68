// Keys beside each other.
#include <unordered_map>

#include "checks.h"
#include "messages.h"
#include "nearest_key.h"

namespace dict {

namespace {

using Seen = std::unordered_map<std::string_view, Entry const*>;

void checkDuplicate(Findings& findings, Entry const& before, Entry const& entry) {
  int const line = findings.dictionary().lineOf(before).number;
  if (before.text == entry.text) {
    findings.add(Rule::repeatedEntry, entry.rawKey.data(), say("line %d has the same entry", line),
                 say("delete one of them"));
  } else {
    findings.add(Rule::duplicateKey, entry.rawKey.data(),
                 say("line %d gives this key another text; this line wins", line),
                 say("delete one of them, or tell the keys apart by a tail"));
  }
}

}  // namespace

void checkKeys(Findings& findings) {
  auto const& entries = findings.dictionary().entries;
  Seen seen;
  std::unordered_map<std::string, Entry const*> similar;
  seen.reserve(entries.size());
  similar.reserve(entries.size());
  for (Entry const& entry : entries) {
    if (entry.fate != Fate::stored) continue;
    auto const [place, isNew] = seen.try_emplace(entry.key, &entry);
    if (!isNew) {
      checkDuplicate(findings, *place->second, entry);
      place->second = &entry;
      continue;
    }
    auto const [near, isAlone] = similar.try_emplace(folded(entry.key), &entry);
    if (isAlone) continue;
    findings.add(Rule::similarKey, entry.rawKey.data(),
                 say("the key on line %d differs by blanks or case alone",
                     findings.dictionary().lineOf(*near->second).number));
  }
}

}  // namespace dict
