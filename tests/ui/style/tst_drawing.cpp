#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>
#include <QtQml/qqmlextensionplugin.h>

Q_IMPORT_QML_PLUGIN(Marrowcut_StylePlugin)

using namespace Qt::StringLiterals;

/// What is drawn at a scale of 1.25, where the software renderer's own shapes lose their corners.
class DrawingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shapesAreWhole()
    {
        QQmlEngine engine;
        const std::unique_ptr<QObject> created = create(
            engine,
            "Window { width: 100; height: 100; color: 'white'\n"
            "    RoundedRectangle { objectName: 'shape'; y: x; height: width; radius: 5; color: 'blue'\n"
            "        borderColor: 'black'; borderWidth: 1 } }");
        auto *window = qobject_cast<QQuickWindow *>(created.get());
        auto *item = window->findChild<QQuickItem *>(u"shape"_s);
        for (int place = 8; place < 12; ++place) {
            for (int size = 16; size < 20; ++size) {
                item->setX(place);
                item->setWidth(size);
                verifyWhole(window->grabWindow(), size);
            }
        }
    }

    void noPixelOfTheWindowStaysDark()
    {
        QQmlEngine engine;
        const std::unique_ptr<QObject> created = create(
            engine,
            "Window { visible: true; color: 'white'; WindowEdge { anchors.fill: parent; color: 'white' } }");
        auto *window = qobject_cast<QQuickWindow *>(created.get());
        for (int size = 100; size < 104; ++size) { // each of them ends on another fraction of a pixel
            window->resize(size, size);
            QTRY_COMPARE(window->contentItem()->size(), QSizeF(size, size));
            QCOMPARE(coloured(window->grabWindow()), QRect());
        }
    }

private:
    static std::unique_ptr<QObject> create(QQmlEngine &engine, const QByteArray &source)
    {
        QQmlComponent component(&engine);
        component.setData("import QtQuick\nimport Marrowcut.Style\n" + source, QUrl());
        std::unique_ptr<QObject> created(component.create());
        if (!created)
            qFatal("%s", qPrintable(component.errorString()));
        return created;
    }

    static void verifyWhole(const QImage &picture, int size)
    {
        const QRect bounds = coloured(picture);
        QCOMPARE(bounds.width(), bounds.height());
        QVERIFY(std::abs(bounds.width() - 1.25 * size) < 2);
        const QImage shape = picture.copy(bounds);
        QVERIFY(isAlike(shape, shape.mirrored(true, false)));
        QVERIFY(isAlike(shape, shape.mirrored(false, true)));
        QCOMPARE(shape.pixelColor(bounds.width() / 2, 0), QColor(Qt::black)); // a border of one pixel
        QCOMPARE(shape.pixelColor(bounds.width() / 2, 1), QColor(Qt::blue));
    }

    /// But for the last bits of antialiasing.
    static bool isAlike(const QImage &one, const QImage &other)
    {
        for (int y = 0; y < one.height(); ++y) {
            for (int x = 0; x < one.width(); ++x) {
                const int difference = one.pixelColor(x, y).blue() - other.pixelColor(x, y).blue();
                if (std::abs(difference) > 8)
                    return false;
            }
        }
        return true;
    }

    static QRect coloured(const QImage &picture)
    {
        QRect bounds;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (picture.pixelColor(x, y) != QColor(Qt::white))
                    bounds |= QRect(x, y, 1, 1);
            }
        }
        return bounds;
    }
};

int main(int argc, char *argv[])
{
    qputenv("QT_SCALE_FACTOR", "1.25");
    QGuiApplication application(argc, argv);
    DrawingTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_drawing.moc"
