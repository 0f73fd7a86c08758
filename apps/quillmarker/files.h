#pragma once

#include "result.h"

#include <quillmarker/document.h>
#include <quillmarker/file_error.h>
#include <quillmarker/text_box.h>

#include <memory>
#include <string>

namespace quillmarker::tool
{

/// The file name that stands for standard input, or for standard output.
inline const std::string kStandardStream = "-";

/// A file opened for reading, or standard input.
Result<std::unique_ptr<std::istream>> OpenInput(const std::string& name);

/// All bytes of a file or of standard input.
Result<std::string> ReadInput(const std::string& name);

/// The document that a file or standard input holds.
Result<Document> ReadDocument(const std::string& name);

/// Puts a document into a file, whose old contents stay whole on failure, or writes it to standard output.
Result<bool> WriteDocument(const Document& document, const std::string& name, FileKind kind);

/// How a file is called in messages.
std::string Shown(const std::string& name, const char* stream = "standard input");

/// What went wrong with a file, as a line for people.
Failure FailureOf(const std::string& name, FileError error, const char* stream = "standard input");

}  // namespace quillmarker::tool
