#pragma once

#include "engine/document/dump_values.h"
#include "engine/document/utf.h"

#include <quillmarker/document.h>
#include <quillmarker/rtf.h>

#include <string>
#include <string_view>
#include <tuple>

namespace quillmarker
{

/// A document with three fonts and three colours around `body`.
inline std::string Sample(std::string_view body)
{
    return R"({\rtf1\ansi\ansicpg1252\deff0{\fonttbl{\f0\fswiss\fcharset0 Arial;}{\f1\froman\fcharset0 Times New Roman;})"
           R"({\f2\fnil\fcharset2 Symbol;}}{\colortbl;\red255\green0\blue0;\red0\green128\blue0;\red0\green0\blue255;})" +
           std::string(body) + "}";
}

inline Document ReadSample(std::string_view body) { return ReadRtf(Sample(body)); }

/// The text of RTF source as UTF-8.
inline std::string TextOf(std::string_view source) { return ToUtf8(ReadRtf(source).Text()); }

inline const Paragraph& FirstOf(const Document& document) { return document.ParagraphAt(0); }

inline const CharFormat& CharsAt(const Document& document, std::uint32_t offset)
{
    return document.FormatOf(FirstOf(document).FormatAt(offset));
}

inline const ParagraphFormat& ParagraphOf(const Document& document, std::int32_t index = 0)
{
    return document.FormatOf(document.ParagraphAt(index).Ending().format);
}

/// What an object of the first paragraph is; none when it is of another kind.
template <class Object>
const Object* ObjectIn(const Document& document, std::uint32_t offset)
{
    const InlineObject* object = FirstOf(document).ObjectAt(offset);
    return object ? std::get_if<Object>(object) : nullptr;
}

inline std::string TextOf(const Document& document, const Body& body)
{
    return body.IsAbsent() ? "(none)" : ToUtf8(document.Nested(body).Text());
}

/// `changed` with every field that is as in `base` as it is by default, so that a dump shows only what differs.
template <class Format, class Fields>
Format Difference(Format changed, const Format& base, const Fields& fields)
{
    const Format usual{};
    const auto leaveOut = [&](const auto& field) {
        if (changed.*field.full == base.*field.full)
            changed.*field.full = usual.*field.full;
    };
    std::apply([&](const auto&... field) { (leaveOut(field), ...); }, fields);
    return changed;
}

/// What control words do to characters, as a dump.
inline std::string CharsAfter(const std::string& words)
{
    const Document plain = ReadSample("\\pard\\plain x");
    const Document changed = ReadSample("\\pard\\plain" + words + " x");
    return DumpOf(Difference(CharsAt(changed, 0), CharsAt(plain, 0), kCharFields));
}

/// What control words do to a paragraph, as a dump.
inline std::string ParagraphAfter(const std::string& words)
{
    return DumpOf(ParagraphOf(ReadSample("\\pard\\plain" + words + " x\\par")));
}

}  // namespace quillmarker
