// Findings as people and machines read them.
#ifndef ATR_TOOLS_ATR_DICT_REPORT_H
#define ATR_TOOLS_ATR_DICT_REPORT_H

#include <string>

#include "findings.h"

namespace dict {

enum class Format { text, json, github };

struct ReportStyle {
  Format format = Format::text;
  bool isColored = false;
};

struct Counts {
  int errors = 0;
  int warnings = 0;
};

/// Prints the findings of a dictionary and adds them up.
///
/// text: `file:line:column: error: what happens [rule]`, the line, a caret, a hint. Lines and
/// columns count from 1, columns in characters. A finding about the file as a whole has neither.
/// json: an object a line, in UTF-8. github: a workflow command a line.
void report(Findings& findings, ReportStyle const& style, Counts& counts);

}  // namespace dict

#endif  // ATR_TOOLS_ATR_DICT_REPORT_H
