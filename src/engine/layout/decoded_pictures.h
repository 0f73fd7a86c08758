#pragma once

#include <quillmarker/inline_object.h>

#include <QImage>
#include <QSize>

#include <list>
#include <mutex>

namespace quillmarker
{

/// The pixels of pictures that were painted lately, found again by the identity of their bytes. Safe to share between
/// threads; bounded by what it holds in memory.
class DecodedPictures
{
public:
    explicit DecodedPictures(qsizetype mostBytes) : m_mostBytes(mostBytes) {}

    /// See DecodeBitmap.
    QImage Pixels(const InlinePicture& picture);

    /// The pixels reduced to `size`, smoothly; as they are when that would not reduce them much.
    QImage Reduced(const InlinePicture& picture, QSize size);

    /// What all of it holds in memory, about.
    qsizetype Weight() const;

private:
    struct Entry
    {
        // The bytes are held so that no other ones can take their address.
        InlinePicture picture;
        QImage pixels;
        QImage reduced;

        qsizetype Weight() const;
    };
    using Entries = std::list<Entry>;

    Entries::iterator Find(const InlinePicture& picture);
    void Trim();

    qsizetype m_mostBytes;
    mutable std::mutex m_mutex;
    Entries m_entries;  // the one used last first
};

/// The pictures of the process.
DecodedPictures& PaintedPictures();

}  // namespace quillmarker
