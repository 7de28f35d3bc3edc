#pragma once

#include "exchange/export_run.h"
#include "exchange/xml_options.h"

namespace hourwright::exchange {

/// Writes the time entries of the range that the filter accepts, in date order, as one XML document. Nothing in the
/// range leaves a document without entries. The bytes are those of the system's ANSI code page whatever the declaration
/// says, but for UTF-16; see `DocumentFile` on double-byte code pages. What the code page lacks becomes its default
/// character. Texts that XML does not allow (control characters, a "]]>" in a note, half a surrogate pair in UTF-16)
/// are written as they stand, so that nothing is lost; a strict reader may refuse such a file. A store that cannot be
/// read at all leaves an existing file as it is; after a later failure the file stays with what was written.
[[nodiscard]] ExportResult exportXml(store::RecordStore& entries, const store::DateRange& range,
                                     const TimeEntryFilter& accepts, const XmlOptions& options,
                                     const ExportTarget& target);

} // namespace hourwright::exchange
