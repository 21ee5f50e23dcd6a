#include "media/numbers.h"

#include <QByteArray>

#include <array>
#include <charconv>
#include <cmath>
#include <string_view>

namespace marrowcut::media
{

namespace
{

template <typename Number>
std::optional<Number> wholeTextAs(QStringView text)
{
    const QByteArray bytes = text.toUtf8();
    std::string_view digits(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    if (digits.starts_with('+') && !digits.starts_with("+-"))
        digits.remove_prefix(1); // from_chars takes a minus sign only

    Number number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error != std::errc() || end != digits.data() + digits.size())
        return std::nullopt;
    return number;
}

} // namespace

std::optional<double> decimalNumber(QStringView text)
{
    const auto number = wholeTextAs<double>(text);
    return number && std::isfinite(*number) ? number : std::nullopt;
}

std::optional<qint64> wholeNumber(QStringView text)
{
    return wholeTextAs<qint64>(text);
}

QString decimalText(double value)
{
    std::array<char, 512> buffer; // the longest double takes 327 characters in fixed notation
    const auto [end, error] = std::to_chars(buffer.begin(), buffer.end(), value, std::chars_format::fixed);
    QString text = QString::fromLatin1(buffer.data(), end - buffer.data());
    if (!text.contains(QLatin1Char('.')))
        text += QStringLiteral(".0");
    return text;
}

} // namespace marrowcut::media
