// A folder of its own for a while.
#ifndef ATR_TOOLS_ATR_DICT_SCRATCH_FOLDER_H
#define ATR_TOOLS_ATR_DICT_SCRATCH_FOLDER_H

#include <filesystem>
#include <random>
#include <string>

namespace dict {

/// A folder for temporary files that no other process has, readable by the user alone. It goes at
/// the end of the scope, with all that is in it.
class ScratchFolder {
 public:
  /// @throw std::filesystem::filesystem_error if it cannot be made.
  ScratchFolder() {
    std::random_device random;
    do {
      path_ = std::filesystem::temp_directory_path() / ("atr-dict." + std::to_string(random()));
    } while (!std::filesystem::create_directory(path_));
    std::filesystem::permissions(path_, std::filesystem::perms::owner_all);
  }
  ScratchFolder(ScratchFolder const&) = delete;
  ScratchFolder& operator=(ScratchFolder const&) = delete;
  ~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  std::string operator/(char const* name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

}  // namespace dict

#endif  // ATR_TOOLS_ATR_DICT_SCRATCH_FOLDER_H
