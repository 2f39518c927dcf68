// libgettextpo's files and messages with an owner.
#ifndef ATR_TOOLS_ATR_DICT_PO_CATALOG_H
#define ATR_TOOLS_ATR_DICT_PO_CATALOG_H

#include <gettext-po.h>

#include <memory>
#include <string>

namespace dict {

struct FreePoFile {
  void operator()(po_file_t file) const noexcept { po_file_free(file); }
};
using PoFile = std::unique_ptr<std::remove_pointer_t<po_file_t>, FreePoFile>;

/// Reads a PO file in UTF-8. @throw Failure with the reader's first complaint.
PoFile readPo(std::string const& path);

/// Writes as writeFile does. @throw Failure.
void writePo(po_file_t file, std::string const& path);

/// Walks over the messages of a file and appends to it.
class PoMessages {
 public:
  explicit PoMessages(po_file_t file) : iterator_(po_message_iterator(file, nullptr)) {}
  PoMessages(PoMessages const&) = delete;
  PoMessages& operator=(PoMessages const&) = delete;
  ~PoMessages() { po_message_iterator_free(iterator_); }

  /// The next message, or null.
  po_message_t next() { return po_next_message(iterator_); }
  void append(po_message_t message) { po_message_insert(iterator_, message); }

 private:
  po_message_iterator_t iterator_;
};

bool isPoHeader(po_message_t message);

/// The dictionary's key of a message: its id, and its context as a tail.
std::string keyOf(po_message_t message);

}  // namespace dict

#endif  // ATR_TOOLS_ATR_DICT_PO_CATALOG_H
