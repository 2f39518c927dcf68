// The tool's platform layer on Windows.
#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "system.h"

namespace dict::system {

std::string programFolder() {
  wchar_t name[32768];
  DWORD const length = GetModuleFileNameW(nullptr, name, static_cast<DWORD>(std::size(name)));
  return length == 0 ? "." : std::filesystem::path(name, name + length).parent_path().string();
}

void setVariable(char const* name, char const* value) {
  _putenv_s(name, value != nullptr ? value : "");
}

std::string userLanguage() {
  wchar_t name[LOCALE_NAME_MAX_LENGTH] = {};
  GetUserDefaultLocaleName(name, LOCALE_NAME_MAX_LENGTH);
  return {static_cast<char>(name[0]), static_cast<char>(name[1])};
}

bool isTerminal(std::FILE* stream) { return _isatty(_fileno(stream)) != 0; }

void ignoreClosedPipes() {}

void writeBytes(std::FILE* stream) { _setmode(_fileno(stream), _O_BINARY); }

std::string codeset() {
  std::string const locale = std::setlocale(LC_CTYPE, nullptr);
  std::size_t const dot = locale.find('.');
  return dot == locale.npos ? "US-ASCII" : "CP" + locale.substr(dot + 1);
}

namespace {

// A code page, by its number or as in "CP1252".
class CodePage : public Charset {
 public:
  explicit CodePage(UINT number) : number_(number) {}

  bool has(std::string_view character) override {
    wchar_t wide[2];
    int const units = MultiByteToWideChar(CP_UTF8, 0, character.data(),
                                          static_cast<int>(character.size()), wide, 2);
    if (number_ == CP_UTF8) return units > 0;
    char bytes[16];
    BOOL isReplaced = FALSE;
    int const count = WideCharToMultiByte(number_, WC_NO_BEST_FIT_CHARS, wide, units, bytes,
                                          sizeof bytes, nullptr, &isReplaced);
    return count > 0 && isReplaced == FALSE;
  }

 private:
  UINT number_;
};

struct NamedPage {
  char const* name;
  UINT number;
};
constexpr NamedPage kPages[] = {
    {"UTF-8", CP_UTF8}, {"ISO-8859-1", 28591}, {"ISO-8859-2", 28592}, {"ISO-8859-15", 28605},
    {"SHIFT_JIS", 932}, {"EUC-JP", 20932},     {"KOI8-R", 20866},     {"ASCII", 20127}};

}  // namespace

std::unique_ptr<Charset> openCharset(std::string const& name) {
  UINT number = 0;
  for (NamedPage const& page : kPages) {
    if (name == page.name) number = page.number;
  }
  if (number == 0) {
    bool const isPrefixed = name.starts_with("CP") || name.starts_with("cp");
    number = static_cast<UINT>(std::strtoul(name.c_str() + (isPrefixed ? 2 : 0), nullptr, 10));
  }
  if (IsValidCodePage(number) == FALSE) return nullptr;
  return std::make_unique<CodePage>(number);
}

}  // namespace dict::system
