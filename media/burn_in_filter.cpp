#include "media/burn_in_filter.h"

#include "media/proxy_format.h"

#include <QStringList>

#include <algorithm>
#include <array>

namespace marrowcut::media
{

namespace
{

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

/// Place and look of one drawn text, in ffmpeg's own expressions.
struct TextBox {
    const char *x;
    const char *y;
    const char *fontSize;
    const char *borderWidth;
};

/// Name, source label and value, elapsed label and value, date: in this order.
using Layout = std::array<TextBox, 6>;

constexpr Layout wideLayout = {{
    {"w-tw-w*0.0234375", "h*0.041667", "h/26", "2"},
    {"w*0.609375", "h*0.1", "h/29", "2"},
    {"w-tw-w*0.0234375", "h*0.1", "h/29", "2"},
    {"w*0.609375", "h*0.152778", "h/29", "2"},
    {"w-tw-w*0.0234375", "h*0.152778", "h/29", "2"},
    {"w-tw-w*0.0234375", "h*0.201389", "h/46", "1"},
}};

constexpr Layout tinyLayout = {{
    {"w-tw-w*0.012", "h*0.03", "h/17", "2"},
    {"w*0.44", "h*0.11", "h/19", "1"},
    {"w-tw-w*0.012", "h*0.11", "h/19", "1"},
    {"w*0.36", "h*0.19", "h/19", "1"},
    {"w-tw-w*0.012", "h*0.19", "h/19", "1"},
    {"w-tw-w*0.012", "h*0.28", "h/24", "1"},
}};

QString fixedText(const QString &text)
{
    return QStringLiteral(":text='") + text + QLatin1Char('\'');
}

QString runningTimecode(const QString &tc, const QString &rate)
{
    return QStringLiteral(":timecode='") + escapeForDrawtext(tc) + QStringLiteral("':rate=") + rate;
}

QString drawText(const QString &fontFile, const QString &content, const TextBox &box)
{
    return QStringLiteral("drawtext=fontfile='") + escapeForQuotes(fontFile) + QLatin1Char('\'') + content +
           QStringLiteral(":x=") + QLatin1String(box.x) + QStringLiteral(":y=") + QLatin1String(box.y) +
           QStringLiteral(":fontsize=") + QLatin1String(box.fontSize) +
           QStringLiteral(":fontcolor=white:borderw=") + QLatin1String(box.borderWidth) +
           QStringLiteral(":bordercolor=black");
}

QStringList burnIn(const FilterInputs &inputs, const QString &fontFile)
{
    const QStringList contents = {
        fixedText(escapeForDrawtext(inputs.filename)),
        fixedText(QStringLiteral("SOURCE TC")),
        runningTimecode(inputs.srcTC, inputs.rate),
        fixedText(QStringLiteral("CLIP ELAPSED")),
        runningTimecode(inputs.elapsedTC, inputs.rate),
        fixedText(QStringLiteral("FILE DATE  ") + escapeForDrawtext(inputs.fileDate)),
    };
    const Layout &layout = proxyFormat(inputs.preset).hasLargeText ? tinyLayout : wideLayout;
    QStringList elements;
    for (std::size_t index = 0; index < layout.size(); ++index)
        elements.append(drawText(fontFile, contents[static_cast<qsizetype>(index)], layout[index]));
    return elements;
}

QString audioChain(int audioCount)
{
    QString inputs;
    for (int index = 0; index < audioCount; ++index)
        inputs += QStringLiteral("[0:a:%1]").arg(index);
    return inputs +
           QStringLiteral("amix=inputs=%1:duration=longest:normalize=0,loudnorm=I=-16:TP=-1.5:LRA=11[a]")
               .arg(audioCount);
}

} // namespace

QString escapeForQuotes(const QString &text)
{
    // White space is kept at either end only behind a backslash.
    const auto isTrimmedByFFmpeg = [](QChar character) {
        return QStringView(u" \t\n\r").contains(character);
    };
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

QString buildFilter(const FilterInputs &inputs, const QString &fontFile)
{
    QStringList videoFilters = {QStringLiteral("scale=%1:-2").arg(proxyFormat(inputs.preset).width)};
    if (inputs.burnInEnabled)
        videoFilters += burnIn(inputs, fontFile);
    const QString graph =
        QStringLiteral("[0:v:0]") + videoFilters.join(QLatin1Char(',')) + QStringLiteral("[v]");
    return inputs.audioCount < 1 ? graph : graph + QLatin1Char(';') + audioChain(inputs.audioCount);
}

} // namespace marrowcut::media
