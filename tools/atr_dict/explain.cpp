// `atr-dict explain`: does the real start in the caller's environment and tells the story.
//
// The process has one table. The tool's own messages leave it for the start, of which everything is
// kept as facts; then they come back, and the story is told in them.
#include "explain.h"
#include <algorithm>

#include "messages.h"  // its strings of the library have to know the standard ones from the start

#include <clocale>

#include "atr/frame/lifecycle.h"
#include "atr/strings/working_string.h"
#include "atr/translation/locale_selection.h"
#include "atr/translation/message_lookup.h"
#include "atr/translation/translation.h"
#include "atr/translation/translation_table.h"
#include "commands.h"
#include "entry_text.h"
#include "failure.h"
#include "files.h"
#include "nearest_key.h"
#include "system.h"
#include "variables.h"

namespace dict {

namespace {

// --- the start --------------------------------------------------------------------------------

class Recorder : public atr::SelectionWatch {
 public:
  explicit Recorder(StartFacts& facts) : facts_(facts) {}

  void onMode(bool isTranslated, char const* dictionary) override {
    facts_.isTranslated = isTranslated;
    facts_.relativePath = dictionary;
  }
  void onLocale(int category, char const* name, char const* answer) override {
    char const* const shown = category == LC_ALL     ? "LC_ALL"
                              : category == LC_CTYPE ? "LC_CTYPE"
                                                     : "LC_NUMERIC";
    facts_.locales.push_back({shown, name, answer != nullptr ? answer : "", answer != nullptr});
  }
  void onCandidate(char const* path, bool isOpened) override {
    facts_.candidates.push_back({path, system::whyNotOpened(path), isOpened});
  }

 private:
  StartFacts& facts_;
};

// Looks a key up in the real table, which is built.
KeyFacts lookUp(std::string const& key) {
  KeyFacts facts;
  facts.key = key;
  facts.isInTable = atr_trTable.find(key).data() != nullptr;
  atr::MessageText const message = atr_LookupMessage(key.c_str());
  facts.isReencoded = message.encodedBytes > 0;
  facts.isTailCut = !facts.isInTable && message.bytes < key.size();
  facts.text = atr_raw(key.c_str()).c_str();
  return facts;
}

}  // namespace

bool CandidateFact::isAbsent() const { return isOpened || reason == system::absence(); }

std::string dictionaryOfTheCaller() {
  atr::SelectionWatch nobody;
  int starts = 0;
  atr_initialize(starts);
  atr_StringBasePrv path;
  bool const isFound = atr::selectDictionary(&path, nobody);
  std::string result = isFound ? path.c_str() : "";
  atr_finalize(starts);
  return result;
}

StartFacts startAsTheCaller(std::vector<std::string> const& keys) {
  StartFacts facts;
  facts.supported = variable("ZELTRA_SUPPORTED_LOCALE");
  facts.dictionary = variable("ZELTRA_TRANSLATION_DICTIONARY");
  facts.language = variable("ZELTRA_LANG");
  facts.searchPath = variable("ZEL_PATH");
  Recorder recorder(facts);
  int starts = 0;
  atr_initialize(starts);
  atr_StringBasePrv path;
  if (atr::selectDictionary(&path, recorder)) facts.found = path.c_str();
  atr_tr_enable(true);
  facts.entries = std::max(atr_trTable.count, 0);
  facts.characterType = std::setlocale(LC_CTYPE, nullptr);
  facts.codeset = system::codeset();
  facts.longestCharacter = static_cast<int>(MB_CUR_MAX);
  for (std::string const& key : keys) facts.keys.push_back(lookUp(key));
  atr_tr_enable(false);
  atr_finalize(starts);
  return facts;
}

namespace {

// --- the story --------------------------------------------------------------------------------

void line(std::string const& text) { print(text + "\n"); }

class Story {
 public:
  Story(StartFacts const& facts, Dictionary const* dictionary)
      : facts_(facts), dictionary_(dictionary) {}

  void tellMode() const;
  void tellLocales() const;
  void tellSearch();
  void tellEntries();
  void tellKey(KeyFacts const& key);
  void tellHints();
  bool hasHints() const { return !hints_.empty(); }

 private:
  void tellOrigin(KeyFacts const& key) const;
  void hintMode();
  void hintSearch();
  void hintLocale();
  void hint(std::string text) { hints_.push_back(std::move(text)); }

  StartFacts const& facts_;
  Dictionary const* dictionary_;
  std::vector<std::string> hints_;
};

std::string shown(std::optional<std::string> const& value) {
  return value ? "\"" + *value + "\"" : say("not set");
}

void Story::tellMode() const {
  line(say("mode: %s", facts_.isTranslated ? say("translated") : say("default")));
  line(say("  %s: %s", "ZELTRA_SUPPORTED_LOCALE", shown(facts_.supported)));
  line(say("  %s: %s", "ZELTRA_TRANSLATION_DICTIONARY", shown(facts_.dictionary)));
}

void Story::tellLocales() const {
  line(say("locale: %s, %s, up to %d bytes a character", facts_.characterType, facts_.codeset,
           facts_.longestCharacter));
  for (LocaleFact const& each : facts_.locales) {
    line(say("  setlocale(%s, \"%s\"): %s", std::string(each.category), each.name,
             each.isThere ? "\"" + each.answer + "\"" : say("not installed")));
  }
}

void Story::tellSearch() {
  line(say("dictionary: %s", facts_.found.empty() ? say("none found") : facts_.found));
  line(say("  %s: %s", "ZEL_PATH", shown(facts_.searchPath)));
  for (CandidateFact const& each : facts_.candidates) {
    line(say("  %s: %s", each.path, each.isOpened ? say("found") : each.reason));
  }
}

void Story::tellEntries() {
  line(say("entries: %d", facts_.entries));
  if (dictionary_ == nullptr) return;
  for (Entry const& entry : dictionary_->entries) {
    if (entry.fate == Fate::stored) continue;
    std::string const why = entry.fate == Fate::noKey     ? say("it has no key")
                            : entry.fate == Fate::notUtf8 ? say("its text is no UTF-8")
                                                          : say("there is no room for it");
    line(say("  line %d is left out: %s", dictionary_->lineOf(entry).number, why));
  }
}

void Story::tellOrigin(KeyFacts const& key) const {
  if (key.isInTable) return line(say("  from the table"));
  line(say("  its own text, since the table has no such key"));
  if (key.isTailCut) line(say("  without its tail"));
  if (key.isReencoded) line(say("  re-encoded for the locale"));
}

// Question marks that neither the dictionary's text nor the key has stand for characters.
bool hasReplacements(KeyFacts const& key, std::string_view source) {
  auto const marks = [](std::string_view text) {
    return std::count(text.begin(), text.end(), '?');
  };
  return marks(key.text) > marks(source);
}

void Story::tellKey(KeyFacts const& key) {
  line(say("\"%s\": \"%s\"", toLocale(escaped(key.key)), key.text));
  tellOrigin(key);
  std::string_view source = key.key;
  if (dictionary_ != nullptr && key.isInTable) {
    for (Entry const& entry : dictionary_->entries) {
      if (entry.key == key.key && !entry.isShadowed) source = entry.text;
    }
  }
  if (hasReplacements(key, source)) {
    line(say("  ? stands for what the locale does not have"));
    hint(
        say("the locale's charset, %s, lacks characters: take another ZELTRA_LANG, such as "
            "C.UTF-8",
            facts_.codeset));
  }
  if (key.isInTable || dictionary_ == nullptr) return;
  NearKey const near = nearestKey(*dictionary_, key.key);
  switch (near.kind) {
    case NearKey::none:
      return hint(say("the dictionary has no entry for \"%s\"", toLocale(escaped(key.key))));
    case NearKey::otherTail:
      return hint(say("the tail differs: line %d has \"%s\"", near.line, toLocale(near.rawKey)));
    case NearKey::otherEscape:
      return hint(say("an escape differs: line %d has \"%s\"", near.line, toLocale(near.rawKey)));
    case NearKey::otherBlank:
      return hint(
          say("a blank or the case differs: line %d has \"%s\"", near.line, toLocale(near.rawKey)));
    case NearKey::similar:
      return hint(say("the key differs: line %d has \"%s\"", near.line, toLocale(near.rawKey)));
  }
}

void Story::hintMode() {
  if (facts_.supported && !facts_.dictionary) {
    hint(say("%s is not set, so the default dictionary counts", "ZELTRA_TRANSLATION_DICTIONARY"));
  }
  if (!facts_.supported && facts_.dictionary) {
    hint(say("%s is not set, so the default dictionary counts", "ZELTRA_SUPPORTED_LOCALE"));
  }
  if (!facts_.supported && !facts_.dictionary) {
    hint(say("set ZELTRA_SUPPORTED_LOCALE and ZELTRA_TRANSLATION_DICTIONARY to be translated"));
  }
}

void Story::hintSearch() {
  if (!facts_.searchPath) return hint(say("ZEL_PATH is not set, so nothing is searched"));
  if (facts_.found.empty()) {
    for (CandidateFact const& each : facts_.candidates) {
      if (!each.isAbsent()) hint(say("%s does not open: %s", each.path, each.reason));
    }
    hint(say("no search directory has %s", facts_.relativePath));
  } else if (facts_.entries == 0) {
    hint(say("the dictionary has no entry that can be read; run atr-dict check %s", facts_.found));
  }
}

void Story::hintLocale() {
  for (LocaleFact const& each : facts_.locales) {
    bool const isAsked = std::string_view(each.category) == "LC_CTYPE";
    if (isAsked && !each.isThere) {
      hint(say("the locale \"%s\" is not installed, so \"%s\" stays", each.name,
               facts_.characterType));
    }
  }
  if (facts_.longestCharacter == 1 && facts_.isAscii()) {
    hint(say("the locale has ASCII alone, so every other character becomes ?"));
  }
}

// Without a dictionary nothing else matters, and a wrong locale spoils what is found.
void Story::tellHints() {
  std::vector<std::string> const ofKeys = std::move(hints_);
  hints_.clear();
  bool const isFound = !facts_.found.empty();
  if (!isFound || !facts_.isTranslated) hintMode();
  hintSearch();
  hintLocale();
  hints_.insert(hints_.end(), ofKeys.begin(), ofKeys.end());
  if (!hints_.empty()) line(say("hints, the likely cause first:"));
  for (std::string const& each : hints_) line("  " + each);
}

}  // namespace

int explain(StartFacts const& facts) {
  std::optional<Dictionary> dictionary;
  if (!facts.found.empty()) dictionary = readDictionary(facts.found);
  Story story(facts, dictionary ? &*dictionary : nullptr);
  story.tellMode();
  story.tellLocales();
  story.tellSearch();
  story.tellEntries();
  for (KeyFacts const& key : facts.keys) story.tellKey(key);
  story.tellHints();
  return story.hasHints() ? kFound : kAllWell;
}

namespace {

struct ExplainCommand {
  std::vector<std::string> keys;

  int run() {
    for (std::string& key : keys) key = decodeEscapes(key);
    return explain(factsOfStart());
  }

 private:
  StartFacts factsOfStart() const {
    WithoutOwnMessages const start;
    return startAsTheCaller(keys);
  }
};

}  // namespace

void addExplain(CLI::App& app, Action& action) {
  auto const [command, sub] = addCommand<ExplainCommand>(
      app, action, "explain", say("Tell what the library makes of the environment"));
  addWords(*sub, "KEY", say("messages to look up, with escapes as in a dictionary"), command->keys);
}

}  // namespace dict
