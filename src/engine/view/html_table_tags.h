#pragma once

#include <string>
#include <vector>

namespace quillmarker
{

/// Opens and closes tables so that every paragraph stands where it belongs, even when the range begins inside a row.
class HtmlTableTags
{
public:
    explicit HtmlTableTags(std::string& out) : m_out(out) {}

    /// The next paragraph stands in `depth` tables.
    void Enter(int depth)
    {
        Leave(depth);
        for (int level = 0; level < depth; ++level)
        {
            if (level == static_cast<int>(m_levels.size()))
            {
                m_out += "<table border=\"1\" cellspacing=\"0\" cellpadding=\"4\">";
                m_levels.emplace_back();
            }
            Level& at = m_levels[static_cast<std::size_t>(level)];
            m_out += at.inRow ? "" : "<tr>";
            m_out += at.inCell ? "" : "<td>";
            at = {true, true};
        }
    }

    void EndCell()
    {
        m_out += "</td>";
        m_levels.back().inCell = false;
    }

    void EndRow()
    {
        m_out += m_levels.back().inCell ? "</td>" : "";
        m_out += m_levels.back().inRow ? "</tr>\n" : "";
        m_levels.back() = {};
    }

    void Leave(int depth)
    {
        while (static_cast<int>(m_levels.size()) > depth)
        {
            EndRow();
            m_out += "</table>\n";
            m_levels.pop_back();
        }
    }

    int Depth() const { return static_cast<int>(m_levels.size()); }

private:
    struct Level
    {
        bool inRow = false;
        bool inCell = false;
    };

    std::string& m_out;
    std::vector<Level> m_levels;
};

}  // namespace quillmarker
