// `atr-dict from-po` and `to-pot`: from PO to a dictionary, and a template that fits.
#include "atr/translation/entry_line.h"
#include "entry_text.h"
#include "failure.h"
#include "files.h"
#include "messages.h"
#include "plural.h"
#include "po_catalog.h"
#include "po_commands.h"

namespace dict {

namespace {

class Importer {
 public:
  Importer(std::string const& source, bool takesFuzzy) : source_(source), takesFuzzy_(takesFuzzy) {}

  void run(po_file_t file);
  std::string const& result() const { return result_; }
  int lost() const { return lost_; }

 private:
  void addHeader(po_file_t file);
  void addMessage(po_message_t message);
  void addPlural(po_message_t message, std::string const& others);
  void addComments(po_message_t message);
  void addEntry(std::string const& key, std::string const& text);

  std::string const& source_;
  bool takesFuzzy_;
  std::string result_;
  PluralForms forms_ = *formsOf("n != 1");
  int lost_ = 0;
};

void Importer::addEntry(std::string const& key, std::string const& text) {
  if (std::optional<std::string> const line = entryLine(key, text)) {
    result_ += *line;
    return;
  }
  ++lost_;
  print(say("%s: left out: the line for \"%s\" would be too long", toLocale(source_),
            toLocale(escaped(key.substr(0, 60)))) +
        "\n");
}

// A comment that holds an entry would be live.
void Importer::addComments(po_message_t message) {
  std::string_view rest = po_message_comments(message);
  while (!rest.empty()) {
    std::size_t const end = std::min(rest.find('\n'), rest.size());
    std::string line(rest.substr(0, end));
    for (std::size_t at = 0; (at = line.find(atr::kMarker)) != line.npos;) line.erase(at + 4, 1);
    result_ += line.empty() ? "#\n" : "# " + line + "\n";
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
}

void Importer::addHeader(po_file_t file) {
  char const* const header = po_file_domain_header(file, nullptr);
  if (header == nullptr) return;
  std::unique_ptr<char, decltype(&std::free)> const rule(po_header_field(header, "Plural-Forms"),
                                                         &std::free);
  if (rule == nullptr || std::string_view(rule.get()).find("INTEGER") != std::string_view::npos) {
    return;
  }
  std::optional<PluralForms> const forms = formsOf(rule.get());
  if (!forms) throw Failure(say("%s: %s", toLocale(source_), say("Plural-Forms is broken")));
  forms_ = *forms;
  addEntry(std::string(kPluralRuleKey), rule.get());
}

void Importer::addPlural(po_message_t message, std::string const& others) {
  auto const text = [message](int index) {
    char const* const form = po_message_msgstr_plural(message, index);
    return std::string(form != nullptr ? form : "");
  };
  std::string const one = keyOf(message);
  if (!text(forms_.ofOne).empty()) addEntry(pluralKeyOf(one, forms_.ofOne), text(forms_.ofOne));
  for (int const index : forms_.ofOthers) {
    bool const isSame = others == one && index == forms_.ofOne;
    if (!isSame && !text(index).empty()) addEntry(pluralKeyOf(others, index), text(index));
  }
}

void Importer::addMessage(po_message_t message) {
  char const* const others = po_message_msgid_plural(message);
  if (others != nullptr) {
    addComments(message);
    return addPlural(message, others);
  }
  std::string const text = po_message_msgstr(message);
  if (text.empty()) return;
  addComments(message);
  addEntry(keyOf(message), text);
}

void Importer::run(po_file_t file) {
  PoMessages messages(file);
  while (po_message_t const message = messages.next()) {
    if (isPoHeader(message)) {
      addComments(message);
      if (!result_.empty()) result_ += '\n';
      addHeader(file);
      continue;
    }
    bool const isFuzzy = po_message_is_fuzzy(message) != 0;
    if (po_message_is_obsolete(message) != 0 || (isFuzzy && !takesFuzzy_)) continue;
    addMessage(message);
  }
}

struct FromPoCommand {
  std::string source;
  std::string output;
  bool takesFuzzy = false;

  int run() const {
    PoFile const file = readPo(source);
    Importer importer(source, takesFuzzy);
    importer.run(file.get());
    writeFile(output, importer.result());
    return importer.lost() > 0 ? kFound : kAllWell;
  }
};

// A key with a tail becomes an id with a context, so that msgmerge finds what to-po writes.
void splitTail(po_message_t message) {
  std::string const id = po_message_msgid(message);
  std::size_t const tail = id.find("\\@");
  if (tail == id.npos || po_message_msgctxt(message) != nullptr) return;
  po_message_set_msgctxt(message, id.c_str() + tail + 2);
  po_message_set_msgid(message, id.substr(0, tail).c_str());
}

struct ToPotCommand {
  std::string source;
  std::string output;

  int run() const {
    PoFile const file = readPo(source);
    PoMessages messages(file.get());
    while (po_message_t const message = messages.next()) splitTail(message);
    writePo(file.get(), output);
    return kAllWell;
  }
};

}  // namespace

void addFromPo(CLI::App& app, Action& action) {
  auto const [command, sub] =
      addCommand<FromPoCommand>(app, action, "from-po", say("Make a dictionary of a PO file"));
  sub->add_option("PO", command->source, say("a PO file in UTF-8"))->required();
  addOutput(*sub, command->output, "FILE", say("the dictionary to write; - for the output"));
  sub->add_flag("--fuzzy", command->takesFuzzy, say("take fuzzy translations too"));
}

void addToPot(CLI::App& app, Action& action) {
  auto const [command, sub] = addCommand<ToPotCommand>(
      app, action, "to-pot", say("Turn the tails of an extracted template into contexts"));
  sub->add_option("POT", command->source, say("a template as xgettext writes it"))->required();
  addOutput(*sub, command->output, "POT", say("the template to write"));
}

void addPoCommands(CLI::App& app, Action& action) {
  addToPo(app, action);
  addFromPo(app, action);
  addToPot(app, action);
}

}  // namespace dict
