#pragma once

#include "engine/rtf/writer_tables.h"

#include <quillmarker/char_format.h>
#include <quillmarker/paragraph_format.h>
#include <quillmarker/section.h>
#include <quillmarker/table_row.h>

#include <string>

namespace quillmarker
{

// Formats as control words. Each piece that is not empty ends with a blank, so that text may follow it.

/// All of a format from \plain on.
std::string PlainWords(const CharFormat& format, const WriterTables& tables);

/// What turns `from` into `to`. \f and \fs stand before \up or \dn, and a text with an offset always states its own
/// \fs, so that the size can be changed together with the offset by rewriting the source.
std::string CharWords(const CharFormat& from, const CharFormat& to, const WriterTables& tables);

/// All of a paragraph's format from \pard on.
std::string ParagraphWords(const ParagraphFormat& format, int tableDepth, const WriterTables& tables);

/// What a style states, without a blank behind it.
std::string DefinitionWords(const StyleDefinition& definition, StyleKind kind, const WriterTables& tables);

std::string RowWords(const TableRow& row, const WriterTables& tables);

/// A section's properties from \sectd on, without its headers.
std::string SectionWords(const Section& section);

/// A document's properties and information; empty when there are none.
std::string DocumentWords(const DocumentFormat& format);

}  // namespace quillmarker
