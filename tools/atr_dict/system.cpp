// What the platforms have in common.
#include "system.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace dict::system {

std::string reasonOf(int error) { return std::generic_category().message(error); }

std::string whyNotOpened(char const* path) {
  std::error_code error;
  auto const status = std::filesystem::status(path, error);
  if (!std::filesystem::exists(status)) return reasonOf(error ? error.value() : ENOENT);
  if (std::filesystem::is_directory(status)) return reasonOf(EISDIR);
  if (!std::filesystem::is_regular_file(status)) return reasonOf(EINVAL);
  std::FILE* const file = std::fopen(path, "rb");
  if (file == nullptr) return reasonOf(errno);
  std::fclose(file);
  return "";
}

std::string absence() { return reasonOf(ENOENT); }

}  // namespace dict::system
