// PO files, by libgettextpo. Where that is missing, po_absent.cpp stands in.
#ifndef ATR_TOOLS_ATR_DICT_PO_FILE_H
#define ATR_TOOLS_ATR_DICT_PO_FILE_H

#include <string>
#include <vector>

#include "asked_keys.h"

namespace dict {

/// The messages of a PO file or template; contexts come as tails.
/// @throw Failure if it cannot be read, or if there is no libgettextpo.
std::vector<AskedKey> readPoKeys(std::string const& path);

}  // namespace dict

#endif  // ATR_TOOLS_ATR_DICT_PO_FILE_H
