// Reads a dictionary file, which has one pair of key and UTF-8 text on a line:
//
//     msg['Open'] = r'Abrir'
#ifndef ATR_TRANSLATION_DICTIONARY_READER_H
#define ATR_TRANSLATION_DICTIONARY_READER_H

#include <cstdio>

/// Fills the empty table from a stream that is open and at its beginning; the entries keep the
/// order of the file. The stream stays open. An entry that is no UTF-8 is left out with a warning.
/// Without memory for the array the table stays empty.
void atr_trReadDictionary(std::FILE* stream) noexcept;

/// Print one of the reader's two warnings to the standard error stream, with the `length` bytes of
/// the key as they stand in the line.
void atr_trWarnInvalidUtf8(char const* key, int length) noexcept;
void atr_trWarnEncoding(char const* key, int length) noexcept;

#endif  // ATR_TRANSLATION_DICTIONARY_READER_H
