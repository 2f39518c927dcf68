// The tool's platform layer on POSIX systems.
#include <iconv.h>
#include <langinfo.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "system.h"

namespace dict::system {

std::string programFolder() {
  std::error_code error;
  auto const program = std::filesystem::read_symlink("/proc/self/exe", error);
  return error ? "." : program.parent_path().string();
}

void setVariable(char const* name, char const* value) {
  if (value != nullptr) {
    setenv(name, value, 1);
  } else {
    unsetenv(name);
  }
}

std::string userLanguage() { return ""; }

bool isTerminal(std::FILE* stream) { return isatty(fileno(stream)) == 1; }

void ignoreClosedPipes() { std::signal(SIGPIPE, SIG_IGN); }

void writeBytes(std::FILE*) {}

std::string codeset() { return nl_langinfo(CODESET); }

namespace {

class IconvCharset : public Charset {
 public:
  explicit IconvCharset(iconv_t descriptor) : descriptor_(descriptor) {}
  IconvCharset(IconvCharset const&) = delete;
  IconvCharset& operator=(IconvCharset const&) = delete;
  ~IconvCharset() override { iconv_close(descriptor_); }

  // A second call brings out what a charset with states holds back.
  bool has(std::string_view character) override {
    char room[64];
    char* in = const_cast<char*>(character.data());
    char* out = room;
    std::size_t inBytes = character.size();
    std::size_t outBytes = sizeof room;
    iconv(descriptor_, nullptr, nullptr, nullptr, nullptr);
    return iconv(descriptor_, &in, &inBytes, &out, &outBytes) == 0 &&
           iconv(descriptor_, nullptr, nullptr, &out, &outBytes) == 0;
  }

 private:
  iconv_t descriptor_;
};

}  // namespace

std::unique_ptr<Charset> openCharset(std::string const& name) {
  iconv_t const descriptor = iconv_open(name.c_str(), "UTF-8");
  if (descriptor == reinterpret_cast<iconv_t>(-1)) return nullptr;
  return std::make_unique<IconvCharset>(descriptor);
}

}  // namespace dict::system
