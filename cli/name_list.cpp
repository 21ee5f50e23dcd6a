#include "name_list.h"

#include <QFile>

#include <fcntl.h>
#include <unistd.h>

namespace marrowcut::cli
{

namespace
{

bool isStandardInput(const QString &path)
{
    return path == QLatin1String("-");
}

} // namespace

OriginalInput::OriginalInput()
    : m_descriptor(fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1))
{
}

OriginalInput::~OriginalInput()
{
    if (m_descriptor >= 0)
        close(m_descriptor);
}

QString nameListSource(const QString &path)
{
    return isStandardInput(path) ? QStringLiteral("standard input") : path;
}

std::optional<QByteArray> readNameList(const QString &path, const OriginalInput &input, QString &problem)
{
    QFile file(path);
    if (isStandardInput(path) ? file.open(input.descriptor(), QIODevice::ReadOnly)
                              : file.open(QIODevice::ReadOnly)) {
        QByteArray bytes = file.readAll();
        if (file.error() == QFileDevice::NoError)
            return bytes;
    }
    problem = QStringLiteral("Cannot read names from %1: %2").arg(nameListSource(path), file.errorString());
    return std::nullopt;
}

} // namespace marrowcut::cli
