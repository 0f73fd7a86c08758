#include "engine/document/dump_values.h"
#include "engine/document/tree.h"

#include <quillmarker/document.h>

#include <array>

namespace quillmarker
{
namespace
{

constexpr std::array kHeaderNames = {"header", "header-left", "header-right", "header-first",
                                     "footer", "footer-left", "footer-right", "footer-first"};
constexpr std::array kPictureNames = {"png", "jpeg", "emf", "wmf", "dib", "ddb", "mac", "other"};
constexpr std::array kNoteNames = {"footnote", "endnote", "annotation"};

class Dumping
{
public:
    explicit Dumping(const Document& document) : m_document(document) {}

    std::string All()
    {
        m_out += DumpOf(m_document.Properties());
        PutBody(m_document.Content());
        PutSection(m_document.Properties().lastSection);
        return std::move(m_out);
    }

private:
    void Line(const std::string& text) { m_out += std::string(m_indent, ' ') + text + '\n'; }

    void PutBody(const Body& body)
    {
        body.Content()->tree.Visit(0, [&](const ParagraphRef& paragraph) {
            PutParagraph(*paragraph);
            return true;
        });
    }

    void PutParagraph(const Paragraph& paragraph)
    {
        const ParagraphMark& mark = paragraph.Ending();
        constexpr std::array kMarks = {"paragraph", "cell", "row"};
        std::string line = kMarks[static_cast<std::size_t>(mark.kind)];
        if (mark.tableDepth > 0)
            line += " depth=" + std::to_string(mark.tableDepth);
        Line(line + DumpOf(m_document.FormatOf(mark.format)));
        m_indent += 2;
        if (paragraph.Extras().row)
            Line(DumpOf(*paragraph.Extras().row));
        std::uint32_t begin = 0;
        for (const Run& run : paragraph.Runs())
        {
            PutRun(paragraph, begin, run);
            begin = run.end;
        }
        const bool isLike = !paragraph.Runs().empty() && paragraph.Runs().back().format == mark.charFormat;
        if (!isLike)
            Line("mark" + DumpOf(m_document.FormatOf(mark.charFormat)));
        if (paragraph.Extras().section)
            PutSection(*paragraph.Extras().section);
        m_indent -= 2;
    }

    void PutRun(const Paragraph& paragraph, std::uint32_t begin, const Run& run)
    {
        const auto text = paragraph.Text();
        Line(Quoted(text.substr(begin, run.end - begin)) + DumpOf(m_document.FormatOf(run.format)));
        m_indent += 2;
        for (const PlacedObject& placed : paragraph.Extras().objects)
        {
            if (placed.offset >= begin && placed.offset < run.end)
                PutObject(*placed.object);
        }
        m_indent -= 2;
    }

    void PutObject(const InlineObject& object)
    {
        if (const auto* picture = std::get_if<InlinePicture>(&object))
            Line(std::string("picture ") + kPictureNames[static_cast<std::size_t>(picture->kind)] + DumpOf(*picture));
        else if (const auto* embedded = std::get_if<EmbeddedObject>(&object))
            PutNested("object" + DumpOf(*embedded), embedded->result);
        else
        {
            const Note& note = std::get<Note>(object);
            std::string line = kNoteNames[static_cast<std::size_t>(note.kind)];
            if (!note.author.empty() || !note.id.empty())
                line += " author=" + Quoted(note.author) + " id=" + Quoted(note.id);
            PutNested(line, note.body);
        }
    }

    void PutNested(const std::string& line, const Body& body)
    {
        Line(line);
        m_indent += 2;
        if (!body.IsAbsent())
            PutBody(body);
        m_indent -= 2;
    }

    void PutSection(const Section& section)
    {
        if (section == Section())
            return;
        Line("section" + DumpOf(section));
        m_indent += 2;
        for (std::size_t kind = 0; kind < kHeaderKinds; ++kind)
        {
            if (!section.headers[kind].IsAbsent())
                PutNested(kHeaderNames[kind], section.headers[kind]);
        }
        m_indent -= 2;
    }

    const Document& m_document;
    std::string m_out;
    std::size_t m_indent = 0;
};

}  // namespace

std::string Dump(const Document& document) { return Dumping(document).All(); }

}  // namespace quillmarker
