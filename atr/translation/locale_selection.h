// The selection of locale and dictionary with an observer, for a program that explains the steps.
#ifndef ATR_TRANSLATION_LOCALE_SELECTION_H
#define ATR_TRANSLATION_LOCALE_SELECTION_H

#include "atr/strings/string_base.h"

namespace atr {

/// Observes a selection: each function is called after the step it stands for. The base class does
/// nothing.
class SelectionWatch {
 public:
  SelectionWatch() = default;
  SelectionWatch(SelectionWatch const&) = delete;
  SelectionWatch& operator=(SelectionWatch const&) = delete;
  virtual ~SelectionWatch() = default;

  /// The mode was decided. @param dictionary the path of the file below a search directory.
  virtual void onMode(bool /*isTranslated*/, char const* /*dictionary*/) {}

  /// setlocale was called. @param answer what it returned: null if it knows no such locale.
  virtual void onLocale(int /*category*/, char const* /*name*/, char const* /*answer*/) {}

  /// A candidate for the dictionary was tried.
  virtual void onCandidate(char const* /*path*/, bool /*isOpened*/) {}
};

/// Does what atr_setlocale does, and reports each step to `watch`.
bool selectDictionary(atr_StringBase* path, SelectionWatch& watch);

}  // namespace atr

#endif  // ATR_TRANSLATION_LOCALE_SELECTION_H
