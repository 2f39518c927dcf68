// The counters wrap around like unsigned ones. Means and deviations are computed in 32-bit floats,
// the type of the fields.
#include "atr/strings/summary.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "atr/strings/new_or_null.h"

atr_StringSummary* atr_summary = nullptr;

namespace {

void addWrapping(int& counter, int change) noexcept {
  counter =
      static_cast<int>(static_cast<unsigned int>(counter) + static_cast<unsigned int>(change));
}

}  // namespace

void atr_StringSummary::RepCreated(int size) noexcept {
  addWrapping(size != 0 ? stringsCreated : repsCreated, 1);
  addWrapping(active, 1);
  maxActive = std::max(maxActive, active);
  addWrapping(bytesInUse, size);
  maxBytesInUse = std::max(maxBytesInUse, bytesInUse);
}

void atr_StringSummary::RepDeleted(int length, int size) noexcept {
  if (size != 0) {
    auto const l = static_cast<float>(length);
    auto const s = static_cast<float>(size - length);
    sumLength += l;
    sumLengthSquared += l * l;
    sumSpare += s;
    sumSpareSquared += s * s;
  }
  addWrapping(active, -1);
  addWrapping(bytesInUse, static_cast<int>(0U - static_cast<unsigned int>(size)));
}

namespace {

struct Moments {
  float mean;
  float sigma;
};

// Rounding may make the variance negative; the report then shows what the C runtime prints for NaN.
Moments moments(float sum, float sumSquared, float factor) noexcept {
  float const mean = sum * factor;
  return {mean, std::sqrt(sumSquared * factor - mean * mean)};
}

}  // namespace

// The sums cover strings that have ended, but the divisor counts all that were made: strings still
// alive at the report lower the means.
void atr_StringSummary::Report() const {
  float const factor = stringsCreated != 0 ? static_cast<float>(1.0 / stringsCreated) : 0.0F;
  Moments const lengths = moments(sumLength, sumLengthSquared, factor);
  Moments const spares = moments(sumSpare, sumSpareSquared, factor);
  std::fprintf(stderr,
               "%8d Reps Created\n%8d Strings Created\n%8d Extension Failures\n%8d Active\n"
               "%8d Bytes in use\n%8d Maximum active\n%8d Maximum bytes in use\n"
               "%8.1f Mean length\n%8.1f Sigma length\n%8.1f Mean spare\n%8.1f Sigma spare\n",
               repsCreated, stringsCreated, extensionFailures, active, bytesInUse, maxActive,
               maxBytesInUse, static_cast<double>(lengths.mean), static_cast<double>(lengths.sigma),
               static_cast<double>(spares.mean), static_cast<double>(spares.sigma));
}

void atr_summaryInitialize() noexcept {
  if (std::getenv("ATR_SUMMARY") == nullptr) return;
  atr_summary = atr::newOrNull<atr_StringSummary>();
}

void atr_summaryFinalize() {
  if (atr_summary == nullptr) return;
  atr_summary->Report();
  delete atr_summary;
  atr_summary = nullptr;
}
