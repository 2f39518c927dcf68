// The message: its parse, done once, and its result.
#include "atr/format/translate.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>

#include "atr/format/template_scan.h"
#include "atr/strings/body_room.h"
#include "atr/strings/exponent.h"
#include "atr/strings/working_string.h"
#include "atr/translation/message_lookup.h"

using namespace atr;

namespace {

constexpr char kPlaceholder[] = "%s";
constexpr int kPlaceholderBytes = 2;

char* newBlock(std::size_t bytes) { return static_cast<char*>(::operator new(bytes)); }

// Offsets of the placeholders stand behind the text, since text may hold "%s" of its own.
std::size_t offsetsAt(std::size_t textBytes) noexcept {
  return (textBytes + sizeof(int)) / sizeof(int) * sizeof(int);
}

int* offsetsBehind(char* compiled, std::size_t textBytes) noexcept {
  return reinterpret_cast<int*>(compiled + offsetsAt(textBytes));
}

// --- the passes over a template ---------------------------------------------------------------

struct Measure {
  void text(char const* begin, char const* end) noexcept { bytes += end - begin; }
  void conversion(Conversion const& /*c*/) noexcept {
    bytes += kPlaceholderBytes;
    ++conversions;
  }

  std::ptrdiff_t bytes = 0;
  std::size_t conversions = 0;
};

// `%`, run and letter, without an `l` directly before the letter.
char* copyFormat(Conversion const& conversion) {
  auto runBytes = static_cast<std::size_t>(conversion.letter - conversion.run);
  char* const format = newBlock(runBytes + 3);
  format[0] = '%';
  std::memcpy(format + 1, conversion.run, runBytes);
  if (runBytes > 0 && format[runBytes] == 'l') --runBytes;
  format[runBytes + 1] = *conversion.letter;
  format[runBytes + 2] = '\0';
  return format;
}

struct Compile {
  void text(char const* begin, char const* end) noexcept {
    auto const bytes = static_cast<std::size_t>(end - begin);
    if (bytes > 0) std::memcpy(out, begin, bytes);
    out += bytes;
  }
  void conversion(Conversion const& c) {
    slot->position = c.number;
    slot->format = copyFormat(c);
    hasUnnumbered = hasUnnumbered || c.number == Conversion::kNoNumber;
    ++slot;
    *offset++ = static_cast<int>(out - start);
    text(kPlaceholder, kPlaceholder + kPlaceholderBytes);
  }

  char* start;
  char* out;
  int* offset;
  atr_translate::StrArgs* slot;
  bool hasUnnumbered = false;
};

}  // namespace

atr_translate::StrArgs::StrArgs() : format(nullptr), substitution(nullptr) {}

atr_translate::StrArgs::~StrArgs() {
  ::operator delete(format);
  ::operator delete(substitution);
}

atr_translate::atr_translate() noexcept
    : source(nullptr), count(0), args(nullptr), sorted(nullptr), compiled(nullptr) {}

// An exception on the way finds an object whose destructor runs.
atr_translate::atr_translate(char const* text) : atr_translate() {
  source = text;
  if (text == nullptr) return;
  MessageText const message = atr_LookupMessage(text);
  if (message.encodedBytes == 0) {
    parse(message.text, message.text + message.bytes);
  } else {
    parseEncoded(message);
  }
}

namespace {

constexpr int kStackText = 4096;  // a longer one is too much for a small stack

struct DeleteBlock {
  void operator()(char* block) const noexcept { ::operator delete(block); }
};

}  // namespace

void atr_translate::parseEncoded(MessageText const& message) {
  char onStack[kStackText + 1];
  std::unique_ptr<char, DeleteBlock> onHeap;
  char* text = onStack;
  if (message.encodedBytes > kStackText) {
    onHeap.reset(newBlock(static_cast<std::size_t>(message.encodedBytes) + 1));
    text = onHeap.get();
  }
  message.write(text);
  parse(text, text + std::strlen(text));
}

atr_translate::~atr_translate() {
  ::operator delete(sorted);
  std::destroy_n(args, count);  // the elements from `count` on own nothing
  ::operator delete(args);
  ::operator delete(compiled);
}

void atr_translate::parse(char const* text, char const* end) {
  std::size_t const slots = countPercents(text, end);
  Measure measure;
  scanTemplate(text, end, measure);
  auto const bytes = static_cast<std::size_t>(checkedLength(measure.bytes));
  if (slots > 0) {
    args = static_cast<StrArgs*>(::operator new(slots * sizeof(StrArgs)));
    std::uninitialized_default_construct_n(args, slots);
  }
  count = static_cast<int>(measure.conversions);
  compiled = newBlock(slots > 0 ? offsetsAt(bytes) + measure.conversions * sizeof(int) : bytes + 1);
  Compile compile{compiled, compiled, slots > 0 ? offsetsBehind(compiled, bytes) : nullptr, args};
  scanTemplate(text, end, compile);
  *compile.out = '\0';
  if (slots > 0) sortSlots(compile.hasUnnumbered);
}

// --- numbers and order ------------------------------------------------------------------------

namespace {

// The unnumbered slots, from left to right, get the numbers from 1 up that no slot holds. `marks`
// has room for count + 1 bytes.
void numberSlots(atr_translate::StrArgs* args, int count, char* marks) noexcept {
  std::memset(marks, 0, static_cast<std::size_t>(count) + 1);
  for (int i = 0; i < count; ++i) {
    if (args[i].position >= 0 && args[i].position <= count) marks[args[i].position] = 1;
  }
  int next = 1;
  for (int i = 0; i < count; ++i) {
    if (args[i].position != Conversion::kNoNumber) continue;
    while (marks[next] != 0) ++next;
    args[i].position = next++;
  }
}

// Not stable: these steps fix the order in which equal numbers end.
template <class Compare>
void ShellSort(atr_translate::StrArgs** base, int n, Compare compare) {
  for (int gap = n >> 1; gap > 0; gap >>= 1) {
    for (int i = gap; i < n; ++i) {
      for (int j = i - gap; j >= 0 && compare(&base[j], &base[j + gap]) > 0; j -= gap) {
        std::swap(base[j], base[j + gap]);
      }
    }
  }
}

}  // namespace

int atr_translate::compare(void const* a, void const* b) {
  auto const number = [](void const* slot) {
    return static_cast<unsigned int>((*static_cast<StrArgs* const*>(slot))->position);
  };
  return static_cast<int>(number(a) - number(b));
}

// The block of the pointers holds the marks of the numbering before they are in it.
void atr_translate::sortSlots(bool hasUnnumbered) {
  auto const slots = static_cast<std::size_t>(count);
  sorted = reinterpret_cast<StrArgs**>(newBlock(slots * sizeof(void*)));
  if (hasUnnumbered) numberSlots(args, count, reinterpret_cast<char*>(sorted));
  bool isAscending = true;
  for (int i = 0; i < count; ++i) {
    sorted[i] = &args[i];
    isAscending = isAscending && (i == 0 || args[i - 1].position <= args[i].position);
  }
  if (!isAscending) ShellSort(sorted, count, compare);
}

// --- values -----------------------------------------------------------------------------------

// Nothing to tell: a translation may leave out what the program offers.
void atr_translate::ReportIllegalPosition(int /*position*/) const {}

atr_translate::StrArgs* atr_translate::slotAt(int position) const {
  if (position >= 1 && position <= count) return sorted[position - 1];
  ReportIllegalPosition(position);
  return nullptr;
}

char const* atr_translate::Format(int position) const {
  StrArgs const* const slot = slotAt(position);
  return slot != nullptr ? slot->format : nullptr;
}

void atr_translate::FixExponent(char* text) { shortenExponent(text); }

namespace {

std::size_t substitutionBytes(atr_translate::StrArgs const& slot) noexcept {
  return slot.substitution != nullptr ? std::strlen(slot.substitution) : 0;
}

char* put(char* out, char const* text, std::size_t bytes) noexcept {
  if (bytes > 0) std::memcpy(out, text, bytes);
  return out + bytes;
}

}  // namespace

// Built in one representation of the exact length.
atr_String atr_translate::Result() const {
  if (count == 0) return atr_StringFromText(compiled);
  std::size_t const textBytes = std::strlen(compiled);
  std::size_t bytes = textBytes - static_cast<std::size_t>(count) * kPlaceholderBytes;
  for (int i = 0; i < count; ++i) bytes += substitutionBytes(args[i]);
  if (bytes == 0) return atr_String();
  int const length = checkedLength(bytes);
  atr_String result(length, atr_String::PreSize);
  char* out = &result[0];
  int const* const offsets = offsetsBehind(compiled, textBytes);
  std::size_t from = 0;
  for (int i = 0; i < count; ++i) {
    auto const at = static_cast<std::size_t>(offsets[i]);
    out = put(out, compiled + from, at - from);
    out = put(out, args[i].substitution, substitutionBytes(args[i]));
    from = at + kPlaceholderBytes;
  }
  out = put(out, compiled + from, textBytes - from);
  *out = '\0';
  result.SetStringLength(length);
  return result;
}
