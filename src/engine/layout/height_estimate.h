#pragma once

#include "height_index.h"

#include <quillmarker/document.h>

#include <unordered_map>
#include <vector>

namespace quillmarker
{

/// How high paragraphs will be, about, without their fonts: from the length of the text, the sizes of its first characters
/// and of its objects. An estimate is never 0; what is known to take no room is no estimate.
class HeightEstimate
{
public:
    /// For lines of a width; 0: they are not wrapped. The document must outlive it.
    HeightEstimate(const Document& document, Twips width) : m_document(document), m_width(width) {}

    ParagraphHeight Of(const Paragraph& paragraph);

    /// Of the paragraphs from `first` on.
    std::vector<ParagraphHeight> Of(std::int32_t first, std::int32_t count);

private:
    /// What a format of characters means, looked up once.
    struct Letters
    {
        bool isHidden = false;
        Fine advance = 0;
        Fine height = 0;
    };

    const Letters& LettersOf(CharFormatId format);
    bool TakesNoRoom(const Paragraph& paragraph);

    const Document& m_document;
    Twips m_width;
    // Only the formats that were met: a keystroke asks for one or two of all those of a document.
    std::unordered_map<CharFormatId, Letters> m_letters;
    CharFormatId m_lastFormat{};
    const Letters* m_last = nullptr;  // of the last format: paragraphs alike follow each other
};

}  // namespace quillmarker
