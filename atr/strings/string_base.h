// The counted copy-on-write representation behind every string of the library.
//
// The counts are not atomic: a string and all strings that share its representation belong to one
// thread at a time.
#ifndef ATR_STRINGS_STRING_BASE_H
#define ATR_STRINGS_STRING_BASE_H

#include <cstddef>

#include "atr/frame/export.h"

/// The text of every string that has no representation: one NUL byte in read-only data.
extern ATR_API char const atr_emptyText[1];

/// The header of a representation. Inline accessors in client code read its fields; only the string
/// classes write them.
class atr_StringRep {
 public:
  int refCount;  ///< string objects that hold this representation, 1 or more
  int size;      ///< usable bytes of the body, terminator included; 0 for a borrowed body
  int length;    ///< bytes of text, terminator not counted

 private:
  friend class atr_StringBase;

  ATR_API static void operator delete(void* block) noexcept;
  ATR_API static void operator delete(void* block, int bytes) noexcept;
};

static_assert(sizeof(atr_StringRep) == 12,
              "the body of a short text begins 12 bytes into its block");

/// The implementation of a string: two pointers. Only the destructor and the enumerations that
/// select a constructor are public; clients use atr_String.
///
/// All positions, lengths and counts are in bytes; positions start at 0, and a count of 0x7fffffff
/// means all bytes. Positions and counts outside the text are cut to it. An operation that runs out
/// of memory throws std::bad_alloc and has changed nothing. A pointer to the text is valid until
/// the string changes.
///
/// There are four kinds of bodies:
///
///     inline     [ header | text | NUL | spare ]   one block, capacities up to 238
///     separate   [ header ]  [ text | NUL ]        two blocks
///     adopted    [ header ]  [ text | NUL ]        the second was the caller's
///     borrowed   [ header ]  the caller's text     never written, never freed
class atr_StringBase {
 public:
  /// Selects the constructor that borrows a text.
  enum Borrow { BorrowText };
  /// Selects the constructor that takes over a block.
  enum Adopt { AdoptBlock };
  /// Selects the constructor that allocates a capacity.
  enum PreSizeEnm { PreSize };

  /// Lets go of the representation; the last string that holds it frees it.
  ATR_INLINE_API ~atr_StringBase() { leave(); }

 protected:
  /// As a count: all bytes.
  static constexpr int kAll = 0x7fffffff;

  /// The null representation: empty, nothing allocated.
  atr_StringBase() noexcept : body(nullptr), rep(nullptr) {}

  /// Shares the representation of `other`; no byte is copied.
  atr_StringBase(atr_StringBase const& other) noexcept : body(other.body), rep(other.rep) {
    if (rep != nullptr) ++rep->refCount;
  }

  /// The number as `%d`, `%u`, `%g` or `%.15g` prints it, but an exponent of three digits that
  /// begins with 0 loses that 0.
  ATR_API atr_StringBase(int value);
  ATR_API atr_StringBase(unsigned int value);
  ATR_API atr_StringBase(float value);
  ATR_API atr_StringBase(double value);

  /// A copy of the NUL-terminated `text`; the null representation if it is empty or null.
  ATR_API atr_StringBase(char const* text);

  /// A copy of the first `length` bytes of `text`; has a representation also for length 0.
  /// @pre `text` has `length` readable bytes.
  ATR_API atr_StringBase(char const* text, int length);

  /// Refers to `text` without a copy; it is copied before the first write.
  /// @pre `text[length]` is NUL, and the text outlives every string that shares it.
  ATR_API atr_StringBase(char const* text, int length, Borrow);

  /// Takes over the block at `text`, from operator new, with its `length` bytes of text. If memory
  /// runs out, the block stays the caller's.
  /// @pre `text[length]` is NUL.
  ATR_API atr_StringBase(char* text, int length, Adopt);

  /// An empty string with room for `capacity` bytes.
  ATR_API atr_StringBase(int capacity, PreSizeEnm);

  /// Shares the representation of `other`.
  ATR_API atr_StringBase& operator=(atr_StringBase const& other);

  /// Becomes a copy of `text`, which may be a tail of this string. An empty or null text gives the
  /// null representation.
  ATR_API atr_StringBase& operator=(char const* text);

  /// Frees the representation if its count is 0; does nothing otherwise.
  ATR_API void Delete();

  /// Makes this string the only owner of a body with more than `n` usable bytes; the text is kept.
  ATR_API void isolate(int n);

  /// Like isolate, for a text that is about to be rebuilt: if the body has to move, the text is not
  /// copied, and the new body has length 0 and undefined bytes.
  /// @return the old block, which the caller passes to operator delete after reading the old text;
  ///   null if the body did not move or there is nothing to free.
  ATR_API char* get(int n);

  /// Appends at most `count` bytes of `src` from `srcPos` on, not beyond `srcLength`. `src` may be
  /// a part of this string.
  ATR_API atr_StringBase& append(char const* src, int srcLength, int srcPos, int count);

  /// Removes at most `count` bytes at `pos`. The representation stays even if the text becomes
  /// empty.
  ATR_API atr_StringBase& Erase(int pos, int count);

  /// Inserts at `pos` at most `count` bytes of `src` from `srcPos` on, not beyond `srcLength`.
  ATR_API atr_StringBase& insert(int pos, char const* src, int srcLength, int srcPos, int count);

  /// Replaces at most `count` bytes at `pos` by at most `srcCount` bytes of `src` from `srcPos` on,
  /// not beyond `srcLength`.
  ATR_API atr_StringBase& replace(int pos, int count, char const* src, int srcLength, int srcPos,
                                  int srcCount);

  /// Like replace with all `srcLength` bytes of `src`, which are copied first.
  ATR_API atr_StringBase& Replace(int pos, int count, char const* src, int srcLength);

  /// The byte at `i`, which may be a spare byte of the body behind the text; NUL for an index
  /// outside the body. A borrowed body has no spare bytes.
  ATR_API char operator[](int i) const;

  /// Makes this string the only owner of its body and returns the byte at `i`. The reference is
  /// valid until an operation moves the body. An index outside the body gives a spare byte behind
  /// the text.
  ATR_API char& operator[](int i);

  /// Sets only the length, after the caller has written a text and its NUL into the body. `n` is
  /// cut to the size of the body. Does nothing on the null representation.
  /// @pre a borrowed body has a NUL at `n`, which may be beyond the length it had.
  ATR_API void SetStringLength(int n);

  /// Position of the first occurrence of `text` at `pos` or behind it; the length if there is none.
  /// The search ends at the first NUL. An empty `text` is found at `pos`.
  /// @pre `text` is not null.
  ATR_API int Find(char const* text, int pos) const;

  /// Position of the last occurrence of `text` that starts at `lastStart` or before it; the length
  /// if there is none. Finds nothing if `lastStart` or `textLength` is 0. Otherwise both texts end
  /// at their first NUL, and an empty `text` is found at the smaller of `lastStart` and length - 1.
  /// @pre `text` is not null, unless `lastStart` or `textLength` is 0.
  ATR_API int rfind(char const* text, int textLength, int lastStart) const;

  /// Replaces the first `from` by `to`, up to `count` times, each time searching from the start. If
  /// `to` contains `from`, all `count` replacements happen, or std::bad_alloc is thrown at the
  /// largest length. If memory runs out, the text is intact with some of the replacements made.
  /// @pre neither `from` nor `to` is this object.
  ATR_API atr_StringBase& Substitute(atr_StringBase const& from, atr_StringBase const& to,
                                     int count);

  /// The number of bytes in a piece at `pos` of at most `count` bytes: the smaller of length -
  /// `pos` and `count`, so negative if `pos` is beyond the length.
  ATR_API int Substr(int pos, int count) const;

  /// Removes the leading bytes that are in `set`. If there are none, a shared text stays shared.
  /// @pre `set` is not null, here and in the next two.
  ATR_API atr_StringBase& LeftTrim(char const* set);
  /// Removes the trailing bytes that are in `set`, and NULs. If there are none, a shared text stays
  /// shared.
  ATR_API atr_StringBase& RightTrim(char const* set);
  /// Removes every byte that is in `set` from the whole text, which ends at its first NUL. Never
  /// leaves the text shared.
  ATR_API atr_StringBase& Trim(char const* set);

  /// Changes capital letters of one byte to small letters by adding 32, up to the first NUL. The
  /// process locale decides what is a letter; characters of several bytes never change. If nothing
  /// changes, a shared text stays shared.
  ATR_API atr_StringBase& ToLower();
  /// The same from small letters to capitals, by subtracting 32.
  ATR_API atr_StringBase& ToUpper();
  /// ToUpper for the first character of the text alone.
  ATR_API atr_StringBase& Capitalize();
  /// ToLower for the first character of the text alone.
  ATR_API atr_StringBase& Uncapitalize();

  /// Reverses the bytes, those within multi-byte characters too. Never leaves the text shared.
  ATR_API atr_StringBase& Reverse();

  /// The text of any string: the body, or atr_emptyText without one.
  static char const* textOf(atr_StringBase const& string) noexcept {
    return string.rep != nullptr ? string.body : atr_emptyText;
  }
  /// The length of any string in bytes.
  static int lengthOf(atr_StringBase const& string) noexcept {
    return string.rep != nullptr ? string.rep->length : 0;
  }

  /// Makes `target`, a string of any kind, share the representation of `source`.
  static void assign(atr_StringBase& target, atr_StringBase const& source) { target = source; }

  /// Exchanges the representations without touching a count. A move exchanges with a null one.
  void exchangeWith(atr_StringBase& other) noexcept {
    char* const otherBody = other.body;
    atr_StringRep* const otherRep = other.rep;
    other.body = body;
    other.rep = rep;
    body = otherBody;
    rep = otherRep;
  }

  char* body;          ///< first byte of the text; null exactly when `rep` is
  atr_StringRep* rep;  ///< the representation, or null

 private:
  void makeRep(int capacity, int length);
  static constexpr int kAsLength = 0;  // as a capacity: as large as the text
  void makeCopy(char const* text, int length, int capacity);
  void reportCreated() const noexcept;
  bool tryExtend(int n) noexcept;

  void leave() noexcept {
    if (rep != nullptr && --rep->refCount == 0) Delete();
  }
  bool isSoleOwnerWithRoom(int n) const noexcept;
  bool isInline() const noexcept;
  bool isAtRisk(char const* text) const noexcept;
  void splice(int pos, int removed, int inserted);
  int textEnd() const noexcept;
  struct Replacement;
  atr_StringBase& changeCase(bool toUpper);
  atr_StringBase& changeFirst(bool toUpper);
};

#endif  // ATR_STRINGS_STRING_BASE_H
