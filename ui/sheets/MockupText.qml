import QtQuick
import QtQuick.Window
import Marrowcut.Style

// One unwrapped line in the monospaced font; its size in logical pixels need not be a whole number.
Text {
    required property real size

    font.family: Theme.monospaced
    font.pointSize: Math.max(1, size * 72 / (25.4 * Screen.logicalPixelDensity))
    textFormat: Text.PlainText
    wrapMode: Text.NoWrap
}
