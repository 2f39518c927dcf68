// Selects the process locale and a dictionary file by the environment. The locale is published
// before the search for the dictionary, so that it is known even if no dictionary is found.
#include "atr/translation/locale_selection.h"

#include <climits>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "atr/frame/memory.h"
#include "atr/frame/platform.h"
#include "atr/strings/working_string.h"
#include "atr/translation/translation.h"

using namespace atr;

namespace {

bool setLocale(int category, char const* name, SelectionWatch& watch) {
  char const* const answer = std::setlocale(category, name);
  watch.onLocale(category, name, answer);
  return answer != nullptr;
}

void atr_setDefaultLocale(SelectionWatch& watch) {
  char const* const names[] = {"en", "en_US", platform::englishLocale, "C"};
  for (char const* const name : names) {
    if (setLocale(LC_ALL, name, watch)) return;
  }
}

// The buffer is static because the environment may keep a pointer to it for the life of the
// process. A name that does not fit is cut off.
void publishLocale() {
  static char variable[4096];
  char const* const name = std::setlocale(LC_ALL, nullptr);
  std::snprintf(variable, sizeof variable, "ZLT_LC_ALL=%s", name != nullptr ? name : "");
  platform::publishVariable(variable);
}

void useOwnSeparators(atr_StringBasePrv& path) {
  path.Substitute(atr_StringBasePrv(platform::foreignSeparator),
                  atr_StringBasePrv(platform::directorySeparator), INT_MAX);
}

void setTranslatedLocale(SelectionWatch& watch) {
  char const* const language = std::getenv("ZELTRA_LANG");
  atr_setDefaultLocale(watch);
  setLocale(LC_CTYPE, language != nullptr ? language : "", watch);
  setLocale(LC_NUMERIC, "C", watch);
}

// The path of the dictionary below a search directory. In translated mode this sets the locale too.
atr_StringBasePrv relativePath(SelectionWatch& watch) {
  bool const isSupported = std::getenv("ZELTRA_SUPPORTED_LOCALE") != nullptr;
  char const* const dictionary = std::getenv("ZELTRA_TRANSLATION_DICTIONARY");
  bool const isTranslated = isSupported && dictionary != nullptr;
  atr_StringBasePrv path("/");
  path += isTranslated ? dictionary : "Configuration/Xresources/en_US/en_US_Dict.py";
  useOwnSeparators(path);
  watch.onMode(isTranslated, path.c_str());
  if (isTranslated) setTranslatedLocale(watch);
  return path;
}

using List = std::unique_ptr<char, MemoryRelease>;

// The directories of both variables in one writable block; null without ZEL_PATH or without memory.
List searchList() {
  char const* const path = std::getenv("ZEL_PATH");
  if (path == nullptr) return nullptr;
  char const* const first = std::getenv("QMR_DICT_DIR");
  std::size_t const firstBytes = first != nullptr ? std::strlen(first) + 1 : 0;
  std::size_t const pathBytes = std::strlen(path) + 1;
  List list(static_cast<char*>(mem_Malloc(firstBytes + pathBytes)));
  if (list == nullptr) return list;
  if (first != nullptr) {
    std::memcpy(list.get(), first, firstBytes);
    list.get()[firstBytes - 1] = platform::listSeparator;
  }
  std::memcpy(list.get() + firstBytes, path, pathBytes);
  return list;
}

// Splits the next directory that is not empty off `rest` and moves `rest` behind it; null at the
// end. It splits as strtok does, whose hidden state may be in use by a client's own loop.
char const* nextEntry(char*& rest) noexcept {
  while (*rest == platform::listSeparator) ++rest;
  if (*rest == '\0') return nullptr;
  char const* const entry = rest;
  rest = std::strchr(rest, platform::listSeparator);
  if (rest == nullptr) {
    rest = const_cast<char*>(entry) + std::strlen(entry);
  } else {
    *rest++ = '\0';
  }
  return entry;
}

bool opens(char const* path, SelectionWatch& watch) {
  std::FILE* const file = platform::openText(path);
  if (file != nullptr) std::fclose(file);
  watch.onCandidate(path, file != nullptr);
  return file != nullptr;
}

}  // namespace

bool atr::selectDictionary(atr_StringBase* path, SelectionWatch& watch) {
  atr_StringBasePrv const dictionary = relativePath(watch);
  publishLocale();
  List const list = searchList();
  if (list == nullptr) return false;
  char* rest = list.get();
  while (char const* const entry = nextEntry(rest)) {
    atr_StringBasePrv candidate(entry);
    useOwnSeparators(candidate);
    candidate.RightTrim(platform::directorySeparator).Append(dictionary);
    if (!opens(candidate.c_str(), watch)) continue;
    if (path != nullptr) candidate.AssignTo(*path);
    return true;
  }
  return false;
}

bool atr_setlocale(atr_StringBase* path) {
  SelectionWatch nobody;
  return selectDictionary(path, nobody);
}
