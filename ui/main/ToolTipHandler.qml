import QtQuick
import Marrowcut.Main

// Shows a text in a tooltip window while the pointer rests on the parent. An empty text shows nothing.
HoverHandler {
    id: root

    required property string text
    readonly property bool isWanted: hovered && text.length > 0

    function update() {
        if (isWanted)
            ToolTipWindow.showFor(parent, text);
        else
            ToolTipWindow.hideFor(parent);
    }

    onIsWantedChanged: update()
    onTextChanged: if (isWanted) update()
}
