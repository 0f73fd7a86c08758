#pragma once

#include "recording_editor.h"

#include <QImage>
#include <QVariant>

#include <string>

namespace quillmarker
{

constexpr auto kMethod = MemberKind::Method;
constexpr auto kGet = MemberKind::PropertyGet;
constexpr auto kPut = MemberKind::PropertyPut;

inline DispatchResult Invoked(IRichTextEditor& editor, const char* name, MemberKind kind, QVariantList& arguments)
{
    return InvokeMember(editor, DispatchIdOf(QString::fromLatin1(name)), kind, arguments);
}

struct Outcome
{
    DispatchCode code = DispatchCode::Done;
    int argument = -1;
    std::string called;
    QVariantList arguments;  // as they are after the call
};

inline Outcome Called(const char* name, MemberKind kind, QVariantList arguments)
{
    RecordingEditor editor;
    const DispatchResult result = Invoked(editor, name, kind, arguments);
    return {result.code, result.argument, editor.called, arguments};
}

inline QImage Pixels(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::red);
    return image;
}

inline QVariant Text(const char* text) { return QString::fromUtf8(text); }

}  // namespace quillmarker
