#include "media/drawtext_escape.h"

#include <algorithm>

namespace marrowcut::media
{

namespace
{

bool isTrimmedByFFmpeg(QChar character)
{
    return character == u' ' || character == u'\t' || character == u'\n' || character == u'\r';
}

QString escapedCharacter(QChar character)
{
    if (character == u'\'')
        return QStringLiteral("\\'\\''"); // \' inside, then close the quotes, a quote, open them
    if (character == u'\\')
        return QStringLiteral("\\\\");
    if (character == u':')
        return QStringLiteral("\\:");
    return character;
}

} // namespace

QString escapeForQuotes(const QString &text)
{
    // White space is kept at either end only behind a backslash.
    const auto firstInner = std::find_if_not(text.cbegin(), text.cend(), isTrimmedByFFmpeg);
    const auto lastInner = std::find_if_not(text.crbegin(), text.crend(), isTrimmedByFFmpeg).base();

    QString escaped;
    for (auto at = text.cbegin(); at != text.cend(); ++at) {
        if (at < firstInner || at >= lastInner)
            escaped += u'\\';
        escaped += escapedCharacter(*at);
    }
    return escaped;
}

QString escapeForDrawtext(const QString &text)
{
    // Text expansion would take % and \ for its own. It cannot be escaped past it for all scripts,
    // so it is switched off; the quote that follows the text in the graph closes this value.
    const bool wantsNoExpansion = text.contains(u'%') || text.contains(u'\\');
    return escapeForQuotes(text) + (wantsNoExpansion ? QStringLiteral("':expansion='none") : QString());
}

} // namespace marrowcut::media
