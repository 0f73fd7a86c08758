#include "content/strip_markers.h"
#include "editor_state.h"
#include "engine/platform/clipboard.h"
#include "format/font_lists.h"
#include "format/format_toolbar_widget.h"
#include "format_parts_widget.h"
#include "scroll_relay.h"
#include "status_bar_widget.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>

#include <cmath>

namespace quillmarker
{
namespace
{

constexpr int kBulletIndent = 567;
constexpr int kRulerHeight = 330;
constexpr int kPaperWidthWithoutPrinter = 11'904;  // of an A4 sheet

/// Services that the host leaves out are Qt's.
PlatformServices Completed(PlatformServices given)
{
    PlatformServices usual = QtServices();
    const auto complete = [](auto& service, auto& otherwise) {
        if (!service)
            service = std::move(otherwise);
    };
    complete(given.printers, usual.printers);
    complete(given.messageBoxes, usual.messageBoxes);
    complete(given.fontFamilies, usual.fontFamilies);
    complete(given.screen, usual.screen);
    complete(given.keyLocks, usual.keyLocks);
    complete(given.pendingEvents, usual.pendingEvents);
    complete(given.clipboard, usual.clipboard);
    complete(given.fontDialog, usual.fontDialog);
    complete(given.help, usual.help);
    return given;
}

/// What a screen says of its pixels, where that can be: lengths are divided by it.
void TakeScale(int& twipsPerPixel, qreal told)
{
    constexpr qreal kCoarsest = 1'440;  // a pixel of an inch
    if (told >= 1 && told <= kCoarsest)
        twipsPerPixel = static_cast<int>(std::lround(told));
}

/// What is left of a page; none when that is no length at all, as margins may be anything.
std::optional<int> Rest(int page, int less, int andLess)
{
    const std::int64_t rest = std::int64_t{page} - less - andLess;
    return rest == static_cast<int>(rest) ? std::optional(static_cast<int>(rest)) : std::nullopt;
}

}  // namespace

EditorState::EditorState(RichTextEditor& owner, PlatformServices given)
    : editor(&owner), services(Completed(std::move(given)))
{
}

void EditorState::Initialize()
{
    MakeChildren();
    Attempt([&] { ProbePrinter(); });
    Attempt([&] { HookEngineWindow(*engine, *outline); });
    Attempt([&] { FillLists(); });
    Attempt([&] { engine->Box().SetBulletIndent({kBulletIndent}); });
    Attempt([&] {
        const QSizeF twips = services.screen->TwipsPerPixel(*editor);
        TakeScale(twipsPerPixelX, twips.width());
        TakeScale(twipsPerPixelY, twips.height());
    });
    Attempt([&] { ruler->setFixedHeight(kRulerHeight / twipsPerPixelY); });
    Attempt([&] { MakeParts(); });
    Attempt([&] { ComputePrinterOffsets(); });
    Attempt([&] { FormatEmptyDocument(); });
    Attempt([&] { TakeDefaultCharset(); });
    // What was set up is nothing that a user would undo, and nobody has changed anything yet.
    Attempt([&] { engine->Box().ClearHistory(); });
    ConnectEngine();
}

void EditorState::MakeChildren()
{
    toolbar = new FormatToolbar(editor);
    ruler = new QWidget(editor);
    engine = new EditorView(*this, editor);
    statusBar = new StatusBar(services.keyLocks, editor);
    outline = new QLineEdit(editor);
    textBox = new QLineEdit(editor);

    struct Naming
    {
        QWidget* child;
        QString objectName;
        QString accessibleName;
    };
    for (const Naming& naming : {
             Naming{toolbar, QStringLiteral("iToolbar"), RichTextEditor::tr("Formatting toolbar")},
             Naming{ruler, QStringLiteral("iRuler"), RichTextEditor::tr("Ruler")},
             Naming{engine, QStringLiteral("RTF"), RichTextEditor::tr("Report text")},
             Naming{statusBar, QStringLiteral("iStatus"), RichTextEditor::tr("Status bar")},
             Naming{outline, QStringLiteral("Outline"), {}},
             Naming{textBox, QStringLiteral("Text1"), {}},
         })
    {
        naming.child->setObjectName(naming.objectName);
        naming.child->setAccessibleName(naming.accessibleName);
    }
    for (QWidget* hidden : {static_cast<QWidget*>(outline), static_cast<QWidget*>(textBox)})
    {
        hidden->setFocusPolicy(Qt::NoFocus);
        hidden->hide();
    }
    outline->installEventFilter(editor);
    engine->setFrameShape(QFrame::NoFrame);
    engine->SetClipboard(services.clipboard);
    // What is dragged away, too, leaves without markers.
    engine->SetCopyFilter([](std::u16string rtf) {
        StripMarkers(rtf);
        return rtf;
    });
    editor->setFocusProxy(engine);
    report = std::make_unique<Report>(engine->Box());
    report->SetHooks(this);
    report->Change = [this] { Try([&] { Q_EMIT editor->Change(); }); };
}

void EditorState::MakeParts()
{
    toolbar->SetScale(QSizeF(twipsPerPixelX, twipsPerPixelY));
    parts = std::make_unique<FormatParts>(*this);
}

/// The number of printers and the default one's page width say whether there is something to print on.
void EditorState::ProbePrinter()
{
    noPrinter = true;
    if (services.printers->Names().isEmpty())
        return;
    const auto printer = services.printers->Describe(services.printers->DefaultName());
    noPrinter = !printer || printer->pageWidth <= 0;
}

void EditorState::FillLists()
{
    for (QStringList* names : {&popupFontNames, &comboFontNames})
        Attempt([&] { FillFontList(*names, *services.fontFamilies); });
    popupSizes = FontSizeEntries();
    comboSizes = FontSizeEntries();
}

/// Right and bottom are what is left of the page beside the printable part and the page's own margin, not beside the
/// printer's border: hosts have laid out their reports by it.
void EditorState::ComputePrinterOffsets()
{
    printerOffsets = PrinterOffsets();
    if (noPrinter)
        return;
    const auto printer = services.printers->Describe(services.printers->DefaultName());
    if (!printer)
        return;
    printerOffsets.left = printer->offsetLeft;
    printerOffsets.top = printer->offsetTop;
    const auto right = Rest(printer->pageWidth, printer->printableWidth, margins.left);
    printerOffsets.right = right.value_or(printerOffsets.right);
    const auto bottom = Rest(printer->pageHeight, printer->printableHeight, margins.top);
    printerOffsets.bottom = bottom.value_or(printerOffsets.bottom);
}

/// A length of two on an empty document is what hosts know: it selects nothing and the format is the insertion format.
void EditorState::FormatEmptyDocument()
{
    TextBox& box = engine->Box();
    Attempt([&] { box.SetSelStart(0); });
    Attempt([&] { box.SetSelLength(2); });
    Attempt([&] { box.SetSelFontName(u"Arial"); });
    Attempt([&] { box.SetSelFontSize(10); });
    Attempt([&] { box.SetSelAlignment(kAlignLeft); });
    Attempt([&] { box.SetSelLength(0); });
}

/// The platform's text boxes have no character set of their own, so it is the engine's font that says it.
void EditorState::TakeDefaultCharset()
{
    BoxFont font = engine->Box().Font();
    report->SetDefaultCharset(font.charset);
    engine->Box().SetFont(font);
}

void EditorState::ConnectEngine()
{
    const EditorView* view = engine;
    RichTextEditor* owner = editor;
    const auto hold = [weak = weak_from_this()](auto handler) {
        return [weak, handler](auto&&... arguments) {
            if (const auto state = weak.lock())
                handler(*state, arguments...);
        };
    };
    QObject::connect(view, &RichTextView::SelChange, owner, hold([](EditorState& s) { s.RefreshUIState(); }));
    QObject::connect(view, &RichTextView::Change, owner, hold([](EditorState& s) { s.OnChange(); }));
    QObject::connect(view, &RichTextView::Click, owner, &RichTextEditor::Click);
    QObject::connect(view, &RichTextView::DblClick, owner, &RichTextEditor::DblClick);
    QObject::connect(view, &RichTextView::KeyDown, owner,
                     hold([](EditorState& s, QKeyEvent* e, bool& swallow) { s.OnKeyDown(*e, swallow); }));
    QObject::connect(view, &RichTextView::KeyUp, owner,
                     hold([](EditorState& s, QKeyEvent* e, bool& swallow) { s.OnKeyUp(*e, swallow); }));
    QObject::connect(view, &RichTextView::MouseDown, owner,
                     hold([](EditorState& s, QMouseEvent* e, bool&) { s.OnMouseDown(*e); }));
    QObject::connect(view, &RichTextView::MouseUp, owner,
                     hold([](EditorState& s, QMouseEvent*, bool&) { s.RefreshUIState(); }));
    QObject::connect(statusBar, &StatusBar::MousePressed, owner, hold([](EditorState& s) { s.HidePopups(); }));
}

void EditorState::Show()
{
    Try([&] { toolbar->setVisible(showsToolbar); });
    Try([&] { ruler->setVisible(showsRuler); });
    Try([&] { statusBar->setVisible(showsStatusbar); });
    LayoutChildren();
}

void EditorState::Resize()
{
    bool isMinimised = false;
    Try([&] { isMinimised = editor->window()->isMinimized(); });
    if (isMinimised)
        return Try([&] { parts->HideFindDialog(); });
    LayoutChildren();
    DrawRuler(RulerReading::Reread);
    Try([&] { parts->RestoreFindDialog(); });
}

/// Minimising tells the child windows nothing.
void EditorState::WatchHostWindow()
{
    Try([&] {
        QWidget* window = editor->window();
        if (window == m_hostWindow)
            return;
        if (m_hostWindow)
            m_hostWindow->removeEventFilter(editor);
        m_hostWindow = window;
        window->installEventFilter(editor);
    });
}

void EditorState::Terminate()
{
    for (const Form form : {Form::ViewFrm, Form::ParaDlg, Form::FindDlg, Form::ComFrm})
        Try([&] { parts->Unload(form); });
    if (engine)
        QObject::disconnect(engine, nullptr, editor, nullptr);
    report.reset();
    editor = nullptr;
}

/// From top to bottom: toolbar, ruler, text, status bar. A text without room keeps the size it had.
void EditorState::LayoutChildren()
{
    int top = 0;
    int statusHeight = 0;
    Try([&] {
        const int height = toolbar->sizeHint().height();
        toolbar->setGeometry(0, 0, editor->width(), height);
        if (showsToolbar)
            top = height;
        toolbar->setVisible(showsToolbar);
    });
    Try([&] { parts->PlaceCombos(); });
    ApplyPageWidth();
    Try([&] {
        ruler->setVisible(showsRuler);
        ruler->move(ruler->x(), top);
    });
    Try([&] {
        if (showsRuler)
            top += ruler->height();
    });
    Try([&] {
        const int height = statusBar->sizeHint().height();
        statusBar->setGeometry(0, editor->height() - height, editor->width(), height);
        if (showsStatusbar)
            statusHeight = height;
        statusBar->setVisible(showsStatusbar);
    });
    Try([&] {
        if (const int height = editor->height() - top - statusHeight; height >= 0)
            engine->setGeometry(0, top, editor->width(), height);
    });
}

void EditorState::ApplyPageWidth()
{
    std::optional<int> width;
    Try([&] {
        if (noPrinter)
            width = kPaperWidthWithoutPrinter;
        else if (const auto printer = services.printers->Describe(services.printers->DefaultName()))
            width = Rest(printer->pageWidth, margins.left, margins.right);
    });
    if (!width)
        return;
    Try([&] { engine->SetRightMargin(*width); });
    Try([&] { ruler->resize(engine->RightMargin() / twipsPerPixelX, ruler->height()); });
}

}  // namespace quillmarker
