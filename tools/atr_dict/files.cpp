// Every failure tells the file and the system's reason.
#include "files.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "failure.h"
#include "messages.h"
#include "system.h"

namespace dict {

namespace fs = std::filesystem;

namespace {

[[noreturn]] void failOn(std::string const& name, int reason) {
  throw Failure(say("%s: %s", toLocale(name), system::reasonOf(reason)));
}

struct RemoveFile {
  ~RemoveFile() {
    std::error_code ignored;
    if (!path.empty()) fs::remove(path, ignored);
  }
  fs::path path;
};

}  // namespace

FileHandle openToRead(std::string const& path) {
  std::error_code error;
  fs::file_status const status = fs::status(path, error);
  if (!fs::exists(status)) failOn(path, error ? error.value() : ENOENT);
  if (fs::is_directory(status)) failOn(path, EISDIR);
  if (!fs::is_regular_file(status)) {
    throw Failure(say("%s: %s", toLocale(path), say("this is no regular file")));
  }
  FileHandle file(std::fopen(path.c_str(), "rb"));
  if (file == nullptr) failOn(path, errno);
  return file;
}

std::size_t sizeOf(std::string const& path) {
  std::error_code error;
  std::uintmax_t const bytes = fs::file_size(path, error);
  if (error) failOn(path, error.value());
  return static_cast<std::size_t>(bytes);
}

void failOnReadError(std::FILE* file, std::string const& path) {
  if (std::ferror(file) != 0) failOn(path, errno != 0 ? errno : EIO);
}

std::string readFile(std::string const& path) {
  FileHandle const file = openToRead(path);
  std::string bytes(sizeOf(path), '\0');
  bytes.resize(std::fread(bytes.data(), 1, bytes.size(), file.get()));
  failOnReadError(file.get(), path);
  return bytes;
}

namespace {

// Returns the system's reason, or 0.
int write(fs::path const& path, std::string_view bytes) {
  FileHandle file(std::fopen(path.string().c_str(), "wb"));
  if (file == nullptr) return errno;
  errno = 0;
  bool const isTaken = std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size() &&
                       std::fflush(file.get()) == 0;
  if (isTaken && std::fclose(file.release()) == 0) return 0;
  return errno != 0 ? errno : EIO;
}

}  // namespace

void writeFile(std::string const& path, std::string_view bytes) {
  if (path == "-") return print(bytes);
  std::error_code error;
  fs::file_status const status = fs::status(path, error);
  if (fs::is_directory(status)) failOn(path, EISDIR);
  if (fs::exists(status) && !fs::is_regular_file(status)) {
    if (int const reason = write(path, bytes)) failOn(path, reason);
    return;
  }
  // A link keeps pointing at the file that is written.
  bool const isLink = fs::is_symlink(path, error);
  error.clear();
  fs::path const target = isLink ? fs::canonical(path, error) : fs::path(path);
  if (error) failOn(path, error.value());
  RemoveFile beside{target.string() + ".atr-dict-new"};
  if (int const reason = write(beside.path, bytes)) failOn(path, reason);
  if (fs::exists(status)) fs::permissions(beside.path, status.permissions(), error);
  fs::rename(beside.path, target, error);
  if (error) failOn(path, error.value());
  beside.path.clear();
}

void print(std::string_view text) { std::fwrite(text.data(), 1, text.size(), stdout); }

void finishOutput() {
  errno = 0;
  if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
    failOn(say("standard output"), errno != 0 ? errno : EIO);
  }
}

}  // namespace dict
