#pragma once

#include "report_data.h"
#include "result.h"

#include <cstdint>
#include <string>
#include <vector>

namespace quillmarker::tool
{

/// The name of a batch's files, with keys in braces: "out/{id}.rtf". {line} is the number of the line.
class OutputName
{
public:
    static Result<OutputName> Parse(const std::string& pattern);

    /// The name for one line. Values are single parts of a path: they may not lead into another folder.
    Result<std::string> For(const ReportData& data, std::int64_t line) const;

    /// True when the name is made with this key.
    bool Uses(const std::string& key) const;

private:
    struct Piece
    {
        std::string text;
        bool isKey = false;
    };

    std::vector<Piece> m_pieces;
};

}  // namespace quillmarker::tool
