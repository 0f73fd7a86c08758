#pragma once

#include <quillmarker/widgets/export.h>

#include <QMimeData>

#include <memory>

namespace quillmarker
{

/// The machine's clipboard. A host may put another in its place.
class QUILLMARKER_WIDGETS_EXPORT ClipboardService
{
public:
    ClipboardService() = default;
    virtual ~ClipboardService() = default;
    ClipboardService(const ClipboardService&) = delete;
    ClipboardService& operator=(const ClipboardService&) = delete;

    /// What is on it; null when it cannot be had. Valid until something else is put on it.
    virtual const QMimeData* Content() const = 0;
    virtual void SetContent(std::unique_ptr<QMimeData> content) = 0;
    virtual void Clear() = 0;

    /// Whether what SetContent put there is still what it holds.
    virtual bool IsOwn() const = 0;
};

}  // namespace quillmarker
