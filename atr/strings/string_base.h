// The counted copy-on-write representation that every string of the library stands on.
//
// A string and everything that shares its representation belong to one thread at a time.
#ifndef ATR_STRINGS_STRING_BASE_H
#define ATR_STRINGS_STRING_BASE_H

#include <cstddef>

#include "atr/frame/export.h"

/// The text of every string that has no representation: one NUL byte in read-only data.
extern ATR_API char const atr_emptyText[1];

/// The header of a representation. Its fields are read by inline accessors in client code and
/// written by the string classes alone.
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

/// The implementation of a string: two pointers, and nothing public but the enumerations that
/// select a constructor and the destructor. Clients hold an atr_String.
///
/// All positions, lengths and counts are bytes, from 0, and a count of 0x7fffffff means all that
/// there is. Positions and counts outside a text are cut to it. An operation that needs room throws
/// std::bad_alloc if there is none, and then has changed nothing. Pointers to a text are borrowed
/// until the string next changes.
///
/// A body is of one of four kinds:
///
///     inline     [ header | text | NUL | spare ]   one block, capacities up to 238
///     separate   [ header ]  [ text | NUL ]        two blocks
///     adopted    [ header ]  [ text | NUL ]        the second was the caller's
///     borrowed   [ header ]  the caller's text     never written, never freed
class atr_StringBase {
 public:
  /// Selects the constructor that borrows a text.
  enum Borrow { BorrowText };
  /// Selects the constructor that takes a block over.
  enum Adopt { AdoptBlock };
  /// Selects the constructor that makes room.
  enum PreSizeEnm { PreSize };

  /// Leaves the representation; the last holder frees it.
  ATR_INLINE_API ~atr_StringBase() { leave(); }

 protected:
  /// As a count: all that there is.
  static constexpr int kAll = 0x7fffffff;

  /// The null representation: empty, nothing allocated.
  atr_StringBase() noexcept : body(nullptr), rep(nullptr) {}

  /// Shares the representation of `other`; no byte is copied.
  atr_StringBase(atr_StringBase const& other) noexcept : body(other.body), rep(other.rep) {
    if (rep != nullptr) ++rep->refCount;
  }

  /// The number as `%d`, `%u`, `%g` or `%.15g` prints it. A three-digit exponent that begins with 0
  /// loses that 0.
  ATR_API atr_StringBase(int value);
  ATR_API atr_StringBase(unsigned int value);
  ATR_API atr_StringBase(float value);
  ATR_API atr_StringBase(double value);

  /// A copy of the NUL-terminated `text`; the null representation if it is empty or null.
  ATR_API atr_StringBase(char const* text);

  /// A copy of the first `length` bytes of `text`; has a representation also for length 0.
  /// @pre `text` has `length` readable bytes.
  ATR_API atr_StringBase(char const* text, int length);

  /// Reads `text` where it stands; it is copied before the first write.
  /// @pre `text[length]` is NUL, and the text outlives every string that shares it.
  ATR_API atr_StringBase(char const* text, int length, Borrow);

  /// Takes over the block at `text`, which came from operator new, with its `length` bytes of text.
  /// If memory runs out, the block is still the caller's.
  /// @pre `text[length]` is NUL.
  ATR_API atr_StringBase(char* text, int length, Adopt);

  /// An empty text with room for `capacity` bytes.
  ATR_API atr_StringBase(int capacity, PreSizeEnm);

  /// Shares the representation of `other`.
  ATR_API atr_StringBase& operator=(atr_StringBase const& other);

  /// Takes a copy of `text`, which may be a tail of the string's own; an empty or null text leaves
  /// the null representation.
  ATR_API atr_StringBase& operator=(char const* text);

  /// Frees a representation that nobody counts any more, and does nothing to one in use.
  ATR_API void Delete();

  /// Makes this string sole owner of a body with more than `n` usable bytes; the text stays.
  ATR_API void isolate(int n);

  /// As isolate, for a text that is about to be rebuilt: if the body has to move, the new one has
  /// length 0 and is unwritten.
  /// @return the block that the caller passes to operator delete once the old text has been read;
  ///   null if nothing moved or nothing is to be freed.
  ATR_API char* get(int n);

  /// Adds at most `count` bytes of `src` from `srcPos`, not beyond `srcLength`. The source may be a
  /// piece of this string.
  ATR_API atr_StringBase& append(char const* src, int srcLength, int srcPos, int count);

  /// Removes at most `count` bytes at `pos`. A representation stays, also if it is emptied.
  ATR_API atr_StringBase& Erase(int pos, int count);

  /// Puts at most `count` bytes of `src` from `srcPos`, not beyond `srcLength`, in at `pos`.
  ATR_API atr_StringBase& insert(int pos, char const* src, int srcLength, int srcPos, int count);

  /// Removes at most `count` bytes at `pos` and puts in at most `srcCount` bytes of `src` from
  /// `srcPos`, not beyond `srcLength`.
  ATR_API atr_StringBase& replace(int pos, int count, char const* src, int srcLength, int srcPos,
                                  int srcCount);

  /// As replace with all `srcLength` bytes of `src`, by way of a private copy of them.
  ATR_API atr_StringBase& Replace(int pos, int count, char const* src, int srcLength);

  /// The byte at `i`, also one of the body's spare bytes behind the text; NUL for an index outside
  /// the body. A borrowed body ends with its text.
  ATR_API char operator[](int i) const;

  /// The byte at `i` of a body that this string alone holds. The reference is good until the next
  /// operation that can move the body. An index outside the body gives a spare byte behind the
  /// text.
  ATR_API char& operator[](int i);

  /// Sets the length, and nothing else, after the caller has written a text and its NUL into the
  /// body. `n` is cut to what a body has room for. Silent on the null representation.
  /// @pre a borrowed body has a NUL at `n`, which may be beyond the length it had.
  ATR_API void SetStringLength(int n);

  /// Position of the first `text` at or after `pos`, or the length. The search ends at the first
  /// NUL. An empty `text` is found at `pos`.
  /// @pre `text` is not null.
  ATR_API int Find(char const* text, int pos) const;

  /// Position of the last `text` that starts at or before `lastStart`, or the length. Finds nothing
  /// for a `lastStart` or a `textLength` of 0; else both texts are ended by their first NUL. An
  /// empty `text` is found at the smaller of `lastStart` and length - 1.
  /// @pre `text` is not null, unless `lastStart` or `textLength` is 0.
  ATR_API int rfind(char const* text, int textLength, int lastStart) const;

  /// Replaces the first `from` by `to`, up to `count` times, each time looking from the start: a
  /// `to` that holds `from` goes on until the count runs out, or the length does. If memory runs
  /// out, the text is whole, and some of the replacements may have been made.
  /// @pre neither `from` nor `to` is this object.
  ATR_API atr_StringBase& Substitute(atr_StringBase const& from, atr_StringBase const& to,
                                     int count);

  /// Bytes that a piece at `pos` of at most `count` bytes has: the smaller of length - `pos` and
  /// `count`, negative for a `pos` beyond the length.
  ATR_API int Substr(int pos, int count) const;

  /// Removes the leading bytes that are in `set`. Nothing is written if there are none.
  /// @pre `set` is not null; so too below.
  ATR_API atr_StringBase& LeftTrim(char const* set);
  /// Removes the trailing bytes that are in `set`, and NULs. Nothing is written if there are none.
  ATR_API atr_StringBase& RightTrim(char const* set);
  /// Removes every byte that is in `set`, in the middle too, up to the first NUL. Always writes.
  ATR_API atr_StringBase& Trim(char const* set);

  /// Changes single-byte capitals to small letters by adding 32, up to the first NUL. What is a
  /// letter and what a character is the process locale's matter; a character of several bytes is
  /// never changed. Nothing is written if nothing changes.
  ATR_API atr_StringBase& ToLower();
  /// The same from small letters to capitals, by taking 32 away.
  ATR_API atr_StringBase& ToUpper();
  /// The first character of the text as by ToUpper.
  ATR_API atr_StringBase& Capitalize();
  /// The first character of the text as by ToLower.
  ATR_API atr_StringBase& Uncapitalize();

  /// Reverses the bytes, those of a multi-byte character like any others. Always writes.
  ATR_API atr_StringBase& Reverse();

  /// The text of any string, by the reading rule: the body, or atr_emptyText without one.
  static char const* textOf(atr_StringBase const& string) noexcept {
    return string.rep != nullptr ? string.body : atr_emptyText;
  }
  /// Bytes of text of any string, likewise.
  static int lengthOf(atr_StringBase const& string) noexcept {
    return string.rep != nullptr ? string.rep->length : 0;
  }

  /// Makes `target`, a string of any kind, share the representation of `source`.
  static void assign(atr_StringBase& target, atr_StringBase const& source) { target = source; }

  /// Exchanges the representations; no count changes. Moving is an exchange with a null one.
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
  static constexpr int kAsLength = 0;  // a capacity: that of the text alone
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
