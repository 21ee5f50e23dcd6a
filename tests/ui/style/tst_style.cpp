#include <QQuickStyle>
#include <QtQml/qqmlextensionplugin.h>
#include <QtQuickTest>

Q_IMPORT_QML_PLUGIN(Marrowcut_StylePlugin)

class Setup : public QObject
{
    Q_OBJECT
public Q_SLOTS:
    void applicationAvailable() { QQuickStyle::setStyle(QStringLiteral("Fusion")); }
};

QUICK_TEST_MAIN_WITH_SETUP(style, Setup)

#include "tst_style.moc"
