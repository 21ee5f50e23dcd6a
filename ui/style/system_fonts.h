#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace marrowcut
{

/// The fonts that the desktop has chosen, as far as QML does not offer them itself.
class SystemFonts : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    /// The family of the desktop's monospaced font; its size is not taken over.
    Q_PROPERTY(QString monospaced READ monospaced CONSTANT)
public:
    using QObject::QObject;

    QString monospaced() const;
};

} // namespace marrowcut
