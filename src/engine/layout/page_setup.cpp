#include <quillmarker/pages/page_setup.h>

#include <QPageSize>
#include <QSizeF>

#include <algorithm>
#include <cmath>

namespace quillmarker
{
namespace
{

constexpr Twips kLeastRoom = Inches(1) / 2;  // for text, each way
constexpr Twips kMostPaper = Inches(200);    // a side, as in PDF

Twips FromMillimetres(qreal length)
{
    constexpr qreal kTwipsPerMillimetre = 1440 / 25.4;
    return {static_cast<std::int32_t>(std::lround(length * kTwipsPerMillimetre))};
}

void Shrink(Twips& before, Twips& after, Twips whole)
{
    const Twips room = std::max(whole - kLeastRoom, Twips{0});
    before = std::clamp(before, Twips{0}, room);
    after = std::clamp(after, Twips{0}, room - before);
}

}  // namespace

std::optional<PaperSize> PaperNamed(std::string_view name)
{
    const QString wanted = QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())).trimmed();
    for (int id = 0; id <= static_cast<int>(QPageSize::LastPageSize); ++id)
    {
        const auto pageSize = static_cast<QPageSize::PageSizeId>(id);
        if (pageSize == QPageSize::Custom)
            continue;
        if (QPageSize::key(pageSize).compare(wanted, Qt::CaseInsensitive) != 0 &&
            QPageSize::name(pageSize).compare(wanted, Qt::CaseInsensitive) != 0)
            continue;
        const QSizeF size = QPageSize::size(pageSize, QPageSize::Millimeter);
        return PaperSize{FromMillimetres(size.width()), FromMillimetres(size.height())};
    }
    return {};
}

PageSetup WithRoom(PageSetup setup)
{
    setup.paper.width = std::clamp(setup.paper.width, kLeastRoom, kMostPaper);
    setup.paper.height = std::clamp(setup.paper.height, kLeastRoom, kMostPaper);
    Shrink(setup.left, setup.right, setup.paper.width);
    Shrink(setup.top, setup.bottom, setup.paper.height);
    return setup;
}

PageSetup PageSetupOf(const Document& document)
{
    const PageFormat& page = document.Properties().page;
    PageSetup setup;
    const auto state = [](Twips& value, Twips stated) {
        if (stated.value != 0)
            value = {std::abs(stated.value)};
    };
    state(setup.paper.width, page.width);
    state(setup.paper.height, page.height);
    state(setup.left, page.left);
    state(setup.right, page.right);
    state(setup.top, page.top);
    state(setup.bottom, page.bottom);
    setup.left += Twips{std::max(page.gutter.value, 0)};
    if (page.landscape && setup.paper.width < setup.paper.height)
        std::swap(setup.paper.width, setup.paper.height);
    return WithRoom(setup);
}

}  // namespace quillmarker
