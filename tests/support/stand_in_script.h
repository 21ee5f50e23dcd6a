#pragma once

#include <QByteArray>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

/// A folder of a test's own and the script that the stand-in tools follow in it. In the script, @ stands
/// for the folder.
class StandInScript
{
public:
    QString path(const QString &name) const { return m_folder.filePath(name); }
    QString folder() const { return m_folder.path(); }

    void set(QByteArray script)
    {
        script.replace('@', m_folder.path().toUtf8());
        QFile file(path(QStringLiteral("script")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(script);
        qputenv("MARROWCUT_STAND_IN_SCRIPT", file.fileName().toUtf8());
    }

    void touch(const QString &name) const { QVERIFY(QFile(path(name)).open(QIODevice::WriteOnly)); }

    QByteArray contents(const QString &name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

private:
    QTemporaryDir m_folder;
};
