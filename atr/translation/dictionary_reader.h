// The dictionary file: a pair of key and UTF-8 text a line, as in
//
//     msg['Open'] = r'Abrir'
#ifndef ATR_TRANSLATION_DICTIONARY_READER_H
#define ATR_TRANSLATION_DICTIONARY_READER_H

#include <cstdio>

/// Fills the empty table from a stream that is open and at its beginning, in file order. The stream
/// stays open. A bad entry is warned about and left out; without memory for the array the table
/// stays empty.
void atr_trReadDictionary(std::FILE* stream) noexcept;

/// The reader's warnings, with the key as it stands in the line.
void atr_trWarnInvalidUtf8(char const* key, int length) noexcept;
void atr_trWarnEncoding(char const* key, int length) noexcept;

#endif  // ATR_TRANSLATION_DICTIONARY_READER_H
