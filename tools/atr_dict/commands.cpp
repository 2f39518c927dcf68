#include "commands.h"

#include <string_view>

#include "messages.h"

namespace dict {

namespace {

// The texts of CLI11's own errors that the commands can come to, with what varies as %s.
constexpr char const* kErrors[] = {
    "A subcommand is required",
    "%s is required",
    "The following argument was not expected: %s",
    "The following arguments were not expected: %s",
    "%s: %s not in %s",
    "%s: %s required %s missing",
};

// Takes what stands in the places of %s. True if the text is of that form.
bool fits(std::string_view text, std::string_view form, std::vector<std::string>& values) {
  values.clear();
  for (;;) {
    std::size_t const place = std::min(form.find("%s"), form.size());
    if (text.substr(0, place) != form.substr(0, place)) return false;
    text.remove_prefix(place);
    if (place == form.size()) return text.empty();
    form.remove_prefix(place + 2);
    std::string_view const next = form.substr(0, form.find("%s"));
    std::size_t const end = next.empty() ? text.size() : text.find(next);
    if (end == text.npos) return false;
    values.emplace_back(text.substr(0, end));
    text.remove_prefix(end);
  }
}

std::string inOurWords(std::string const& text) {
  std::vector<std::string> values;
  for (char const* const form : kErrors) {
    if (!fits(text, form, values)) continue;
    atr_translate message(form);
    int position = 0;
    for (std::string const& value : values) {
      atr_SubstituteFormat(message, ++position, value.c_str());
    }
    return std::string(message.Result());
  }
  return text;
}

}  // namespace

void speakTheUsersLanguage(CLI::App& app) {
  app.option_defaults()->group(say("Options"));
  app.set_help_flag("-h,--help", say("Print this help message and exit"));
  app.set_help_all_flag("--help-all", say("Print this help message with that of all commands"));
  for (char const* const label : {"Usage", "OPTIONS", "SUBCOMMAND", "Positionals", "REQUIRED"}) {
    app.get_formatter()->label(label, say(label));
  }
  app.failure_message([](CLI::App const* failed, CLI::Error const& error) {
    // A word that is no command is left over.
    std::vector<std::string> const rest = failed->remaining();
    std::string const text = rest.empty() ? error.what() : CLI::ExtrasError({rest.front()}).what();
    return inOurWords(text) + "\n" + say("Run with --help or --help-all to learn more.") + "\n";
  });
}

// A list option of CLI11 takes [a, b] for two words, and so does not do for messages and programs.
CLI::Option* addWords(CLI::App& sub, char const* name, std::string const& description,
                      std::vector<std::string>& words) {
  sub.prefix_command();
  sub.parse_complete_callback([&sub, &words] {
    std::vector<std::string> rest = sub.remaining();
    bool const isMarked = !rest.empty() && rest.front() == "--";
    if (isMarked) rest.erase(rest.begin());
    for (std::string const& word : rest) {
      if (!isMarked && word.size() > 1 && word.front() == '-') throw CLI::ExtrasError({word});
    }
    words.insert(words.end(), rest.begin(), rest.end());
  });
  return sub
      .add_option_function<std::string>(
          name, [&words](std::string const& word) { words.push_back(word); }, description)
      ->type_name("...");
}

}  // namespace dict
