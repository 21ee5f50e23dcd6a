#include "complaint.h"

#include <QTextStream>

namespace marrowcut::cli
{

void complain(const QString &problem)
{
    QTextStream(stderr) << "marrowcut-cli: " << problem << '\n';
}

QString noThread()
{
    return QStringLiteral("The system allows this program no further thread, so nothing was done.");
}

} // namespace marrowcut::cli
