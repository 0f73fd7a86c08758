#include "late_call.h"

#include <gtest/gtest.h>

#include <limits>
#include <utility>
#include <vector>

namespace quillmarker
{
namespace
{

TEST(DispatchIds, AreFoundByNameWhateverItsCase)
{
    EXPECT_EQ(DispatchIdOf(QStringLiteral("NoPrinterMsg")), 0x600300A1);
    EXPECT_EQ(DispatchIdOf(QStringLiteral("rtfobj")), 0x680300DE);
    EXPECT_EQ(DispatchIdOf(QStringLiteral("HWND")), 0x6803009F);
    EXPECT_EQ(DispatchIdOf(QStringLiteral("redraw")), 0x6803009C);
}

TEST(DispatchIds, AreUnknownForWhatIsNoMember)
{
    for (const char* name : {"", "Chang", "Changedx", " Clear", "ToolbarClick", "SetChanged"})
        EXPECT_EQ(DispatchIdOf(QString::fromLatin1(name)), kUnknownDispatchId) << name;
    EXPECT_EQ(DispatchIdOf(QString()), kUnknownDispatchId);
}

struct Visit
{
    const char* name;
    MemberKind kind;
    QVariantList arguments;
    const char* called;
    QVariant result;
};

std::vector<Visit> EveryMember()
{
    const QVariant none;
    const QVariant a = Text("a");
    const QVariant b = Text("b");
    return {
        {"NoPrinterMsg", kMethod, {}, "NoPrinterMsg()", none},
        {"Changed", kGet, {}, "Changed()", true},
        {"Changed", kPut, {true}, "SetChanged(true)", none},
        {"Clear", kMethod, {}, "Clear()", none},
        {"CursorEnd", kMethod, {}, "CursorEnd()", none},
        {"CursorStart", kMethod, {}, "CursorStart()", none},
        {"hWnd", kGet, {}, "hWnd()", 7},
        {"MeasureInches", kGet, {}, "MeasureInches()", true},
        {"MeasureInches", kPut, {false}, "SetMeasureInches(false)", none},
        {"OpenFileText", kMethod, {a}, "OpenFileText('a')", 10},
        {"PreviousField", kMethod, {a, b, true}, "PreviousField('a', 'b', true)", Text("field")},
        {"Refresh", kMethod, {}, "Refresh()", none},
        {"RTFString", kGet, {}, "RTFString()", Text("rtf")},
        {"SelectText", kMethod, {3, -1}, "SelectText(3, -1)", none},
        {"SetFont", kMethod, {a, 10.5F}, "SetFont('a', 10.5f)", none},
        {"SetIndents", kMethod, {1.0F, 2.0F, 3.0F}, "SetIndents(1f, 2f, 3f)", none},
        {"ShowParagraphDialog", kMethod, {}, "ShowParagraphDialog()", none},
        {"Redraw", kGet, {}, "Redraw()", true},
        {"Copy", kMethod, {}, "Copy()", none},
        {"Cut", kMethod, {}, "Cut()", none},
        {"Delete", kMethod, {}, "Delete()", none},
        {"Redraw", kPut, {false}, "SetRedraw(false)", none},
        {"InsertPictureFile", kMethod, {a, b}, "InsertPictureFile('a', 'b')", 23},
        {"InsertFileRTF", kMethod, {a, b}, "InsertFileRTF('a', 'b')", 24},
        {"OpenFileRTF", kMethod, {a}, "OpenFileRTF('a')", 25},
        {"Paste", kMethod, {}, "Paste()", none},
        {"InsertPictureObject", kMethod, {Pixels(2, 3), b}, "InsertPictureObject(2x3, 'b')", 27},
        {"InsertStringHidden", kMethod, {a, b}, "InsertStringHidden('a', 'b')", 28},
        {"InsertStringText", kMethod, {a, b}, "InsertStringText('a', 'b')", 29},
        {"InsertStringRTF", kMethod, {a, b}, "InsertStringRTF('a', 'b')", 30},
        {"SaveFileRTF", kMethod, {a}, "SaveFileRTF('a')", 31},
        {"ShowFontDialog", kMethod, {}, "ShowFontDialog()", none},
        {"ShowPrintPreview", kMethod, {}, "ShowPrintPreview()", none},
        {"ShowPrintDialog", kMethod, {}, "ShowPrintDialog()", none},
        {"ShowPageDialog", kMethod, {}, "ShowPageDialog()", none},
        {"ShowPrintSetupDialog", kMethod, {}, "ShowPrintSetupDialog()", none},
        {"ShowSearchDialog", kMethod, {}, "ShowSearchDialog()", none},
        {"TextString", kGet, {}, "TextString()", Text("text")},
        {"Toolbar", kPut, {true}, "SetToolbar(true)", none},
        {"Toolbar", kGet, {}, "Toolbar()", true},
        {"Ruler", kPut, {true}, "SetRuler(true)", none},
        {"Ruler", kGet, {}, "Ruler()", true},
        {"Statusbar", kPut, {true}, "SetStatusbar(true)", none},
        {"Statusbar", kGet, {}, "Statusbar()", true},
        {"Undo", kMethod, {}, "Undo()", none},
        {"LeftMargin", kGet, {}, "LeftMargin()", 0.25F},
        {"RightMargin", kGet, {}, "RightMargin()", 0.5F},
        {"TopMargin", kGet, {}, "TopMargin()", 0.75F},
        {"BottomMargin", kGet, {}, "BottomMargin()", 1.25F},
        {"LeftMargin", kPut, {0.1F}, "SetLeftMargin(0.1f)", none},
        {"RightMargin", kPut, {0.2F}, "SetRightMargin(0.2f)", none},
        {"TopMargin", kPut, {0.3F}, "SetTopMargin(0.3f)", none},
        {"BottomMargin", kPut, {0.4F}, "SetBottomMargin(0.4f)", none},
    };
}

TEST(LateBinding, ReachesEveryMemberAndGivesItsResultInItsType)
{
    std::size_t row = 0;
    for (const Visit& visit : EveryMember())
    {
        SCOPED_TRACE(visit.called);
        EXPECT_EQ(InterfaceMembers()[row].name, visit.name);
        EXPECT_EQ(InterfaceMembers()[row++].kind, visit.kind);
        RecordingEditor editor;
        QVariantList arguments = visit.arguments;
        const DispatchResult result = Invoked(editor, visit.name, visit.kind, arguments);
        EXPECT_EQ(result.code, DispatchCode::Done);
        EXPECT_EQ(result.argument, -1);
        EXPECT_EQ(editor.called, visit.called);
        EXPECT_EQ(result.value.metaType(), visit.result.metaType());
        EXPECT_EQ(result.value, visit.result);
    }
    // The last one is an object.
    EXPECT_EQ(row + 1, InterfaceMembers().size());
    RecordingEditor editor;
    QVariantList none;
    EXPECT_EQ(Invoked(editor, "RTFObj", kGet, none).value.value<QObject*>(), &editor.text);
    EXPECT_EQ(editor.called, "RTFObj()");
}

TEST(LateBinding, RefusesEveryMemberWithAnArgumentTooManyOrTooFew)
{
    for (const Member& member : InterfaceMembers())
        for (const int more : {-1, 1})
        {
            SCOPED_TRACE(member.name);
            QVariantList arguments;
            for (int count = static_cast<int>(member.parameters.size()) + more; count > 0; --count)
                arguments.append(1);
            if (more < 0 && member.parameters.empty())
                continue;
            RecordingEditor editor;
            const DispatchResult result = InvokeMember(editor, member.dispatchId, member.kind, arguments);
            EXPECT_EQ(result.code, DispatchCode::BadParameterCount);
            EXPECT_EQ(result.argument, -1);
            EXPECT_EQ(editor.called, "");
        }
}

TEST(LateBinding, RefusesAnIdThatNoMemberHas)
{
    for (const std::int32_t id : {0, -1, 1, 5, 0x600300A2, 0x680300DF, std::numeric_limits<std::int32_t>::min()})
        for (const MemberKind kind : {kMethod, kGet, kPut})
        {
            RecordingEditor editor;
            QVariantList none;
            EXPECT_EQ(InvokeMember(editor, id, kind, none).code, DispatchCode::MemberNotFound) << id;
        }
}

TEST(LateBinding, RefusesAKindThatTheMemberIsNot)
{
    EXPECT_EQ(Called("Clear", kGet, {}).code, DispatchCode::MemberNotFound);
    EXPECT_EQ(Called("Clear", kPut, {true}).code, DispatchCode::MemberNotFound);
    EXPECT_EQ(Called("hWnd", kPut, {1}).code, DispatchCode::MemberNotFound);
    EXPECT_EQ(Called("Changed", kMethod, {}).code, DispatchCode::MemberNotFound);
    EXPECT_EQ(Called("RTFObj", static_cast<MemberKind>(0), {}).code, DispatchCode::MemberNotFound);
}

TEST(LateBinding, TakesTheFlagsOfAScriptThatCannotTellAMethodFromAReader)
{
    constexpr auto kEither = static_cast<MemberKind>(1 | 2);
    EXPECT_EQ(Called("Clear", kEither, {}).called, "Clear()");
    EXPECT_EQ(Called("Changed", kEither, {}).called, "Changed()");
    EXPECT_EQ(Called("Ruler", kEither, {true}).code, DispatchCode::BadParameterCount);
}

TEST(LateBinding, HasTheNumbersThatAutomationClientsKnow)
{
    const auto number = [](DispatchCode code) { return static_cast<std::uint32_t>(code); };
    EXPECT_EQ(number(DispatchCode::Done), 0U);
    EXPECT_EQ(number(DispatchCode::MemberNotFound), 0x80020003U);
    EXPECT_EQ(number(DispatchCode::TypeMismatch), 0x80020005U);
    EXPECT_EQ(number(DispatchCode::UnknownName), 0x80020006U);
    EXPECT_EQ(number(DispatchCode::Overflow), 0x8002000AU);
    EXPECT_EQ(number(DispatchCode::BadParameterCount), 0x8002000EU);
}

QVariantList After(const char* name, MemberKind kind, QVariantList arguments)
{
    return Called(name, kind, std::move(arguments)).arguments;
}

void ExpectSame(const QVariantList& found, const QVariantList& wanted)
{
    ASSERT_EQ(found.size(), wanted.size());
    for (int index = 0; index < found.size(); ++index)
    {
        EXPECT_EQ(found[index].metaType(), wanted[index].metaType()) << index;
        EXPECT_EQ(found[index], wanted[index]) << index;
    }
}

TEST(LateBinding, WritesBackWhatTheMemberMadeOfItsReferences)
{
    ExpectSame(After("SelectText", kMethod, {1, 2}), {101, 202});
    ExpectSame(After("SelectText", kMethod, {Text("1"), 2.5}), {101, 202});
}

TEST(LateBinding, WritesBackReferencesInTheMembersType)
{
    ExpectSame(After("Changed", kPut, {Text("1")}), {true});
    ExpectSame(After("SaveFileRTF", kMethod, {12}), {Text("12")});
    ExpectSame(After("PreviousField", kMethod, {1, 2, 3}), {1, Text("2"), true});
    const QVariantList after = After("InsertPictureObject", kMethod, {Pixels(2, 3), 5});
    EXPECT_EQ(after[0].metaType(), QMetaType::fromType<Picture>());
    EXPECT_EQ(after[0].value<Picture>().Image(), Pixels(2, 3));
    EXPECT_EQ(after[1], Text("5"));
}

TEST(LateBinding, LeavesWhatIsPassedByValue)
{
    ExpectSame(After("Ruler", kPut, {Text("1")}), {Text("1")});
    ExpectSame(After("SetFont", kMethod, {7, Text("12")}), {7, Text("12")});
}

TEST(LateBinding, LetsNothingOutThatAMemberThrows)
{
    for (const Visit& visit : EveryMember())
    {
        SCOPED_TRACE(visit.called);
        RecordingEditor editor;
        editor.isThrowing = true;
        QVariantList arguments = visit.arguments;
        const DispatchResult result = Invoked(editor, visit.name, visit.kind, arguments);
        EXPECT_EQ(result.code, DispatchCode::Done);
        EXPECT_EQ(editor.called, visit.called);
        EXPECT_EQ(result.value.metaType(), visit.result.metaType());
        EXPECT_NE(result.value, visit.result.isValid() ? visit.result : QVariant(1));
    }
    RecordingEditor editor;
    editor.isThrowing = true;
    QVariantList none;
    const DispatchResult object = Invoked(editor, "RTFObj", kGet, none);
    EXPECT_EQ(object.value.metaType(), QMetaType::fromType<QObject*>());
    EXPECT_EQ(object.value.value<QObject*>(), nullptr);
}

}  // namespace
}  // namespace quillmarker
