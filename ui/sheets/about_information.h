#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace marrowcut
{

/// What the about sheet says of this build.
class AboutInformation : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
public:
    using QObject::QObject;

    /// Such as "Version 1.0 (1)"; the version keys are read afresh.
    Q_INVOKABLE QString versionString() const;
};

} // namespace marrowcut
