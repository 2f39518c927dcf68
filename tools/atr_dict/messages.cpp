// Loads the program's own dictionary by the library's own way: through the environment.
#include "messages.h"

#include <array>
#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <optional>

#include "atr/encoding/transcoding.h"
#include "atr/encoding/utf8.h"
#include "atr/translation/translation.h"
#include "system.h"

namespace dict {

namespace {

// The language alone, as in "de"; empty for English and for none.
std::string userLanguage() {
  for (char const* const name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    char const* const value = std::getenv(name);
    if (value != nullptr && *value != '\0') return std::string(value).substr(0, 2);
  }
  return system::userLanguage();
}

// Sets variables of the environment, and what they were at the end of its scope.
class Variables {
 public:
  void set(char const* name, char const* value) {
    char const* const before = std::getenv(name);
    before_[used_++] = {name,
                        before != nullptr ? std::optional<std::string>(before) : std::nullopt};
    system::setVariable(name, value);
  }
  Variables() = default;
  Variables(Variables const&) = delete;
  Variables& operator=(Variables const&) = delete;
  ~Variables() {
    for (std::size_t i = used_; i-- > 0;) {
      auto const& [name, value] = before_[i];
      system::setVariable(name, value ? value->c_str() : nullptr);
    }
  }

 private:
  std::array<std::pair<char const*, std::optional<std::string>>, 8> before_;
  std::size_t used_ = 0;
};

std::string findMessages(std::string const& besideProgram, std::string const& language) {
  namespace fs = std::filesystem;
  std::error_code ignored;
  for (char const* const folder : {"/../share/atr-dict", "/atr-dict-messages"}) {
    std::string root = besideProgram + folder;
    if (fs::is_regular_file(root + "/" + language + "/atr-dict.py", ignored)) return root;
  }
  return "";
}

}  // namespace

void loadOwnMessages(std::string const& besideProgram) {
  std::setlocale(LC_CTYPE, "");
  std::string const language = userLanguage();
  std::string const root = findMessages(besideProgram, language);
  if (root.empty()) return;
  Variables variables;
  variables.set("ZELTRA_SUPPORTED_LOCALE", "1");
  variables.set("ZELTRA_TRANSLATION_DICTIONARY", (language + "/atr-dict.py").c_str());
  variables.set("ZEL_PATH", root.c_str());
  variables.set("QMR_DICT_DIR", nullptr);
  variables.set("ZELTRA_LANG", nullptr);
  variables.set("ZLT_LC_ALL", std::getenv("ZLT_LC_ALL"));
  atr_trBuildDB();
}

namespace {

// A character of `text`, which a NUL ends, that may be shown; else a question mark.
std::string safeCharacter(char const* text, std::size_t& bytes) {
  int length = 0;
  auto const* const p = reinterpret_cast<unsigned char const*>(text);
  unsigned int const code = atr_utf8_to_ucs4(p, &length);
  bytes = code == 0xFFFFFFFF ? 1 : static_cast<std::size_t>(length);
  bool const isControl = code < 0x20 || (code >= 0x7F && code < 0xA0);
  if (code == 0xFFFFFFFF || (isControl && code != '\n' && code != '\t')) return "?";
  return {text, bytes};
}

template <class Convert>
std::string converted(Convert convert) {
  int const bytes = convert(nullptr);
  if (bytes <= 0) return "";
  std::string out(static_cast<std::size_t>(bytes), '\0');
  convert(reinterpret_cast<unsigned char*>(out.data()));
  return out;
}

}  // namespace

std::string toLocale(std::string_view utf8) {
  std::string const text(utf8);
  std::string safe;
  for (std::size_t at = 0, bytes = 0; at < text.size(); at += bytes) {
    safe += safeCharacter(text.c_str() + at, bytes);
  }
  auto const* const p = reinterpret_cast<unsigned char const*>(safe.c_str());
  return converted(
      [p](unsigned char* out) { return atr_utf8_to_encoding(EncodingLocale, out, p, '?'); });
}

std::string fromLocale(std::string const& text) {
  auto const* const p = reinterpret_cast<unsigned char const*>(text.c_str());
  std::string utf8 =
      converted([p](unsigned char* out) { return atr_utf8_from_encoding(out, EncodingLocale, p); });
  return utf8;
}

}  // namespace dict
