#include "content/report_sample.h"

#include <quillmarker/rtf.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <new>
#include <string>

namespace
{

/// How many allocations may still succeed; the next one fails, once. Negative: all of them.
std::int64_t allowed = -1;

void* Allocated(void* block)
{
    const bool fails = allowed == 0;
    if (allowed >= 0)
        --allowed;
    if (block && !fails)
        return block;
    std::free(block);
    throw std::bad_alloc();
}

}  // namespace

void* operator new(std::size_t size) { return Allocated(std::malloc(size ? size : 1)); }
void* operator new[](std::size_t size) { return Allocated(std::malloc(size ? size : 1)); }
void operator delete(void* block) noexcept { std::free(block); }
void operator delete[](void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t) noexcept { std::free(block); }
void operator delete[](void* block, std::size_t) noexcept { std::free(block); }

namespace quillmarker
{
namespace
{

struct MemberCall
{
    const char* name;
    void (*call)(Report&);
};

// Made before anything fails: what a host makes of its own is not ours.
const std::filesystem::path kTemplate = "examples/report/template.rtf";

const MemberCall kMembers[] = {
    {"InsertStringRTF", [](Report& report) { report.InsertStringRTF(u"{\\rtf1 x{\\b y}\\par z}", u""); }},
    {"InsertStringText", [](Report& report) { report.InsertStringText(u"x\r\ny", u"b"); }},
    {"InsertStringHidden", [](Report& report) { report.InsertStringHidden(u"12", u"\r\n"); }},
    {"InsertFileRTF", [](Report& report) { report.InsertFileRTF(kTemplate, u""); }},
    {"OpenFileRTF", [](Report& report) { report.OpenFileRTF(kTemplate); }},
    {"OpenFileText", [](Report& report) { report.OpenFileText("README.md"); }},
    {"PreviousField", [](Report& report) { report.PreviousField(u"a", u"c", true); }},
    {"SelectText",
     [](Report& report) {
         int start = 1;
         int finish = -1;
         report.SelectText(start, finish);
     }},
    {"CursorEnd", [](Report& report) { report.CursorEnd(); }},
    {"Clear", [](Report& report) { report.Clear(); }},
    {"Undo", [](Report& report) { report.Undo(); }},
    {"Redraw", [](Report& report) { report.SetRedraw(false), report.SetRedraw(true); }},
    {"RTFString", [](Report& report) { report.RTFString(); }},
    {"TextString", [](Report& report) { report.TextString(); }},
};

class ReportWithoutMemory : public testing::TestWithParam<MemberCall>
{
};

/// Whichever allocation of a member fails, nothing is thrown, and what is left is a document like any other.
TEST_P(ReportWithoutMemory, IsWhole)
{
    bool failed = true;
    int tries = 0;
    for (std::int64_t count = 0; failed; ++count, ++tries)
    {
        const auto report = std::make_unique<Report>();
        Fill(report->Box(), u"a|bc\r\nd");
        allowed = count;
        GetParam().call(*report);
        failed = allowed < 0;
        allowed = -1;
        const Document document = report->Box().Value();
        ASSERT_TRUE(SameContent(ReadRtf(WriteRtf(document)), document)) << "allocation " << count;
        ASSERT_LE(report->Box().SelStart() + report->Box().SelLength(), report->Box().TextLength());
        report->SetRedraw(true);
        const int length = report->Box().TextLength();
        report->CursorEnd();
        ASSERT_EQ(report->InsertStringText(u"x", u""), length + 1) << "allocation " << count;
    }
    RecordProperty("allocations", tries);
}

INSTANTIATE_TEST_SUITE_P(Members, ReportWithoutMemory, testing::ValuesIn(kMembers),
                         [](const auto& instance) { return std::string(instance.param.name); });

}  // namespace
}  // namespace quillmarker
