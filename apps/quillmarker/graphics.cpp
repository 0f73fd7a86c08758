#include "graphics.h"

#include "standard_streams.h"

#include <QGuiApplication>

namespace quillmarker::tool
{
namespace
{

constexpr const char* kPlatform = "QT_QPA_PLATFORM";

char programName[] = "quillmarker";
char* arguments[] = {programName, nullptr};

/// What stops the process is told; the rest is about windows and folders of a desktop that is not there.
void TellWhatIsFatal(QtMsgType type, const QMessageLogContext&, const QString& message)
{
    if (type == QtFatalMsg)
        Complain(message.simplified().toStdString());
}

}  // namespace

Graphics::Graphics()
{
    qInstallMessageHandler(TellWhatIsFatal);
    if (qEnvironmentVariableIsEmpty(kPlatform))
        qputenv(kPlatform, "offscreen");
    m_application = std::make_unique<QGuiApplication>(m_argumentCount, arguments);
}

Graphics::~Graphics() = default;

}  // namespace quillmarker::tool
