#include "name_list.h"

#include <QFile>

#include <fcntl.h>
#include <unistd.h>

namespace marrowcut::cli
{

namespace
{

bool openList(QFile &file, const QString &path, const GivenInput &input)
{
    if (path == QLatin1String("-"))
        return file.open(input.descriptor(), QIODevice::ReadOnly);
    file.setFileName(path);
    return file.open(QIODevice::ReadOnly);
}

} // namespace

GivenInput::GivenInput()
    : m_descriptor(fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1))
{
}

GivenInput::~GivenInput()
{
    if (m_descriptor >= 0)
        close(m_descriptor);
}

std::optional<QByteArray> readNameList(const QString &path, const GivenInput &input, QString &problem)
{
    QFile file;
    if (openList(file, path, input)) {
        QByteArray bytes = file.readAll();
        if (file.error() == QFileDevice::NoError)
            return bytes;
    }
    const QString name = path == QLatin1String("-") ? QStringLiteral("standard input") : path;
    problem = QStringLiteral("Cannot read names from %1: %2").arg(name, file.errorString());
    return std::nullopt;
}

} // namespace marrowcut::cli
