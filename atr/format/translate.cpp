// A message parses its template once, when it is made, and builds its result when it is asked.
#include "atr/format/translate.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>

#include "atr/format/message_slots.h"
#include "atr/format/slot_index.h"
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

// --- the pass over a template -----------------------------------------------------------------

// Copies `%`, layout and letter, without an `l` directly before the letter.
char* copyFormat(Conversion const& conversion) {
  auto layoutBytes = static_cast<std::size_t>(conversion.letter - conversion.layout);
  char* const format = newBlock(layoutBytes + 3);
  format[0] = '%';
  if (layoutBytes > 0) {
    copyBytes(format + 1, conversion.layout, layoutBytes);
    if (format[layoutBytes] == 'l') --layoutBytes;
  }
  format[layoutBytes + 1] = *conversion.letter;
  format[layoutBytes + 2] = '\0';
  return format;
}

// Compiles the template. It never writes beyond what has been read, so the compiled text may
// overwrite the template that it is made from.
struct Compile {
  void text(char const* begin, char const* end) noexcept {
    auto const bytes = static_cast<std::size_t>(end - begin);
    moveBytesDown(out, begin, bytes);
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
  SlotIndex::Place* places;
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

// Delegates to the other constructor, so that the destructor runs if an exception follows.
atr_translate::atr_translate(char const* text) : atr_translate() {
  source = text;
  if (text == nullptr) return;
  MessageText const message = atr_LookupMessage(text);
  bool const isEncoded = message.encodedBytes > 0;
  auto const bytes = isEncoded ? static_cast<std::size_t>(message.encodedBytes) : message.bytes;
  compiled = newBlock(static_cast<std::size_t>(checkedLength(bytes)) + 1);
  if (isEncoded) message.write(compiled);
  char const* const begin = isEncoded ? compiled : message.text;
  parse(begin, begin + bytes);
}

atr_translate::~atr_translate() {
  ::operator delete(sorted);
  std::destroy_n(args, count);  // the elements from `count` on own nothing
  ::operator delete(args);
  ::operator delete(compiled);
}

// Compiles the template into `compiled`, where it may stand already. No conversion is shorter than
// the placeholder that replaces it, so the text never grows and a block of its length is enough.
// The index is made for every percent sign, and is closed up if some of them begin no conversion.
void atr_translate::parse(char const* text, char const* end) {
  std::size_t const slots = countPercents(text, end);
  if (slots > 0) {
    args = static_cast<StrArgs*>(::operator new(slots * sizeof(StrArgs)));
    std::uninitialized_default_construct_n(args, slots);
    sorted = SlotIndex::newBlock(slots);
  }
  count = static_cast<int>(slots);  // so the destructor frees them all if memory runs out
  SlotIndex index(sorted, count);
  Compile compile{compiled, compiled, index.places(), args};
  scanTemplate(text, end, compile);
  *compile.out = '\0';
  if (slots == 0) return;
  compile.places[compile.count] = {static_cast<std::size_t>(compile.out - compiled), 0};
  if (compile.count < count) index.closeUp(compile.count);
  count = compile.count;
  sortSlots(compile.hasUnnumbered);
}

// --- numbers and order ------------------------------------------------------------------------

namespace {

// Shell sort is not stable: its exact steps define the order of slots with equal numbers, so no
// other sort can replace it.
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

void atr_translate::sortSlots(bool hasUnnumbered) {
  if (hasUnnumbered) detail::numberSlots(args, count, SlotIndex(sorted, count).marks());
  bool isAscending = true;
  for (int i = 0; i < count; ++i) {
    sorted[i] = &args[i];
    isAscending = isAscending && (i == 0 || args[i - 1].position <= args[i].position);
  }
  if (!isAscending) ShellSort(sorted, count, compare);
}

// --- values -----------------------------------------------------------------------------------

// Says nothing: a translation may leave out a value that the program offers.
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

char* copy(char* out, char const* text, std::size_t bytes) noexcept {
  copyBytes(out, text, bytes);
  return out + bytes;
}

}  // namespace

// Computes the exact length first, so that the result is allocated once.
atr_String atr_translate::Result() const {
  if (count == 0) return atr_StringFromText(compiled);
  SlotIndex::Place const* const places = SlotIndex(sorted, count).places();
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
