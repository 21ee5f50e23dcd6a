#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace marrowcut::cli
{

/// The standard input that the program was started with, kept readable after the null device has taken
/// its place. To be made first thing in main(). Children never get it.
class GivenInput
{
public:
    GivenInput();
    ~GivenInput();
    GivenInput(const GivenInput &) = delete;
    GivenInput &operator=(const GivenInput &) = delete;

    int descriptor() const { return m_descriptor; }

private:
    int m_descriptor;
};

/// The bytes of a file or, where the path is "-", of the input up to its end. Nothing when they cannot
/// be read; problem then says why.
std::optional<QByteArray> readNameList(const QString &path, const GivenInput &input, QString &problem);

} // namespace marrowcut::cli
