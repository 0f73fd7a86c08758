// Reads anything as a recorded page, first as it is, then with the checksum put right. What is taken for a page must be
// written as it was read.

#include "require.h"

#include "engine/layout/page_record.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>

using namespace quillmarker;

namespace
{

class NoFace final : public FontFace
{
public:
    explicit NoFace(FaceIdentity identity) : m_identity(std::move(identity)) {}

    ShapedText Shape(std::u16string_view, TextDirection, Kerning) const override { return {}; }
    FaceIdentity Identity() const override { return m_identity; }
    QRawFont RawFont(qreal) const override { return {}; }

private:
    void FillPage(char16_t, GlyphPage& page) const override { page = {}; }

    FaceIdentity m_identity;
};

/// A face of every name, so that no font of the system is needed.
class NoFonts final : public FontHost
{
public:
    const FontFace& Face(const FontRequest&) override { return Face(FaceIdentity()); }
    const FontFace& Face(const FaceIdentity& identity) override
    {
        const auto key = std::tuple(identity.family, identity.weight, identity.italic);
        auto& face = m_faces[key];
        if (!face)
            face = std::make_unique<NoFace>(identity);
        return *face;
    }

private:
    std::map<std::tuple<QString, int, bool>, std::unique_ptr<NoFace>> m_faces;
};

void ReadAndWrite(std::string_view bytes)
{
    NoFonts fonts;
    const std::optional<PageRecord> page = PageFromBytes(bytes, fonts);
    if (!page)
        return;
    Require(page->list.items.size() <= bytes.size(), "items are bounded by the bytes");
    const std::string written = ToBytes(*page);
    const std::optional<PageRecord> again = PageFromBytes(written, fonts);
    Require(again.has_value(), "what was written is a page");
    Require(again->list.items == page->list.items, "a page that was written and read is the same");
    Require(again->list.faces == page->list.faces, "and so are its faces");
    Require(ToBytes(*again) == written, "writing what was written gives the same bytes");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string bytes(data, data + size);
    ReadAndWrite(bytes);
    ReadAndWrite(SealedPage(bytes));
    return 0;
}
