// All that a client of ZLTatr needs.
#ifndef ATR_ATR_H
#define ATR_ATR_H

#include "atr/encoding/transcoding.h"
#include "atr/encoding/utf8.h"
#include "atr/format/fmt.h"
#include "atr/format/substitute_format.h"
#include "atr/format/translate.h"
#include "atr/frame/lifecycle.h"
#include "atr/layout/test_mode.h"
#include "atr/natural/natural_order.h"
#include "atr/strings/allocator.h"
#include "atr/strings/string.h"
#include "atr/strings/working_string.h"
#include "atr/translation/translation.h"

#endif  // ATR_ATR_H
