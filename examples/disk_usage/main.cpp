// Tells how much room each entry of a folder takes, with all that is below it: sizes, shares,
// counts in plural forms, errors in the language that the environment asks for.
#include <atr/atr.h>
#include <atr/plural.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <iostream>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace fs = std::filesystem;

namespace {

struct Usage {
  std::uintmax_t bytes = 0;
  int files = 0;
  int folders = 0;
  int failures = 0;
};

struct Entry {
  atr_String name;
  Usage usage;
};

struct Options {
  bool isBySize = false;
  std::vector<fs::path> folders;
};

constexpr std::size_t kHelpColumns = 60;
constexpr std::size_t kLongestWord = 14;  // a line ends behind the word that fills it

// A line is folded where it has at least so many bytes, so the longest word is taken off.
void showHelp() {
  atr_String const help = atr_raw(
      "Usage: disk_usage [--by-size] [FOLDER...]\n"
      "Tells how much room the entries of each folder take, with all that is below them. Without "
      "a folder, it looks at the one that it is started in.\n"
      "Entries are listed in the natural order of their names, so that chapter 10 follows chapter "
      "9. With --by-size the largest come first. Links are counted but not followed.");
  std::cout << atr_String::AddLineBreaks(help, kHelpColumns - kLongestWord, false) << '\n';
}

void reportFailure(fs::path const& path, std::error_code const& error, Usage& usage) {
  ++usage.failures;
  std::cerr << atr::message(ATR_T("Cannot read %s: %s"), path.string(), error.message()) << '\n';
}

void countFile(fs::path const& path, Usage& usage) {
  std::error_code error;
  std::uintmax_t const bytes = fs::file_size(path, error);
  ++usage.files;
  if (error) {
    reportFailure(path, error, usage);
  } else {
    usage.bytes += bytes;
  }
}

// Adds all that is at `path` and below it.
void count(fs::path const& path, Usage& usage) {
  std::error_code error;
  fs::file_status const status = fs::symlink_status(path, error);
  if (fs::is_regular_file(status)) return countFile(path, usage);
  if (!fs::is_directory(status)) return;
  ++usage.folders;
  fs::directory_iterator children(path, error);
  while (!error && children != fs::directory_iterator()) {
    count(children->path(), usage);
    children.increment(error);
  }
  if (error) reportFailure(path, error, usage);
}

atr_String sizeText(std::uintmax_t bytes) {
  auto const size = static_cast<double>(bytes);
  if (size >= 1e9) return atr::message(ATR_T("%.1f GB"), size / 1e9);
  if (size >= 1e6) return atr::message(ATR_T("%.1f MB"), size / 1e6);
  if (size >= 1e3) return atr::message(ATR_T("%.1f kB"), size / 1e3);
  return atr::message(ATR_T("%u B"), bytes);
}

double percentOf(std::uintmax_t part, std::uintmax_t whole) {
  return whole == 0 ? 0 : 100 * static_cast<double>(part) / static_cast<double>(whole);
}

void sort(std::vector<Entry>& entries, bool isBySize) {
  std::sort(entries.begin(), entries.end(), [isBySize](Entry const& a, Entry const& b) {
    if (isBySize && a.usage.bytes != b.usage.bytes) return a.usage.bytes > b.usage.bytes;
    return strnatcmp(a.name.c_str(), b.name.c_str()) < 0;
  });
}

void print(std::vector<Entry> const& entries, Usage const& total) {
  for (auto const& [name, usage] : entries) {
    std::cout << atr::message(ATR_T("%10s %5.1f%%  %s"), sizeText(usage.bytes),
                              percentOf(usage.bytes, total.bytes), name);
    if (usage.folders > 0) {
      std::cout << atr::plural(ATR_T(" (%d file)"), ATR_T(" (%d files)"), usage.files);
    }
    std::cout << '\n';
  }
  std::cout << atr::plural(ATR_T("%d file, %s in all"), ATR_T("%d files, %s in all"), total.files,
                           sizeText(total.bytes))
            << '\n';
}

// True if everything could be read.
bool showFolder(fs::path const& folder, bool isBySize) {
  std::vector<Entry> entries;
  Usage total;
  std::error_code error;
  fs::directory_iterator children(folder, error);
  while (!error && children != fs::directory_iterator()) {
    Usage usage;
    count(children->path(), usage);
    total.bytes += usage.bytes;
    total.files += usage.files;
    total.failures += usage.failures;
    entries.push_back({children->path().filename().string(), usage});
    children.increment(error);
  }
  if (error) reportFailure(folder, error, total);
  sort(entries, isBySize);
  std::cout << atr::message(ATR_T("Contents of %s"), folder.string()) << '\n';
  print(entries, total);
  if (total.failures > 0) {
    std::cout << atr::plural(ATR_T("%d place could not be read"),
                             ATR_T("%d places could not be read"), total.failures)
              << '\n';
  }
  return total.failures == 0;
}

}  // namespace

int main(int argc, char** argv) {
  atr::Library const library;
  atr::Translation const translation;
  Options options;
  for (std::string_view const argument : std::vector<std::string_view>(argv + 1, argv + argc)) {
    if (argument == "--help") return showHelp(), 0;
    if (argument == "--by-size") {
      options.isBySize = true;
    } else if (argument.substr(0, 1) == "-") {
      std::cerr << atr::message(ATR_T("%s is no option; --help tells what is"), argument) << '\n';
      return 2;
    } else {
      options.folders.emplace_back(argument);
    }
  }
  if (options.folders.empty()) options.folders.emplace_back(".");
  bool isComplete = true;
  for (fs::path const& folder : options.folders) {
    isComplete = showFolder(folder, options.isBySize) && isComplete;
  }
  return isComplete ? 0 : 1;
}
