#include <quillmarker/widgets/rich_text_editor.h>

#include "control/host_values.h"
#include "control/member_table.h"
#include "engine/box/attempt.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <tuple>
#include <type_traits>
#include <utility>

namespace quillmarker
{

namespace
{

template <class Type>
constexpr MemberType kTypeOf = MemberType::None;
template <>
constexpr MemberType kTypeOf<bool> = MemberType::Boolean;
template <>
constexpr MemberType kTypeOf<int> = MemberType::Long;
template <>
constexpr MemberType kTypeOf<float> = MemberType::Single;
template <>
constexpr MemberType kTypeOf<QString> = MemberType::String;
template <>
constexpr MemberType kTypeOf<Picture> = MemberType::Picture;
template <>
constexpr MemberType kTypeOf<QObject*> = MemberType::Object;

template <class Argument>
constexpr bool kIsChanged = std::is_lvalue_reference_v<Argument> && !std::is_const_v<std::remove_reference_t<Argument>>;

// Glue between a member function and a call with `values`, which have the types of its parameters. What the function
// changes by reference is put back into them.
template <class Function, class Result, class... Arguments>
struct Binding
{
    using Values = std::tuple<std::remove_cvref_t<Arguments>...>;

    template <Function function>
    static QVariant Call(IRichTextEditor& editor, QVariantList& values)
    {
        return CallWith<function>(editor, values, std::index_sequence_for<Arguments...>());
    }

    static constexpr bool Fits(const Member& member)
    {
        constexpr std::array<MemberType, sizeof...(Arguments)> types{kTypeOf<std::remove_cvref_t<Arguments>>...};
        constexpr std::array<bool, sizeof...(Arguments)> isChanged{kIsChanged<Arguments>...};
        if (member.parameters.size() != types.size() || member.result != kTypeOf<Result>)
            return false;
        for (std::size_t index = 0; index < types.size(); ++index)
            if (member.parameters[index].type != types[index] ||
                (isChanged[index] && member.parameters[index].passedBy != PassedBy::Reference))
                return false;
        return true;
    }

private:
    template <Function function, std::size_t... Index>
    static QVariant CallWith(IRichTextEditor& editor, [[maybe_unused]] QVariantList& values,
                             std::index_sequence<Index...>)
    {
        Values typed{values.at(Index).template value<std::tuple_element_t<Index, Values>>()...};
        if constexpr (std::is_void_v<Result>)
        {
            (editor.*function)(std::get<Index>(typed)...);
            (PutBack<Arguments>(values[Index], std::get<Index>(typed)), ...);
            return {};
        }
        else
        {
            QVariant result = QVariant::fromValue((editor.*function)(std::get<Index>(typed)...));
            (PutBack<Arguments>(values[Index], std::get<Index>(typed)), ...);
            return result;
        }
    }

    template <class Argument, class Value>
    static void PutBack([[maybe_unused]] QVariant& place, [[maybe_unused]] const Value& value)
    {
        if constexpr (kIsChanged<Argument>)
            place = QVariant::fromValue(value);
    }
};

template <class Result, class... Arguments>
constexpr auto BindingOf(Result (IRichTextEditor::*)(Arguments...))
{
    return Binding<Result (IRichTextEditor::*)(Arguments...), Result, Arguments...>();
}

template <class Result, class... Arguments>
constexpr auto BindingOf(Result (IRichTextEditor::*)(Arguments...) const)
{
    return Binding<Result (IRichTextEditor::*)(Arguments...) const, Result, Arguments...>();
}

struct Glue
{
    QVariant (*call)(IRichTextEditor& editor, QVariantList& values);
    bool (*fits)(const Member& member);
};

template <auto function>
constexpr Glue Bound()
{
    using Type = decltype(BindingOf(function));
    return {&Type::template Call<function>, &Type::Fits};
}

using Editor = IRichTextEditor;

// A row for each of kMembers.
constexpr std::array kGlue{
    Bound<&Editor::NoPrinterMsg>(),
    Bound<&Editor::Changed>(),
    Bound<&Editor::SetChanged>(),
    Bound<&Editor::Clear>(),
    Bound<&Editor::CursorEnd>(),
    Bound<&Editor::CursorStart>(),
    Bound<&Editor::hWnd>(),
    Bound<&Editor::MeasureInches>(),
    Bound<&Editor::SetMeasureInches>(),
    Bound<&Editor::OpenFileText>(),
    Bound<&Editor::PreviousField>(),
    Bound<&Editor::Refresh>(),
    Bound<&Editor::RTFString>(),
    Bound<&Editor::SelectText>(),
    Bound<&Editor::SetFont>(),
    Bound<&Editor::SetIndents>(),
    Bound<&Editor::ShowParagraphDialog>(),
    Bound<&Editor::Redraw>(),
    Bound<&Editor::Copy>(),
    Bound<&Editor::Cut>(),
    Bound<&Editor::Delete>(),
    Bound<&Editor::SetRedraw>(),
    Bound<&Editor::InsertPictureFile>(),
    Bound<&Editor::InsertFileRTF>(),
    Bound<&Editor::OpenFileRTF>(),
    Bound<&Editor::Paste>(),
    Bound<&Editor::InsertPictureObject>(),
    Bound<&Editor::InsertStringHidden>(),
    Bound<&Editor::InsertStringText>(),
    Bound<&Editor::InsertStringRTF>(),
    Bound<&Editor::SaveFileRTF>(),
    Bound<&Editor::ShowFontDialog>(),
    Bound<&Editor::ShowPrintPreview>(),
    Bound<&Editor::ShowPrintDialog>(),
    Bound<&Editor::ShowPageDialog>(),
    Bound<&Editor::ShowPrintSetupDialog>(),
    Bound<&Editor::ShowSearchDialog>(),
    Bound<&Editor::TextString>(),
    Bound<&Editor::SetToolbar>(),
    Bound<&Editor::Toolbar>(),
    Bound<&Editor::SetRuler>(),
    Bound<&Editor::Ruler>(),
    Bound<&Editor::SetStatusbar>(),
    Bound<&Editor::Statusbar>(),
    Bound<&Editor::Undo>(),
    Bound<&Editor::LeftMargin>(),
    Bound<&Editor::RightMargin>(),
    Bound<&Editor::TopMargin>(),
    Bound<&Editor::BottomMargin>(),
    Bound<&Editor::SetLeftMargin>(),
    Bound<&Editor::SetRightMargin>(),
    Bound<&Editor::SetTopMargin>(),
    Bound<&Editor::SetBottomMargin>(),
    Bound<&Editor::RTFObj>(),
};

constexpr bool GlueFitsTheTable()
{
    for (std::size_t row = 0; row < kGlue.size(); ++row)
        if (!kGlue[row].fits(kMembers[row]))
            return false;
    return true;
}

static_assert(kGlue.size() == kMembers.size());
static_assert(GlueFitsTheTable());

// What a member returns when a step of it failed.
QVariant NothingOf(MemberType result)
{
    switch (result)
    {
    case MemberType::Boolean:
        return false;
    case MemberType::Long:
        return 0;
    case MemberType::Single:
        return 0.0F;
    case MemberType::String:
        return QString();
    case MemberType::Picture:
        return QVariant::fromValue(Picture());
    case MemberType::Object:
        return QVariant::fromValue<QObject*>(nullptr);
    case MemberType::None:
        break;
    }
    return {};
}

// Scripts ask for what is a method or a reader with both flags.
bool HasKind(const Member& member, MemberKind asked)
{
    return (static_cast<unsigned>(member.kind) & static_cast<unsigned>(asked)) != 0;
}

DispatchResult CallRow(std::size_t row, IRichTextEditor& editor, QVariantList& arguments)
{
    const Member& member = kMembers[row];
    if (static_cast<std::size_t>(arguments.size()) != member.parameters.size())
        return {DispatchCode::BadParameterCount};
    QVariantList values;
    for (int index = 0; index < arguments.size(); ++index)
    {
        const auto type = member.parameters[static_cast<std::size_t>(index)].type;
        const Conversion conversion = ConvertedTo(type, arguments.at(index));
        if (conversion.code != DispatchCode::Done)
            return {conversion.code, {}, index};
        values.append(conversion.value);
    }
    DispatchResult result{DispatchCode::Done, NothingOf(member.result)};
    // The editor may be gone behind this: a handler of its signals may delete it.
    Attempt([&] { result.value = kGlue[row].call(editor, values); });
    for (int index = 0; index < arguments.size(); ++index)
        if (member.parameters[static_cast<std::size_t>(index)].passedBy == PassedBy::Reference)
            arguments[index] = values.at(index);
    return result;
}

DispatchResult Call(std::int32_t dispatchId, MemberKind kind, IRichTextEditor& editor, QVariantList& arguments)
{
    const auto* member = std::find_if(kMembers.begin(), kMembers.end(), [&](const Member& row) {
        return row.dispatchId == dispatchId && HasKind(row, kind);
    });
    if (member == kMembers.end())
        return {DispatchCode::MemberNotFound};
    return CallRow(static_cast<std::size_t>(member - kMembers.begin()), editor, arguments);
}

}  // namespace

std::int32_t DispatchIdOf(const QString& name)
{
    const auto* member = std::find_if(kMembers.begin(), kMembers.end(), [&name](const Member& row) {
        return name.compare(QLatin1String(row.name.data(), static_cast<qsizetype>(row.name.size())),
                            Qt::CaseInsensitive) == 0;
    });
    return member == kMembers.end() ? kUnknownDispatchId : member->dispatchId;
}

DispatchResult InvokeMember(IRichTextEditor& editor, std::int32_t dispatchId, MemberKind kind, QVariantList& arguments)
{
    // Stands when there is no memory to convert the arguments in.
    DispatchResult result{DispatchCode::TypeMismatch};
    Attempt([&] { result = Call(dispatchId, kind, editor, arguments); });
    return result;
}

}  // namespace quillmarker
