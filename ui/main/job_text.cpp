#include "ui/main/job_text.h"

#include "engine/failure_advice.h"

#include <algorithm>

namespace marrowcut::JobText
{

namespace
{

/// The control pictures of Unicode would say more, but few fonts have them.
QChar visible(QChar character)
{
    if (character == u'\n' || character == u'\r')
        return QChar(u'\u21b5'); // a bent arrow
    const bool changesLines =
        character.category() == QChar::Separator_Line || character.category() == QChar::Separator_Paragraph;
    const bool changesDirection = (character.unicode() >= 0x202a && character.unicode() <= 0x202e) ||
                                  (character.unicode() >= 0x2066 && character.unicode() <= 0x2069);
    const bool isControl = character.category() == QChar::Other_Control;
    return changesLines || changesDirection || isControl ? QChar(QChar::ReplacementCharacter) : character;
}

/// Rounded down: 100 only for what is complete.
QString percentText(double fraction)
{
    return QStringLiteral("%1 percent").arg(static_cast<int>(std::clamp(fraction, 0.0, 1.0) * 100));
}

QString joined(QStringList texts, const QString &separator)
{
    texts.removeAll(QString());
    return texts.join(separator);
}

} // namespace

QString oneLine(const QString &text)
{
    QString line = text;
    std::ranges::transform(text, line.begin(), visible);
    return line;
}

double barValue(const ProxyJob &job)
{
    return job.status.isSuccessful() ? 1.0 : job.progress;
}

QString remainingTime(const ProxyJob &job)
{
    const QString remaining = job.remainingTimeText();
    return remaining.isEmpty() ? QString() : QStringLiteral("· ") + remaining;
}

QString failureText(const ProxyJob &job)
{
    return joined({failureAdvice(job), errorMessages(job)}, QStringLiteral("\n\n"));
}

QString waitingText()
{
    return QStringLiteral("Waiting for another Marrowcut that is processing this clip");
}

QString failureReport(const ProxyJob &job)
{
    const QString heading = job.fileName() + QLatin1Char('\n') + job.status.label();
    return joined({heading, failureText(job)}, QStringLiteral("\n\n"));
}

QString accessibleName(const ProxyJob &job)
{
    const QString text = oneLine(job.fileName()) + QStringLiteral(", ") + job.status.label();
    return job.status.isEncoding() ? text + QStringLiteral(", ") + percentText(job.progress) : text;
}

QString accessibleDescription(const ProxyJob &job)
{
    if (!job.status.isFailed())
        return job.remainingTimeText();
    const QString advice = failureAdvice(job);
    return advice.isEmpty() ? errorMessages(job).section(QLatin1Char('\n'), -1) : advice;
}

} // namespace marrowcut::JobText
