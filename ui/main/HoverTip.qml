import QtQuick
import Marrowcut.Style

// Says more about its parent while the pointer rests there. Without text there is nothing to say.
Item {
    id: root

    required property string text
    readonly property TipWindow shownTip: loader.item as TipWindow

    objectName: "hoverTip"
    anchors.fill: parent

    HoverHandler {
        id: pointer
    }

    // Made only when wanted: every row has some.
    Loader {
        id: loader

        active: pointer.hovered && root.text.length > 0

        // qmllint disable unqualified
        sourceComponent: TipWindow {
            text: root.text
            target: root
        }
        // qmllint enable unqualified
    }
}
