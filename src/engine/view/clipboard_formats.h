#pragma once

#include <quillmarker/document.h>
#include <quillmarker/position.h>
#include <quillmarker/text_box.h>

#include <QMimeData>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace quillmarker
{

/// Rewrites the RTF of what is copied before anybody sees it, in whatever format. It is called when somebody asks for
/// the data, which may be long after copying: it must not refer to what may be gone by then.
using CopyFilter = std::function<std::u16string(std::u16string rtf)>;

/// A part of a document, as it is offered to other programs: RTF, HTML, plain text (lines end in LF, hidden text is
/// left out), and an image when it is exactly one picture. Making it costs nothing: it holds the value, and each format
/// is produced when somebody asks for it.
class DocumentMimeData : public QMimeData
{
    Q_OBJECT

public:
    DocumentMimeData(Document document, TextRange range, CopyFilter filter = {});

    /// What is offered, filtered.
    const Document& Fragment() const;

    bool hasFormat(const QString& mimeType) const override;
    QStringList formats() const override;

protected:
    QVariant retrieveData(const QString& mimeType, QMetaType type) const override;

private:
    Document m_document;
    TextRange m_range;
    CopyFilter m_filter;
    mutable std::optional<Document> m_fragment;
};

/// What the selection offers; null when nothing is selected. For the clipboard and for dragging.
std::unique_ptr<QMimeData> MimeDataOfSelection(const TextBox& box, const CopyFilter& filter = {});

/// Whether InsertMimeData would find something it can put in: says nothing about Locked and protection.
bool CanInsertMimeData(const QMimeData& data);

/// Puts the best of what is offered over the selection, as the user's edit: RTF, else an image, else HTML, else text. False
/// when nothing was put in, or not all of it: the box is locked, the text protected, MaxLength reached.
bool InsertMimeData(TextBox& box, const QMimeData& data);

}  // namespace quillmarker
