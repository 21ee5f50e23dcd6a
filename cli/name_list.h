#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace marrowcut::cli
{

/// The standard input that the program was started with, kept readable after the null device has replaced it.
/// Construct it first in main(). Child processes don't inherit it.
class OriginalInput
{
public:
    OriginalInput();
    ~OriginalInput();
    OriginalInput(const OriginalInput &) = delete;
    OriginalInput &operator=(const OriginalInput &) = delete;

    int descriptor() const { return m_descriptor; }

private:
    int m_descriptor;
};

/// The source of a list of names as messages show it: the path, or "standard input" for "-".
QString nameListSource(const QString &path);

/// The contents of a file or, where the path is "-", of the input up to its end. Nothing when they cannot be
/// read; problem then says why.
std::optional<QByteArray> readNameList(const QString &path, const OriginalInput &input, QString &problem);

} // namespace marrowcut::cli
