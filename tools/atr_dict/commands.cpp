#include "commands.h"

namespace dict {

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
