// The environment decides the mode and the locale the marker. Each is fixed by its own first call.
#include "atr/layout/test_mode.h"

#include <cstdlib>

#include "atr/encoding/transcoding.h"

namespace {

constexpr unsigned char TestMarker[] = {0xE3, 0x82, 0xBD, 0xE3, 0x83, 0xBC, 0x00};
constexpr int kMarkerBound = 63;  // bytes; a longer form is left out, and the marker is empty

int testModeState = -1;  // not yet decided
char markerBuffer[64];
char const* markerText = nullptr;

bool isSet(char const* variable) noexcept { return std::getenv(variable) != nullptr; }

}  // namespace

bool atr_i18nTesting() {
  if (testModeState == -1) {
    bool const hasLanguage = isSet("ZELTRA_LANG");
    bool const hasPrint = isSet("ZLT_QA_PRINT");
    bool const hasFolder = isSet("QMR_DICT_DIR");
    testModeState = hasLanguage && hasPrint && hasFolder ? 1 : 0;
  }
  return testModeState != 0;
}

char const* atr_i18nExtraCharacters() {
  if (markerText != nullptr) return markerText;
  int const bytes = atr_utf8_to_encoding(EncodingLocale, nullptr, TestMarker, 0);
  if (bytes > 0 && bytes < kMarkerBound) {
    atr_utf8_to_encoding(EncodingLocale, reinterpret_cast<unsigned char*>(markerBuffer), TestMarker,
                         0);
  }
  markerText = markerBuffer;
  return markerText;
}
