#include "support/support.h"

#include <iostream>
#include <list>
#include <stdexcept>

namespace fs = std::filesystem;

// The environment keeps pointing at the text, up to the end of the process.
void test::setVariable(char const* name, S const& value) {
  static auto* const kept = new std::list<S>;
  kept->push_back(name + (value != "-" ? "=" + value : ATR_TEST_REMOVE_VARIABLE));
  putenv(kept->back().data());
}

void test::setEnvironment(S const& supported, S const& file, S const& locale, S const& path,
                          S const& first) {
  setVariable("ZELTRA_SUPPORTED_LOCALE", supported);
  setVariable("ZELTRA_TRANSLATION_DICTIONARY", file);
  setVariable("ZELTRA_LANG", locale), setVariable("ZEL_PATH", path);
  setVariable("QMR_DICT_DIR", first);
}

// A folder that no other process and no earlier run has; it goes at the end of the process.
class ProcessFolder {
 public:
  ProcessFolder() {
    do {
      path = fs::temp_directory_path() / ("atr_tests-" + std::to_string(std::random_device{}()));
    } while (!fs::create_directory(path));
  }
  ~ProcessFolder() {
    std::error_code ignored;
    fs::remove_all(path, ignored);
  }
  fs::path path;
};

test::S test::tempFolder() {
  static ProcessFolder const folder;
  return folder.path.generic_string();
}

test::TempFile::TempFile(S const& name, std::string_view bytes) : path(tempFolder() + "/" + name) {
  fs::create_directories(fs::path(path).parent_path());
  std::ofstream file(path, std::ios::binary);
  file << bytes;
  file.close();
  if (!file) throw std::runtime_error("cannot write " + path);
}

test::TempFile::~TempFile() { fs::remove_all(path); }

void test::exitWithFailures() {
  auto const& result = *::testing::UnitTest::GetInstance()->current_test_info()->result();
  for (int i = 0; i < result.total_part_count(); ++i) std::cerr << result.GetTestPartResult(i);
  std::exit(result.total_part_count());
}

// Tests in fresh processes set locales too, and would only say that the process ended.
static void lookForLocales() {
  for (char const* const name : test::kLocales) test::Locale const locale(name);
}

int main(int argc, char** argv) try {
  ::testing::InitGoogleTest(&argc, argv);
  ::testing::FLAGS_gtest_death_test_style = "threadsafe";
  if (!::testing::FLAGS_gtest_list_tests) lookForLocales();
  return RUN_ALL_TESTS();
} catch (std::exception const& thrown) {
  std::cerr << thrown.what() << '\n';
  return EXIT_FAILURE;
}
