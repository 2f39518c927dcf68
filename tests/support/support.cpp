#include "support/support.h"

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>

void test::setVariable(char const* name, char const* value) {
  std::string const text = value != nullptr ? std::string(name) + "=" + value
                                            : std::string(name) + ATR_TEST_REMOVE_VARIABLE;
  char* const kept = static_cast<char*>(std::malloc(text.size() + 1));  // the environment's
  std::memcpy(kept, text.c_str(), text.size() + 1);
  putenv(kept);
}

std::string test::tempFolder() {
  auto const folder = std::filesystem::temp_directory_path() / "atr_tests";
  std::filesystem::create_directories(folder);
  return folder.generic_string();
}

test::TempFile::TempFile(std::string const& name, std::string_view bytes)
    : path_(tempFolder() + "/" + name) {
  std::filesystem::create_directories(std::filesystem::path(path_).parent_path());
  std::ofstream(path_, std::ios::binary).write(bytes.data(), static_cast<long>(bytes.size()));
}

test::TempFile::~TempFile() { std::filesystem::remove_all(path_); }

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  ::testing::FLAGS_gtest_death_test_style = "threadsafe";
  return RUN_ALL_TESTS();
}
