// The test mode for translated runs. Both answers are worked out once in a process, at the first
// call, which must not come from two threads at a time.
#ifndef ATR_LAYOUT_TEST_MODE_H
#define ATR_LAYOUT_TEST_MODE_H

#include "atr/frame/export.h"

/// True if ZELTRA_LANG, ZLT_QA_PRINT and QMR_DICT_DIR were all in the environment at the first
/// call.
ATR_API bool atr_i18nTesting();

/// The marker that a test run can carry in its texts, the katakana U+30BD U+30FC, in the encoding
/// of the locale at the first call; empty if that has no form for it. Good to the end of the
/// process.
ATR_API char const* atr_i18nExtraCharacters();

#endif  // ATR_LAYOUT_TEST_MODE_H
