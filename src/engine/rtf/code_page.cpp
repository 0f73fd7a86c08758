#include "engine/rtf/code_page.h"

#include "engine/document/utf.h"
#include "engine/rtf/known_pages.h"

#include <array>
#include <atomic>
#include <memory>

namespace quillmarker
{

Decoder::Decoder(CodePage page) : m_table(TableOfPage(page)), m_utf8(page == kUtf8Page) {}

void Decoder::Append(std::string_view bytes, std::u16string& out) const
{
    if (m_utf8)
        AppendUtf8(bytes, out);
    else if (IsDoubleByte())
        AppendPairs(bytes, out);
    else
        AppendSingles(bytes, out);
}

void Decoder::AppendSingles(std::string_view bytes, std::u16string& out) const
{
    const std::size_t start = out.size();
    out.resize(start + bytes.size());
    char16_t* unit = out.data() + start;
    for (const char byte : bytes)
        *unit++ = m_table.units[static_cast<unsigned char>(byte)];
}

void Decoder::AppendPairs(std::string_view bytes, std::u16string& out) const
{
    for (std::size_t at = 0; at < bytes.size(); ++at)
    {
        const auto lead = static_cast<unsigned char>(bytes[at]);
        if (!IsLeadByte(lead))
        {
            out += m_table.units[lead];
            continue;
        }
        const auto trail =
            at + 1 < bytes.size() ? static_cast<unsigned char>(bytes[at + 1]) : static_cast<unsigned char>(0);
        const char16_t unit = m_table.Pair(lead, trail);
        out += unit;
        if (unit != kReplacementUnit || trail >= 0x80)
            ++at;
    }
}

// A decoder made twice by two threads at once is thrown away once; what is kept is never freed, as references to it
// may be held until the very end of the process.
const Decoder& DecoderFor(CodePage page)
{
    constinit static std::array<std::atomic<const Decoder*>, kKnownPageCount> known{};
    std::atomic<const Decoder*>& place = known[KnownPageIndex(page)];
    const Decoder* decoder = place.load(std::memory_order_acquire);
    if (decoder != nullptr)
        return *decoder;
    auto made = std::make_unique<const Decoder>(page);
    if (place.compare_exchange_strong(decoder, made.get(), std::memory_order_acq_rel))
        return *made.release();
    return *decoder;
}

}  // namespace quillmarker
