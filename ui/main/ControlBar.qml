import QtQuick
import QtQuick.Layouts
import Marrowcut.Main
import Marrowcut.Style

// What can be done with the queue as a whole, while no run is going on.
RowLayout {
    id: root

    required property QueueViewModel queue
    readonly property bool holdsFocus: selectButton.activeFocus || clearButton.activeFocus || goButton.activeFocus

    spacing: 8

    PushButton {
        id: selectButton

        objectName: "selectAllButton"
        visible: root.queue.hasQueuedJobs
        text: root.queue.allQueuedSelected ? "Select None" : "Select All"
        font.pixelSize: 11
        onClicked: root.queue.toggleAllSelected()
    }

    PushButton {
        id: clearButton

        objectName: "clearButton"
        visible: root.queue.hasCompletedJobs
        text: "Clear Completed"
        font.pixelSize: 11
        onClicked: root.queue.clearCompleted()
    }

    Text {
        Layout.fillWidth: true
        text: "Drop more to add to the queue"
        font.pixelSize: 11
        color: Theme.secondary
        horizontalAlignment: Text.AlignRight
        elide: Text.ElideRight
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    PushButton {
        id: goButton

        objectName: "goButton"
        visible: root.queue.hasSelectedQueuedJobs
        text: "Go"
        highlighted: true
        onClicked: root.queue.start()
    }

    Shortcut {
        sequences: ["Return", "Enter"]
        enabled: goButton.visible
        onActivated: root.queue.start()
    }
}
