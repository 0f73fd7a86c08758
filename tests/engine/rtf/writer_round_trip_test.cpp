#include "engine/rtf/writer_sample.h"

#include <string>

namespace quillmarker
{
namespace
{

struct NamedSource
{
    const char* name;
    const char* body;
};

constexpr NamedSource kSources[] = {
    {"nothing", ""},
    {"text", "one\\par two"},
    {"empty paragraphs", "\\par\\par\\pard\\qc\\par\\par"},
    {"the mark's own format", "a\\b\\par\\pard\\qr\\i\\par"},
    {"a last paragraph without its break", "a\\par\\pard\\qc\\b b"},
    {"a picture", R"({\pict\pngblip\picw3\pich4\picwgoal50\pichgoal60\picscalex70\picscaley80\piccropl1\piccropt2)"
                  R"(\piccropr3\piccropb-4\bliptag77 89504e470d0a}\par)"},
    {"a metafile", R"({\pict\wmetafile8\picw100\pich200 0100}\par)"},
    {"bitmaps", R"({\pict\dibitmap0 28}{\pict\wbitmap0\wbmbitspixel1\wbmplanes1\wbmwidthbytes2 00}\par)"},
    {"pictures of other kinds",
     R"({\pict\jpegblip ff}{\pict\emfblip 01}{\pict\macpict 02}{\pict\pmmetafile4 03}{\pict 04}\par)"},
    {"an object", R"(a{\object\objemb\objw300\objh200\objupdate{\*\objclass C}{\*\objname N}{\*\objdata 0102})"
                  R"({\result\pard\plain\b shown\par more}}b\par)"},
    {"an object without result", R"({\object\objocx{\*\objdata 00}}\par)"},
    {"an object with an empty result", R"({\object\objemb{\*\objdata 00}{\result}}\par)"},
    {"an object whose result ends in a field",
     R"({\object\objemb{\result{\field{\*\fldinst A}{\fldrslt\li240 a\par\li480 b\par}}}}\par)"},
    {"objects in objects",
     R"({\object\objemb{\result a{\object\objlink{\*\objdata 01}{\result{\pict\pngblip 00}}}b}}\par)"},
    {"a footnote", R"(a{\footnote\pard\plain\i note\par two}b{\footnote\ftnalt end}\par)"},
    {"an empty footnote", R"(a{\footnote}b\par)"},
    {"an annotation", R"(a{\*\atnid AB}{\*\atnauthor Ann}\chatn{\*\annotation note}b\par)"},
    {"notes in notes", R"(a{\footnote b{\*\atnid X}{\*\annotation c}d}e\par)"},
    {"a field", R"(a{\field\fldlock{\*\fldinst PAGE \\* roman}{\fldrslt\b i\b0 v}}b\par)"},
    {"equal fields side by side", R"({\field{\*\fldinst X}{\fldrslt 1}}{\field{\*\fldinst X}{\fldrslt 1}}\par)"},
    {"nested fields", R"({\field{\*\fldinst TOC}{\fldrslt a{\field{\*\fldinst REF x}{\fldrslt b}}c\par d}}e\par)"},
    {"a field over paragraphs", R"(x{\field{\*\fldinst X}{\fldrslt a\par\pard\qc b\par\pard}}c\par)"},
    {"fields at the begins of paragraphs",
     R"(\pard\qc{\field{\*\fldinst X}{\fldrslt a}}b\par\pard\qr{\field{\*\fldinst Y}{\fldrslt{\field{\*\fldinst Z}{\fldrslt c\par)"
     R"(\pard\qj d}}e}}\par)"},
    {"languages that end", R"(a\lang1031 b\lang0 c\b\lang1033 d\lang0\up6 e\up0\par)"},
    {"a field around a picture", R"({\field{\*\fldinst X}{\fldrslt{\pict\pngblip 00}}}\par)"},
    {"old lists",
     R"(\pard{\pntext 1.\tab}{\*\pn\pnlvlbody\pndec\pnstart2\pnindent360\pnhang\pnf1{\pntxtb (}{\pntxta )}}\fi-360\li720 a\par b\par)"
     R"(\pard{\*\pn\pnlvlblt\pnf2{\pntxtb\'b7}}c\par)"},
    {"lists",
     R"({\*\listtable{\list{\listlevel\levelnfc0\leveljc1\levelfollow2\levelstartat3\levelindent360{\leveltext\'02\'00.;}\f1}{\listlevel\levelnfc4)"
     R"({\leveltext\'04\'00.\'01);}}\listid5}}{\*\listoverridetable{\listoverride\listid5\listoverridecount0\ls2}})"
     R"(\pard\ls2\ilvl0 a\par\pard\ls2\ilvl1 b\par\pard c\par)"},
    {"a table",
     R"(a\par\trowd\trgaph70\trleft-50\trrh-300\trqr\trhdr\trkeep\rtlrow\trautofit1\trbrdrt\brdrs\brdrw10\trbrdrh\brdrdb)"
     R"(\trbrdrv\brdrdot\clvmgf\clmgf\clvertalc\clbrdrl\brdrth\brdrcf1\clcbpat2\clcfpat3\clshdng500\cltxtbrl\cellx1000)"
     R"(\clvmrg\clmrg\clvertalb\cellx2000\pard\intbl a\cell b\par c\cell\row d\cell\cell\row\pard e\par)"},
    {"a table at the end", R"(\trowd\cellx1000\pard\intbl a\cell\row)"},
    {"a nested table",
     R"(\trowd\cellx5000\pard\intbl o\par\pard\intbl\itap2 x\nestcell y\nestcell{\*\nesttableprops\trowd)"
     R"(\trhdr\cellx1000\cellx2000\nestrow}{\nonesttables\par}\pard\intbl end\cell\row\pard z\par)"},
    {"a deeply nested table",
     R"(\trowd\cellx9\pard\intbl\itap3 x\nestcell{\*\nesttableprops\trowd\cellx1\nestrow}{\nonesttables\par})"
     R"(\pard\intbl\itap2 y\nestcell{\*\nesttableprops\trowd\cellx2\nestrow}{\nonesttables\par}\pard\intbl z\cell\row\pard\par)"},
    {"sections",
     R"(\paperw1\paperh2\margl3\margr4\margt5\margb6\gutter7\landscape\facingp\deftab360\ftnbj)"
     R"(\sectd\sbkodd\pgwsxn8\pghsxn9\marglsxn10\margrsxn11\margtsxn12\margbsxn13\guttersxn14\lndscpsxn\cols3\colsx15)"
     R"(\headery16\footery17\titlepg\pgnstarts18\pgnrestart\linemod1 a\sect\sectd\sbknone b\sect\sectd c\par)"},
    {"headers",
     R"({\header\qc h\b H\par}{\footer f\par f2\par}{\headerl 1\par}{\headerr 2\par}{\headerf 3\par}{\footerl 4\par})"
     R"({\footerr 5\par}{\footerf\par}a\sect\sectd{\header other{\field{\*\fldinst PAGE}{\fldrslt 1}}\par}b\par)"},
    {"a table in a header",
     R"({\header\trowd\cellx100\pard\intbl c\cell\row\pard d\par}\trowd\cellx9\pard\intbl a\cell\row\pard x\par)"},
    {"information", R"({\info{\title T \{\'e9\}}{\author A}{\*\company C}{\creatim\yr2024\mo2\dy3}\version3}x\par)"},
    {"styles", R"({\stylesheet{\s0 Normal;}{\s7 heading 7;}{\*\cs12 Strong;}}\pard\s7 a{\cs12 b}\par)"},
    {"a style in a font without a name",
     R"({\fonttbl{\f3 Arial;}{\f4\fmodern;}}{\stylesheet{\s1\f3 one;}{\s8\f4\sbasedon1 two;}}\pard\s8\f3 a\par)"},
    {"hidden digits", R"({\v 1}{\v 27}x{\v 0\b 1}\par)"},
    {"formats that end at the mark", R"({\b a\par}{\i b\par}{\up8 c\par}d)"},
    {"text boxes", R"(a{\shp{\*\shpinst{\shptxt in\par}}}b\par)"},
};

TEST(RoundTrip, EverySampleSurvivesWritingAndReading)
{
    for (const NamedSource& source : kSources)
        ExpectSurvives(ReadSample(source.body), source.name);
}

TEST(RoundTrip, SamplesSurviveInOneDocument)
{
    std::string all;
    for (const NamedSource& source : kSources)
    {
        if (std::string_view(source.body).find("info") == std::string_view::npos)
            all += std::string("\\pard\\plain{}") + source.body + "\\par\\pard\\plain ";
    }
    ExpectSurvives(ReadSample(all), "all");
}

TEST(RoundTrip, EachFieldOfARowIsInASample)
{
    for (const NamedSource& source : kSources)
    {
        if (std::string(source.name) != "a table")
            continue;
        const Document document = ReadSample(source.body);
        const TableRow& row = *document.ParagraphAt(4).Extras().row;
        const TableRow usual{};
        EXPECT_TRUE(row.left != usual.left && row.gap != usual.gap && row.height != usual.height && row.header &&
                    row.keepTogether && row.rightToLeft && row.align != usual.align && !row.kept.empty() &&
                    row.borders != usual.borders && row.cells.size() == 2);
        return;
    }
    FAIL() << "the sample is missing";
}

}  // namespace
}  // namespace quillmarker
