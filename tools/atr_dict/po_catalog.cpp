#include "po_catalog.h"

#include <cstdlib>
#include <cstring>
#include <vector>

#include "failure.h"
#include "files.h"
#include "messages.h"
#include "po_file.h"
#include "scratch_folder.h"

namespace dict {

namespace {

std::string firstError;  // of libgettextpo, which tells them by callbacks of C

void takeError(int severity, std::string const& text) {
  if (severity == PO_SEVERITY_WARNING) return;
  if (firstError.empty()) firstError = text;
  if (severity != PO_SEVERITY_FATAL_ERROR) return;
  tellFailure(firstError.c_str());  // the library must not go on, and knows no exceptions
  std::exit(kCouldNotRun);
}

void onError(int severity, po_message_t, char const*, size_t line, size_t, int,
             char const* message) {
  takeError(severity, say("line %u: %s", line, std::string(message)));
}

void onErrors(int severity, po_message_t message, char const* file, size_t line, size_t column,
              int isLong, char const* text, po_message_t, char const*, size_t, size_t, int,
              char const*) {
  onError(severity, message, file, line, column, isLong, text);
}

constexpr po_xerror_handler kHandler = {onError, onErrors};

// libgettextpo would read on for a minute, and take memory without bound.
void refuseLongLines(std::string const& path) {
  constexpr std::size_t kLongestLine = 1 << 20;
  FileHandle const file = openToRead(path);
  std::vector<char> buffer(1 << 16);
  std::size_t lineBytes = 0;
  int number = 1;
  while (std::size_t const bytes = std::fread(buffer.data(), 1, buffer.size(), file.get())) {
    std::string_view rest(buffer.data(), bytes);
    for (std::size_t end = 0; (end = rest.find('\n')) != rest.npos; rest.remove_prefix(end + 1)) {
      lineBytes = 0;
      ++number;
    }
    lineBytes += rest.size();
    if (lineBytes > kLongestLine) {
      throw Failure(say("%s: %s", toLocale(path),
                        say("line %d has more than a megabyte; this is no PO file", number)));
    }
  }
  failOnReadError(file.get(), path);
}

}  // namespace

PoFile readPo(std::string const& path) {
  refuseLongLines(path);
  firstError.clear();
  PoFile file(po_file_read(path.c_str(), &kHandler));
  if (file == nullptr || !firstError.empty()) {
    throw Failure(say("%s: %s", toLocale(path), firstError));
  }
  char const* const header = po_file_domain_header(file.get(), nullptr);
  std::string const all = header != nullptr ? header : "";
  bool const isUtf8 = all.find("charset=") == all.npos || all.find("charset=UTF-8") != all.npos ||
                      all.find("charset=utf-8") != all.npos ||
                      all.find("charset=CHARSET") != all.npos;
  if (!isUtf8) {
    throw Failure(say("%s: %s", toLocale(path), say("not in UTF-8; msgconv -t UTF-8 makes it so")));
  }
  return file;
}

// libgettextpo writes files itself, and not beside them.
void writePo(po_file_t file, std::string const& path) {
  ScratchFolder const scratch;
  std::string const made = scratch / "made.po";
  firstError.clear();
  if (po_file_write(file, made.c_str(), &kHandler) == nullptr || !firstError.empty()) {
    throw Failure(say("%s: %s", toLocale(path), firstError));
  }
  writeFile(path, readFile(made));
}

bool isPoHeader(po_message_t message) {
  return po_message_msgctxt(message) == nullptr && *po_message_msgid(message) == '\0';
}

std::string keyOf(po_message_t message) {
  char const* const context = po_message_msgctxt(message);
  std::string const key = po_message_msgid(message);
  return context != nullptr ? key + "\\@" + context : key;
}

std::vector<AskedKey> readPoKeys(std::string const& path) {
  PoFile const file = readPo(path);
  PoMessages messages(file.get());
  std::vector<AskedKey> keys;
  while (po_message_t const message = messages.next()) {
    if (isPoHeader(message) || po_message_is_obsolete(message) != 0) continue;
    char const* const others = po_message_msgid_plural(message);
    keys.push_back({keyOf(message), others != nullptr ? others : ""});
  }
  return keys;
}

}  // namespace dict
