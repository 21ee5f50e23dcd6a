#pragma once

#include <QByteArrayView>
#include <QString>

#include <memory>
#include <optional>

namespace marrowcut
{

/// A folder's entries, one after the other, in the file system's bytes and order, "." and ".." left out. Qt's
/// own listing leaves out names that are not UTF-8 without a word; the standard library's takes half as long
/// again. Any one thread.
class FolderEntries
{
public:
    explicit FolderEntries(const QString &folder);

    /// Whether the folder could be opened; one that fails midway just ends there.
    bool isReadable() const;

    /// The next name, valid until the next call; none after the last.
    std::optional<QByteArrayView> next();

private:
    struct Closing {
        void operator()(void *directory) const;
    };

    std::unique_ptr<void, Closing> m_directory;
};

} // namespace marrowcut
