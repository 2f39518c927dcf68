// How the environment selects locale and dictionary, step by step, for who wants to tell of it.
#ifndef ATR_TRANSLATION_LOCALE_SELECTION_H
#define ATR_TRANSLATION_LOCALE_SELECTION_H

#include "atr/strings/string_base.h"

namespace atr {

/// Is told of each step of a selection, when it has been done. Does nothing by itself.
class SelectionWatch {
 public:
  SelectionWatch() = default;
  SelectionWatch(SelectionWatch const&) = delete;
  SelectionWatch& operator=(SelectionWatch const&) = delete;
  virtual ~SelectionWatch() = default;

  /// @param dictionary its path below a search directory.
  virtual void onMode(bool /*isTranslated*/, char const* /*dictionary*/) {}

  /// A call of setlocale: the category, the name that was asked for and the answer, null for none.
  virtual void onLocale(int /*category*/, char const* /*name*/, char const* /*answer*/) {}

  /// A file that was tried.
  virtual void onCandidate(char const* /*path*/, bool /*isOpened*/) {}
};

/// Does what atr_setlocale does, and tells of it.
bool selectDictionary(atr_StringBase* path, SelectionWatch& watch);

}  // namespace atr

#endif  // ATR_TRANSLATION_LOCALE_SELECTION_H
