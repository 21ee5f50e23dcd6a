#include <QtQml/qqmlextensionplugin.h>
#include <QtQuickTest>

Q_IMPORT_QML_PLUGIN(Marrowcut_StylePlugin)

QUICK_TEST_MAIN(style)
