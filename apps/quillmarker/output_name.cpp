#include "output_name.h"

#include <algorithm>

namespace quillmarker::tool
{
namespace
{

const std::string kLineKey = "line";

Result<std::string> ValueOf(const std::string& key, const ReportData& data, std::int64_t line)
{
    if (key == kLineKey)
        return std::to_string(line);
    const auto marker = std::ranges::find(data, key, &Marker::name);
    if (marker == data.end())
        return Failure{"there is no \"" + key + "\", which the output's name is made with"};
    if (marker->items.size() != 1 || marker->items.front().kind != ItemKind::Text)
        return Failure{"\"" + key + "\" should be text or a number, since the output's name is made with it"};
    const std::string& value = marker->items.front().value;
    if (value.find('/') != value.npos || value.find('\0') != value.npos)
        return Failure{"\"" + key +
                       "\" holds a character that no file's name can have, and the output's name is made with it"};
    return value;
}

/// Whether a value makes a part of the path, which goes from slash to slash, mean another folder or a hidden file.
bool LeadsAstray(const std::string& name, std::size_t begin, std::size_t end)
{
    const std::size_t slash = begin == 0 ? name.npos : name.rfind('/', begin - 1);
    const std::size_t first = slash == name.npos ? 0 : slash + 1;
    const std::string part = name.substr(first, std::min(name.find('/', end), name.size()) - first);
    return part.empty() || part == "." || part == ".." || (first == begin && part.front() == '.');
}

}  // namespace

Result<OutputName> OutputName::Parse(const std::string& pattern)
{
    OutputName name;
    for (std::size_t at = 0; at < pattern.size();)
    {
        const std::size_t open = std::min(pattern.find('{', at), pattern.size());
        if (open > at)
            name.m_pieces.push_back({pattern.substr(at, open - at), false});
        if (open == pattern.size())
            break;
        const std::size_t close = pattern.find('}', open);
        if (close == pattern.npos || close == open + 1)
            return Failure{"the output \"" + pattern + "\" has a { without a key and a } behind it"};
        name.m_pieces.push_back({pattern.substr(open + 1, close - open - 1), true});
        at = close + 1;
    }
    if (std::ranges::none_of(name.m_pieces, &Piece::isKey))
        return Failure{"the output \"" + pattern +
                       "\" would be the same file for each line; put a key into it, as in out/{line}.rtf"};
    return name;
}

Result<std::string> OutputName::For(const ReportData& data, std::int64_t line) const
{
    struct Place
    {
        const Piece* piece;
        std::size_t begin, end;
    };
    std::string name;
    std::vector<Place> values;
    for (const Piece& piece : m_pieces)
    {
        const auto value = piece.isKey ? ValueOf(piece.text, data, line) : Result<std::string>(piece.text);
        if (!value)
            return Failure{value.Message()};
        if (piece.isKey)
            values.push_back({&piece, name.size(), name.size() + value->size()});
        name += *value;
    }
    for (const Place& place : values)
        if (LeadsAstray(name, place.begin, place.end))
            return Failure{"\"" + place.piece->text +
                           "\" would make the output's name empty, hidden or another folder's: \"" + name + "\""};
    return name;
}

bool OutputName::Uses(const std::string& key) const
{
    return std::ranges::any_of(m_pieces, [&](const Piece& piece) { return piece.isKey && piece.text == key; });
}

}  // namespace quillmarker::tool
