#pragma once

#include <quillmarker/export.h>

#include <memory>

namespace quillmarker
{

struct BodyContent;  // the tree of paragraphs

/// A nested document: of a header, a footer, a footnote, an object's result. Its formats are those of the document it
/// is part of; Document::Nested makes it readable. Two bodies are equal when they are the same one; SameContent
/// compares what they hold.
class QUILLMARKER_CORE_EXPORT Body
{
public:
    Body() = default;
    explicit Body(std::shared_ptr<const BodyContent> content) : m_content(std::move(content)) {}

    /// True when there is none, which is not the same as an empty one.
    bool IsAbsent() const { return !m_content; }
    const BodyContent* Content() const { return m_content.get(); }
    bool operator==(const Body&) const = default;

private:
    std::shared_ptr<const BodyContent> m_content;
};

}  // namespace quillmarker
