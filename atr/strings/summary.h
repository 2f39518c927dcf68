// Optional statistics of the string module. They are on from a start with ATR_SUMMARY in the
// environment until the stop, which prints them. While they are off, an event costs one test.
#ifndef ATR_STRINGS_SUMMARY_H
#define ATR_STRINGS_SUMMARY_H

/// The statistics. The sums cover the inline representations that have ended.
struct atr_StringSummary {
  int repsCreated;        ///< representations made with no inline body
  int stringsCreated;     ///< representations made with an inline body
  int extensionFailures;  ///< times a sole owner's inline body was too small
  int active;             ///< representations alive now
  int bytesInUse;         ///< sizes of the inline representations alive now
  int maxActive;
  int maxBytesInUse;
  float sumLength;
  float sumLengthSquared;
  float sumSpare;
  float sumSpareSquared;

  /// A representation was made; `size` is 0 if it has no inline body.
  void RepCreated(int size) noexcept;

  /// A representation ended; `size` is 0 if its body was not inline.
  void RepDeleted(int length, int size) noexcept;

  /// Prints the report on the standard error stream.
  void Report() const;
};

/// The statistics, or null while they are off. Callers test it before each event.
extern atr_StringSummary* atr_summary;

/// Called at the start and at the stop of the string module.
void atr_summaryInitialize() noexcept;
void atr_summaryFinalize();

#endif  // ATR_STRINGS_SUMMARY_H
