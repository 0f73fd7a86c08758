#pragma once

#include <quillmarker/body.h>
#include <quillmarker/shared_value.h>
#include <quillmarker/twips.h>

#include <array>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace quillmarker
{

/// The page a document or a section is laid out on; 0 is not stated.
struct PageFormat
{
    Twips width, height;
    Twips left, right, top, bottom, gutter;
    bool landscape = false;

    bool operator==(const PageFormat&) const = default;
};

enum class SectionBreak : std::uint8_t { None, Column, Page, EvenPage, OddPage };

enum class HeaderKind : std::uint8_t {
    Header,
    HeaderLeft,
    HeaderRight,
    HeaderFirst,
    Footer,
    FooterLeft,
    FooterRight,
    FooterFirst
};

constexpr std::size_t kHeaderKinds = 8;

/// What holds for the text up to and including the paragraph mark that carries it; a document's last section is
/// carried by the document.
struct Section
{
    SectionBreak breakKind = SectionBreak::Page;
    PageFormat page;
    std::int32_t columns = 1;
    Twips columnGap;
    bool titlePage = false;
    Twips headerDistance, footerDistance;
    std::int32_t firstPage = 0;  // 0 is not stated
    bool restartPages = false;
    std::string kept;
    std::array<Body, kHeaderKinds> headers;

    const Body& operator[](HeaderKind kind) const { return headers[static_cast<std::size_t>(kind)]; }
    Body& operator[](HeaderKind kind) { return headers[static_cast<std::size_t>(kind)]; }
    bool operator==(const Section&) const = default;
};

/// What holds for a document as a whole.
struct DocumentFormat
{
    PageFormat page;
    Twips defaultTab = kDefaultTab;
    bool facingPages = false;
    std::vector<std::pair<std::string, std::u16string>> info;  // by \info keyword: "title", "author", …
    std::string infoKept;                                      // the dates and counts of \info, saved again
    std::string kept;
    Section lastSection;

    bool operator==(const DocumentFormat&) const = default;
};

}  // namespace quillmarker
