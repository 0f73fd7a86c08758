#pragma once

#include <quillmarker/widgets/export.h>
#include <quillmarker/widgets/font_dialog_service.h>

#include <QMessageBox>
#include <QSizeF>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace quillmarker
{

class ClipboardService;

/// What the control asks of a printer. Lengths are in twips.
struct PrinterDescription
{
    QString name;
    QString port;
    int pageWidth = 0;  // of its default paper; 0 when it cannot be told
    int pageHeight = 0;
    int printableWidth = 0;
    int printableHeight = 0;
    // From the paper's edge to what the device can reach.
    int offsetLeft = 0;
    int offsetTop = 0;
    bool isFile = false;  // the built-in one, which writes a PDF file
};

/// The printers of the machine.
class QUILLMARKER_WIDGETS_EXPORT PrinterService
{
public:
    PrinterService() = default;
    virtual ~PrinterService() = default;
    PrinterService(const PrinterService&) = delete;
    PrinterService& operator=(const PrinterService&) = delete;

    virtual QStringList Names() const = 0;
    /// Empty when there is no printer at all.
    virtual QString DefaultName() const = 0;
    virtual std::optional<PrinterDescription> Describe(const QString& name) const = 0;
};

enum class BuiltInPrinter { Offered, Hidden };

/// The printers that Qt knows and, unless it is hidden, the built-in "PDF file": A4 or Letter by locale, without an
/// unprintable border. It is the default printer when the machine has none.
QUILLMARKER_WIDGETS_EXPORT std::unique_ptr<PrinterService> MakeQtPrinters(BuiltInPrinter builtIn);

struct Message
{
    QString text;
    QString title;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QMessageBox::StandardButtons buttons = QMessageBox::Ok;
    int helpContext = 0;  // of the topic behind a Help button
    /// Opens that topic over the box; the box stays. Nothing happens on Help where it is empty.
    std::function<void(QWidget* box)> showHelp = {};
};

class QUILLMARKER_WIDGETS_EXPORT MessageBoxService
{
public:
    MessageBoxService() = default;
    virtual ~MessageBoxService() = default;
    MessageBoxService(const MessageBoxService&) = delete;
    MessageBoxService& operator=(const MessageBoxService&) = delete;

    /// Returns when the user has answered.
    virtual QMessageBox::StandardButton Show(const Message& message, QWidget* owner) = 0;
};

QUILLMARKER_WIDGETS_EXPORT std::unique_ptr<MessageBoxService> MakeQtMessageBoxes();

/// The help that the control's own boxes and dialogs lead to.
class QUILLMARKER_WIDGETS_EXPORT HelpService
{
public:
    HelpService() = default;
    virtual ~HelpService() = default;
    HelpService(const HelpService&) = delete;
    HelpService& operator=(const HelpService&) = delete;

    /// Shows the topic of a help context (12897: fonts and character sets) over `owner`, to which the user can return.
    virtual void ShowTopic(int context, QWidget* owner) = 0;
};

/// The topics that come with the library, in a window of their own; of other contexts it says that there is no help.
QUILLMARKER_WIDGETS_EXPORT std::unique_ptr<HelpService> MakeQtHelp();

class QUILLMARKER_WIDGETS_EXPORT FontFamilyService
{
public:
    FontFamilyService() = default;
    virtual ~FontFamilyService() = default;
    FontFamilyService(const FontFamilyService&) = delete;
    FontFamilyService& operator=(const FontFamilyService&) = delete;

    /// Calls `found` with the face name of each installed family, and with the names that the machine maps to a metric
    /// twin (Arial where Liberation Sans is), until it returns false.
    virtual void EnumerateFamilies(const std::function<bool(const QString&)>& found) const = 0;
};

QUILLMARKER_WIDGETS_EXPORT std::unique_ptr<FontFamilyService> MakeQtFontFamilies();

class QUILLMARKER_WIDGETS_EXPORT ScreenService
{
public:
    ScreenService() = default;
    virtual ~ScreenService() = default;
    ScreenService(const ScreenService&) = delete;
    ScreenService& operator=(const ScreenService&) = delete;

    /// Twips to a pixel across and down; 15 at 96 dots per inch.
    virtual QSizeF TwipsPerPixel(const QWidget& widget) const = 0;
};

QUILLMARKER_WIDGETS_EXPORT std::unique_ptr<ScreenService> MakeQtScreen();

struct KeyLocks
{
    bool isCapsLocked = false;
    bool isNumLocked = false;

    bool operator==(const KeyLocks&) const = default;
};

class QUILLMARKER_WIDGETS_EXPORT KeyLockService
{
public:
    KeyLockService() = default;
    virtual ~KeyLockService() = default;
    KeyLockService(const KeyLockService&) = delete;
    KeyLockService& operator=(const KeyLockService&) = delete;

    /// What the keyboard is in now; empty where the platform does not tell.
    virtual std::optional<KeyLocks> Now() const = 0;
};

/// The keyboard's real state under X11, none elsewhere.
QUILLMARKER_WIDGETS_EXPORT std::unique_ptr<KeyLockService> MakeQtKeyLocks();

class QUILLMARKER_WIDGETS_EXPORT PendingEventService
{
public:
    PendingEventService() = default;
    virtual ~PendingEventService() = default;
    PendingEventService(const PendingEventService&) = delete;
    PendingEventService& operator=(const PendingEventService&) = delete;

    /// Handles the events that wait, once.
    virtual void Process() = 0;
};

QUILLMARKER_WIDGETS_EXPORT std::unique_ptr<PendingEventService> MakeQtPendingEvents();

/// What a control asks of the machine. A host or a test may replace each of them.
struct PlatformServices
{
    std::shared_ptr<PrinterService> printers;
    std::shared_ptr<MessageBoxService> messageBoxes;
    std::shared_ptr<FontFamilyService> fontFamilies;
    std::shared_ptr<ScreenService> screen;
    std::shared_ptr<KeyLockService> keyLocks;
    std::shared_ptr<PendingEventService> pendingEvents;
    std::shared_ptr<ClipboardService> clipboard;
    std::shared_ptr<FontDialogService> fontDialog;
    std::shared_ptr<HelpService> help;
};

/// Those of Qt, with the built-in printer.
QUILLMARKER_WIDGETS_EXPORT PlatformServices QtServices();

}  // namespace quillmarker
