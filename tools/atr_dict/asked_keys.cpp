#include "asked_keys.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "checks.h"
#include "files.h"
#include "messages.h"
#include "plural.h"
#include "po_file.h"

namespace dict {

namespace {

std::vector<AskedKey> readList(std::string const& path) {
  std::string const bytes = readFile(path);
  std::string_view rest = bytes;
  std::vector<AskedKey> keys;
  while (!rest.empty()) {
    std::size_t const end = std::min(rest.find('\n'), rest.size());
    std::string_view const line = rest.substr(0, end);
    std::string_view const key = line.substr(0, line.find_first_of("\t\r"));
    if (!key.empty()) keys.push_back({decodeEscapes(key), ""});
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return keys;
}

}  // namespace

std::vector<AskedKey> readAskedKeys(std::string const& path) {
  bool const isPo = path.ends_with(".pot") || path.ends_with(".po");
  return isPo ? readPoKeys(path) : readList(path);
}

namespace {

// The forms that the dictionary has of each source.
using FormsBySource = std::unordered_map<std::string_view, std::vector<std::string_view>>;

FormsBySource formsBySource(std::vector<PluralSource> const& sources) {
  FormsBySource forms;
  for (PluralSource const& source : sources) {
    for (auto const& [index, entry] : source.entries) forms[source.text].push_back(entry->key);
  }
  return forms;
}

}  // namespace

std::vector<std::string> expanded(std::vector<AskedKey> const& asked, Dictionary const& d) {
  PluralForms const forms = formsOf(ruleOf(d)).value_or(*formsOf("n != 1"));
  FormsBySource const inDictionary = formsBySource(pluralSources(d));
  std::vector<std::string> keys;
  for (AskedKey const& each : asked) {
    auto const form = pluralKey(each.key);
    auto const has = form ? inDictionary.find(form->source) : inDictionary.end();
    if (!each.others.empty()) {
      keys.push_back(pluralKeyOf(each.key, forms.ofOne));
      for (int const index : forms.ofOthers) keys.push_back(pluralKeyOf(each.others, index));
    } else if (has != inDictionary.end()) {
      keys.insert(keys.end(), has->second.begin(), has->second.end());
    } else if (each.key != kPluralRuleKey) {
      keys.push_back(each.key);
    }
  }
  return keys;
}

std::vector<std::string> keysOf(Dictionary const& d) {
  std::vector<std::string> keys;
  for (Entry const& entry : d.entries) {
    bool const isLive = entry.fate == Fate::stored && !entry.isShadowed;
    if (isLive && entry.key != kPluralRuleKey) keys.emplace_back(entry.key);
  }
  return keys;
}

void checkAsked(Findings& findings, std::vector<std::string> const& asked) {
  Dictionary const& d = findings.dictionary();
  std::unordered_set<std::string_view> const wanted(asked.begin(), asked.end());
  std::unordered_set<std::string_view> has;
  for (Entry const& entry : d.entries) {
    if (entry.fate != Fate::stored || entry.isShadowed || entry.key == kPluralRuleKey) continue;
    has.insert(entry.key);
    if (wanted.contains(entry.key)) continue;
    findings.add(Rule::unusedKey, entry.rawKey.data(), say("nobody asks for this key"));
  }
  for (std::string const& key : asked) {
    if (!has.insert(key).second) continue;  // each once
    findings.addToFile(Rule::missingKey, say("the key \"%s\" is not there", toLocale(key)));
  }
}

}  // namespace dict
