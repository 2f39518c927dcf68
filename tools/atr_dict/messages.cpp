// Loads the program's own dictionary by the library's own way: through the environment.
#include "messages.h"

#include <clocale>
#include <filesystem>

#include "atr/encoding/transcoding.h"
#include "atr/encoding/utf8.h"
#include "atr/translation/translation.h"
#include "system.h"
#include "variables.h"

namespace dict {

namespace {

// The language alone, as in "de"; empty for English and for none.
std::string userLanguage() {
  for (char const* const name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    std::string const value = variable(name).value_or("");
    if (!value.empty()) return value.substr(0, 2);
  }
  return system::userLanguage();
}

std::string findMessages(std::string const& language) {
  namespace fs = std::filesystem;
  std::error_code ignored;
  for (char const* const folder : {"/../share/atr-dict", "/atr-dict-messages"}) {
    std::string root = system::programFolder() + folder;
    if (fs::is_regular_file(root + "/" + language + "/atr-dict.py", ignored)) return root;
  }
  return "";
}

}  // namespace

void loadOwnMessages() {
  std::setlocale(LC_CTYPE, "");
  std::string const language = userLanguage();
  std::string const root = findMessages(language);
  if (root.empty()) return;
  Variables variables;
  variables.set("ZELTRA_SUPPORTED_LOCALE", "1");
  variables.set("ZELTRA_TRANSLATION_DICTIONARY", language + "/atr-dict.py");
  variables.set("ZEL_PATH", root);
  variables.set("QMR_DICT_DIR", std::nullopt);
  variables.set("ZELTRA_LANG", std::nullopt);
  variables.set("ZLT_LC_ALL", variable("ZLT_LC_ALL"));
  atr_trBuildDB();
}

WithoutOwnMessages::WithoutOwnMessages() {
  atr_trReleaseDB();
  std::setlocale(LC_ALL, "C");
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
