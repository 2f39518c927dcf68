// The test mode shows on the screen which texts are translated: a dictionary made for testing puts
// a marker into each text, and the line breaker does not count it. Both answers are found at the
// first call and kept for the process; two threads must not make this call at the same time.
#ifndef ATR_LAYOUT_TEST_MODE_H
#define ATR_LAYOUT_TEST_MODE_H

#include "atr/frame/export.h"

/// True if ZELTRA_LANG, ZLT_QA_PRINT and QMR_DICT_DIR were all in the environment at the first
/// call.
ATR_API bool atr_i18nTesting();

/// The test marker, the two katakana U+30BD U+30FC, in the encoding that the locale had at the
/// first call; empty if they do not exist there. Valid to the end of the process.
ATR_API char const* atr_i18nExtraCharacters();

#endif  // ATR_LAYOUT_TEST_MODE_H
