#include "content/report_sample.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace quillmarker
{
namespace
{

struct MemberCall
{
    const char* name;
    void (*call)(Report&);
};

// Each of them changes the document of the sample.
const MemberCall kMembers[] = {
    {"InsertStringRTF", [](Report& report) { report.InsertStringRTF(u"{\\rtf1 x}", u""); }},
    {"InsertStringText", [](Report& report) { report.InsertStringText(u"x", u"b"); }},
    {"InsertStringHidden", [](Report& report) { report.InsertStringHidden(u"12", u"\r\n"); }},
    {"InsertFileRTF", [](Report& report) { report.InsertFileRTF("examples/report/template.rtf", u""); }},
    {"OpenFileRTF", [](Report& report) { report.OpenFileRTF("examples/report/template.rtf"); }},
    {"OpenFileText", [](Report& report) { report.OpenFileText("README.md"); }},
    {"Clear", [](Report& report) { report.Clear(); }},
    {"Undo", [](Report& report) { report.Undo(); }},
};

class DeletedReport : public testing::TestWithParam<MemberCall>
{
};

TEST_P(DeletedReport, InItsOwnHandlerEndsTheMemberQuietly)
{
    auto report = std::make_unique<Report>();
    Fill(report->Box(), u"a|bc");
    int changes = 0;
    report->Change = [&] {
        ++changes;
        report.reset();
    };
    GetParam().call(*report);
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(report, nullptr);
}

INSTANTIATE_TEST_SUITE_P(Members, DeletedReport, testing::ValuesIn(kMembers),
                         [](const auto& instance) { return std::string(instance.param.name); });

class DeletingHooks : public ReportHooks
{
public:
    void FocusText() override { report.reset(); }
    std::unique_ptr<Report> report;
};

TEST(DeletedReport, InAHookEndsTheMemberQuietly)
{
    TextBox box;
    box.SetText(u"abc");
    DeletingHooks hooks;
    hooks.report = std::make_unique<Report>(box);
    hooks.report->SetHooks(&hooks);
    EXPECT_EQ(hooks.report->InsertStringText(u"x", u""), -1);
    EXPECT_EQ(box.Text(), u"abc");
}

TEST(ReportOverABox, HearsOfChangesFromItsOwner)
{
    TextBox box;
    Report report(box);
    box.Change = [&] { report.BoxChanged(); };
    report.SetRedraw(true);
    int changes = 0;
    report.Change = [&] { ++changes; };
    EXPECT_EQ(report.InsertStringText(u"abc", u""), 3);
    EXPECT_EQ(changes, 1);
    EXPECT_TRUE(report.Changed());
    EXPECT_EQ(report.UndoSelStart(), -1);
}

}  // namespace
}  // namespace quillmarker
