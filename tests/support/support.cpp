#include "support/support.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <list>

// The environment keeps pointing at the text, up to the end of the process.
void test::setVariable(char const* name, char const* value) {
  static auto* const kept = new std::list<std::string>;
  kept->push_back(name + (value != nullptr ? "=" + std::string(value) : ATR_TEST_REMOVE_VARIABLE));
  putenv(kept->back().data());
}

std::string test::tempFolder() {
  auto const& running = *::testing::UnitTest::GetInstance()->current_test_info();
  auto const folder = std::filesystem::temp_directory_path() / "atr_tests" / running.name();
  std::filesystem::create_directories(folder);
  return folder.generic_string();
}

test::TempFile::TempFile(std::string const& name, std::string_view bytes)
    : path_(tempFolder() + "/" + name) {
  std::filesystem::create_directories(std::filesystem::path(path_).parent_path());
  std::ofstream(path_, std::ios::binary).write(bytes.data(), static_cast<long>(bytes.size()));
}

test::TempFile::~TempFile() { std::filesystem::remove_all(path_); }

int test::reportFailures() {
  auto const& result = *::testing::UnitTest::GetInstance()->current_test_info()->result();
  for (int i = 0; i < result.total_part_count(); ++i) {
    std::fprintf(stderr, "%d: %s\n", result.GetTestPartResult(i).line_number(),
                 result.GetTestPartResult(i).message());
  }
  return result.total_part_count();
}

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  ::testing::FLAGS_gtest_death_test_style = "threadsafe";
  return RUN_ALL_TESTS();
}
