#include "decoded_pictures.h"

#include "picture_image.h"

#include <algorithm>

namespace quillmarker
{
namespace
{

constexpr qsizetype kMostBytes = qsizetype{192} * 1024 * 1024;
constexpr qsizetype kWeightOfAny = qsizetype{64} * 1024;  // so that pictures that cannot be read are bounded too

// What decides about the pixels; for all but a device-dependent bitmap these are the bytes alone.
bool HaveSamePixels(const InlinePicture& a, const InlinePicture& b)
{
    return a.bytes.Identity() == b.bytes.Identity() && a.kind == b.kind && a.width == b.width && a.height == b.height &&
           a.kept == b.kept;
}

// Smooth painting reads four pixels for each it sets: up to that reduction it is as good.
bool IsReducedMuch(QSize pixels, QSize size)
{
    return size.width() > 0 && size.height() > 0 && size.width() <= pixels.width() &&
           size.height() <= pixels.height() &&
           (size.width() * 3 <= pixels.width() * 2 || size.height() * 3 <= pixels.height() * 2);
}

}  // namespace

qsizetype DecodedPictures::Entry::Weight() const
{
    const auto source = static_cast<qsizetype>(picture.bytes ? picture.bytes->size() : 0);
    return kWeightOfAny + source + pixels.sizeInBytes() + reduced.sizeInBytes();
}

DecodedPictures::Entries::iterator DecodedPictures::Find(const InlinePicture& picture)
{
    const auto found = std::find_if(m_entries.begin(), m_entries.end(),
                                    [&](const Entry& entry) { return HaveSamePixels(entry.picture, picture); });
    if (found != m_entries.end())
        m_entries.splice(m_entries.begin(), m_entries, found);
    return found;
}

void DecodedPictures::Trim()
{
    qsizetype weight = 0;
    auto entry = m_entries.begin();
    // The newest stays, whatever it weighs: it is about to be painted, and painted again.
    for (bool isNewest = true; entry != m_entries.end(); ++entry, isNewest = false)
    {
        weight += entry->Weight();
        if (weight > m_mostBytes && !isNewest)
            break;
    }
    m_entries.erase(entry, m_entries.end());
}

QImage DecodedPictures::Pixels(const InlinePicture& picture)
{
    {
        const std::lock_guard lock(m_mutex);
        if (const auto found = Find(picture); found != m_entries.end())
            return found->pixels;
    }
    // Others need not wait for the decoding. Two that decode the same do it twice, once.
    QImage pixels = DecodeBitmap(picture);
    if (pixels.format() == QImage::Format_ARGB32)
        pixels.convertTo(QImage::Format_ARGB32_Premultiplied);
    const std::lock_guard lock(m_mutex);
    if (Find(picture) == m_entries.end())
        m_entries.push_front({picture, pixels, {}});
    Trim();
    return pixels;
}

QImage DecodedPictures::Reduced(const InlinePicture& picture, QSize size)
{
    QImage pixels = Pixels(picture);
    if (!IsReducedMuch(pixels.size(), size))
        return pixels;
    {
        const std::lock_guard lock(m_mutex);
        if (const auto found = Find(picture); found != m_entries.end() && found->reduced.size() == size)
            return found->reduced;
    }
    QImage reduced = pixels.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    const std::lock_guard lock(m_mutex);
    if (const auto found = Find(picture); found != m_entries.end())
        found->reduced = reduced;
    Trim();
    return reduced;
}

qsizetype DecodedPictures::Weight() const
{
    const std::lock_guard lock(m_mutex);
    qsizetype weight = 0;
    for (const Entry& entry : m_entries)
        weight += entry.Weight();
    return weight;
}

DecodedPictures& PaintedPictures()
{
    static DecodedPictures pictures(kMostBytes);
    return pictures;
}

}  // namespace quillmarker
