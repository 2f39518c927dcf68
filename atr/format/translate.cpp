// The message: its parse, done once, and its result.
#include "atr/format/translate.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>

#include "atr/format/message_slots.h"
#include "atr/format/template_scan.h"
#include "atr/frame/words.h"
#include "atr/strings/body_room.h"
#include "atr/strings/exponent.h"
#include "atr/strings/fresh_text.h"
#include "atr/strings/working_string.h"
#include "atr/translation/message_lookup.h"

using namespace atr;

namespace {

constexpr char kPlaceholder[] = "%s";
constexpr int kPlaceholderBytes = 2;

char* newBlock(std::size_t bytes) { return static_cast<char*>(::operator new(bytes)); }

// Where a placeholder stands in the compiled text, which may hold "%s" of its own, and how many
// bytes of substitution go there. One more tells where the text ends.
struct Place {
  std::size_t at;
  std::size_t bytes;
};

Place* placesBehind(atr_translate::StrArgs** sorted, int count) noexcept {
  return reinterpret_cast<Place*>(sorted + count);
}

// --- the pass over a template -----------------------------------------------------------------

// `%`, run and letter, without an `l` directly before the letter.
char* copyFormat(Conversion const& conversion) {
  auto runBytes = static_cast<std::size_t>(conversion.letter - conversion.run);
  char* const format = newBlock(runBytes + 3);
  format[0] = '%';
  if (runBytes > 0) {
    copyBytes(format + 1, conversion.run, runBytes);
    if (format[runBytes] == 'l') --runBytes;
  }
  format[runBytes + 1] = *conversion.letter;
  format[runBytes + 2] = '\0';
  return format;
}

struct Compile {
  void text(char const* begin, char const* end) noexcept {
    auto const bytes = static_cast<std::size_t>(end - begin);
    copyBytes(out, begin, bytes);
    out += bytes;
  }
  void conversion(Conversion const& c) {
    args[count].format = copyFormat(c);
    args[count].position = c.number;
    places[count] = {static_cast<std::size_t>(out - start), 0};
    ++count;
    hasUnnumbered = hasUnnumbered || c.number == Conversion::kNoNumber;
    text(kPlaceholder, kPlaceholder + kPlaceholderBytes);
  }
  void lost(Conversion const& /*c*/) noexcept {}

  char* start;
  char* out;
  Place* places;
  atr_translate::StrArgs* args;
  int count = 0;
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

// A placeholder is no longer than the shortest conversion, so that the text never grows and its
// length bounds the block. Where conversions were refused, there are fewer pointers than room for
// them, and the places close up behind those.
void atr_translate::parse(char const* text, char const* end) {
  std::size_t const slots = countPercents(text, end);
  compiled = newBlock(static_cast<std::size_t>(checkedLength(end - text)) + 1);
  if (slots > 0) {
    args = static_cast<StrArgs*>(::operator new(slots * sizeof(StrArgs)));
    std::uninitialized_default_construct_n(args, slots);
    sorted = reinterpret_cast<StrArgs**>(
        newBlock(slots * (sizeof(void*) + sizeof(Place)) + sizeof(Place)));
  }
  count = static_cast<int>(slots);  // should memory run out on the way, all of them go
  Place* const places = placesBehind(sorted, count);
  Compile compile{compiled, compiled, places, args};
  scanTemplate(text, end, compile);
  *compile.out = '\0';
  if (slots == 0) return;
  places[compile.count] = {static_cast<std::size_t>(compile.out - compiled), 0};
  if (compile.count < count) {
    count = compile.count;
    std::copy_n(places, count + 1, placesBehind(sorted, count));
  }
  sortSlots(compile.hasUnnumbered);
}

// --- numbers and order ------------------------------------------------------------------------

namespace {

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
  if (hasUnnumbered) detail::numberSlots(args, count, reinterpret_cast<char*>(sorted));
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

void MessageSlots::take(atr_translate& message, Slot& slot, char* block,
                        std::size_t bytes) noexcept {
  if (slot.substitution != nullptr) [[unlikely]]
    ::operator delete(slot.substitution);
  slot.substitution = block;
  placesBehind(message.sorted, message.count)[&slot - message.args].bytes = bytes;
}

namespace {

char* copy(char* out, char const* text, std::size_t bytes) noexcept {
  copyBytes(out, text, bytes);
  return out + bytes;
}

}  // namespace

// Built in one representation of the exact length.
atr_String atr_translate::Result() const {
  if (count == 0) return atr_StringFromText(compiled);
  Place const* const places = placesBehind(sorted, count);
  std::size_t const textBytes = places[count].at;
  std::size_t bytes = textBytes - static_cast<std::size_t>(count) * kPlaceholderBytes;
  for (int i = 0; i < count; ++i) bytes += places[i].bytes;
  if (bytes == 0) return atr_String();
  FreshText result(checkedLength(bytes));
  char* out = result.begin();
  std::size_t from = 0;
  for (int i = 0; i < count; ++i) {
    out = copy(out, compiled + from, places[i].at - from);
    out = copy(out, args[i].substitution, places[i].bytes);
    from = places[i].at + kPlaceholderBytes;
  }
  return result.finish(copy(out, compiled + from, textBytes - from));
}
