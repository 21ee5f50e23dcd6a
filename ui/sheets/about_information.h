#pragma once

#include "platform/resources.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace marrowcut
{

/// What the about sheet shows about this build.
class AboutInformation : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
public:
    using QObject::QObject;

    /// Such as "Version 1.0 (1)"; reads the version keys at each call.
    Q_INVOKABLE QString versionString() const { return QStringLiteral("Version ") + versionText(); }
};

} // namespace marrowcut
