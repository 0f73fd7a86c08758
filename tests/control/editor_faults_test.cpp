#include "control/editor_sample.h"
#include "control/member_calls.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QContextMenuEvent>
#include <QMenu>
#include <QTemporaryDir>

#include <new>
#include <stdexcept>

namespace quillmarker
{
namespace
{

// What the machine, the host's property bag or a part around the text throws, never reaches the host, and what the step
// that failed was part of goes on.

enum class Thrown { RuntimeError, BadAlloc, Number };

/// Decides which calls fail.
class Fault
{
public:
    void Strike() const
    {
        const int call = m_calls++;
        if (!isOn || (only >= 0 && call != only))
            return;
        ++struck;
        switch (thrown)
        {
        case Thrown::RuntimeError:
            throw std::runtime_error("the service fails");
        case Thrown::BadAlloc:
            throw std::bad_alloc();
        case Thrown::Number:
            throw 1;
        }
    }

    bool isOn = false;
    int only = -1;  // the number of the call that fails; -1: all
    Thrown thrown = Thrown::RuntimeError;
    mutable int struck = 0;

private:
    mutable int m_calls = 0;
};

class FailingPrinters : public PrinterService
{
public:
    explicit FailingPrinters(const Fault& fault) : m_fault(fault) { m_working.printers.push_back(SamplePrinter()); }
    QStringList Names() const override { return m_fault.Strike(), m_working.Names(); }
    QString DefaultName() const override { return m_fault.Strike(), m_working.DefaultName(); }
    std::optional<PrinterDescription> Describe(const QString& name) const override
    {
        return m_fault.Strike(), m_working.Describe(name);
    }

private:
    const Fault& m_fault;
    ScriptedPrinters m_working;
};

class FailingMessageBoxes : public ScriptedMessageBoxes
{
public:
    explicit FailingMessageBoxes(const Fault& fault) : m_fault(fault) {}
    QMessageBox::StandardButton Show(const Message& message, QWidget* owner) override
    {
        return m_fault.Strike(), ScriptedMessageBoxes::Show(message, owner);
    }

private:
    const Fault& m_fault;
};

class FailingFamilies : public FontFamilyService
{
public:
    explicit FailingFamilies(const Fault& fault) : m_fault(fault) {}
    void EnumerateFamilies(const std::function<bool(const QString&)>& found) const override
    {
        m_fault.Strike();
        found(QStringLiteral("Arial"));
    }

private:
    const Fault& m_fault;
};

class FailingScreen : public ScreenService
{
public:
    explicit FailingScreen(const Fault& fault) : m_fault(fault) {}
    QSizeF TwipsPerPixel(const QWidget&) const override { return m_fault.Strike(), QSizeF(15, 15); }

private:
    const Fault& m_fault;
};

class FailingKeyLocks : public KeyLockService
{
public:
    explicit FailingKeyLocks(const Fault& fault) : m_fault(fault) {}
    std::optional<KeyLocks> Now() const override { return m_fault.Strike(), KeyLocks(); }

private:
    const Fault& m_fault;
};

class FailingPendingEvents : public PendingEventService
{
public:
    explicit FailingPendingEvents(const Fault& fault) : m_fault(fault) {}
    void Process() override { m_fault.Strike(); }

private:
    const Fault& m_fault;
};

class FailingClipboard : public ClipboardService
{
public:
    explicit FailingClipboard(const Fault& fault) : m_fault(fault) {}
    const QMimeData* Content() const override { return m_fault.Strike(), m_content.get(); }
    void SetContent(std::unique_ptr<QMimeData> content) override { m_fault.Strike(), m_content = std::move(content); }
    void Clear() override { m_fault.Strike(), m_content.reset(); }
    bool IsOwn() const override { return m_fault.Strike(), true; }

private:
    const Fault& m_fault;
    std::unique_ptr<QMimeData> m_content;
};

class FailingFontDialog : public FontDialogService
{
public:
    explicit FailingFontDialog(const Fault& fault) : m_fault(fault) {}
    bool Choose(FontDialogRequest& request, QWidget*) override
    {
        m_fault.Strike();
        SetLogFontNumber(request.logFont, LogFontField::Italic, 1);
        return true;
    }

private:
    const Fault& m_fault;
};

struct ServiceRow
{
    const char* name;
    void (*install)(PlatformServices& services, const Fault& fault);
};

const ServiceRow kServices[] = {
    {"printers", [](PlatformServices& s, const Fault& f) { s.printers = std::make_shared<FailingPrinters>(f); }},
    {"message boxes",
     [](PlatformServices& s, const Fault& f) { s.messageBoxes = std::make_shared<FailingMessageBoxes>(f); }},
    {"families", [](PlatformServices& s, const Fault& f) { s.fontFamilies = std::make_shared<FailingFamilies>(f); }},
    {"screen", [](PlatformServices& s, const Fault& f) { s.screen = std::make_shared<FailingScreen>(f); }},
    {"key locks", [](PlatformServices& s, const Fault& f) { s.keyLocks = std::make_shared<FailingKeyLocks>(f); }},
    {"pending events",
     [](PlatformServices& s, const Fault& f) { s.pendingEvents = std::make_shared<FailingPendingEvents>(f); }},
    {"font dialog", [](PlatformServices& s, const Fault& f) { s.fontDialog = std::make_shared<FailingFontDialog>(f); }},
    {"clipboard", [](PlatformServices& s, const Fault& f) { s.clipboard = std::make_shared<FailingClipboard>(f); }},
};

/// All of them over one fault.
PlatformServices AllServices(const Fault& fault)
{
    PlatformServices services;
    for (const ServiceRow& row : kServices)
        row.install(services, fault);
    return services;
}

constexpr std::string_view kSample = "one <b>t^w</b>o| three";

/// The members that do nothing without a service.
bool Needs(std::string_view service, std::string_view member)
{
    if (service == "clipboard")
        return member == "Cut" || member == "Paste";
    return service == "font dialog" && member == "ShowFontDialog";
}

class EditorFaults : public testing::Test
{
protected:
    /// What a member leaves of a sample where everything works.
    std::string Expected(const Member& member)
    {
        const Fault none;
        RichTextEditor editor(AllServices(none));
        Put(editor, kSample);
        CallMember(editor, member, m_file);
        return Shown(editor);
    }

    /// The editor can be typed into, its steps are steps, and no lock or flag is left behind.
    static void ExpectWhole(RichTextEditor& editor)
    {
        EXPECT_FALSE(EditorState::Of(editor).refreshActive);
        editor.SetRedraw(true);
        EXPECT_TRUE(EngineOf(editor).updatesEnabled());
        Put(editor, "ab|");
        QTest::keyClicks(EngineOf(editor).viewport(), QStringLiteral("c"));
        EXPECT_EQ(Shown(editor), "abc|");
        EngineOf(editor).Box().Undo();
        EXPECT_EQ(Shown(editor), "ab|");
        EXPECT_FALSE(EngineOf(editor).Box().CanUndo());
    }

    QTemporaryDir m_folder;
    QString m_file = m_folder.filePath(QStringLiteral("report.rtf"));
};

void LiveThrough(RichTextEditor& editor, const QString& file)
{
    JsonPropertyBag bag;
    editor.ReadProperties(bag);
    ShowForTyping(editor);
    editor.resize(500, 400);
    QWidget* surface = EngineOf(editor).viewport();
    QTest::keyClicks(surface, QStringLiteral("ab"));
    QTest::keyClick(surface, Qt::Key_CapsLock);
    QTest::keyClick(surface, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(surface, Qt::Key_C, Qt::ControlModifier);
    QTest::keyClick(surface, Qt::Key_B, Qt::ControlModifier);
    QTest::mouseClick(surface, Qt::LeftButton);
    EngineOf(editor).SetAutoVerbMenu(true);
    QContextMenuEvent menu(QContextMenuEvent::Keyboard, {5, 5}, surface->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(surface, &menu);
    if (auto* shown = editor.findChild<QMenu*>())
        shown->close();
    for (const Member& member : InterfaceMembers())
        CallMember(editor, member, file);
    editor.hide();
    editor.show();
    QApplication::processEvents();
    editor.WriteProperties(bag);
}

TEST_F(EditorFaults, OfEachServiceStopNoStepOfTheControlsLife)
{
    for (const ServiceRow& row : kServices)
        for (const Thrown thrown : {Thrown::RuntimeError, Thrown::BadAlloc, Thrown::Number})
        {
            SCOPED_TRACE(row.name);
            Fault fault;
            fault.isOn = true;
            fault.thrown = thrown;
            PlatformServices services;
            ScriptedServices scripted;
            services = scripted.Services();
            row.install(services, fault);
            RichTextEditor editor(services);
            LiveThrough(editor, m_file);
            EXPECT_GT(fault.struck, 0);
            ExpectWhole(editor);
        }
}

TEST_F(EditorFaults, OfEachServiceLeaveEveryMemberItsWork)
{
    for (const ServiceRow& row : kServices)
        for (const Member& member : InterfaceMembers())
        {
            Fault fault;
            const Fault working;
            PlatformServices services = AllServices(working);
            row.install(services, fault);
            RichTextEditor editor(services);
            Put(editor, kSample);
            fault.isOn = true;
            const DispatchResult result = CallMember(editor, member, m_file);
            EXPECT_EQ(result.code, DispatchCode::Done) << member.name;
            const bool isIdle = Needs(row.name, member.name);
            EXPECT_EQ(Shown(editor), isIdle ? std::string(kSample) : Expected(member))
                << member.name << ", " << row.name;
        }
}

TEST_F(EditorFaults, OfAnySingleCallAreSurvived)
{
    constexpr int kMoreThanThereAre = 10'000;
    for (int call = 0; call < kMoreThanThereAre; ++call)
    {
        Fault fault;
        fault.isOn = true;
        fault.only = call;
        {
            RichTextEditor editor(AllServices(fault));
            LiveThrough(editor, m_file);
            ExpectWhole(editor);
        }
        if (HasFailure() || fault.struck == 0)
        {
            constexpr int kServiceFunctions = 12;
            EXPECT_GT(call, kServiceFunctions);  // each of them was called, and failed once
            return;
        }
    }
    FAIL() << "the calls have no end";
}

TEST_F(EditorFaults, ASetOfSizesIsThereWithoutFontFamilies)
{
    Fault fault;
    fault.isOn = true;
    PlatformServices services;
    services.fontFamilies = std::make_shared<FailingFamilies>(fault);
    RichTextEditor editor(services);
    EXPECT_EQ(EditorState::Of(editor).popupSizes.size(), 18);
    EXPECT_EQ(EditorState::Of(editor).comboSizes.size(), 18);
    EXPECT_EQ(fault.struck, 2);
}

TEST_F(EditorFaults, ACutThatTheClipboardDoesNotTakeLosesNothing)
{
    Fault fault;
    PlatformServices services;
    services.clipboard = std::make_shared<FailingClipboard>(fault);
    RichTextEditor editor(services);
    Put(editor, kSample);
    fault.isOn = true;
    editor.Cut();
    EXPECT_EQ(Shown(editor), kSample);
    fault.isOn = false;
    editor.Cut();
    EXPECT_EQ(Shown(editor), "one <b>t</b>| three");
}

class OddScreen : public ScreenService
{
public:
    explicit OddScreen(QSizeF told) : m_told(told) {}
    QSizeF TwipsPerPixel(const QWidget&) const override { return m_told; }

private:
    QSizeF m_told;
};

TEST_F(EditorFaults, AScreenThatTellsNonsenseLeavesTheUsualScale)
{
    const qreal kOdd[] = {0, -3, std::numeric_limits<qreal>::quiet_NaN(), std::numeric_limits<qreal>::infinity(), 1e30};
    for (const qreal odd : kOdd)
    {
        PlatformServices services;
        services.screen = std::make_shared<OddScreen>(QSizeF(odd, odd));
        RichTextEditor editor(services);
        ShowForTyping(editor);
        EXPECT_EQ(EditorState::Of(editor).twipsPerPixelX, 15);
        EXPECT_EQ(EditorState::Of(editor).twipsPerPixelY, 15);
    }
}

/// Parts that note what they hear and fail.
class FailingParts : public RecordingParts
{
public:
    using RecordingParts::RecordingParts;
    void UpdateCharacterButtons() override
    {
        Fail([&] { RecordingParts::UpdateCharacterButtons(); });
    }
    void UpdateParagraphButtons() override
    {
        Fail([&] { RecordingParts::UpdateParagraphButtons(); });
    }
    void DrawRuler(RulerReading reading) override
    {
        Fail([&] { RecordingParts::DrawRuler(reading); });
    }
    void PlaceCombos() override
    {
        Fail([&] { RecordingParts::PlaceCombos(); });
    }
    void HidePopups() override
    {
        Fail([&] { RecordingParts::HidePopups(); });
    }
    void HideFindDialog() override
    {
        Fail([&] { RecordingParts::HideFindDialog(); });
    }
    void RestoreFindDialog() override
    {
        Fail([&] { RecordingParts::RestoreFindDialog(); });
    }
    void Unload(Form form) override
    {
        Fail([&] { RecordingParts::Unload(form); });
    }

private:
    template <class Note>
    static void Fail(Note note)
    {
        note();
        throw std::runtime_error("the part fails");
    }
};

TEST_F(EditorFaults, OfThePartsStopNoStep)
{
    std::vector<QString> log;
    {
        // Nobody is there to answer a real message.
        RichTextEditor editor(ScriptedServices().Services());
        EditorState::Of(editor).parts = std::make_unique<FailingParts>(log);
        EditorState::Of(editor).RefreshUIState();
        EXPECT_THAT(log, testing::ElementsAre(QStringLiteral("character buttons"), QStringLiteral("paragraph buttons"),
                                              QStringLiteral("ruler, reread")));
        LiveThrough(editor, m_file);
        EXPECT_GT(EngineOf(editor).height(), 100);
        EXPECT_THAT(log, testing::IsSupersetOf({QStringLiteral("combos"), QStringLiteral("find restored")}));
        QTest::mouseClick(editor.findChild<QWidget*>(QStringLiteral("iStatus")), Qt::LeftButton);
        EXPECT_THAT(log, testing::Contains(QStringLiteral("popups hidden")));
        ExpectWhole(editor);
        log.clear();
    }
    EXPECT_THAT(log, testing::ElementsAre(QStringLiteral("ViewFrm"), QStringLiteral("ParaDlg"),
                                          QStringLiteral("FindDlg"), QStringLiteral("ComFrm")));
}

class FailingBag : public PropertyBag
{
public:
    QVariant ReadProperty(const QString& key, const QVariant& usual) const override
    {
        if (key == failing)
            throw std::runtime_error("the bag fails");
        return usual.metaType().id() == QMetaType::Bool ? QVariant(!usual.toBool()) : QVariant(1000);
    }
    void WriteProperty(const QString& key, const QVariant&, const QVariant&) override
    {
        if (key == failing)
            throw std::runtime_error("the bag fails");
        written.append(key);
    }

    QString failing;
    QStringList written;
};

TEST_F(EditorFaults, OfTheBagAtOneKeyLeaveTheOthers)
{
    for (const char* key : {"Toolbar", "Ruler", "Inches", "LeftMargin", "BottomMargin"})
    {
        RichTextEditor editor;
        FailingBag bag;
        bag.failing = QLatin1String(key);
        editor.ReadProperties(bag);
        EXPECT_EQ(editor.Toolbar(), bag.failing == QLatin1String("Toolbar"));
        EXPECT_FALSE(editor.Statusbar());
        EXPECT_EQ(EditorState::Of(editor).margins.top, 1000);
        EXPECT_EQ(EditorState::Of(editor).margins.bottom, bag.failing == QLatin1String("BottomMargin") ? 720 : 1000);
        editor.WriteProperties(bag);
        EXPECT_EQ(bag.written.size(), 7);
        EXPECT_FALSE(bag.written.contains(bag.failing));
    }
}

}  // namespace
}  // namespace quillmarker
