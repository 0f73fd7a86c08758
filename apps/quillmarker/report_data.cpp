#include "report_data.h"

#include "source_position.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <iterator>
#include <unordered_set>

namespace quillmarker::tool
{
namespace
{

struct KindName
{
    std::string_view name;
    ItemKind kind;
};

constexpr KindName kKinds[] = {
    {"text", ItemKind::Text},
    {"rtf", ItemKind::Rtf},
    {"file", ItemKind::File},
    {"hidden", ItemKind::Hidden},
};

constexpr const char* kAllowed =
    R"(; allowed are text, a number, true, false, {"text": …}, {"rtf": …}, {"file": …}, {"hidden": …})"
    " and a list of these";

/// Takes the parser's events. Objects stand at two depths only: the report and an item; lists at one.
class DataBuilder : public nlohmann::json_sax<nlohmann::ordered_json>
{
public:
    ReportData data;
    std::string error;

    bool null() override { return Refuse("null"); }
    bool boolean(bool value) override { return Put(value ? "true" : "false"); }
    bool number_integer(number_integer_t value) override { return Put(std::to_string(value)); }
    bool number_unsigned(number_unsigned_t value) override { return Put(std::to_string(value)); }
    bool number_float(number_float_t, const string_t& written) override { return Put(written); }
    bool string(string_t& value) override { return Put(std::move(value)); }
    bool binary(binary_t&) override { return Refuse("binary data"); }

    bool start_object(std::size_t) override
    {
        if (m_inItem)
            return Refuse("an object in an object");
        if (!m_inReport)
            return m_inReport = true;
        m_inItem = true;
        m_hasKind = false;
        return true;
    }

    bool key(string_t& name) override { return m_inItem ? BeginItem(name) : BeginMarker(name); }

    bool end_object() override
    {
        if (m_inItem && !m_hasKind)
            return Refuse("an empty object");
        m_inItem = false;  // the report's own end is the last event
        return true;
    }

    bool start_array(std::size_t) override
    {
        if (m_inList || m_inItem)
            return Refuse(m_inItem ? "a list in an object" : "a list in a list");
        return m_inReport ? (m_inList = true) : Refuse("a list");
    }

    bool end_array() override
    {
        m_inList = false;
        return true;
    }

    bool parse_error(std::size_t, const std::string&, const nlohmann::detail::exception& exception) override
    {
        error = ReasonOf(exception.what());
        return false;
    }

private:
    /// "[json.exception.parse_error.101] parse error at line 1, column 2: syntax error …" without what stands in front.
    static std::string ReasonOf(std::string_view what)
    {
        constexpr std::string_view kPlace = "parse error at line ";
        const std::size_t place = what.find(kPlace);
        const std::string_view divider = place == what.npos ? "] " : ": ";
        const std::size_t begin = what.find(divider, place == what.npos ? 0 : place);
        return std::string(begin == what.npos ? what : what.substr(begin + divider.size()));
    }

    bool Refuse(const std::string& what)
    {
        if (m_inReport)
            error = "marker \"" + data.back().name + "\": " + what + " is not possible" + kAllowed;
        else
            error = what + " is not possible here; a report's data is an object that maps markers to values";
        return false;
    }

    bool BeginMarker(std::string& name)
    {
        if (name.empty())
            error = "a marker is empty";
        else if (!m_names.insert(name).second)
            error = "marker \"" + name + "\" stands twice in the data; a list inserts several values at a marker";
        else
            data.push_back({std::move(name), {}});
        return error.empty();
    }

    bool BeginItem(const std::string& name)
    {
        const auto* const found = std::ranges::find(kKinds, name, &KindName::name);
        if (found == std::end(kKinds))
            return Refuse("the key \"" + name + "\"");
        if (m_hasKind)
            return Refuse("a second key (\"" + name + "\")");
        m_hasKind = true;
        m_kind = found->kind;
        return true;
    }

    bool Put(std::string value)
    {
        if (!m_inReport)
            return Refuse("a single value");
        data.back().items.push_back({m_inItem ? m_kind : ItemKind::Text, std::move(value)});
        return true;
    }

    std::unordered_set<std::string> m_names;
    bool m_inReport = false;
    bool m_inList = false;
    bool m_inItem = false;
    bool m_hasKind = false;
    ItemKind m_kind = ItemKind::Text;
};

}  // namespace

Result<ReportData> ParseReportData(std::string_view json, const std::string& source, std::int64_t firstLine)
{
    DataBuilder builder;
    SourcePosition position{firstLine};
    if (nlohmann::ordered_json::sax_parse(TrackingIterator(json.data(), position),
                                          TrackingIterator(json.data() + json.size(), position), &builder))
        return std::move(builder.data);
    return Failure{source + ":" + position.Text() + ": " + builder.error};
}

}  // namespace quillmarker::tool
