// The messages of a file manager, in the language that the environment asks for: values of every
// kind, plural forms, texts in two meanings, a folded notice, names in natural order.
#include <atr/atr.h>
#include <atr/plural.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <iterator>

namespace {

void print(atr_String const& text) { std::printf("  %s\n", text.c_str()); }

// Prints a message; ATR_T around its text has the values checked when this is compiled.
template <class Text, class... Values>
void say(Text text, Values const&... values) {
  print(atr::message(text, values...));
}

struct File {
  char const* name;
  std::int64_t bytes;
  double changedDays;
};

File files[] = {{"chapter10.txt", 48213, 0.5},
                {"chapter9.txt", 5000000000, 2.25},
                {"chapter2.txt", 1024, 31},
                {"Annex 1.05.txt", 7, 365.25}};

void showFolder() {
  std::sort(std::begin(files), std::end(files),
            [](File const& a, File const& b) { return strnatcmp(a.name, b.name) < 0; });
  say(ATR_T("Contents of %s"), "/home/anna/novel");
  for (File const& file : files) {
    say(ATR_T("%-16s %12d bytes, changed %.1f days ago"), file.name, file.bytes, file.changedDays);
  }
  say(ATR_T("%d of %d files selected"), 3, static_cast<int>(std::size(files)));
}

void copyFiles() {
  say(ATR_T("Copying %s to %s"), "chapter10.txt", "/media/backup");
  say(ATR_T("%s: %d of %d bytes done (%.1f%%)"), "chapter9.txt", std::int64_t{1250000000},
      files[2].bytes, 25.0);
  say(ATR_T("Checksum of %s: %08x"), "chapter10.txt", 0xC0FFEEU);
  say(ATR_T("The copy at %x was verified in %g seconds"), static_cast<void const*>(&files), 1.5e-7);
  say(ATR_T("Error %d: \"%s\" is read only"), 30, "chapter2.txt");
}

void showMenu() {
  print(atr_raw("Open\\@menu") + " | " + atr_raw("Close") + " | " + atr_raw("Rename") + " | " +
        atr_raw("Move to the trash"));
  say(ATR_T("State of %s: %s"), "chapter9.txt", atr_raw("Open\\@state"));
}

void showTrash() {
  for (int const count : {1, 2, 5, 21}) {
    print(atr::plural(ATR_T("%d file in the trash"), ATR_T("%d files in the trash"), count));
  }
}

void showNotice() {
  atr_String const notice = atr_raw(
      "The disk is almost full. Move files that you no longer need to another disk, or "
      "empty the trash, before you copy more.");
  atr_String const folded = atr_String::AddLineBreaks(notice, 44, false);
  int const length = static_cast<int>(folded.length());
  for (int at = 0, end = 0; at < length; at = end + 1) {
    end = folded.Find("\n", at);
    print(folded.Substr(at, end - at));
  }
  atr_String fixed("[log %2$s] %1$d files copied");  // for machines: not translated
  print(fixed.ReplaceNonTranslated(1, 3).ReplaceNonTranslated(2, "2026-11-22"));
}

}  // namespace

int main() {
  atr::Library const library;
  atr::Translation const translation;
  showMenu();
  showFolder();
  copyFiles();
  showTrash();
  showNotice();
}
