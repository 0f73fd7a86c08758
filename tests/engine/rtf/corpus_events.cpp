#include "engine/rtf/corpus_events.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace quillmarker
{
namespace
{

constexpr std::array<std::pair<std::string_view, std::string_view>, 21> kCharacters = {{
    {"par", "\r\n"},         {"sect", "\r\n"},        {"row", "\r\n"},      {"cell", "\t"},       {"tab", "\t"},
    {"line", "\v"},          {"page", "\f"},          {"emdash", "\u2014"}, {"endash", "\u2013"}, {"emspace", "\u2003"},
    {"enspace", "\u2002"},   {"qmspace", "\u2005"},   {"bullet", "\u2022"}, {"lquote", "\u2018"}, {"rquote", "\u2019"},
    {"ldblquote", "\u201C"}, {"rdblquote", "\u201D"}, {"~", "\u00A0"},      {"-", "\u00AD"},      {"_", "\u2011"},
    {"zwj", "\u200D"},
}};

constexpr std::array<std::string_view, 13> kNoText = {"fonttbl", "colortbl", "stylesheet", "info",   "header",
                                                      "headerl", "headerr",  "headerf",    "footer", "footerl",
                                                      "footerr", "footerf",  "*"};

std::string Unescaped(std::string_view text)
{
    constexpr std::array<std::pair<std::string_view, char>, 5> kEntities = {
        {{"&lt;", '<'}, {"&gt;", '>'}, {"&amp;", '&'}, {"&quot;", '"'}, {"&apos;", '\''}}};
    std::string out;
    while (!text.empty())
    {
        const auto entity =
            std::ranges::find_if(kEntities, [&](const auto& row) { return text.starts_with(row.first); });
        out += entity == kEntities.end() ? text[0] : entity->second;
        text.remove_prefix(entity == kEntities.end() ? 1 : entity->first.size());
    }
    return out;
}

std::string_view Attribute(std::string_view tag, std::string_view name)
{
    const std::string lead = ' ' + std::string(name) + "=\"";
    const std::size_t at = tag.find(lead);
    if (at == tag.npos)
        return {};
    const std::string_view value = tag.substr(at + lead.size());
    return value.substr(0, value.find('"'));
}

class Events
{
public:
    void Element(std::string_view tag, std::string_view textBehind)
    {
        if (tag == "group")
            m_shown.push_back(m_shown.back());
        else if (tag == "/group")
            m_shown.pop_back();
        else if (tag == "chars" && m_shown.back())
            m_text += Unescaped(textBehind);
        else if (tag.starts_with("command "))
            Command(Attribute(tag, "name"), Attribute(tag, "optional") == "true");
    }

    std::string Text() && { return std::move(m_text); }

private:
    void Command(std::string_view name, bool isOptional)
    {
        if (isOptional || std::ranges::find(kNoText, name) != kNoText.end())
            m_shown.back() = false;
        const auto character =
            std::ranges::find(kCharacters, name, &std::pair<std::string_view, std::string_view>::first);
        if (m_shown.back() && character != kCharacters.end())
            m_text += character->second;
    }

    std::vector<bool> m_shown = {true};
    std::string m_text;
};

}  // namespace

std::string TextOfEvents(std::string_view xml)
{
    Events events;
    while (true)
    {
        const std::size_t open = xml.find('<');
        const std::size_t close = open == xml.npos ? xml.npos : xml.find('>', open);
        if (close == xml.npos)
            return std::move(events).Text();
        std::string_view tag = xml.substr(open + 1, close - open - 1);
        if (tag.ends_with('/'))
            tag.remove_suffix(1);
        xml.remove_prefix(close + 1);
        events.Element(tag, xml.substr(0, xml.find('<')));
    }
}

}  // namespace quillmarker
