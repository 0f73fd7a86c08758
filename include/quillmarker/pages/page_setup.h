#pragma once

#include <quillmarker/document.h>
#include <quillmarker/pages/export.h>
#include <quillmarker/twips.h>

#include <optional>
#include <string>
#include <string_view>

namespace quillmarker
{

/// A sheet of paper.
struct PaperSize
{
    Twips width;
    Twips height;

    bool operator==(const PaperSize&) const = default;
};

/// A paper by its usual name, whatever the case: "A4", "Letter", "Legal", "A5", … None when there is no such paper.
QUILLMARKER_PAGES_EXPORT std::optional<PaperSize> PaperNamed(std::string_view name);

/// The paper and its margins. Unstated, they are what RTF means where it states nothing.
struct PageSetup
{
    PaperSize paper{Twips{12240}, Twips{15840}};
    Twips left{1800};
    Twips top{1440};
    Twips right{1800};
    Twips bottom{1440};

    bool operator==(const PageSetup&) const = default;
};

/// The page that a document asks for (its first section's), or RTF's own where it says nothing. Margins that would leave no
/// room are made smaller.
QUILLMARKER_PAGES_EXPORT PageSetup PageSetupOf(const Document& document);

/// The same with margins that leave room for text, whatever was asked for.
QUILLMARKER_PAGES_EXPORT PageSetup WithRoom(PageSetup setup);

}  // namespace quillmarker
