import QtQuick
import Marrowcut.Main
import Marrowcut.Style

// Takes files and folders that are dragged from other programs, and shows an outline while it would.
DropArea {
    id: root

    required property QueueViewModel queue
    readonly property bool isTargeted: containsDrag && takesDrag
    property bool takesDrag: false

    // Always a copy: a source whose files were moved may delete them. Where it offers nothing but to move (the user holds
    // Shift), Qt would reply so whatever is accepted.
    function reply(drag: DragEvent, isWanted: bool) {
        takesDrag = isWanted && (drag.supportedActions & Qt.CopyAction) !== 0;
        if (takesDrag)
            drag.accept(Qt.CopyAction);
        else
            drag.accepted = false;
    }

    onEntered: drag => reply(drag, root.queue.acceptsDrop(drag.urls))
    onPositionChanged: drag => reply(drag, true)
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
