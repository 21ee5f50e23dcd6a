#include "media/probe_answers.h"

#include "media/numbers.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>

namespace marrowcut::media
{

namespace
{

QString textOr(const QString &text, const QString &fallback)
{
    return text.isEmpty() ? fallback : text;
}

int countFilledLines(const QString &answer)
{
    const QStringList lines = answer.split(QLatin1Char('\n'));
    return static_cast<int>(std::count_if(lines.begin(), lines.end(),
                                          [](const QString &line) { return !line.trimmed().isEmpty(); }));
}

/// "2024-03-05T14:22:10.000000Z" becomes "2024-03-05 14:22:10".
QString readableDate(QString date)
{
    static const QRegularExpression fractionAndZone(QStringLiteral("\\.\\d+Z$"));
    return date.replace(QLatin1Char('T'), QLatin1Char(' ')).remove(fractionAndZone);
}

} // namespace

QString firstLine(const QString &answer)
{
    const QStringList lines = answer.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    return lines.isEmpty() ? QString() : lines.first().trimmed();
}

std::optional<ProbedMetadata> metadataFrom(const ProbeAnswers &answers)
{
    ProbedMetadata meta;
    meta.tc = textOr(firstLine(answers.timecode), QStringLiteral("00:00:00:00"));
    meta.rate = firstLine(answers.frameRate);
    meta.audioCount = countFilledLines(answers.audioStreams);
    meta.duration = decimalNumber(firstLine(answers.duration)).value_or(0);
    const QString date = textOr(firstLine(answers.modificationDate), firstLine(answers.creationDate));
    meta.fileDate = textOr(readableDate(date), QStringLiteral("unavailable"));
    if (meta.rate.isEmpty())
        return std::nullopt;
    return meta;
}

} // namespace marrowcut::media
