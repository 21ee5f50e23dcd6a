#include "media/process_runner.h"

#include "media/error_output.h"
#include "platform/background_thread.h"
#include "platform/file_names.h"
#include "platform/process_setup.h"

#include <QEventLoop>
#include <QProcess>
#include <QTimer>

#include <algorithm>

namespace marrowcut::media::ProcessRunner
{

namespace
{

void prepare(QProcess &process, const QString &executable, const QStringList &arguments,
             const Options &options)
{
    process.setProgram(executable);
    process.setArguments(arguments);
    process.setWorkingDirectory(options.workingDirectory);
    process.setInputChannelMode(QProcess::ForwardedInputChannel);
    guardChild(process);
}

/// Starts the child and waits for its end in an event loop, so that its output is read as it comes
/// and a request to stop is heard at once.
qint32 runToEnd(QProcess &process, const Options &options)
{
    const std::stop_token &stop = options.stop;
    if (stop.stop_requested())
        throw Interrupted();

    QEventLoop loop;
    QObject::connect(&process, &QProcess::finished, &loop, &QEventLoop::quit);
    process.start(QIODevice::ReadOnly);
    if (!process.waitForStarted(-1))
        throw LaunchError(process.errorString().toStdString());
    {
        const std::stop_callback killChild(
            stop, [&process] { QMetaObject::invokeMethod(&process, &QProcess::kill, Qt::QueuedConnection); });
        if (options.timeLimit.count() > 0)
            QTimer::singleShot(options.timeLimit, &process, &QProcess::kill);
        if (process.state() != QProcess::NotRunning)
            loop.exec();
    }
    if (stop.stop_requested())
        throw Interrupted();
    return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : 128 + process.exitCode();
}

/// What is kept of a child's error output: no part of a character is left over at its beginning.
QByteArray lastBytes(const QByteArray &bytes)
{
    qsizetype begin = std::max<qsizetype>(bytes.size() - keptErrorOutput, 0);
    while (begin > 0 && begin < bytes.size() && (static_cast<unsigned char>(bytes[begin]) & 0xC0) == 0x80)
        ++begin;
    return bytes.sliced(begin);
}

} // namespace

CapturedResult run(const QString &executable, const QStringList &arguments, const Options &options)
{
    QProcess process;
    prepare(process, executable, arguments, options);
    QByteArray errors;
    const auto takeErrors = [&] { errors = lastBytes(errors + process.readAllStandardError()); };
    QObject::connect(&process, &QProcess::readyReadStandardError, &process, takeErrors);
    const qint32 status = runToEnd(process, options);
    takeErrors();
    return {status, decodeUtf8(process.readAllStandardOutput()).value_or(QString()),
            decodeUtf8(errors).value_or(QString())};
}

qint32 runStreaming(const QString &executable, const QStringList &arguments,
                    const std::function<void(const QString &)> &onStderrLine, const Options &options)
{
    QProcess process;
    prepare(process, executable, arguments, options);
    process.setStandardOutputFile(QProcess::nullDevice());

    LineSplitter splitter;
    const auto deliverAvailable = [&] {
        for (const QString &line : splitter.feed(process.readAllStandardError()))
            onStderrLine(line);
    };
    QObject::connect(&process, &QProcess::readyReadStandardError, &process, deliverAvailable);
    const qint32 status = runToEnd(process, options);
    deliverAvailable();
    return status;
}

} // namespace marrowcut::media::ProcessRunner
