import QtQuick

// The application's icon, square.
Image {
    property real size: 64

    width: size
    height: size
    sourceSize: Qt.size(size, size)
    source: Qt.resolvedUrl("icons/marrowcut.svg")
}
