#include "support/dict_agreement.h"

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>

#include "atr/encoding/transcoding.h"
#include "atr/frame/platform.h"
#include "atr/translation/dictionary_reader.h"
#include "atr/translation/translation.h"
#include "atr/translation/translation_table.h"
#include "dictionary.h"
#include "failure.h"
#include "format_dictionary.h"

namespace test {

namespace {

struct TempDictionary {
  explicit TempDictionary(std::string_view bytes) {
    std::ofstream(path, std::ios::binary).write(bytes.data(), std::streamsize(bytes.size()));
  }
  ~TempDictionary() { std::filesystem::remove(path); }
  std::string const path =
      (std::filesystem::temp_directory_path() / ("atr_dict." + std::to_string(std::rand())))
          .string();
};

struct LoadedTable {
  explicit LoadedTable(std::string const& path) {
    std::FILE* const file = atr::platform::openText(path.c_str());
    atr_trReadDictionary(file);
    std::fclose(file);
    if (atr_trTable.count > 0) atr_trTable.sort();
  }
  ~LoadedTable() { atr_trReleaseDB(); }
};

std::string inLocale(std::string_view utf8) {
  std::string const text(utf8);
  auto const* const p = reinterpret_cast<unsigned char const*>(text.c_str());
  std::string out(4 * text.size() + 1, '\0');
  int const bytes =
      atr_utf8_to_encoding(EncodingLocale, reinterpret_cast<unsigned char*>(out.data()), p, '?');
  return bytes < 0 ? "(no UTF-8)" : out.substr(0, std::strlen(out.c_str()));
}

std::string compare(dict::Dictionary const& d) {
  int stored = 0;
  for (dict::Entry const& entry : d.entries) {
    if (entry.fate != dict::Fate::stored) continue;
    ++stored;
    if (entry.isShadowed) continue;
    std::string const key(entry.key);
    std::string const shown = atr_raw(key.c_str()).c_str();
    if (shown != inLocale(entry.text)) return "\"" + key + "\" shows as \"" + shown + "\"";
  }
  if (stored == atr_trTable.count) return "";
  return std::to_string(stored) + " entries here, there " + std::to_string(atr_trTable.count);
}

using Texts = std::map<std::string, std::string>;

Texts textsOf(std::string const& path) {
  LoadedTable const table(path);
  Texts texts;
  for (int i = 0; i < atr_trTable.count; ++i) {
    texts[atr_trTable.entries[i].key] = atr_trTable.entries[i].text;
  }
  return texts;
}

}  // namespace

std::string disagreement(std::string_view bytes) {
  TempDictionary const file(bytes);
  LoadedTable const table(file.path);
  try {
    return compare(dict::readDictionary(file.path));
  } catch (dict::Failure const&) {
    return atr_trTable.count > 0 ? "a dictionary is refused" : "";
  }
}

std::string formattedDisagreement(std::string_view bytes) {
  TempDictionary const before(bytes);
  try {
    std::optional<std::string> const formatted = dict::formatted(dict::readDictionary(before.path));
    if (!formatted) return "";
    TempDictionary const after(*formatted);
    if (textsOf(before.path) != textsOf(after.path)) return "fmt changes texts:\n" + *formatted;
    return dict::formatted(dict::readDictionary(after.path)) == formatted
               ? ""
               : "fmt changes its own form:\n" + *formatted;
  } catch (dict::Failure const&) {
    return "";
  }
}

}  // namespace test
