#include "media/process_runner.h"

#include "media/error_output.h"
#include "platform/background_thread.h"
#include "platform/outside_text.h"
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
/// and a stop request takes effect at once.
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
    return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -process.exitCode();
}

bool continuesACharacter(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// The end of the bytes, without a part of a character at its beginning.
QByteArray lastBytes(const QByteArray &bytes, qsizetype count)
{
    qsizetype begin = std::max<qsizetype>(bytes.size() - count, 0);
    while (begin > 0 && begin < bytes.size() && continuesACharacter(bytes[begin]))
        ++begin;
    return bytes.sliced(begin);
}

/// The beginning of the bytes, without a part of a character at its end.
QByteArray firstBytes(const QByteArray &bytes, qsizetype count)
{
    qsizetype end = std::min(bytes.size(), count);
    while (end > 0 && end < bytes.size() && continuesACharacter(bytes[end]))
        --end;
    return bytes.first(end);
}

} // namespace

CapturedResult run(const QString &executable, const QStringList &arguments, const Options &options)
{
    QProcess process;
    prepare(process, executable, arguments, options);
    QByteArray output;
    QByteArray errors;
    LineSplitter splitter;
    const auto takeOutput = [&] {
        const QByteArray bytes = process.readAllStandardOutput();
        if (output.size() <= keptOutput) // one byte more shows that there was more
            output += bytes.first(std::min(bytes.size(), keptOutput + 1 - output.size()));
    };
    const auto takeErrors = [&] {
        const QByteArray bytes = process.readAllStandardError();
        errors = lastBytes(errors + bytes, keptErrorOutput);
        if (!options.onStderrLine)
            return;
        for (const QString &line : splitter.add(bytes))
            options.onStderrLine(line);
    };
    QObject::connect(&process, &QProcess::readyReadStandardOutput, &process, takeOutput);
    QObject::connect(&process, &QProcess::readyReadStandardError, &process, takeErrors);
    const qint32 status = runToEnd(process, options);
    takeOutput();
    takeErrors();
    return {status, decodeUtf8(firstBytes(output, keptOutput)).value_or(QString()),
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
        for (const QString &line : splitter.add(process.readAllStandardError()))
            onStderrLine(line);
    };
    QObject::connect(&process, &QProcess::readyReadStandardError, &process, deliverAvailable);
    const qint32 status = runToEnd(process, options);
    deliverAvailable();
    return status;
}

} // namespace marrowcut::media::ProcessRunner
