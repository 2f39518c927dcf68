// `atr-dict to-po`: a dictionary for translators' editors.
#include <cstring>
#include <filesystem>
#include <map>
#include <unordered_map>

#include "atr/encoding/strict_utf8.h"
#include "failure.h"
#include "files.h"
#include "messages.h"
#include "plural.h"
#include "po_catalog.h"
#include "po_commands.h"
#include "template_pieces.h"

namespace dict {

namespace {

// A layout as printf of C has it: flags, width, precision, sizes.
bool isPortableLayout(std::string_view layout) {
  auto const skip = [&layout](std::string_view set) {
    layout.remove_prefix(std::min(layout.find_first_not_of(set), layout.size()));
  };
  skip("-0");
  skip("0123456789");
  if (layout.starts_with('.')) {
    layout.remove_prefix(1);
    skip("0123456789");
  }
  return layout.empty() || layout == "l" || layout == "ll";
}

std::string_view sizeOf(TemplatePiece const& conversion) {
  std::size_t const size = conversion.layout.find('l');
  return size == conversion.layout.npos ? "" : conversion.layout.substr(size);
}

// True for conversions that C takes as they are, all of them with numbers or none.
bool isPortable(std::vector<TemplatePiece> const& pieces) {
  int conversions = 0;
  int numbered = 0;
  for (TemplatePiece const& piece : pieces) {
    if (piece.kind == TemplatePiece::lost) return false;
    if (piece.kind != TemplatePiece::conversion) continue;
    if (!isPortableLayout(piece.layout)) return false;
    ++conversions;
    numbered += piece.bytes.find('$') != piece.bytes.npos ? 1 : 0;
  }
  return numbered == 0 || numbered == conversions;
}

// True if gettext's own check of C formats takes both, which must have values.
bool isCFormat(std::string_view id, std::string_view text) {
  auto const inId = cutTemplate(id);
  auto const inText = cutTemplate(text);
  auto const ids = rankedConversions(inId);
  auto const texts = rankedConversions(inText);
  if (ids.empty() || ids.size() != texts.size()) return false;
  for (std::size_t i = 0; i < ids.size(); ++i) {
    int const rank = static_cast<int>(i) + 1;
    bool const isSame = ids[i].letter == texts[i].letter && sizeOf(ids[i]) == sizeOf(texts[i]);
    if (!isSame || ids[i].position != rank || texts[i].position != rank) return false;
  }
  return isPortable(inId) && isPortable(inText);
}

bool isStrictUtf8(std::string_view text) {
  auto const* const begin = reinterpret_cast<unsigned char const*>(text.data());
  return text.empty() ||
         atr::skipStrictUtf8ByChunks(begin, begin + text.size()) == begin + text.size();
}

// The language in a name such as de_Dict.py, or an empty text.
std::string languageOf(std::string const& path) {
  std::string const stem = std::filesystem::path(path).stem().string();
  std::string const name = stem.substr(0, stem.find("_Dict"));
  return name.size() >= 2 && name.size() <= 5 ? name : "";
}

class Exporter {
 public:
  explicit Exporter(Dictionary const& d)
      : d_(d), file_(po_file_create()), messages_(file_.get()), forms_(formsOf(ruleOf(d))) {}

  // Adds everything; what PO cannot say is told.
  void run();
  po_file_t file() const { return file_.get(); }
  int lost() const { return lost_; }

 private:
  void addHeader(std::string const& comments);
  void addEntry(Entry const& entry, std::string const& comments);
  bool addPlural(Entry const& entry, std::string const& comments);
  void pairSources();
  std::string textFor(int index, PluralSource const& one, PluralSource const& others);
  void finish(po_message_t message, Entry const& entry, std::string const& comments);
  void lose(Entry const& entry, std::string const& why);
  bool canSay(Entry const& entry);

  Dictionary const& d_;
  PoFile file_;
  PoMessages messages_;
  std::optional<PluralForms> forms_;
  std::vector<PluralSource> sources_;
  std::unordered_map<Entry const*, std::size_t> firstOfPair_;  // place of the form of 1
  std::unordered_map<Entry const*, bool> isInPair_;
  int lost_ = 0;
};

void Exporter::lose(Entry const& entry, std::string const& why) {
  ++lost_;
  print(say("%s:%d: left out: %s", toLocale(d_.path), d_.lineOf(entry).number, why) + "\n");
}

// A pair is the form of 1 and, directly behind it, all the forms of the other numbers. Where all
// numbers have one form, two sources with one text are a pair.
void Exporter::pairSources() {
  sources_ = pluralSources(d_);
  if (!forms_) return;
  for (std::size_t i = 0; i + 1 < sources_.size(); ++i) {
    PluralSource const& one = sources_[i];
    PluralSource const& others = sources_[i + 1];
    bool const isSingle = forms_->ofOthers == std::set<int>{forms_->ofOne};
    bool const hasOne = one.entries.size() == 1 && one.entries.contains(forms_->ofOne);
    std::set<int> indexes;
    for (auto const& [index, entry] : others.entries) indexes.insert(index);
    if (!hasOne || indexes != forms_->ofOthers) continue;
    if (isSingle && one.entries.at(0)->text != others.entries.at(0)->text) continue;
    firstOfPair_[one.entries.begin()->second] = i;
    for (auto const& [index, entry] : one.entries) isInPair_[entry] = true;
    for (auto const& [index, entry] : others.entries) isInPair_[entry] = true;
    ++i;
  }
}

void Exporter::addHeader(std::string const& comments) {
  po_message_t const header = po_message_create();
  po_message_set_msgid(header, "");
  std::string const language = languageOf(d_.path);
  std::string text = "Project-Id-Version: " + std::filesystem::path(d_.path).filename().string() +
                     "\nReport-Msgid-Bugs-To: \nPO-Revision-Date: 2000-01-01 00:00+0000\n"
                     "Last-Translator: atr-dict\nLanguage-Team: none\nLanguage: " +
                     (language.empty() ? "C" : language) +
                     "\nMIME-Version: 1.0\nContent-Type: text/plain; charset=UTF-8\n"
                     "Content-Transfer-Encoding: 8bit\n";
  std::string rule(ruleOf(d_));
  bool const hasRule = rule != "n != 1" || !sources_.empty();
  if (hasRule && forms_) {
    constexpr std::string_view kName = "Plural-Forms:";
    if (rule.starts_with(kName)) rule.erase(0, kName.size());
    bool const isWhole = rule.find("nplurals") != rule.npos;
    if (!isWhole) {
      while (!rule.empty() && (rule.back() == ';' || rule.back() == ' ')) rule.pop_back();
      bool const hasName = rule.find("plural") != rule.npos;
      rule = "nplurals=" + std::to_string(forms_->count()) + (hasName ? "; " : "; plural=") + rule +
             ";";
    }
    text += "Plural-Forms: " + rule + "\n";
  }
  po_message_set_msgstr(header, text.c_str());
  po_message_set_comments(header, comments.c_str());
  messages_.append(header);
}

bool Exporter::canSay(Entry const& entry) {
  if (withoutTail(entry.key).empty()) {
    lose(entry, say("PO has no place for an empty key"));
  } else if (entry.text.empty()) {
    lose(entry, say("an empty text counts as untranslated in PO"));
  } else if (!isStrictUtf8(entry.key) || !isStrictUtf8(entry.text)) {
    lose(entry, say("a character is not allowed in PO"));
  } else {
    return true;
  }
  return false;
}

void Exporter::finish(po_message_t message, Entry const& entry, std::string const& comments) {
  po_message_set_comments(message, comments.c_str());
  po_message_add_filepos(message, d_.path.c_str(),
                         static_cast<std::size_t>(d_.lineOf(entry).number));
  messages_.append(message);
}

void Exporter::addEntry(Entry const& entry, std::string const& comments) {
  std::string const key(entry.key);
  std::string const id(withoutTail(entry.key));
  std::string const text(entry.text);
  po_message_t const message = po_message_create();
  if (id.size() < key.size()) po_message_set_msgctxt(message, key.c_str() + id.size() + 2);
  po_message_set_msgid(message, id.c_str());
  po_message_set_msgstr(message, text.c_str());
  if (isCFormat(id, text)) po_message_set_format(message, "c-format", 1);
  finish(message, entry, comments);
}

std::string Exporter::textFor(int index, PluralSource const& one, PluralSource const& others) {
  auto const place = others.entries.find(index);
  Entry const* const entry = place != others.entries.end() ? place->second : nullptr;
  if (index != forms_->ofOne) return entry != nullptr ? std::string(entry->text) : "";
  Entry const& first = *one.entries.begin()->second;
  if (entry != nullptr && entry->text != first.text) {
    lose(first, say("PO has one text for this form, and takes that of the other numbers"));
  }
  return std::string(entry != nullptr ? entry->text : first.text);
}

// Adds the whole pair with its first entry, and nothing with the others.
bool Exporter::addPlural(Entry const& entry, std::string const& comments) {
  if (!isInPair_.contains(&entry)) return false;
  auto const place = firstOfPair_.find(&entry);
  if (place == firstOfPair_.end()) return true;
  PluralSource const& one = sources_[place->second];
  PluralSource const& others = sources_[place->second + 1];
  po_message_t const message = po_message_create();
  po_message_set_msgid(message, std::string(one.text).c_str());
  po_message_set_msgid_plural(message, std::string(others.text).c_str());
  bool isFormat = true;
  for (int index = 0; index < forms_->count(); ++index) {
    std::string const text = textFor(index, one, others);
    po_message_set_msgstr_plural(message, index, text.c_str());
    isFormat = isFormat && isCFormat(others.text, text) && isCFormat(one.text, text);
  }
  if (isFormat) po_message_set_format(message, "c-format", 1);
  finish(message, entry, comments);
  return true;
}

// A comment without its sign, with its newline.
std::string commentText(std::string_view line) {
  std::size_t const sign = line.find_first_not_of(" \t");
  if (sign == line.npos || line[sign] != '#') return "";
  std::string_view const text = line.substr(sign + 1);
  return std::string(text.starts_with(' ') ? text.substr(1) : text) + "\n";
}

void Exporter::run() {
  pairSources();
  // The header comes first, and takes the comments in front of a blank line at the file's start.
  std::string comments;
  std::size_t at = 0;
  for (; at < d_.lines.size() && d_.lines[at].entry < 0; ++at) {
    if (d_.lines[at].text.empty()) break;
    comments += commentText(d_.lines[at].text);
  }
  bool const isHeading = at < d_.lines.size() && d_.lines[at].entry < 0;
  addHeader(isHeading ? comments : "");
  if (isHeading) comments.clear();
  for (; at < d_.lines.size(); ++at) {
    Line const& line = d_.lines[at];
    if (line.entry < 0) {
      comments += commentText(line.text);
      continue;
    }
    Entry const& entry = d_.entries[static_cast<std::size_t>(line.entry)];
    bool const isRule = entry.key == kPluralRuleKey;
    if (entry.fate != Fate::stored || entry.isShadowed) {
      lose(entry, say("the runtime does not show it"));
    } else if (!isRule && canSay(entry) && !addPlural(entry, comments)) {
      addEntry(entry, comments);
    }
    comments.clear();
  }
  if (!comments.empty()) print(say("%s: the comments at the end are left out", d_.path) + "\n");
}

struct ToPoCommand {
  std::string source;
  std::string output;

  int run() const {
    Dictionary const d = readDictionary(source);
    Exporter exporter(d);
    exporter.run();
    writePo(exporter.file(), output);
    return exporter.lost() > 0 ? kFound : kAllWell;
  }
};

}  // namespace

void addToPo(CLI::App& app, Action& action) {
  auto const [command, sub] =
      addCommand<ToPoCommand>(app, action, "to-po", say("Make a PO file of a dictionary"));
  sub->add_option("FILE", command->source, say("a dictionary"))->required();
  addOutput(*sub, command->output, "PO", say("the PO file to write"));
}

}  // namespace dict
