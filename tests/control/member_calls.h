#pragma once

#include <quillmarker/rich_text_editor.h>

#include <QImage>
#include <QVariant>

namespace quillmarker
{

/// Something to call a member with: what its parameters are named and typed for. `file` is a path that can be read and
/// written.
inline QVariantList ArgumentsOf(const Member& member, const QString& file)
{
    QVariantList arguments;
    for (const Parameter& parameter : member.parameters)
    {
        const std::string_view name = parameter.name;
        if (name == "FileName")
            arguments.append(file);
        else if (name == "FindText")
            arguments.append(QString());
        else if (name == "richtext")
            arguments.append(QStringLiteral("{\\rtf1 {\\b r}ich\\par}"));
        else if (parameter.type == MemberType::String)
            arguments.append(QStringLiteral("12"));
        else if (parameter.type == MemberType::Picture)
            arguments.append(QImage(2, 3, QImage::Format_RGB32));
        else
            arguments.append(1);
    }
    return arguments;
}

/// Calls a member late, as a script does.
inline DispatchResult CallMember(RichTextEditor& editor, const Member& member, const QString& file)
{
    QVariantList arguments = ArgumentsOf(member, file);
    return editor.Invoke(member.dispatchId, member.kind, arguments);
}

}  // namespace quillmarker
