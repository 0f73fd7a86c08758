#include "control/editor_sample.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDebug>
#include <QFile>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QMimeData>
#include <QTemporaryDir>

#include <array>
#include <set>

namespace quillmarker
{
namespace
{

// Every member of the table, called three ways on controls that are alike; what comes of it must be the same.

enum class Way { Cpp, MetaObject, Late };

constexpr std::array kWays = {Way::Cpp, Way::MetaObject, Way::Late};

/// What a call left behind: its result and arguments, the document, the properties, and what was heard.
struct Trace
{
    QVariant result;
    QVariantList arguments;
    std::string shown;
    QString rtf;
    QVariantMap properties;
    QStringList heard;
    QStringList clipboard;
    std::size_t messages = 0;

    bool operator==(const Trace&) const = default;
};

void PrintTo(const Trace& trace, std::ostream* out)
{
    QString text;
    QDebug(&text) << trace.result << trace.arguments << trace.properties << trace.heard << trace.clipboard;
    *out << trace.shown << " " << text.toStdString() << trace.rtf.toStdString();
}

/// A control with a sample in it, whose events are noted.
class Subject
{
public:
    Subject() : editor(scripted.Services())
    {
        scripted.fontDialog->choose = [](FontDialogRequest& request) {
            SetLogFontNumber(request.logFont, LogFontField::Italic, 1);
        };
        ShowForTyping(editor);
        Put(editor, "ab <b>[M]</b> <i>^cd|</i> e [m] f");
        QApplication::clipboard()->setText(QStringLiteral("pasted"));
        Note(&RichTextEditor::Change, "Change");
        Note(&RichTextEditor::Click, "Click");
        Note(&RichTextEditor::DblClick, "DblClick");
        Note(&RichTextEditor::RClick, "RClick");
        QObject::connect(&editor, &RichTextEditor::PropertyChanged, &editor,
                         [this](const QString& key) { heard.append(QStringLiteral("property ") + key); });
        QObject::connect(&editor, &RichTextEditor::ToolbarClick, &editor,
                         [this](const QString& key) { heard.append(QStringLiteral("button ") + key); });
    }

    Trace Left(const QVariant& result, const QVariantList& arguments)
    {
        Trace trace{result, arguments, Shown(editor), EngineOf(editor).TextRTF(), {}, heard, {}, 0};
        const QMetaObject& meta = RichTextEditor::staticMetaObject;
        for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i)
        {
            const QString name = QString::fromLatin1(meta.property(i).name());
            if (name != QLatin1String("hWnd") && name != QLatin1String("RTFObj"))
                trace.properties[name] = meta.property(i).read(&editor);
        }
        trace.clipboard = QApplication::clipboard()->mimeData()->formats();
        trace.clipboard.append(QApplication::clipboard()->text());
        trace.messages = scripted.messageBoxes->shown.size();
        return trace;
    }

    ScriptedServices scripted;
    QStringList heard;
    RichTextEditor editor;

private:
    void Note(void (RichTextEditor::*signal)(), const char* name)
    {
        QObject::connect(&editor, signal, &editor, [this, name] { heard.append(QLatin1String(name)); });
    }
};

/// A member, what it is called with, and the call of C++ that is the same.
struct Visit
{
    const char* name;
    MemberKind kind;
    QVariantList arguments;
    QVariant (*call)(RichTextEditor& editor, QVariantList& arguments);
};

constexpr auto kMethod = MemberKind::Method;
constexpr auto kGet = MemberKind::PropertyGet;
constexpr auto kPut = MemberKind::PropertyPut;

template <auto command>
QVariant Does(RichTextEditor& editor, QVariantList& /*arguments*/)
{
    (editor.*command)();
    return {};
}

template <auto reader>
QVariant Reads(RichTextEditor& editor, QVariantList& /*arguments*/)
{
    return QVariant::fromValue((editor.*reader)());
}

template <auto writer, class Value>
QVariant Writes(RichTextEditor& editor, QVariantList& arguments)
{
    (editor.*writer)(arguments[0].value<Value>());
    return {};
}

template <auto member>
QVariant TakesText(RichTextEditor& editor, QVariantList& arguments)
{
    return (editor.*member)(arguments[0].toString());
}

template <auto member>
QVariant TakesTwoTexts(RichTextEditor& editor, QVariantList& arguments)
{
    return (editor.*member)(arguments[0].toString(), arguments[1].toString());
}

QVariant SelectsText(RichTextEditor& editor, QVariantList& arguments)
{
    int start = arguments[0].toInt();
    int finish = arguments[1].toInt();
    editor.SelectText(start, finish);
    arguments = {start, finish};
    return {};
}

QVariant FindsField(RichTextEditor& editor, QVariantList& arguments)
{
    return editor.PreviousField(arguments[0].toString(), arguments[1].toString(), arguments[2].toBool());
}

QVariant SetsFont(RichTextEditor& editor, QVariantList& arguments)
{
    editor.SetFont(arguments[0].toString(), arguments[1].toFloat());
    return {};
}

QVariant SetsIndents(RichTextEditor& editor, QVariantList& arguments)
{
    editor.SetIndents(arguments[0].toFloat(), arguments[1].toFloat(), arguments[2].toFloat());
    return {};
}

QVariant InsertsPicture(RichTextEditor& editor, QVariantList& arguments)
{
    return editor.InsertPictureObject(arguments[0].value<Picture>(), arguments[1].toString());
}

class EveryMember : public testing::Test
{
protected:
    void SetUp() override
    {
        QFile file(m_rtf);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("{\\rtf1 from {\\b a file}}");
    }

    std::vector<Visit> Visits() const
    {
        using E = RichTextEditor;
        const QString text = QStringLiteral("new");
        const QString rtf = QStringLiteral("{\\rtf1 {\\b n}ew}");
        const QString marker = QStringLiteral("[M]");
        const QVariant picture = QVariant::fromValue(Picture(QImage(2, 3, QImage::Format_RGB32)));
        return {
            {"NoPrinterMsg", kMethod, {}, Does<&E::NoPrinterMsg>},
            {"Changed", kGet, {}, Reads<&E::Changed>},
            {"Changed", kPut, {true}, Writes<&E::SetChanged, bool>},
            {"Clear", kMethod, {}, Does<&E::Clear>},
            {"CursorEnd", kMethod, {}, Does<&E::CursorEnd>},
            {"CursorStart", kMethod, {}, Does<&E::CursorStart>},
            {"hWnd", kGet, {}, Reads<&E::hWnd>},
            {"MeasureInches", kGet, {}, Reads<&E::MeasureInches>},
            {"MeasureInches", kPut, {true}, Writes<&E::SetMeasureInches, bool>},
            {"OpenFileText", kMethod, {m_rtf}, TakesText<&E::OpenFileText>},
            {"PreviousField", kMethod, {"[", "]", false}, FindsField},
            {"Refresh", kMethod, {}, Does<&E::Refresh>},
            {"RTFString", kGet, {}, Reads<&E::RTFString>},
            {"SelectText", kMethod, {2, 999}, SelectsText},
            {"SetFont", kMethod, {"Courier New", 12.0F}, SetsFont},
            {"SetIndents", kMethod, {1.0F, 2.0F, 0.5F}, SetsIndents},
            {"ShowParagraphDialog", kMethod, {}, Does<&E::ShowParagraphDialog>},
            {"Redraw", kGet, {}, Reads<&E::Redraw>},
            {"Copy", kMethod, {}, Does<&E::Copy>},
            {"Cut", kMethod, {}, Does<&E::Cut>},
            {"Delete", kMethod, {}, Does<&E::Delete>},
            {"Redraw", kPut, {true}, Writes<&E::SetRedraw, bool>},
            {"InsertPictureFile", kMethod, {m_rtf, marker}, TakesTwoTexts<&E::InsertPictureFile>},
            {"InsertFileRTF", kMethod, {m_rtf, marker}, TakesTwoTexts<&E::InsertFileRTF>},
            {"OpenFileRTF", kMethod, {m_rtf}, TakesText<&E::OpenFileRTF>},
            {"Paste", kMethod, {}, Does<&E::Paste>},
            {"InsertPictureObject", kMethod, {picture, marker}, InsertsPicture},
            {"InsertStringHidden", kMethod, {"123", "-"}, TakesTwoTexts<&E::InsertStringHidden>},
            {"InsertStringText", kMethod, {text, marker}, TakesTwoTexts<&E::InsertStringText>},
            {"InsertStringRTF", kMethod, {rtf, marker}, TakesTwoTexts<&E::InsertStringRTF>},
            {"SaveFileRTF", kMethod, {m_saved}, TakesText<&E::SaveFileRTF>},
            {"ShowFontDialog", kMethod, {}, Does<&E::ShowFontDialog>},
            {"ShowPrintPreview", kMethod, {}, Does<&E::ShowPrintPreview>},
            {"ShowPrintDialog", kMethod, {}, Does<&E::ShowPrintDialog>},
            {"ShowPageDialog", kMethod, {}, Does<&E::ShowPageDialog>},
            {"ShowPrintSetupDialog", kMethod, {}, Does<&E::ShowPrintSetupDialog>},
            {"ShowSearchDialog", kMethod, {}, Does<&E::ShowSearchDialog>},
            {"TextString", kGet, {}, Reads<&E::TextString>},
            {"Toolbar", kPut, {false}, Writes<&E::SetToolbar, bool>},
            {"Toolbar", kGet, {}, Reads<&E::Toolbar>},
            {"Ruler", kPut, {false}, Writes<&E::SetRuler, bool>},
            {"Ruler", kGet, {}, Reads<&E::Ruler>},
            {"Statusbar", kPut, {false}, Writes<&E::SetStatusbar, bool>},
            {"Statusbar", kGet, {}, Reads<&E::Statusbar>},
            {"Undo", kMethod, {}, Does<&E::Undo>},
            {"LeftMargin", kGet, {}, Reads<&E::LeftMargin>},
            {"RightMargin", kGet, {}, Reads<&E::RightMargin>},
            {"TopMargin", kGet, {}, Reads<&E::TopMargin>},
            {"BottomMargin", kGet, {}, Reads<&E::BottomMargin>},
            {"LeftMargin", kPut, {1.5F}, Writes<&E::SetLeftMargin, float>},
            {"RightMargin", kPut, {1.5F}, Writes<&E::SetRightMargin, float>},
            {"TopMargin", kPut, {1.5F}, Writes<&E::SetTopMargin, float>},
            {"BottomMargin", kPut, {1.5F}, Writes<&E::SetBottomMargin, float>},
            {"RTFObj", kGet, {}, Reads<&E::RTFObj>},
        };
    }

    QTemporaryDir m_folder;
    QString m_rtf = m_folder.filePath(QStringLiteral("part.rtf"));
    QString m_saved = m_folder.filePath(QStringLiteral("saved.rtf"));
};

bool IsPending(std::string_view name) { return std::ranges::find(PendingMembers(), name) != PendingMembers().end(); }

/// The method of exactly this name; invalid when there is none.
QMetaMethod MethodOf(const char* name)
{
    const QMetaObject& meta = RichTextEditor::staticMetaObject;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        if (meta.method(i).name() == name && meta.method(i).methodType() == QMetaMethod::Method)
            return meta.method(i);
    return {};
}

/// Calls a method of the meta-object; what it takes by reference is changed in `values`.
QVariant InvokeMethod(RichTextEditor& editor, const QMetaMethod& method, QVariantList& values)
{
    std::array<QGenericArgument, 3> arguments;
    const QList<QByteArray> types = method.parameterTypes();
    for (int i = 0; i < method.parameterCount(); ++i)
    {
        // A reference is no type of a variant: it is given the variable itself.
        const QMetaType type = method.parameterMetaType(i);
        EXPECT_TRUE(!type.isValid() || values[i].convert(type)) << method.name().toStdString() << " " << i;
        arguments.at(static_cast<std::size_t>(i)) = QGenericArgument(types[i].constData(), values[i].constData());
    }
    if (method.returnMetaType().id() == QMetaType::Void)
    {
        EXPECT_TRUE(method.invoke(&editor, Qt::DirectConnection, arguments[0], arguments[1], arguments[2]));
        return {};
    }
    QVariant result(method.returnMetaType());
    EXPECT_TRUE(method.invoke(&editor, Qt::DirectConnection, QGenericReturnArgument(method.typeName(), result.data()),
                              arguments[0], arguments[1], arguments[2]));
    return result;
}

QVariant CallByMetaObject(RichTextEditor& editor, const Visit& visit, QVariantList& arguments)
{
    if (visit.kind == kMethod)
    {
        const QMetaMethod method = MethodOf(visit.name);
        EXPECT_TRUE(method.isValid()) << visit.name;
        // References reach into the variants: they are not to be shared.
        for (QVariant& argument : arguments)
            argument.detach();
        return InvokeMethod(editor, method, arguments);
    }
    const QMetaObject& meta = RichTextEditor::staticMetaObject;
    const QMetaProperty property = meta.property(meta.indexOfProperty(visit.name));
    EXPECT_TRUE(property.isValid()) << visit.name;
    if (visit.kind == kGet)
        return property.read(&editor);
    EXPECT_TRUE(property.write(&editor, arguments[0])) << visit.name;
    return {};
}

QVariant Call(Way way, RichTextEditor& editor, const Visit& visit, QVariantList& arguments)
{
    switch (way)
    {
    case Way::Cpp:
        return visit.call(editor, arguments);
    case Way::MetaObject:
        return CallByMetaObject(editor, visit, arguments);
    case Way::Late:
        break;
    }
    const int id = editor.GetIDsOfNames(QLatin1String(visit.name));
    const DispatchResult result = editor.Invoke(id, visit.kind, arguments);
    EXPECT_EQ(result.code, DispatchCode::Done) << visit.name;
    return result.value;
}

TEST_F(EveryMember, IsVisited)
{
    const std::vector<Visit> visits = Visits();
    ASSERT_EQ(visits.size(), InterfaceMembers().size());
    for (std::size_t i = 0; i < visits.size(); ++i)
    {
        EXPECT_EQ(visits[i].name, InterfaceMembers()[i].name) << i;
        EXPECT_EQ(visits[i].kind, InterfaceMembers()[i].kind) << i;
    }
}

TEST_F(EveryMember, DoesTheSameWhicheverWayItIsCalled)
{
    for (const Visit& visit : Visits())
    {
        std::vector<Trace> traces;
        for (const Way way : kWays)
        {
            Subject subject;
            QVariantList arguments = visit.arguments;
            QVariant result = Call(way, subject.editor, visit, arguments);
            // Each control has a window and a text of its own.
            const QLatin1String name(visit.name);
            if (name == QLatin1String("hWnd"))
                result = result.toInt() == static_cast<int>(subject.editor.winId());
            else if (name == QLatin1String("RTFObj"))
                result = result.value<QObject*>() == &EngineOf(subject.editor);
            if (!IsPending(visit.name))
                traces.push_back(subject.Left(result, arguments));
        }
        for (std::size_t i = 1; i < traces.size(); ++i)
            EXPECT_EQ(traces[i], traces[0]) << visit.name << ", way " << i;
    }
}

TEST_F(EveryMember, WithAnEffectLeavesATrace)
{
    // Those that read, and those whose effect is nothing that a trace shows.
    const std::set<std::string_view> kSilent = {"Refresh"};
    for (const Visit& visit : Visits())
    {
        if (visit.kind == kGet || IsPending(visit.name) || kSilent.contains(visit.name))
            continue;
        Subject untouched;
        const Trace before = untouched.Left({}, visit.arguments);
        Subject subject;
        QVariantList arguments = visit.arguments;
        const QVariant result = Call(Way::Late, subject.editor, visit, arguments);
        EXPECT_NE(subject.Left(result, arguments), before) << visit.name;
    }
}

TEST(EditorMetaObject, HasPropertiesAsWritableAndDesignableAsTheTableSays)
{
    const QMetaObject& meta = RichTextEditor::staticMetaObject;
    std::set<std::string> names;
    for (const Member& member : InterfaceMembers())
    {
        if (member.kind == kMethod)
            continue;
        const std::string name(member.name);
        const QMetaProperty property = meta.property(meta.indexOfProperty(name.c_str()));
        ASSERT_TRUE(property.isValid()) << name;
        names.insert(name);
        EXPECT_EQ(property.isDesignable(), member.isBrowsable) << name;
        if (member.kind == kPut)
            EXPECT_TRUE(property.isWritable()) << name;
        else
            EXPECT_TRUE(property.isReadable()) << name;
    }
    EXPECT_EQ(static_cast<int>(names.size()), meta.propertyCount() - meta.propertyOffset());
    for (const char* name : {"hWnd", "RTFString", "TextString", "RTFObj"})
        EXPECT_FALSE(meta.property(meta.indexOfProperty(name)).isWritable()) << name;
}

TEST(EditorMetaObject, HasTheEventsAsSignalsWithTheirParameters)
{
    const QMetaObject& meta = RichTextEditor::staticMetaObject;
    for (const EventMember& event : InterfaceEvents())
    {
        std::string signature = std::string(event.name) + "(";
        for (const Parameter& parameter : event.parameters)
        {
            ASSERT_EQ(parameter.type, MemberType::String);
            signature += "QString";
        }
        signature += ")";
        const int index = meta.indexOfSignal(signature.c_str());
        ASSERT_GE(index, 0) << signature;
        for (int i = 0; i < meta.method(index).parameterCount(); ++i)
            EXPECT_EQ(meta.method(index).parameterNames().at(i).toStdString(),
                      event.parameters[static_cast<std::size_t>(i)].name);
    }
}

TEST(EditorMetaObject, NamesTheParametersAsTheTableDoes)
{
    for (const Member& member : InterfaceMembers())
    {
        if (member.kind != kMethod)
            continue;
        const QMetaMethod method = MethodOf(std::string(member.name).c_str());
        ASSERT_TRUE(method.isValid()) << member.name;
        ASSERT_EQ(static_cast<std::size_t>(method.parameterCount()), member.parameters.size()) << member.name;
        for (int i = 0; i < method.parameterCount(); ++i)
            EXPECT_EQ(method.parameterNames().at(i).toStdString(), member.parameters[static_cast<std::size_t>(i)].name);
    }
}

TEST(EditorInvoke, AnswersBadCallsWithTheirCodeAndDoesNothing)
{
    Subject subject;
    const Trace before = subject.Left({}, {});
    const auto code = [&](const char* name, MemberKind kind, QVariantList arguments) {
        return subject.editor.Invoke(RichTextEditor::GetIDsOfNames(QLatin1String(name)), kind, arguments).code;
    };
    QVariantList none;
    EXPECT_EQ(RichTextEditor::GetIDsOfNames(QStringLiteral("Nothing")), kUnknownDispatchId);
    EXPECT_EQ(subject.editor.Invoke(kUnknownDispatchId, kMethod, none).code, DispatchCode::MemberNotFound);
    EXPECT_EQ(subject.editor.Invoke(0x600300FF, kMethod, none).code, DispatchCode::MemberNotFound);
    EXPECT_EQ(code("hWnd", kPut, {1}), DispatchCode::MemberNotFound);
    EXPECT_EQ(code("Clear", kGet, {}), DispatchCode::MemberNotFound);
    EXPECT_EQ(code("Clear", kMethod, {1}), DispatchCode::BadParameterCount);
    EXPECT_EQ(code("InsertStringText", kMethod, {"x"}), DispatchCode::BadParameterCount);
    EXPECT_EQ(code("LeftMargin", kPut, {"wide"}), DispatchCode::TypeMismatch);
    EXPECT_EQ(code("SelectText", kMethod, {0, 3e10}), DispatchCode::Overflow);
    QVariantList arguments = {0, QStringLiteral("x")};
    EXPECT_EQ(
        subject.editor.Invoke(RichTextEditor::GetIDsOfNames(QStringLiteral("SELECTTEXT")), kMethod, arguments).argument,
        1);
    EXPECT_EQ(subject.Left({}, {}), before);
}

TEST(EditorInvoke, TakesWhatAScriptHasForABoolean)
{
    RichTextEditor editor;
    const int id = RichTextEditor::GetIDsOfNames(QStringLiteral("toolbar"));
    QVariantList off = {QStringLiteral("0")};
    EXPECT_EQ(editor.Invoke(id, kPut, off).code, DispatchCode::Done);
    EXPECT_FALSE(editor.Toolbar());
    QVariantList on = {-1};
    EXPECT_EQ(editor.Invoke(id, kPut, on).code, DispatchCode::Done);
    EXPECT_TRUE(editor.Toolbar());
    QVariantList none;
    EXPECT_EQ(editor.Invoke(id, kGet, none).value, QVariant(true));
}

}  // namespace
}  // namespace quillmarker
