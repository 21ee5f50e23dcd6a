#pragma once

#include <QList>
#include <QUrl>

namespace marrowcut
{

/// The desktop's file viewer. Main thread.
class FileViewer
{
public:
    virtual ~FileViewer() = default;

    /// Shows a folder, selected in the folder that holds it. Returns at once; success is not reported,
    /// also when the folder does not exist.
    virtual void reveal(const QUrl &folder) = 0;
};

/// Records the folders to reveal: for tests.
class MemoryFileViewer : public FileViewer
{
public:
    const QList<QUrl> &revealed() const { return m_revealed; }

    void reveal(const QUrl &folder) override { m_revealed.append(folder); }

private:
    QList<QUrl> m_revealed;
};

} // namespace marrowcut
