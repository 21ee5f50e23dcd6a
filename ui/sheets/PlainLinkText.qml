import QtQuick
import Marrowcut.Style

// A text that opens a web address. It looks like the dimmed text beside it; give it another font or colour to match
// other surroundings.
Label {
    id: root

    required property string title
    required property url url

    function open() {
        Qt.openUrlExternally(url);
    }

    text: title
    activeFocusOnTab: true
    Accessible.role: Accessible.Link
    Accessible.name: title
    Accessible.focusable: true
    Accessible.onPressAction: open()
    Keys.onSpacePressed: open() // Return belongs to the window's default button

    HoverHandler {
        cursorShape: Qt.PointingHandCursor
    }

    TapHandler {
        onTapped: root.open()
    }

    FocusRing {
        visible: root.activeFocus
        innerRadius: 0
    }
}
