import QtQuick

// The application's icon, square.
Image {
    property real size: 64

    width: size
    height: size
    sourceSize.width: size
    sourceSize.height: size
    source: Qt.resolvedUrl("icons/marrowcut.svg")
}
