#include <quillmarker/widgets/platform_services.h>

#include <QGuiApplication>
#include <QLibrary>

namespace quillmarker
{
namespace
{

#if QT_CONFIG(xcb)

/// What we need of Xlib, taken from the library that Qt has loaded; so it is no dependency of ours.
struct XlibFunctions
{
    using Atom = unsigned long;
    using InternAtom = Atom (*)(Display*, const char* name, int onlyIfExists);
    using GetNamedIndicator = int (*)(Display*, Atom name, int* index, int* isOn, void* map, int* isReal);

    InternAtom internAtom = nullptr;
    GetNamedIndicator getNamedIndicator = nullptr;

    bool IsComplete() const { return internAtom && getNamedIndicator; }

    std::optional<bool> IsOn(Display* display, const char* indicator) const
    {
        constexpr int kOnlyIfExists = 1;
        const Atom name = internAtom(display, indicator, kOnlyIfExists);
        int isOn = 0;
        if (!name || !getNamedIndicator(display, name, nullptr, &isOn, nullptr, nullptr))
            return std::nullopt;
        return isOn != 0;
    }
};

XlibFunctions LoadXlib()
{
    constexpr int kVersion = 6;
    const QString library = QStringLiteral("X11");
    return {
        reinterpret_cast<XlibFunctions::InternAtom>(QLibrary::resolve(library, kVersion, "XInternAtom")),
        reinterpret_cast<XlibFunctions::GetNamedIndicator>(
            QLibrary::resolve(library, kVersion, "XkbGetNamedIndicator")),
    };
}

std::optional<KeyLocks> LocksOfDisplay()
{
    const auto* application = qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    Display* display = application ? application->display() : nullptr;
    if (!display)
        return std::nullopt;
    static const XlibFunctions xlib = LoadXlib();
    if (!xlib.IsComplete())
        return std::nullopt;
    const std::optional<bool> caps = xlib.IsOn(display, "Caps Lock");
    const std::optional<bool> num = xlib.IsOn(display, "Num Lock");
    return caps && num ? std::optional(KeyLocks{*caps, *num}) : std::nullopt;
}

#else

std::optional<KeyLocks> LocksOfDisplay() { return std::nullopt; }

#endif

class QtKeyLocks : public KeyLockService
{
public:
    std::optional<KeyLocks> Now() const override { return LocksOfDisplay(); }
};

}  // namespace

std::unique_ptr<KeyLockService> MakeQtKeyLocks() { return std::make_unique<QtKeyLocks>(); }

}  // namespace quillmarker
