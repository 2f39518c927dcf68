// The representation: how it is made, shared, written to and freed. An operation allocates before
// it changes anything, so that it has changed nothing if memory runs out.
#include "atr/strings/string_base.h"

#include <algorithm>
#include <cfenv>
#include <charconv>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <functional>
#include <memory>
#include <new>
#include <utility>

#include "atr/frame/compiler.h"
#include "atr/frame/platform.h"
#include "atr/frame/words.h"
#include "atr/strings/body_room.h"
#include "atr/strings/exponent.h"
#include "atr/strings/general_form.h"
#include "atr/strings/summary.h"
#include "atr/strings/working_string.h"

using namespace atr;

static_assert(sizeof(atr_StringRep) == kHeaderBytes);

extern char const atr_emptyText[1] = {'\0'};

void atr_StringRep::operator delete(void* block) noexcept { ::operator delete(block); }
void atr_StringRep::operator delete(void* block, int /*bytes*/) noexcept {
  ::operator delete(block);
}

namespace {

char* bodyBehind(atr_StringRep* rep) noexcept { return reinterpret_cast<char*>(rep + 1); }

struct Blocks {
  atr_StringRep* rep;
  char* body;
};

struct DeleteBlock {
  void operator()(void* block) const noexcept { ::operator delete(block); }
};

// Not inlined, so that short texts do not pay for its guard.
ATR_NOINLINE Blocks takeTwoBlocks(int capacity, int length) {
  auto const size = static_cast<int>(bodySize(checkedLength(capacity)));
  std::unique_ptr<void, DeleteBlock> header(::operator new(kHeaderBytes));
  auto* const body = static_cast<char*>(::operator new(static_cast<std::size_t>(size)));
  return {new (header.release()) atr_StringRep{1, size, length}, body};
}

// Does not report to the summary: the caller does, once it can no longer fail.
Blocks takeBlocks(int capacity, int length) {
  if (capacity > kMaxInlineCapacity) [[unlikely]]
    return takeTwoBlocks(capacity, length);
  int const size = inlineBodySize(capacity);
  void* const block = ::operator new(static_cast<std::size_t>(size) + kHeaderBytes);
  auto* const rep = new (block) atr_StringRep{1, size, length};
  return {rep, bodyBehind(rep)};
}

void reportDeleted(int length, int inlineSize) noexcept {
  if (atr_summary != nullptr) [[unlikely]]
    atr_summary->RepDeleted(length, inlineSize);
}

// A representation that is about to be freed: which blocks it has, and how the summary counts it.
struct EndingRep {
  EndingRep(atr_StringRep* endingRep, char* endingBody) noexcept
      : rep(endingRep),
        separateBody(endingRep->size != 0 && endingBody != bodyBehind(endingRep) ? endingBody
                                                                                 : nullptr),
        inlineSize(separateBody == nullptr ? endingRep->size : 0) {}

  void report() const noexcept { reportDeleted(rep->length, inlineSize); }

  atr_StringRep* rep;
  char* separateBody;  // null for an inline or a borrowed body
  int inlineSize;      // 0 if the body is not inline
};

}  // namespace

// --- making one -------------------------------------------------------------------------------

void atr_StringBase::reportCreated() const noexcept {
  if (atr_summary != nullptr) [[unlikely]]
    atr_summary->RepCreated(isInline() ? rep->size : 0);
}

void atr_StringBase::makeRep(int capacity, int length) {
  Blocks const fresh = takeBlocks(capacity, length);
  rep = fresh.rep;
  body = fresh.body;
  reportCreated();
}

// Writes through `fresh`, because the compiler would read the fields again after the copy. Inlined,
// because a call costs a tenth of the whole for a short text (see the benchmark "construct 30 B").
ATR_ALWAYS_INLINE void atr_StringBase::makeCopy(char const* text, int length, int capacity) {
  Blocks const fresh = takeBlocks(capacity != kAsLength ? capacity : length, length);
  rep = fresh.rep;
  body = fresh.body;
  copyText(fresh.body, text, static_cast<std::size_t>(length));
  fresh.body[length] = '\0';
  reportCreated();
}

namespace {

constexpr std::size_t kNumberRoom = 80;  // 24 and a decimal point of many bytes

// printGeneral handles only finite numbers in round-to-nearest. The C runtime prints the rest.
bool isPrintedByRuntime(double value) noexcept {
  return !std::isfinite(value) || std::fegetround() != FE_TONEAREST;
}

// Prints as printf does: with the rounding mode, the decimal point of the locale, the sign of a
// NaN.
int print(char (&text)[kNumberRoom], double value, int precision) noexcept {
  if (isPrintedByRuntime(value)) [[unlikely]] {
    int const bytes = std::snprintf(text, kNumberRoom, "%.*g", precision, value);
    return bytes - shortenExponent(text);
  }
  char* const end = printGeneral(text, value, precision);
  auto const bytes = static_cast<std::size_t>(end - text);
  auto* const dot = static_cast<char*>(std::memchr(text, '.', bytes));
  char const* const point = dot != nullptr ? platform::decimalPoint() : ".";
  if (std::strcmp(point, ".") == 0) return static_cast<int>(bytes);
  std::size_t const pointBytes = std::strlen(point);
  std::memmove(dot + pointBytes, dot + 1, static_cast<std::size_t>(end - dot) - 1);
  std::copy_n(point, pointBytes, dot);
  return static_cast<int>(bytes + pointBytes - 1);
}

}  // namespace

atr_StringBase::atr_StringBase(int value) : atr_StringBase() {
  char text[kNumberRoom];
  makeCopy(text, static_cast<int>(std::to_chars(text, text + kNumberRoom, value).ptr - text),
           kAsLength);
}

atr_StringBase::atr_StringBase(unsigned int value) : atr_StringBase() {
  char text[kNumberRoom];
  makeCopy(text, static_cast<int>(std::to_chars(text, text + kNumberRoom, value).ptr - text),
           kAsLength);
}

atr_StringBase::atr_StringBase(float value) : atr_StringBase() {
  char text[kNumberRoom];
  makeCopy(text, print(text, static_cast<double>(value), 6), kAsLength);
}

atr_StringBase::atr_StringBase(double value) : atr_StringBase() {
  char text[kNumberRoom];
  makeCopy(text, print(text, value, 15), kAsLength);
}

atr_StringBase::atr_StringBase(char const* text) : atr_StringBase() {
  std::size_t const length = text != nullptr ? std::strlen(text) : 0;
  if (length > 0) makeCopy(text, checkedLength(length), kAsLength);
}

atr_StringBase::atr_StringBase(char const* text, int length) : atr_StringBase() {
  makeCopy(text, text != nullptr ? std::max(length, 0) : 0, kAsLength);
}

atr_StringBase::atr_StringBase(char const* text, int length, Borrow) : atr_StringBase() {
  if (text == nullptr) return;
  rep = new (::operator new(kHeaderBytes)) atr_StringRep{1, 0, std::max(length, 0)};
  body = const_cast<char*>(text);  // size 0 keeps every writer away from it
  reportCreated();
}

atr_StringBase::atr_StringBase(char* text, int length, Adopt) : atr_StringBase() {
  if (text == nullptr) return;
  int const textLength = checkedLength(std::max(length, 0));
  rep = new (::operator new(kHeaderBytes)) atr_StringRep{1, textLength + 1, textLength};
  body = text;
  reportCreated();
}

atr_StringBase::atr_StringBase(int capacity, PreSizeEnm) : atr_StringBase() {
  makeRep(std::max(capacity, 0), 0);
  body[0] = '\0';
}

// --- sharing ----------------------------------------------------------------------------------

// The new count goes up before the old one goes down, which makes self-assignment harmless.
// NOLINTNEXTLINE(bugprone-unhandled-self-assignment)
atr_StringBase& atr_StringBase::operator=(atr_StringBase const& other) {
  if (other.rep != nullptr) ++other.rep->refCount;
  leave();
  body = other.body;
  rep = other.rep;
  return *this;
}

atr_StringBase& atr_StringBase::operator=(char const* text) {
  std::size_t const length = text != nullptr ? std::strlen(text) : 0;
  if (length == 0) {
    leave();
    body = nullptr;
    rep = nullptr;
    return *this;
  }
  int const n = checkedLength(length);
  ::operator delete(get(n));
  std::memmove(body, text, length + 1);  // `text` may be a tail of this very body
  rep->length = n;
  return *this;
}

void atr_StringBase::Delete() {
  if (rep == nullptr || rep->refCount > 0) return;
  EndingRep const ending(std::exchange(rep, nullptr), std::exchange(body, nullptr));
  if (ending.separateBody != nullptr) [[unlikely]]
    ::operator delete(ending.separateBody);
  ending.report();
  atr_StringRep::operator delete(ending.rep);
}

// --- becoming sole owner ----------------------------------------------------------------------

bool atr_StringBase::isInline() const noexcept { return body == bodyBehind(rep); }

bool atr_StringBase::isSoleOwnerWithRoom(int n) const noexcept {
  return rep != nullptr && rep->refCount == 1 && rep->size > n;
}

// Always fails: operator new has no way to grow a block in place. The attempt is still counted,
// because the summary tells how often an inline body was too small.
bool atr_StringBase::tryExtend(int /*n*/) noexcept {
  if (atr_summary != nullptr) {
    atr_summary->extensionFailures =
        static_cast<int>(static_cast<unsigned int>(atr_summary->extensionFailures) + 1);
  }
  return false;
}

void atr_StringBase::isolate(int n) {
  int const capacity = std::max(n, lengthOf(*this));
  if (isSoleOwnerWithRoom(capacity)) return;
  if (rep == nullptr) {
    makeRep(capacity, 0);
    body[0] = '\0';
    return;
  }
  bool const isShared = rep->refCount > 1;
  atr_StringRep* const old = rep;
  EndingRep const ending(rep, body);
  makeCopy(body, old->length, capacity);
  if (isShared) {
    --old->refCount;
    return;
  }
  if (ending.inlineSize != 0) tryExtend(capacity);  // only now the move cannot fail
  ending.report();
  atr_StringRep::operator delete(old);
  ::operator delete(ending.separateBody);
}

// Allocates the new block before it frees the old header, so that a failure changes nothing. The
// summary is still told of the old representation's end before the new one's beginning.
char* atr_StringBase::get(int n) {
  int const capacity = std::max(n, 0);
  if (isSoleOwnerWithRoom(capacity)) return nullptr;
  bool const isShared = rep != nullptr && rep->refCount > 1;
  Blocks const fresh = takeBlocks(capacity, 0);
  char* toFree = nullptr;
  if (isShared) {
    --rep->refCount;
  } else if (rep != nullptr) {
    EndingRep const ending(rep, body);
    if (ending.inlineSize != 0) tryExtend(capacity);
    ending.report();
    if (ending.inlineSize != 0) {
      toFree = reinterpret_cast<char*>(rep);
    } else {
      toFree = ending.separateBody;
      atr_StringRep::operator delete(rep);
    }
  }
  rep = fresh.rep;
  body = fresh.body;
  reportCreated();
  return toFree;
}

// --- growing ----------------------------------------------------------------------------------

// True if writing to this string may free or change `text`. A shared or borrowed body is neither
// freed nor written, so a text in it is safe.
bool atr_StringBase::isAtRisk(char const* text) const noexcept {
  std::less<char const*> const before;
  bool const isWritable = rep != nullptr && rep->refCount == 1 && rep->size != 0;
  return isWritable && !before(text, body) && !before(body + rep->length, text);
}

// A source within this text moves when the body moves, so its offset is kept. One that reaches
// beyond the end of the text is copied first.
atr_StringBase& atr_StringBase::append(char const* src, int srcLength, int srcPos, int count) {
  int const from = std::clamp(srcPos, 0, std::max(srcLength, 0));
  int const n = std::clamp(count, 0, std::max(srcLength, 0) - from);
  int const oldLength = lengthOf(*this);
  int const newLength = checkedLength(std::int64_t{oldLength} + n);
  char const* const piece = n > 0 ? src + from : "";
  bool const isOwn = isAtRisk(piece);
  std::ptrdiff_t const offset = isOwn ? piece - body : 0;
  if (isOwn && offset + n > oldLength) {
    atr_StringBase const copy(piece, n);
    return append(copy.body, n, 0, n);
  }
  isolate(newLength);
  std::memcpy(body + oldLength, isOwn ? body + offset : piece, static_cast<std::size_t>(n));
  rep->length = newLength;
  body[newLength] = '\0';
  return *this;
}
