import QtQuick
import Marrowcut.Main
import Marrowcut.Style

// Takes files and folders that are dragged from other programs, and shows an outline while it would.
DropArea {
    id: root

    required property QueueViewModel queue
    readonly property bool isTargeted: containsDrag

    // Always a copy: a source that offers to move must not delete its files.
    onEntered: drag => root.queue.acceptsDrop(drag.urls) ? drag.accept(Qt.CopyAction) : (drag.accepted = false)
    onPositionChanged: drag => drag.accept(Qt.CopyAction)
    onDropped: drop => {
        drop.accept(Qt.CopyAction);
        root.queue.handleDrop(drop.urls);
    }

    // Before the content, since bars and list are opaque; it covers no more than the window's edge.
    RoundedRectangle {
        objectName: "dropHighlight"
        anchors.fill: parent
        visible: root.isTargeted
        radius: 12
        borderColor: Theme.accent
        borderWidth: 3
    }
}
