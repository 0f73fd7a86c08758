#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QMimeData>

#include <cstdio>

namespace
{

int Read(const QString& type)
{
    QFile out;
    if (!out.open(stdout, QIODevice::WriteOnly))
        return 1;
    const QMimeData* content = QGuiApplication::clipboard()->mimeData();
    if (type == QLatin1String("formats"))
        out.write(content->formats().join(QLatin1Char('\n')).toUtf8());
    else
        out.write(content->data(type));
    return 0;
}

/// Offers what it is given until it is ended.
int Offer(QGuiApplication& application, const QString& type)
{
    QFile in;
    if (!in.open(stdin, QIODevice::ReadOnly))
        return 1;
    auto* content = new QMimeData;
    content->setData(type, in.readAll());
    QGuiApplication::clipboard()->setMimeData(content);
    std::puts("ready");
    std::fflush(stdout);
    return application.exec();
}

}  // namespace

// The other program at the clipboard:  clipboard_peer read|offer TYPE
int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() != 3)
        return 2;
    return arguments[1] == QLatin1String("offer") ? Offer(application, arguments[2]) : Read(arguments[2]);
}
