// Files that are read whole, and files that appear whole or not at all.
#ifndef ATR_TOOLS_ATR_DICT_FILES_H
#define ATR_TOOLS_ATR_DICT_FILES_H

#include <cstddef>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

namespace dict {

struct CloseFile {
  void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};
using FileHandle = std::unique_ptr<std::FILE, CloseFile>;

/// Opens a regular file to read its bytes. @throw Failure with the system's reason.
FileHandle openToRead(std::string const& path);

/// @throw Failure with the system's reason.
std::size_t sizeOf(std::string const& path);

/// @throw Failure if reading has failed.
void failOnReadError(std::FILE* file, std::string const& path);

/// The bytes of a regular file. @throw Failure with the system's reason.
std::string readFile(std::string const& path);

/// Writes `bytes` beside the file and renames the result, so that an interruption or a full disk
/// leaves the old file as it was. `-` writes to the standard output, and a device takes the bytes
/// itself.
/// @throw Failure with the system's reason; nothing is left behind then.
void writeFile(std::string const& path, std::string_view bytes);

/// Writes to the standard output. What fails shows in finishOutput.
void print(std::string_view text);

/// @throw Failure if the standard output did not take all that was printed: a closed pipe, a full
///   disk.
void finishOutput();

}  // namespace dict

#endif  // ATR_TOOLS_ATR_DICT_FILES_H
